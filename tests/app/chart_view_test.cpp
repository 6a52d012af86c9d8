// The wheel, the read-out and the demo's seek: what the mouse does to the view and to what is shown.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

#include "chart/bumper.h"
#include "program/demo_state.h"
#include "tests/app/chart_test.h"

namespace {

using app::Control;
using testing::ElementsAre;
using testing::IsEmpty;
namespace command = app::command;

class ChartView : public ChartTest {
 protected:
  void Turn(int x, int y, int delta, const app::WheelKeys& keys = {}) {
    Chart().OnWheel(x, y, delta, keys.shift, keys.ctrl, keys.other);
  }
  std::pair<int, int> View() { return {Program().viewStart, Program().viewEnd}; }
  // Where the demo was asked to go since the last call.
  std::optional<int> Sought() {
    const std::unique_ptr<TCBase::WorkerCommand> taken = user.State().demoState.TakeCommand();
    if (taken == nullptr || taken->type != TCBase::CommandSeek) return std::nullopt;
    return taken->second;
  }

  static constexpr app::WheelKeys kCtrl{false, true, false};
  static constexpr app::WheelKeys kShift{true, false, false};
};

using Span = std::pair<int, int>;

// The wheel

TEST_F(ChartView, CtrlAndTheWheelZoom) {
  Turn(450, 300, 120, kCtrl);
  EXPECT_EQ(View(), Span(0, 23 * 3600));
  Turn(450, 300, 1, kCtrl);
  EXPECT_EQ(View(), Span(0, 22 * 3600)) << "by the hour, whatever the count";
  Turn(450, 300, -120, kCtrl);
  EXPECT_EQ(View(), Span(0, 23 * 3600));
  Turn(450, 300, 0, kCtrl);
  EXPECT_EQ(View(), Span(0, 24 * 3600)) << "what is not positive zooms out";
}

TEST_F(ChartView, TheWheelMovesTheViewByFiveSecondsACount) {
  GivenView(10, 12);
  Turn(450, 300, 120);
  EXPECT_EQ(View(), Span(36600, 43800)) << "away from the user: later";
  Turn(450, 300, -240);
  EXPECT_EQ(View(), Span(35400, 42600));
  Turn(450, 300, 1);
  EXPECT_EQ(View(), Span(35405, 42605)) << "smooth wheels have small counts";
  Turn(450, 300, -32768);
  EXPECT_EQ(View(), Span(0, 7200));
  Turn(450, 300, 32767);
  EXPECT_EQ(View(), Span(79200, 86400));
}

TEST_F(ChartView, TheWheelBringsBarSliderAndChartUpToDate) {
  GivenView(10, 12);
  NewJournal();
  Turn(450, 300, 120);
  EXPECT_EQ(user.GetDesktop().controls.scrollBar, GetViewScrollInfo(Program()));
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 22);
  EXPECT_THAT(NewJournal(), ElementsAre("renderer: relayout"));
  EXPECT_THAT(Invalidated(), ElementsAre(kWholeChart));
  Turn(450, 300, -120, kCtrl);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 21);
}

TEST_F(ChartView, TheWheelWorksOverTheWholeChartAndNowhereElse) {
  struct {
    int x, y;
    bool inside;
  } const kPoints[] = {{0, 0, true},      {903, 601, true}, {-1, 300, false},
                       {904, 300, false}, {450, -1, false}, {450, 602, false}};
  for (const auto& point : kPoints) {
    GivenView(10, 12);
    Turn(point.x, point.y, 120);
    EXPECT_EQ(View() != Span(36000, 43200), point.inside) << point.x << " " << point.y;
    GivenView(10, 12);
    Turn(point.x, point.y, -120, kCtrl);
    EXPECT_EQ(View() != Span(36000, 43200), point.inside) << point.x << " " << point.y;
  }
}

