// The mouse on the chart: selecting and adding steps, hovering and the right button, to the pixel. What a
// held button does is in chart_drag_test.cpp.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "app/commands.h"
#include "app/window/numbers.h"
#include "tests/app/chart_test.h"
#include "tests/support/virtual_clock.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
namespace command = app::command;

class ChartMouse : public ChartTest {};

// Selecting

TEST_F(ChartMouse, LeftPressOnAStepOfAnotherChannelSelectsItAndStartsADragInThatOnePress) {
  GivenChannels({"08:00 0, 20:00 0", "", "08:00 0, 12:00 50, 20:00 0"});
  GivenSelection(0, 1);
  Press(452, 300);
  EXPECT_EQ(Selected(), Place(2, 1));
  EXPECT_EQ(Layout().focusedLane, 2);
  EXPECT_TRUE(ChartHasFocus());
  EXPECT_TRUE(IsCaptured());
  Move(341, 300);
  EXPECT_EQ(Told(2), "08:00 0, 08:59 50.4762, 20:00 0");
  Release();
  EXPECT_EQ(Told(0), "08:00 0, 20:00 0") << "nothing was added";
}

TEST_F(ChartMouse, APressOnAStepPaintsTheOldLaneAndTheNewOne) {
  GivenChannels({"08:00 0", "", "12:00 50"});
  GivenSelection(0, 0);
  Press(452, 300);
  EXPECT_THAT(Invalidated(), ElementsAre(LaneArea(0), LaneArea(2), LaneArea(2)));
}

TEST_F(ChartMouse, LeftPressInAnUnselectedLaneOnlySelectsItAndTheSecondAddsAStep) {
  GivenStepsInLane0("08:00 0, 20:00 0");
  GivenSelection(1, 0);
  Press(452, 107);
  EXPECT_EQ(Selected(), Place(0, -1));
  EXPECT_FALSE(IsCaptured());
  EXPECT_EQ(Told(0), "08:00 0, 20:00 0");
  EXPECT_EQ(UndoDepth(), 0);
  EXPECT_THAT(Invalidated(), ElementsAre(LaneArea(1), LaneArea(0)));
  Release();
  EXPECT_EQ(NewLog(), "");

  Press(452, 107);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
  EXPECT_EQ(Selected(), Place(0, 1));
  EXPECT_TRUE(IsCaptured());
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChartMouse, FirstClickOnALaneEnlargesIt) {
  GivenChannels({"08:00 0"});
  user.ClickChart(452, 300);
  EXPECT_EQ(Selected(), Place(2, -1));
  Rest();
  EXPECT_EQ(Layout().LaneRect(2), (UX::Rect{10, 204, 884, 194}));
  EXPECT_EQ(Layout().LaneRect(0), (UX::Rect{10, 10, 884, 83}));
}

TEST_F(ChartMouse, APressBesideAllLanesSelectsNothing) {
  GivenChannels({"08:00 0"});
  GivenSelection(0, 0);
  Press(452, 120);  // between two lanes
  EXPECT_EQ(Selected(), Place(-1, -1));
  EXPECT_THAT(Invalidated(), ElementsAre(LaneArea(0)));
  Press(452, 120);
  EXPECT_EQ(Selected(), Place(-1, -1));
  EXPECT_THAT(Invalidated(), IsEmpty());
  EXPECT_FALSE(IsCaptured());
  EXPECT_EQ(NewLog(), "");
}

TEST_F(ChartMouse, ASelectionThatIsNoChannelIsLeftWithoutHarm) {
  GivenChannels({"08:00 0"});
  for (const int channel : {5, 1000, -7}) {
    GivenSelection(channel, 3);
    Press(452, 60);
    EXPECT_EQ(Selected(), Place(0, -1));
    EXPECT_THAT(Invalidated(), ElementsAre(LaneArea(0)));
  }
}

