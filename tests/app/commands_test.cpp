// The table of commands: what each does to the program, the history, the log and the chart.

#include "app/commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "program/builtin_modes.h"
#include "program/channel_edit.h"
#include "program/optimize.h"
#include "tests/app/app_test.h"
#include "tests/program/program_fixture.h"

namespace {

using app::Control;
using program_test::GivenChannel;
using program_test::GivenModeOfMergedSteps;
using program_test::Told;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
namespace command = app::command;

class Commands : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
  }

  headless::Desktop& Desk() { return user.GetDesktop(); }
  void GivenChannels(std::initializer_list<const char*> channels) {
    int index = 0;
    for (const char* channel : channels) Channel(index++) = GivenChannel(channel);
  }
  std::size_t Invalidations() {
    const std::size_t count = Desk().chart.invalidated.size();
    Desk().chart.invalidated.clear();
    return count;
  }
};

TEST_F(Commands, WhatIsUnknownDoesNothing) {
  const auto before = Program();
  for (const int unknown : {0, 1, 99, 32775, 32800, 40000, -1}) user.SendCommand(unknown);
  EXPECT_TRUE(Program() == before);
  EXPECT_EQ(UndoDepth(), 0);
  EXPECT_EQ(NewLog(), "");
  EXPECT_THAT(user.Questions(), IsEmpty());
}

TEST_F(Commands, EachRowHasItsHandlerAndANumberOfItsOwn) {
  std::set<std::pair<int, int>> numbers;
  for (const app::Command& row : app::CommandTable()) {
    EXPECT_NE(row.handler, nullptr) << row.number;
    EXPECT_TRUE(numbers.emplace(row.number, row.code).second) << row.number;
  }
}

struct Row {
  int command;
  int undoEntries;
  std::size_t invalidations;
  const char* log;
};

// With step 0 of channel 1 (of 0 to 4) selected in the built-in program.
const Row kRows[] = {
    {command::kCopySteps, 1, 1, "Copied steps to clipboard\n"},
    {command::kPasteSteps, 1, 0, ""},
    {command::kMoveStepsUp, 1, 1, "Moved steps up\n"},
    {command::kMoveStepsDown, 1, 1, "Moved steps down\n"},
    {command::kClearSteps, 1, 1, "Cleared all steps\n"},
    {command::kChannelColor, 1, 1, ""},
    {command::kToggleJump, 1, 1, "Step jump toggle\n"},
    {command::kDeleteStep, 1, 1, "Step deleted. Current number of steps: 12\n"},
    {command::kOptimizeForTC421, 1, 1,
     "All steps were aligned to 30 minute intervals. This is useful for configuring TC421 device.\n"},
    {command::kEndpointStart, 1, 1, "Added step at 00:00 to all channels. Current number of steps is 13.\n"},
    {command::kEndpointEnd, 1, 1, "Added step at 23:59 to all channels. Current number of steps is 13.\n"},
    {command::kAlign3, 1, 1,
     "All steps were aligned to 3 minute intervals. Current number of steps is 12.\n"},
    {command::kAlign5, 1, 1,
     "All steps were aligned to 5 minute intervals. Current number of steps is 12.\n"},
    {command::kAlign10, 1, 1,
     "All steps were aligned to 10 minute intervals. Current number of steps is 12.\n"},
    {command::kAlign15, 1, 1,
     "All steps were aligned to 15 minute intervals. Current number of steps is 12.\n"},
    {command::kAlign30, 1, 1,
     "All steps were aligned to 30 minute intervals. Current number of steps is 12.\n"},
    {command::kZoomIn, 0, 1, ""},
    {command::kZoomOut, 0, 1, ""},
    {command::kZoomAll, 0, 1, ""},
    {command::kPanBack, 0, 1, ""},
    {command::kPanForward, 0, 1, ""},
    {command::kPanToStart, 0, 1, ""},
    {command::kPanToEnd, 0, 1, ""},
    {command::kUndo, 0, 0, ""},
    {command::kRedo, 0, 0, ""},
};

TEST_F(Commands, LeaveTheirTraces) {
  for (const Row& row : kRows) {
    Program() = TCBase::Program::NewProgram();
    user.State().undoStack.Clear();
    user.State().undoStack.DropPending();
    user.State().stepClipboard = {};
    GivenSelection(1, 0);
    Invalidations();
    user.SendCommand(row.command);
    EXPECT_EQ(UndoDepth(), row.undoEntries) << row.command;
    const app::Command* const command = app::FindCommand(app::CommandTable(), row.command, 0);
    EXPECT_EQ(command->undo != app::Undo::None, row.undoEntries > 0) << row.command;
    EXPECT_EQ(Invalidations(), row.invalidations) << row.command;
    EXPECT_EQ(NewLog(), row.log) << row.command;
  }
}

