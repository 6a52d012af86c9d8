// Channels: the curve, and what keeps the steps in order.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "program/program.h"
#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr std::int64_t Clock(int hour, int minute, int second = 0) {
  return hour * 3600 + minute * 60 + second;
}

TEST(ChannelValue, OfTwoEqualStepsIsTheSameAtEverySecondOvernightIncluded) {
  const Channel channel = GivenChannel("09:00 100, 22:00 100");
  for (int second = 0; second < kSecondsPerDay; ++second)
    ASSERT_EQ(ChannelValueAt(channel, second), 100.0F) << second;
}

TEST(ChannelValue, OfASingleStepIsItsValueEverywhere) {
  const Channel channel = GivenChannel("09:00 37.5 J");
  for (const int second : {-1, 0, 32399, 32400, 32401, 86399, 86400}) {
    EXPECT_EQ(ChannelValueAt(channel, second), 37.5F) << second;
  }
}

TEST(ChannelValue, OfNoStepsIsNothing) {
  EXPECT_EQ(ChannelValueAt({}, 3600), 0.0F);
}

TEST(ChannelValue, AtAStepsTimeIsThatStepsWithOrWithoutAJumpBeforeIt) {
  const Channel channel = GivenChannel("08:00 10, 10:00 80 J, 12:00 20 J, 14:00 50");
  EXPECT_FLOAT_EQ(ChannelValueAt(channel, Clock(8, 0)), 10.0F);
  EXPECT_FLOAT_EQ(ChannelValueAt(channel, Clock(10, 0)), 80.0F);
  EXPECT_FLOAT_EQ(ChannelValueAt(channel, Clock(12, 0)), 20.0F);
  EXPECT_FLOAT_EQ(ChannelValueAt(channel, Clock(14, 0)), 50.0F);
}

TEST(ChannelValue, AtAStepsTimeIsReachedByTheSlopeAndMayFallShortByARounding) {
  // Nothing treats the step's own time apart: 49 / 300 * 300 is a bit below 49, and truncates to 48 wherever
  // it leaves the editor. One in fifty pairs of whole percents is like that.
  EXPECT_EQ(ChannelValueAt(GivenChannel("08:00 0, 08:05 49"), Clock(8, 5)), 48.9999962F);
}

TEST(ChannelValue, HoldsAJumpUpToTheVerySecondOfTheNextStep) {
  const Channel channel = GivenChannel("10:00 80 J, 12:00 0");
  EXPECT_EQ(ChannelValueAt(channel, 43199), 80.0F);
  EXPECT_EQ(ChannelValueAt(channel, 43200), 0.0F);
}

TEST(ChannelValue, OffTheDayComesBackToIt) {
  const Channel channel = GivenChannel("00:00 10, 12:00 90");
  EXPECT_EQ(ChannelValueAt(channel, 86400), ChannelValueAt(channel, 0));
  EXPECT_EQ(ChannelValueAt(channel, 86400 + 3600), ChannelValueAt(channel, 3600));
  // Not a second before midnight.
  EXPECT_EQ(ChannelValueAt(channel, -5), ChannelValueAt(channel, 0));
  EXPECT_NE(ChannelValueAt(channel, -5), ChannelValueAt(channel, 86395));
  EXPECT_EQ(ChannelValueAt(channel, std::numeric_limits<std::int32_t>::min()), 10.0F);
}

TEST(ChannelValue, FallsThroughTheNightFromTheLastStepToTheFirst) {
  const Channel channel = GivenChannel("08:00 0, 22:00 50");
  EXPECT_EQ(ChannelValueAt(channel, Clock(3, 0)), 25.0F);
  EXPECT_EQ(ChannelValueAt(channel, Clock(23, 0)), 45.0F);
}

TEST(ChannelValue, IsHeldThroughTheNightByAJumpOfTheLastStep) {
  const Channel channel = GivenChannel("08:00 0, 22:00 50 J");
  EXPECT_EQ(ChannelValueAt(channel, Clock(23, 0)), 50.0F);
  EXPECT_EQ(ChannelValueAt(channel, Clock(7, 59, 59)), 50.0F);
  EXPECT_EQ(ChannelValueAt(channel, Clock(8, 0)), 0.0F);
}

TEST(ChannelValue, IsComputedInTheOrderThatTruncationShows) {
  // (100 - 0) / 10800 * 7200: by way of the slope, 66.66666412 and not 66.66667.
  const Channel channel = GivenChannel("00:00 0, 03:00 100");
  const volatile float slope = 100.0F / 10800.0F;
  EXPECT_EQ(ChannelValueAt(channel, 7200), slope * 7200.0F);
}

TEST(ChannelValue, ReadsAChannelOutOfOrderInTheOrderOfItsSteps) {
  // The first step at or after the second closes the stretch; the one before it in the array opens it.
  const Channel channel = GivenChannel("10:00 10, 14:00 50, 08:00 80");
  EXPECT_EQ(ChannelValueAt(channel, Clock(12, 0)), 30.0F);
  EXPECT_EQ(ChannelValueAt(channel, Clock(9, 0)), 45.0F);  // from the last step, 80 at 08:00
}

TEST(ChannelValue, OfStepsOnOneMinuteAloneIsNoNumber) {
  const Channel channel = GivenChannel("08:00 10, 08:00 50");
  EXPECT_TRUE(std::isnan(ChannelValueAt(channel, Clock(8, 0))));
  EXPECT_TRUE(std::isinf(ChannelValueAt(channel, Clock(9, 0))));
}

