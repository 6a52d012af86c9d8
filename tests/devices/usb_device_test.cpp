// The USB transport, step by step, and what the two families make of the replies.

#include "devices/usb_device.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <sstream>

#include "devices/tc420.h"
#include "devices/tc421.h"
#include "tests/devices/device_test.h"
#include "tests/support/files.h"

namespace {

using sim_hidapi::Call;
using sim_hidapi::Family;
using testing::HasSubstr;
using testing::Not;

class UsbDeviceTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    sim_hidapi::PlugIn(Family::TC420);
    sim_hidapi::PlugIn(Family::TC421);
  }

  static std::string ClearAllFrame() {
    std::string frame;
    TC420::Packet_ClearAll().Serialize(frame);
    return frame;
  }

  // Sends a packet to a fresh TC420.
  static bool Send() {
    TC420::Device device;
    EXPECT_TRUE(device.Connect());
    return device.SendPacket(TC420::Packet_ClearAll(), -1);
  }

  // What a fresh TC420 reads after a packet.
  static std::string ReadReply(bool expected = true) {
    TC420::Device device;
    EXPECT_TRUE(device.Connect());
    EXPECT_TRUE(device.Write(ClearAllFrame()));
    std::string reply = "left over";
    EXPECT_EQ(device.Read(reply), expected);
    return reply;
  }
};

TEST_F(UsbDeviceTest, WithNoDeviceConnectAnswersFalseAndWritesNothing) {
  sim_hidapi::Reset();
  EXPECT_FALSE(TC420::Device().Connect());
  EXPECT_FALSE(TC421::USBDevice().Connect());
  EXPECT_EQ(TakeTrace(), "");
  EXPECT_EQ(TakeStatus(), "");
}

TEST_F(UsbDeviceTest, EachFamilyIsFoundByItsIds) {
  sim_hidapi::PullOut(Family::TC421);
  EXPECT_TRUE(TC420::Device().Connect());
  EXPECT_FALSE(TC421::USBDevice().Connect());
  sim_hidapi::PullOut(Family::TC420);
  sim_hidapi::PlugIn(Family::TC421);
  EXPECT_FALSE(TC420::Device().Connect());
  EXPECT_TRUE(TC421::USBDevice().Connect());
}

TEST_F(UsbDeviceTest, ADeviceThatCannotBeOpenedIsNotConnected) {
  sim_hidapi::Inject({.call = Call::Open});
  EXPECT_FALSE(TC420::Device().Connect());
  EXPECT_TRUE(TC420::Device().Connect());
}

TEST_F(UsbDeviceTest, ADeviceThatThisUserMayNotOpenIsToldApart) {
  sim_hidapi::SetAllowed(Family::TC421, false);
  TC421::USBDevice device;
  EXPECT_FALSE(device.Connect());
  EXPECT_TRUE(device.IsForbidden());
  EXPECT_EQ(TakeTrace() + TakeStatus() + TakeWarnings(), "");
  // The rights are looked at anew.
  sim_hidapi::SetAllowed(Family::TC421, true);
  EXPECT_FALSE(device.IsForbidden());
}

TEST_F(UsbDeviceTest, NoOtherFailureToConnectIsTakenForMissingRights) {
  const auto isForbidden = [] {
    TC420::Device device;
    device.Connect();
    return device.IsForbidden();
  };
  sim_hidapi::SetAllowed(Family::TC421, false);
  EXPECT_FALSE(isForbidden()) << "it is the other family that may not be opened";
  sim_hidapi::Inject({.call = Call::Open});
  EXPECT_FALSE(isForbidden()) << "another program holds it";
  sim_hidapi::Inject({.call = Call::SetNonblocking});
  EXPECT_FALSE(isForbidden()) << "it was opened";
  sim_hidapi::SetAllowed(Family::TC420, false);
  EXPECT_TRUE(isForbidden());
  sim_hidapi::PullOut(Family::TC420);
  EXPECT_FALSE(isForbidden()) << "it is not there";
}

// A read in blocking mode would wait for a silent controller for ever.
TEST_F(UsbDeviceTest, ADeviceThatStaysInBlockingModeIsNotConnected) {
  sim_hidapi::Inject({.call = Call::SetNonblocking});
  EXPECT_FALSE(TC420::Device().Connect());
}

TEST_F(UsbDeviceTest, TheDestructorClosesTheHandle) {
  {
    TC420::Device device;
    EXPECT_TRUE(device.Connect());
    EXPECT_EQ(sim_hidapi::OpenHandles(), 1);
  }
  EXPECT_EQ(sim_hidapi::OpenHandles(), 0);
}

