// The main loop on virtual time: what a turn does, and when the chart is drawn without anybody asking.

#include "app/main_loop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "chart/bumper.h"
#include "common/platform.h"
#include "program/demo_state.h"
#include "program/program.h"
#include "tests/support/virtual_clock.h"

namespace {

using testing::ElementsAre;

class ScriptedEvents final : public app::EventSource {
 public:
  explicit ScriptedEvents(std::vector<std::string>& journal) : journal_(journal) {}

  bool Take() override {
    if (queue.empty()) return false;
    current_ = queue.front();
    queue.pop_front();
    return true;
  }
  bool OfferToAccelerators() override { return current_ == "accelerator"; }
  void Dispatch() override { journal_.push_back("dispatch " + current_); }
  void AwaitEvent(int milliseconds) override {
    platform::SleepMilliseconds(milliseconds);
    rested += milliseconds;
  }
  bool IsQuit() const override { return current_ == "quit"; }
  int ExitCode() const override { return 7; }

  std::deque<std::string> queue;
  int rested = 0;  // milliseconds

 private:
  std::vector<std::string>& journal_;
  std::string current_;
};

// A picture takes a sixtieth of a second.
class CountingRenderer final : public UX::RendererBase {
 public:
  CountingRenderer(const UX::ChartScene& scene, std::vector<std::string>& journal)
      : RendererBase(scene), journal_(journal) {}

  void Initialise() override {}
  void Release() override {}
  void Render() override {
    journal_.emplace_back("render");
    ++frames;
    virtual_clock::Advance(1.0 / 60.0);
  }
  void Update() override { journal_.emplace_back("update"); }
  void Rebuild() override {}
  void Relayout() override {}
  void MouseMoved(std::int32_t, std::int32_t) override {}
  bool IsAnimating() override { return animating; }

  bool animating = false;
  int frames = 0;

 private:
  std::vector<std::string>& journal_;
};

class MainLoop : public testing::Test {
 protected:
  void SetUp() override {
    virtual_clock::Reset();
    frameClock_.Reset();
    idleTimer_.Restart(0.0);
  }

  bool Turn() {
    return app::TurnMainLoop({events_, renderer_, layout_, demo_, frameClock_, idleTimer_, now_});
  }
  // Frames drawn while time goes on to `seconds`.
  int FramesUntil(double seconds) {
    const int before = renderer_.frames;
    while (virtual_clock::Seconds() < seconds) Turn();
    return renderer_.frames - before;
  }

  std::vector<std::string> journal_;
  ScriptedEvents events_{journal_};
  TCBase::Program::ModeListView program_;
  TCBase::Program::StepSelection selection_{program_};
  TCBase::DemoState demo_;
  timer_base::TimerFeatures<TimerCore_Counter> frameClock_;
  timer_base::TimerFeatures<TimerCore_Counter> idleTimer_;
  double now_ = 0.0;
  UX::ChartLayout layout_{now_};
  CountingRenderer renderer_{{program_, selection_, selection_, layout_, demo_, now_}, journal_};
};

TEST_F(MainLoop, TakesOneEventATurn) {
  events_.queue = {"one", "two"};
  EXPECT_TRUE(Turn());
  EXPECT_THAT(journal_, ElementsAre("dispatch one")) << "a turn with an event neither animates nor draws";
  EXPECT_TRUE(Turn());
  EXPECT_THAT(journal_, ElementsAre("dispatch one", "dispatch two"));
}

TEST_F(MainLoop, WhatAnAcceleratorTakesIsNotDispatched) {
  events_.queue = {"accelerator"};
  EXPECT_TRUE(Turn());
  EXPECT_TRUE(journal_.empty());
}

TEST_F(MainLoop, AnimatesBeforeItDraws) {
  EXPECT_TRUE(Turn());
  EXPECT_THAT(journal_, ElementsAre("update", "render"));
}

TEST_F(MainLoop, EndsWithTheTurnThatTookTheQuitEvent) {
  events_.queue = {"one", "quit", "never"};
  EXPECT_TRUE(Turn());
  EXPECT_FALSE(Turn());
  EXPECT_THAT(journal_, ElementsAre("dispatch one", "dispatch quit"));
}

TEST_F(MainLoop, MovesNowOnOnceATurn) {
  virtual_clock::Advance(2.5);
  const double before = now_;
  EXPECT_NE(before, 2.5);
  Turn();
  EXPECT_EQ(now_, 2.5) << "as it was at the top of the turn, whatever drawing took";
}

TEST_F(MainLoop, WhenInputStopsDrawsForASecondAndThenSleeps) {
  EXPECT_NEAR(FramesUntil(1.0), 60, 1);
  EXPECT_LE(FramesUntil(10.0), 1);
}

TEST_F(MainLoop, WhenInputStopsDrawsUntilNothingMoves) {
  renderer_.animating = true;
  EXPECT_NEAR(FramesUntil(3.0), 180, 2);
  renderer_.animating = false;
  EXPECT_LE(FramesUntil(10.0), 1);
}

TEST_F(MainLoop, DrawsWithoutPauseWhileADemoPlays) {
  idleTimer_.Restart(100.0);
  demo_.SetRunning(0, TCBase::StatePlaying);
  EXPECT_NEAR(FramesUntil(5.0), 300, 2);
  demo_.SetIdle();
  EXPECT_LE(FramesUntil(10.0), 1);
}

TEST_F(MainLoop, RestsWhileTheIdleTimerIsStoppedAndNothingMoves) {
  FramesUntil(5.0);
  idleTimer_.Stop();
  EXPECT_LE(FramesUntil(10.0), 1);
  idleTimer_.Restart(0.0);
  EXPECT_NEAR(FramesUntil(11.0), 60, 2);
  EXPECT_LE(FramesUntil(15.0), 1);
}

// The crosshair may be on its way.
TEST_F(MainLoop, AStoppedIdleTimerLeavesTheLastTouchItsSecond) {
  FramesUntil(0.25);
  idleTimer_.Stop();
  EXPECT_NEAR(FramesUntil(1.0), 45, 2);
  EXPECT_LE(FramesUntil(10.0), 1);
}

TEST_F(MainLoop, WhileTheIdleTimerIsStoppedDrawsUntilNothingMoves) {
  FramesUntil(5.0);
  idleTimer_.Stop();
  renderer_.animating = true;
  EXPECT_NEAR(FramesUntil(7.0), 120, 2);
  renderer_.animating = false;
  EXPECT_LE(FramesUntil(10.0), 1);
}

TEST_F(MainLoop, DrawsUntilTheLanesAreThereWhateverSetThemInMotion) {
  layout_.Update(1024, 768);
  FramesUntil(5.0);
  layout_.FocusLane(2);
  EXPECT_NEAR(FramesUntil(6.0), 60, 2) << "0.2 seconds, and the frame that shows their end";
  EXPECT_LE(FramesUntil(10.0), 1);
  layout_.Update(1024, 768);
  EXPECT_LE(FramesUntil(15.0), 1) << "sent to where they are, they do not move";
}

TEST_F(MainLoop, SleepsFiveMillisecondsATurnWhileIdle) {
  idleTimer_.Restart(1.0);
  const double before = virtual_clock::Seconds();
  for (int i = 0; i < 200; ++i) Turn();
  EXPECT_NEAR(virtual_clock::Seconds() - before, 1.0, 1e-9);
  EXPECT_EQ(renderer_.frames, 0);
}

}  // namespace
