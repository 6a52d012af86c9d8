// Days that nature makes, written into programs and folders.

#include <nlohmann/json.hpp>

#include "program/builtin_modes.h"
#include "tests/cli/command_fixture.h"

namespace {

using nlohmann::json;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class GenerateTest : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    virtual_clock::SetLocalTime({2026, 11, 23, 12, 0, 0, 0});
    ModeListView tank = GivenRamps({"One", "Two"});
    tank.channelInfos[0].name = "Blue";
    GivenProgram("tank.xml", tank);
  }

  json Told(Words words) {
    words.emplace_back("--json");
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.status, kSuccess) << outcome.err;
    return json::parse(outcome.out);
  }
};

TEST_F(GenerateTest, TheSunOfTodayIsToldAndNothingIsWritten) {
  const Outcome outcome = Run({"generate", "sun", "--place", "berlin"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, IsEmpty());
  EXPECT_THAT(outcome.out, AllOf(HasSubstr("Europe/Berlin, 52.50,13.37\n"),
                                 HasSubstr("2026-11-23, UTC+01:00\n"), HasSubstr("sunrise     07:42\n"),
                                 HasSubstr("sunset      16:03\n"), HasSubstr(" of 48, at most ")));
}

TEST_F(GenerateTest, ClocksAreThoseOfThePlaceOrAsTold) {
  EXPECT_EQ(Told({"generate", "sun", "--place", "Europe/Berlin", "--date", "2026-07-01"})["utcOffset"], 120);
  EXPECT_EQ(Told({"generate", "sun", "--at", "-33.9,151.2"})["utcOffset"], 660)
      << "those of the nearest place";
  EXPECT_EQ(Told({"generate", "sun", "--at", "-33.9,151.2", "--place", "Europe/Berlin"})["utcOffset"], 60);
  EXPECT_EQ(Told({"generate", "sun", "--at", "-33.9,151.2", "--utc-offset", "-3:30"})["utcOffset"], -210);
}

TEST_F(GenerateTest, PolarNightsHaveNoSunrise) {
  const json night = Told({"generate", "sun", "--at", "78.2,15.6", "--date", "2026-12-21", "@night.xml"});
  EXPECT_TRUE(night["sunrise"].is_null());
  EXPECT_EQ(night["error"], 0);
  EXPECT_THAT(Load("night.xml").modes, SizeIs(1));
}

TEST_F(GenerateTest, ADayStandsAlone) {
  const json sun = Told({"generate", "sun", "@sun.xml", "--place", "Manaus", "--levels", "80,80,100,60,0",
                         "--hours", "10:00-22:00", "--moon", "5=20"});
  const ModeListView program = Load("sun.xml");
  ASSERT_THAT(program.modes, SizeIs(1));
  EXPECT_EQ(program.modes[0].name, "Sun 11-23");
  EXPECT_EQ(CountModeSteps(program.modes[0]), sun["rows"]);
  EXPECT_LE(sun["rows"], 48);
  EXPECT_NEAR(ChannelValueAt(program.modes[0].channels[2], 16 * 3600), 100, 1);
}

TEST_F(GenerateTest, ADayGoesBehindTheModesOfAProgram) {
  EXPECT_EQ(Run({"generate", "ramp", "@more.xml", "--program", "@tank.xml"}).status, kSuccess);
  const ModeListView program = Load("more.xml");
  ASSERT_THAT(program.modes, SizeIs(3));
  EXPECT_EQ(program.modes[2].name, "Ramp day");
  EXPECT_EQ(program.channelInfos[0].name, "Blue");
}

TEST_F(GenerateTest, ADayTakesThePlaceOfAModeInTheSameFile) {
  EXPECT_EQ(Run({"generate", "ramp", "@tank.xml", "--program", "@tank.xml", "--mode", "2", "--sunrise",
                 "09:00", "--sunset", "19:00", "--ramp", "30"})
                .status,
            kSuccess);
  const ModeListView program = Load("tank.xml");
  ASSERT_THAT(program.modes, SizeIs(2));
  EXPECT_EQ(program.modes[1].name, "Two");
  EXPECT_EQ(StepsOf(program.modes[1].channels[0]), "09:00 0, 09:30 100, 18:30 100, 19:00 0");
  EXPECT_EQ(StepsOf(program.modes[0].channels[0]), "08:00 0, 20:00 100");
}

TEST_F(GenerateTest, NoFileIsReplacedUnlessItIsTold) {
  GivenFile("mine.xml", "mine");
  const Outcome outcome = Run({"generate", "ramp", "@mine.xml"});
  EXPECT_EQ(outcome.status, kWrongUsage);
  EXPECT_THAT(outcome.err, HasSubstr("mine.xml is there already; --force replaces it"));
  EXPECT_THAT(outcome.out, IsEmpty());
  EXPECT_EQ(ContentOf("mine.xml"), "mine");
  EXPECT_EQ(Run({"generate", "ramp", "@mine.xml", "--force"}).status, kSuccess);
  EXPECT_THAT(Load("mine.xml").modes, SizeIs(1));
}

TEST_F(GenerateTest, AFileThatCannotBeReadOrWrittenIsItsOwnFailure) {
  EXPECT_EQ(Run({"generate", "ramp", "@no/such/folder.xml"}).status, kFileFailed);
  EXPECT_EQ(Run({"generate", "ramp", "@out.xml", "--program", "@missing.xml"}).status, kFileFailed);
  EXPECT_EQ(Run({"generate", "acclimation", "@missing.xml", "@out.xml"}).status, kFileFailed);
  EXPECT_EQ(Run({"generate", "season", "@tank.xml", "--at", "0,0"}).status, kFileFailed);
  EXPECT_FALSE(Exists("out.xml"));
}

TEST_F(GenerateTest, TheMoonIsPutIntoAModeOfAProgram) {
  const json moon = Told({"generate", "moon", "@tank.xml", "--program", "@tank.xml", "--mode", "1", "--moon",
                          "5=40", "--night", "22:00-05:00"});
  EXPECT_NEAR(moon["illuminated"], 99, 1);
  EXPECT_EQ(moon["level"], 40);
  EXPECT_EQ(moon["nextFullMoon"], "2026-11-24 14:53");
  const Mode mode = Load("tank.xml").modes[0];
  EXPECT_EQ(StepsOf(mode.channels[4]), "04:30 40, 05:00 0, 22:00 0, 22:30 40");
  EXPECT_EQ(StepsOf(mode.channels[0]), "08:00 0, 20:00 100");
}

TEST_F(GenerateTest, AnAcclimationKnowsItsDay) {
  const auto day = [&](const Words& more) {
    Words words = {"generate", "acclimation", "@tank.xml", "@today.xml", "--percent",
                   "40",       "--days",      "7",         "--force"};
    words.insert(words.end(), more.begin(), more.end());
    return Told(words);
  };
  EXPECT_EQ(day({})["day"], 1) << "it begins today";
  EXPECT_EQ(day({"--first", "2026-11-20"})["percent"], 70);
  const ModeListView today = Load("today.xml");
  ASSERT_THAT(today.modes, SizeIs(2));
  EXPECT_EQ(today.modes[0].name, "One");
  EXPECT_EQ(StepsOf(today.modes[0].channels[0]), "08:00 0, 20:00 70");
  EXPECT_EQ(StepsOf(today.modes[1].channels[0]), "08:00 0, 20:00 100");
  EXPECT_EQ(day({"--first", "2026-11-20", "--date", "2027-01-01"})["percent"], 100);
  EXPECT_EQ(day({"--day", "1", "--mode", "2"})["percent"], 40);
  EXPECT_EQ(StepsOf(Load("today.xml").modes[1].channels[4]), "08:00 0, 20:00 40");
}

TEST_F(GenerateTest, AnAcclimationWritesEachOfItsDays) {
  const Outcome outcome = Run({"generate", "acclimation", "@tank.xml", "@slow", "--each", "--days", "14"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "Saved 14 programs in slow\n");
  EXPECT_THAT(outcome.out,
              StartsWith("day         1 of 14: 40.0 % of the light, rows 2 of 48, at most 0.0 % off\n"));
  EXPECT_EQ(StepsOf(Load("slow/day-014.xml").modes[0].channels[0]), "08:00 0, 20:00 100");
  EXPECT_EQ(Run({"generate", "acclimation", "@tank.xml", "@slow", "--each", "--days", "14"}).status,
            kWrongUsage);
}

TEST_F(GenerateTest, ASeasonIsAFolderOfPrograms) {
  const Outcome outcome = Run({"generate", "season", "@reef", "--place", "Europe/Berlin"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "Saved 52 programs in reef\n");
  EXPECT_THAT(outcome.out, StartsWith("week-01.xml  2026-01-04  "));
  EXPECT_EQ(Load("reef/week-48.xml").modes[0].name, "Week 48");
  const Outcome again = Run({"generate", "season", "@reef", "--place", "Europe/Berlin"});
  EXPECT_EQ(again.status, kWrongUsage);
  EXPECT_THAT(again.err, HasSubstr("week-01.xml is there already; --force replaces all of them"));
  EXPECT_EQ(Run({"generate", "season", "@reef", "--place", "Europe/Berlin", "--force", "--program",
                 "@tank.xml", "--mode", "1"})
                .status,
            kSuccess);
  EXPECT_EQ(Load("reef/week-48.xml").modes[0].name, "One");
}

TEST_F(GenerateTest, TheFolderOfASeasonStandsForThisWeek) {
  Run({"generate", "season", "@reef", "--place", "Europe/Berlin", "--year", "2026"});
  EXPECT_THAT(Run({"info", "@reef"}).out, StartsWith("Steps for mode: Week 47\n"));
  EXPECT_EQ(Run({"upload", "@reef", "--device", "emulator"}).status, kSuccess);
}

TEST_F(GenerateTest, PlacesAreListedByAWord) {
  const Outcome outcome = Run({"places", "berlin"});
  EXPECT_EQ(outcome.out, "Europe/Berlin                      52.50    13.37  Germany\n");
  const json all = Told({"places"});
  EXPECT_GT(all.size(), 400U);
  EXPECT_EQ(all[0]["name"], "Africa/Abidjan");
  EXPECT_EQ(Told({"places", "europe/berlin"})[0]["clock"], "CET-1CEST,M3.5.0,M10.5.0/3");
}

}  // namespace
