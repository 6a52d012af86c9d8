// The events of the two windows, row by row.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/main_window.h"
#include "chart/bumper.h"
#include "common/log.h"
#include "common/message.h"
#include "tests/app/app_test.h"
#include "tests/support/virtual_clock.h"

namespace {

using app::Control;
using app::Outcome;
using app::SizeKind;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using UX::Rect;

class Routing : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
    user.State().idleTimer.Stop();
    Desk().controls.moved.clear();
    Desk().chart.invalidated.clear();
  }

  headless::Desktop& Desk() { return user.GetDesktop(); }
  app::MainWindow& Main() { return Desk().application->mainWindow; }
  app::ChartWindow& Chart() { return Desk().application->chartWindow; }
  // The event has told that somebody is there.
  bool HasWoken() { return !user.State().idleTimer.IsFrozen(); }
  std::vector<Rect>& Invalidated() { return Desk().chart.invalidated; }

  const Rect wholeChart_{0, 0, 904, 602};
};

TEST_F(Routing, DestroyStopsTheTimerAndPostsQuit) {
  EXPECT_EQ(Main().OnDestroy(), Outcome::Default);
  EXPECT_THAT(NewJournal(), ElementsAre("stop timer 300", "quit 0"));
}

TEST_F(Routing, RestoredAndMaximisedLayOutAnew) {
  for (const SizeKind kind : {SizeKind::Restored, SizeKind::Maximized}) {
    user.State().idleTimer.Stop();
    Desk().size.width += 100;
    Desk().controls.moved.clear();
    EXPECT_EQ(Main().OnSize(kind), Outcome::Default);
    EXPECT_TRUE(HasWoken());
    EXPECT_EQ(user.State().chartLayout.clientRect.width, Desk().size.width);
    EXPECT_EQ(Desk().controls.moved.size(), 15U);
    EXPECT_THAT(NewJournal(), ElementsAre("renderer: rebuild"));
  }
}

TEST_F(Routing, EverythingMovesButTheThreeControlsAtTheTopLeft) {
  user.Maximize();
  EXPECT_THAT(Desk().controls.moved, Not(Contains(Control::ModeList)));
  EXPECT_THAT(Desk().controls.moved, Not(Contains(Control::AddModeButton)));
  EXPECT_THAT(Desk().controls.moved, Not(Contains(Control::DeleteModeButton)));
  EXPECT_EQ(Desk().controls.moved.size(), 15U);
  user.Restore();
  EXPECT_EQ(Desk().controls.moved.size(), 30U);
}

TEST_F(Routing, MinimisingLeavesLayoutAndControlsAsTheyWere) {
  const Rect before = user.State().chartLayout.clientRect;
  Desk().size = {0, 0};
  EXPECT_EQ(Main().OnSize(SizeKind::Minimized), Outcome::Default);
  EXPECT_TRUE(HasWoken());
  EXPECT_EQ(user.State().chartLayout.clientRect, before);
  EXPECT_THAT(Desk().controls.moved, IsEmpty());
  EXPECT_THAT(NewJournal(), IsEmpty());
}

TEST_F(Routing, PaintingPutsTheLogoAtTheRight) {
  Desk().size = {1200, 800};
  EXPECT_EQ(Main().OnPaint(), Outcome::Default);
  EXPECT_EQ(Desk().logo, (Rect{934, 690, 256, 100}));
  EXPECT_EQ(user.State().chartLayout.clientRect, (Rect{0, 0, 1200, 800}));
  EXPECT_FALSE(HasWoken());
}

TEST_F(Routing, CloseDestroysAnUnchangedProgram) {
  EXPECT_EQ(Main().OnClose(), Outcome::Done);
  EXPECT_THAT(NewJournal(), ElementsAre("destroy", "stop timer 300", "quit 0"));
}

TEST_F(Routing, CommandsAreCarriedOut) {
  EXPECT_EQ(Main().OnCommand(app::command::kZoomIn, 1), Outcome::Done);
  EXPECT_EQ(Program().viewEnd - Program().viewStart, 23 * 3600);
}

TEST_F(Routing, TheTimerDoesNothingWithoutADemoWhileNothingMoves) {
  user.Wait(1.0);
  Invalidated().clear();
  EXPECT_EQ(Main().OnTimer(300), Outcome::Done);
  EXPECT_THAT(Invalidated(), IsEmpty());
}

