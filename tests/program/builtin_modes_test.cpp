// What a program holds before the user has done anything.

#include "program/builtin_modes.h"

#include <gtest/gtest.h>

#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

TEST(NewProgramTest, HasTwoModesOfTwelveAndTwoMergedSteps) {
  const ModeListView document = NewProgram();
  ASSERT_EQ(document.modes.size(), 2U);
  EXPECT_EQ(document.modes[0].name, "Normal");
  EXPECT_EQ(document.modes[0].description,
            "Daily program that starts at 8:00, decreases intensity during the afternoon and finishes before "
            "midnight.");
  EXPECT_EQ(CountModeSteps(document.modes[0]), 12);
  EXPECT_EQ(document.modes[1].name, "AlwaysOn");
  EXPECT_EQ(document.modes[1].description,
            "Program that puts all light on maximum power. This is useful for cleaning.");
  EXPECT_EQ(CountModeSteps(document.modes[1]), 2);
}

TEST(NewProgramTest, ShowsTheWholeDayOfTheFirstMode) {
  const ModeListView document = NewProgram();
  EXPECT_EQ(document.viewStart, 0);
  EXPECT_EQ(document.viewEnd, 86400);
  EXPECT_EQ(document.currentMode, 0);
}

TEST(NewProgramTest, HasFiveWhiteChannelsWithoutNames) {
  for (const ChannelInfo& info : NewProgram().channelInfos) {
    EXPECT_EQ(info.name, "");
    EXPECT_EQ(info.description, "");
    EXPECT_EQ(info.color, 0xFFFFFFFFU);
  }
}

TEST(BuiltinModes, HaveTheStepsOfTheTable) {
  const ModeListView document = NewProgram();
  const auto& normal = document.modes[0].channels;
  for (std::size_t c = 0; c < 4; ++c) {
    EXPECT_EQ(Told(normal[c]),
              "08:00 0, 10:00 80, 11:30 80, 12:00 50, 18:00 50, 19:00 90, 20:00 90, 23:30 0");
  }
  EXPECT_EQ(Told(normal[4]), "09:00 0, 09:30 30, 21:30 30, 22:00 0");
  for (const Channel& channel : document.modes[1].channels) EXPECT_EQ(Told(channel), "09:00 100, 22:00 100");
}

TEST(BuiltinModes, NormalFollowsItsCurve) {
  Mode mode;
  BuildNormalMode(mode);
  EXPECT_EQ(ChannelValueAt(mode.channels[0], std::int64_t{11} * 3600), 80.0F);
  // From 90 at 20:00 down to 0 at 23:30, two hours on.
  EXPECT_NEAR(ChannelValueAt(mode.channels[0], std::int64_t{22} * 3600), 90.0F - 90.0F * 2.0F / 3.5F, 1e-4F);
}

TEST(BuiltinModes, HaveFreshSerials) {
  Mode mode;
  BuildAlwaysOnMode(mode);
  const std::uint32_t last = mode.channels[4][1].id;
  EXPECT_EQ(mode.channels[0][0].id, last - 9);
  EXPECT_EQ(NextStepId(), last + 1);
}

struct ColorStep {
  std::uint32_t from;
  std::uint32_t to;
};

class ChannelPalette : public testing::TestWithParam<ColorStep> {};

TEST_P(ChannelPalette, GoesRound) {
  EXPECT_EQ(NextChannelColor(GetParam().from), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(Colors, ChannelPalette,
                         testing::Values(ColorStep{0xFFFFFFFF, 0xFFFFFCC9}, ColorStep{0xFFFFFCC9, 0xFFDCEAFF},
                                         ColorStep{0xFFDCEAFF, 0xFFFFCCCB}, ColorStep{0xFFFFCCCB, 0xFF90EE90},
                                         ColorStep{0xFF90EE90, 0xFFA2BAF5},
                                         // The last, and colours that only a file can bring.
                                         ColorStep{0xFFA2BAF5, 0xFFFFFFFF}, ColorStep{0xFF123456, 0xFFFFFFFF},
                                         ColorStep{0, 0xFFFFFFFF}, ColorStep{0x00FFFCC9, 0xFFFFFFFF}));

TEST(SuggestedName, CountsTheNewMode) {
  ModeListView document = NewProgram();
  EXPECT_EQ(SuggestedModeName(document), u"PRG03");
  document.modes.resize(99);
  EXPECT_EQ(SuggestedModeName(document), u"PRG100");
}

}  // namespace
}  // namespace program_test