TEST_F(UsbDeviceTest, AFrameOf63Or65BytesIsNotSentAndLeavesNoTrace) {
  TC420::Device device;
  ASSERT_TRUE(device.Connect());
  EXPECT_FALSE(device.Write(std::string(63, 'x')));
  EXPECT_FALSE(device.Write(std::string(65, 'x')));
  EXPECT_FALSE(device.Write(""));
  EXPECT_THAT(sim_hidapi::Frames(Family::TC420), testing::IsEmpty());
  EXPECT_EQ(TakeTrace(), "");
}

TEST_F(UsbDeviceTest, AFrameIsWrittenAs65BytesAndDumpedAs64) {
  TC420::Device device;
  ASSERT_TRUE(device.Connect());
  EXPECT_TRUE(device.Write(ClearAllFrame()));
  ExpectNoViolations();
  ASSERT_EQ(sim_hidapi::Frames(Family::TC420).size(), 1U);
  EXPECT_EQ(sim_hidapi::Frames(Family::TC420)[0].frame, ClearAllFrame());
  const std::string trace = TakeTrace();
  EXPECT_THAT(trace, testing::StartsWith("9:26:53:589 hid_write:\n0000  55 AA 03 00"));
  EXPECT_THAT(trace, HasSubstr("\n0030  "));
  EXPECT_THAT(trace, Not(HasSubstr("\n0040  ")));
}

TEST_F(UsbDeviceTest, AFailingWriteIsLoggedWithTheLibrarysText) {
  sim_hidapi::Inject({.call = Call::Write, .text = L"cable \u00E4 \U0001F41F gone"});
  EXPECT_FALSE(Send());
  const std::string trace = TakeTrace();
  EXPECT_THAT(trace,
              testing::EndsWith("9:26:53:589 hid_write error: cable \xC3\xA4 \xF0\x9F\x90\x9F gone\n"));
  EXPECT_THAT(trace, Not(HasSubstr("hid_read")));
}

TEST_F(UsbDeviceTest, AnErrorWithoutATextReadsSuccess) {
  sim_hidapi::Inject({.call = Call::Write, .text = nullptr});
  EXPECT_FALSE(Send());
  EXPECT_THAT(TakeTrace(), HasSubstr("hid_write error: Success\n"));
}

TEST_F(UsbDeviceTest, AWriteThatTakesAnotherNumberOfBytesFailsWithoutALine) {
  for (const int written : {0, 64, 66}) {
    sim_hidapi::Inject({.call = Call::Write, .result = written});
    EXPECT_FALSE(Send()) << written;
    EXPECT_THAT(TakeTrace(), Not(HasSubstr("error"))) << written;
  }
}

TEST_F(UsbDeviceTest, AFailingReadIsLoggedAndFails) {
  sim_hidapi::Inject({.call = Call::Read, .text = L"device gone"});
  EXPECT_FALSE(Send());
  EXPECT_THAT(TakeTrace(), testing::EndsWith("9:26:53:589 hid_read error: device gone\n"));
}

TEST_F(UsbDeviceTest, AReadThatFailsAfterDataHasComeFailsToo) {
  sim_hidapi::Inject({.call = Call::Read, .nth = 2});
  ReadReply(false);
}

TEST_F(UsbDeviceTest, AReplyAtTheThirdPollIsWholeAndEndsAtTheNextEmptyPoll) {
  sim_hidapi::SetAnswer(sim_hidapi::AtPoll(3));
  EXPECT_EQ(ReadReply().size(), 64U);
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 2 * 0.020);
  const std::string trace = TakeTrace();
  EXPECT_THAT(trace, HasSubstr("9:26:53:629 hid_read:\n0000  55 AA 03"));
}

TEST_F(UsbDeviceTest, AReplyAtTheLastPollIsStillTaken) {
  sim_hidapi::SetAnswer(sim_hidapi::AtPoll(40));
  EXPECT_EQ(ReadReply().size(), 64U);
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 39 * 0.020);
}

TEST_F(UsbDeviceTest, AReplyAtThe41stPollIsTooLate) {
  sim_hidapi::SetAnswer(sim_hidapi::AtPoll(41));
  EXPECT_EQ(ReadReply(), "");
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.800);
}

TEST_F(UsbDeviceTest, ASilentDeviceCosts800MillisecondsAndCountsAsSuccessOnATC420) {
  sim_hidapi::SetAnswer(sim_hidapi::Silent());
  EXPECT_TRUE(Send());
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.800);
}

TEST_F(UsbDeviceTest, ASilentDeviceCosts800MillisecondsAndCountsAsFailureOnATC421) {
  sim_hidapi::SetAnswer(sim_hidapi::Silent());
  TC421::USBDevice device;
  ASSERT_TRUE(device.Connect());
  EXPECT_FALSE(device.ClearAll());
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.800);
}