TEST_F(Routing, TheTimerShowsARunningDemo) {
  GivenDemoAt(3725);
  EXPECT_EQ(Main().OnTimer(300), Outcome::Done);
  EXPECT_THAT(Invalidated(), ElementsAre(wholeChart_));
  EXPECT_EQ(user.Text(Control::TimeLabel), "01:02:05");
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Playing");
}

TEST_F(Routing, OtherTimersAreNotOurs) {
  GivenDemoAt(0);
  EXPECT_EQ(Main().OnTimer(301), Outcome::Default);
  EXPECT_THAT(Invalidated(), IsEmpty());
}

TEST_F(Routing, ScrollingOfOtherControlsDoesNothing) {
  const auto before = Program();
  EXPECT_EQ(Main().OnHorizontalScroll(Control::LogPane, app::scroll::kLineForward, 0), Outcome::Done);
  EXPECT_EQ(Program().viewStart, before.viewStart);
  EXPECT_THAT(Invalidated(), IsEmpty());
}

TEST_F(Routing, AMenuIsBroughtUpToDateBeforeItOpens) {
  GivenDemoAt(0);
  EXPECT_EQ(Main().OnInitMenuPopup(), Outcome::Default);
  EXPECT_FALSE(Desk().menu.IsEnabled(app::command::kUploadProgram));
  EXPECT_THAT(NewJournal(), IsEmpty()) << "without painting the bar";
}

TEST_F(Routing, AClickOnTheBackgroundStopsTheIdleTimerAndClearsTheFocus) {
  user.State().idleTimer.Restart(5.0);
  user.State().chartLayout.FocusLane(2);
  EXPECT_EQ(Main().OnLeftButtonDown(), Outcome::Default);
  EXPECT_TRUE(user.State().idleTimer.IsFrozen());
  EXPECT_EQ(user.State().idleTimer.Now(), 0.0);
  EXPECT_EQ(user.State().chartLayout.focusedLane, -1);
  EXPECT_THAT(Invalidated(), ElementsAre(wholeChart_));
}

TEST_F(Routing, AfterAClickOnTheBackgroundOnlyTheChartRestartsTheTimer) {
  user.ClickBackground();
  user.SendCommand(app::command::kProgramInfo);
  EXPECT_FALSE(HasWoken());
  Chart().OnMouseMove(5, 5, false);
  EXPECT_TRUE(HasWoken());
}

TEST_F(Routing, SizingMovesNowOnSinceTheMainLoopStandsStill) {
  user.State().now = -1.0;
  EXPECT_EQ(Main().OnSizing(), Outcome::Done);
  EXPECT_GE(user.State().now, 0.5);
  EXPECT_TRUE(HasWoken());
}

TEST_F(Routing, TheEndOfSizingRebuildsTheChart) {
  EXPECT_EQ(Main().OnExitSizeMove(), Outcome::Default);
  EXPECT_TRUE(HasWoken());
  EXPECT_THAT(NewJournal(), ElementsAre("renderer: rebuild"));
  EXPECT_THAT(Invalidated(), ElementsAre(wholeChart_));
}

TEST_F(Routing, ALogBatchShowsItsStatusLinesFirst) {
  statusLog.wakeHandler = nullptr;
  warningLog.wakeHandler = nullptr;
  LogWarning("careful");
  LogPlain("one");
  LogPlain("two");
  EXPECT_EQ(Main().OnEvent(app::WM_LOG_PENDING, 0, 0), Outcome::Done);
  EXPECT_EQ(NewLog(), "one\ntwo\ncareful\n");
}

TEST_F(Routing, NewsOfDevicesBringTheWorkersList) {
  for (const std::uint32_t event : {app::WM_SCAN_FINISHED, app::WM_DEVICES_CHANGED}) {
    GivenDevices({"old"});
    EXPECT_EQ(Main().OnEvent(event, 0, 1), Outcome::Done);
    EXPECT_THAT(user.List(Control::DeviceList), IsEmpty()) << "the worker knows of none";
  }
}