TEST_F(Commands, WithoutASelectionSomeChannelCommandsLogAllTheSame) {
  const Row rows[] = {
      {command::kCopySteps, 1, 1, "Copied steps to clipboard\n"},
      {command::kClearSteps, 1, 1, "Cleared all steps\n"},
      {command::kPasteSteps, 1, 0, ""},
      {command::kChannelColor, 1, 0, ""},
      {command::kToggleJump, 1, 1, "Step jump toggle\n"},
      {command::kDeleteStep, 0, 0, ""},
      {command::kMoveStepsUp, 0, 0, ""},
      {command::kMoveStepsDown, 0, 0, ""},
  };
  const auto before = Program();
  for (const Row& row : rows) {
    user.State().undoStack.Clear();
    GivenSelection(-1, -1);
    Invalidations();
    user.SendCommand(row.command);
    EXPECT_EQ(UndoDepth(), row.undoEntries) << row.command;
    EXPECT_EQ(Invalidations(), row.invalidations) << row.command;
    EXPECT_EQ(NewLog(), row.log) << row.command;
    EXPECT_TRUE(Program() == before) << row.command;
  }
}

// Edit

TEST_F(Commands, UndoAndRedoRefreshWhatShowsTheProgram) {
  user.SendCommand(command::kEndpointStart);
  NewLog();
  Invalidations();
  ASSERT_TRUE(user.Choose(command::kUndo));
  EXPECT_THAT(user.Text(Control::ModeDescription), HasSubstr("(Steps: 12)"));
  EXPECT_EQ(Invalidations(), 1U);
  ASSERT_TRUE(user.Choose(command::kRedo));
  EXPECT_THAT(user.Text(Control::ModeDescription), HasSubstr("(Steps: 13)"));
  EXPECT_EQ(Invalidations(), 1U);
  EXPECT_EQ(NewLog(), "Undo\nRedo\n");
}

TEST_F(Commands, UndoBringsTheModeOfThatTimeBack) {
  user.SendCommand(command::kEndpointStart);
  user.ClickRow(Control::ModeList, 1);
  user.SendCommand(command::kEndpointStart);
  user.ClickRow(Control::ModeList, 0);
  user.Choose(command::kUndo);
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(1));
}

TEST_F(Commands, UndoLeavesTheViewsControlsBehind) {
  user.SendCommand(command::kEndpointStart);
  user.SendCommand(command::kZoomIn);
  user.Choose(command::kUndo);
  EXPECT_EQ(Program().viewEnd - Program().viewStart, 86400);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1) << "they catch up with the next change of view";
}

// Channel

TEST_F(Commands, StepsAreCopiedFromChannelToChannel) {
  GivenSelection(0, -1);
  user.Choose(command::kCopySteps);
  GivenSelection(4, -1);
  user.Choose(command::kPasteSteps);
  EXPECT_EQ(Told(Channel(4)), Told(Channel(0)));
  EXPECT_EQ(NewLog(), "Copied steps to clipboard\nPasted steps from clipboard\n");
}

TEST_F(Commands, TheLaneFollowsWhenStepsMove) {
  const std::string steps = Told(Channel(4));
  GivenSelection(4, -1);
  user.Choose(command::kMoveStepsUp);
  EXPECT_EQ(user.State().selection.channel, 3);
  EXPECT_EQ(user.State().chartLayout.focusedLane, 3);
  EXPECT_EQ(Told(Channel(3)), steps);
  user.Choose(command::kMoveStepsDown);
  EXPECT_EQ(user.State().chartLayout.focusedLane, 4);
  EXPECT_EQ(Told(Channel(4)), steps);
}

TEST_F(Commands, AClearedChannelHasTwoStepsAtZero) {
  GivenSelection(2, 3);
  user.Choose(command::kClearSteps);
  EXPECT_EQ(Told(Channel(2)), "08:00 0, 22:00 0");
}

TEST_F(Commands, TheDescriptionCountsTheStepsOfTheModeAsItIs) {
  const auto steps = [this] { return "(Steps: " + std::to_string(CountModeSteps(Mode())) + ")"; };
  const auto choose = [&](int number) {
    const std::string before = steps();
    ASSERT_TRUE(user.Choose(number));
    EXPECT_NE(steps(), before) << number;
    EXPECT_THAT(user.Text(Control::ModeDescription), HasSubstr(steps())) << number;
  };
  choose(command::kEndpointStart);
  for (const int lane : {0, 1, 2, 3}) {
    GivenSelection(lane, -1);
    user.Choose(command::kClearSteps);
  }
  GivenSteps(4, {{61, 10.0F}, {481, 20.0F}, {1021, 30.0F}});
  user.Choose(command::kCopySteps);
  choose(command::kClearSteps);
  GivenSelection(4, -1);
  choose(command::kPasteSteps);
  choose(command::kOptimizeForTC421);
}

