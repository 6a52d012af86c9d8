// TC420, TC421 and the emulator: which frames each device operation sends, and what they do to a controller.

#include "devices/operations.h"
#include "devices/tc420.h"
#include "devices/tc421.h"
#include "tests/devices/device_test.h"

namespace {

using sim_hidapi::Call;
using sim_hidapi::Family;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Steps = TCBase::DeviceBase::Steps;

const Steps kTwoSteps{GivenStep(8, 0, {1, 2, 3, 4, 5}, {false, true, false, false, true}),
                      GivenStep(20, 30, {5, 4, 3, 2, 1})};
const DateTime kMoment{2026, 3, 14, 9, 26, 53, 589};

Steps GivenSteps(int count) {
  Steps steps;
  for (int i = 0; i < count; ++i) steps.push_back(GivenStep(i / 60, i % 60, {}));
  return steps;
}

// One that is plugged in and connected.
template <class Device, Family kFamily>
class ConnectedTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    sim_hidapi::PlugIn(kFamily);
    device_ = std::make_unique<Device>();
    ASSERT_TRUE(device_->Connect());
  }
  void TearDown() override {
    device_.reset();
    DeviceTest::TearDown();
  }

  static std::string Sent() { return Commands(kFamily); }
  static sim::Memory Memory() { return sim_hidapi::MemoryOf(kFamily); }
  static std::size_t FrameCount() { return sim_hidapi::Frames(kFamily).size(); }

  std::unique_ptr<TCBase::DeviceBase> device_;
};

using TC420Test = ConnectedTest<TC420::Device, Family::TC420>;
using TC421Test = ConnectedTest<TC421::USBDevice, Family::TC421>;

TEST_F(TC420Test, AModeIsOneInitOneFramePerStepAndOneStop) {
  EXPECT_TRUE(device_->UploadMode(5, "Sunrise Reef", kTwoSteps));
  EXPECT_EQ(Sent(), "12 13*2 01");
  const sim::StoredMode mode = Memory().banks.at(5);
  EXPECT_EQ(mode.name, "Sunrise ");
  EXPECT_EQ(mode.steps, kTwoSteps);
  EXPECT_TRUE(mode.closed);
  ExpectNoViolations();
}

TEST_F(TC420Test, AnUploadEndsWithOneModeStop) {
  device_->UploadStart();
  EXPECT_TRUE(device_->UploadMode(0, "A", kTwoSteps));
  EXPECT_TRUE(device_->UploadMode(1, "B", kTwoSteps));
  device_->UploadFinish();
  EXPECT_EQ(Sent(), "12 13*2 01 12 13*2 01 02");
  ExpectNoViolations();
}

TEST_F(TC420Test, ADemoIsOneInitAnyNumberOfValuesAndOneStop) {
  device_->DemoStart("Sunrise");
  device_->DemoSetChannels(GivenStep(12, 0, {10, 20, 30, 40, 50}));
  device_->DemoSetChannels(GivenStep(12, 1, {11, 21, 31, 41, 51}));
  EXPECT_TRUE(Memory().playing);
  EXPECT_EQ(Memory().playName, "Sunris");
  EXPECT_THAT(Memory().live, ElementsAre(11, 21, 31, 41, 51));
  device_->DemoFinish();
  EXPECT_EQ(Sent(), "15 16*2 02");
  EXPECT_FALSE(Memory().playing);
  ExpectNoViolations();
}

TEST_F(TC420Test, TheClockIsSetToTheGivenTime) {
  EXPECT_TRUE(device_->TimeSync(kMoment));
  ASSERT_TRUE(Memory().clock);
  EXPECT_EQ(Memory().clock->year, 2026);
  EXPECT_EQ(Memory().clock->second, 53);
  ExpectNoViolations();
}

TEST_F(TC420Test, AClearForgetsAllModes) {
  EXPECT_TRUE(device_->UploadMode(0, "A", kTwoSteps));
  EXPECT_TRUE(device_->ClearAll());
  EXPECT_THAT(Memory().banks, IsEmpty());
  ExpectNoViolations();
}

TEST_F(TC420Test, AModeOfOneStepOrWithoutANameIsRefusedBeforeAnyFrameGoesOut) {
  EXPECT_FALSE(device_->UploadMode(0, "A", GivenSteps(1)));
  EXPECT_FALSE(device_->UploadMode(0, "A", {}));
  EXPECT_FALSE(device_->UploadMode(0, "", kTwoSteps));
  EXPECT_EQ(FrameCount(), 0U);
}

TEST_F(TC420Test, Bank63IsAcceptedAndBank64Refused) {
  EXPECT_TRUE(device_->UploadMode(63, "A", kTwoSteps));
  EXPECT_EQ(FrameCount(), 4U);
  EXPECT_FALSE(device_->UploadMode(64, "A", kTwoSteps));
  EXPECT_EQ(FrameCount(), 4U);
}

TEST_F(TC420Test, NoLimitIsPutOnTheNumberOfSteps) {
  EXPECT_TRUE(device_->UploadMode(0, "A", GivenSteps(300)));
  EXPECT_EQ(Sent(), "12 13*300 01");
  ExpectNoViolations();
}

