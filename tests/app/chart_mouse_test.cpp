// The mouse on the chart: selecting, dragging and adding steps, to the pixel.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "app/menu_table.h"
#include "app/numbers.h"
#include "devices/demo_state.h"
#include "localisation/translation_store.h"
#include "program/optimize.h"
#include "tests/app/chart_test.h"
#include "tests/support/virtual_clock.h"

namespace {

using program_test::GivenModeOfMergedSteps;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
namespace command = app::command;

const std::string kHints =
    "Hint: Press DELETE or BACKSPACE to remove the selected step.\n"
    "Hint: You can also use keyboard ARROWS to move the step with higher accuracy.\n";

class ChartMouse : public ChartTest {
 protected:
  // A mode of that many merged steps, in lanes that leave 18:00 and later free; lane 0 enlarged and selected.
  void GivenMergedSteps(int count) {
    GivenChannels({});
    Mode().channels = GivenModeOfMergedSteps(count, 10).channels;
    RenumberSteps(Mode());
    GivenSelection(0, -1);
    GivenFocusOn(0);
  }
};

// Hints

class ChartHints : public ChartMouse {
 protected:
  void SetUp() override {
    ChartMouse::SetUp();
    TranslationStore::Instance().StartWith(kGermanHints);
    GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
    GivenSelection(0, 1);
  }
  /// By its command: the menu knows the languages of the start.
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
  EXPECT_EQ(user.GetDesktop().logPane.ColorAt(text.find(u"You have added")), 255U);
}

// Dragging

TEST_F(ChartMouse, ADragSetsTimeAndValue) {
  GivenStepsInLane0("08:00 0, 12:00 50 J, 20:00 0");
  Press(452, 107);
  Move(341, 58);
  EXPECT_EQ(Channel(0)[1].hour, 8);
  EXPECT_EQ(Channel(0)[1].minute, 59) << "08:59:11: seconds are dropped";
  EXPECT_FLOAT_EQ(Channel(0)[1].value, 146.0F / 1.94F) << "not rounded";
  EXPECT_TRUE(Channel(0)[1].jump) << "the jump stays";
}

TEST_F(ChartMouse, AMovePaintsTheLaneOnce) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Press(452, 107);
  Invalidated();
  Move(453, 107);
  EXPECT_THAT(Invalidated(), ElementsAre(UX::Rect{1, -3, 902, 220}));
}

