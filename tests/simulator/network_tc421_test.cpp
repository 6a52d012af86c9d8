// What a TC421 on the network accepts, byte by byte: the program's own tests lean on it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/controller.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr char kName[] = "Smart-123456";

// A frame as it is on the wire, from its command, its length byte and its payload.
std::string Frame(int command, int length, const std::string& payload, const std::string& name = kName,
                  std::size_t checksum = 61) {
  std::string frame(64, '\0');
  frame[0] = 0x55;
  frame[1] = static_cast<char>(0xAA);
  frame[2] = static_cast<char>(command >> 8);
  frame[3] = static_cast<char>(command & 0xFF);
  frame[5] = static_cast<char>(length);
  frame.replace(6, payload.size(), payload);
  frame.replace(49, name.size(), name);
  unsigned sum = 0;
  for (std::size_t i = 0; i < 49; ++i) sum += static_cast<unsigned char>(frame[i]);
  frame[checksum] = static_cast<char>(sum & 0xFF);
  return frame;
}

std::string Frame(int command, const std::string& payload = {}) {
  return Frame(command, static_cast<int>(payload.size()), payload);
}

const std::string kClear = Frame(0x05FE);
const std::string kBegin = Frame(0x0101, std::string("\x03Reef\0\0\0\0\x02", 10));
const std::string kDawn = Frame(0x0102, std::string("\0\x06\0\1\2\3\4\5", 8));
const std::string kDusk = Frame(0x0102, std::string("\1\x14\0\1\2\3\4\5", 8));
const std::string kEnd = Frame(0x040A);
const std::string kSearch = Frame(0x1700, 3, "\xDD\xEE\xFF", "");

class NetworkTC421Test : public testing::Test {
 protected:
  std::string Send(const std::string& frame) { return controller->Receive(frame, seconds += 0.020); }
  static std::string TextOf(const std::string& reply) { return reply.substr(4).c_str(); }

  std::unique_ptr<sim::Controller> controller = sim::MakeNetworkTC421(kName);
  double seconds = 0.0;
};

TEST_F(NetworkTC421Test, AnswersASearchWithItsName) {
  const std::string reply = Send(kSearch);
  ASSERT_EQ(reply.size(), 64U);
  EXPECT_EQ(reply[2], 0x17);
  EXPECT_EQ(TextOf(reply), kName);
  EXPECT_THAT(controller->Violations(), IsEmpty());
}

TEST_F(NetworkTC421Test, ALongNameIsReportedWhole) {
  const std::string name(60, 'n');
  controller = sim::MakeNetworkTC421(name + "cut");
  EXPECT_EQ(TextOf(Send(kSearch)), name);
  EXPECT_NE(Send(Frame(0x05FE, 0, "", name.substr(0, 12))), "") << "its frames carry 12 bytes of it";
}

TEST_F(NetworkTC421Test, KeepsAModeThatCameWhole) {
  for (const std::string& frame : {kBegin, kDawn, kDusk, kEnd}) EXPECT_EQ(Send(frame).size(), 64U);
  EXPECT_THAT(controller->Violations(), IsEmpty());
  const sim::StoredMode& mode = controller->GetMemory().banks.at(3);
  EXPECT_EQ(mode.name, "Reef");
  EXPECT_EQ(mode.steps.size(), 2U);
  EXPECT_TRUE(mode.closed);
}

TEST_F(NetworkTC421Test, DoesNotConfirmAModeWithAHole) {
  Send(kBegin);
  Send(kDusk);
  EXPECT_EQ(Send(kEnd), "");
  EXPECT_EQ(Send(kEnd), "") << "asked again it says the same";
  EXPECT_FALSE(controller->GetMemory().banks.at(3).closed);
  EXPECT_THAT(controller->Violations(), ElementsAre("frame 2: the place of the step is 01, not 00",
                                                    "frame 3: 2 steps were announced and 1 came"));
}

TEST_F(NetworkTC421Test, TakesAFrameThatComesAgainAsTheOneItWas) {
  for (const std::string& frame : {kBegin, kDawn, kDusk, kEnd}) {
    const std::string reply = Send(frame);
    EXPECT_EQ(Send(frame), reply);
  }
  EXPECT_THAT(controller->Violations(), IsEmpty());
  EXPECT_EQ(controller->GetMemory().banks.at(3).steps.size(), 2U);
}

// The frames of a demo get no reply, and must not make its second end look like the first come again.
TEST_F(NetworkTC421Test, PlaysOneDemoAfterAnother) {
  const std::string play = Frame(0x0601, std::string("\0Reef\0\0\0\0\0", 10));
  const std::string live = Frame(0x0602, "\1\2\3\4\5");
  const std::string stop = Frame(0x0308);
  for (int demo = 0; demo < 2; ++demo) {
    EXPECT_EQ(Send(play), "");
    EXPECT_EQ(Send(live), "");
    EXPECT_TRUE(controller->GetMemory().playing);
    EXPECT_EQ(Send(stop).size(), 64U);
    EXPECT_FALSE(controller->GetMemory().playing);
  }
  EXPECT_THAT(controller->Violations(), IsEmpty());
}

