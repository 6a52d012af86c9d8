// The merged step list.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "program/program.h"
#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

std::vector<ModeStep> Rows(const Mode& mode) {
  std::vector<ModeStep> rows(3);  // what was in there goes
  CollectModeSteps(mode, rows);
  EXPECT_EQ(static_cast<std::size_t>(CountModeSteps(mode)), rows.size());
  return rows;
}

Mode FiveChannelsOnTenMinutes() {
  Mode mode;
  for (Channel& channel : mode.channels) {
    for (int i = 0; i < 10; ++i) channel.push_back({8 + i, 0, static_cast<float>(i * 10), true});
  }
  return mode;
}

TEST(MergedSteps, OfFiveChannelsOnTheSameTenMinutesAreTen) {
  const std::vector<ModeStep> rows = Rows(FiveChannelsOnTenMinutes());
  ASSERT_EQ(rows.size(), 10U);
  EXPECT_EQ(rows[3], (ModeStep{11, 0, {30, 30, 30, 30, 30}, {true, true, true, true, true}}));
}

TEST(MergedSteps, GetOneMoreByAStepOnOneChannelAndTheOthersAreInterpolated) {
  Mode mode = FiveChannelsOnTenMinutes();
  for (Step& step : mode.channels[1]) step.jump = false;
  mode.channels[4].insert(mode.channels[4].begin() + 1, Step{8, 30, 77, true});
  const std::vector<ModeStep> rows = Rows(mode);
  ASSERT_EQ(rows.size(), 11U);
  EXPECT_EQ(rows[1], (ModeStep{8, 30, {0, 5, 0, 0, 77}, {false, false, false, false, true}}));
}

TEST(MergedSteps, HaveWholePercents) {
  const std::vector<ModeStep> rows = Rows(GivenMode({"08:00 55.9, 09:00 55.9"}));
  EXPECT_EQ(rows[0].values[0], 55);
}

TEST(MergedSteps, ComeInOrderWhateverTheOrderOfTheSteps) {
  const std::vector<ModeStep> rows =
      Rows(GivenMode({"12:00 1, 08:00 2, 23:59 3, 00:00 4", "07:59 5, 12:00 6"}));
  std::vector<int> minutes(rows.size());
  std::transform(rows.begin(), rows.end(), minutes.begin(),
                 [](const ModeStep& row) { return row.hour * 60 + row.minute; });
  EXPECT_THAT(minutes, testing::ElementsAre(0, 479, 480, 720, 1439));
}

TEST(MergedSteps, TakeTheJumpOfTheFirstStepOnAMinute) {
  const std::vector<ModeStep> rows = Rows(GivenMode({"08:00 1, 08:00 2 J, 09:00 3 J, 09:00 4"}));
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_FALSE(rows[0].jumps[0]);
  EXPECT_TRUE(rows[1].jumps[0]);
}

TEST(MergedSteps, DoNotSeeAStepOutOfRange) {
  // 00:75 adds up to a time of day, and yet the minute is out of range.
  const std::vector<ModeStep> rows = Rows(GivenMode({"08:00 0, 30:00 100, 00:75 9, -1:65 9, 24:00 9"}));
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].hour, 8);
}

TEST(MergedSteps, SeeTheCurveThatAStepOutOfRangeBends) {
  const std::vector<ModeStep> rows = Rows(GivenMode({"08:00 0, 30:00 22", "09:00 0"}));
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[1].values[0], 1);
}

TEST(StepAt, HasTheWholePercentsOfASecondAndItsTime) {
  const Mode mode = GivenMode({"10:00 0, 12:00 100", "10:00 40.9", "", "10:00 80 J, 12:00 0"});
  const ModeStep step = StepAt(mode, 11 * 3600 + 120);
  EXPECT_EQ(step, (ModeStep{11, 2, {51, 40, 0, 80, 0}, {}}));
}

TEST(MergedSteps, OfAnEmptyModeAreNone) {
  EXPECT_TRUE(Rows(Mode()).empty());
}

TEST(MergedSteps, OfAStepOnEveryMinuteAreTheDay) {
  Mode mode;
  for (int minute = 0; minute < kMinutesPerDay; ++minute)
    mode.channels[2].push_back({minute / 60, minute % 60, 1});
  EXPECT_EQ(Rows(mode).size(), 1440U);
}

}  // namespace
}  // namespace program_test
