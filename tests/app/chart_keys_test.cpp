// The keys on the chart.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "program/demo_state.h"
#include "tests/app/chart_test.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
namespace command = app::command;
namespace key = app::key;

class ChartKeys : public ChartTest {
 protected:
  // With the focus on the chart and step `step` of channel 0 selected.
  void GivenStepSelected(const char* steps, int step) {
    GivenChannels({steps});
    GivenSelection(0, step);
    user.GetDesktop().focus = headless::Focus::Chart;
  }
};

TEST_F(ChartKeys, RightAt2359Gives0000AndTheStepMovesToTheStartOfTheList) {
  GivenStepSelected("08:00 10, 20:00 0, 23:59 50", 2);
  user.PressKey(key::kRight);
  EXPECT_EQ(Told(0), "00:00 50, 08:00 10, 20:00 0");
  EXPECT_EQ(Selected(), Place(0, 0));
}

// Not to 23:59: the day has a wall on its left only.
TEST_F(ChartKeys, LeftAt0000StaysThere) {
  GivenStepSelected("00:00 50, 08:00 10", 0);
  user.PressKey(key::kLeft);
  EXPECT_EQ(Told(0), "00:00 50, 08:00 10");
}

struct Nudge {
  int key;
  const char* to;
};

TEST_F(ChartKeys, ArrowsNudgeByAMinuteOrAPercent) {
  const Nudge nudges[] = {{key::kLeft, "08:00 0, 11:59 50.5 J"},
                          {key::kRight, "08:00 0, 12:01 50.5 J"},
                          {key::kUp, "08:00 0, 12:00 51.5 J"},
                          {key::kDown, "08:00 0, 12:00 49.5 J"}};
  for (const Nudge& nudge : nudges) {
    GivenStepSelected("08:00 0, 12:00 50.5 J", 1);
    user.PressKey(nudge.key);
    EXPECT_EQ(Told(0), nudge.to) << nudge.key;
    EXPECT_THAT(Invalidated(), testing::Contains(kWholeChart));
  }
}

TEST_F(ChartKeys, ValuesStopAt0And100) {
  GivenStepSelected("08:00 99.5, 12:00 0.5", 0);
  user.HoldKey(key::kUp, 3);
  GivenSelection(0, 1);
  user.HoldKey(key::kDown, 3);
  EXPECT_EQ(Told(0), "08:00 100, 12:00 0");
}

TEST_F(ChartKeys, ANudgePassesItsNeighboursAndStaysSelected) {
  GivenStepSelected("08:00 0, 08:01 50, 12:00 0", 0);
  user.HoldKey(key::kRight, 2);
  EXPECT_EQ(Told(0), "08:01 50, 08:02 0, 12:00 0");
  EXPECT_EQ(Selected(), Place(0, 1));
}

TEST_F(ChartKeys, ANudgedStepMayLeaveTheView) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
  GivenView(10, 12);
  user.PressKey(key::kRight);
  EXPECT_EQ(Told(0), "08:00 0, 12:01 50, 20:00 0");
}

TEST_F(ChartKeys, AHeldKeyIsOneUndo) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
  user.HoldKey(key::kLeft, 30);
  EXPECT_EQ(Told(0), "08:00 0, 11:30 50, 20:00 0");
  EXPECT_EQ(UndoDepth(), 1);
  user.Choose(command::kUndo);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

TEST_F(ChartKeys, AKeyThatChangesNothingIsNoUndo) {
  GivenStepSelected("00:00 100, 12:00 50", 0);
  user.PressKey(key::kUp);
  user.PressKey(key::kLeft);
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(ChartKeys, WithoutAStepArrowsOnlyPaint) {
  GivenStepSelected("08:00 0, 12:00 50", -1);
  Chart().OnKeyDown(key::kUp);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50");
  EXPECT_THAT(Invalidated(), ElementsAre(kWholeChart));
}

TEST_F(ChartKeys, AStaleSelectionIsNoSelection) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 3);
  for (const int number : {key::kUp, key::kDelete, key::kBackspace, key::kJ}) Chart().OnKeyDown(number);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

TEST_F(ChartKeys, DeleteRemovesAllStepsOfTheMinute) {
  GivenStepSelected("08:00 0, 12:00 50, 12:00 60, 20:00 0", 2);
  user.PressKey(key::kDelete);
  EXPECT_EQ(Told(0), "08:00 0, 20:00 0");
  EXPECT_EQ(NewLog(), "Step deleted. Current number of steps: 2\n");
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChartKeys, BackspaceDoesTheSame) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
  user.PressKey(key::kBackspace);
  EXPECT_EQ(Told(0), "08:00 0, 20:00 0");
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChartKeys, TheReleaseOfBackspaceEndsAGesture) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
  Chart().OnKeyDown(key::kBackspace);
  EXPECT_EQ(UndoDepth(), 0);
  Chart().OnKeyUp(key::kBackspace);
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChartKeys, ADeletedStepIsPaintedAway) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
  Invalidated();
  Chart().OnKeyDown(key::kDelete);
  EXPECT_THAT(Invalidated(), ElementsAre(kWholeChart));
}

