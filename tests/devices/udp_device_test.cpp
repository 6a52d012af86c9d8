// The UDP transport, step by step.

#include "devices/udp_device.h"

#include "devices/operations.h"
#include "devices/tc421.h"
#include "tests/devices/network_test.h"

namespace {

using sim_network::Call;
using sim_network::Datagram;
using TCBase::OperationResult;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class UdpDeviceTest : public NetworkTest {
 protected:
  // What a fresh controller on the network answers to a packet that wants any reply.
  static bool Clear() {
    TC421::UDPDevice device(SelectedTank());
    EXPECT_TRUE(device.Connect());
    return device.ClearAll();
  }

  static bool SendExpecting(int expected) {
    TC421::UDPDevice device(SelectedTank());
    EXPECT_TRUE(device.Connect());
    return device.SendPacket(TC421::Packet_SetWiFi_Open(SelectedTank(), "Reef"), expected);
  }

  static void AnswerWith(const std::vector<Datagram>& answer) {
    sim_network::SetAnswer([answer](const Datagram&) { return answer; });
  }
};

// Sockets.

TEST_F(UdpDeviceTest, ConnectTakesThePortAndSendsNothing) {
  TC421::UDPDevice device(SelectedTank());
  EXPECT_TRUE(device.Connect());
  EXPECT_EQ(sim_network::OpenSockets(), 1);
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
  EXPECT_EQ(TakeTrace(), "");
  ExpectNoNetworkViolations();
}

TEST_F(UdpDeviceTest, WithAnotherProgramOnThePortTheOperationSaysConnectError) {
  sim_network::HoldPort(true);
  EXPECT_EQ(TCBase::UploadOperation(SelectedTank(), GivenProgram({GivenRamp("A")}), context).result,
            OperationResult::PortTaken);
  EXPECT_EQ(TakeStatus(), "Connect error\n");
  EXPECT_EQ(TakeTrace(), "9:26:53:589 bind error: Address already in use\n");
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(UdpDeviceTest, ASecondDeviceObjectCannotHaveThePort) {
  TC421::UDPDevice first(SelectedTank());
  ASSERT_TRUE(first.Connect());
  EXPECT_FALSE(TC421::UDPDevice(GivenNetworkDevice(kPond, "Pond")).Connect());
}

TEST_F(UdpDeviceTest, ThePortIsFreeAgainBehindEveryOperation) {
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(Clear());
  EXPECT_EQ(sim_network::OpenSockets(), 0);
}

TEST_F(UdpDeviceTest, EachFailingStepOfConnectHasItsLine) {
  const struct {
    Call call;
    const char* trace;
  } kCases[] = {
      // A socket that could not be opened shows at the first use of it.
      {Call::Open, "9:26:53:589 setsockopt error: Bad file descriptor\n"},
      {Call::AllowBroadcasts, "9:26:53:589 setsockopt error: simulated fault\n"},
      {Call::DontWait, "9:26:53:589 ioctlsocket error: simulated fault\n"},
  };
  for (const auto& step : kCases) {
    sim_network::Inject(step.call);
    EXPECT_FALSE(TC421::UDPDevice(SelectedTank()).Connect());
    EXPECT_EQ(TakeTrace(), step.trace);
    EXPECT_EQ(sim_network::OpenSockets(), 0);
  }
  ExpectNoNetworkViolations();
}

TEST_F(UdpDeviceTest, ASendThatFailsIsLoggedAndNotTriedAgain) {
  sim_network::Inject(Call::Send);
  EXPECT_FALSE(Clear());
  EXPECT_THAT(TakeTrace(), EndsWith("9:26:53:589 sendto error: simulated fault\n"));
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.0);
}

TEST_F(UdpDeviceTest, ASecondTryThatCannotBeSentIsTheLast) {
  AnswerWith({});
  sim_network::Inject(Call::Send, 2);
  EXPECT_FALSE(Clear());
  EXPECT_EQ(CountOf(TakeTrace(), "WritePacket: Packet_ClearAll()\n"), 2);
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 2.0);
}

