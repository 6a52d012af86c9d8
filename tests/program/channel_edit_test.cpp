// What the user does to the selected channel and step.

#include "program/channel_edit.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

class EditingAChannel : public testing::Test {
 protected:
  StepClipboard stepClipboard;

  StepSelection Select(std::int32_t channel, std::int32_t step = -1) { return {document, channel, step}; }
  std::string StepsOf(std::size_t channel) const { return Told(document.modes[1].channels[channel]); }

  void GivenChannels(std::initializer_list<std::string_view> channels) {
    document.modes.emplace_back().name = "Not the current one";
    document.modes.push_back(GivenMode(channels));
    document.currentMode = 1;
  }

  ModeListView document;
};

TEST_F(EditingAChannel, DeletingTakesAllStepsOfTheMinute) {
  GivenChannels({"", "08:00 1, 09:00 2, 09:00 3, 10:00 4"});
  StepSelection selection = Select(1, 2);
  DeleteSelectedStep(selection);
  EXPECT_EQ(StepsOf(1), "08:00 1, 10:00 4");
  EXPECT_EQ(selection.step, 1);
}

TEST_F(EditingAChannel, DeletingTheLastStepSelectsTheOneBefore) {
  GivenChannels({"08:00 1, 09:00 2, 10:00 3"});
  StepSelection selection = Select(0, 2);
  DeleteSelectedStep(selection);
  EXPECT_EQ(StepsOf(0), "08:00 1, 09:00 2");
  EXPECT_EQ(selection.step, 1);
}

TEST_F(EditingAChannel, DeletingLeavesTwoSteps) {
  GivenChannels({"08:00 1, 09:00 2"});
  StepSelection selection = Select(0, 0);
  DeleteSelectedStep(selection);
  EXPECT_EQ(StepsOf(0), "08:00 1, 09:00 2");
}

TEST_F(EditingAChannel, DeletingThreeStepsOfOneMinuteSelectsNone) {
  GivenChannels({"08:00 1, 08:00 2, 08:00 3"});
  StepSelection selection = Select(0, 1);
  DeleteSelectedStep(selection);
  EXPECT_EQ(StepsOf(0), "");
  EXPECT_EQ(selection.step, -1);
}

TEST_F(EditingAChannel, AStaleStepIsNone) {
  GivenChannels({"08:00 1, 09:00 2, 10:00 3"});
  for (const std::int32_t step : {-1, 3, std::numeric_limits<std::int32_t>::min()}) {
    StepSelection selection = Select(0, step);
    DeleteSelectedStep(selection);
    NudgeSelectedStep(selection, 1, 1, 1);
    EXPECT_EQ(StepsOf(0), "08:00 1, 09:00 2, 10:00 3");
    EXPECT_EQ(selection.step, step);
  }
}

struct Nudge {
  const char* name;
  const char* given;
  std::int32_t hours;
  std::int32_t minutes;
  float value;
  const char* expected;
};

class Nudging : public EditingAChannel, public testing::WithParamInterface<Nudge> {};