TEST_F(TC420Test, AFailedInitEndsTheMode) {
  sim_hidapi::Inject({.call = Call::Write});
  EXPECT_FALSE(device_->UploadMode(0, "A", kTwoSteps));
  EXPECT_EQ(FrameCount(), 0U);
}

TEST_F(TC420Test, AFailedStepNeitherStopsTheModeNorIsReported) {
  sim_hidapi::Inject({.call = Call::Write, .nth = 2});
  EXPECT_TRUE(device_->UploadMode(0, "A", kTwoSteps));
  EXPECT_EQ(Sent(), "12 13 01");
}

TEST_F(TC420Test, AFailedLastFrameIsReported) {
  sim_hidapi::Inject({.call = Call::Write, .nth = 4});
  EXPECT_FALSE(device_->UploadMode(0, "A", kTwoSteps));
}

// The slots without a result: whoever calls them cannot know, only the trace tells.
TEST_F(TC420Test, FailuresOfUploadFinishAndTheDemoGoUnnoticedButForTheTrace) {
  sim_hidapi::Inject({.call = Call::Write, .times = sim_hidapi::kForever});
  device_->UploadStart();
  device_->UploadFinish();
  device_->DemoStart("A");
  device_->DemoSetChannels(GivenStep(0, 0, {}));
  device_->DemoFinish();
  EXPECT_EQ(FrameCount(), 0U);
  const std::string trace = TakeTrace();
  EXPECT_THAT(trace, HasSubstr("hid_write error: simulated fault"));
  EXPECT_THAT(PacketsIn(trace), ElementsAre("Packet_ModeStop()", "Packet_PlayInit(Name=A)",
                                            "Packet_PlaySetChannels(0 0 0 0 0)", "Packet_ModeStop()"));
}

TEST_F(TC420Test, AModeOnASilentDeviceTakes800MillisecondsAFrame) {
  sim_hidapi::SetAnswer(sim_hidapi::Silent());
  EXPECT_TRUE(device_->UploadMode(0, "A", kTwoSteps));
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 4 * 0.8);
}

TEST_F(TC421Test, AModeIsOneInitOneFramePerStepAndOneStopAndTheStepsGoWithoutJumps) {
  EXPECT_TRUE(device_->UploadMode(5, "Sunrise Reef", kTwoSteps));
  EXPECT_EQ(Sent(), "0101 0102*2 040A");
  const sim::StoredMode mode = Memory().banks.at(5);
  EXPECT_EQ(mode.name, "Sunrise");
  EXPECT_THAT(mode.steps, ElementsAre(GivenStep(8, 0, {1, 2, 3, 4, 5}), kTwoSteps[1]));
  EXPECT_TRUE(mode.closed);
  ExpectNoViolations();
}

TEST_F(TC421Test, TheNameInTheTraceIsCutToEightBytesThoughSevenAreSent) {
  EXPECT_TRUE(device_->UploadMode(0, "Sunrise Reef", kTwoSteps));
  EXPECT_EQ(PacketsIn(TakeTrace()).front(), "Packet_ModeInit(Bank=0, Length=2, Name=Sunrise )");
}

TEST_F(TC421Test, TwentyMillisecondsPassBeforeEachStepAndBeforeTheEnd) {
  EXPECT_TRUE(device_->UploadMode(0, "A", kTwoSteps));
  const std::vector<sim::Received> frames = sim_hidapi::Frames(Family::TC421);
  ASSERT_EQ(frames.size(), 4U);
  for (std::size_t i = 0; i < frames.size(); ++i) {
    EXPECT_DOUBLE_EQ(frames[i].seconds, 0.020 * static_cast<double>(i));
  }
}

TEST_F(TC421Test, UploadStartAndUploadFinishSendNothing) {
  device_->UploadStart();
  device_->UploadFinish();
  EXPECT_EQ(FrameCount(), 0U);
  EXPECT_EQ(TakeTrace(), "9:26:53:589 UploadStart\n9:26:53:589 UploadFinish\n");
}

TEST_F(TC421Test, ADemoIsOneInitAnyNumberOfValuesAndOneStop) {
  device_->DemoStart("Sunrise Reef");
  device_->DemoSetChannels(GivenStep(12, 0, {10, 20, 30, 40, 50}));
  EXPECT_EQ(Memory().playName, "Sunrise");
  EXPECT_THAT(Memory().live, ElementsAre(10, 20, 30, 40, 50));
  device_->DemoFinish();
  EXPECT_EQ(Sent(), "0601 0602 0308");
  ExpectNoViolations();
}

TEST_F(TC421Test, TimeAndClearAnswerTheirResult) {
  EXPECT_TRUE(device_->TimeSync(kMoment));
  EXPECT_TRUE(device_->ClearAll());
  EXPECT_EQ(Sent(), "0200 05FE");
  EXPECT_EQ(Memory().clock->day, 14);
  ExpectNoViolations();
  sim_hidapi::SetAnswer(sim_hidapi::Silent());
  EXPECT_FALSE(device_->TimeSync(kMoment));
  EXPECT_FALSE(device_->ClearAll());
}

