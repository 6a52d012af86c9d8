// Whole commands on the current mode, log lines included.

#include "program/mode_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "program/builtin_modes.h"
#include "program/endpoint.h"
#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

using testing::ElementsAre;

// Two modes, the second one current.
ModeListView GivenCurrentMode(Mode mode) {
  ModeListView document = NewProgram();
  document.modes[1] = std::move(mode);
  document.modes[1].name = "Reef";
  document.currentMode = 1;
  return document;
}

TEST(OptimizingForTC421, LeavesTheHalfHoursThatShapeTheCurve) {
  StatusLines lines;
  ModeListView document = GivenCurrentMode(GivenMode({"08:10 0, 10:00 80 J, 12:00 0"}));
  const Mode other = document.modes[0];
  OptimizeForTC421(document);
  EXPECT_EQ(document.modes[1].name, "Reef");
  for (const Step& step : document.modes[1].channels[0]) EXPECT_EQ(step.minute % 30, 0);
  EXPECT_EQ(ChannelValueAt(document.modes[1].channels[0], 11 * 3600 + 1800), 80.0F);
  EXPECT_LT(CountModeSteps(document.modes[1]), 48);
  EXPECT_EQ(Told(document.modes[1].channels[4]), "23:00 0, 23:30 0");
  EXPECT_EQ(document.modes[0].channels, other.channels);
  EXPECT_THAT(lines.Take(), ElementsAre("All steps were aligned to 30 minute intervals. This is useful for "
                                        "configuring TC421 device."));
}

TEST(AligningTheCurrentMode, TellsTheIntervalAndTheNewCount) {
  StatusLines lines;
  ModeListView document = GivenCurrentMode(GivenMode({"08:10 1, 08:20 2, 08:50 3", "08:01 1, 09:59 2"}));
  AlignCurrentMode(document, 30);
  EXPECT_EQ(Told(document.modes[1].channels[0]), "08:00 1, 08:30 2, 09:00 3");
  EXPECT_THAT(lines.Take(),
              ElementsAre("All steps were aligned to 30 minute intervals. Current number of steps is "
                          "4."));
}

TEST(AddingEndpoints, TellsTheTimeAndTheNewCount) {
  StatusLines lines;
  ModeListView document = GivenCurrentMode(GivenMode({"08:10 1, 08:20 2"}));
  EXPECT_TRUE(AddEndpointSteps(document, kDayStart));
  EXPECT_TRUE(AddEndpointSteps(document, kDayEnd));
  EXPECT_THAT(lines.Take(),
              ElementsAre("Added step at 00:00 to all channels. Current number of steps is 3.",
                          "Added step at 23:59 to all channels. Current number of steps is 4."));
}

TEST(AddingEndpoints, TellsWhyAFullModeRefusesIt) {
  StatusLines lines;
  ModeListView document = GivenCurrentMode(GivenModeOfMergedSteps(48, 29));
  const ModeListView before = document;
  EXPECT_FALSE(AddEndpointSteps(document, kDayEnd));
  EXPECT_EQ(document, before);
  EXPECT_THAT(lines.Take(),
              ElementsAre("Unable to add new step. Maximum number of 48 steps for the current mode reached"));
}

TEST(OptimizingAllModes, ThinsOutEachThatIsOverTheLimit) {
  StatusLines lines;
  ModeListView document = GivenCurrentMode(GivenModeOfMergedSteps(60, 20));
  document.modes.push_back(GivenModeOfMergedSteps(50, 20));
  document.modes.back().name = "Shallows";
  EXPECT_TRUE(OptimizeAllModes(document));
  for (const Mode& mode : document.modes) EXPECT_LE(CountModeSteps(mode), 48);
  EXPECT_THAT(lines.Take(), ElementsAre("Mode Reef has more than 48 steps, optimizing...",
                                        "Mode Shallows has more than 48 steps, optimizing..."));
}

TEST(AppendingARandomMode, NamesItAfterTheCountAndMakesItCurrent) {
  ModeListView document = NewProgram();
  AppendRandomMode(document);
  ASSERT_EQ(document.modes.size(), 3U);
  EXPECT_EQ(document.modes[2].name, "Rand_2");
  EXPECT_EQ(document.currentMode, 2);
  EXPECT_GE(document.modes[2].channels[0].size(), 2U);
}

}  // namespace
}  // namespace program_test