TEST_F(Routing, TheDemosDisplayGoesBackToRest) {
  GivenDemoAt(7200, TCBase::StatePaused);
  Main().OnTimer(300);
  ASSERT_EQ(user.Text(Control::DemoStatusLabel), "Paused");
  Invalidated().clear();
  NewJournal();
  // Whatever the record says: the display is that of a fresh one.
  EXPECT_EQ(Main().OnEvent(app::WM_DEMO_STATE, 0, 0), Outcome::Done);
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (60s)");
  EXPECT_EQ(user.Text(Control::TimeLabel), "00:00:00");
  EXPECT_EQ(user.Text(Control::PowerLabel), "0 0 0 0 0");
  EXPECT_TRUE(Desk().menu.IsEnabled(app::command::kUploadProgram));
  EXPECT_THAT(NewJournal(), ElementsAre("redraw menu"));
  EXPECT_THAT(Invalidated(), ElementsAre(wholeChart_));
}

TEST_F(Routing, OtherEventsAreNotOurs) {
  EXPECT_EQ(Main().OnEvent(1023, 0, 0), Outcome::Default);
  EXPECT_EQ(Main().OnEvent(1028, 0, 0), Outcome::Default);
}

TEST_F(Routing, AChartThatIsPaintedIsDrawn) {
  const int before = Desk().Renderer().frames;
  Chart().OnPaint();
  EXPECT_EQ(Desk().Renderer().frames, before + 1);
  EXPECT_FALSE(HasWoken());
}

TEST_F(Routing, InputOnTheChartWakesTheDrawing) {
  const std::vector<std::pair<const char*, std::function<void()>>> events = {
      {"mouse move", [this] { Chart().OnMouseMove(300, 5, false); }},
      {"left down", [this] { Chart().OnLeftDown(300, 5); }},
      {"left up", [this] { Chart().OnLeftUp(300, 5); }},
      {"right down", [this] { Chart().OnRightDown(300, 5); }},
      {"right up", [this] { Chart().OnRightUp(300, 5); }},
      {"wheel", [this] { Chart().OnWheel(300, 5, 120, false, true, true); }},
      {"key down", [this] { Chart().OnKeyDown(0); }},
      {"key up", [this] { Chart().OnKeyUp(0); }},
  };
  for (const auto& [name, send] : events) {
    user.State().idleTimer.Stop();
    send();
    EXPECT_TRUE(HasWoken()) << name;
  }
}

TEST_F(Routing, TheRendererFollowsTheMouse) {
  Chart().OnMouseMove(300, 200, false);
  EXPECT_EQ(Desk().Renderer().mouse, (std::pair<std::int32_t, std::int32_t>{300, 200}));
}

TEST_F(Routing, AKeyMovesThePowerSlider) {
  GivenSteps(1, {{480, 40.0F}, {600, 10.0F}});
  GivenSelection(1, 0);
  Chart().OnKeyDown(app::key::kUp);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), 41);
}

TEST_F(Routing, EveryKeyReleaseRewritesTheModeDescription) {
  Mode().name = "Renamed";
  Chart().OnKeyUp(app::key::kF1);
  EXPECT_THAT(user.Text(Control::ModeDescription), testing::HasSubstr("Renamed"));
}

TEST_F(Routing, OnlyEditingKeysEndAGesture) {
  GivenSteps(1, {{480, 40.0F}, {600, 10.0F}});
  GivenSelection(1, 0);
  Chart().OnKeyDown(app::key::kUp);
  Chart().OnKeyDown(app::key::kUp);
  Chart().OnKeyUp(app::key::kSpace);
  EXPECT_EQ(UndoDepth(), 0);
  Chart().OnKeyUp(app::key::kUp);
  EXPECT_EQ(UndoDepth(), 1) << "a held key is one entry";
}

TEST_F(Routing, DeleteReachesTheChartAsACommandAndNotAsAKey) {
  for (const int key : {app::key::kDelete, app::key::kBackspace}) {
    GivenSteps(1, {{480, 40.0F}, {600, 10.0F}, {700, 0.0F}, {800, 0.0F}});
    GivenSelection(1, 0);
    Desk().focus = headless::Focus::Chart;
    user.PressKey(key);
    EXPECT_EQ(Channel(1).size(), 3U) << "once, not twice";
  }
}

TEST_F(Routing, AKeyReleaseCommitsWhatTheAcceleratorBegan) {
  GivenSteps(1, {{480, 40.0F}, {600, 10.0F}, {700, 0.0F}});
  GivenSelection(1, 0);
  Desk().focus = headless::Focus::Chart;
  user.PressKey(app::key::kDelete);
  EXPECT_EQ(UndoDepth(), 1);
}

}  // namespace
