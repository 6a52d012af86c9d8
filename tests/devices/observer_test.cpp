// What whoever listens hears of an operation, in order.

#include <string>
#include <vector>

#include "devices/operations.h"
#include "devices/scan.h"
#include "devices/wifi.h"
#include "tests/devices/network_test.h"

namespace {

using sim_hidapi::Call;
using sim_hidapi::Family;
using TCBase::OperationResult;
using TCBase::PacketOutcome;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class Listener final : public TCBase::OperationObserver {
 public:
  void FrameSent() override { heard.emplace_back("sent"); }
  void PacketEnded(PacketOutcome outcome) override {
    const char* const kWords[] = {"unanswered", "answered", "no answer", "refused", "not sent"};
    heard.emplace_back(kWords[static_cast<std::size_t>(outcome)]);
  }
  void PortTaken() override { heard.emplace_back("port taken"); }
  void DemoAt(std::int32_t second) override {
    if (moments.empty() || moments.back() != second) moments.push_back(second);
  }
  void DemoEnded() override { heard.emplace_back("demo ended"); }

  std::vector<std::string> heard;
  std::vector<std::int32_t> moments;
};

class ObserverTest : public NetworkTest {
 protected:
  void SetUp() override {
    NetworkTest::SetUp();
    sim_hidapi::PlugIn(Family::TC420);
    sim_hidapi::PlugIn(Family::TC421);
  }

  // What a listener hears while a controller is cleared, which is one packet.
  std::vector<std::string> Clear(const TCBase::DeviceInfo& info) {
    Listener listener;
    result_ = ClearAllOperation(info, {}, {demoState, {}, listener}).result;
    return listener.heard;
  }

  OperationResult result_ = OperationResult::Done;
};

TEST_F(ObserverTest, HearsOfAnAnswer) {
  EXPECT_THAT(Clear(SelectedTC420()), ElementsAre("sent", "answered"));
  EXPECT_THAT(Clear(SelectedTC421()), ElementsAre("sent", "answered"));
  EXPECT_THAT(Clear(SelectedTank()), ElementsAre("sent", "answered"));
  EXPECT_EQ(result_, OperationResult::Done);
}

TEST_F(ObserverTest, HearsThatNoAnswerWasNeeded) {
  sim_hidapi::SetAnswer(sim_hidapi::Silent());
  EXPECT_THAT(Clear(SelectedTC420()), ElementsAre("sent", "unanswered"));
  EXPECT_THAT(Clear(SelectedEmulator()), ElementsAre("sent", "unanswered"));
  EXPECT_EQ(result_, OperationResult::Done);
}

TEST_F(ObserverTest, HearsOfSilenceBehindTheLastTry) {
  sim_hidapi::SetAnswer(sim_hidapi::Silent());
  EXPECT_THAT(Clear(SelectedTC421()), ElementsAre("sent", "no answer"));
  EXPECT_EQ(result_, OperationResult::Failed) << "it is there: the cable was opened";
  sim_network::SetAnswer([](const sim_network::Datagram&) { return std::vector<sim_network::Datagram>(); });
  EXPECT_THAT(Clear(SelectedTank()), ElementsAre("sent", "sent", "sent", "no answer"));
  EXPECT_EQ(result_, OperationResult::NoAnswer);
}

TEST_F(ObserverTest, HearsOfAReplyThatWillNotDo) {
  sim_hidapi::SetAnswer(sim_hidapi::Sized({10}));
  EXPECT_THAT(Clear(SelectedTC421()), ElementsAre("sent", "refused"));
  EXPECT_EQ(result_, OperationResult::Failed);
}

TEST_F(ObserverTest, HearsThatAFrameDidNotLeave) {
  sim_hidapi::Inject({.call = Call::Write});
  EXPECT_THAT(Clear(SelectedTC420()), ElementsAre("not sent"));
  sim_network::Inject(sim_network::Call::Send, 1);
  EXPECT_THAT(Clear(SelectedTank()), ElementsAre("not sent"));
}

TEST_F(ObserverTest, HearsOfATakenPort) {
  sim_network::HoldPort(true);
  EXPECT_THAT(Clear(SelectedTank()), ElementsAre("port taken"));
  EXPECT_EQ(result_, OperationResult::PortTaken);
  Listener scan;
  EXPECT_THAT(TCBase::FindNetworkDevices(TCBase::kLookupPatience, scan), IsEmpty());
  EXPECT_THAT(scan.heard, ElementsAre("port taken"));
  Listener wifi;
  SetupWifi(SelectedTank(), {"Reef", "", TCBase::EncryptionAES, TCBase::SecurityOpen}, wifi);
  EXPECT_THAT(wifi.heard, ElementsAre("port taken"));
}

TEST_F(ObserverTest, HearsNothingOfAControllerThatIsNotThere) {
  sim_hidapi::Inject({.call = Call::Open});
  EXPECT_THAT(Clear(SelectedTC420()), IsEmpty());
  EXPECT_EQ(result_, OperationResult::NotConnected);
}

TEST_F(ObserverTest, HearsWhereADemoIsAndThatItHasEnded) {
  Listener listener;
  DemoOperation(SelectedEmulator(), GivenProgram({GivenRamp("Ramp")}), 2, {demoState, {}, listener});
  ASSERT_FALSE(listener.moments.empty());
  EXPECT_EQ(listener.moments.front(), 0);
  EXPECT_THAT(listener.moments, Contains(43'200));
  EXPECT_GT(listener.moments.back(), 86'000);
  EXPECT_EQ(listener.heard.back(), "demo ended");
  EXPECT_EQ(demoState.position, -1);
}

// The stop token stays where the command slot is emptied.

TEST_F(ObserverTest, AStopFromBeforeAnUploadEndsItBehindItsFirstMode) {
  std::stop_source stopping;
  stopping.request_stop();
  const TCBase::OperationContext stopped{demoState, stopping.get_token()};
  const auto upload = [&](const TCBase::DeviceInfo& info) {
    return UploadOperation(info, GivenProgram({GivenRamp("A"), GivenRamp("B")}), stopped).result;
  };
  EXPECT_EQ(RunOnDevices(upload, {SelectedTC420(), SelectedTC421()}, stopped), OperationResult::Cancelled);
  EXPECT_EQ(
      TakeStatus(),
      "Configuring device TC420\nUploading started\nUploading mode: A\nUploading finished\nCancelled!\n");
}

TEST_F(ObserverTest, AStopFromBeforeADemoEndsItInItsFirstPass) {
  std::stop_source stopping;
  stopping.request_stop();
  const OperationResult result = DemoOperation(SelectedEmulator(), GivenProgram({GivenRamp("Ramp")}), 60,
                                               {demoState, stopping.get_token()})
                                     .result;
  EXPECT_EQ(result, OperationResult::Cancelled);
  EXPECT_LT(virtual_clock::Seconds(), 1.0);
}

}  // namespace
