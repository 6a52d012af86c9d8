// Steps that are dragged over the chart: how they follow, what the release says and enters in the history,
// and releases that are lost.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "app/window/numbers.h"
#include "localisation/translation_store.h"
#include "program/optimize.h"
#include "tests/app/chart_test.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
namespace command = app::command;

// Hints

class ChartHints : public ChartTest {
 protected:
  void SetUp() override {
    user.translations = kGermanHints;
    ChartTest::SetUp();
    GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
    GivenSelection(0, 1);
  }
  // By its command: the menu knows the languages of the start.
  void GivenGerman() { user.SendCommand(command::kFirstLanguage); }
  std::string LogOfAClick() {
    NewLog();
    Press(452, 107);
    Release();
    return NewLog();
  }

  static constexpr char kGermanHints[] = R"(<localisation>
  <languages><language id='de' name='Deutsch'/></languages>
  <strings>
    <string id='Hint: {1}'><de>Tipp: {1}</de></string>
    <string id='Press DELETE or BACKSPACE to remove the selected step.'><de>Entf nimmt ihn weg.</de></string>
  </strings>
</localisation>)";
};

TEST_F(ChartHints, AreInTheLanguageOfTheMoment) {
  GivenGerman();
  EXPECT_THAT(LogOfAClick(),
              HasSubstr("Tipp: Entf nimmt ihn weg.\n"
                        "Tipp: You can also use keyboard ARROWS to move the step with higher accuracy.\n"));
}

TEST_F(ChartHints, ThatWereSeenInEnglishDoNotComeAgainInGerman) {
  EXPECT_THAT(LogOfAClick(), HasSubstr(kHints));
  GivenGerman();
  EXPECT_THAT(LogOfAClick(), Not(HasSubstr("Tipp")));
  user.Choose(command::kEnglish);
  EXPECT_THAT(LogOfAClick(), Not(HasSubstr("Hint")));
}

TEST_F(ChartHints, ThatWereSeenInGermanDoNotComeAgainInEnglish) {
  GivenGerman();
  EXPECT_THAT(LogOfAClick(), HasSubstr("Tipp"));
  user.Choose(command::kEnglish);
  EXPECT_THAT(LogOfAClick(), Not(HasSubstr("Hint")));
  GivenGerman();
  EXPECT_THAT(LogOfAClick(), Not(HasSubstr("Tipp")));
}

class ChartDrag : public ChartTest {};

// Dragging

TEST_F(ChartDrag, ADragSetsTimeAndValue) {
  GivenStepsInLane0("08:00 0, 12:00 50 J, 20:00 0");
  Press(452, 107);
  Move(341, 58);
  EXPECT_EQ(Channel(0)[1].hour, 8);
  EXPECT_EQ(Channel(0)[1].minute, 59) << "08:59:11: seconds are dropped";
  EXPECT_FLOAT_EQ(Channel(0)[1].value, 146.0F / 1.94F) << "not rounded";
  EXPECT_TRUE(Channel(0)[1].jump) << "the jump stays";
}

TEST_F(ChartDrag, AMovePaintsTheLaneOnce) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Press(452, 107);
  Invalidated();
  Move(453, 107);
  EXPECT_THAT(Invalidated(), ElementsAre(UX::Rect{1, -3, 902, 220}));
}

TEST_F(ChartDrag, ValuesStopAtTheLanesEdges) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Press(452, 107);
  Move(452, 9);
  EXPECT_EQ(Channel(0)[1].value, 100.0F);
  Move(452, -30000);
  EXPECT_EQ(Channel(0)[1].value, 100.0F);
  Move(452, 205);
  EXPECT_EQ(Channel(0)[1].value, 0.0F);
  Move(452, 30000);
  EXPECT_EQ(Channel(0)[1].value, 0.0F);
}

TEST_F(ChartDrag, ADragLeftOfTheDayFreezesTheStepCompletelyUntilThePointerReturns) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Press(452, 107);
  Invalidated();
  Move(9, 10);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0") << "its value too";
  Move(-32768, 10);
  Move(894, 10);
  Move(32767, 10);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
  EXPECT_THAT(Invalidated(), IsEmpty());
  Move(10, 10);
  EXPECT_EQ(Told(0), "00:00 100, 08:00 0, 20:00 0");
  Move(893, 204);
  EXPECT_EQ(Told(0), "08:00 0, 20:00 0, 23:58 0");
}

TEST_F(ChartDrag, AStepDraggedPastTheRightEdgeOfAZoomedViewStopsAtItsLastSecond) {
  GivenStepsInLane0("08:00 0, 11:00 50, 20:00 0");
  GivenView(10, 12);
  Press(452, 107);
  ASSERT_EQ(Selected(), Place(0, 1));
  Move(900, 107);
  EXPECT_EQ(Told(0), "08:00 0, 11:59 50, 20:00 0") << "11:59:59, the seconds dropped again";
  Move(4, 107);
  EXPECT_EQ(Told(0), "08:00 0, 10:00 50, 20:00 0");
}