// While the lanes glide the lane is the one that will be there, the step the one that is there.
TEST_F(ChartMouse, LanesAreFoundByTheirTargetsAndStepsWhereTheyAre) {
  GivenChannels({"", "", "12:00 100"});  // at (452, 248)
  Layout().FocusLane(0);                 // lane 1 will be from 218 to 301
  Press(600, 248);
  EXPECT_EQ(Selected(), Place(1, -1));
  Press(452, 248);
  EXPECT_EQ(Selected(), Place(2, 0));
}

TEST_F(ChartMouse, AChangeOfModeClearsTheSelection) {
  user.ClickChart(452, 300);
  user.ClickRow(app::Control::ModeList, 1);
  EXPECT_EQ(Selected(), Place(-1, -1));
}

TEST_F(ChartMouse, AClickOnTheBackgroundLeavesTheSelection) {
  GivenChannels({"08:00 0"});
  user.ClickChart(452, 300);
  user.ClickBackground();
  EXPECT_EQ(Layout().focusedLane, -1);
  EXPECT_EQ(Selected(), Place(2, -1));
}

// Adding

TEST_F(ChartMouse, AnAddedStepIsSaidAndSelectedAndMakesAnEntry) {
  GivenStepsInLane0("08:00 0, 20:00 0");
  Press(452, 107);
  EXPECT_EQ(NewLog(), "Added new step (Time: 12:00) (Strength: 50). Current number of steps: 3\n");
  Release();
  EXPECT_EQ(NewLog(), "Step (Time: 12:00) (Strength: 50)\n" + kHints);
  EXPECT_EQ(UndoDepth(), 1);
  user.Choose(command::kUndo);
  EXPECT_EQ(Told(0), "08:00 0, 20:00 0");
}

TEST_F(ChartMouse, AnAddedStepIsHeldAndDraggedWithinTheSameEntry) {
  GivenStepsInLane0("08:00 0, 20:00 0");
  Drag(452, 107, 673, 10);
  EXPECT_EQ(Told(0), "08:00 0, 17:59 100, 20:00 0");
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChartMouse, AnAddedStepKeepsTheFractionOfItsValue) {
  GivenStepsInLane0("");
  Press(231, 108);
  ASSERT_THAT(Channel(0), SizeIs(1));
  EXPECT_FLOAT_EQ(Channel(0)[0].value, 96.0F / 1.94F);
}

TEST_F(ChartMouse, AddingPaintsTheLane) {
  GivenStepsInLane0("08:00 0");
  Press(452, 107);
  EXPECT_THAT(Invalidated(), ElementsAre(LaneArea(0), LaneArea(0), LaneArea(0)));
}

TEST_F(ChartMouse, AStepOnATakenMinuteStandsBeforeTheOldOne) {
  GivenStepsInLane0("12:00 0, 20:00 0");
  Press(452, 107);  // far enough above the old one not to take it
  EXPECT_EQ(Told(0), "12:00 50, 12:00 0, 20:00 0");
  EXPECT_EQ(Selected(), Place(0, 0));
  EXPECT_EQ(NewLog(), "Added new step (Time: 12:00) (Strength: 50). Current number of steps: 2\n")
      << "steps count by the minute";
}

TEST_F(ChartMouse, The48thStepSucceedsAndTheNextPressIsRefusedWith48) {
  GivenMergedSteps(47);
  Press(800, 107);
  Release();
  EXPECT_EQ(CountModeSteps(Mode()), 48);
  EXPECT_THAT(NewLog(), HasSubstr("Current number of steps: 48\n"));
  const auto before = Program();
  Press(830, 107);
  Release();
  EXPECT_EQ(NewLog(), "Unable to add new step. Maximum number of 48 steps for the current mode reached\n");
  EXPECT_TRUE(Program() == before);
  EXPECT_EQ(UndoDepth(), 1);
}

TEST_F(ChartMouse, FarAboveTheLimitTheRefusalSays48AllTheSame) {
  GivenMergedSteps(70);
  Press(800, 107);
  EXPECT_EQ(NewLog(), "Unable to add new step. Maximum number of 48 steps for the current mode reached\n");
}