TEST_F(ChartKeys, AHeldDeleteIsOneUndo) {
  GivenStepSelected("08:00 0, 12:00 50, 16:00 20, 20:00 0", 1);
  user.GetDesktop().application->mainWindow.OnAccelerator(command::kDeleteStep);
  GivenSelection(0, 1);
  user.GetDesktop().application->mainWindow.OnAccelerator(command::kDeleteStep);
  EXPECT_EQ(UndoDepth(), 0) << "the key is down";
  Chart().OnKeyUp(key::kDelete);
  EXPECT_EQ(UndoDepth(), 1);
  user.Choose(command::kUndo);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 16:00 20, 20:00 0");
}

TEST_F(ChartKeys, ADeletionFromTheMenuCanBeUndoneAtOnce) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
  ASSERT_TRUE(user.Choose(command::kDeleteStep));
  EXPECT_EQ(UndoDepth(), 1);
  EXPECT_THAT(user.Text(app::Control::ModeDescription), HasSubstr("(Steps: 2)"));
  EXPECT_EQ(user.SliderPosition(app::Control::PowerSlider), 0);
  user.Choose(command::kUndo);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

TEST_F(ChartKeys, ADeletionThatIsRefusedEndsNoGesture) {
  GivenStepSelected("08:00 0, 20:00 0", 1);
  user.State().undoStack.BeginPending();  // as a click on a step does
  user.SendCommand(command::kToggleJump);
  user.SendCommand(command::kDeleteStep);
  EXPECT_EQ(UndoDepth(), 1) << "the jump";
}

// Which gets the release of the key.
TEST_F(ChartKeys, ADeletionFromTheFocusOfAControlCanBeUndoneAtOnce) {
  for (const headless::Focus focus : {headless::Focus::Control, headless::Focus::MainWindow}) {
    GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
    user.GetDesktop().focus = focus;
    user.PressKey(key::kDelete);
    EXPECT_EQ(Told(0), "08:00 0, 20:00 0");
    user.Choose(command::kUndo);
    EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
  }
}

TEST_F(ChartKeys, DeleteLeavesTwoSteps) {
  GivenStepSelected("08:00 0, 20:00 0", 1);
  for (const int number : {key::kDelete, key::kBackspace}) {
    user.PressKey(number);
    EXPECT_EQ(NewLog(), "Unable to delete step. Minimum 2 steps per channel is required.\n");
  }
  EXPECT_EQ(Told(0), "08:00 0, 20:00 0");
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(ChartKeys, DeleteWithoutASelectionSaysNothing) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", -1);
  user.PressKey(key::kDelete);
  EXPECT_EQ(NewLog(), "");
}

TEST_F(ChartKeys, JAndF1ToggleTheJump) {
  GivenStepSelected("08:00 0, 20:00 50", 1);
  user.PressKey(key::kJ);
  EXPECT_EQ(Told(0), "08:00 0, 20:00 50 J");
  user.PressKey(key::kF1);
  EXPECT_EQ(Told(0), "08:00 0, 20:00 50");
  EXPECT_EQ(UndoDepth(), 2);
  GivenSelection(-1, -1);
  user.PressKey(key::kJ);
  EXPECT_EQ(UndoDepth(), 3) << "without a selection, too";
  EXPECT_EQ(NewLog(), "Step jump toggle\nStep jump toggle\nStep jump toggle\n");
}

TEST_F(ChartKeys, OtherKeysDoNothing) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
  const auto before = Program();
  for (int number = -1; number < 300; ++number) {
    const bool isKnown =
        number == 8 || number == 46 || (number >= 37 && number <= 40) || number == 74 || number == 112;
    if (isKnown) continue;
    Chart().OnKeyDown(number);
    Chart().OnKeyUp(number);
  }
  EXPECT_TRUE(Program() == before);
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(ChartKeys, SpacePausesAndResumesADemoAndOtherwiseDoesNothing) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
  Chart().OnKeyDown(key::kSpace);
  EXPECT_EQ(user.State().demoState.TakeCommand(), nullptr);
  GivenDemoAt(3725);
  Chart().OnKeyDown(key::kSpace);
  EXPECT_EQ(user.State().demoState.TakeCommand()->type, TCBase::CommandPause);
  EXPECT_EQ(NewLog(), "Demo playback paused at 01:02:05\n");
  GivenDemoAt(3725, TCBase::StatePaused);
  Chart().OnKeyDown(key::kSpace);
  EXPECT_EQ(user.State().demoState.TakeCommand()->type, TCBase::CommandResume);
  EXPECT_EQ(NewLog(), "Demo playback resumed\n");
}