TEST_P(Nudging, MovesTheSelectedStep) {
  GivenChannels({GetParam().given});
  NudgeSelectedStep(Select(0, 0), GetParam().hours, GetParam().minutes, GetParam().value);
  EXPECT_EQ(StepsOf(0), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, Nudging,
    testing::Values(Nudge{"OnePercentUpAtFullStaysFull", "10:00 100 J", 0, 0, 1, "10:00 100 J"},
                    Nudge{"OnePercentDownAtNothingStaysNothing", "10:00 0.5", 0, 0, -1, "10:00 0"},
                    Nudge{"OneMinuteBack", "10:00 50", 0, -1, 0, "09:59 50"},
                    Nudge{"OneMinuteOn", "10:59 50", 0, 1, 0, "11:00 50"},
                    Nudge{"OneHourOn", "10:30 50", 1, 0, 0, "11:30 50"},
                    // The last minute goes on to the first, the first does not go back to the last: required,
                    // odd as it is.
                    Nudge{"FromTheLastMinuteOnToMidnight", "23:59 50", 0, 1, 0, "00:00 50"},
                    Nudge{"FromMidnightBackNowhere", "00:00 50", 0, -1, 0, "00:00 50"},
                    Nudge{"AnHourBeforeMidnightIsMidnight", "00:30 50", -1, 0, 0, "00:00 50"},
                    Nudge{"AMinuteOfAnHourOutOfRangeBringsItBack", "30:00 50", 0, 1, 0, "06:01 50"}),
    [](const auto& test) { return test.param.name; });

TEST_F(EditingAChannel, NudgingTakesNumbersOfAnySize) {
  constexpr std::int32_t kFar = std::numeric_limits<std::int32_t>::max();
  GivenChannels({"08:00 1, 09:00 2"});
  Channel& channel = document.modes[1].channels[0];
  for (const std::int32_t hour : {kFar, -kFar - 1}) {
    channel[0].hour = hour;
    channel[0].minute = hour;
    NudgeSelectedStep(Select(0, 0), hour, hour, 1);
    EXPECT_GE(MinuteOfDay(channel[0]), 0);
    EXPECT_LT(MinuteOfDay(channel[0]), kMinutesPerDay);
  }
}

TEST_F(EditingAChannel, PastingReplacesTheStepsByThoseCopiedLast) {
  GivenChannels({"08:00 1 J, 09:00 2", "10:00 3, 11:00 4", "12:00 5, 13:00 6"});
  CopyChannelSteps(Select(1), stepClipboard);
  CopyChannelSteps(Select(0), stepClipboard);
  EXPECT_TRUE(PasteChannelSteps(Select(2), stepClipboard));
  EXPECT_EQ(StepsOf(2), "08:00 1 J, 09:00 2");
  // As often as wanted.
  EXPECT_TRUE(PasteChannelSteps(Select(3), stepClipboard));
  EXPECT_EQ(StepsOf(3), "08:00 1 J, 09:00 2");
}

TEST_F(EditingAChannel, PastedStepsHaveSerialsOfTheirOwn) {
  GivenChannels({"08:00 1, 09:00 2"});
  RenumberSteps(document.modes[1]);
  CopyChannelSteps(Select(0), stepClipboard);
  PasteChannelSteps(Select(1), stepClipboard);
  EXPECT_NE(Serials(document.modes[1].channels[1]), Serials(document.modes[1].channels[0]));
}

TEST_F(EditingAChannel, PastingWithNothingCopiedDoesNothing) {
  GivenChannels({"08:00 1, 09:00 2"});
  EXPECT_FALSE(PasteChannelSteps(Select(0), stepClipboard));
  EXPECT_EQ(StepsOf(0), "08:00 1, 09:00 2");
}

TEST_F(EditingAChannel, AnEmptyChannelCanBeCopied) {
  GivenChannels({"08:00 1, 09:00 2"});
  CopyChannelSteps(Select(4), stepClipboard);
  EXPECT_TRUE(PasteChannelSteps(Select(0), stepClipboard));
  EXPECT_EQ(StepsOf(0), "");
}

TEST_F(EditingAChannel, ClearingLeavesTwoDarkStepsAndSelectsNothing) {
  GivenChannels({"", "08:00 1 J, 09:00 2, 10:00 3"});
  StepSelection selection = Select(1, 2);
  const std::uint32_t before = NextStepId();
  ClearChannel(selection);
  EXPECT_EQ(StepsOf(1), "08:00 0, 22:00 0");
  EXPECT_EQ(Serial(document.modes[1].channels[1], 0), before + 1);
  EXPECT_EQ(selection.channel, -1);
  EXPECT_EQ(selection.step, -1);
}

TEST_F(EditingAChannel, PastingRightAfterClearingDoesNothing) {
  GivenChannels({"08:00 1, 09:00 2"});
  StepSelection selection = Select(0);
  CopyChannelSteps(selection, stepClipboard);
  ClearChannel(selection);
  EXPECT_FALSE(PasteChannelSteps(selection, stepClipboard));
  EXPECT_EQ(StepsOf(0), "08:00 0, 22:00 0");
}

TEST_F(EditingAChannel, MovingTakesTheSelectionAlongAndLeavesNames) {
  GivenChannels({"08:00 1", "08:00 2", "08:00 3"});
  document.modes[0].channels[1] = GivenChannel("08:00 9");
  document.channelInfos[1].name = "Red";
  StepSelection selection = Select(1, 0);
  MoveChannelUp(selection);
  EXPECT_EQ(StepsOf(0), "08:00 2");
  EXPECT_EQ(StepsOf(1), "08:00 1");
  EXPECT_EQ(selection.channel, 0);
  EXPECT_EQ(selection.step, 0);
  MoveChannelDown(selection);
  MoveChannelDown(selection);
  EXPECT_EQ(StepsOf(1), "08:00 3");
  EXPECT_EQ(StepsOf(2), "08:00 2");
  EXPECT_EQ(selection.channel, 2);
  EXPECT_EQ(document.channelInfos[1].name, "Red");
  EXPECT_EQ(Told(document.modes[0].channels[1]), "08:00 9");
}

TEST_F(EditingAChannel, MovingStopsAtTheFirstAndTheLast) {
  GivenChannels({"08:00 1", "08:00 2", "08:00 3", "08:00 4", "08:00 5"});
  StepSelection first = Select(0);
  MoveChannelUp(first);
  EXPECT_EQ(first.channel, 0);
  EXPECT_EQ(StepsOf(0), "08:00 1");
  StepSelection last = Select(4);
  MoveChannelDown(last);
  EXPECT_EQ(last.channel, 4);
  EXPECT_EQ(StepsOf(4), "08:00 5");
}

TEST_F(EditingAChannel, NothingHappensWithoutASelection) {
  GivenChannels({"08:00 1, 09:00 2, 10:00 3", "08:00 4, 09:00 5, 10:00 6"});
  const ModeListView before = document;
  CopyChannelSteps(Select(0), stepClipboard);
  for (const std::int32_t channel : {-1, 5, -2147483647 - 1, 2147483647}) {
    StepSelection selection = Select(channel, 0);
    DeleteSelectedStep(selection);
    NudgeSelectedStep(selection, 1, 1, 1);
    CopyChannelSteps(selection, stepClipboard);
    EXPECT_FALSE(PasteChannelSteps(selection, stepClipboard));
    ClearChannel(selection);
    EXPECT_EQ(selection.step, 0);
    // Not even where the neighbour exists.
    MoveChannelUp(selection);
    MoveChannelDown(selection);
    EXPECT_EQ(selection.channel, channel);
    EXPECT_EQ(document, before);
  }
  EXPECT_EQ(stepClipboard.steps.size(), 3U);
}

}  // namespace
}  // namespace program_test
