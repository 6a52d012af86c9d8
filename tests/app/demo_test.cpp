// A demo from the window's end: play, pause, seek, resume, stop, the read-outs, and the way back to rest.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "app/handlers/demo_control.h"
#include "common/truncate.h"
#include "program/demo_state.h"
#include "program/view.h"
#include "tests/app/app_test.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/text_count.h"
#include "tests/support/virtual_clock.h"

namespace {

using app::Control;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
namespace command = app::command;

// A moment in a job at which the worker waits for the test.
class Gate {
 public:
  // The worker is past it before it goes.
  ~Gate() {
    const virtual_clock::Waiting waiting;
    open_ = true;
    while (reached_ && !passed_) std::this_thread::yield();
  }
  void WaitAtGate() {
    const virtual_clock::Waiting waiting;
    reached_ = true;
    while (!open_) std::this_thread::yield();
    passed_ = true;
  }
  void WaitUntilReached() const {
    const virtual_clock::Waiting waiting;
    while (!reached_) std::this_thread::yield();
  }
  void Open() { open_ = true; }

 private:
  std::atomic<bool> reached_{false};
  std::atomic<bool> open_{false};
  std::atomic<bool> passed_{false};
};

class DemoControl : public AppTest {
 protected:
  TCBase::DemoState& Demo() { return user.State().demoState; }
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
  }

  headless::Desktop& Desk() { return user.GetDesktop(); }
  void GivenTheEmulator(int seconds) {
    user.Choose(command::kAddEmulator);
    user.GetSettings().SetDemoSpeed(seconds);
    NewLog();
  }
  void GivenARunningDemo(int seconds) {
    GivenTheEmulator(seconds);
    user.Press(Control::PlayButton);
    ASSERT_TRUE(WaitUntil([this] { return user.Text(Control::DemoStatusLabel) == "Playing"; }));
  }
  // Gives a command for the worker, and has something done on its thread at that moment of its work. Until
  // then nobody but the worker lets time pass.
  void Start(int command, double seconds, std::function<void()> action) {
    Gate gate;
    user.State().worker.AddJob([&gate] { gate.WaitAtGate(); });
    gate.WaitUntilReached();
    virtual_clock::At(virtual_clock::Seconds() + seconds, std::move(action));
    Desk().application->mainWindow.OnCommand(command, 0);
    gate.Open();
  }
  bool WaitForState(TCBase::DemoPlayState state) {
    return WaitUntil([this, state] { return Demo().state == state && Demo().position >= 0; });
  }
  // Until the display has come back. For a moment before that the status and the time of a demo that has just
  // ended read like those at rest, while the power is still that of its last frame.
  bool WaitForRest() {
    return WaitUntil([this] {
      return user.Text(Control::DemoStatusLabel).starts_with("Ready") &&
             user.Text(Control::TimeLabel) == "00:00:00" && user.Text(Control::PowerLabel) == "0 0 0 0 0";
    });
  }
  // So that its return can be seen.
  void ForgetTheStatus() { Desk().controls.SetText(Control::DemoStatusLabel, u"of before"); }
  // "0 12 80 0 5": the current mode at a second of the day.
  std::string PowerAt(int second) {
    std::string text;
    for (const auto& channel : Mode().channels) {
      if (!text.empty()) text += ' ';
      text += std::to_string(TruncateToInt(ChannelValueAt(channel, second)));
    }
    return text;
  }
  // What the labels say of a demo that is paused.
  void ExpectReadOutsOfTheCurve() {
    user.Wait(0.5);  // a frame has gone out since, and the timer has come
    const int position = Demo().position;
    EXPECT_EQ(user.Text(Control::TimeLabel), TCBase::Program::TimeTextWithSeconds(position));
    EXPECT_EQ(user.Text(Control::PowerLabel), PowerAt(position));
  }
  void ExpectEditing(bool enabled) {
    for (const Control control : {Control::ModeList, Control::AddModeButton, Control::DeleteModeButton}) {
      EXPECT_EQ(user.IsEnabled(control), enabled);
    }
    for (const int number : {command::kUploadProgram, command::kUndo, command::kSpeedSlow, command::kAlign60,
                             command::kCopySteps}) {
      EXPECT_EQ(user.MenuItem(number).enabled, enabled) << number;
    }
    EXPECT_EQ(user.MenuItem(command::kStopDemo).enabled, !enabled);
  }
};

// Noon, with the whole day in view.
constexpr int kNoon = 43200;
constexpr int kXOfNoon = 452;