TEST_F(ChartKeys, DuringADemoKeysChangeTheLiveDocument) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
  GivenDemoAt(3725);
  Chart().OnKeyDown(key::kUp);
  Chart().OnKeyUp(key::kUp);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 51, 20:00 0");
  EXPECT_EQ(UndoDepth(), 1);
}

// Its menu is greyed as a whole; the keys change the document all the same.
TEST_F(ChartKeys, DuringADemoDeleteAndBackspaceDelete) {
  GivenStepSelected("08:00 0, 12:00 50, 16:00 50, 20:00 0", 1);
  GivenDemoAt(3725);
  ASSERT_FALSE(user.MenuItem(command::kDeleteStep).enabled);
  user.PressKey(key::kDelete);
  EXPECT_EQ(Told(0), "08:00 0, 16:00 50, 20:00 0");
  GivenSelection(0, 1);
  user.PressKey(key::kBackspace);
  EXPECT_EQ(Told(0), "08:00 0, 20:00 0");
  EXPECT_EQ(UndoDepth(), 2);
}

TEST_F(ChartKeys, DuringADemoUndoAndRedoHaveNoKeys) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
  user.PressKey(key::kUp);
  GivenDemoAt(3725);
  user.PressKey('Z', true);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 51, 20:00 0");
  GivenDemoAt(-1);
  user.PressKey('Z', true);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
  GivenDemoAt(3725);
  user.PressKey('Y', true);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

TEST_F(ChartKeys, WhatNoDemoForbidsHasItsKeysThen) {
  GivenDemoAt(3725);
  user.PressKey(key::kNumpadAdd);
  EXPECT_EQ(Program().viewEnd - Program().viewStart, 23 * 3600);
}

TEST_F(ChartKeys, KeysThatReachTheMainWindowGoToTheChartIfAStepIsSelected) {
  const Nudge nudges[] = {{key::kLeft, "08:00 0, 11:59 50"},
                          {key::kRight, "08:00 0, 12:01 50"},
                          {key::kUp, "08:00 0, 12:00 51"},
                          {key::kDown, "08:00 0, 12:00 49"},
                          {key::kJ, "08:00 0, 12:00 50 J"}};
  for (const Nudge& nudge : nudges) {
    GivenStepSelected("08:00 0, 12:00 50", 1);
    const int before = UndoDepth();
    user.Scroll(app::Control::ZoomSlider, app::scroll::kThumbReleased);
    ASSERT_EQ(user.GetDesktop().focus, headless::Focus::MainWindow);
    user.PressKey(nudge.key);
    EXPECT_EQ(Told(0), nudge.to) << nudge.key;
    EXPECT_EQ(UndoDepth(), before + 1) << "the release is the chart's, too";
    EXPECT_EQ(user.GetDesktop().focus, headless::Focus::MainWindow);
  }
  GivenStepSelected("08:00 0, 12:00 50", 1);
  user.GetDesktop().focus = headless::Focus::MainWindow;
  GivenDemoAt(3725);
  user.PressKey(key::kSpace);
  const auto command = user.State().demoState.TakeCommand();
  ASSERT_NE(command, nullptr);
  EXPECT_EQ(command->type, TCBase::CommandPause);
}

TEST_F(ChartKeys, KeysThatReachTheMainWindowStayThereWithoutAStep) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", -1);
  user.GetDesktop().focus = headless::Focus::MainWindow;
  Invalidated();
  for (const int number : {key::kLeft, key::kUp, key::kRight, key::kDown, key::kJ}) user.PressKey(number);
  EXPECT_EQ(NewLog(), "") << "no jump was toggled";
  EXPECT_EQ(UndoDepth(), 0);
  EXPECT_THAT(Invalidated(), testing::IsEmpty());
}

TEST_F(ChartKeys, OtherKeysThatReachTheMainWindowAreNotTheCharts) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
  user.GetDesktop().focus = headless::Focus::MainWindow;
  for (const int number : {key::kF1, 13, 9, 27, 65}) user.PressKey(number);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

TEST_F(ChartKeys, AControlKeepsItsKeys) {
  GivenStepSelected("08:00 0, 12:00 50, 20:00 0", 1);
  user.GetDesktop().focus = headless::Focus::Control;
  for (const int number : {key::kLeft, key::kUp, key::kJ, key::kSpace}) user.PressKey(number);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

TEST_F(ChartKeys, TheReleaseOfAnArrowBringsTheModeWithinTheLimit) {
  GivenChannels({});
  Mode().channels = program_test::GivenModeOfMergedSteps(60, 10).channels;
  RenumberSteps(Mode());
  GivenSelection(0, 0);
  Chart().OnKeyDown(key::kUp);
  EXPECT_EQ(CountModeSteps(Mode()), 60);
  Chart().OnKeyUp(key::kUp);
  EXPECT_EQ(CountModeSteps(Mode()), 48);
  EXPECT_THAT(NewLog(), HasSubstr("optimizing..."));
}

}  // namespace