TEST_F(ChartView, WithAnyOtherKeyTheWheelLeavesTheView) {
  GivenView(10, 12);
  for (const app::WheelKeys& keys : {app::WheelKeys{true, false, false}, app::WheelKeys{true, true, false},
                                     app::WheelKeys{false, false, true}, app::WheelKeys{false, true, true},
                                     app::WheelKeys{true, true, true}}) {
    Turn(450, 300, 120, keys);
    EXPECT_EQ(View(), Span(36000, 43200));
  }
  EXPECT_THAT(Invalidated(), IsEmpty());
}

TEST_F(ChartView, ShiftAndTheWheelScaleTheSelectedChannelWithoutAnEntry) {
  GivenChannels({"08:00 20, 12:00 50"});
  GivenSelection(0, -1);
  user.State().powerControl->Update();
  Turn(450, 300, 120, kShift);
  EXPECT_FLOAT_EQ(ChannelPower(Channel(0)), 51.0F);
  EXPECT_FLOAT_EQ(Channel(0)[0].value, 20.4F);
  EXPECT_THAT(Invalidated(), ElementsAre(kWholeChart));
  Turn(-5, 9999, -120, kShift);
  EXPECT_FLOAT_EQ(ChannelPower(Channel(0)), 50.0F) << "outside the chart as well";
  EXPECT_EQ(UndoDepth(), 0);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), 50) << "the slider does not follow";
}

TEST_F(ChartView, ShiftAndWheelOnAChannelAtHalfAPercentDownDoesNothingAndUpGivesOneAndAHalf) {
  GivenChannels({"08:00 0, 12:00 0.5"});
  GivenSelection(0, -1);
  Turn(450, 300, -120, kShift);
  EXPECT_FLOAT_EQ(ChannelPower(Channel(0)), 0.5F);
  EXPECT_THAT(Invalidated(), IsEmpty());
  Turn(450, 300, 120, kShift);
  EXPECT_FLOAT_EQ(ChannelPower(Channel(0)), 1.5F);
}

TEST_F(ChartView, ShiftAndTheWheelStopAbove99) {
  GivenChannels({"08:00 0, 12:00 99.5"});
  GivenSelection(0, -1);
  Turn(450, 300, 120, kShift);
  EXPECT_FLOAT_EQ(ChannelPower(Channel(0)), 99.5F);
  Turn(450, 300, -120, kShift);
  EXPECT_FLOAT_EQ(ChannelPower(Channel(0)), 98.5F);
}

TEST_F(ChartView, ShiftAndTheWheelNeedAChannel) {
  GivenChannels({"08:00 0, 12:00 50"});
  Turn(450, 300, 120, kShift);
  EXPECT_FLOAT_EQ(ChannelPower(Channel(0)), 50.0F);
  EXPECT_THAT(Invalidated(), IsEmpty());
}

// The read-out

TEST_F(ChartView, EachMoveShowsTimeAndPowerUnderTheMouse) {
  GivenChannels({"10:00 0, 12:00 100", "10:00 40.9"});
  Move(673, 300);  // 17:59:59
  EXPECT_EQ(user.Text(Control::TimeLabel), "17:59:00") << "to the minute";
  EXPECT_EQ(user.Text(Control::PowerLabel), "72 40 0 0 0");
  Move(452, 5);
  EXPECT_EQ(user.Text(Control::TimeLabel), "12:00:00");
  EXPECT_EQ(user.Text(Control::PowerLabel), "100 40 0 0 0");
}

TEST_F(ChartView, TheReadOutFollowsTheStepThatIsDragged) {
  GivenStepsInLane0("10:00 0, 12:00 50");
  Press(452, 107);
  Move(452, 10);
  EXPECT_EQ(user.Text(Control::PowerLabel), "100 0 0 0 0");
}

TEST_F(ChartView, BesideTheDayTheReadOutShowsItsEnds) {
  Move(0, 300);
  EXPECT_EQ(user.Text(Control::TimeLabel), "00:00:00");
  Move(903, 300);
  EXPECT_EQ(user.Text(Control::TimeLabel), "23:59:59");
}

TEST_F(ChartView, TheReadOutIsOffDuringADemo) {
  GivenDemoAt(3725);
  Move(452, 300);
  EXPECT_NE(user.Text(Control::TimeLabel), "12:00:00");
}