TEST_F(Commands, ColoursFollowThePalette) {
  GivenSelection(3, -1);
  NewJournal();
  user.Choose(command::kChannelColor);
  EXPECT_EQ(Program().channelInfos[3].color, 0xFFFFFCC9U);
  EXPECT_EQ(NewJournal(), headless::Journal{"renderer: rebuild"});
}

// The chart keeps colours, and names as pictures.
TEST_F(Commands, AColourThatIsUndoneOrRedoneIsGoneFromTheChart) {
  GivenSelection(3, -1);
  const std::uint32_t before = Program().channelInfos[3].color;
  user.Choose(command::kChannelColor);
  const std::uint32_t after = Program().channelInfos[3].color;
  NewJournal();
  user.Choose(command::kUndo);
  EXPECT_EQ(Program().channelInfos[3].color, before);
  EXPECT_EQ(NewJournal(), headless::Journal{"renderer: rebuild"});
  user.Choose(command::kRedo);
  EXPECT_EQ(Program().channelInfos[3].color, after);
  EXPECT_EQ(NewJournal(), headless::Journal{"renderer: rebuild"});
}

TEST_F(Commands, AColourOutsideThePaletteIsFollowedByItsFirst) {
  GivenSelection(3, -1);
  Program().channelInfos[3].color = 0xFF123456;
  user.Choose(command::kChannelColor);
  EXPECT_EQ(Program().channelInfos[3].color, 0xFFFFFFFFU);
}

TEST_F(Commands, DeleteWorksFromTheModeListToo) {
  GivenSelection(0, 0);
  const std::size_t steps = Channel(0).size();
  Desk().focus = headless::Focus::Control;
  user.PressKey(app::key::kDelete);
  EXPECT_THAT(Channel(0), SizeIs(steps - 1));
}

TEST_F(Commands, TwoStepsStayInAChannel) {
  GivenChannels({"08:00 1, 09:00 2"});
  GivenSelection(0, 0);
  user.PressKey(app::key::kDelete);
  EXPECT_THAT(Channel(0), SizeIs(2));
  EXPECT_EQ(NewLog(), "Unable to delete step. Minimum 2 steps per channel is required.\n");
}

TEST_F(Commands, AGreyedItemsKeyDoesNothing) {
  GivenSelection(0, 0);
  user.SendCommand(command::kToggleJump);
  NewLog();
  const auto before = Program();
  GivenSelection(0, -1);
  user.PressKey(app::key::kDelete);
  GivenDemoAt(0);
  user.PressKey('Z', true);
  GivenDemoAt(-1);
  EXPECT_TRUE(Program() == before);
  EXPECT_EQ(NewLog(), "");
}

// Mode

TEST_F(Commands, AligningRewritesTheModeDescription) {
  user.Choose(command::kAlign60);
  EXPECT_EQ(NewLog(), "All steps were aligned to 60 minute intervals. Current number of steps is 11.\n");
  Channel(0) = GivenChannel("08:01 1, 09:01 2");
  for (int i = 1; i < 5; ++i) Channel(i) = GivenChannel("08:00 1, 09:00 2");
  user.Choose(command::kAlign30);
  EXPECT_THAT(user.Text(Control::ModeDescription), HasSubstr("(Steps: 2)"));
}