TEST_F(UdpDeviceTest, WhatIsSentAndReceivedStandsInTheTrace) {
  EXPECT_TRUE(Clear());
  EXPECT_EQ(TakeTrace(),
            "9:26:53:589 ClearAll\n"
            "WritePacket: Packet_ClearAll()\n"
            "9:26:53:589 sendto_core 192.168.4.7:5000\n"
            "0000  55 AA 05 FE 00 00 00 00  00 00 00 00 00 00 00 00    U....... ........ \n"
            "0010  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00    ........ ........ \n"
            "0020  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00    ........ ........ \n"
            "0030  00 53 6D 61 72 74 2D 31  32 33 34 35 36 02 00 00    .Smart-1 23456... \n"
            "\n"
            "9:26:53:589 recvfrom 192.168.4.7:5000\n"
            "0000  55 AA 05 00 6F 6B 00 00  00 00 00 00 00 00 00 00    U...ok.. ........ \n"
            "0010  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00    ........ ........ \n"
            "0020  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00    ........ ........ \n"
            "0030  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00    ........ ........ \n"
            "\n");
}

TEST_F(UdpDeviceTest, NothingGoesToAnyOtherAddressOrPort) {
  EXPECT_TRUE(Clear());
  for (const sim_network::Sent& sent : sim_network::Traffic()) {
    EXPECT_EQ(sent.to, TCBase::MakeIpv4Address(kTank, 5000));
  }
  ExpectNoNetworkViolations();
}

TEST_F(UdpDeviceTest, AFrameOfAnyLengthIsHandedOn) {
  TC421::UDPDevice device(SelectedTank());
  ASSERT_TRUE(device.Connect());
  EXPECT_TRUE(device.Write(std::string(63, 'x')));
  ASSERT_THAT(sim_network::Traffic(), SizeIs(1));
  EXPECT_EQ(sim_network::Traffic()[0].bytes, std::string(63, 'x'));
}

// Replies.

TEST_F(UdpDeviceTest, AReplyFromTheRightAddressButAnotherPortIsAccepted) {
  AnswerWith({From(kTank, GivenReply(0x05, "ok"), 61234)});
  EXPECT_TRUE(Clear());
  EXPECT_THAT(sim_network::Traffic(), SizeIs(1));
  EXPECT_THAT(TakeTrace(), HasSubstr("recvfrom 192.168.4.7:61234\n"));
}

TEST_F(UdpDeviceTest, ADatagramOf63BytesIsLoggedAndTheWaitGoesOn) {
  AnswerWith({From(kTank, std::string(63, 'x')), From(kTank, GivenReply(0x05, "ok"))});
  EXPECT_TRUE(Clear());
  EXPECT_THAT(sim_network::Traffic(), SizeIs(1));
  EXPECT_EQ(CountOf(TakeTrace(), "9:26:53:589 Received invalid packet size\n"), 1);
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.020);
}

TEST_F(UdpDeviceTest, AnyLengthBut64IsInvalid) {
  for (const std::size_t size : {0U, 1U, 63U, 65U, 128U, 1472U}) {
    AnswerWith({From(kTank, std::string(size, 'x'))});
    EXPECT_FALSE(Clear()) << size;
    EXPECT_EQ(CountOf(TakeTrace(), "Received invalid packet size\n"), 3) << size;
  }
}

TEST_F(UdpDeviceTest, ADeviceThatNeverAnswersCostsThreeTransmissionsAndSixSeconds) {
  AnswerWith({});
  EXPECT_FALSE(Clear());
  EXPECT_THAT(sim_network::Traffic(), SizeIs(3));
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 6.0);
  const std::string trace = TakeTrace();
  EXPECT_EQ(CountOf(trace, "WritePacket: Packet_ClearAll()\n"), 3);
  EXPECT_THAT(trace, Not(HasSubstr("recvfrom")));
}

TEST_F(UdpDeviceTest, AReplyFromAnotherAddressDoesNotShortenTheWaitOfTwoSeconds) {
  AnswerWith({From(kStranger, GivenReply(0x05, "ok"))});
  EXPECT_FALSE(Clear());
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 6.0);
  EXPECT_EQ(CountOf(TakeTrace(), "recvfrom 10.0.0.66:5000\n"), 3);
}

TEST_F(UdpDeviceTest, AReplyInTheLastMomentIsTaken) {
  AnswerWith({});
  virtual_clock::At(1.97, [] { sim_network::Arrive(From(kTank, GivenReply(0x05, "ok"))); });
  EXPECT_TRUE(Clear());
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 1.98);
  EXPECT_THAT(sim_network::Traffic(), SizeIs(1));
}