TEST_F(ChartDrag, AViewThatBeginsWithinAMinuteLetsTheStepGoToThatMinute) {
  GivenStepsInLane0("08:00 0, 11:00 50, 20:00 0");
  GivenView(10, 12);
  Program().viewStart += 25;
  Program().viewEnd += 25;
  Press(449, 107);
  ASSERT_EQ(Selected(), Place(0, 1));
  Move(10, 107);
  EXPECT_EQ(Told(0), "08:00 0, 10:00 50, 20:00 0") << "before the view's first second, but of its minute";
  Move(900, 107);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

TEST_F(ChartDrag, DraggedOverItsNeighboursAStepIsSortedInAndStaysSelected) {
  GivenStepsInLane0("08:00 0, 12:00 50, 18:00 20, 20:00 0");
  Press(452, 107);
  const std::uint32_t id = Channel(0)[1].id;
  Move(700, 107);
  EXPECT_EQ(Told(0), "08:00 0, 18:00 20, 18:43 50, 20:00 0");
  EXPECT_EQ(Selected(), Place(0, 2));
  EXPECT_EQ(Channel(0)[2].id, id);
  Move(100, 107);
  EXPECT_EQ(Told(0), "02:26 50, 08:00 0, 18:00 20, 20:00 0");
  EXPECT_EQ(Selected(), Place(0, 0));
  Release();
  EXPECT_EQ(Selected(), Place(0, 0));
}

TEST_F(ChartDrag, TwoStepsDraggedToOneMinuteStayTwoUntilOneIsDeletedWhichRemovesBoth) {
  GivenStepsInLane0("08:00 0, 12:00 50, 18:00 0, 20:00 0");
  user.DragOnChart(673, 204, 452, 10);  // 18:00 to the minute of the other, far from it
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 12:00 100, 20:00 0");
  EXPECT_EQ(Selected(), Place(0, 2));
  user.PressKey(app::key::kDelete);
  EXPECT_EQ(Told(0), "08:00 0, 20:00 0");
  EXPECT_THAT(NewLog(), HasSubstr("Step deleted. Current number of steps: 2\n"));
}

TEST_F(ChartDrag, TheReleaseSaysTheStepAndGivesEachHintOnceInARun) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Drag(452, 107, 341, 10);
  EXPECT_EQ(NewLog(), "Step (Time: 08:59) (Strength: 100)\n" + kHints);
  EXPECT_FALSE(IsCaptured());
  Drag(341, 10, 452, 107);
  EXPECT_EQ(NewLog(), "Step (Time: 12:00) (Strength: 50)\n");
  user.WillAnswer(app::Answer::No);
  user.Close();
  user.Start();
  Rest();
  EXPECT_THAT(user.Log(), Not(HasSubstr("Hint:")));
}

TEST_F(ChartDrag, TheReleaseShowsPowerAndDescription) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Mode().name = "Renamed";
  Press(452, 107);
  Move(452, 10);
  EXPECT_NE(user.SliderPosition(app::Control::PowerSlider), 100) << "not during the drag";
  EXPECT_THAT(user.Text(app::Control::ModeDescription), Not(HasSubstr("Renamed")));
  Release();
  EXPECT_EQ(user.SliderPosition(app::Control::PowerSlider), 100);
  EXPECT_THAT(user.Text(app::Control::ModeDescription), HasSubstr("Renamed"));
}

TEST_F(ChartDrag, TheReleaseBringsTheModeWithinTheLimit) {
  GivenMergedSteps(60);
  // 00:00 and its value are those of GivenModeOfMergedSteps' first step.
  const UX::Rect lane = Layout().LaneRect(0);
  Press(UX::TimeToX(lane, Program(), Channel(0)[0]), UX::PercentToY(lane, Channel(0)[0].value));
  ASSERT_EQ(Selected(), Place(0, 0));
  Release();
  EXPECT_EQ(CountModeSteps(Mode()), 48);
  EXPECT_THAT(NewLog(), HasSubstr("has more than 48 steps, optimizing..."));
}

TEST_F(ChartDrag, AReleaseWithoutAPressDoesNothingButShow) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  GivenSelection(0, 1);
  Release();
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(ChartDrag, AMoveWithoutAPressMovesNoStep) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  GivenSelection(0, 1);
  Move(452, 107);
  Move(600, 10);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

