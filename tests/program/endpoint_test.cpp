// Steps at the ends of the day.

#include "program/endpoint.h"

#include <gtest/gtest.h>

#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

TEST(AddingAnEndpoint, PutsAFadingStepOnEachCurve) {
  Mode mode = GivenMode({"06:00 0, 18:00 50 J", "06:00 10, 18:00 50", "", "12:00 5.5"});
  EXPECT_TRUE(AddStepToAllChannels(mode, kDayStart));
  EXPECT_EQ(Told(mode.channels[0]), "00:00 50, 06:00 0, 18:00 50 J");
  EXPECT_EQ(Told(mode.channels[1]), "00:00 30, 06:00 10, 18:00 50");
  EXPECT_EQ(Told(mode.channels[2]), "00:00 0");
  EXPECT_EQ(Told(mode.channels[3]), "00:00 5, 12:00 5.5");
}

TEST(AddingAnEndpoint, AtTheEndComesLast) {
  Mode mode = GivenMode({"06:00 0 J, 18:00 50"});
  EXPECT_TRUE(AddStepToAllChannels(mode, kDayEnd));
  EXPECT_EQ(Told(mode.channels[0]), "06:00 0 J, 18:00 50, 23:59 25");
}

TEST(AddingAnEndpoint, LeavesAStepThatIsThere) {
  Mode mode = GivenMode({"00:00 12.5 J, 18:00 50", "06:00 10, 18:00 50"});
  const std::uint32_t serial = mode.channels[0][0].id = NextStepId();
  EXPECT_TRUE(AddStepToAllChannels(mode, kDayStart));
  EXPECT_EQ(Told(mode.channels[0]), "00:00 12.5 J, 18:00 50");
  EXPECT_EQ(Serial(mode.channels[0], 0), serial);
  EXPECT_EQ(Told(mode.channels[1]), "00:00 30, 06:00 10, 18:00 50");
}

TEST(AddingAnEndpoint, IsRefusedAtTheLimitAndTakesTheLastPlace) {
  Mode full = GivenModeOfMergedSteps(48, 29);
  const auto before = full.channels;
  EXPECT_FALSE(AddStepToAllChannels(full, kDayEnd));
  EXPECT_EQ(full.channels, before);

  Mode almost = GivenModeOfMergedSteps(47, 29);
  EXPECT_TRUE(AddStepToAllChannels(almost, kDayEnd));
  EXPECT_EQ(CountModeSteps(almost), 48);
}

TEST(AddingAnEndpoint, OffTheDayComesBackToIt) {
  Mode mode = GivenMode({"06:00 0, 18:00 50"});
  EXPECT_TRUE(AddStepToAllChannels(mode, -60));
  EXPECT_TRUE(AddStepToAllChannels(mode, 86400 + 3600));
  EXPECT_EQ(Told(mode.channels[0]).substr(0, 18), "00:00 25, 01:00 20");
}

}  // namespace
}  // namespace program_test