TEST_F(ChartMouse, ValuesStopAtTheLanesEdges) {
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

TEST_F(ChartMouse, ADragLeftOfTheDayFreezesTheStepCompletelyUntilThePointerReturns) {
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

TEST_F(ChartMouse, AStepDraggedPastTheRightEdgeOfAZoomedViewStopsAtItsLastSecond) {
  GivenStepsInLane0("08:00 0, 11:00 50, 20:00 0");
  GivenView(10, 12);
  Press(452, 107);
  ASSERT_EQ(Selected(), Place(0, 1));
  Move(900, 107);
  EXPECT_EQ(Told(0), "08:00 0, 11:59 50, 20:00 0") << "11:59:59, the seconds dropped again";
  Move(4, 107);
  EXPECT_EQ(Told(0), "08:00 0, 10:00 50, 20:00 0");
}

TEST_F(ChartMouse, AViewThatBeginsWithinAMinuteLetsTheStepGoToThatMinute) {
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

TEST_F(ChartMouse, DraggedOverItsNeighboursAStepIsSortedInAndStaysSelected) {
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

TEST_F(ChartMouse, TwoStepsDraggedToOneMinuteStayTwoUntilOneIsDeletedWhichRemovesBoth) {
  GivenStepsInLane0("08:00 0, 12:00 50, 18:00 0, 20:00 0");
  user.DragOnChart(673, 204, 452, 10);  // 18:00 to the minute of the other, far from it
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 12:00 100, 20:00 0");
  EXPECT_EQ(Selected(), Place(0, 2));
  user.PressKey(app::key::kDelete);
  EXPECT_EQ(Told(0), "08:00 0, 20:00 0");
  EXPECT_THAT(NewLog(), HasSubstr("Step deleted. Current number of steps: 2\n"));
}

TEST_F(ChartMouse, TheReleaseSaysTheStepAndGivesEachHintOnceInARun) {
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

TEST_F(ChartMouse, TheReleaseShowsPowerAndDescription) {
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

TEST_F(ChartMouse, TheReleaseBringsTheModeWithinTheLimit) {
  GivenMergedSteps(60);
  // 00:00 and its value are those of GivenModeOfMergedSteps' first step.
  const UX::Rect lane = Layout().LaneRect(0);
  Press(UX::TimeToX(lane, Program(), Channel(0)[0]), UX::PercentToY(lane, Channel(0)[0].value));
  ASSERT_EQ(Selected(), Place(0, 0));
  Release();
  EXPECT_EQ(CountModeSteps(Mode()), 48);
  EXPECT_THAT(NewLog(), HasSubstr("has more than 48 steps, optimizing..."));
}

TEST_F(ChartMouse, AReleaseWithoutAPressDoesNothingButShow) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  GivenSelection(0, 1);
  Release();
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(ChartMouse, AMoveWithoutAPressMovesNoStep) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  GivenSelection(0, 1);
  Move(452, 107);
  Move(600, 10);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

TEST_F(ChartMouse, ADragThatLosesTheCaptureIsReleased) {
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

TEST_F(ChartMouse, TheReleaseGivesTheCaptureBackAndIsNoSecondRelease) {
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

TEST_F(ChartMouse, ALostCaptureIsNotTakenFromItsNewOwner) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Press(452, 107);
  Chart().OnCaptureLost();
  EXPECT_TRUE(IsCaptured()) << "by somebody else";
  Move(341, 107);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

// A seek takes no capture, so its release may come down beside the chart.
TEST_F(ChartMouse, AReleaseBesideTheChartDuringADemoIsMadeUpForByTheNextMove) {
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

TEST_F(ChartMouse, AReleaseBesideTheChartDuringADemoEndsTheSeek) {
  GivenDemoAt(600);
  user.MoveMouse(300, 107);
  user.HoldButton();
  user.MoveMouse(300, -20);
  user.ReleaseButton();
  TCBase::TakeCommand();
  user.MoveMouse(400, 107);
  EXPECT_EQ(TCBase::TakeCommand(), nullptr);
}

TEST_F(ChartMouse, ASeekWhoseDemoEndsUnderItGoesOnAsADragThatCanBeUndone) {
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

TEST_F(ChartMouse, ASelectionThatWentStaleUnderTheDragIsLeftAlone) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Press(452, 107);
  Channel(0).resize(1);
  Move(341, 107);
  EXPECT_EQ(Told(0), "08:00 0");
  Release();
  EXPECT_EQ(NewLog(), "");
}

TEST_F(ChartMouse, BesideTheWindowADragGoesOnByTheCapture) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  user.DragOnChart(452, 107, 453, -300);
  EXPECT_EQ(Channel(0)[1].value, 100.0F);
  EXPECT_EQ(UndoDepth(), 1);
}

// The history

TEST_F(ChartMouse, ADragIsOneUndo) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  Press(452, 107);
  for (int x = 452; x < 700; ++x) Move(x, 107);
  Release();
  EXPECT_EQ(UndoDepth(), 1);
  user.Choose(command::kUndo);
  EXPECT_EQ(Told(0), "08:00 0, 12:00 50, 20:00 0");
}

TEST_F(ChartMouse, AClickOnAStepWithoutMovingLeavesThePendingSnapshotUncommitted) {
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

TEST_F(ChartMouse, EditThenUndoThenRedoOfADrag) {
  GivenStepsInLane0("08:00 0, 12:00 50, 20:00 0");
  user.DragOnChart(452, 107, 341, 107);
  user.Choose(command::kUndo);
  user.Choose(command::kRedo);
  EXPECT_EQ(Told(0), "08:00 0, 08:59 50, 20:00 0");
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
