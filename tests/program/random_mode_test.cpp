// Modes by chance.

#include "program/random_mode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

TEST(RandomSteps, AreInRangeAndWholePercents) {
  std::srand(1);
  Channel channel;
  for (int i = 0; i < 300; ++i) AddRandomStep(channel);
  ASSERT_EQ(channel.size(), 300U);
  for (const Step& step : channel) {
    Step normal = step;
    Normalize(normal);
    EXPECT_EQ(step, normal);
    EXPECT_LT(step.value, 100.0F);
    EXPECT_EQ(step.value, static_cast<float>(static_cast<int>(step.value)));
  }
}

TEST(RandomSteps, JumpNowAndThen) {
  std::srand(1);
  Channel channel;
  for (int i = 0; i < 400; ++i) AddRandomStep(channel);
  const auto jumps =
      std::count_if(channel.begin(), channel.end(), [](const Step& step) { return step.jump; });
  EXPECT_GT(jumps, 50);
  EXPECT_LT(jumps, 150);
}

TEST(RandomSteps, FillADayAndThenStop) {
  Channel channel;
  for (int minute = 0; minute < kMinutesPerDay - 1; ++minute) channel.push_back({minute / 60, minute % 60});
  AddRandomStep(channel);
  ASSERT_EQ(channel.size(), 1440U);
  EXPECT_EQ(MinuteOfDay(channel.back()), 1439);
  AddRandomStep(channel);
  EXPECT_EQ(channel.size(), 1440U);
}

TEST(RandomModes, HaveTwoStepsInEachChannelAndUpToFourteenMore) {
  for (unsigned seed = 0; seed < 50; ++seed) {
    std::srand(seed);
    Mode mode;
    FillRandomMode(mode);
    std::size_t steps = 0;
    for (const Channel& channel : mode.channels) {
      EXPECT_GE(channel.size(), 2U);
      steps += channel.size();
      Channel sorted = channel;
      SortSteps(sorted);
      RemoveDuplicateTimes(sorted);
      EXPECT_EQ(channel, sorted);
    }
    EXPECT_LE(steps, 24U);
    EXPECT_LE(CountModeSteps(mode), 24);
  }
}

}  // namespace
}  // namespace program_test
