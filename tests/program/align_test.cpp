// Moving steps to a grid.

#include "program/align.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

struct Alignment {
  const char* name;
  std::int32_t interval;
  const char* given;
  const char* expected;
};

class Aligning : public testing::TestWithParam<Alignment> {};

TEST_P(Aligning, MovesTheStepsOfAChannel) {
  Mode result;
  AlignMode(GivenMode({"", GetParam().given}), result, GetParam().interval);
  EXPECT_EQ(Told(result.channels[1]), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Channels, Aligning,
    testing::Values(
        Alignment{"EveryStepMovesOneIntervalAtLeast", 30, "08:10 1, 08:20 2 J, 08:50 3",
                  "08:00 1, 08:30 2 J, 09:00 3"},
        Alignment{"OnTheGridStays", 15, "08:00 1, 08:15 2, 12:45 3", "08:00 1, 08:15 2, 12:45 3"},
        Alignment{"AFarStepComesDownToTheGrid", 60, "08:59 1, 12:59 2", "08:00 1, 12:00 2"},
        Alignment{"TheFirstStepMayComeDownToMidnight", 60, "00:59 1, 02:00 2", "00:00 1, 02:00 2"},
        // From 08:00 the second is pushed to 08:30 and takes the third's place, which is pushed in turn.
        Alignment{"APushedStepPushesTheNext", 30, "08:00 1, 08:01 2, 08:30 3", "08:00 1, 08:30 2, 09:00 3"},
        // The rule keeps every step and never looks at the end of the day.
        Alignment{"PastMidnightComesOutInTheMorning", 60, "22:50 1, 22:55 2, 23:00 3, 23:10 4",
                  "00:00 3, 01:00 4, 22:00 1, 23:00 2"},
        Alignment{"PastMidnightMeetsAnEarlyStepAndTheOneThatCameFirstStays", 60,
                  "00:10 9, 22:50 1, 22:55 2, 23:00 3", "00:00 9, 22:00 1, 23:00 2"},
        Alignment{"OutOfOrderOnlyMovesOn", 30, "12:00 1, 08:00 2", "12:00 1, 12:30 2"},
        Alignment{"OneMinuteSeparatesDoubles", 1, "08:00 1, 08:00 2", "08:00 1, 08:01 2"},
        Alignment{"NoIntervalCountsAsAMinute", 0, "08:00 1, 08:00 2", "08:00 1, 08:01 2"},
        Alignment{"BeforeTheDayIsItsStart", 30, "-5:00 1, 08:00 2", "00:00 1, 08:00 2"},
        Alignment{"FarPastTheDayWraps", 30, "30:00 1", "06:00 1"}, Alignment{"OfNoStepsIsNone", 30, "", ""}),
    [](const auto& test) { return test.param.name; });

TEST(AligningAMode, TakesNumbersOfAnySize) {
  constexpr std::int32_t kFar = std::numeric_limits<std::int32_t>::max();
  Mode mode;
  mode.channels[0] = {{kFar, kFar, 1}, {-kFar - 1, -kFar - 1, 2}, {kFar, 0, 3}};
  AlignMode(mode, mode, kFar);
  for (const Step& step : mode.channels[0]) {
    EXPECT_GE(MinuteOfDay(step), 0);
    EXPECT_LT(MinuteOfDay(step), kMinutesPerDay);
  }
}

TEST(AligningAMode, KeepsItsTextsAndGivesFreshSerials) {
  Mode mode = GivenMode({"08:10 1, 08:20 2"});
  mode.name = "Reef";
  mode.description = "By day";
  Mode result;
  const std::uint32_t before = NextStepId();
  AlignMode(mode, result, 30);
  EXPECT_EQ(result.name, "Reef");
  EXPECT_EQ(result.description, "By day");
  EXPECT_EQ(Serial(result.channels[0], 0), before + 1);
  EXPECT_EQ(Serial(result.channels[0], 1), before + 2);
}

}  // namespace
}  // namespace program_test