TEST_F(TC421Test, AModeIsRefusedByTheRulesOfTheTC420) {
  EXPECT_FALSE(device_->UploadMode(64, "A", kTwoSteps));
  EXPECT_FALSE(device_->UploadMode(0, "", kTwoSteps));
  EXPECT_FALSE(device_->UploadMode(0, "A", GivenSteps(1)));
  EXPECT_EQ(FrameCount(), 0U);
  EXPECT_TRUE(device_->UploadMode(63, "A", kTwoSteps));
}

TEST_F(TC421Test, ASilentDeviceEndsTheModeAtItsInit) {
  sim_hidapi::SetAnswer(sim_hidapi::Silent());
  EXPECT_FALSE(device_->UploadMode(0, "A", kTwoSteps));
  EXPECT_EQ(Sent(), "0101");
}

TEST_F(TC421Test, AStepWithoutAReplyNeitherStopsTheModeNorIsReported) {
  sim_hidapi::Inject({.call = Call::Read, .nth = 3});
  EXPECT_TRUE(device_->UploadMode(0, "A", kTwoSteps));
  EXPECT_EQ(Sent(), "0101 0102*2 040A");
}

TEST_F(TC421Test, TheSameRoutineSendsAModeTheUdpWay) {
  EXPECT_TRUE(TC421::SendMode(*device_, GivenDevice(TCBase::ModelTC421UDP, "Smart-123456"), 64, "A", {}) ==
              false);
  TC420::Mock wire;
  EXPECT_TRUE(TC421::SendMode(wire, GivenDevice(TCBase::ModelTC421UDP, "Smart-123456"), 0, "A", kTwoSteps));
  ASSERT_EQ(wire.Frames().size(), 4U);
  for (const std::string& frame : wire.Frames()) {
    EXPECT_EQ(frame.substr(49, 12), "Smart-123456");
    EXPECT_EQ(frame[63], 0);
  }
}

class EmulatorTest : public DeviceTest {};

TEST_F(EmulatorTest, RecordsEveryFrameAndTracesAllButTheDumps) {
  TC420::Mock emulator;
  EXPECT_TRUE(emulator.Connect());
  EXPECT_TRUE(emulator.UploadMode(0, "A", kTwoSteps));
  ASSERT_EQ(emulator.Frames().size(), 4U);
  EXPECT_EQ(sim::ToHex(emulator.Frames().front().substr(0, 9)), "55 AA 12 00 0A 00 02 41 00");
  EXPECT_EQ(TakeTrace(),
            "9:26:53:589 UploadMode\n"
            "WritePacket: Packet_ModeInit(Bank=0, Length=2, Name=A)\n"
            "WritePacket: Packet_ModeStep(Hour=08, Minute=00, Steps=(1 2 3 4 5), JumpsFlags=18)\n"
            "WritePacket: Packet_ModeStep(Hour=20, Minute=30, Steps=(5 4 3 2 1), JumpsFlags=0)\n"
            "WritePacket: Packet_ModeStepsStop()\n");
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.0);
}

TEST_F(EmulatorTest, TouchesNoController) {
  sim_hidapi::PlugIn(Family::TC420);
  TC420::Mock emulator;
  EXPECT_TRUE(emulator.Connect());
  EXPECT_TRUE(emulator.ClearAll());
  EXPECT_EQ(sim_hidapi::OpenHandles(), 0);
  EXPECT_THAT(sim_hidapi::Frames(Family::TC420), IsEmpty());
}

TEST_F(EmulatorTest, ReadsAnEmptyReply) {
  TC420::Mock emulator;
  std::string reply = "left over";
  EXPECT_TRUE(emulator.Read(reply));
  EXPECT_EQ(reply, "");
}

TEST_F(EmulatorTest, RefusesTheModesThatATC420Refuses) {
  TC420::Mock emulator;
  EXPECT_FALSE(emulator.UploadMode(64, "A", kTwoSteps));
  EXPECT_FALSE(emulator.UploadMode(0, "", kTwoSteps));
  EXPECT_THAT(emulator.Frames(), IsEmpty());
}

TEST(CreateDeviceTest, MakesTheDeviceOfTheModelAndTheEmulatorOfAnyOther) {
  const auto make = [](int model) {
    TCBase::DeviceInfo info;
    info.model = model;
    return TCBase::CreateDevice(info);
  };
  EXPECT_NE(dynamic_cast<TC420::Device*>(make(1).get()), nullptr);
  EXPECT_EQ(dynamic_cast<TC420::Mock*>(make(1).get()), nullptr);
  EXPECT_NE(dynamic_cast<TC421::USBDevice*>(make(3).get()), nullptr);
  for (const int model : {2, 0, 5, -1, 1000000}) {
    EXPECT_NE(dynamic_cast<TC420::Mock*>(make(model).get()), nullptr) << model;
  }
  EXPECT_NE(dynamic_cast<TC421::UDPDevice*>(make(4).get()), nullptr);
}

}  // namespace