TEST_F(ChartDrag, ADragThatLosesTheCaptureIsReleased) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Mode().name = "Renamed";
  Press(452, 107);
  Move(341, 107);
  user.GetDesktop().chart.LoseCapture();  // to another window, which gets the release
  EXPECT_EQ(UndoDepth(), 1);
  EXPECT_THAT(NewLog(), HasSubstr("Step (Time: 08:59) (Strength: 50)\n"));
  EXPECT_THAT(user.Text(app::Control::ModeDescription), HasSubstr("Renamed"));
  Move(600, 107);
  EXPECT_EQ(Told(0), "08:00 0, 08:59 50, 20:00 0");
}

TEST_F(ChartDrag, TheReleaseGivesTheCaptureBackAndIsNoSecondRelease) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Drag(452, 107, 341, 10);
  NewLog();
  EXPECT_FALSE(IsCaptured());
  Drag(341, 10, 452, 107);
  EXPECT_EQ(NewLog(), "Step (Time: 12:00) (Strength: 50)\n") << "said once";
  user.GetDesktop().chart.Capture();
  user.GetDesktop().chart.LoseCapture();
  EXPECT_EQ(NewLog(), "") << "nothing was held";
}

TEST_F(ChartDrag, ALostCaptureIsNotTakenFromItsNewOwner) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Press(452, 107);
  Chart().OnCaptureLost();
  EXPECT_TRUE(IsCaptured()) << "by somebody else";
  Move(341, 107);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

// A seek takes no capture, so its release may come down beside the chart.
TEST_F(ChartDrag, AReleaseBesideTheChartDuringADemoIsMadeUpForByTheNextMove) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  GivenSelection(0, 1);
  GivenDemoAt(600);
  user.MoveMouse(300, 107);
  user.HoldButton();
  user.MoveMouse(300, -20);
  user.ReleaseButton();
  GivenDemoAt(-1);
  user.MoveMouse(600, 10);
  user.MoveMouse(700, 20);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
  EXPECT_EQ(UndoDepth(), 0);
  user.WillPick({GivenFile("Other")});
  user.WillAnswer(app::Answer::No);
  user.Choose(command::kLoadProgram);
  const auto loaded = Program();
  GivenSelection(0, 0);
  user.MoveMouse(500, 30);
  EXPECT_TRUE(Program() == loaded);
}

TEST_F(ChartDrag, AReleaseBesideTheChartDuringADemoEndsTheSeek) {
  GivenDemoAt(600);
  user.MoveMouse(300, 107);
  user.HoldButton();
  user.MoveMouse(300, -20);
  user.ReleaseButton();
  user.State().demoState.TakeCommand();
  user.MoveMouse(400, 107);
  EXPECT_EQ(user.State().demoState.TakeCommand(), nullptr);
}

TEST_F(ChartDrag, ASeekWhoseDemoEndsUnderItGoesOnAsADragThatCanBeUndone) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  GivenSelection(0, 1);
  GivenDemoAt(600);
  Press(300, 107);
  GivenDemoAt(-1);
  Move(341, 107);
  EXPECT_EQ(Told(0), "08:00 0, 08:59 50, 20:00 0");
  Release();
  EXPECT_EQ(UndoDepth(), 1);
  user.Choose(command::kUndo);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

TEST_F(ChartDrag, ASelectionThatWentStaleUnderTheDragIsLeftAlone) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Press(452, 107);
  Channel(0).resize(1);
  Move(341, 107);
  EXPECT_EQ(Told(0), "08:00 0");
  Release();
  EXPECT_EQ(NewLog(), "");
}

TEST_F(ChartDrag, BesideTheWindowADragGoesOnByTheCapture) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  user.DragOnChart(452, 107, 453, -300);
  EXPECT_EQ(Channel(0)[1].value, 100.0F);
  EXPECT_EQ(UndoDepth(), 1);
}

// The history

TEST_F(ChartDrag, ADragIsOneUndo) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Press(452, 107);
  for (int x = 452; x < 700; ++x) Move(x, 107);
  Release();
  EXPECT_EQ(UndoDepth(), 1);
  user.Choose(command::kUndo);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

TEST_F(ChartDrag, AClickOnAStepWithoutMovingLeavesThePendingSnapshotUncommitted) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  user.ClickChart(452, 107);
  EXPECT_EQ(UndoDepth(), 0);
  // The copy stays: what a later gesture enters goes back behind the command between them, too.
  user.SendCommand(command::kEndpointStart);  // commits it
  user.ClickChart(452, 107);
  user.SendCommand(command::kChannelColor);
  const std::uint32_t colored = Program().channelInfos[0].color;
  user.DragOnChart(452, 107, 600, 107);
  user.Choose(command::kUndo);
  EXPECT_NE(Program().channelInfos[0].color, colored);
}

TEST_F(ChartDrag, EditThenUndoThenRedoOfADrag) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  user.DragOnChart(452, 107, 341, 107);
  user.Choose(command::kUndo);
  user.Choose(command::kRedo);
  EXPECT_EQ(Told(0), "08:00 0, 08:59 50, 20:00 0");
}

}  // namespace