TEST_F(ChartMouse, PressOutsideAllLanesWithNoSelectionAnd48StepsIsRefusedSinceNoneEqualsNone) {
  GivenMergedSteps(48);
  GivenSelection(-1, -1);
  Press(5, 5);
  EXPECT_EQ(NewLog(), "Unable to add new step. Maximum number of 48 steps for the current mode reached\n");
  GivenMergedSteps(47);
  GivenSelection(-1, -1);
  Press(5, 5);
  EXPECT_EQ(NewLog(), "");
}

TEST_F(ChartMouse, TheWarningComesAtExactly21StepsEachTime) {
  const std::string warning =
      "You have added more than 20 steps. For more information check the \"Help / Known issues\" "
      "information.\n";
  GivenMergedSteps(19);
  const auto logOfPress = [this](int x) {
    Press(x, 107);
    std::string log = NewLog();
    Release();
    NewLog();
    return log;
  };
  EXPECT_THAT(logOfPress(700), Not(HasSubstr(warning)));
  EXPECT_EQ(logOfPress(730),
            "Added new step (Time: 19:32) (Strength: 50). Current number of steps: 21\n" + warning);
  EXPECT_THAT(logOfPress(760), Not(HasSubstr(warning))) << "nothing at 22";
  user.PressKey(app::key::kDelete);
  user.PressKey(app::key::kDelete);
  ASSERT_EQ(CountModeSteps(Mode()), 20);
  NewLog();
  EXPECT_THAT(logOfPress(800), HasSubstr(warning)) << "again, not once in a run";
}

TEST_F(ChartMouse, TheWarningIsRed) {
  GivenMergedSteps(20);
  Press(800, 107);
  user.Settle();
  const std::u16string& text = user.GetDesktop().logPane.Text();
  EXPECT_TRUE(user.GetDesktop().logPane.IsRedAt(text.find(u"You have added")));
}

// The right button

TEST_F(ChartMouse, TheRightButtonSelectsAStepAndOpensTheMenuAtItsRelease) {
  GivenChannels({"08:00 0", "", "12:00 50"});
  GivenSelection(0, 0);
  Chart().OnRightDown(452, 300);
  EXPECT_EQ(Selected(), Place(2, 0));
  EXPECT_EQ(Layout().focusedLane, 2);
  EXPECT_TRUE(ChartHasFocus());
  EXPECT_FALSE(IsCaptured());
  EXPECT_THAT(Invalidated(), ElementsAre(LaneArea(0), LaneArea(2)));
  EXPECT_FALSE(user.GetDesktop().menu.openedAtChart);
  Chart().OnRightUp(460, 310);
  EXPECT_EQ(user.GetDesktop().menu.openedAtChart, (headless::Menu::Opened{app::menu::kChannel, 460, 310}));
}

TEST_F(ChartMouse, TheRightButtonNeverDragsNorAdds) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  for (const int x : {452, 600, 600}) {
    Chart().OnRightDown(x, 107);
    Chart().OnMouseMove(700, 10, false);
    Chart().OnRightUp(700, 10);
  }
  EXPECT_EQ(Selected(), Place(0, -1));
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(ChartMouse, TheRightButtonBesideAllLanesLeavesTheSelection) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  GivenSelection(0, 1);
  user.RightClickChart(5, 5);
  EXPECT_EQ(Selected(), Place(0, 1));
  EXPECT_TRUE(user.GetDesktop().menu.openedAtChart) << "and opens the menu";
}

TEST_F(ChartMouse, TheMenuOfTheRightButtonWorksOnTheStepUnderIt) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  EXPECT_TRUE(user.ChooseAtChart(452, 107, command::kDeleteStep));
  EXPECT_EQ(Told(0), "08:00 0, 20:00 0");
  EXPECT_FALSE(user.ChooseAtChart(600, 107, command::kDeleteStep)) << "greyed without a step";
  EXPECT_FALSE(user.ChooseAtChart(600, 107, command::kAlign60)) << "not in this menu";
}

