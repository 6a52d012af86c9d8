// The worker: a real thread on virtual time. Only the worker sleeps, so that time passes on its thread alone
// and everything that is arranged with the clock happens at exactly its moment.

#include "devices/worker.h"

#include <atomic>
#include <chrono>
#include <cmath>
#include <future>
#include <optional>

#include "common/platform.h"
#include "devices/jobs.h"
#include "devices/operations.h"
#include "program/demo_state.h"
#include "tests/devices/device_test.h"

namespace {

using sim_hidapi::Call;
using sim_hidapi::Family;
using TCBase::Discovery;
using TCBase::Worker;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::uint32_t kDevicesChanged = 1026;
constexpr std::uint32_t kDemoState = 1027;
constexpr int kLongDemo = 20'000;

// A window that keeps its messages with the tenth of a second at which they came: "5.0: 1026 0 1".
class Window : public EventTarget {
 public:
  void Post(std::uint32_t event, std::uintptr_t first, std::intptr_t second) override {
    const auto tenths = std::lround(virtual_clock::Seconds() * 10);
    const std::lock_guard lock(mutex_);
    messages_.push_back(std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + ": " +
                        std::to_string(event) + " " + std::to_string(first) + " " + std::to_string(second));
  }
  std::vector<std::string> Messages() const {
    const std::lock_guard lock(mutex_);
    return messages_;
  }

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> messages_;
};

class WorkerTest : public DeviceTest {
 protected:
  void TearDown() override {
    Go();
    worker_.reset();
    DeviceTest::TearDown();
  }

  // Starts the worker. Its time stands still in the pause behind its first pass, at 0.05 s, until Go().
  void Start(Discovery discovery = Discovery::OnceAttached) {
    std::promise<void> reached;
    virtual_clock::At(0.05, [&reached, go = go_.get_future().share()] {
      reached.set_value();
      go.wait();
    });
    held_ = true;
    worker_.emplace(discovery);
    reached.get_future().wait();
  }
  void StartWithWindow() {
    Start();
    worker_->Attach(&window_, kDevicesChanged);
  }
  void Go() {
    if (std::exchange(held_, false)) go_.set_value();
  }
  TCBase::OperationContext JobContext() { return {demoState, worker_->StopToken()}; }
  void AddJob(Worker::Job job) { worker_->AddJob(std::move(job)); }

  // Runs all that is queued, ends the worker with it, and answers what the user has read.
  std::string RunToTheEnd() {
    Go();
    std::promise<void> done;
    AddJob([&done] { done.set_value(); });
    done.get_future().wait();
    worker_.reset();
    return TakeStatus();
  }

  // The limit is no measure of speed: it is how long a broken worker keeps a test waiting.
  template <class Condition>
  static void WaitUntil(Condition condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition()) {
      ASSERT_LT(std::chrono::steady_clock::now(), limit) << "it did not come to pass";
      std::this_thread::yield();
    }
  }
  static void WaitUntilSecond(double seconds) {
    WaitUntil([=] { return virtual_clock::Seconds() >= seconds; });
  }

  Window window_;
  std::optional<Worker> worker_;

 private:
  std::promise<void> go_;
  bool held_ = false;
};

// Jobs.

TEST_F(WorkerTest, JobsRunInTheOrderQueuedAtMostOneAPass) {
  std::vector<std::string> ran;
  Start();
  for (const char* name : {"a", "b", "c"}) {
    AddJob([&ran, name] { ran.push_back(name + std::to_string(virtual_clock::Seconds()).substr(0, 3)); });
  }
  RunToTheEnd();
  EXPECT_THAT(ran, ElementsAre("a0.1", "b0.2", "c0.3"));
}

TEST_F(WorkerTest, JobsRunOnAThreadOfTheirOwn) {
  std::thread::id id;
  Start();
  AddJob([&id] { id = std::this_thread::get_id(); });
  RunToTheEnd();
  EXPECT_NE(id, std::thread::id());
  EXPECT_NE(id, std::this_thread::get_id());
}

TEST_F(WorkerTest, AJobWaitsForTheOneThatRuns) {
  std::vector<double> began;
  Start();
  AddJob([&began] {
    began.push_back(virtual_clock::Seconds());
    platform::SleepMilliseconds(3000);
  });
  AddJob([&began] { began.push_back(virtual_clock::Seconds()); });
  RunToTheEnd();
  ASSERT_EQ(began.size(), 2U);
  EXPECT_NEAR(began[1] - began[0], 3.1, 1e-9);
}

TEST_F(WorkerTest, AJobMayQueueAnother) {
  std::promise<void> ran;
  Start();
  Go();
  AddJob([&] { AddJob([&ran] { ran.set_value(); }); });
  ran.get_future().wait();
}