TEST_F(DemoControl, PlaysPausesSeeksResumesAndStops) {
  const auto before = Program();
  GivenARunningDemo(86400);
  EXPECT_EQ(user.Text(Control::PlayButton), " ▌ ▌");
  ExpectEditing(false);

  user.Press(Control::PlayButton);
  ASSERT_TRUE(WaitForState(TCBase::StatePaused));
  ExpectReadOutsOfTheCurve();
  EXPECT_EQ(user.Text(Control::PlayButton), "▶");
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Paused");
  ExpectEditing(false);
  const int paused = Demo().position;
  user.Wait(5.0);
  EXPECT_EQ(Demo().position, paused);

  user.ClickChart(kXOfNoon, 20);
  // To the minute, and there it stays: a seek works in the paused state as well.
  ASSERT_TRUE(WaitUntil([this] { return std::abs(Demo().position - kNoon) <= 60; }));
  ExpectReadOutsOfTheCurve();
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Paused");
  EXPECT_EQ(user.Text(Control::PowerLabel), "50 50 50 50 30");

  user.PressKey(app::key::kSpace);
  ASSERT_TRUE(WaitUntil([this] { return Demo().position > kNoon + 90; }))
      << "farther than the seek may be off";
  EXPECT_EQ(Demo().state, TCBase::StatePlaying);
  user.PressKey(app::key::kSpace);
  ASSERT_TRUE(WaitForState(TCBase::StatePaused));
  ExpectReadOutsOfTheCurve();
  EXPECT_THAT(NewLog(), HasSubstr("Demo playback resumed\nDemo playback paused at 12:"));

  user.Press(Control::StopButton);
  ASSERT_TRUE(WaitForRest());
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (86400s)");
  EXPECT_EQ(user.Text(Control::PlayButton), "▶");
  EXPECT_EQ(user.Text(Control::TimeLabel), "00:00:00");
  EXPECT_EQ(user.Text(Control::PowerLabel), "0 0 0 0 0");
  EXPECT_EQ(Demo().position, -1);
  ExpectEditing(true);
  EXPECT_THAT(NewLog(), HasSubstr("Demo finished\n"));
  EXPECT_TRUE(Program() == before) << "a click on the chart seeks and edits nothing";
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(DemoControl, APlayedDayEndsByItself) {
  GivenTheEmulator(10);
  ForgetTheStatus();
  user.Press(Control::PlayButton);
  ASSERT_TRUE(user.WaitForLog("Finished configuring device TC420_Emulator"));
  ASSERT_TRUE(WaitForRest());
  EXPECT_EQ(NewLog(),
            "Configuring device TC420_Emulator\nDemo started\nPlaying whole day in 10 seconds\nDemo "
            "finished\nFinished configuring device TC420_Emulator\n");
  ExpectEditing(true);
  EXPECT_EQ(user.Text(Control::TimeLabel), "00:00:00");
}

TEST_F(DemoControl, WithoutATickedDeviceTheReadOutsComeBackToo) {
  ForgetTheStatus();
  user.Press(Control::PlayButton);
  ASSERT_TRUE(WaitForRest());
  ExpectEditing(true);
}

TEST_F(DemoControl, WithNoDeviceToConnectTheReadOutsComeBack) {
  GivenDevices({"TC420*"}, TCBase::ModelTC420);
  ForgetTheStatus();
  user.Press(Control::PlayButton);
  ASSERT_TRUE(user.WaitForLog("Connect error"));
  ASSERT_TRUE(WaitForRest());
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (60s)");
  ExpectEditing(true);
}

TEST_F(DemoControl, TheDisplayComesToRestHalfASecondAfterTheEnd) {
  struct Window final : EventTarget {
    void Post(std::uint32_t event, std::uintptr_t, std::intptr_t) override {
      EXPECT_EQ(event, app::WM_DEMO_STATE);
      posted = virtual_clock::Seconds();
    }
    double posted = 0.0;
  } window;
  Gate gate;
  user.State().worker.AddJob([&gate] { gate.WaitAtGate(); });  // lets no time pass
  gate.WaitUntilReached();
  const double before = virtual_clock::Seconds();
  app::NotifyDemoIdle(window);
  EXPECT_DOUBLE_EQ(window.posted, before + 0.5);
  gate.Open();
}

TEST_F(DemoControl, APressBeforeTheWorkersTurnQueuesASecondDemo) {
  GivenTheEmulator(10);
  Gate gate;
  user.State().worker.AddJob([&gate] { gate.WaitAtGate(); });
  gate.WaitUntilReached();
  user.Press(Control::PlayButton);
  user.Press(Control::PlayButton);
  EXPECT_EQ(Demo().state, TCBase::StateIdle);
  EXPECT_EQ(Demo().TakeCommand(), nullptr) << "neither pause nor resume";
  gate.Open();
  std::atomic<bool> done{false};
  user.State().worker.AddJob([&done] { done = true; });
  ASSERT_TRUE(WaitUntil([&done] { return done.load(); }));
  const std::string log = NewLog();
  EXPECT_EQ(CountOf(log, "Demo started\n"), 2);
  EXPECT_EQ(CountOf(log, "Demo finished\n"), 2) << "the second runs behind the first, to its end";
}

TEST_F(DemoControl, BetweenThePressAndTheWorkersTurnTheChartStillEdits) {
  user.Wait(1.0);  // nothing moves any more
  GivenTheEmulator(10);
  Gate gate;
  user.State().worker.AddJob([&gate] { gate.WaitAtGate(); });
  gate.WaitUntilReached();
  user.Press(Control::PlayButton);
  EXPECT_FALSE(Desk().menu.IsEnabled(command::kUploadProgram)) << "the menu is greyed already";
  const std::string time = user.Text(Control::TimeLabel);
  Desk().chart.invalidated.clear();
  Desk().application->mainWindow.OnTimer(app::kDemoTimer);
  EXPECT_THAT(Desk().chart.invalidated, IsEmpty());
  EXPECT_EQ(user.Text(Control::TimeLabel), time);
  EXPECT_TRUE(user.IsEnabled(Control::ModeList));
  user.ClickChart(kXOfNoon, 20);
  EXPECT_EQ(user.State().selection.channel, 0);
  EXPECT_EQ(Demo().TakeCommand(), nullptr) << "no seek";
  gate.Open();
}

// Before the worker has got to it.
TEST_F(DemoControl, StopBringsTheMenuBackAtOnce) {
  GivenDemoAt(kNoon);
  Desk().application->mainWindow.OnInitMenuPopup();
  ASSERT_FALSE(Desk().menu.IsEnabled(command::kUploadProgram));
  ASSERT_TRUE(Desk().menu.IsEnabled(command::kStopDemo));
  NewJournal();
  Desk().application->mainWindow.OnCommand(command::kStopDemo, 0);
  EXPECT_TRUE(Desk().menu.IsEnabled(command::kUploadProgram));
  EXPECT_FALSE(Desk().menu.IsEnabled(command::kStopDemo));
  EXPECT_THAT(NewJournal(), testing::ElementsAre("redraw menu"));
  GivenDemoAt(-1);
}

TEST_F(DemoControl, StopLeavesThePausedStateAtOnce) {
  GivenARunningDemo(86400);
  user.Press(Control::PlayButton);
  ASSERT_TRUE(WaitForState(TCBase::StatePaused));
  user.Press(Control::StopButton);
  ASSERT_TRUE(WaitForRest());
  EXPECT_EQ(Demo().position, -1);
}

TEST_F(DemoControl, StopInTheHalfSecondAfterTheEndHarmsNothing) {
  GivenTheEmulator(10);
  Gate gate;
  bool wasOver = false;
  Start(command::kPlayDemo, 10.4, [&] {
    wasOver = Demo().position < 0;
    gate.WaitAtGate();
  });
  gate.WaitUntilReached();
  EXPECT_TRUE(wasOver);
  ForgetTheStatus();
  Desk().application->mainWindow.OnCommand(command::kStopDemo, 0);
  gate.Open();
  ASSERT_TRUE(WaitForRest());
  ExpectEditing(true);
  EXPECT_EQ(CountOf(user.Log(), "Demo finished\r\n"), 1);

  Desk().application->mainWindow.OnCommand(command::kPlayDemo, 0);
  ASSERT_TRUE(WaitUntil([this] { return CountOf(user.Log(), "Demo finished\r\n") == 2; }));
  EXPECT_GE(virtual_clock::Seconds(), 20.0) << "the stale stop was cleared: the next demo plays to its end";
}

TEST_F(DemoControl, ADemoKeepsTheSpeedItWasStartedWith) {
  GivenTheEmulator(10);
  ForgetTheStatus();
  user.Press(Control::PlayButton);
  user.GetSettings().SetDemoSpeed(86400);
  ASSERT_TRUE(user.WaitForLog("Demo finished"));
  EXPECT_THAT(NewLog(), HasSubstr("Playing whole day in 10 seconds"));
  ASSERT_TRUE(WaitForRest());
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (86400s)");
}

TEST_F(DemoControl, ADemoPlaysTheProgramAsItWasAtThePress) {
  user.ClickRow(Control::ModeList, 1);  // full light all day
  GivenTheEmulator(86400);
  user.Press(Control::PlayButton);
  for (auto& channel : Mode().channels) channel.clear();
  EXPECT_TRUE(WaitUntil([this] {
    return Demo().Step().values == std::array<std::int32_t, 5>{100, 100, 100, 100, 100};
  }));
  user.Press(Control::StopButton);
  EXPECT_TRUE(WaitForRest());
}

TEST_F(DemoControl, SavingStaysPossible) {
  const std::filesystem::path file = folder / "saved.xml";
  GivenARunningDemo(86400);
  user.WillPick({file});
  EXPECT_TRUE(user.Choose(command::kSaveProgram));
  EXPECT_TRUE(std::filesystem::exists(file));
  Desk().menu.openedAtChart.reset();
  user.RightClickChart(kXOfNoon, 20);
  EXPECT_FALSE(Desk().menu.openedAtChart) << "but the chart's menu does not open";
  user.Press(Control::StopButton);
  ASSERT_TRUE(WaitForRest());
}

TEST_F(DemoControl, TheSpeedIsShownOnlyAfterItsHalfSecond) {
  const std::string before = user.Text(Control::DemoStatusLabel);
  const double time = virtual_clock::Seconds();
  Desk().application->mainWindow.OnCommand(command::kSpeedSlow, 0);
  EXPECT_GT(virtual_clock::Seconds() - time, 0.499) << "the window waits meanwhile";
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), before);
  user.Settle();
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (300s)");
}

