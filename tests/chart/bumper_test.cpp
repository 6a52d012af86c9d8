#include "chart/bumper.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>
#include <type_traits>

#include "tests/support/virtual_clock.h"

namespace {

using bumper_base::BumperCurve;
using bumper_base::BumperFader;
using bumper_base::BumperMode;
using bumper_base::BumperPulsedFader;
using bumper_base::BumperSequenceBase;
using bumper_base::CounterBumper;
using bumper_base::FrameBumper;
using bumper_base::FrameTimer;
using CounterTimer = timer_base::TimerFeatures<TimerCore_Counter>;

constexpr float kInfinity = std::numeric_limits<float>::infinity();

class BumperTest : public ::testing::Test {
 protected:
  BumperTest() { virtual_clock::Reset(); }

  double now = 0.0;

  FrameBumper GivenBumper(float from, float to, float duration, BumperCurve curve = BumperCurve::Linear,
                          BumperMode mode = BumperMode::Once) {
    FrameBumper bumper(FrameTimer{now});
    bumper.mode = mode;
    bumper.curve = curve;
    bumper.from = from;
    bumper.to = bumper.goal = to;
    bumper.duration = duration;
    bumper.timer.Reset();
    return bumper;
  }

  float ValueAt(FrameBumper& bumper, double seconds) {
    now = seconds;
    return bumper.Value();
  }
};

struct Sequence : BumperSequenceBase<FrameBumper> {
  Sequence() = default;
  explicit Sequence(FrameBumper& one) { SetItems({&one}); }
  Sequence(FrameBumper& one, FrameBumper& two) { SetItems({&one, &two}); }
  using BumperSequenceBase::FindActive;
};

TEST_F(BumperTest, StartsAsARestingZero) {
  now = 7.0;
  FrameBumper bumper(FrameTimer{now});
  EXPECT_EQ(bumper.mode, BumperMode::Once);
  EXPECT_EQ(bumper.curve, BumperCurve::Linear);
  EXPECT_EQ(bumper.exponent, 2.0F);
  EXPECT_EQ(bumper.timer.Now(), 0.0);
  EXPECT_FALSE(bumper.timer.IsFrozen());
  EXPECT_EQ(bumper.Value(), 0.0F);
}

TEST_F(BumperTest, IsAPlainValueOfFixedSize) {
  EXPECT_TRUE(std::is_trivially_copyable_v<FrameBumper>);
  EXPECT_TRUE(std::is_trivially_copyable_v<CounterBumper>);
}

// A retargeted value with no duration stays where it was instead of jumping: a panel's first layout relies on
// its run of 0.2 seconds.
TEST_F(BumperTest, ZeroDurationAnswersFromAndNotTo) {
  FrameBumper bumper = GivenBumper(3.0F, 9.0F, 0.0F);
  EXPECT_EQ(ValueAt(bumper, 100.0), 3.0F);
  bumper.duration = -1.0F;
  EXPECT_EQ(ValueAt(bumper, 200.0), 3.0F);

  Retarget(bumper, 50.0F, 0.0F, BumperCurve::EaseOut);
  EXPECT_EQ(ValueAt(bumper, 300.0), 3.0F);
}

// No division by a span of zero.
TEST_F(BumperTest, EqualEndsStandWithNoPowerTaken) {
  for (const BumperCurve curve : {BumperCurve::Linear, BumperCurve::EaseIn, BumperCurve::EaseOut,
                                  BumperCurve::SteepEnds, BumperCurve::SmoothEnds}) {
    FrameBumper bumper = GivenBumper(5.0F, 5.0F, 1.0F, curve);
    EXPECT_EQ(ValueAt(bumper, 0.5), 5.0F);
    now = 0.0;
  }
}

TEST_F(BumperTest, OnceAtExactlyItsDurationYieldsTo) {
  FrameBumper bumper = GivenBumper(10.0F, 30.0F, 0.5F);
  EXPECT_EQ(ValueAt(bumper, 0.25), 20.0F);
  EXPECT_LT(ValueAt(bumper, 0.4999), 30.0F);
  EXPECT_EQ(ValueAt(bumper, 0.5), 30.0F);
  EXPECT_EQ(ValueAt(bumper, 50.0), 30.0F);
}

TEST_F(BumperTest, WaitsAtFromDuringItsDelay) {
  FrameBumper bumper = GivenBumper(10.0F, 30.0F, 1.0F);
  bumper.delay = 2.0F;
  EXPECT_EQ(ValueAt(bumper, 1.9), 10.0F);
  EXPECT_EQ(ValueAt(bumper, 2.5), 20.0F);
}

TEST_F(BumperTest, RepeatStartsOverAtEachEnd) {
  FrameBumper bumper = GivenBumper(0.0F, 8.0F, 2.0F, BumperCurve::Linear, BumperMode::Repeat);
  EXPECT_EQ(ValueAt(bumper, 1.0), 4.0F);
  EXPECT_EQ(ValueAt(bumper, 2.0), 0.0F);
  EXPECT_EQ(ValueAt(bumper, 7.0), 4.0F);
}

TEST_F(BumperTest, PingPongRunsThereAndBackAndTheGoalFollows) {
  FrameBumper bumper = GivenBumper(0.0F, 8.0F, 2.0F, BumperCurve::Linear, BumperMode::PingPong);
  bumper.delay = 1.0F;
  bumper.goal = 5.0F;
  EXPECT_EQ(ValueAt(bumper, 0.5), 0.0F);
  EXPECT_EQ(bumper.goal, 5.0F) << "untouched before the run begins";

  EXPECT_EQ(ValueAt(bumper, 1.5), 2.0F);
  EXPECT_EQ(bumper.goal, 8.0F);
  EXPECT_EQ(ValueAt(bumper, 3.5), 6.0F);
  EXPECT_EQ(bumper.goal, 0.0F);
  EXPECT_EQ(ValueAt(bumper, 5.5), 2.0F);
  EXPECT_EQ(bumper.goal, 8.0F);
}

// A quarter into the way back, easing out of the turn shows what the goal is for: the formula for the way
// there would give another value.
TEST_F(BumperTest, PingPongEasesTowardsWhicheverEndComesNext) {
  FrameBumper in = GivenBumper(0.0F, 16.0F, 2.0F, BumperCurve::EaseIn, BumperMode::PingPong);
  EXPECT_FLOAT_EQ(ValueAt(in, 0.5), 1.0F);
  EXPECT_FLOAT_EQ(ValueAt(in, 2.5), 15.0F);
  now = 0.0;
  FrameBumper out = GivenBumper(0.0F, 16.0F, 2.0F, BumperCurve::EaseOut, BumperMode::PingPong);
  EXPECT_FLOAT_EQ(ValueAt(out, 0.5), 7.0F);
  EXPECT_FLOAT_EQ(ValueAt(out, 2.5), 9.0F);
}

struct CurveRow {
  BumperCurve curve;
  float atQuarter, atHalf, atThreeQuarters;  // of the way, in parts of the way
};

class CurveTest : public BumperTest, public ::testing::WithParamInterface<CurveRow> {
 protected:
  void ExpectCurve(float from, float to) {
    const CurveRow& row = GetParam();
    now = 0.0;
    FrameBumper bumper = GivenBumper(from, to, 4.0F, row.curve);
    const std::tuple<double, float> expected[] = {
        {0.0, 0.0F}, {1.0, row.atQuarter}, {2.0, row.atHalf}, {3.0, row.atThreeQuarters}, {4.0, 1.0F}};
    for (const auto& [seconds, part] : expected)
      EXPECT_FLOAT_EQ(ValueAt(bumper, seconds), from + part * (to - from)) << "after " << seconds << " s";
  }
};

TEST_P(CurveTest, ShapesAValueThatRises) {
  ExpectCurve(100.0F, 500.0F);
}
TEST_P(CurveTest, ShapesAValueThatFalls) {
  ExpectCurve(500.0F, 100.0F);
}
TEST_P(CurveTest, ShapesAValueBelowZero) {
  ExpectCurve(-300.0F, -100.0F);
}

INSTANTIATE_TEST_SUITE_P(AllCurves, CurveTest,
                         ::testing::Values(CurveRow{BumperCurve::Linear, 0.25F, 0.5F, 0.75F},
                                           CurveRow{BumperCurve::EaseIn, 0.0625F, 0.25F, 0.5625F},
                                           CurveRow{BumperCurve::EaseOut, 0.4375F, 0.75F, 0.9375F},
                                           CurveRow{BumperCurve::SteepEnds, 0.375F, 0.5F, 0.625F},
                                           CurveRow{BumperCurve::SmoothEnds, 0.125F, 0.5F, 0.875F}));

TEST_F(BumperTest, StaysBetweenItsEndsEvenWithAGoalOutsideThem) {
  FrameBumper bumper = GivenBumper(0.0F, 10.0F, 1.0F, BumperCurve::EaseIn);
  bumper.goal = 40.0F;
  for (int i = 0; i < 20; ++i) {
    const float value = ValueAt(bumper, i * 0.05);
    EXPECT_GE(value, 0.0F);
    EXPECT_LE(value, 10.0F);
  }
}

// Months of run time, or a duration next to nothing: more runs than any integer counts.
TEST_F(BumperTest, SurvivesTimesThatNoIntegerCounts) {
  for (const BumperMode mode : {BumperMode::Once, BumperMode::Repeat, BumperMode::PingPong})
    for (const float duration : {std::numeric_limits<float>::denorm_min(), 1e-30F, 0.5F, kInfinity})
      for (const double seconds : {1e9, 1e30, 1e300, static_cast<double>(kInfinity)}) {
        now = 0.0;
        FrameBumper bumper = GivenBumper(2.0F, 6.0F, duration, BumperCurve::SmoothEnds, mode);
        const float value = ValueAt(bumper, seconds);
        EXPECT_GE(value, 2.0F) << duration << " after " << seconds;
        EXPECT_LE(value, 6.0F) << duration << " after " << seconds;
      }
}

TEST_F(BumperTest, ATimeThatIsNoNumberAnswersFrom) {
  FrameBumper bumper = GivenBumper(2.0F, 6.0F, 1.0F);
  EXPECT_EQ(ValueAt(bumper, std::numeric_limits<double>::quiet_NaN()), 2.0F);
  now = 0.0;
  bumper.duration = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(ValueAt(bumper, 1.0), 2.0F);
}

TEST_F(BumperTest, RetargetGoesOnFromThePresentValue) {
  FrameBumper bumper = GivenBumper(0.0F, 100.0F, 1.0F, BumperCurve::Linear, BumperMode::PingPong);
  bumper.delay = 0.5F;
  now = 1.0;
  Retarget(bumper, 10.0F, 2.0F, BumperCurve::Linear);
  EXPECT_EQ(bumper.from, 50.0F);
  EXPECT_EQ(bumper.goal, 10.0F);
  EXPECT_EQ(bumper.mode, BumperMode::Once);
  EXPECT_EQ(bumper.Value(), 50.0F);
  EXPECT_EQ(ValueAt(bumper, 2.0), 30.0F);
  EXPECT_EQ(ValueAt(bumper, 3.0), 10.0F);
}

TEST_F(BumperTest, AFrameBumperSeesOnlyTheFramesTime) {
  FrameBumper bumper = GivenBumper(0.0F, 10.0F, 1.0F);
  virtual_clock::Advance(0.5);
  EXPECT_EQ(bumper.Value(), 0.0F);
  now = 0.5;
  EXPECT_EQ(bumper.Value(), 5.0F);
}

TEST_F(BumperTest, ACounterBumperMovesWithinAFrame) {
  CounterBumper bumper;
  Retarget(bumper, 10.0F, 1.0F, BumperCurve::Linear);
  virtual_clock::Advance(0.5);
  EXPECT_FLOAT_EQ(bumper.Value(), 5.0F);
}

TEST_F(BumperTest, ASequenceWithNoDurationsIsFinishedAtOnceAndShowsTheLastFrom) {
  FrameBumper one = GivenBumper(1.0F, 2.0F, 0.0F);
  FrameBumper two = GivenBumper(3.0F, 4.0F, 0.0F);
  Sequence sequence(one, two);
  EXPECT_TRUE(sequence.IsFinished());
  EXPECT_EQ(sequence.Value(), 3.0F);
}

TEST_F(BumperTest, ARepeatingItemNeverLetsASequenceFinish) {
  for (const BumperMode mode : {BumperMode::Repeat, BumperMode::PingPong}) {
    now = 0.0;
    FrameBumper bumper = GivenBumper(0.0F, 1.0F, 0.5F, BumperCurve::Linear, mode);
    Sequence sequence(bumper);
    now = 1e6;
    EXPECT_FALSE(sequence.IsFinished());
  }
}

TEST_F(BumperTest, ASequencePassesFromItemToItem) {
  FrameBumper one = GivenBumper(0.0F, 10.0F, 1.0F);
  FrameBumper two = GivenBumper(100.0F, 200.0F, 1.0F);
  two.delay = 1.0F;
  Sequence sequence(one, two);
  now = 0.5;
  EXPECT_EQ(sequence.Value(), 5.0F);
  now = 1.0;
  EXPECT_EQ(sequence.FindActive(), &one) << "the last moment of a run still belongs to it";
  EXPECT_EQ(sequence.Value(), 10.0F);
  now = 1.5;
  EXPECT_EQ(sequence.Value(), 150.0F);
  now = 2.5;
  EXPECT_TRUE(sequence.IsFinished());
  EXPECT_EQ(sequence.Value(), 200.0F);
}

TEST_F(BumperTest, ASequenceOfNothingIsFinished) {
  Sequence sequence;
  EXPECT_EQ(sequence.FindActive(), nullptr);
  EXPECT_TRUE(sequence.IsFinished());
  EXPECT_EQ(sequence.Value(), 0.0F);
}

TEST_F(BumperTest, AFaderRisesStaysAndFalls) {
  now = 40.0;
  BumperFader<FrameBumper> fader(FrameBumper(FrameTimer{now}));
  EXPECT_TRUE(fader.IsFinished());
  fader.Start(0.0F, 16.0F, 3.0F, 1.0F, 0.5F, 4.0F);
  const std::tuple<double, float> expected[] = {{0.0, 0.0F},  {0.5, 12.0F},  {1.0, 16.0F}, {1.75, 16.0F},
                                                {2.5, 16.0F}, {2.75, 13.0F}, {3.0, 4.0F}};
  for (const auto& [seconds, value] : expected) {
    now = 40.0 + seconds;
    EXPECT_FLOAT_EQ(fader.Value(), value) << "after " << seconds << " s";
    EXPECT_FALSE(fader.IsFinished());
  }
  now = 43.1;
  EXPECT_TRUE(fader.IsFinished());
  EXPECT_EQ(fader.Value(), 4.0F);
}

TEST_F(BumperTest, AFaderWithNoTimeToHoldGoesStraightDown) {
  BumperFader<FrameBumper> fader(FrameBumper(FrameTimer{now}));
  fader.Start(0.0F, 8.0F, 2.0F, 1.0F, 1.0F, 0.0F);
  now = 1.5;
  EXPECT_FLOAT_EQ(fader.Value(), 6.0F);
}

TEST_F(BumperTest, APulsedFaderOfEqualEndsStandsThere) {
  BumperPulsedFader popup(3.0F, 3.0F, 1.0F, now);
  EXPECT_EQ(popup.Value(), 3.0F);
}

TEST_F(BumperTest, APulseFadesWithTheRest) {
  BumperPulsedFader popup(10.0F, 30.0F, 4.0F, now);
  EXPECT_EQ(popup.pulse.mode, BumperMode::PingPong);
  EXPECT_EQ(popup.pulse.duration, 0.5F);
  popup.fader.Start(0.0F, 1.0F, 10.0F, popup.fadeInTime, popup.fadeOutTime, 0.0F);
  EXPECT_EQ(popup.Value(), 10.0F) << "nothing shows before the fade begins";
  now = 0.5;
  EXPECT_FLOAT_EQ(popup.Value(), 34.0F) << "the crest of the pulse at full size";
  now = 1.0;
  EXPECT_FLOAT_EQ(popup.Value(), 30.0F) << "its trough";
  now = 9.75;
  EXPECT_FLOAT_EQ(popup.Value(), 10.0F + 0.75F * 22.0F) << "half the pulse, three quarters of the fade";
  now = 11.0;
  EXPECT_EQ(popup.Value(), 10.0F);
}

// The odd one of the timer: it forgets that it was frozen, and keeps the base that it had before.
TEST_F(BumperTest, RestartOfAFrozenTimerWithANegativeTimeJumpsForward) {
  CounterTimer timer;
  virtual_clock::Advance(2.0);
  timer.Freeze();
  virtual_clock::Advance(5.0);
  EXPECT_DOUBLE_EQ(timer.Now(), 2.0);
  timer.Restart(-1.0);
  EXPECT_DOUBLE_EQ(timer.Now(), 7.0);
}

TEST_F(BumperTest, TheTimerOfAFrozenBumperKeepsItsValue) {
  FrameBumper bumper = GivenBumper(0.0F, 10.0F, 1.0F);
  now = 0.5;
  bumper.timer.Freeze();
  EXPECT_EQ(ValueAt(bumper, 9.0), 5.0F);
}

TEST_F(BumperTest, ATimerStopsAtZero) {
  CounterTimer timer;
  timer.Restart(0.0);
  virtual_clock::Advance(3.0);
  EXPECT_DOUBLE_EQ(timer.Now(), 3.0);
  timer.Stop();
  virtual_clock::Advance(3.0);
  EXPECT_EQ(timer.Now(), 0.0);
}

}  // namespace