// It is there when the frame has been sent again.
TEST_F(UdpDeviceTest, AReplyBehindTheLastMomentIsTakenForTheOneToTheNextTransmission) {
  AnswerWith({});
  virtual_clock::At(1.99, [] { sim_network::Arrive(From(kTank, GivenReply(0x05, "ok"))); });
  EXPECT_TRUE(Clear());
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 2.0);
  EXPECT_THAT(sim_network::Traffic(), SizeIs(2));
}

TEST_F(UdpDeviceTest, ALostReplyIsMadeGoodByTheNextTransmission) {
  int replies = 0;
  sim_network::SetAnswer([&replies](const Datagram& reply) {
    return ++replies < 3 ? std::vector<Datagram>() : std::vector{reply};
  });
  EXPECT_TRUE(Clear());
  EXPECT_THAT(sim_network::Traffic(), SizeIs(3));
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 4.0);
  EXPECT_EQ(sim_network::MemoryOf(kTank).clears, 1);
}

TEST_F(UdpDeviceTest, AWrongAcknowledgementOnTheFirstTryIsFalseAfterOneTransmission) {
  EXPECT_TRUE(SendExpecting(0x74));
  EXPECT_FALSE(SendExpecting(0x70));
  EXPECT_THAT(sim_network::Traffic(), SizeIs(2));
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.0);
}

// A hostile neighbour.

TEST_F(UdpDeviceTest, AFloodStretchesNoWait) {
  int received = 0;
  sim_network::SetFlood([&received] {
    ++received;
    return From(kStranger, std::string(static_cast<std::size_t>(received % 130), 'x'));
  });
  EXPECT_FALSE(Clear());
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 6.0);
  // One each 20 ms, however many come.
  EXPECT_EQ(received, 300);
}

TEST_F(UdpDeviceTest, AStrangersAcknowledgementCountsForNothing) {
  AnswerWith({From(kStranger, GivenReply(0x18, "t")), From(kTank, GivenReply(0x18, "x"))});
  EXPECT_FALSE(SendExpecting('t'));
  EXPECT_THAT(sim_network::Traffic(), SizeIs(1));
}

// The controller.

TEST_F(UdpDeviceTest, ClockModesAndDemoReachTheController) {
  TC421::UDPDevice device(SelectedTank());
  ASSERT_TRUE(device.Connect());
  EXPECT_TRUE(device.TimeSync({2026, 3, 14, 9, 26, 53, 0}));
  device.UploadStart();
  const std::vector<TCBase::Program::ModeStep> steps{GivenStep(8, 0, {1, 2, 3, 4, 5}),
                                                     GivenStep(20, 30, {5, 4, 3, 2, 1})};
  EXPECT_TRUE(device.UploadMode(5, "Sunrise Reef", steps));
  device.UploadFinish();
  device.DemoStart("Sunrise Reef");
  device.DemoSetChannels(GivenStep(12, 0, {10, 20, 30, 40, 50}));
  device.DemoFinish();
  EXPECT_EQ(SentCommands(), "0200 0101 0102*2 040A 0601 0602 0308");
  const sim::Memory memory = sim_network::MemoryOf(kTank);
  EXPECT_EQ(memory.clock->minute, 26);
  EXPECT_EQ(memory.banks.at(5).name, "Sunrise");
  EXPECT_EQ(memory.banks.at(5).steps, steps);
  EXPECT_TRUE(memory.banks.at(5).closed);
  EXPECT_THAT(memory.live, testing::ElementsAre(10, 20, 30, 40, 50));
  EXPECT_FALSE(memory.playing);
  ExpectNoNetworkViolations();
}

TEST_F(UdpDeviceTest, StepsThatAreNeverAcknowledgedCostTheirTriesAndNeitherEndTheModeNorAreReported) {
  int replies = 0;
  sim_network::SetAnswer([&replies](const Datagram& reply) {
    ++replies;
    const bool isForAStep = replies > 1 && replies <= 1 + 2 * 3;
    return isForAStep ? std::vector<Datagram>() : std::vector{reply};
  });
  TC421::UDPDevice device(SelectedTank());
  ASSERT_TRUE(device.Connect());
  EXPECT_TRUE(device.UploadMode(0, "A", {GivenStep(8, 0, {}), GivenStep(20, 0, {})}));
  EXPECT_EQ(SentCommands(), "0101 0102*6 040A");
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 3 * 0.020 + 2 * 6.0);
}

