// Device logs as they are written while WiFi is set up, and as others may read them: a password is looked for
// in words, in hexadecimal and in the letters beside it, whatever became of the lines.

#include "doctor/frame_strike.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <random>

#include "common/log.h"
#include "devices/tc421.h"
#include "devices/udp_device.h"
#include "devices/wifi.h"
#include "tests/support/sim_network.h"
#include "tests/support/virtual_clock.h"

namespace {

using doctor::Secrets;
using doctor::StrikeLog;
using testing::HasSubstr;

constexpr sim_network::Address kTank{192, 168, 4, 1};

// What the device log gets while it lives.
class Recording {
 public:
  Recording() {
    deviceLog.textHandler = [this](const std::string& text) { text_ += text; };
  }
  ~Recording() { deviceLog.textHandler = nullptr; }
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;
  std::string Take() {
    deviceLog.Drain();
    return std::exchange(text_, {});
  }

 private:
  std::string text_;
};

TCBase::DeviceInfo Tank() {
  TCBase::DeviceInfo info;
  info.model = TCBase::ModelTC421UDP;
  info.name = "Smart-123456";
  info.address = TCBase::MakeIpv4Address(kTank, TCBase::kUdpPort);
  return info;
}

std::string HexOf(std::string_view text) {
  std::string hex;
  for (const char byte : text) {
    hex += "0123456789ABCDEF"[static_cast<unsigned char>(byte) >> 4];
    hex += "0123456789ABCDEF"[byte & 0xF];
  }
  return hex;
}

// The log in three ways: as it is, the digits of its dumps in one, and the letters beside them in one.
struct Views {
  std::string plain;
  std::string digits;
  std::string letters;
};

Views ViewsOf(const std::string& log) {
  Views views{log, {}, {}};
  std::istringstream lines(log);
  for (std::string line; std::getline(lines, line);) {
    const bool isRow = line.size() > 8 && line.substr(4, 2) == "  " && std::isxdigit(line[0]) != 0;
    if (!isRow) continue;
    for (std::size_t i = 6; i < std::min<std::size_t>(line.size(), 56); ++i)
      if (line[i] != ' ') views.digits += line[i];
    if (line.size() > 58)
      for (std::size_t i = 58; i < line.size(); ++i)
        if (line[i] != ' ') views.letters += line[i];
  }
  return views;
}

std::string WithoutBlanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

bool Has(const std::string& text, const std::string& piece) {
  return text.find(piece) != std::string::npos;
}

// Neither it is there nor any part of so many bytes.
void ExpectGone(const std::string& log, const std::string& secret, std::size_t part = 5) {
  const Views views = ViewsOf(log);
  for (std::size_t at = 0; at + part <= secret.size(); ++at) {
    const std::string piece = secret.substr(at, part);
    EXPECT_FALSE(Has(views.plain, piece)) << piece << " of " << secret;
    EXPECT_FALSE(Has(views.digits, HexOf(piece))) << piece << " of " << secret;
    EXPECT_FALSE(Has(views.letters, WithoutBlanks(piece))) << piece << " of " << secret;
  }
}

class LogStrike : public testing::Test {
 protected:
  void SetUp() override {
    virtual_clock::Reset();
    sim_network::Reset();
    sim_network::PlugIn(kTank, "Smart-123456");
  }

  // What setting up leaves in the log, with something before and behind it.
  std::string SetUpWith(const std::string& ssid, const std::string& password,
                        TCBase::WifiSecurity security = TCBase::SecurityWPA2) {
    Recording recording;
    statusLog.textHandler = [](const std::string&) {};
    SyncTime();
    TCBase::SetupWifi(Tank(), {ssid, password, TCBase::EncryptionAES, security});
    SyncTime();
    statusLog.Drain();
    statusLog.textHandler = nullptr;
    return recording.Take();
  }
  static std::string Clean(const std::string& log) {
    Secrets secrets{{}};
    return StrikeLog(log, secrets);
  }