TEST_F(WorkerTest, AJobIsGoneOnceItHasRun) {
  const auto captured = std::make_shared<std::atomic<int>>(0);
  Start();
  AddJob([captured] { ++*captured; });
  Go();
  WaitUntil([&] { return captured.use_count() == 1; });
  EXPECT_EQ(*captured, 1);
}

// The jobs of the user interface.

TEST_F(WorkerTest, TheFourJobsServeTheSelectedDevices) {
  const TCBase::Program::ModeListView program = GivenProgram({GivenRamp("Ramp")});
  const std::vector<TCBase::DeviceInfo> devices{SelectedEmulator()};
  Start();
  AddJob(TCBase::TimeSyncJob(devices, program, {2026, 3, 14, 9, 26, 53, 0}, JobContext()));
  AddJob(TCBase::ClearJob(devices, program, JobContext()));
  AddJob(TCBase::UploadJob(devices, program, JobContext()));
  AddJob(TCBase::DemoJob(devices, program, 1, JobContext()));
  const std::string begin = "Configuring device TC420_Emulator\n";
  const std::string end = "Finished configuring device TC420_Emulator\n";
  EXPECT_EQ(RunToTheEnd(), begin + "Syncing time\n" + end + begin + "Clearing all modes\n" + end + begin +
                               "Uploading started\nUploading mode: Ramp\nUploading finished\n" + end + begin +
                               "Demo started\nPlaying whole day in 1 seconds\nDemo finished\n" + end);
}

TEST_F(WorkerTest, AJobHasItsOwnCopies) {
  TCBase::Program::ModeListView program = GivenProgram({GivenRamp("Before")});
  std::vector<TCBase::DeviceInfo> devices{SelectedEmulator()};
  Start();
  AddJob(TCBase::UploadJob(devices, program, JobContext()));
  program.modes[0].name = "After";
  devices.clear();
  EXPECT_THAT(RunToTheEnd(), HasSubstr("Uploading mode: Before\n"));
}

TEST_F(WorkerTest, AfterADemoWithNoDeviceSelectedThePlaybackStateIsShownAllTheSame) {
  Start();
  AddJob(TCBase::DemoJob({}, GivenProgram({GivenRamp("Ramp")}), 60, JobContext()));
  AddJob([this] { window_.Post(kDemoState, 0, 0); });
  EXPECT_EQ(RunToTheEnd(), "");
  EXPECT_THAT(window_.Messages(), ElementsAre("0.2: 1027 0 0"));
}

// Steering from another thread.

