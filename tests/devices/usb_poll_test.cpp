// Noticing controllers on USB.

#include "devices/usb_poll.h"

#include "tests/devices/device_test.h"

namespace {

using sim_hidapi::Call;
using sim_hidapi::Family;

class UsbPollTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    poll_.timer.Reset();
    poll_.onChange = [this](bool connected) { changes_ += connected ? "+" : "-"; };
    poll_.onForbidden = [this](bool forbidden) { changes_ += forbidden ? "!" : "."; };
  }

  // Polls once, five seconds after the last time.
  void PollWhenDue() {
    virtual_clock::Advance(5.0);
    TCBase::PollUsb(poll_, TCBase::ControllerModelOf(TCBase::ModelTC420));
  }

  TCBase::UsbPoll poll_;
  std::string changes_;
};

TEST_F(UsbPollTest, NothingIsLookedForBeforeFiveSecondsHavePassed) {
  sim_hidapi::PlugIn(Family::TC420);
  virtual_clock::Advance(4.999);
  TCBase::PollUsb(poll_, TCBase::ControllerModelOf(TCBase::ModelTC420));
  EXPECT_FALSE(poll_.connected);
  virtual_clock::Advance(0.001);
  TCBase::PollUsb(poll_, TCBase::ControllerModelOf(TCBase::ModelTC420));
  EXPECT_TRUE(poll_.connected);
  EXPECT_EQ(changes_, "+");
}

TEST_F(UsbPollTest, OnlyChangesAreTold) {
  PollWhenDue();
  sim_hidapi::PlugIn(Family::TC420);
  PollWhenDue();
  PollWhenDue();
  sim_hidapi::PullOut(Family::TC420);
  PollWhenDue();
  PollWhenDue();
  EXPECT_EQ(changes_, "+-");
  EXPECT_EQ(TakeStatus(), "");
}

TEST_F(UsbPollTest, AChangeThatNobodyListensForIsNotedAllTheSame) {
  poll_.onChange = nullptr;
  sim_hidapi::PlugIn(Family::TC420);
  PollWhenDue();
  EXPECT_TRUE(poll_.connected);
}

TEST_F(UsbPollTest, TheOtherFamilyIsNotMistakenForThisOne) {
  sim_hidapi::PlugIn(Family::TC421);
  PollWhenDue();
  EXPECT_FALSE(poll_.connected);
  virtual_clock::Advance(5.0);
  TCBase::PollUsb(poll_, TCBase::ControllerModelOf(TCBase::ModelTC421USB));
  EXPECT_TRUE(poll_.connected);
}

TEST_F(UsbPollTest, TheProbeIsClosedAndNothingIsSent) {
  sim_hidapi::PlugIn(Family::TC420);
  PollWhenDue();
  EXPECT_EQ(sim_hidapi::OpenHandles(), 0);
  EXPECT_THAT(sim_hidapi::Frames(Family::TC420), testing::IsEmpty());
  EXPECT_EQ(TakeTrace(), "");
}

TEST_F(UsbPollTest, ADeviceThatTakesLongerThanTwoSecondsCountsAsConnectedAndIsWarnedOfOnEachPoll) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SlowDown(Call::Open, 2500);
  PollWhenDue();
  const std::string warning =
      "Connecting to a device took 2500 ms. This usually points to a USB communication error. Please try to "
      "disconnect and reconnect the USB device again.\n";
  EXPECT_EQ(TakeStatus(), warning);
  PollWhenDue();
  EXPECT_EQ(TakeStatus(), warning);
  EXPECT_EQ(changes_, "+");
}

TEST_F(UsbPollTest, TwoSecondsAreNotYetSlow) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SlowDown(Call::Open, 2000);
  PollWhenDue();
  EXPECT_TRUE(poll_.connected);
  EXPECT_EQ(TakeStatus(), "");
}

TEST_F(UsbPollTest, ADeviceThatIsSlowToFailIsNotWarnedOf) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SlowDown(Call::Open, 3000);
  sim_hidapi::Inject({.call = Call::Open});
  PollWhenDue();
  EXPECT_FALSE(poll_.connected);
  EXPECT_EQ(TakeStatus(), "");
}

TEST_F(UsbPollTest, TheFiveSecondsCountFromTheEndOfThePoll) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SlowDown(Call::Open, 1500);
  PollWhenDue();
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 6.5);
  EXPECT_DOUBLE_EQ(poll_.timer.Now(), 0.0);
}

TEST_F(UsbPollTest, TwoControllersOfAFamilyAreOneAndPullingOneOutChangesNothing) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::PlugIn(Family::TC420);
  PollWhenDue();
  sim_hidapi::PullOut(Family::TC420);
  PollWhenDue();
  EXPECT_EQ(changes_, "+");
  sim_hidapi::PullOut(Family::TC420);
  PollWhenDue();
  EXPECT_EQ(changes_, "+-");
}

TEST_F(UsbPollTest, APollCanBeMadeDueAtOnce) {
  sim_hidapi::PlugIn(Family::TC420);
  poll_.MakeDue();
  TCBase::PollUsb(poll_, TCBase::ControllerModelOf(TCBase::ModelTC420));
  EXPECT_TRUE(poll_.connected);
}

// Rights.

TEST_F(UsbPollTest, AControllerThatMayNotBeOpenedIsToldOnceForEachTimeThatItIsPluggedIn) {
  sim_hidapi::SetAllowed(Family::TC420, false);
  PollWhenDue();
  EXPECT_EQ(changes_, "");
  sim_hidapi::PlugIn(Family::TC420);
  for (int i = 0; i < 3; ++i) PollWhenDue();
  EXPECT_EQ(changes_, "!");
  EXPECT_TRUE(poll_.forbidden);
  sim_hidapi::PullOut(Family::TC420);
  PollWhenDue();
  EXPECT_EQ(changes_, "!.");
  EXPECT_FALSE(poll_.forbidden);
  sim_hidapi::PlugIn(Family::TC420);
  for (int i = 0; i < 3; ++i) PollWhenDue();
  EXPECT_EQ(changes_, "!.!");
}

TEST_F(UsbPollTest, OnceItMayBeOpenedItIsConnected) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SetAllowed(Family::TC420, false);
  PollWhenDue();
  sim_hidapi::SetAllowed(Family::TC420, true);
  PollWhenDue();
  EXPECT_EQ(changes_, "!+.");
  // As when another user takes the computer over.
  sim_hidapi::SetAllowed(Family::TC420, false);
  PollWhenDue();
  EXPECT_EQ(changes_, "!+.-!");
}

TEST_F(UsbPollTest, TheRightsMayComeHalfASecondBehindTheController) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SetAllowed(Family::TC420, false);
  virtual_clock::At(5.4, [] { sim_hidapi::SetAllowed(Family::TC420, true); });
  PollWhenDue();
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 5.5);
  EXPECT_EQ(changes_, "");
  PollWhenDue();
  EXPECT_EQ(changes_, "+");
}

TEST_F(UsbPollTest, OnlyTheFirstLookAtAForbiddenControllerTakesTime) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SetAllowed(Family::TC420, false);
  PollWhenDue();
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 5.5);
  PollWhenDue();
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 10.5);
}

TEST_F(UsbPollTest, OneThatFailsToOpenForAnotherReasonIsNotForbidden) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::Inject({.call = Call::Open});
  PollWhenDue();
  EXPECT_EQ(changes_, "");
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 5.0);
}

}  // namespace
