#include "program/step_gap.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace TCBase::Program;

std::string Gap(const Channel& channel, std::int32_t index) {
  const std::optional<Step> step = StepInGap(channel, index);
  if (!step) return "none";
  return ToTimeText(*step) + " " + std::to_string(step->value) + (step->jump ? " J" : "");
}

TEST(StepGap, IsHalvedWithTheCurvesValue) {
  const Channel channel{{8, 0, 0.0F}, {12, 0, 80.0F, true}, {20, 0, 10.0F}};
  EXPECT_EQ(Gap(channel, 0), "10:00 40.000000");
  EXPECT_EQ(Gap(channel, 1), "16:00 80.000000 J");
  EXPECT_EQ(Gap(channel, 2), "02:00 5.000000");
}

TEST(StepGap, LeavesTheCurveAsItIs) {
  const Channel channel{{8, 0, 0.0F}, {12, 0, 80.0F, true}, {20, 0, 10.0F}};
  for (std::int32_t index = 0; index < 3; ++index) {
    Channel more = channel;
    InsertStepSorted(more, *StepInGap(channel, index));
    for (std::int32_t second = 0; second < kSecondsPerDay; second += 600) {
      EXPECT_NEAR(ChannelValueAt(more, second), ChannelValueAt(channel, second), 0.001F)
          << index << ' ' << second;
    }
  }
}

TEST(StepGap, NeedsAMinute) {
  EXPECT_EQ(Gap({{8, 0, 0.0F}, {8, 1, 80.0F}}, 0), "none");
  EXPECT_EQ(Gap({{8, 0, 0.0F}, {8, 2, 80.0F}}, 0), "08:01 40.000000");
  EXPECT_EQ(Gap({{8, 0, 0.0F}, {8, 0, 80.0F}}, 0), "none");
}

TEST(StepGap, IsTheWholeDayForOneAndNoonForNone) {
  EXPECT_EQ(Gap({{8, 0, 30.0F}}, 0), "20:00 30.000000");
  EXPECT_EQ(Gap({}, 0), "12:00 0.000000");
  EXPECT_EQ(Gap({}, -1), "12:00 0.000000");
}

TEST(StepGap, StaysCalmWithWhatAFileMayBring) {
  EXPECT_EQ(Gap({{8, 0, 0.0F}, {9, 0, 0.0F}}, 2), "none");
  EXPECT_EQ(Gap({{8, 0, 0.0F}, {9, 0, 0.0F}}, -1), "none");
  EXPECT_EQ(Gap({{8, 0, 0.0F}, {99, 0, 0.0F}}, 0), "none");
  EXPECT_EQ(Gap({{-2000000000, 0, 0.0F}, {9, 0, 0.0F}}, 0), "none");
  EXPECT_EQ(Gap({{8, 0, std::numeric_limits<float>::quiet_NaN()}, {10, 0, 0.0F}}, 0), "09:00 0.000000");
  EXPECT_EQ(Gap({{8, 0, 500.0F}, {10, 0, 500.0F}}, 0), "09:00 100.000000");
}

}  // namespace