TEST_F(WorkerTest, ADemoIsPausedSoughtResumedAndStoppedFromTheUserInterface) {
  Start();
  AddJob(TCBase::DemoJob({SelectedEmulator()}, GivenProgram({GivenRamp("Ramp")}), kLongDemo, JobContext()));
  AddJob([this] { window_.Post(kDemoState, 0, 0); });
  Go();
  WaitUntil([this] { return demoState.state == TCBase::StatePlaying && demoState.position > 0; });
  demoState.PostCommand(TCBase::CommandPause);
  WaitUntil([this] { return demoState.state == TCBase::StatePaused; });
  demoState.PostSeek(43'200);
  WaitUntil([this] { return demoState.position >= 43'199; });
  EXPECT_LE(demoState.position, 43'200);
  WaitUntil([this] {
    const std::lock_guard lock(demoState.stepMutex);
    return demoState.step.values[0] >= 47;
  });
  demoState.PostCommand(TCBase::CommandResume);
  WaitUntil([this] { return demoState.state == TCBase::StatePlaying && demoState.position > 43'200; });
  demoState.PostCommand(TCBase::CommandStop);
  WaitUntil([this] { return !window_.Messages().empty(); });
  EXPECT_EQ(demoState.state, TCBase::StateIdle);
  EXPECT_EQ(demoState.position, -1);
  EXPECT_THAT(TakeStatus(), testing::EndsWith("Demo finished\nCancelled!\n"));
}

TEST_F(WorkerTest, AStopPostedBeforeAnyJobCancelsNothing) {
  Start();
  demoState.PostCommand(TCBase::CommandStop);
  AddJob(
      TCBase::UploadJob({SelectedEmulator()}, GivenProgram({GivenRamp("A"), GivenRamp("B")}), JobContext()));
  EXPECT_THAT(RunToTheEnd(), HasSubstr("Uploading mode: B\nUploading finished\nFinished configuring device"));
}

// Discovery.

TEST_F(WorkerTest, AControllerPluggedInAtStartShowsUpAfterFiveSeconds) {
  sim_hidapi::PlugIn(Family::TC420);
  StartWithWindow();
  std::string early;
  virtual_clock::At(4.95, [&] { early = ToText(worker_->GetDevices()); });
  Go();
  WaitUntilSecond(5.05);
  EXPECT_EQ(early, "");
  EXPECT_THAT(window_.Messages(), ElementsAre("5.0: 1026 0 1"));
  EXPECT_EQ(ToText(worker_->GetDevices()), "TC420");
  EXPECT_EQ(TakeStatus(), "TC420 Device connected\n");
}

TEST_F(WorkerTest, BothFamiliesComeAndGo) {
  sim_hidapi::PlugIn(Family::TC420);
  StartWithWindow();
  virtual_clock::At(7.0, [] { sim_hidapi::PlugIn(Family::TC421); });
  std::string both;
  virtual_clock::At(10.05, [&] { both = ToText(worker_->GetDevices()); });
  virtual_clock::At(12.0, [] { sim_hidapi::PullOut(Family::TC420); });
  Go();
  WaitUntilSecond(15.05);
  worker_->Shutdown();
  EXPECT_EQ(both, "TC420 TC421");
  EXPECT_EQ(ToText(worker_->GetDevices()), "TC421");
  EXPECT_THAT(window_.Messages(), ElementsAre("5.0: 1026 0 1", "10.0: 1026 0 1", "15.0: 1026 0 0"));
  EXPECT_EQ(TakeStatus(), "TC420 Device connected\nTC421 Device connected\nTC420 Device disconnected\n");
}

TEST_F(WorkerTest, AControllerPluggedInDuringALongUploadIsNoticedAfterIt) {
  sim_hidapi::PlugIn(Family::TC421);
  TCBase::Program::ModeListView program;
  for (int i = 0; i < 10; ++i) program.modes.push_back(GivenRamp("Mode"));
  StartWithWindow();
  virtual_clock::At(1.0, [] { sim_hidapi::PlugIn(Family::TC420); });
  AddJob(TCBase::UploadJob({SelectedTC421()}, program, JobContext()));
  Go();
  // Ten modes of 49 pauses of 20 ms and one of 500 ms, from 0.1 s on; the poll follows at once.
  WaitUntil([this] { return window_.Messages().size() == 2; });
  EXPECT_THAT(window_.Messages(), ElementsAre("14.9: 1026 0 1", "14.9: 1026 0 1"));
  EXPECT_THAT(TakeStatus(), testing::EndsWith("Finished configuring device TC421\n"
                                              "The last answer of TC421 came 14.3 s after the upload began.\n"
                                              "TC420 Device connected\nTC421 Device connected\n"));
}

TEST_F(WorkerTest, ASlowControllerIsWarnedOfAndListed) {
  sim_hidapi::PlugIn(Family::TC421);
  sim_hidapi::SlowDown(Call::Open, 2100);
  StartWithWindow();
  Go();
  WaitUntil([this] { return !window_.Messages().empty(); });
  worker_->Shutdown();
  EXPECT_THAT(TakeStatus(),
              testing::StartsWith("Connecting to a device took 2100 ms. This usually points to a USB "
                                  "communication error. Please try to disconnect and reconnect the "
                                  "USB device again.\nTC421 Device connected\n"));
  EXPECT_EQ(window_.Messages().front(), "7.1: 1026 0 1");
}

// The window comes up while the thread already runs; what came before is noted, and only later changes are
// told.
TEST_F(WorkerTest, UntilAWindowIsAttachedAChangeIsOnlyNoted) {
  sim_hidapi::PlugIn(Family::TC420);
  Start();
  virtual_clock::At(6.0, [this] { worker_->Attach(&window_, kDevicesChanged); });
  virtual_clock::At(11.0, [] { sim_hidapi::PullOut(Family::TC420); });
  Go();
  WaitUntilSecond(15.05);
  worker_->Shutdown();
  EXPECT_THAT(window_.Messages(), ElementsAre("15.0: 1026 0 0"));
  EXPECT_EQ(TakeStatus(), "TC420 Device disconnected\n");
}

TEST_F(WorkerTest, AProgramWithoutAWindowNeedNotWait) {
  sim_hidapi::PlugIn(Family::TC420);
  Start(Discovery::AtOnce);
  EXPECT_EQ(ToText(worker_->GetDevices()), "TC420");
  EXPECT_EQ(TakeStatus(), "TC420 Device connected\n");
}

TEST_F(WorkerTest, TheListIsKeptWithoutATargetToPostTo) {
  sim_hidapi::PlugIn(Family::TC420);
  Start();
  worker_->Attach(nullptr, 0);
  Go();
  WaitUntil([this] { return !worker_->GetDevices().empty(); });
}

TEST_F(WorkerTest, AControllerThatMayNotBeOpenedIsWarnedOfOnceAndNotListed) {
  sim_hidapi::PlugIn(Family::TC421);
  sim_hidapi::SetAllowed(Family::TC421, false);
  StartWithWindow();
  Go();
  WaitUntilSecond(16.0);
  EXPECT_EQ(ToText(worker_->GetForbiddenDevices()), "TC421");
  EXPECT_EQ(ToText(worker_->GetDevices()), "");
  sim_hidapi::SetAllowed(Family::TC421, true);
  WaitUntil([this] { return !worker_->GetDevices().empty() && worker_->GetForbiddenDevices().empty(); });
  worker_->Shutdown();
  EXPECT_THAT(window_.Messages(), testing::SizeIs(1));
  EXPECT_EQ(TakeWarnings(),
            "TC421 is plugged in, but this user may not open it. This command changes that once and for all: "
            "sudo lumarinectl usb-setup\n");
  EXPECT_EQ(TakeStatus(), "TC421 Device connected\n");
}

TEST_F(WorkerTest, UntilAWindowIsAttachedAForbiddenControllerIsOnlyNoted) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SetAllowed(Family::TC420, false);
  Start();
  virtual_clock::At(6.0, [this] { worker_->Attach(&window_, kDevicesChanged); });
  Go();
  WaitUntilSecond(11.0);
  worker_->Shutdown();
  EXPECT_EQ(TakeWarnings() + TakeStatus(), "");
}

// The end.

TEST_F(WorkerTest, QueuedJobsAreDestroyedUnrun) {
  const auto captured = std::make_shared<std::atomic<int>>(0);
  Start();
  std::promise<void> entered;
  AddJob([&entered, stop = worker_->StopToken()] {
    entered.set_value();
    while (!stop.stop_requested()) std::this_thread::yield();
  });
  for (int i = 0; i < 3; ++i) AddJob([captured] { ++*captured; });
  EXPECT_EQ(captured.use_count(), 4);
  Go();
  entered.get_future().wait();
  worker_.reset();
  EXPECT_EQ(*captured, 0);
  EXPECT_EQ(captured.use_count(), 1);
}

TEST_F(WorkerTest, TheEndStopsARunningDemoInOrder) {
  sim_hidapi::PlugIn(Family::TC420);
  Start();
  AddJob(TCBase::DemoJob({SelectedTC420()}, GivenProgram({GivenRamp("Ramp")}), kLongDemo, JobContext()));
  Go();
  WaitUntil([this] { return demoState.position > 0; });
  worker_.reset();
  EXPECT_FALSE(sim_hidapi::MemoryOf(Family::TC420).playing);
  EXPECT_EQ(sim_hidapi::OpenHandles(), 0);
  EXPECT_THAT(TakeStatus(), testing::EndsWith("Demo finished\nCancelled!\n"));
  ExpectNoViolations();
}

// Operations clear the command slot as they begin: a stop of the closing program would be lost there.
TEST_F(WorkerTest, TheEndStopsADemoThatBeginsAtThatMoment) {
  Start();
  std::promise<void> entered;
  AddJob([&entered, inJob = JobContext()] {
    entered.set_value();
    while (!inJob.stop.stop_requested()) std::this_thread::yield();
    TCBase::DemoJob({SelectedEmulator()}, GivenProgram({GivenRamp("Ramp")}), kLongDemo, inJob)();
  });
  Go();
  entered.get_future().wait();
  worker_.reset();
  EXPECT_THAT(TakeStatus(), testing::EndsWith("Demo finished\nCancelled!\n"));
}

TEST_F(WorkerTest, ShuttingDownTwiceIsShuttingDownOnce) {
  Start();
  Go();
  worker_->Shutdown();
  worker_->Shutdown();
  AddJob([] { FAIL() << "nobody runs this"; });
}

TEST_F(WorkerTest, ManyThreadsMayAskAtOnce) {
  sim_hidapi::PlugIn(Family::TC420);
  std::atomic<int> ran = 0;
  Start();
  Go();
  std::vector<std::thread> threads;
  constexpr int kThreads = 3;
  threads.reserve(kThreads);
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] {
      for (int round = 0; round < 20; ++round) {
        AddJob([&ran] { ++ran; });
        worker_->Attach(&window_, kDevicesChanged);
        (void)worker_->GetDevices();
        if (i == 0) (round % 2 == 0 ? sim_hidapi::PullOut : sim_hidapi::PlugIn)(Family::TC420);
        if (i == 1) demoState.PostSeek(round);
        if (i == 2) demoState.TakeCommand();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  WaitUntil([&ran] { return ran == 60; });
}

}  // namespace
