// Days, clocks and places, and how people type them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

#include "program/generate/calendar.h"
#include "program/generate/clock_rule.h"
#include "program/generate/place.h"
#include "program/generate/season.h"
#include "program/generate/typed.h"

namespace {

using namespace TCBase::Program::Generate;
using std::chrono::day;
using std::chrono::month;
using std::chrono::year;
using testing::Each;
using testing::Optional;

Date On(const char* text) {
  return ParseDate(text).value();
}

TEST(Calendar, ReadsDatesToTheLetter) {
  EXPECT_EQ(DateText(On("2026-11-23")), "2026-11-23");
  EXPECT_EQ(DateText(On("2024-02-29")), "2024-02-29");
  for (const char* const text :
       {"", "2026-11-2", "2026-11-233", "2026/11/23", "2026-13-01", "2026-02-29", "1949-12-31", "2100-01-01",
        "-026-11-23", "2026-+1-23", "2026-11--3", "tomorrow..", "2026-00-10", "2026-10-00", "2026-11/23",
        "2026-1x-23", "2x26-11-23", "2026-11-x3"})
    EXPECT_EQ(ParseDate(text), std::nullopt) << text;
}

TEST(Calendar, CountsDays) {
  EXPECT_EQ(DateText(PlusDays(On("2026-12-31"), 1)), "2027-01-01");
  EXPECT_EQ(DateText(PlusDays(On("2024-03-01"), -1)), "2024-02-29");
  EXPECT_EQ(DaysBetween(On("2026-11-23"), On("2026-12-23")), 30);
  EXPECT_EQ(DayOfYear(On("2024-12-31")), 366);
  EXPECT_EQ(JulianDayOf(On("2000-01-01")), 2451544.5);
}

TEST(Calendar, StaysInReach) {
  EXPECT_EQ(DateText(PlusDays(On("2099-12-31"), 1)), "2099-12-31");
  EXPECT_EQ(DateText(PlusDays(On("2000-01-01"), std::numeric_limits<int>::max())), "2099-12-31");
  EXPECT_EQ(DateText(PlusDays(On("2000-01-01"), std::numeric_limits<int>::min())), "1950-01-01");
  EXPECT_EQ(DateText(NearestInReach(Date{year{2026}, month{2}, day{31}})), "2026-02-28");
  EXPECT_EQ(DateText(NearestInReach(Date{year{2026}, month{0}, day{0}})), "2026-01-01");
  EXPECT_EQ(DateText(NearestInReach(Date{year{-32767}, month{255}, day{255}})), "1950-01-01");
  EXPECT_EQ(DateText(NearestInReach(Date{year{32767}, month{13}, day{32}})), "2099-12-31");
  EXPECT_EQ(DateText(DateOf({-5, -5, -5})), "1950-01-01");
}

TEST(Calendar, TellsTheMomentOfAJulianDay) {
  const DateTime moment = DateTimeOf(2460310.75);  // 2024-01-01, 06:00
  EXPECT_EQ(DateText(DateOf(moment)), "2024-01-01");
  EXPECT_EQ(moment.hour, 6);
  EXPECT_EQ(DateTimeOf(std::nan("")).year, 1950);
  EXPECT_EQ(DateTimeOf(1e300).year, 2099);
}

TEST(Calendar, WeeksGoFromTheFirstOfJanuaryToTheEndOfTheYear) {
  EXPECT_EQ(WeekOfYear(On("2026-01-01")), 1);
  EXPECT_EQ(WeekOfYear(On("2026-01-07")), 1);
  EXPECT_EQ(WeekOfYear(On("2026-01-08")), 2);
  EXPECT_EQ(WeekOfYear(On("2024-12-31")), 52);
  for (int week = 1; week <= kWeeks; ++week) EXPECT_EQ(WeekOfYear(MiddleOfWeek(year{2028}, week)), week);
  EXPECT_EQ(WeekFileName(7), "week-07.xml");
}

TEST(Clocks, GoByTheirRules) {
  struct Row {
    const char* rule;
    const char* date;
    int offset;
  };
  const Row rows[] = {
      {"CET-1CEST,M3.5.0,M10.5.0/3", "2026-03-28", 60},
      {"CET-1CEST,M3.5.0,M10.5.0/3", "2026-03-29", 120},
      {"CET-1CEST,M3.5.0,M10.5.0/3", "2026-10-24", 120},
      {"CET-1CEST,M3.5.0,M10.5.0/3", "2026-10-25", 60},
      {"EST5EDT,M3.2.0,M11.1.0", "2026-07-01", -240},
      {"EST5EDT,M3.2.0,M11.1.0", "2026-12-01", -300},
      {"AEST-10AEDT,M10.1.0,M4.1.0/3", "2026-01-01", 660},
      {"AEST-10AEDT,M10.1.0,M4.1.0/3", "2026-07-01", 600},
      {"IST-1GMT0,M10.5.0,M3.5.0/1", "2026-01-01", 0},
      {"IST-1GMT0,M10.5.0,M3.5.0/1", "2026-07-01", 60},
      {"<+1245>-12:45<+1345>,M9.5.0/2:45,M4.1.0/3:45", "2026-07-01", 765},
      {"EET-2EEST,M3.4.4/50,M10.4.4/50", "2026-03-28", 180},  // the fourth Thursday is the 26th, 50 hours on
      {"EET-2EEST,M3.4.4/50,M10.4.4/50", "2026-03-27", 120},
      {"<-03>3", "2026-07-01", -180},
      {"XST2XDT,J60,J300", "2024-02-29", -120},
      {"XST2XDT,J60,J300", "2024-03-01", -60},
      {"XST2XDT,J60,J300", "2026-02-28", -120},
      {"XST2XDT,J60,J300", "2026-03-01", -60},
      {"XST2XDT,J59,J300", "2024-02-27", -120},
      {"XST2XDT,J59,J300", "2024-02-28", -60},
      {"XST2XDT,59,300", "2024-02-29", -60},
      {"UTC0", "2026-07-01", 0},
      {"LMT-1:15:40", "2026-07-01", 75},  // seconds do not count
      {"XST2XDT,59/12,300", "2026-03-01", -60},
      {"XST2XDT,59/12,300", "2026-02-28", -120},
      {"XST2XDT,59/12,300", "2024-02-29", -60},  // from noon on, noon included
      {"XST2XDT,59/12:01,300", "2024-02-29", -120},
      {"XST2XDT,10,59/12", "2024-02-29", -120},  // up to noon, noon excluded
      {"XST2XDT,10,59/12:01", "2024-02-29", -60},
      {"XST2XDT,J1,J366", "2024-01-01", -60},
      {"XST2XDT,300/12,59", "2026-10-28", -60},
      {"XST2XDT,300/12:01,59", "2026-10-28", -120},
  };
  for (const Row& row : rows) {
    EXPECT_THAT(UtcOffsetAtNoon(row.rule, On(row.date)), Optional(row.offset)) << row.rule << " " << row.date;
  }
}

TEST(Clocks, WhatIsNoRuleHasNoOffset) {
  for (const char* const rule : {"",
                                 "CET",
                                 "1",
                                 "<+01-1",
                                 "CET-",
                                 "CET-1CEST,M3.5",
                                 "CET-1CEST,M13.1.0,M10.5.0",
                                 "CET-1CEST,M3.6.0,M10.5.0",
                                 "CET-1CEST,M3.5.7,M10.5.0",
                                 "CET-1CEST,M3.5.0",
                                 "CET-1CEST",
                                 "CET-1CEST,M3.5.0,M10.5.0/3x",
                                 "CET-99",
                                 "CET-123456",
                                 "CET-1CEST,J367,J400",
                                 "CET-1CEST,M3.5.0/,M10.5.0",
                                 "CET-1CEST,M0.5.0,M10.5.0",
                                 "CET-1CEST,M3.0.0,M10.5.0",
                                 "CET-1CEST,M3:5.0,M10.5.0",
                                 "CET-1CEST,J,M10.5.0",
                                 "CET-1CEST,x,M10.5.0",
                                 "CET-1,M3.5.0,M10.5.0",
                                 "<+01>-1<+02,M3.5.0,M10.5.0"})
    EXPECT_EQ(UtcOffsetAtNoon(rule, On("2026-07-01")), std::nullopt) << rule;
}

TEST(Places, AreThoseOfTheDatabase) {
  ASSERT_GT(Places().size(), 400U);
  std::set<std::string> names;
  for (const Place& place : Places()) {
    EXPECT_TRUE(IsOnEarth(place.position)) << place.name;
    EXPECT_TRUE(UtcOffsetAtNoon(place.clockRule, On("2026-07-01"))) << place.name;
    EXPECT_STRNE(place.country, "") << place.name;
    EXPECT_EQ(FindPlace(place.name), &place);
    names.insert(place.name);
  }
  EXPECT_EQ(names.size(), Places().size());
  const Place* const berlin = FindPlace("Europe/Berlin");
  ASSERT_NE(berlin, nullptr);
  EXPECT_NEAR(berlin->position.latitude, 52.5, 0.01);
  EXPECT_NEAR(berlin->position.longitude, 13.367, 0.01);
  EXPECT_STREQ(berlin->country, "Germany");
  EXPECT_LT(FindPlace("Sydney")->position.latitude, 0);
  EXPECT_LT(FindPlace("Lima")->position.longitude, 0);
}

TEST(Places, AreFoundAsPeopleTypeThem) {
  EXPECT_EQ(FindPlace("berlin"), FindPlace("Europe/Berlin"));
  EXPECT_EQ(FindPlace("sao paulo"), FindPlace("America/Sao_Paulo"));
  EXPECT_EQ(FindPlace("Atlantis"), nullptr);
  EXPECT_EQ(FindPlace(""), nullptr);
  EXPECT_EQ(FindPlaces("").size(), Places().size());
  EXPECT_EQ(FindPlaces("germany").size(), 2U);
  EXPECT_THAT(FindPlaces("sao p"), testing::ElementsAre(FindPlace("America/Sao_Paulo")));
  EXPECT_TRUE(FindPlaces("Atlantis").empty());
}

TEST(Places, TheNearestIsFoundOverTheDateLineAndThePole) {
  EXPECT_STREQ(NearestPlace({48.14, 11.58}).name, "Europe/Vaduz");
  EXPECT_STREQ(NearestPlace({-18.1, -179.9}).name, "Pacific/Fiji");
  EXPECT_STREQ(NearestPlace({-90, 0}).name, NearestPlace({-90, 180}).name);
  NearestPlace({std::nan(""), 1e300});
}

TEST(Typed, Positions) {
  const auto munich = ParsePosition("48.14, 11.58");
  ASSERT_TRUE(munich);
  EXPECT_EQ(munich->latitude, 48.14);
  EXPECT_EQ(munich->longitude, 11.58);
  EXPECT_EQ(ParsePosition("-18,+147.7")->longitude, 147.7);
  for (const char* const text :
       {"", ",", "1", "1,", ",1", "91,0", "0,181", "nan,0", "0,inf", "1,2,3", "1 2", "a,b"})
    EXPECT_FALSE(ParsePosition(text)) << text;
}

TEST(Typed, Times) {
  EXPECT_THAT(ParseMinute("8:05"), Optional(485));
  EXPECT_THAT(ParseMinute("23:59"), Optional(1439));
  EXPECT_EQ(MinuteText(485), "08:05");
  const auto night = ParseHours("22:00-06:30");
  ASSERT_TRUE(night);
  EXPECT_EQ(night->begin, 1320);
  EXPECT_EQ(night->end, 390);
  for (const char* const text : {"", ":", "8", "24:00", "8:60", "-1:00", "08:05:00", "8:5x", "008:05"})
    EXPECT_FALSE(ParseMinute(text)) << text;
  for (const char* const text : {"", "-", "10:00", "10:00-", "10:00-24:00", "10:00 - 22:00"})
    EXPECT_FALSE(ParseHours(text)) << text;
}

TEST(Typed, Offsets) {
  EXPECT_THAT(ParseUtcOffset("+01:00"), Optional(60));
  EXPECT_THAT(ParseUtcOffset("-3:30"), Optional(-210));
  EXPECT_THAT(ParseUtcOffset("2"), Optional(120));
  EXPECT_EQ(UtcOffsetText(-210), "-03:30");
  EXPECT_EQ(UtcOffsetText(0), "+00:00");
  for (const char* const text : {"", "+", "16:00", "--1", "1:99", "one"})
    EXPECT_FALSE(ParseUtcOffset(text)) << text;
}

TEST(Typed, Levels) {
  EXPECT_THAT(ParseLevels("80").value(), Each(80.0F));
  EXPECT_THAT(ParseLevels("80,0,100,33.5,1").value(), testing::ElementsAre(80, 0, 100, 33.5, 1));
  for (const char* const text :
       {"", ",", "1,2,3,4", "1,2,3,4,5,6", "101", "-1", "nan", "1,2,3,4,x", "1,2,3,4,", "1%"})
    EXPECT_FALSE(ParseLevels(text)) << text;
  EXPECT_EQ(ParseMoonlight("5=20")->channel, 4);
  EXPECT_EQ(ParseMoonlight("1=0.5")->level, 0.5F);
  for (const char* const text : {"", "5", "5=", "0=1", "6=1", "5=101", "5:20"})
    EXPECT_FALSE(ParseMoonlight(text)) << text;
}

}  // namespace
