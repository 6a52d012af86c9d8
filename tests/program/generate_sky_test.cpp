// Where sun and moon stand, beside what ephem 4.1.4 tells of them. sky_test.py asks that itself, of many more
// days.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "program/generate/moon.h"
#include "program/generate/sun.h"

namespace {

using namespace TCBase::Program::Generate;

constexpr double kNever = -1;

struct SunRow {
  const char* place;
  Position position;
  const char* date;
  int utcOffset;
  double sunrise;  // minutes; by ephem with a horizon of -0:34 and no air
  double sunset;
  double civilDawn;
};

class SunTest : public testing::TestWithParam<SunRow> {};

void PrintTo(const SunRow& row, std::ostream* out) {
  *out << row.place << " " << row.date;
}

void ExpectAt(const std::optional<double>& minute, double expected) {
  if (expected == kNever) {
    EXPECT_EQ(minute, std::nullopt);
  } else {
    ASSERT_TRUE(minute);
    EXPECT_NEAR(*minute, expected, 1.0);
  }
}

TEST_P(SunTest, IsWithinAMinuteOfEphem) {
  const SunRow& row = GetParam();
  const SunDay sun(row.position, ParseDate(row.date).value(), row.utcOffset);
  ExpectAt(sun.Rise(kSunriseAltitude), row.sunrise);
  ExpectAt(sun.Set(kSunriseAltitude), row.sunset);
  ExpectAt(sun.Rise(kCivilAltitude), row.civilDawn);
}

INSTANTIATE_TEST_SUITE_P(
    Places, SunTest,
    testing::Values(SunRow{"Singapore", {1.35, 103.82}, "2026-03-20", 480, 429.0, 1155.5, 408.3},
                    SunRow{"Manaus", {-3.13, -60.02}, "2026-06-21", -240, 363.7, 1080.2, 341.1},
                    SunRow{"Quito", {-0.22, -78.51}, "2024-02-29", -300, 383.0, 1109.8, 362.1},
                    SunRow{"Cairns", {-16.92, 145.77}, "2026-12-21", 600, 340.5, 1129.1, 316.5},
                    SunRow{"Honolulu", {21.31, -157.86}, "2026-09-10", -600, 377.4, 1118.9, 355.0},
                    SunRow{"Sydney", {-33.87, 151.21}, "2026-01-15", 660, 359.5, 1209.0, 331.1},
                    SunRow{"Cape Town", {-33.92, 18.42}, "2026-06-21", 120, 471.4, 1064.9, 443.6},
                    SunRow{"Madrid", {40.42, -3.7}, "2026-07-04", 120, 409.9, 1308.4, 377.0},
                    SunRow{"New York", {40.71, -74.01}, "2026-11-05", -300, 391.1, 1007.6, 362.5},
                    SunRow{"Berlin", {52.52, 13.4}, "2026-11-23", 60, 461.8, 963.2, 422.7},
                    SunRow{"London", {51.51, -0.13}, "2033-04-17", 60, 360.1, 1201.0, 324.4},
                    SunRow{"Anchorage", {61.22, -149.9}, "2026-09-10", -480, 434.6, 1236.7, 389.7},
                    SunRow{"Helsinki", {60.17, 24.94}, "2026-12-21", 120, 563.8, 912.8, 505.4},
                    SunRow{"Ushuaia", {-54.8, -68.3}, "2026-03-20", -180, 454.5, 1185.5, 418.4},
                    SunRow{"Apia", {-13.83, -171.77}, "2026-11-05", 780, 351.4, 1110.1, 329.2},
                    SunRow{"Tokyo", {35.68, 139.69}, "2000-01-01", 540, 410.8, 998.0, 382.5},
                    SunRow{"Tromsoe", {69.65, 18.96}, "2026-06-21", 120, kNever, kNever, kNever},
                    SunRow{"Tromsoe", {69.65, 18.96}, "2026-12-21", 60, kNever, kNever, 571.3},
                    SunRow{"Longyearbyen", {78.22, 15.65}, "2026-12-21", 60, kNever, kNever, kNever},
                    SunRow{"McMurdo", {-77.85, 166.67}, "2026-12-21", 780, kNever, kNever, kNever},
                    SunRow{"Tromsoe", {69.65, 18.96}, "2026-03-20", 60, 343.9, 1081.5, 283.8}));

TEST(Sun, StandsHighestAtItsNoon) {
  for (const int utcOffset : {-900, -300, 0, 600, 900}) {
    const SunDay sun({52.5, 13.4}, ParseDate("2026-04-01").value(), utcOffset);
    EXPECT_GE(sun.Noon(), 0);
    EXPECT_LT(sun.Noon(), 1440);
    EXPECT_NEAR(sun.AltitudeAt(static_cast<int>(sun.Noon())), sun.Highest(), 0.01);
  }
}

TEST(Sun, ShinesWhateverItIsAsked) {
  const double wild[] = {std::nan(""), std::numeric_limits<double>::infinity(), -1e300, 90, -90, 1e-300};
  for (const double latitude : wild) {
    for (const double longitude : wild) {
      for (const int utcOffset : {std::numeric_limits<int>::min(), 0, std::numeric_limits<int>::max()}) {
        const SunDay sun({latitude, longitude},
                         Date{std::chrono::year{-32767}, std::chrono::month{0}, std::chrono::day{99}},
                         utcOffset);
        EXPECT_GE(sun.Noon(), 0);
        EXPECT_LT(sun.Noon(), 1440);
        for (int minute = 0; minute <= 1440; minute += 60) EXPECT_LE(std::abs(sun.AltitudeAt(minute)), 90);
      }
    }
  }
}

struct MoonRow {
  double after;  // a Julian day
  double newMoon;
  double fullMoon;
};

TEST(Moon, IsNewAndFullWhenEphemSaysSo) {
  constexpr MoonRow kRows[] = {
      {2460370.5, 2460379.8753, 2460394.7919},  // from 1 March 2024 on
      {2460735.5, 2460763.9568, 2460748.7879},  // from 1 March 2025 on
      {2461100.5, 2461118.5579, 2461102.9846},  // from 1 March 2026 on
      {2461465.5, 2461472.8954, 2461486.9470},  // from 1 March 2027 on
      {2461831.5, 2461856.6884, 2461841.5458},  // from 1 March 2028 on
      {2462196.5, 2462210.6800, 2462225.6016},  // from 1 March 2029 on
      {2462561.5, 2462564.7740, 2462580.2475},  // from 1 March 2030 on
      {2462926.5, 2462948.6590, 2462934.6872},  // from 1 March 2031 on
      {2463292.5, 2463303.1837, 2463318.5320},  // from 1 March 2032 on
      {2463657.5, 2463657.8496, 2463672.5675},  // from 1 March 2033 on
      {2464022.5, 2464041.9267, 2464026.5903},  // from 1 March 2034 on
  };
  constexpr double kHour = 1.0 / 24;
  for (const MoonRow& row : kRows) {
    EXPECT_NEAR(NextNewMoon(row.after), row.newMoon, kHour) << row.after;
    EXPECT_NEAR(NextFullMoon(row.after), row.fullMoon, kHour) << row.after;
    EXPECT_LT(MoonIlluminated(row.newMoon), 0.01);
    EXPECT_GT(MoonIlluminated(row.fullMoon), 0.99);
  }
}

TEST(Moon, TheNextPhaseIsNeverBefore) {
  for (double day = 2460000; day < 2460060; day += 0.37) {
    for (double (*const next)(double) : {&NextNewMoon, &NextFullMoon}) {
      EXPECT_GE(next(day), day);
      EXPECT_LT(next(day), day + 29.9);
    }
  }
}

TEST(Moon, ShinesWhateverItIsAsked) {
  for (const double day : {std::nan(""), std::numeric_limits<double>::infinity(), -1e300, 1e300, 0.0, 1e7}) {
    EXPECT_GE(MoonIlluminated(day), 0);
    EXPECT_LE(MoonIlluminated(day), 1);
    EXPECT_TRUE(std::isfinite(NextNewMoon(day)));
    EXPECT_TRUE(std::isfinite(NextFullMoon(day)));
  }
}

}  // namespace