TEST_F(Commands, AFullModeTakesNoEndpointAndLeavesNoEntry) {
  Mode().channels = GivenModeOfMergedSteps(48).channels;
  Mode().channels[0].erase(Mode().channels[0].begin());
  while (CountModeSteps(Mode()) < 48)
    Channel(0).push_back({20, static_cast<int>(Channel(0).size()) % 60, 1.0F});
  NewLog();
  user.Choose(command::kEndpointEnd);
  EXPECT_EQ(NewLog(), "Unable to add new step. Maximum number of 48 steps for the current mode reached\n");
  EXPECT_EQ(UndoDepth(), 0);
  // The pending copy is gone: a later gesture begins with one of its own.
  Mode().name = "changed meanwhile";
  user.State().undoStack.CommitPending();
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(Commands, ChoosingAModeShowsIt) {
  GivenSelection(2, 1);
  Desk().focus = headless::Focus::Control;
  user.ClickRow(Control::ModeList, 1);
  EXPECT_EQ(Program().currentMode, 1);
  EXPECT_EQ(user.State().selection.channel, -1);
  EXPECT_EQ(user.State().selection.step, -1);
  EXPECT_THAT(user.Text(Control::ModeDescription), HasSubstr("Mode AlwaysOn (Steps: 2)"));
  EXPECT_EQ(NewLog(), "Mode AlwaysOn steps count: 2\n");
  EXPECT_EQ(Desk().focus, headless::Focus::MainWindow);
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(Commands, AModeIsDeleted) {
  user.Press(Control::DeleteModeButton);
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("AlwaysOn"));
  EXPECT_EQ(NewLog(), "Deleted mode: Normal\n");
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(Commands, TheLastModeStays) {
  user.Press(Control::DeleteModeButton);
  NewLog();
  user.Press(Control::DeleteModeButton);
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("AlwaysOn"));
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(UndoDepth(), 1) << "and no entry is made";
}

// View

struct ViewRow {
  int key;
  int startMinute;
  int endMinute;
};

TEST_F(Commands, KeysMoveTheView) {
  const ViewRow rows[] = {
      {app::key::kNumpadAdd, 600, 840},     {app::key::kNumpadSubtract, 600, 960},
      {app::key::kNumpadMultiply, 0, 1440}, {app::key::kPageUp, 585, 885},
      {app::key::kPageDown, 615, 915},      {app::key::kHome, 0, 300},
      {app::key::kEnd, 1140, 1440},
  };
  for (const ViewRow& row : rows) {
    Program().viewStart = 600 * 60;
    Program().viewEnd = 900 * 60;
    NewJournal();
    user.PressKey(row.key);
    EXPECT_EQ(Program().viewStart, row.startMinute * 60) << "key " << row.key;
    EXPECT_EQ(Program().viewEnd, row.endMinute * 60) << "key " << row.key;
    EXPECT_EQ(Desk().controls.scrollBar.position, row.startMinute);
    EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 24 - (row.endMinute - row.startMinute) / 60);
    EXPECT_THAT(NewJournal(), testing::Contains("renderer: rebuild"));
  }
}

// Chart keys

TEST_F(Commands, ArrowsNudgeTheSelectedStep) {
  GivenChannels({"08:00 40, 09:00 50"});
  GivenSelection(0, 0);
  Desk().focus = headless::Focus::Chart;
  user.PressKey(app::key::kRight);
  EXPECT_EQ(Told(Channel(0)), "08:01 40, 09:00 50");
  user.PressKey(app::key::kLeft);
  user.PressKey(app::key::kLeft);
  EXPECT_EQ(Told(Channel(0)), "07:59 40, 09:00 50");
  user.PressKey(app::key::kUp);
  EXPECT_EQ(Told(Channel(0)), "07:59 41, 09:00 50");
  user.PressKey(app::key::kDown);
  user.PressKey(app::key::kDown);
  EXPECT_EQ(Told(Channel(0)), "07:59 39, 09:00 50");
  EXPECT_EQ(UndoDepth(), 6);
}

TEST_F(Commands, TheSelectionGoesWithTheStep) {
  GivenChannels({"08:00 40, 08:01 50"});
  TCBase::Program::RenumberSteps(Channel(0));
  GivenSelection(0, 0);
  Desk().focus = headless::Focus::Chart;
  user.PressKey(app::key::kRight);
  user.PressKey(app::key::kRight);
  EXPECT_EQ(Told(Channel(0)), "08:01 50, 08:02 40");
  EXPECT_EQ(user.State().selection.step, 1);
}

TEST_F(Commands, RightAtTheEndOfTheDayWrapsAndLeftAtItsBeginningStays) {
  GivenChannels({"12:00 1, 23:59 2"});
  TCBase::Program::RenumberSteps(Channel(0));
  GivenSelection(0, 1);
  Desk().focus = headless::Focus::Chart;
  user.PressKey(app::key::kRight);
  EXPECT_EQ(Told(Channel(0)), "00:00 2, 12:00 1");
  EXPECT_EQ(user.State().selection.step, 0);
  user.PressKey(app::key::kLeft);
  EXPECT_EQ(Told(Channel(0)), "00:00 2, 12:00 1");
}

TEST_F(Commands, JTogglesTheJump) {
  GivenSelection(0, 1);
  Desk().focus = headless::Focus::Chart;
  user.PressKey(app::key::kJ);
  EXPECT_TRUE(Channel(0)[1].jump);
  user.PressKey(app::key::kF1);
  EXPECT_FALSE(Channel(0)[1].jump);
  EXPECT_EQ(NewLog(), "Step jump toggle\nStep jump toggle\n");
}

TEST_F(Commands, ProgramInfoLogsEveryMode) {
  user.Choose(command::kProgramInfo);
  const std::string log = NewLog();
  EXPECT_THAT(log, HasSubstr("Normal"));
  EXPECT_THAT(log, HasSubstr("AlwaysOn"));
}

}  // namespace