TEST_F(UsbDeviceTest, TwoReportsInARowAreOneReplyOf128Bytes) {
  sim_hidapi::SetAnswer(sim_hidapi::Sized({64, 64}));
  EXPECT_EQ(ReadReply().size(), 128U);
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.0);
}

TEST_F(UsbDeviceTest, AnOverlongReportIsCutByTheLibrary) {
  sim_hidapi::SetAnswer(sim_hidapi::Sized({500}));
  EXPECT_EQ(ReadReply().size(), 64U);
}

TEST_F(UsbDeviceTest, ADeviceThatNeverStopsTalkingIsCutAt64Reports) {
  sim_hidapi::SetAnswer(sim_hidapi::Sized(std::vector<std::size_t>(1000, 64)));
  EXPECT_EQ(ReadReply().size(), 64U * 64U);
}

TEST_F(UsbDeviceTest, AShortReplyIsAReplyToATC420AndNoneToATC421) {
  sim_hidapi::SetAnswer(sim_hidapi::Sized({63}));
  EXPECT_TRUE(Send());
  TC421::USBDevice device;
  ASSERT_TRUE(device.Connect());
  EXPECT_FALSE(device.ClearAll());
  sim_hidapi::SetAnswer(sim_hidapi::Prompt());
  EXPECT_TRUE(device.ClearAll());
}

TEST_F(UsbDeviceTest, ADevicePulledOutFailsOnEveryFurtherWrite) {
  TC420::Device device;
  ASSERT_TRUE(device.Connect());
  sim_hidapi::PullOut(Family::TC420);
  EXPECT_FALSE(device.ClearAll());
  EXPECT_FALSE(device.ClearAll());
  EXPECT_THAT(TakeTrace(), HasSubstr("hid_write error: No such device\n"));
  // Plugged in again it is another device to the system: the old handle stays dead.
  sim_hidapi::PlugIn(Family::TC420);
  EXPECT_FALSE(device.ClearAll());
}

TEST_F(UsbDeviceTest, OfTwoDevicesOfAFamilyTheFirstIsUsed) {
  sim_hidapi::PlugIn(Family::TC420);
  EXPECT_TRUE(Send());
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC420).clears, 1);
}

TEST(TC421Reply, TheRuleInItsOrder) {
  std::string reply(64, '\0');
  reply[4] = 'p';
  EXPECT_TRUE(TC421::IsGoodReply(reply, 0x70));
  EXPECT_FALSE(TC421::IsGoodReply(reply, 0x72));
  EXPECT_TRUE(TC421::IsGoodReply(reply, -1));
  EXPECT_FALSE(TC421::IsGoodReply(reply.substr(0, 63), -1));
  EXPECT_FALSE(TC421::IsGoodReply(reply.substr(0, 63), 0x70));
  EXPECT_FALSE(TC421::IsGoodReply("", -1));
  // An empty text reads as 0, and a byte past 127 as a negative number, which nothing expects.
  reply[4] = 0;
  EXPECT_TRUE(TC421::IsGoodReply(reply, 0));
  EXPECT_FALSE(TC421::IsGoodReply(reply, 0x70));
  reply[4] = '\xF0';
  EXPECT_FALSE(TC421::IsGoodReply(reply, 0xF0));
}

TEST(TC421Reply, OnlyTheFirstBlockOf128BytesIsLookedAt) {
  std::string reply(128, '\0');
  reply[4] = 'p';
  reply[68] = 'r';
  EXPECT_TRUE(TC421::IsGoodReply(reply, 0x70));
  EXPECT_FALSE(TC421::IsGoodReply(reply, 0x72));
}

// The rule that gives users the right to open controllers.
TEST(UsbRule, NamesTheFamiliesByTheirIdsAndWhoeverIsAtTheComputer) {
  const auto rule = [](const TCBase::UsbIds& ids) {
    std::array<char, 128> line{};
    std::snprintf(line.data(), line.size(),
                  R"(KERNEL=="hidraw*", ATTRS{idVendor}=="%04x", ATTRS{idProduct}=="%04x", TAG+="uaccess")",
                  ids.vendor, ids.product);
    return std::string(line.data());
  };
  std::istringstream lines(
      BytesOf(std::filesystem::path(LUMARINE_SOURCE_DIR) / "resources/linux/70-lumarine.rules"));
  std::vector<std::string> rules;
  for (std::string line; std::getline(lines, line);)
    if (!line.starts_with('#')) rules.push_back(line);
  EXPECT_THAT(rules, testing::ElementsAre(rule(TCBase::kTC420Ids), rule(TCBase::kTC421Ids)));
}

}  // namespace