 private:
  static void SyncTime() {
    TCBase::DemoState demo;
    TCBase::SyncTimeOperation(Tank(), {}, {2026, 3, 14, 9, 26, 53, 0}, {demo});
  }
};

TEST_F(LogStrike, ThePasswordIsThereBeforeAndGoneAfterwards) {
  const std::string password = "secret coral 42";
  const std::string log = SetUpWith("ReefNetwork", password);
  ASSERT_THAT(log, HasSubstr(password));
  ASSERT_THAT(ViewsOf(log).digits, HasSubstr(HexOf(password)));
  ASSERT_THAT(ViewsOf(log).letters, HasSubstr(WithoutBlanks(password)));
  const std::string clean = Clean(log);
  ExpectGone(clean, password);
  ExpectGone(clean, "ReefNetwork");
  EXPECT_THAT(clean, HasSubstr("Packet_SetWiFi_Password(Password=(struck out)\r\n"));
  EXPECT_THAT(clean, HasSubstr("Packet_SetWiFi_SSID(SSID=(struck out)\r\n"));
  EXPECT_THAT(clean, HasSubstr("0000  55 AA 18 00 00 ** ** ** "));
}

TEST_F(LogStrike, AllElseStays) {
  const std::string log = SetUpWith("ReefNetwork", "secret coral 42");
  const std::string clean = Clean(log);
  EXPECT_THAT(clean,
              HasSubstr("Packet_TimeSync(Year=2026, Month=03, Day=14, Hour=09, Minute=26, Second=53)\r\n"));
  EXPECT_EQ(std::ranges::count(clean, '\n'), std::ranges::count(log, '\n'));
  const std::size_t begin = log.find("Packet_SetWiFi");
  EXPECT_EQ(clean.substr(0, begin - 14), log.substr(0, begin - 14))
      << "to the byte, up to the first frame of WiFi";
  const std::string behind = log.substr(log.rfind("Packet_TimeSync"));
  EXPECT_THAT(clean, testing::EndsWith(behind)) << "and behind the last one";
}

TEST_F(LogStrike, PasswordsOfAnyKind) {
  struct Row {
    std::string password;
    std::size_t part;  // of which none is anywhere else in the log
  };
  const Row rows[] = {
      {"12345678", 8},
      {std::string(64, 'x') + "y", 5},
      {"with) and, Security=2, and =", 6},
      {"0000  55 AA 16 00 01 02 03 04  05 06", 17},
      {"9:05:03:007 Packet_Find()", 12},
      {"Password=Packet_SetWiFi_Password(Password=x)", 44},
      {"tab\tand \x01 and \xC3\xA4\xE2\x82\xAC", 5},
      {"line\nend of it", 5},
      {"line\r\nend of it\r\n", 6},
      {"0010  41 42 43 44 45 46 47 48  49\n0020  41 42 43 44", 12},
      {"abc", 3},
  };
  for (const auto& [password, part] : rows) {
    const std::string log = SetUpWith("ReefNetwork", password);
    ASSERT_TRUE(Has(log, password));
    const std::string clean = Clean(log);
    ExpectGone(clean, password, part);
    EXPECT_TRUE(Has(clean.substr(clean.rfind("sendto_core")), "0000  55 AA 02 00 00 07 07 EA")) << password;
  }
}

TEST_F(LogStrike, OpenNetworksHaveTheirNamesStruckOut) {
  const std::string clean = Clean(SetUpWith("Guests of the reef", "", TCBase::SecurityOpen));
  ExpectGone(clean, "Guests of the reef");
  EXPECT_THAT(clean, HasSubstr("Packet_SetWiFi_Open(SSID=(struck out)"));
}

// Of a controller that repeats what it was given, in whatever place.
TEST_F(LogStrike, RepliesThatRepeatThePassword) {
  const std::string password = "secret coral 42";
  Recording recording;
  std::string frame;
  TC421::Packet_SetWiFi_Password(Tank(), password).Serialize(frame);
  LogDeviceDump(frame.data(), frame.size());
  std::string reply(64, '\0');
  reply.replace(30, password.size(), password);
  LogDevice("recvfrom 192.168.4.1:5000");
  LogDeviceDump(reply.data(), reply.size());
  LogDevice("recvfrom 192.168.4.1:5000");
  LogDeviceDump(reply.data() + 33, 31);
  TC421::Packet_Find().Serialize(frame);
  LogDeviceDump(frame.data(), frame.size());
  frame.replace(20, password.size(), password);
  LogDeviceDump(frame.data(), frame.size());
  const std::string log = recording.Take();
  const std::string clean = Clean(log);
  ExpectGone(clean, password);
  EXPECT_THAT(clean, HasSubstr("0000  55 AA 17 00 00 03 DD EE  FF 00")) << "the search stays";
}

// A file may begin and end anywhere.
TEST_F(LogStrike, PartsOfALog) {
  const std::string password = "secret coral 42";
  const std::string log = SetUpWith("ReefNetwork", password);
  const std::size_t begin = log.find("Packet_SetWiFi_Password");
  const std::size_t end = log.rfind("Packet_TimeSync");
  for (std::size_t at = begin; at < end; at += 3) {
    ExpectGone(Clean(log.substr(0, at)), password);
    // As it is read: from a line on.
    ExpectGone(Clean(log.substr(log.find('\n', at) + 1)), password);
  }
}

// Two programs write into one file, each text at once and its end of the line apart.
TEST_F(LogStrike, TwoProgramsAtOnce) {
  const std::string password = "secret coral 42";
  Recording recording;
  std::vector<std::string> items;
  deviceLog.textHandler = [&](const std::string& text) { items.push_back(text); };
  TCBase::SetupWifi(Tank(), {"ReefNetwork", password, TCBase::EncryptionAES, TCBase::SecurityWPA2});
  deviceLog.Drain();
  statusLog.Drain();
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    std::string log;
    for (std::size_t a = 0, b = 0; a < items.size() || b < items.size();) {
      const bool first = b == items.size() || (a < items.size() && random() % 2 == 0);
      log += items[first ? a++ : b++];
    }
    const std::string clean = Clean(log);
    ExpectGone(clean, password);
    ExpectGone(clean, "ReefNetwork");
  }
}

TEST_F(LogStrike, NamesInTextsAndFrames) {
  Recording recording;
  LogDevice("sendto_core of anna");
  std::string frame(64, 'x');
  frame.replace(10, 4, "anna");
  LogDeviceDump(frame.data(), frame.size());
  Secrets secrets({{}, {"anna"}, {}});
  const std::string clean = StrikeLog(recording.Take(), secrets);
  ExpectGone(clean, "anna", 4);
  EXPECT_THAT(clean, HasSubstr("sendto_core of (user)\r\n"));
  EXPECT_THAT(clean,
              HasSubstr("0000  78 78 78 78 78 78 78 78  78 78 ** ** ** ** 78 78    xxxxxxxx xx****xx \n"));
}

TEST_F(LogStrike, WhatIsNoLogIsKeptAsText) {
  EXPECT_EQ(Clean(""), "");
  EXPECT_EQ(Clean("plain\nwords"), "plain\r\nwords\r\n");
  EXPECT_EQ(Clean("\n\r\n"), "\r\n\r\n");
}

TEST_F(LogStrike, RowsWithoutABeginningAreStruckOut) {
  EXPECT_EQ(Clean("0010  73 65 63 72 65 74 \n"),
            "0010  ** ** ** ** ** **                                   ******\n");
}

}  // namespace
