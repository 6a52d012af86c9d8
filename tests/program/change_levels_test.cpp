#include <cmath>
#include <limits>

#include "tests/program/change_test.h"

namespace program_test {
namespace {

constexpr std::string_view kDay = "08:00 0, 10:00 80, 20:00 60 J, 22:00 10";
constexpr ChannelSet kFirst(0b00001);

TEST(ChangeLevels, AShiftStopsAtNothingAndAtFullLight) {
  EXPECT_EQ(After(kDay, ShiftPercent{5}), "08:00 5, 10:00 85, 20:00 65 J, 22:00 15");
  EXPECT_EQ(After(kDay, ShiftPercent{30}), "08:00 30, 10:00 100, 20:00 90 J, 22:00 40");
  EXPECT_EQ(After(kDay, ShiftPercent{-20}), "08:00 0, 10:00 60, 20:00 40 J, 22:00 0");
}

TEST(ChangeLevels, AScaleIsAboutNothingOrALevel) {
  EXPECT_EQ(After(kDay, ScalePercent{50}), "08:00 0, 10:00 40, 20:00 30 J, 22:00 5");
  EXPECT_EQ(After(kDay, ScalePercent{50, 60}), "08:00 30, 10:00 70, 20:00 60 J, 22:00 35");
  EXPECT_EQ(After(kDay, ScalePercent{200, 60}), "08:00 0, 10:00 100, 20:00 60 J, 22:00 0");
  EXPECT_EQ(After(kDay, ScalePercent{0, 30}), "08:00 30, 10:00 30, 20:00 30 J, 22:00 30");
}

TEST(ChangeLevels, AllJumpOrAllFade) {
  EXPECT_EQ(After(kDay, SetJump{true}), "08:00 0 J, 10:00 80 J, 20:00 60 J, 22:00 10 J");
  EXPECT_EQ(After(kDay, SetJump{false}), "08:00 0, 10:00 80, 20:00 60, 22:00 10");
}

TEST(ChangeLevels, RoundingGoesToTheNearestThatIsThere) {
  EXPECT_EQ(After("08:00 2.4, 09:00 2.6, 10:00 97, 11:00 98", RoundPercents{5}),
            "08:00 0, 09:00 5, 10:00 95, 11:00 100");
  EXPECT_EQ(After("08:00 33.4, 09:00 66.6", RoundPercents{1}), "08:00 33, 09:00 67");
  EXPECT_EQ(After("08:00 10, 09:00 100", RoundPercents{60}), "08:00 0, 09:00 60");
}

TEST(ChangeLevels, ACopyKeepsTimesAndScalesLevels) {
  Mode mode = GivenMode({kDay, "01:00 1, 02:00 2"});
  RenumberSteps(mode);
  const ChangeResult result = ChangeMode(mode, CopyToChannels{ChannelSet(0b00111), 50}, {.channels = kFirst});
  EXPECT_EQ(Told(mode.channels[0]), Told(GivenChannel(kDay)));
  for (const int c : {1, 2})
    EXPECT_EQ(Told(mode.channels[static_cast<std::size_t>(c)]), "08:00 0, 10:00 40, 20:00 30 J, 22:00 5");
  EXPECT_EQ(result.steps, 4);
  EXPECT_EQ(result.added, 8);
  EXPECT_EQ(result.removed, 2);
  EXPECT_EQ(result.altered, 0);
  EXPECT_EQ(result.rows, 4);
  EXPECT_NE(Serial(mode.channels[1], 0), Serial(mode.channels[0], 0));
  EXPECT_NE(Serial(mode.channels[1], 0), Serial(mode.channels[2], 0));
}

TEST(ChangeLevels, ACopyOfASpanLeavesTheRestOfTheOther) {
  Mode mode = GivenMode({kDay, "07:00 7, 09:00 9, 10:00 11, 21:00 21"});
  RenumberSteps(mode);
  ChangeScope scope = Within(MinuteAt(8), MinuteAt(20));
  scope.channels = kFirst;
  ChangeMode(mode, CopyToChannels{ChannelSet(0b00010)}, scope);
  EXPECT_EQ(Told(mode.channels[1]), "07:00 7, 08:00 0, 10:00 80, 20:00 60 J, 21:00 21");
}

TEST(ChangeLevels, ACopyOfSingleStepsTakesOnlyTheirMinutes) {
  Mode mode = GivenMode({kDay, "07:00 7, 09:00 9, 10:00 11, 21:00 21"});
  RenumberSteps(mode);
  ChangeScope scope;
  scope.stepIds = {Serial(mode.channels[0], 1), Serial(mode.channels[0], 2)};
  ChangeMode(mode, CopyToChannels{ChannelSet(0b00010)}, scope);
  EXPECT_EQ(Told(mode.channels[1]), "07:00 7, 09:00 9, 10:00 80, 20:00 60 J, 21:00 21");
}

TEST(ChangeLevels, ACopyThatMakesNoSenseIsRefused) {
  Mode mode = GivenMode({kDay, "01:00 1, 02:00 2"});
  RenumberSteps(mode);
  ExpectRefused(mode, CopyToChannels{ChannelSet(0b00100)}, {}, ChangeRefusal::SeveralChannels);
  ExpectRefused(mode, CopyToChannels{kFirst}, {.channels = kFirst}, ChangeRefusal::NoOtherChannel);
  ExpectRefused(mode, CopyToChannels{ChannelSet()}, {.channels = kFirst}, ChangeRefusal::NoOtherChannel);
  ChangeScope one = Within(MinuteAt(8), MinuteAt(8));
  one.channels = kFirst;
  // The third channel is empty, and a channel has two steps.
  ExpectRefused(mode, CopyToChannels{ChannelSet(0b00100)}, one, ChangeRefusal::TooFewSteps);
}

TEST(ChangeLevels, ACopyOfWhatIsThereIsNoChange) {
  Mode mode = GivenMode({kDay, kDay});
  RenumberSteps(mode);
  const Mode before = mode;
  EXPECT_FALSE(ChangeMode(mode, CopyToChannels{ChannelSet(0b00010)}, {.channels = kFirst}).Changed());
  EXPECT_EQ(Serials(mode.channels[1]), Serials(before.channels[1]));
}

TEST(ChangeLevels, NumbersOutOfRangeAreRefused) {
  constexpr float kEndless = std::numeric_limits<float>::infinity();
  const Mode mode = GivenSingle(kDay);
  const ModeChange wrong[] = {ShiftPercent{101},
                              ShiftPercent{-101},
                              ShiftPercent{NAN},
                              ShiftPercent{kEndless},
                              ScalePercent{-1},
                              ScalePercent{1001},
                              ScalePercent{50, 101},
                              ScalePercent{50, -1},
                              ScalePercent{NAN},
                              ScalePercent{50, NAN},
                              ThinOut{-0.1F},
                              ThinOut{101},
                              ThinOut{NAN},
                              RoundPercents{0},
                              RoundPercents{101},
                              RoundPercents{-5},
                              CopyToChannels{kFirst, -1},
                              CopyToChannels{kFirst, NAN},
                              CopyToChannels{kFirst, kEndless}};
  for (const ModeChange& change : wrong) ExpectRefused(mode, change, {}, ChangeRefusal::NumberOutOfRange);
}

TEST(ChangeLevels, AChannelIsLeftInOrder) {
  EXPECT_EQ(After("20:00 150, 08:00 -5, 08:00 50, 25:00 nan", ShiftPercent{10}),
            "08:00 10, 20:00 100, 23:59 10");
  EXPECT_EQ(After("08:00 0, 08:00 50", ShiftPercent{10}), "refused: 5");
}

}  // namespace
}  // namespace program_test
