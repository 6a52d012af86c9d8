// The live demo: a day of seconds on a controller, and how it is steered.

#include <cmath>

#include "common/truncate.h"
#include "devices/jobs.h"
#include "devices/operations.h"
#include "program/demo_state.h"
#include "tests/devices/device_test.h"
#include "tests/support/golden.h"

namespace {

using sim_hidapi::Family;
using TCBase::OperationResult;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;
using testing::ElementsAre;

constexpr double kPass = 0.005;

class DemoTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    sim_hidapi::PlugIn(Family::TC420);
  }

  OperationResult Play(const Mode& mode, int seconds) {
    return DemoOperation(SelectedTC420(), GivenProgram({mode}), seconds, context).result;
  }

  static void At(double seconds, std::function<void()> action) {
    virtual_clock::At(seconds, std::move(action));
  }
  void CommandAt(double seconds, TCBase::CommandType type) {
    At(seconds, [this, type] { demoState.PostCommand(type); });
  }
  // What the chart would show at that moment, as "playing 43200".
  void LookAt(double seconds) {
    At(seconds, [this] {
      const char* const kStates[] = {"idle ", "paused ", "playing "};
      seen_.push_back(kStates[demoState.state] + std::to_string(demoState.position));
    });
  }

  // The frames with channel values.
  static std::vector<sim::Received> ValueFrames() {
    std::vector<sim::Received> frames = sim_hidapi::Frames(Family::TC420);
    std::erase_if(frames, [](const sim::Received& received) { return received.frame[2] != 0x16; });
    return frames;
  }
  static int FirstChannel(const sim::Received& received) { return received.frame[6]; }

  // Up and down by 100 percent every hour.
  static Mode GivenWaves() {
    Mode mode;
    mode.name = "Waves";
    for (TCBase::Program::Channel& channel : mode.channels) {
      for (int hour = 0; hour < 24; ++hour) {
        TCBase::Program::Step step;
        step.hour = hour;
        step.value = hour % 2 == 0 ? 0.0F : 100.0F;
        channel.push_back(step);
      }
    }
    return mode;
  }

  std::vector<std::string> seen_;
};

TEST_F(DemoTest, TranscriptOfADayInOneSecond) {
  TCBase::DemoJob({SelectedTC420()}, GivenProgram({GivenRamp("Ramp up slowly")}), 1, context)();
  golden::Expect("tests/devices/golden/demo_in_one_second/status.txt", TakeStatus());
  golden::Expect("tests/devices/golden/demo_in_one_second/trace.txt", TakeTrace());
  ExpectNoViolations();
}

TEST_F(DemoTest, ADayOfSixtySecondsSends20FramesASecondWhileValuesChange) {
  EXPECT_EQ(Play(GivenWaves(), 60), OperationResult::Done);
  EXPECT_NEAR(virtual_clock::Seconds(), 60.0, kPass);
  // One before the clock starts, then one every 0.05 s, the last before second 60.
  const std::vector<sim::Received> frames = ValueFrames();
  ASSERT_EQ(frames.size(), 1U + 1199U);
  EXPECT_EQ(Commands(Family::TC420), "15 16*1200 02");
  const Mode waves = GivenWaves();
  for (std::size_t i = 1; i < frames.size(); ++i) {
    EXPECT_NEAR(frames[i].seconds, 0.05 * static_cast<double>(i), 1e-9);
    const auto t = static_cast<float>(frames[i].seconds);
    const int day = TruncateToInt(t * 1440.0F);
    EXPECT_EQ(FirstChannel(frames[i]), TruncateToInt(ChannelValueAt(waves.channels[0], day))) << i;
  }
  ExpectNoViolations();
}

TEST_F(DemoTest, AValueThatStandsIsRepeatedEvery200Milliseconds) {
  EXPECT_EQ(Play(GivenMode("Flat", {{"00:00", {7, 7, 7, 7, 7}}, {"12:00", {7, 7, 7, 7, 7}}}), 60),
            OperationResult::Done);
  const std::vector<sim::Received> frames = ValueFrames();
  ASSERT_EQ(frames.size(), 1U + 299U);
  for (std::size_t i = 1; i < frames.size(); ++i) {
    EXPECT_NEAR(frames[i].seconds, 0.2 * static_cast<double>(i), 1e-9);
  }
}

