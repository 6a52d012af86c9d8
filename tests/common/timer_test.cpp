#include "common/timer.h"

#include <gtest/gtest.h>

#include "tests/support/virtual_clock.h"

namespace {

using Timer = timer_base::TimerFeatures<TimerCore_Counter>;

class Timers : public testing::Test {
 protected:
  void SetUp() override { virtual_clock::Reset(); }
};

TEST_F(Timers, RunFromZeroWhenMade) {
  virtual_clock::Advance(5.0);
  const Timer timer;
  EXPECT_EQ(timer.Now(), 0.0);
  EXPECT_FALSE(timer.IsFrozen());
  virtual_clock::Advance(1.5);
  EXPECT_DOUBLE_EQ(timer.Now(), 1.5);
}

TEST_F(Timers, ShowElapsedTimeScaledFromTheirStart) {
  Timer timer;
  timer.start = 10.0;
  timer.scale = 2.0;
  virtual_clock::Advance(3.0);
  EXPECT_DOUBLE_EQ(timer.Now(), 16.0);
}

TEST_F(Timers, ResetRunsOnFromZero) {
  Timer timer;
  timer.start = 10.0;
  virtual_clock::Advance(3.0);
  timer.Freeze();
  timer.Reset();
  EXPECT_DOUBLE_EQ(timer.Now(), 0.0);
  virtual_clock::Advance(0.25);
  EXPECT_DOUBLE_EQ(timer.Now(), 0.25);
}

TEST_F(Timers, FreezeStopsAtThePresentValueAndAFrozenTimerStays) {
  Timer timer;
  virtual_clock::Advance(2.0);
  timer.Freeze();
  virtual_clock::Advance(2.0);
  EXPECT_TRUE(timer.IsFrozen());
  EXPECT_DOUBLE_EQ(timer.Now(), 2.0);
  timer.Freeze();
  EXPECT_DOUBLE_EQ(timer.Now(), 2.0);
}

TEST_F(Timers, RestartRunsOnFromTheGivenSeconds) {
  Timer timer;
  virtual_clock::Advance(2.0);
  timer.Freeze();
  timer.Restart(7.0);
  virtual_clock::Advance(1.0);
  EXPECT_DOUBLE_EQ(timer.Now(), 8.0);
  timer.Restart(0.0);
  EXPECT_DOUBLE_EQ(timer.Now(), 0.0);
  EXPECT_FALSE(timer.IsFrozen());
}

// The old base stays, and so the time of standing still is caught up with. It looks odd; those who want to go
// on where they stopped say Restart(Now()).
TEST_F(Timers, RestartOfMinusOneMakesAFrozenTimerJumpByTheTimeItStoodStill) {
  Timer timer;
  virtual_clock::Advance(2.0);
  timer.Freeze();
  virtual_clock::Advance(5.0);
  timer.Restart(-1.0);
  EXPECT_FALSE(timer.IsFrozen());
  EXPECT_DOUBLE_EQ(timer.Now(), 7.0);
}

TEST_F(Timers, RestartOfMinusOneLeavesARunningTimerAlone) {
  Timer timer;
  timer.Restart(4.0);
  virtual_clock::Advance(1.0);
  timer.Restart(-1.0);
  EXPECT_DOUBLE_EQ(timer.Now(), 5.0);
}

TEST_F(Timers, StopStandsAtZero) {
  Timer timer;
  virtual_clock::Advance(2.0);
  timer.Stop();
  EXPECT_TRUE(timer.IsFrozen());
  virtual_clock::Advance(2.0);
  EXPECT_EQ(timer.Now(), 0.0);
}

TEST_F(Timers, KeepMicrosecondsThroughMonths) {
  const Timer timer;
  virtual_clock::Advance(90.0 * 86400.0);
  const double before = timer.Now();
  virtual_clock::Advance(0.000001);
  EXPECT_GT(timer.Now(), before);
}

}  // namespace
