// How far the work on controllers is, as jobs tell of it.

#include "devices/work_progress.h"

#include <memory>
#include <vector>

#include "devices/jobs.h"
#include "tests/devices/network_test.h"

namespace {

using TCBase::WorkProgress;
using TCBase::WorkStatus;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

WorkStatus Done(int percent) {
  return {WorkStatus::Measured, percent};
}

TEST(WorkProgressTest, RestsUntilSomebodyWorks) {
  EXPECT_EQ(WorkProgress().Status(), WorkStatus());
}

TEST(WorkProgressTest, CountsTheFramesOfAnUpload) {
  WorkProgress progress;
  progress.WorkBegins(3);
  EXPECT_EQ(progress.Status(), Done(0));
  progress.FrameSent();
  EXPECT_EQ(progress.Status(), Done(33));
  for (int i = 0; i < 5; ++i) progress.FrameSent();
  EXPECT_EQ(progress.Status(), Done(100)) << "frames that were sent again";
  progress.WorkEnds();
  EXPECT_EQ(progress.Status(), WorkStatus());
  progress.WorkBegins(2);
  EXPECT_EQ(progress.Status(), Done(0)) << "each counts its own";
}

TEST(WorkProgressTest, CannotTellHowFarAScanIs) {
  WorkProgress progress;
  progress.WorkBegins(0);
  progress.FrameSent();
  EXPECT_EQ(progress.Status(), WorkStatus{WorkStatus::Unmeasured});
}

TEST(WorkProgressTest, ShowsTheDayOfADemo) {
  WorkProgress progress;
  progress.DemoAt(0);
  EXPECT_EQ(progress.Status(), Done(0));
  progress.DemoAt(43'200);
  EXPECT_EQ(progress.Status(), Done(50));
  progress.DemoEnded();
  EXPECT_EQ(progress.Status(), WorkStatus());
}

// Notes each status at which a frame leaves.
class Watched final : public TCBase::OperationObserver {
 public:
  explicit Watched(WorkProgress& progress) : progress_(progress) {}
  void WorkBegins(int frames) override {
    progress_.WorkBegins(frames);
    begins.push_back(frames);
  }
  void WorkEnds() override {
    last = progress_.Status();
    progress_.WorkEnds();
    ++ends;
  }
  void FrameSent() override { progress_.FrameSent(); }

  std::vector<int> begins;
  int ends = 0;
  WorkStatus last;

 private:
  WorkProgress& progress_;
};

class DeafWindow final : public EventTarget {
 public:
  void Post(std::uint32_t, std::uintptr_t, std::intptr_t) override {}
};

class JobProgressTest : public NetworkTest {
 protected:
  void SetUp() override {
    NetworkTest::SetUp();
    sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
  }

  WorkProgress progress_;
  Watched watched_{progress_};
  TCBase::Program::ModeListView program_ = GivenProgram({GivenRamp("One"), GivenRamp("Two")});
};

TEST_F(JobProgressTest, AnUploadToSeveralIsOnePieceOfWork) {
  TCBase::DeviceInfo other = SelectedEmulator();
  other.selected = false;
  const std::vector<TCBase::DeviceInfo> devices{SelectedTC420(), SelectedTank(), other};
  TCBase::UploadJob(devices, program_, {demoState, {}, watched_})();
  EXPECT_THAT(watched_.begins, ElementsAre(TCBase::CountUploadFrames(program_, devices)));
  EXPECT_EQ(watched_.last, Done(100));
  EXPECT_EQ(watched_.ends, 1);
  EXPECT_EQ(progress_.Status(), WorkStatus());
}

TEST_F(JobProgressTest, AScanIsWorkThatNobodyCanMeasure) {
  TCBase::Worker worker;
  TCBase::ScanJob(worker, std::make_shared<DeafWindow>(), 1025, watched_)();
  EXPECT_THAT(watched_.begins, ElementsAre(0));
  EXPECT_EQ(watched_.last.kind, WorkStatus::Unmeasured);
  EXPECT_EQ(watched_.ends, 1);
  const virtual_clock::Waiting forTheWorker;
  worker.Shutdown();
}

// The last answer

class LastReplyTest : public JobProgressTest {
 protected:
  std::string LogOfUpload(const TCBase::DeviceInfo& info) {
    TakeStatus();
    TCBase::UploadJob({info}, program_, {demoState})();
    return TakeStatus();
  }
};

TEST_F(LastReplyTest, IsToldWithItsTimeBehindTheUpload) {
  // Two modes, each with half a second behind it; the last frame follows at once and is answered at once.
  EXPECT_THAT(LogOfUpload(SelectedTC420()),
              EndsWith("Finished configuring device TC420\n"
                       "The last answer of TC420 came 1.0 s after the upload began.\n"));
}

TEST_F(LastReplyTest, OfAControllerThatNeverAnswersNothingIsSaid) {
  EXPECT_THAT(LogOfUpload(SelectedEmulator()), Not(HasSubstr("answer")));
  sim_hidapi::SetAnswer(sim_hidapi::Silent());
  EXPECT_THAT(LogOfUpload(SelectedTC420()), Not(HasSubstr("answer")));
}

TEST_F(LastReplyTest, AnUploadThatWasNotConfirmedIsNotCalledIn) {
  sim_hidapi::Inject({.call = sim_hidapi::Call::Write});
  EXPECT_THAT(LogOfUpload(SelectedTC420()), Not(HasSubstr("The last answer")));
}

TEST_F(LastReplyTest, EachOfSeveralControllersHasItsOwnTime) {
  TCBase::UploadJob({SelectedTC420(), SelectedTank()}, program_, {demoState})();
  const std::string log = TakeStatus();
  EXPECT_THAT(log, HasSubstr("\nThe last answer of TC420 came 1.0 s after the upload began.\n"));
  EXPECT_THAT(log, testing::ContainsRegex("The last answer of Smart-123456 came ..?.?. s after"));
}

}  // namespace
