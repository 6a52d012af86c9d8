// The programs that come with Lumarine are ones that a controller takes as they are.

#include "common/files.h"
#include "common/truncate.h"
#include "program/program_file.h"
#include "tests/cli/command_fixture.h"

namespace {

using TCBase::Program::Channel;
using TCBase::Program::ChannelInfo;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;
using testing::IsEmpty;
using testing::Not;

class ExampleTest : public CommandTest, public testing::WithParamInterface<const char*> {
 protected:
  static std::string Path() { return std::string(LUMARINE_SOURCE_DIR "/examples/") + GetParam(); }

  void SetUp() override {
    CommandTest::SetUp();
    ASSERT_TRUE(LoadProgram(PathFromUtf8(Path()), document_)) << Path();
  }

  ModeListView document_;
};

TEST_P(ExampleTest, EveryModeIsNamedAndDescribed) {
  for (const Mode& mode : document_.modes) {
    EXPECT_THAT(mode.name, Not(IsEmpty()));
    EXPECT_LE(mode.name.size(), 15U) << mode.name;
    EXPECT_THAT(mode.description, Not(IsEmpty())) << mode.name;
  }
}

TEST_P(ExampleTest, EveryChannelIsNamedAndColoured) {
  for (const ChannelInfo& info : document_.channelInfos) {
    EXPECT_THAT(info.name, Not(IsEmpty()));
    EXPECT_LE(info.name.size(), 20U) << info.name;
    EXPECT_NE(info.color & 0xFFFFFF, 0U) << "black would not show";
  }
}

TEST_P(ExampleTest, EveryModeIsSmallEnoughForAnyController) {
  for (const Mode& mode : document_.modes)
    EXPECT_LE(CountModeSteps(mode), TCBase::Program::kManyModeSteps) << mode.name;
}

TEST_P(ExampleTest, EveryStepIsOnTheDayInOrderAndInRange) {
  for (const Mode& mode : document_.modes)
    for (const Channel& channel : mode.channels) {
      ASSERT_GE(channel.size(), 2U) << mode.name;
      std::int64_t before = -1;
      for (const auto& step : channel) {
        EXPECT_GT(MinuteOfDay(step), before) << mode.name;
        EXPECT_LT(MinuteOfDay(step), TCBase::Program::kMinutesPerDay) << mode.name;
        EXPECT_GE(step.value, 0.0F);
        EXPECT_LE(step.value, 100.0F);
        before = MinuteOfDay(step);
      }
    }
}

TEST_P(ExampleTest, ItsCurvesStayInRangeAllDay) {
  for (const Mode& mode : document_.modes)
    for (const Channel& channel : mode.channels)
      for (int second = 0; second < TCBase::Program::kSecondsPerDay; second += 60) {
        // As controllers see it; a fade may end a hair below zero.
        const std::int32_t percent = TruncateToInt(ChannelValueAt(channel, second));
        EXPECT_GE(percent, 0);
        EXPECT_LE(percent, 100);
      }
}

TEST_P(ExampleTest, AControllerTakesIt) {
  sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
  EXPECT_EQ(Run({"upload", Path(), "--device", "tc420"}).status, kSuccess);
  EXPECT_EQ(sim_hidapi::MemoryOf(sim_hidapi::Family::TC420).banks.size(), document_.modes.size());
}

INSTANTIATE_TEST_SUITE_P(All, ExampleTest,
                         testing::Values("reef-day.xml", "planted-tank.xml", "seedling-bed.xml"));

}  // namespace