// The main loop stands still under a menu; the timer comes all the same.
TEST_F(ChartMouse, LanesGlideOnUnderTheMenuOfTheRightButton) {
  GivenChannels({"08:00 0"});
  Chart().OnRightDown(452, 300);
  user.GetDesktop().menu.whileOpen = [this] {
    for (int ticks = 0; ticks < 3; ++ticks) {
      virtual_clock::Advance(0.1);
      Invalidated();
      user.GetDesktop().application->mainWindow.OnTimer(app::kDemoTimer);
      EXPECT_THAT(Invalidated(), ElementsAre(kWholeChart));
    }
    EXPECT_EQ(Layout().LaneRect(2), (UX::Rect{10, 204, 884, 194}));
    virtual_clock::Advance(1.0);
    user.GetDesktop().application->mainWindow.OnTimer(app::kDemoTimer);
    Invalidated();
    user.GetDesktop().application->mainWindow.OnTimer(app::kDemoTimer);
    EXPECT_THAT(Invalidated(), IsEmpty()) << "they have arrived";
  };
  Chart().OnRightUp(452, 300);
  EXPECT_TRUE(user.GetDesktop().menu.openedAtChart);
}

TEST_F(ChartMouse, BalloonsGrowOnUnderTheMenuOfTheRightButton) {
  GivenChannels({"08:00 0"});
  user.Wait(1.0);
  Invalidated();
  user.GetDesktop().Renderer().animating = true;
  const int before = user.GetDesktop().Renderer().updates;
  user.GetDesktop().application->mainWindow.OnTimer(app::kDemoTimer);
  EXPECT_EQ(user.GetDesktop().Renderer().updates, before + 1);
  EXPECT_THAT(Invalidated(), ElementsAre(kWholeChart));
}

TEST_F(ChartMouse, DeletingFromTheMenuOfTheRightButtonIsAnEntryOfItsOwn) {
  GivenStepsInLane0("08:00 0, 12:00 50, 16:00 50, 20:00 0");
  ASSERT_TRUE(user.ChooseAtChart(452, 107, command::kDeleteStep));
  EXPECT_EQ(UndoDepth(), 1);
  ASSERT_TRUE(user.ChooseAtChart(599, 107, command::kDeleteStep));
  EXPECT_EQ(UndoDepth(), 2);
  EXPECT_EQ(Told(0), "08:00 0, 20:00 0");
  user.Choose(command::kUndo);
  EXPECT_EQ(Told(0), "08:00 0, 16:00 50, 20:00 0");
  user.Choose(command::kUndo);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 16:00 50, 20:00 0");
}

TEST_F(ChartMouse, ADemoHasNoContextMenu) {
  GivenDemoAt(600);
  user.RightClickChart(452, 107);
  EXPECT_FALSE(user.GetDesktop().menu.openedAtChart);
}

// Hovering

TEST_F(ChartMouse, TheRendererLearnsOfAMoveBeforeTheStepUnderItIsMarked) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Move(600, 30);
  Move(452, 107);
  EXPECT_EQ(user.GetDesktop().Renderer().hoverAtMove, Place(-1, -1));
  EXPECT_EQ(Hovered(), Place(0, 1));
}

TEST_F(ChartMouse, TheStepUnderTheMouseIsMarkedAndUnmarked) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Move(452, 107);
  EXPECT_EQ(Hovered(), Place(0, 1));
  Move(452, 120);
  EXPECT_EQ(Hovered(), Place(-1, -1));
}

TEST_F(ChartMouse, WithoutAnyStepTheMarkStaysAsItWas) {
  GivenStepsInLane0("12:00 50");
  Move(452, 107);
  Channel(0).clear();
  Move(600, 107);
  EXPECT_EQ(Hovered(), Place(0, 0));
}

TEST_F(ChartMouse, TheMarkIsOfTheStepAsItWasBeforeTheDragMovedIt) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Press(452, 107);
  Move(700, 107);
  EXPECT_EQ(Hovered(), Place(-1, -1)) << "the mark comes first, then the step follows";
  Move(700, 107);
  EXPECT_EQ(Hovered(), Place(0, 1));
}

}  // namespace