TEST(ChannelValue, TakesHoursOfAnyNumber) {
  Channel channel = GivenChannel("08:00 10, 30:00 50");
  EXPECT_EQ(ChannelValueAt(channel, Clock(19, 0)), 30.0F);
  channel[1].hour = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(ChannelValueAt(channel, Clock(8, 0)), 10.0F);
  EXPECT_EQ(ChannelValueAt(channel, Clock(9, 0)), 10.0F);
}

TEST(ChannelPowerTest, IsTheHighestValueAndNothingForNoSteps) {
  EXPECT_EQ(ChannelPower(GivenChannel("08:00 10, 09:00 55.5, 10:00 3")), 55.5F);
  EXPECT_EQ(ChannelPower({}), 0.0F);
}

TEST(Scaling, MakesTheHighestValueThePowerAskedFor) {
  Channel channel = GivenChannel("08:00 0, 10:00 40, 12:00 80");
  ScaleChannel(channel, 50.0F);
  EXPECT_EQ(Told(channel), "08:00 0, 10:00 25, 12:00 50");
}

TEST(Scaling, NormalizesEveryStep) {
  Channel channel = GivenChannel("24:10 50, 10:00 25");
  ScaleChannel(channel, 100.0F);
  EXPECT_EQ(Told(channel), "23:59 100, 10:00 50");
}

TEST(Scaling, LeavesADarkChannelAndARestingSliderAlone) {
  Channel dark = GivenChannel("08:00 0, 30:00 0");
  ScaleChannel(dark, 50.0F);
  EXPECT_EQ(Told(dark), "08:00 0, 30:00 0");

  Channel lit = GivenChannel("08:00 80, 10:00 40");
  for (const float power : {0.0F, 0.09F, -1.0F, std::numeric_limits<float>::quiet_NaN()}) {
    ScaleChannel(lit, power);
    EXPECT_EQ(Told(lit), "08:00 80, 10:00 40") << power;
  }
  ScaleChannel(lit, 0.1F);
  EXPECT_NEAR(lit[0].value, 0.1F, 1e-6F);
}

TEST(Inserting, PutsAStepInItsPlaceWithAFreshSerial) {
  Channel channel = GivenChannel("08:00 0, 12:00 50");
  const Step step{10, 0, 20, false, 7};
  InsertStepSorted(channel, step);
  EXPECT_EQ(Told(channel), "08:00 0, 10:00 20, 12:00 50");
  EXPECT_NE(Serial(channel, 1), 7U);
  EXPECT_EQ(Serial(channel, 1) + 1, NextStepId());
}

TEST(Inserting, KeepsAStepOfThatMinuteBehindTheNewOne) {
  Channel channel = GivenChannel("08:00 0, 12:00 50");
  InsertStepSorted(channel, {8, 0, 99});
  InsertStepSorted(channel, {23, 0, 1});
  EXPECT_EQ(Told(channel), "08:00 99, 08:00 0, 12:00 50, 23:00 1");
  RemoveDuplicateTimes(channel);
  EXPECT_EQ(Told(channel), "08:00 99, 12:00 50, 23:00 1");
}

TEST(Inserting, IntoAChannelOutOfOrderComesBeforeTheFirstStepThatIsNotEarlier) {
  Channel channel = GivenChannel("12:00 1, 08:00 2, 13:00 3, 09:00 4");
  InsertStepSorted(channel, {12, 30, 5});
  EXPECT_EQ(Told(channel), "12:00 1, 08:00 2, 12:30 5, 13:00 3, 09:00 4");
}

TEST(Sorting, IsByTheMinuteOfTheDayAndKeepsTheOrderWithinOne) {
  Channel channel = GivenChannel("12:00 1, 01:00 2, 12:00 3, 00:60 4, 24:00 5, 00:-5 6");
  SortSteps(channel);
  EXPECT_EQ(Told(channel), "00:-5 6, 01:00 2, 00:60 4, 12:00 1, 12:00 3, 24:00 5");
}

TEST(RemovingDuplicates, KeepsTheFirstOfEachRun) {
  Channel channel = GivenChannel("08:00 1, 08:00 2, 09:00 3, 10:00 4, 09:60 5, 10:00 6");
  RemoveDuplicateTimes(channel);
  EXPECT_EQ(Told(channel), "08:00 1, 09:00 3, 10:00 4");
}

TEST(Renumbering, GivesSerialsInOrder) {
  Channel channel = GivenChannel("08:00 0, 09:00 0, 10:00 0");
  const std::uint32_t next = NextStepId() + 1;
  RenumberSteps(channel);
  EXPECT_THAT(Serials(channel), ElementsAre(next, next + 1, next + 2));
}

TEST(Renumbering, OfAModeReachesAllChannels) {
  Mode mode = GivenMode({"08:00 0", "08:00 0", "08:00 0", "08:00 0", "08:00 0, 09:00 0"});
  RenumberSteps(mode);
  for (const Channel& channel : mode.channels) EXPECT_THAT(Serials(channel), Each(testing::Ne(0U)));
}

TEST(ForEachStepTest, MayChangeEachStepInOrder) {
  Channel channel = GivenChannel("08:00 0, 09:00 0");
  float next = 1;
  ForEachStep(channel, [&next](Step& step) { step.value = next++; });
  EXPECT_EQ(Told(channel), "08:00 1, 09:00 2");
}

}  // namespace
}  // namespace program_test
