// Several steps at once on the chart: choosing them with Ctrl, a frame or Ctrl+A, dragging them together, and
// what the keys do to all of them. To the pixel, as in chart_mouse_test.cpp.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/window/numbers.h"
#include "program/step_group.h"
#include "tests/app/chart_test.h"

namespace {

namespace command = app::command;
namespace key = app::key;

constexpr app::HeldKeys kCtrl{.ctrl = true};
constexpr app::HeldKeys kShift{.shift = true};

class ChartGroup : public ChartTest {
 protected:
  // Lane 0 enlarged, from 10 to 204: a percent is 1.94 pixels. Its steps' markers are at 305 (08:00), 452
  // (12:00) and 599 (16:00), at 185 (10 %), 107 (50 %) and 165 (20 %). Lane 1 is from 218 to 301.
  void GivenThreeSteps() {
    GivenChannels({"08:00 10, 12:00 50, 16:00 20", "10:00 40, 14:00 60"});
    GivenSelection(0, -1);
    GivenFocusOn(0);
  }
  static constexpr int kX08 = 304;
  static constexpr int kX12 = 452;
  static constexpr int kX16 = 599;
  static constexpr int kY10 = 185;
  static constexpr int kY50 = 107;
  static constexpr int kY20 = 165;

  void CtrlClick(int x, int y) {
    Chart().OnLeftDown(x, y, kCtrl);
    Release();
  }
  void Frame(int fromX, int fromY, int toX, int toY) {
    Chart().OnLeftDown(fromX, fromY, kCtrl);
    Chart().OnMouseMove((fromX + toX) / 2, (fromY + toY) / 2, true, kCtrl);
    Chart().OnMouseMove(toX, toY, true, kCtrl);
    Release();
  }
  // "0:08:00 1:10:00": the channel and the time of each selected step.
  std::string Chosen() {
    std::string chosen;
    const auto& state = user.State();
    for (int lane = 0; lane < TCBase::Program::kChannelCount; ++lane) {
      for (const auto& step : Channel(lane)) {
        if (!IsStepSelected(state.selection, state.stepGroup, step)) continue;
        chosen += (chosen.empty() ? "" : " ") + std::to_string(lane) + ":" + ToTimeText(step);
      }
    }
    return chosen;
  }
};

// Choosing

TEST_F(ChartGroup, ACtrlClickAddsAStepToThoseThatAreSelectedAndTakesItFromThem) {
  GivenThreeSteps();
  CtrlClick(kX08, kY10);
  EXPECT_EQ(Chosen(), "0:08:00");
  CtrlClick(kX16, kY20);
  EXPECT_EQ(Chosen(), "0:08:00 0:16:00");
  EXPECT_EQ(Selected(), Place(0, 2)) << "the one that was clicked last";
  CtrlClick(kX16, kY20);
  EXPECT_EQ(Chosen(), "0:08:00");
  EXPECT_EQ(Selected(), Place(0, 0));
  CtrlClick(kX08, kY10);
  EXPECT_EQ(Chosen(), "");
  EXPECT_EQ(Selected(), Place(0, -1)) << "the channel stays";
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(ChartGroup, WithCtrlHeldAPressAddsNoStep) {
  GivenThreeSteps();
  CtrlClick(700, 60);
  EXPECT_EQ(Told(0), "08:00 10, 12:00 50, 16:00 20");
  EXPECT_EQ(Chosen(), "");
  EXPECT_FALSE(IsCaptured());
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(ChartGroup, AFrameSelectsWhatIsInItInAllLanes) {
  GivenThreeSteps();
  Frame(250, 300, 460, 90);
  EXPECT_EQ(Chosen(), "0:08:00 0:12:00 1:10:00");
  EXPECT_FALSE(user.State().chartOverlay.frame.has_value());
  Frame(590, 100, 610, 200);
  EXPECT_EQ(Chosen(), "0:08:00 0:12:00 0:16:00 1:10:00") << "beside those that were";
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(ChartGroup, AFrameIsSeenWhileItIsDrawn) {
  GivenThreeSteps();
  Chart().OnLeftDown(500, 60, kCtrl);
  EXPECT_TRUE(IsCaptured());
  Chart().OnMouseMove(400, 90, true, kCtrl);
  EXPECT_EQ(user.State().chartOverlay.frame, (Rect{400, 60, 100, 30}));
  EXPECT_THAT(Invalidated(), testing::Contains(kWholeChart));
  user.GetDesktop().chart.LoseCapture();
  EXPECT_FALSE(user.State().chartOverlay.frame.has_value());
}

TEST_F(ChartGroup, AFrameWithNothingInItLeavesTheSelection) {
  GivenThreeSteps();
  CtrlClick(kX08, kY10);
  CtrlClick(kX16, kY20);
  Frame(700, 20, 800, 40);
  EXPECT_EQ(Chosen(), "0:08:00 0:16:00");
}

TEST_F(ChartGroup, AFrameLeavesOutWhatTheViewLeavesOut) {
  GivenThreeSteps();
  GivenView(8, 14);
  Frame(-30000, 0, 30000, 600);
  EXPECT_EQ(Chosen(), "0:08:00 0:12:00 1:10:00 1:14:00");
}

TEST_F(ChartGroup, APlainClickSelectsOneAlone) {
  GivenThreeSteps();
  Frame(250, 90, 610, 200);
  ASSERT_EQ(Chosen(), "0:08:00 0:12:00 0:16:00");
  Press(kX12, kY50);
  Release();
  EXPECT_EQ(Chosen(), "0:12:00") << "one of them, not moved";
  Frame(250, 90, 610, 200);
  Press(452, 400);  // a lane
  EXPECT_EQ(Chosen(), "");
}

TEST_F(ChartGroup, CtrlASelectsTheChannelAndThenTheMode) {
  GivenThreeSteps();
  user.PressKey('A', true);
  EXPECT_EQ(Chosen(), "0:08:00 0:12:00 0:16:00");
  user.PressKey('A', true);
  EXPECT_EQ(Chosen(), "0:08:00 0:12:00 0:16:00 1:10:00 1:14:00");
  user.PressKey('A', true);
  EXPECT_EQ(Chosen(), "0:08:00 0:12:00 0:16:00 1:10:00 1:14:00");
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(ChartGroup, CtrlAInTheLogSelectsItsText) {
  GivenThreeSteps();
  auto& log = user.GetDesktop().logPane;
  log.hasFocus = true;
  user.PressKey('A', true);
  EXPECT_EQ(Chosen(), "");
  EXPECT_EQ(log.SelectedLength(), log.Length());
  EXPECT_TRUE(user.Choose(command::kSelectAllSteps));
  EXPECT_EQ(Chosen(), "0:08:00 0:12:00 0:16:00") << "the menu means the chart";
}

TEST_F(ChartGroup, CtrlAWithoutAChannelSelectsTheMode) {
  GivenThreeSteps();
  GivenSelection(-1, -1);
  EXPECT_TRUE(user.Choose(command::kSelectAllSteps));
  EXPECT_EQ(Chosen(), "0:08:00 0:12:00 0:16:00 1:10:00 1:14:00");
}

TEST_F(ChartGroup, NothingIsSelectedDuringADemo) {
  GivenThreeSteps();
  GivenDemoAt(1000);
  CtrlClick(kX08, kY10);
  user.PressKey('A', true);
  EXPECT_EQ(Chosen(), "");
  EXPECT_FALSE(user.MenuItem(command::kSelectAllSteps).enabled);
}

TEST_F(ChartGroup, EmptyChannelsHaveNothingToSelect) {
  GivenChannels({});
  user.PressKey('A', true);
  GivenSelection(2, -1);
  user.PressKey('A', true);
  Frame(-10, -10, 2000, 2000);
  EXPECT_EQ(Chosen(), "");
}

TEST_F(ChartGroup, TheRightButtonKeepsSeveralSelectedOnOneOfThem) {
  GivenThreeSteps();
  Frame(250, 90, 610, 200);
  Chart().OnRightDown(kX12, kY50);
  EXPECT_EQ(Chosen(), "0:08:00 0:12:00 0:16:00");
  EXPECT_EQ(Selected(), Place(0, 1));
  Chart().OnRightDown(452, 430);
  EXPECT_EQ(Chosen(), "") << "a lane";
}

TEST_F(ChartGroup, AnotherModeHasNothingSelected) {
  GivenThreeSteps();
  user.PressKey('A', true);
  user.ClickRow(app::Control::ModeList, 1);
  EXPECT_EQ(Chosen(), "");
}

// Dragging

TEST_F(ChartGroup, DraggingOneOfSeveralMovesAllAndIsOneEntryOfTheHistory) {
  GivenThreeSteps();
  Frame(250, 300, 460, 90);
  ASSERT_EQ(Chosen(), "0:08:00 0:12:00 1:10:00");
  NewLog();
  Press(kX12, kY50);
  Move(kX12 + 20, kY50 - 10);
  Move(kX12 + 37, kY50 - 19);
  EXPECT_EQ(Told(0), "09:00 19.7938, 13:00 59.7938, 16:00 20");
  EXPECT_EQ(Told(1), "11:00 49.7938, 14:00 60");
  Release();
  EXPECT_EQ(Chosen(), "0:09:00 0:13:00 1:11:00");
  EXPECT_EQ(UndoDepth(), 1);
  EXPECT_EQ(NewLog(), "Moved steps: 3\n" + kHints);
  user.Choose(command::kUndo);
  EXPECT_EQ(Told(0), "08:00 10, 12:00 50, 16:00 20");
  EXPECT_EQ(Told(1), "10:00 40, 14:00 60");
  EXPECT_EQ(Chosen(), "0:08:00 0:12:00 1:10:00") << "they are the same steps";
}

TEST_F(ChartGroup, TheMouseThatHasNotMovedMovesNothing) {
  GivenThreeSteps();
  Frame(250, 90, 610, 200);
  Press(kX12 + 3, kY50 + 2);
  Move(kX12 + 3, kY50 + 2);
  Release();
  EXPECT_EQ(Told(0), "08:00 10, 12:00 50, 16:00 20");
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(ChartGroup, CtrlAndADragMoveAllTogetherWithTheNewOne) {
  GivenThreeSteps();
  CtrlClick(kX08, kY10);
  Chart().OnLeftDown(kX16, kY20, kCtrl);
  Chart().OnMouseMove(kX16 + 37, kY20, true, kCtrl);
  Release();
  EXPECT_EQ(Told(0), "08:59 10.1031, 12:00 50, 16:59 20.1031");
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChartGroup, ShiftKeepsTheTimeOrThePercentWhicheverHasMovedLess) {
  GivenThreeSteps();
  Press(kX12, kY50);
  Chart().OnMouseMove(kX12 + 10, kY50 - 19, true, kShift);
  EXPECT_EQ(Told(0), "08:00 10, 12:00 59.7938, 16:00 20");
  Chart().OnMouseMove(kX12 + 37, kY50 - 19, true, kShift);
  EXPECT_EQ(Told(0), "08:00 10, 13:00 50, 16:00 20");
  Chart().OnMouseMove(kX12 + 37, kY50 - 19, true);
  EXPECT_EQ(Told(0), "08:00 10, 13:00 59.7938, 16:00 20") << "without Shift";
  Release();
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChartGroup, ShiftKeepsThemForSeveral) {
  GivenThreeSteps();
  Frame(250, 90, 460, 200);
  Press(kX12, kY50);
  Chart().OnMouseMove(kX12 + 37, kY50 - 19, true, kShift);
  Release();
  EXPECT_EQ(Told(0), "09:00 10, 13:00 50, 16:00 20");
}

// Keys

TEST_F(ChartGroup, ArrowsNudgeAll) {
  GivenThreeSteps();
  Frame(250, 90, 460, 200);
  user.HoldKey(key::kRight, 3);
  user.PressKey(key::kUp);
  EXPECT_EQ(Told(0), "08:03 11, 12:03 51, 16:00 20");
  EXPECT_EQ(UndoDepth(), 2);
}

TEST_F(ChartGroup, DeleteRemovesAllButTwoOfEachChannel) {
  GivenThreeSteps();
  user.PressKey('A', true);
  NewLog();
  user.PressKey(key::kDelete);
  EXPECT_EQ(Told(0), "12:00 50, 16:00 20");
  EXPECT_EQ(NewLog(),
            "Unable to delete step. Minimum 2 steps per channel is required.\n"
            "Deleted steps: 1. Current number of steps: 4\n");
  EXPECT_EQ(UndoDepth(), 1);
  user.Choose(command::kUndo);
  EXPECT_EQ(Told(0), "08:00 10, 12:00 50, 16:00 20");
}

TEST_F(ChartGroup, DeleteFromTheMenuIsOneEntryOfTheHistory) {
  GivenChannels({"08:00 10, 12:00 50, 16:00 20, 20:00 0", "10:00 40, 14:00 60, 15:00 1"});
  GivenSelection(0, -1);
  GivenFocusOn(0);
  Frame(420, 90, 610, 300);
  ASSERT_EQ(Chosen(), "0:12:00 0:16:00 1:14:00 1:15:00");
  EXPECT_TRUE(user.Choose(command::kDeleteStep));
  EXPECT_EQ(Told(0), "08:00 10, 20:00 0");
  EXPECT_EQ(Told(1), "10:00 40, 15:00 1");
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChartGroup, JGivesAllTheTypeThatTheSelectedOneHasNot) {
  GivenChannels({"08:00 10 J, 12:00 50, 16:00 20"});
  GivenSelection(0, 1);
  user.PressKey('A', true);
  ASSERT_EQ(Selected(), Place(0, 1));
  user.PressKey(key::kJ);
  EXPECT_EQ(Told(0), "08:00 10 J, 12:00 50 J, 16:00 20 J");
  user.PressKey(key::kJ);
  EXPECT_EQ(Told(0), "08:00 10, 12:00 50, 16:00 20");
  EXPECT_EQ(UndoDepth(), 2);
}

// Careful mouse

class CarefulMouse : public ChartGroup {
 protected:
  void SetUp() override {
    ChartGroup::SetUp();
    ASSERT_FALSE(user.MenuItem(command::kCarefulMouse).checked) << "off as long as nobody chose it";
    EXPECT_TRUE(user.Choose(command::kCarefulMouse));
    GivenThreeSteps();
  }
};

TEST_F(CarefulMouse, IsASettingWithAMark) {
  EXPECT_TRUE(user.MenuItem(command::kCarefulMouse).checked);
  user.WillAnswer(app::Answer::No);
  user.Close();
  user.Start();
  EXPECT_TRUE(user.MenuItem(command::kCarefulMouse).checked);
  user.Choose(command::kCarefulMouse);
  EXPECT_FALSE(user.MenuItem(command::kCarefulMouse).checked);
}

TEST_F(CarefulMouse, ASingleClickAddsNothingAndADoubleClickOneStep) {
  Press(700, 107);
  Release();
  EXPECT_EQ(Told(0), "08:00 10, 12:00 50, 16:00 20");
  Press(700, 107);
  Release();
  EXPECT_EQ(Channel(0).size(), 4U);
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(CarefulMouse, TwoClicksThatAreSlowOrFarFromEachOtherAreNoDoubleClick) {
  Press(700, 107);
  Release();
  user.Wait(0.6);
  Press(700, 107);
  Release();
  Press(704, 107);
  Release();
  EXPECT_EQ(Channel(0).size(), 3U);
  Press(703, 110);
  Release();
  EXPECT_EQ(Channel(0).size(), 4U);
}

TEST_F(CarefulMouse, AThirdQuickClickBeginsAnew) {
  for (int clicks = 0; clicks < 2; ++clicks) {
    Press(700, 20);
    Release();
  }
  ASSERT_EQ(Channel(0).size(), 4U);
  user.Choose(command::kUndo);
  GivenSelection(0, -1);
  Press(700, 20);
  Release();
  EXPECT_EQ(Channel(0).size(), 3U);
}

TEST_F(CarefulMouse, ADragBeginsAfterFourPixels) {
  Press(kX12, kY50);
  Move(kX12 + 3, kY50 + 3);
  EXPECT_EQ(Told(0), "08:00 10, 12:00 50, 16:00 20");
  Release();
  EXPECT_EQ(UndoDepth(), 0);
  user.Wait(1.0);
  Press(kX12, kY50);
  Move(kX12 + 37, kY50);
  Move(kX12 + 1, kY50);
  EXPECT_EQ(Told(0), "08:00 10, 12:01 50, 16:00 20") << "once begun it goes anywhere";
  Release();
  EXPECT_EQ(UndoDepth(), 1);
}

// Comparing

class ChartComparison : public ChartTest {
 protected:
  // Of lane 0 of the mode behind, as it is told; "none" if there is none.
  std::string Behind() {
    const TCBase::Program::Mode* const mode = UX::ModeBehind(user.State().chartOverlay.comparison, Program());
    return mode != nullptr ? program_test::Told(mode->channels[0]) : "none";
  }
};

TEST_F(ChartComparison, WithWhatWasSavedIsTurnedOnAndOff) {
  const std::string saved = Told(0);
  EXPECT_EQ(Behind(), "none");
  Invalidated();
  EXPECT_TRUE(user.Choose(command::kCompareWithSaved));
  EXPECT_THAT(Invalidated(), testing::Contains(kWholeChart));
  GivenChannels({"08:00 1, 09:00 2"});
  EXPECT_EQ(Behind(), saved);
  EXPECT_TRUE(user.MenuItem(command::kCompareWithSaved).checked);
  user.Choose(command::kCompareWithSaved);
  EXPECT_EQ(Behind(), "none");
  EXPECT_FALSE(user.MenuItem(command::kCompareWithSaved).checked);
}

TEST_F(ChartComparison, WhatWasSavedFollowsASave) {
  user.Choose(command::kCompareWithSaved);
  GivenChannels({"08:00 1, 09:00 2"});
  user.WillPick({folder / "saved.xml"});
  Invalidated();
  user.Choose(command::kSaveProgram);
  EXPECT_EQ(Behind(), "08:00 1, 09:00 2");
  EXPECT_THAT(Invalidated(), testing::Contains(kWholeChart)) << "the curves behind are other ones now";
}

TEST_F(ChartComparison, AModeIsKeptWhicheverIsChosenThen) {
  const std::string first = Told(0);
  user.Choose(command::kCompareWithThis);
  user.ClickRow(app::Control::ModeList, 1);
  EXPECT_NE(Told(0), first);
  EXPECT_EQ(Behind(), first);
  EXPECT_TRUE(user.MenuItem(command::kCompareWithThis).checked);
  EXPECT_FALSE(user.MenuItem(command::kCompareWithSaved).checked);
  user.Choose(command::kCompareWithSaved);
  EXPECT_FALSE(user.MenuItem(command::kCompareWithThis).checked) << "one of them";
}

TEST_F(ChartComparison, TheSavedModeIsFoundByItsNameOrItsPlace) {
  user.Choose(command::kCompareWithSaved);
  const std::string first = Told(0);
  std::swap(Program().modes[0], Program().modes[1]);
  Program().currentMode = 1;
  EXPECT_EQ(Behind(), first) << "by its name";
  std::swap(Program().modes[0], Program().modes[1]);
  Program().currentMode = 0;
  Program().modes[0].name = "Another";
  EXPECT_EQ(Behind(), first) << "by its place";
  Program().modes.push_back(Program().modes[0]);
  Program().currentMode = 2;
  EXPECT_EQ(Behind(), "none") << "it was never saved";
}

}  // namespace