TEST_F(DemoControl, TheMouseReadsTheChartOnlyAtRest) {
  user.MoveMouse(kXOfNoon, 20);
  EXPECT_THAT(user.Text(Control::TimeLabel), testing::StartsWith("12:"));
  EXPECT_THAT(user.Text(Control::TimeLabel), EndsWith(":00")) << "the mouse points to minutes";
  GivenDemoAt(3725, TCBase::StatePaused);
  Desk().application->mainWindow.OnTimer(app::kDemoTimer);
  EXPECT_EQ(user.Text(Control::TimeLabel), "01:02:05");
  user.MoveMouse(kXOfNoon, 25);
  EXPECT_EQ(user.Text(Control::TimeLabel), "01:02:05");
  GivenDemoAt(-1);
}

TEST_F(DemoControl, TheFirstTextsOfTheLabelsNeverReturn) {
  EXPECT_EQ(app::RowOf(Control::TimeLabel).text, "0:00");
  EXPECT_EQ(app::RowOf(Control::PowerLabel).text, "[0 0 0 0 0]");
  EXPECT_EQ(app::RowOf(Control::DemoStatusLabel).text, "Demo controls");
  EXPECT_EQ(user.Text(Control::TimeLabel), "00:00:00");
  EXPECT_EQ(user.Text(Control::PowerLabel), "0 0 0 0 0");
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (60s)");
}