TEST_F(NetworkTC421Test, ObjectsToADamagedFrame) {
  const auto with = [](std::string frame, std::size_t offset, int value) {
    frame[offset] = static_cast<char>(value);
    return frame;
  };
  const struct {
    std::string frame;
    const char* objection;
  } cases[] = {
      {kClear.substr(0, 63), "it has 63 bytes"},
      {kClear + '\0', "it has 65 bytes"},
      {"", "it has 0 bytes"},
      {with(kClear, 0, 0), "the first byte is 00, not 55"},
      {with(kClear, 1, 0), "the second byte is 00, not AA"},
      {with(kClear, 4, 1), "the byte behind the commands is 01, not 00"},
      {with(kClear, 61, 9), "the checksum is 09, not 02"},
      {Frame(0x05FE, 0, "", kName, 63), "the checksum is 00, not 02"},
      {with(kClear, 62, 1), "byte 62 is 01, not 00"},
      {Frame(0x05FE, 0, "", "Smart-7"), R"(it is for "Smart-7", not for "Smart-123456")"},
      {Frame(0x05FE, 0, "", ""), R"(it is for "", not for "Smart-123456")"},
      {Frame(0x05FE, 1, ""), "the length is 01, not 00"},
      {Frame(0x0500, 0, ""), "there is no command 05 00"},
      {Frame(0x0601, std::string("\1Reef\0\0\0\0\0", 10)), "the transport is 01, not 00"},
      {Frame(0x1700, 3, "\xDD\xEE\xFF"), "not all bytes from 49 are zero"},
  };
  for (const auto& expected : cases) {
    controller = sim::MakeNetworkTC421(kName);
    Send(expected.frame);
    EXPECT_THAT(controller->Violations(), ElementsAre(HasSubstr(expected.objection)));
  }
}

// The one frame for the network whose checksum stands at the very end.
TEST_F(NetworkTC421Test, WantsTheChecksumOfAClockAtTheEnd) {
  const std::string payload("\x07\xEA\x03\x0E\x09\x1A\x35", 7);
  EXPECT_EQ(Send(Frame(0x0200, 7, payload, kName, 61)), "");
  EXPECT_FALSE(controller->GetMemory().clock);
  EXPECT_EQ(Send(Frame(0x0200, 7, payload, kName, 63)).size(), 64U);
  EXPECT_EQ(sim::MomentText(*controller->GetMemory().clock), "2026-03-14 09:26:53");
}

std::string NetworkPayload(const std::string& ssid, int security, int encryption) {
  std::string payload(35, '\0');
  payload[0] = 1;
  payload.replace(1, ssid.size(), ssid);
  payload[33] = static_cast<char>(security);
  payload[34] = static_cast<char>(encryption);
  return payload;
}

TEST_F(NetworkTC421Test, AcknowledgesWhatItIsToldOfAWifi) {
  EXPECT_EQ(TextOf(Send(Frame(0x1800, 4, NetworkPayload("Home", 2, 1)))), "p");
  EXPECT_EQ(TextOf(Send(Frame(0x1800, 6, "\x02secret"))), "r");
  const sim::Wifi& wifi = *controller->GetMemory().wifi;
  EXPECT_EQ(wifi.ssid, "Home");
  EXPECT_EQ(wifi.password, "secret");
  EXPECT_TRUE(wifi.complete);
  EXPECT_EQ(TextOf(Send(Frame(0x1800, 4, "\x03Park"))), "t");
  EXPECT_EQ(controller->GetMemory().wifi->ssid, "Park");
  EXPECT_THAT(controller->Violations(), IsEmpty());
}

TEST_F(NetworkTC421Test, AcknowledgesWronglyWhenTold) {
  controller = sim::MakeNetworkTC421(kName, sim::Acknowledgement::Wrong);
  EXPECT_EQ(TextOf(Send(Frame(0x1800, 4, "\x03Park"))), "?");
  EXPECT_EQ(Send(kClear).substr(4, 2), "ok") << "there only";
}

TEST_F(NetworkTC421Test, KeepsOfALongPasswordWhatTheNameLeaves) {
  const std::string password(63, 'x');
  Send(Frame(0x1800, 4, NetworkPayload("Home", 2, 1)));
  EXPECT_EQ(TextOf(Send(Frame(0x1800, 63, std::string("\x02").append(53, 'x')))), "r");
  EXPECT_EQ(controller->GetMemory().wifi->password, password.substr(0, 42));
  EXPECT_THAT(controller->Violations(), ElementsAre(HasSubstr("of 63 bytes 42 came")));
}

}  // namespace