TEST_F(DemoTest, OnASlowerDayFramesGoOutWhenAValueChangesOrAreRepeated) {
  EXPECT_EQ(Play(GivenRamp("Ramp"), 300), OperationResult::Done);
  const std::vector<sim::Received> frames = ValueFrames();
  for (std::size_t i = 2; i < frames.size(); ++i) {
    const double gap = frames[i].seconds - frames[i - 1].seconds;
    const bool changed = FirstChannel(frames[i]) != FirstChannel(frames[i - 1]);
    EXPECT_GE(gap, 0.05 - 1e-9);
    EXPECT_LE(gap, 0.2 + 1e-9);
    EXPECT_TRUE(changed || gap > 0.2 - 1e-9) << i;
  }
  EXPECT_EQ(FirstChannel(frames.front()), 0);
  EXPECT_EQ(FirstChannel(frames.back()), 96);
}

TEST_F(DemoTest, AtHalfOfSixtySecondsThePositionIsNoon) {
  LookAt(30.001);
  LookAt(0.001);
  LookAt(59.999);
  EXPECT_EQ(Play(GivenRamp("Ramp"), 60), OperationResult::Done);
  EXPECT_THAT(seen_, ElementsAre("playing 0", "playing 43200", "playing 86392"));
}

TEST_F(DemoTest, TheLiveStepIsTheOneLastSent) {
  At(30.001, [this] {
    const std::lock_guard lock(demoState.stepMutex);
    seen_.push_back(std::to_string(demoState.step.hour) + ":" + std::to_string(demoState.step.minute) + " " +
                    std::to_string(demoState.step.values[4]) + " " +
                    std::to_string(sim_hidapi::MemoryOf(Family::TC420).live[4]));
  });
  EXPECT_EQ(Play(GivenRamp("Ramp"), 60), OperationResult::Done);
  EXPECT_THAT(seen_, ElementsAre("11:59 48 48"));
}

TEST_F(DemoTest, AfterwardsNoDemoIsShown) {
  EXPECT_EQ(Play(GivenRamp("Ramp"), 1), OperationResult::Done);
  EXPECT_EQ(demoState.state, TCBase::StateIdle);
  EXPECT_EQ(demoState.position, -1);
}

// 166.99998 seconds times the scale of a day of 167 seconds is 86400 in a float.
TEST_F(DemoTest, APositionThatRoundsToTheEndOfTheDayIsHeldAtItsLastSecond) {
  CommandAt(1.0, TCBase::CommandPause);
  At(1.1, [this] { demoState.PostSeek(86400); });
  LookAt(1.2);
  CommandAt(1.3, TCBase::CommandStop);
  Play(GivenRamp("Ramp"), 167);
  EXPECT_THAT(seen_, ElementsAre("paused 86399"));
}

TEST_F(DemoTest, APauseLeavesThePositionStandingWhileTheSameFrameGoesOutEvery200Milliseconds) {
  CommandAt(9.998, TCBase::CommandPause);
  LookAt(10.003);
  LookAt(19.0);
  CommandAt(20.0, TCBase::CommandStop);
  EXPECT_EQ(Play(GivenRamp("Ramp"), 60), OperationResult::Cancelled);
  EXPECT_THAT(seen_, ElementsAre("paused 14400", "paused 14400"));
  std::vector<sim::Received> frames = ValueFrames();
  std::erase_if(frames, [](const sim::Received& received) { return received.seconds < 10.5; });
  ASSERT_GE(frames.size(), 45U);
  for (std::size_t i = 1; i < frames.size(); ++i) {
    EXPECT_NEAR(frames[i].seconds - frames[i - 1].seconds, 0.2, 1e-9);
    EXPECT_EQ(frames[i].frame, frames[0].frame);
  }
}

TEST_F(DemoTest, ASecondPauseChangesNothing) {
  CommandAt(9.998, TCBase::CommandPause);
  CommandAt(15.0, TCBase::CommandPause);
  LookAt(16.0);
  CommandAt(20.0, TCBase::CommandStop);
  Play(GivenRamp("Ramp"), 60);
  EXPECT_THAT(seen_, ElementsAre("paused 14400"));
}

