// The table of half hours that a TC421 knows.

#include "program/resample.h"

#include <gtest/gtest.h>

#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

TEST(Resampling, GivesEveryChannelFadingStepsAtTheHalfHours) {
  Mode source = GivenMode({"00:00 0, 12:00 100", "08:00 55.9 J, 20:00 55.9 J"});
  source.name = "Reef";
  source.description = "By day";
  Mode result = GivenMode({"01:01 1", "01:01 1", "01:01 1", "01:01 1", "01:01 1"});
  ResampleHalfHour(source, result);

  EXPECT_EQ(result.name, "Reef");
  EXPECT_EQ(result.description, "By day");
  for (const Channel& channel : result.channels) {
    ASSERT_EQ(channel.size(), 48U);
    for (std::size_t i = 0; i < channel.size(); ++i) {
      EXPECT_EQ(MinuteOfDay(channel[i]), static_cast<int>(i) * 30);
      EXPECT_FALSE(channel[i].jump);
    }
  }
  EXPECT_EQ(CountModeSteps(result), 48);
}

TEST(Resampling, TakesWholePercents) {
  Mode result;
  ResampleHalfHour(GivenMode({"00:00 0, 12:00 100", "08:00 55.9 J, 20:00 55.9 J"}), result);
  EXPECT_EQ(result.channels[0][1].value, 4.0F);  // of 4.17
  EXPECT_EQ(result.channels[0][24].value, 100.0F);
  EXPECT_EQ(result.channels[1][5].value, 55.0F);
  EXPECT_EQ(result.channels[2][5].value, 0.0F);
}

TEST(Resampling, LeavesARampOfHalfAnHourOfAJump) {
  Mode result;
  ResampleHalfHour(GivenMode({"08:00 80 J, 12:10 0 J"}), result);
  EXPECT_EQ(ChannelValueAt(result.channels[0], std::int64_t{12} * 3600), 80.0F);
  EXPECT_EQ(ChannelValueAt(result.channels[0], 12 * 3600 + 900), 40.0F);
  EXPECT_EQ(ChannelValueAt(result.channels[0], 12 * 3600 + 1800), 0.0F);
}

TEST(Resampling, MayBeInPlaceAndGivesFreshSerials) {
  Mode mode = GivenMode({"00:00 0, 12:00 100"});
  const std::uint32_t before = NextStepId();
  ResampleHalfHour(mode, mode);
  EXPECT_EQ(mode.channels[0][24].value, 100.0F);
  EXPECT_EQ(Serial(mode.channels[0], 0), before + 1);
  EXPECT_EQ(Serial(mode.channels[4], 47), before + 5 * 48);
}

}  // namespace
}  // namespace program_test