// Leaving in the middle

class Leaving : public DemoControl {
 protected:
  // Closes the window while the worker is in the middle of something, with a job queued behind.
  void CloseAfter(int command, double seconds) {
    Gate gate;
    double stopped = 0.0;
    const std::stop_token stop = user.State().worker.StopToken();
    Start(command, seconds, [&] {
      gate.WaitAtGate();
      // From here on time passes only until the worker has ended.
      while (!stop.stop_requested()) std::this_thread::yield();
      stopped = virtual_clock::Seconds();
    });
    gate.WaitUntilReached();
    bool ran = false;
    auto held = std::make_shared<int>(0);
    const std::weak_ptr<int> queued = held;
    user.State().worker.AddJob([held = std::move(held), &ran] { ran = true; });
    gate.Open();
    user.Close();
    EXPECT_FALSE(user.IsRunning());
    EXPECT_LT(virtual_clock::Seconds() - stopped, 1.0) << "no longer than the controller's own waits";
    EXPECT_FALSE(ran);
    EXPECT_TRUE(queued.expired()) << "what was queued behind is gone, unrun";
  }
  void GivenAController() {
    sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
    GivenDevices({"TC420*"}, TCBase::ModelTC420);
  }
};

TEST_F(Leaving, InTheMiddleOfADemoEndsItCleanly) {
  GivenAController();
  CloseAfter(command::kPlayDemo, 20.0);
  EXPECT_EQ(sim_hidapi::Frames(sim_hidapi::Family::TC420).back().frame[2], 0x02)
      << "the worker came to the demo's end and told the controller";
}

TEST_F(Leaving, WhileADemoIsPausedEndsItCleanly) {
  GivenARunningDemo(86400);
  user.Press(Control::PlayButton);
  ASSERT_TRUE(WaitForState(TCBase::StatePaused));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

TEST_F(Leaving, InTheMiddleOfAnUploadEndsAtItsNextCheck) {
  GivenAController();
  for (int i = 0; i < 20; ++i) Program().modes.push_back(Program().modes.front());
  user.State().document->SyncBaseline();
  CloseAfter(command::kUploadProgram, 1.0);
}

TEST_F(Leaving, InTheHalfSecondAfterADemoPostsToNobody) {
  GivenTheEmulator(10);
  CloseAfter(command::kPlayDemo, 10.4);
}

}  // namespace