TEST_F(DemoTest, AResumeGoesOnFromWhereThePauseStood) {
  CommandAt(9.998, TCBase::CommandPause);
  CommandAt(19.998, TCBase::CommandResume);
  LookAt(30.003);
  EXPECT_EQ(Play(GivenRamp("Ramp"), 60), OperationResult::Done);
  EXPECT_THAT(seen_, ElementsAre("playing 28800"));
  EXPECT_NEAR(virtual_clock::Seconds(), 70.0, kPass + 1e-9);
}

TEST_F(DemoTest, AResumeWithoutAPauseChangesNothing) {
  CommandAt(10.0, TCBase::CommandResume);
  LookAt(30.003);
  Play(GivenRamp("Ramp"), 60);
  EXPECT_THAT(seen_, ElementsAre("playing 43200"));
}

TEST_F(DemoTest, ASeekGoesOnFromThereAndShowsOnTheNextPass) {
  At(9.998, [this] { demoState.PostSeek(43200); });
  LookAt(10.003);  // the pass that took the command
  LookAt(10.008);
  LookAt(20.003);
  EXPECT_EQ(Play(GivenRamp("Ramp"), 60), OperationResult::Done);
  EXPECT_THAT(seen_, ElementsAre("playing 14400", "playing 43207", "playing 57600"));
  EXPECT_NEAR(virtual_clock::Seconds(), 40.0, kPass + 1e-9);
}

TEST_F(DemoTest, ASeekWhilePausedMovesThePositionAndSendsItsFrameThoughTheDemoStandsStill) {
  CommandAt(9.998, TCBase::CommandPause);
  At(14.998, [this] { demoState.PostSeek(43200); });
  LookAt(15.003);
  LookAt(15.008);
  LookAt(18.0);
  At(18.0, [this] { seen_.push_back(std::to_string(sim_hidapi::MemoryOf(Family::TC420).live[0])); });
  CommandAt(19.0, TCBase::CommandStop);
  Play(GivenRamp("Ramp"), 60);
  EXPECT_THAT(seen_, ElementsAre("paused 14400", "paused 43200", "paused 43200", "48"));
}

TEST_F(DemoTest, ASeekBeforeTheDayStartsItAnewAndOneBehindItEndsIt) {
  At(9.998, [this] { demoState.PostSeek(-500); });
  LookAt(10.008);
  At(12.0, [this] { demoState.PostSeek(90000); });
  EXPECT_EQ(Play(GivenRamp("Ramp"), 60), OperationResult::Done);
  EXPECT_THAT(seen_, ElementsAre("playing 7"));
  EXPECT_NEAR(virtual_clock::Seconds(), 12.0, 2 * kPass);
}

TEST_F(DemoTest, ASeekThatIsFollowedByAStopBetweenTwoPassesIsLost) {
  At(10.001, [this] { demoState.PostSeek(43200); });
  CommandAt(10.002, TCBase::CommandStop);
  EXPECT_EQ(Play(GivenRamp("Ramp"), 60), OperationResult::Cancelled);
  EXPECT_NEAR(virtual_clock::Seconds(), 10.0, 2 * kPass);
  EXPECT_EQ(FirstChannel(ValueFrames().back()), 16);
}

TEST_F(DemoTest, AStopEndsTheDemoInOrderAndTheRemainingDevicesAreNotTouched) {
  sim_hidapi::PlugIn(Family::TC421);
  CommandAt(10.001, TCBase::CommandStop);
  TCBase::DemoJob({SelectedTC420(), SelectedTC421()}, GivenProgram({GivenRamp("Ramp")}), 60, context)();
  EXPECT_EQ(
      TakeStatus(),
      "Configuring device TC420\nDemo started\nPlaying whole day in 60 seconds\nDemo finished\nCancelled!\n");
  EXPECT_FALSE(sim_hidapi::MemoryOf(Family::TC420).playing);
  EXPECT_THAT(sim_hidapi::Frames(Family::TC421), testing::IsEmpty());
  EXPECT_EQ(demoState.position, -1);
}