// On a lost frame there is nothing to wait for: the next one is due in 50 ms.
TEST_F(UdpDeviceTest, NoReplyIsAwaitedInADemoUntilItsEnd) {
  AnswerWith({});
  TC421::UDPDevice device(SelectedTank());
  ASSERT_TRUE(device.Connect());
  device.DemoStart("A");
  device.DemoSetChannels(GivenStep(12, 0, {}));
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.0);
  device.DemoFinish();
  EXPECT_EQ(SentCommands(), "0601 0602 0308*3");
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 6.0);
}

TEST_F(UdpDeviceTest, AModeIsRefusedByTheRulesOfTheOtherControllers) {
  TC421::UDPDevice device(SelectedTank());
  ASSERT_TRUE(device.Connect());
  EXPECT_FALSE(device.UploadMode(64, "A", {{}, {}}));
  EXPECT_FALSE(device.UploadMode(0, "", {{}, {}}));
  EXPECT_FALSE(device.UploadMode(0, "A", {{}}));
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(UdpDeviceTest, ANetworkControllerGetsTheHalfHoursOfTheDay) {
  EXPECT_EQ(TCBase::UploadOperation(SelectedTank(), GivenProgram({GivenRamp("Ramp")}), context).result,
            OperationResult::Done);
  EXPECT_EQ(SentCommands(), "0101 0102*48 040A");
  const sim::StoredMode mode = sim_network::MemoryOf(kTank).banks.at(0);
  ASSERT_THAT(mode.steps, SizeIs(48));
  EXPECT_EQ(mode.steps[16], GivenStep(8, 0, {32, 32, 32, 32, 32}));
  ExpectNoNetworkViolations();
}

TEST_F(UdpDeviceTest, EveryFrameBearsTheControllersNameAndItsChecksumBeforeTheEndButTheClocks) {
  TC421::UDPDevice device(SelectedTank());
  ASSERT_TRUE(device.Connect());
  device.TimeSync({2026, 3, 14, 9, 26, 53, 0});
  device.ClearAll();
  device.UploadMode(1, "A", {GivenStep(0, 0, {}), GivenStep(1, 0, {})});
  device.DemoStart("A");
  device.DemoSetChannels({});
  device.DemoFinish();
  for (const sim_network::Sent& sent : sim_network::Traffic()) {
    EXPECT_EQ(sent.bytes.substr(49, 12), "Smart-123456");
    const bool clock = sent.bytes[2] == 0x02;
    EXPECT_NE(sent.bytes[clock ? 63 : 61], 0);
    EXPECT_EQ(sent.bytes[clock ? 61 : 63], 0);
  }
}

// What an operation reports of the network.

TEST_F(UdpDeviceTest, AReportTellsOfATakenPort) {
  sim_network::HoldPort(true);
  EXPECT_TRUE(TCBase::ClearAllOperation(SelectedTank(), {}, context).exchange.portTaken);
  sim_network::HoldPort(false);
  EXPECT_FALSE(TCBase::ClearAllOperation(SelectedTank(), {}, context).exchange.portTaken);
}

TEST_F(UdpDeviceTest, AReportCountsAPacketOnceAndEachReply) {
  const TCBase::Exchange fair = TCBase::ClearAllOperation(SelectedTank(), {}, context).exchange;
  EXPECT_EQ(fair.packets, 1);
  EXPECT_EQ(fair.replies, 1);
  EXPECT_EQ(fair.unconfirmed, 0);
  AnswerWith({});
  const TCBase::Exchange silent = TCBase::ClearAllOperation(SelectedTank(), {}, context).exchange;
  EXPECT_EQ(silent.packets, 1);
  EXPECT_EQ(silent.replies, 0);
  EXPECT_EQ(silent.unconfirmed, 1);
}

TEST_F(UdpDeviceTest, OfADemoTheFramesThatDidNotLeaveAreReported) {
  const auto demo = [this] {
    return TCBase::DemoOperation(SelectedTank(), GivenProgram({GivenRamp("Ramp")}), 1, context);
  };
  EXPECT_EQ(demo().result, OperationResult::Done);
  constexpr int kAFrame = 3;
  sim_network::Inject(sim_network::Call::Send, kAFrame);
  const TCBase::OperationReport report = demo();
  EXPECT_EQ(report.result, OperationResult::Failed);
  EXPECT_EQ(report.exchange.unconfirmed, 1);
}

}  // namespace