// Seeking

TEST_F(ChartView, APressDuringADemoSeeksToTheMinuteUnderIt) {
  GivenDemoAt(100);
  GivenStepsInLane0("10:00 0, 12:00 50");
  Press(673, 107);
  EXPECT_EQ(Sought(), 17 * 3600 + 59 * 60);
  EXPECT_THAT(Invalidated(), ElementsAre(kWholeChart));
  EXPECT_TRUE(ChartHasFocus());
  EXPECT_FALSE(IsCaptured());
  EXPECT_EQ(Selected(), Place(0, -1)) << "steps are not touched";
}

TEST_F(ChartView, ADragDuringADemoSeeksOn) {
  GivenDemoAt(100, TCBase::StatePaused);
  Press(452, 107);
  Sought();
  Move(453, 107);
  EXPECT_EQ(Sought(), 12 * 3600 + 60);
  Release();
  Move(500, 107);
  EXPECT_EQ(Sought(), std::nullopt);
  EXPECT_EQ(NewLog(), "");
}

TEST_F(ChartView, SeekWithThePointerLeftOfTheLanesGoesTo0000) {
  GivenDemoAt(40000);
  Press(3, 107);
  EXPECT_EQ(Sought(), 0);
  Move(900, 107);
  EXPECT_EQ(Sought(), 0) << "and right of the day as well";
}

TEST_F(ChartView, SeekFollowsTheView) {
  GivenDemoAt(100);
  GivenView(10, 12);
  Press(452, 107);
  EXPECT_EQ(Sought(), 11 * 3600);
  Press(3, 107);
  EXPECT_EQ(Sought(), 9 * 3600 + 59 * 60) << "left of the view, but of the day";
}

// What was held for the demo is let go of by the release only; until then the mouse has the selected step.
TEST_F(ChartView, ADemoThatEndsUnderTheMouseLeavesTheDragToTheSelectedStep) {
  GivenStepsInLane0("10:00 0, 12:00 50");
  GivenSelection(0, 1);
  GivenDemoAt(100);
  Press(600, 107);
  GivenDemoAt(-1);
  Move(673, 107);
  EXPECT_EQ(Told(0), "10:00 0, 17:59 50");
  Release();
  Move(452, 107);
  EXPECT_EQ(Told(0), "10:00 0, 17:59 50");
}

TEST_F(ChartView, DuringADemoTheRightButtonStillSelects) {
  GivenStepsInLane0("10:00 0, 12:00 50");
  GivenDemoAt(100);
  Chart().OnRightDown(452, 107);
  EXPECT_EQ(Selected(), Place(0, 1));
  EXPECT_EQ(Sought(), std::nullopt);
}

TEST_F(ChartView, CommandsOfTheViewRebuildAndWheelsOnlyRelayout) {
  user.SendCommand(command::kZoomIn);
  EXPECT_THAT(NewJournal(), testing::Contains("renderer: rebuild"));
  Turn(450, 300, 120);
  EXPECT_THAT(NewJournal(), ElementsAre("renderer: relayout"));
}

TEST_F(ChartView, TheLightStripIsACommandThatTheNextRunRemembers) {
  EXPECT_EQ(user.State().chartLayout.StripRect(), (Rect{}));
  user.SendCommand(command::kLightStrip);
  EXPECT_EQ(user.State().chartLayout.StripRect(), (Rect{10, 10, 884, 16}));
  EXPECT_THAT(NewJournal(), testing::Contains("renderer: rebuild"));
  user.Close();
  GivenTheProgramRuns();
  EXPECT_EQ(user.State().chartLayout.StripRect().height, 16);
  user.SendCommand(command::kLightStrip);
  EXPECT_EQ(user.State().chartLayout.StripRect(), (Rect{}));
  user.Close();
  GivenTheProgramRuns();
  EXPECT_EQ(user.State().chartLayout.StripRect(), (Rect{}));
}

}  // namespace
