#include <cmath>
#include <cstdint>

#include "tests/program/change_test.h"

namespace program_test {
namespace {

constexpr std::string_view kDay = "08:00 0, 10:00 80, 20:00 80 J, 22:00 0";

TEST(ChangeTimes, AShiftMovesEachStepAsFar) {
  EXPECT_EQ(After(kDay, ShiftTime{90}), "09:30 0, 11:30 80, 21:30 80 J, 23:30 0");
  EXPECT_EQ(After(kDay, ShiftTime{-30}), "07:30 0, 09:30 80, 19:30 80 J, 21:30 0");
}

TEST(ChangeTimes, AShiftGoesRoundTheDay) {
  EXPECT_EQ(After(kDay, ShiftTime{150}), "00:30 0, 10:30 0, 12:30 80, 22:30 80 J");
  EXPECT_EQ(After(kDay, ShiftTime{-540}), "01:00 80, 11:00 80 J, 13:00 0, 23:00 0");
  EXPECT_EQ(After(kDay, ShiftTime{kMostShift}), Told(GivenChannel(kDay)));
}

// The light that goes off in the evening goes off at midnight, and does not shine through the night.
TEST(ChangeTimes, AShiftThatStopsKeepsAMinuteBetweenSteps) {
  EXPECT_EQ(After(kDay, ShiftTime{240, true}), "12:00 0, 14:00 80, 23:58 80 J, 23:59 0");
  EXPECT_EQ(After(kDay, ShiftTime{-660, true}), "00:00 0, 00:01 80, 09:00 80 J, 11:00 0");
  EXPECT_EQ(After(kDay, ShiftTime{60, true}), "09:00 0, 11:00 80, 21:00 80 J, 23:00 0");
  EXPECT_EQ(After(kDay, ShiftTime{kMostShift, true}), "23:56 0, 23:57 80, 23:58 80 J, 23:59 0");
}

TEST(ChangeTimes, AChangeThatLeavesOneStepIsRefused) {
  ExpectRefused(GivenSingle(kDay), RoundTimes{720}, {}, ChangeRefusal::TooFewSteps);
}

TEST(ChangeTimes, AStepThatIsMovedTakesTheMinuteOfOneThatIsNot) {
  EXPECT_EQ(After(kDay, ShiftTime{120}, Within(MinuteAt(8), MinuteAt(9))), "10:00 0, 20:00 80 J, 22:00 0");
}

TEST(ChangeTimes, ASpanHoldsBothItsEndsAndMayGoRoundMidnight) {
  EXPECT_EQ(After(kDay, ShiftTime{10}, Within(MinuteAt(10), MinuteAt(20))),
            "08:00 0, 10:10 80, 20:10 80 J, 22:00 0");
  EXPECT_EQ(After(kDay, ShiftTime{10}, Within(MinuteAt(22), MinuteAt(8))),
            "08:10 0, 10:00 80, 20:00 80 J, 22:10 0");
  EXPECT_EQ(After(kDay, ShiftTime{10}, Within(MinuteAt(20), MinuteAt(20))),
            "08:00 0, 10:00 80, 20:10 80 J, 22:00 0");
}

TEST(ChangeTimes, OnlyTheStepsThatAreNamedMove) {
  Mode mode = GivenSingle(kDay);
  ChangeScope scope;
  scope.stepIds = {Serial(mode.channels[0], 0), Serial(mode.channels[0], 3)};
  EXPECT_EQ(ChangeMode(mode, ShiftTime{10}, scope).altered, 2);
  EXPECT_EQ(Told(mode.channels[0]), "08:10 0, 10:00 80, 20:00 80 J, 22:10 0");
}

TEST(ChangeTimes, AStretchKeepsItsMomentAndGoesBothWays) {
  EXPECT_EQ(After(kDay, StretchTime{50, MinuteAt(14)}), "11:00 0, 12:00 80, 17:00 80 J, 18:00 0");
  EXPECT_EQ(After(kDay, StretchTime{110, MinuteAt(12)}), "07:36 0, 09:48 80, 20:48 80 J, 23:00 0");
}

// Moonlight is one night, though it begins on one day and ends on the next.
TEST(ChangeTimes, AStretchGoesRoundMidnight) {
  EXPECT_EQ(After("06:00 0, 22:00 5", StretchTime{125, MinuteAt(2)}), "07:00 0, 21:00 5");
}

TEST(ChangeTimes, AStretchStopsTwelveHoursAway) {
  EXPECT_EQ(After(kDay, StretchTime{1000, MinuteAt(10)}), "10:00 80, 21:59 80 J, 22:00 0, 22:01 0");
}

TEST(ChangeTimes, StepsThatArePressedTogetherKeepAMinuteBetweenThem) {
  EXPECT_EQ(After("08:00 0, 08:01 10, 08:02 20, 08:03 30", StretchTime{1, MinuteAt(8, 1)}),
            "08:00 0, 08:01 10, 08:02 20, 08:03 30");
  EXPECT_EQ(After("06:00 0, 08:00 10, 08:01 100, 12:00 0", StretchTime{25, MinuteAt(12)}),
            "10:30 0, 10:59 10, 11:00 100, 12:00 0");
}

TEST(ChangeTimes, RoundingGoesToTheNearestLine) {
  EXPECT_EQ(After("08:02 0, 09:58 80, 20:07 80 J, 22:08 0", RoundTimes{15}),
            "08:00 0, 10:00 80, 20:00 80 J, 22:15 0");
  EXPECT_EQ(After("00:03 0, 12:00 50, 23:59 0", RoundTimes{10}), "00:00 0, 12:00 50, 23:50 0");
}

// Light that goes on within two minutes goes on within one interval, and is not lost.
TEST(ChangeTimes, RoundingKeepsASteepRise) {
  EXPECT_EQ(After("08:58 0, 09:00 100, 20:00 0", RoundTimes{5}), "08:55 0, 09:00 100, 20:00 0");
  EXPECT_EQ(After("09:00 0, 09:02 100, 20:00 0", RoundTimes{5}), "09:00 0, 09:05 100, 20:00 0");
  EXPECT_EQ(After("00:00 0, 00:01 100, 20:00 0", RoundTimes{5}), "00:00 0, 00:05 100, 20:00 0");
}

TEST(ChangeTimes, RoundingTakesAwayWhatLiesBetween) {
  EXPECT_EQ(After("09:00 0, 09:01 30, 09:02 60, 09:03 90, 20:00 0", RoundTimes{60}),
            "09:00 0, 10:00 90, 20:00 0");
  EXPECT_EQ(After("09:00 0, 09:03 90, 10:00 50, 11:00 0", RoundTimes{60}), "09:00 0, 10:00 50, 11:00 0");
  EXPECT_EQ(After("22:00 1, 22:50 0, 23:55 90", RoundTimes{60}), "22:00 1, 23:00 0");
}

TEST(ChangeTimes, NumbersOutOfRangeAreRefused) {
  const Mode mode = GivenSingle(kDay);
  const ModeChange wrong[] = {ShiftTime{1441},
                              ShiftTime{-1441},
                              StretchTime{0.5F, 0},
                              StretchTime{1001, 0},
                              StretchTime{100, 1440},
                              StretchTime{100, -1},
                              StretchTime{NAN, 0},
                              MirrorTime{1440},
                              MirrorTime{-1},
                              RoundTimes{0},
                              RoundTimes{-5},
                              RoundTimes{721},
                              ShiftTime{INT32_MIN, true}};
  for (const ModeChange& change : wrong) ExpectRefused(mode, change, {}, ChangeRefusal::NumberOutOfRange);
  ExpectRefused(mode, ShiftTime{1}, Within(0, 1440), ChangeRefusal::NumberOutOfRange);
  ExpectRefused(mode, ShiftTime{1}, Within(-1, 5), ChangeRefusal::NumberOutOfRange);
}

TEST(ChangeTimes, WithoutStepsThereIsNothingToDo) {
  const Mode mode = GivenSingle(kDay);
  ExpectRefused(mode, ShiftTime{1}, Within(0, 60), ChangeRefusal::NoSteps);
  ExpectRefused(mode, ShiftTime{1}, {.channels = ChannelSet(0b11110)}, ChangeRefusal::NoSteps);
  ExpectRefused(mode, ShiftTime{1}, {.stepIds = std::vector<std::uint32_t>{}}, ChangeRefusal::NoSteps);
}

TEST(ChangeTimes, MoreRowsThanAControllerTakesAreRefused) {
  // Two channels on the same 30 minutes; apart they take 60 rows.
  Mode mode;
  for (int i = 0; i < 30; ++i) mode.channels[0].push_back({i / 10, i % 10 * 6, static_cast<float>(i)});
  mode.channels[1] = mode.channels[0];
  RenumberSteps(mode);
  const ChangeScope second{.channels = ChannelSet(0b00010)};
  ExpectRefused(mode, ShiftTime{1}, second, ChangeRefusal::TooManyRows);
  mode.channels[0].resize(18);
  mode.channels[1].resize(30);
  const ChangeResult result = ChangeMode(mode, ShiftTime{1}, second);
  EXPECT_TRUE(result.Changed());
  EXPECT_EQ(result.rows, 48);
}

// A file may bring more rows than a controller takes; what makes them no more is let through.
TEST(ChangeTimes, AModeThatIsTooFullAlreadyMayBeChanged) {
  Mode mode = GivenModeOfMergedSteps(60, 3);
  RenumberSteps(mode);
  const ChangeResult result = ChangeMode(mode, ShiftTime{1}, {});
  EXPECT_TRUE(result.Changed());
  EXPECT_EQ(result.rows, 60);
}

}  // namespace
}  // namespace program_test