TEST_F(DemoTest, OnSeveralDevicesTheWholeDayIsPlayedOnEachAndNothingIsShownBetweenThem) {
  sim_hidapi::PlugIn(Family::TC421);
  LookAt(59.0);
  LookAt(61.001);
  TCBase::DemoJob({SelectedTC420(), SelectedTC421()}, GivenProgram({GivenRamp("Ramp")}), 60, context)();
  EXPECT_NEAR(virtual_clock::Seconds(), 120.0, 2 * kPass);
  EXPECT_THAT(seen_, ElementsAre("playing 84952", "playing 1440"));
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC421).live[0], 96);
  ExpectNoViolations();
}

TEST_F(DemoTest, ADemoWhoseCableIsPulledRunsToItsEndAndReportsIt) {
  At(10.0, [] { sim_hidapi::PullOut(Family::TC420); });
  const auto report = DemoOperation(SelectedTC420(), GivenProgram({GivenRamp("Ramp")}), 60, context);
  EXPECT_EQ(report.result, OperationResult::Failed);
  EXPECT_GT(report.exchange.unconfirmed, 1);
  EXPECT_LT(report.exchange.unconfirmed, report.exchange.packets);
  EXPECT_NEAR(virtual_clock::Seconds(), 60.0, kPass);
  EXPECT_THAT(TakeStatus(), testing::EndsWith("Playing whole day in 60 seconds\nDemo finished\n"));
}

TEST_F(DemoTest, ASilentControllerGetsFewerFramesAndTheDemoDoesNotFallBehind) {
  sim_hidapi::SetAnswer(sim_hidapi::Silent());
  EXPECT_EQ(Play(GivenWaves(), 60), OperationResult::Done);
  // The init and the first frame come before the day, the closing frame behind it; each waits 800 ms.
  EXPECT_NEAR(virtual_clock::Seconds(), 60.0 + 3 * 0.8, 0.8 + kPass);
  const std::size_t frames = ValueFrames().size();
  EXPECT_GE(frames, 60U);
  EXPECT_LE(frames, 75U);
}

TEST_F(DemoTest, AStopFromBeforeADemoIsForgottenAsItBegins) {
  demoState.PostCommand(TCBase::CommandStop);
  EXPECT_EQ(Play(GivenRamp("Ramp"), 1), OperationResult::Done);
  EXPECT_NEAR(virtual_clock::Seconds(), 1.0, kPass);
}

TEST_F(DemoTest, ADayOfNoLengthOrLessIsOverAtOnce) {
  for (const int seconds : {0, -1, -60}) {
    SetUp();
    EXPECT_EQ(Play(GivenRamp("Ramp"), seconds), OperationResult::Done) << seconds;
    EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.0);
    EXPECT_EQ(TakeStatus(),
              "Demo started\nPlaying whole day in " + std::to_string(seconds) + " seconds\nDemo finished\n");
    EXPECT_EQ(Commands(Family::TC420), "15 16 02");
  }
}

TEST_F(DemoTest, WithoutACurrentModeThereIsNothingToPlay) {
  ModeListView program = GivenProgram({GivenRamp("Ramp")});
  for (const int current : {-1, 1, 1000000}) {
    program.currentMode = current;
    EXPECT_EQ(DemoOperation(SelectedTC420(), program, 60, context).result, OperationResult::Failed)
        << current;
  }
  EXPECT_EQ(DemoOperation(SelectedTC420(), {}, 60, context).result, OperationResult::Failed);
  EXPECT_THAT(sim_hidapi::Frames(Family::TC420), testing::IsEmpty());
}

TEST_F(DemoTest, TheModeOnTheChartIsPlayed) {
  ModeListView program = GivenProgram({GivenRamp("First"), GivenRamp("Second")});
  program.currentMode = 1;
  EXPECT_EQ(DemoOperation(SelectedTC420(), program, 1, context).result, OperationResult::Done);
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC420).playName, "Second");
}

TEST_F(DemoTest, AChannelWithoutStepsIsDarkAndOneWithAllStepsOnOneMinuteIsCapped) {
  Mode mode = GivenMode("Odd", {{"12:00", {10, 10, 10, 10, 10}}, {"12:00", {90, 90, 90, 90, 90}}});
  mode.channels[1].clear();
  EXPECT_EQ(Play(mode, 1), OperationResult::Done);
  for (const sim::Received& received : ValueFrames()) EXPECT_EQ(received.frame[7], 0);
  ExpectNoViolations();
}

}  // namespace
