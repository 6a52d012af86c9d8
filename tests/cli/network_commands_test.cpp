// Commands that speak to controllers on the network, simulated ones.

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "tests/cli/command_fixture.h"

namespace {

using nlohmann::json;
using sim_network::Address;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr Address kTank{192, 168, 4, 1};
constexpr Address kBed{192, 168, 4, 9};
const std::string kTankWord = "udp:Smart-123456@192.168.4.1";

class NetworkCommandsTest : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    GivenProgram("tank.xml", GivenRamps({"One", "Two"}));
  }

  static void GivenTank() { sim_network::PlugIn(kTank, "Smart-123456"); }

  Outcome SetUpWifi(const Words& more) {
    Words words = {"wifi-setup", "--device", kTankWord, "--ssid", "Home"};
    words.insert(words.end(), more.begin(), more.end());
    return Run(words);
  }
};

// Every datagram that left was one for the controller.
std::vector<Address> Receivers() {
  std::vector<Address> receivers;
  for (const auto& sent : sim_network::Traffic()) receivers.push_back(sent.to.address);
  return receivers;
}

// scan

TEST_F(NetworkCommandsTest, ScanListsWhatAnswersAsDeviceTakesIt) {
  GivenTank();
  sim_network::PlugIn(kBed, "Bed");
  const Outcome outcome = Run({"scan"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.out,
            "udp:Bed@192.168.4.9           Bed\n"
            "udp:Smart-123456@192.168.4.1  Smart-123456\n")
      << "sorted by name, whoever was first to answer";
  EXPECT_THAT(outcome.err, StartsWith("Searching for network devices...\nFound 2 device(s)\n"));
}

TEST_F(NetworkCommandsTest, ScanAsJsonHasTheAddress) {
  GivenTank();
  EXPECT_EQ(json::parse(Run({"scan", "--json"}).out),
            json::parse(R"([{"device": "udp:Smart-123456@192.168.4.1",
      "name": "Smart-123456", "address": "192.168.4.1"}])"));
}

TEST_F(NetworkCommandsTest, AScanInVainSaysWhatToLookAt) {
  const Outcome outcome = Run({"scan"});
  EXPECT_EQ(outcome.status, kNoDevice);
  EXPECT_THAT(outcome.out, IsEmpty());
  EXPECT_THAT(outcome.err, HasSubstr("firewall"));
  EXPECT_EQ(Run({"scan", "--json"}).out, "[]\n");
}

TEST_F(NetworkCommandsTest, APortThatIsTakenIsExplained) {
  GivenTank();
  sim_network::HoldPort(true);
  for (const Words& words :
       {Words{"scan"}, Words{"devices", "--scan"}, Words{"clear", "--device", kTankWord},
        Words{"wifi-setup", "--device", kTankWord, "--ssid", "Home", "--security", "open"}}) {
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.status, kNoDevice) << words[0];
    EXPECT_THAT(outcome.err, HasSubstr("UDP port 5000 cannot be had")) << words[0];
  }
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(NetworkCommandsTest, DevicesLooksIntoTheNetworkOnlyWhenAsked) {
  GivenTank();
  sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
  EXPECT_EQ(Run({"devices"}).out, "tc420     TC420\n");
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
  EXPECT_EQ(Run({"devices", "--scan"}).out,
            "udp:Smart-123456@192.168.4.1  Smart-123456\n"
            "tc420                         TC420\n");
}

// Else a neighbour could write lines of his own into the list, or obey the terminal's commands into it.
TEST_F(NetworkCommandsTest, ANameCannotBreakOutOfItsLine) {
  sim_network::PlugIn(kTank, "x\n\x1b[2Judp:y");
  const Outcome outcome = Run({"scan"});
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 1);
  EXPECT_THAT(outcome.out + outcome.err, Not(HasSubstr("\x1b")));
}

TEST_F(NetworkCommandsTest, ANameIsHarmlessAndWholeInJsonToo) {
  const std::string name = "Ž\u009B2J\u202E\x7F\x1B\n";
  sim_network::PlugIn(kTank, name);
  const Outcome outcome = Run({"scan", "--json"});
  EXPECT_TRUE(std::all_of(outcome.out.begin(), outcome.out.end() - 1, [](char byte) {
    return byte >= ' ' && byte < '\x7F';
  })) << outcome.out;
  EXPECT_EQ(json::parse(outcome.out)[0]["name"], name);
}

// --device

TEST_F(NetworkCommandsTest, AControllerIsServedWithoutAScan) {
  GivenTank();
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", kTankWord});
  EXPECT_EQ(outcome.status, kSuccess);
  const sim::Memory memory = sim_network::MemoryOf(kTank);
  ASSERT_EQ(memory.banks.size(), 2U);
  EXPECT_EQ(memory.banks.at(1).name, "Two");
  EXPECT_EQ(memory.banks.at(1).steps.size(), 48U);
  EXPECT_TRUE(memory.banks.at(1).closed);
  EXPECT_THAT(Receivers(), testing::Each(kTank));
}

TEST_F(NetworkCommandsTest, ANameMayHoldAnAtSign) {
  sim_network::PlugIn(kBed, "a@b c");
  EXPECT_EQ(Run({"sync-time", "--device", "udp:a@b c@192.168.4.9"}).status, kSuccess);
  EXPECT_TRUE(sim_network::MemoryOf(kBed).clock);
}

TEST_F(NetworkCommandsTest, ATC421OnItsCableIsServed) {
  sim_hidapi::PlugIn(sim_hidapi::Family::TC421);
  EXPECT_EQ(Run({"upload", "@tank.xml", "--device", "tc421"}).status, kSuccess);
  EXPECT_EQ(sim_hidapi::MemoryOf(sim_hidapi::Family::TC421).banks.size(), 2U);
}

TEST_F(NetworkCommandsTest, AControllerThatStaysSilentIsNotThere) {
  for (const Words& words :
       {Words{"sync-time"}, Words{"clear"}, Words{"upload", "@tank.xml"}, Words{"demo", "@tank.xml"}}) {
    Words whole = words;
    whole.insert(whole.end(), {"--device", kTankWord});
    const Outcome outcome = Run(whole);
    EXPECT_EQ(outcome.status, kNoDevice) << words[0];
    EXPECT_THAT(outcome.err, HasSubstr("No answer from " + kTankWord + ". Is it on")) << words[0];
  }
}

TEST_F(NetworkCommandsTest, OneThatAnsweredAndThenFailedHasFailed) {
  GivenProgram("tank.xml", GivenRamps({"One", ""}));
  GivenTank();
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", kTankWord});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.err, Not(HasSubstr("No answer")));
}

TEST_F(NetworkCommandsTest, AModesNameForgesNoAnswerAndNoTakenPort) {
  GivenProgram("tank.xml", GivenRamps({"recvfrom 192.168.4.1:5000", "bind error: x"}));
  const Outcome silent = Run({"demo", "@tank.xml", "--device", kTankWord, "--seconds", "1"});
  EXPECT_EQ(silent.status, kNoDevice);
  EXPECT_THAT(silent.err, HasSubstr("No answer from "));
  GivenTank();
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", kTankWord});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, Not(HasSubstr("UDP port 5000")));
}

TEST_F(NetworkCommandsTest, AStepThatWasNeverAnsweredFailsTheUpload) {
  GivenTank();
  sim_network::SetAnswer([answered = 0](const sim_network::Datagram& reply) mutable {
    // The fourth frame and the two times that it is sent again.
    const bool lost = ++answered >= 4 && answered <= 6;
    return lost ? std::vector<sim_network::Datagram>() : std::vector{reply};
  });
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", kTankWord});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.err, Not(HasSubstr("Upload error")));
  EXPECT_THAT(outcome.err, HasSubstr("Modes that " + kTankWord + " did not confirm: \"One\"\nFrames that " +
                                     kTankWord + " did not confirm: 1 of 100\n"));
}

TEST_F(NetworkCommandsTest, TheSilentOneOfTwoIsNamed) {
  GivenTank();
  const Outcome outcome = Run({"sync-time", "--device", kTankWord, "--device", "udp:Bed@192.168.4.9"});
  EXPECT_EQ(outcome.status, kNoDevice);
  EXPECT_THAT(outcome.err, Not(HasSubstr("No answer from " + kTankWord)));
  EXPECT_THAT(outcome.err, HasSubstr("No answer from udp:Bed@192.168.4.9."));
}

TEST_F(NetworkCommandsTest, CtrlCEndsAnUploadOverTheNetwork) {
  GivenTank();
  After("Uploading mode: One", 0.1, [&] { EXPECT_TRUE(console.Interrupt()); });
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", kTankWord});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.err, EndsWith("Uploading finished\nCancelled!\n"));
  EXPECT_EQ(sim_network::MemoryOf(kTank).banks.size(), 1U);
}

// The values of the first channel that a demo has shown, with the seconds since its begin.
std::vector<std::pair<double, int>> LiveValues(const Address& address) {
  std::vector<std::pair<double, int>> values;
  const auto frames = sim_network::FramesOf(address);
  for (const auto& [seconds, frame] : frames)
    if (frame.substr(2, 2) == "\x06\x02") values.emplace_back(seconds - frames[0].seconds, frame[6]);
  return values;
}

// What the ramps show: up from 08:00 to 20:00, and down over the night.
double RampAt(double hour) {
  const double up = hour - 8.0;
  return std::abs(up <= 12.0 ? up : 24.0 - up) / 12.0 * 100.0;
}

TEST_F(NetworkCommandsTest, ADemoFromATimeOfTheDayGoesThereAtOnceAndOnFromThere) {
  GivenTank();
  const Outcome outcome =
      Run({"demo", "@tank.xml", "--device", kTankWord, "--from", "10:00", "--seconds", "60"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, HasSubstr("Playing whole day in 60 seconds\nDemo finished\n"));
  const auto values = LiveValues(kTank);
  ASSERT_GT(values.size(), 10U);
  EXPECT_EQ(values.front().second, 66) << "a demo begins at midnight";
  const auto sought = std::find_if(values.begin(), values.end(),
                                   [](const auto& shown) { return shown.second < RampAt(11.0); });
  ASSERT_NE(sought, values.end());
  EXPECT_LT(sought->first, 0.5);
  for (auto shown = sought; shown != values.end(); ++shown) {
    constexpr double kHoursASecond = 24.0 / 60.0;
    EXPECT_NEAR(shown->second, RampAt(10.0 + (shown->first - sought->first) * kHoursASecond), 1.5);
  }
  EXPECT_NEAR(values.back().first - sought->first, 35.0, 0.5) << "fourteen hours are left of the day";
  EXPECT_FALSE(sim_network::MemoryOf(kTank).playing);
}

TEST_F(NetworkCommandsTest, ADemoFromATimeGoesThereOnEachController) {
  GivenTank();
  sim_network::PlugIn(kBed, "Bed");
  EXPECT_EQ(Run({"demo", "@tank.xml", "--device", kTankWord, "--device", "udp:Bed@192.168.4.9", "--from",
                 "20:00", "--seconds", "60"})
                .status,
            kSuccess);
  for (const Address& address : {kTank, kBed}) {
    const auto values = LiveValues(address);
    EXPECT_NEAR(values.back().first, 10.0, 0.5);
    EXPECT_TRUE(
        std::any_of(values.begin(), values.end(), [](const auto& shown) { return shown.second >= 99; }));
  }
}

TEST_F(NetworkCommandsTest, CtrlCEndsADemoFromATimeToo) {
  GivenTank();
  After("Playing whole day", 5.0, [&] { EXPECT_TRUE(console.Interrupt()); });
  const Outcome outcome = Run({"demo", "@tank.xml", "--device", kTankWord, "--from", "14:00"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.err, EndsWith("Demo finished\nCancelled!\n"));
}

TEST_F(NetworkCommandsTest, ADemoFromATimeThatIsNoneIsRefused) {
  GivenTank();
  for (const char* const wrong : {"24:00", "12:60", "noon", "1200", ""}) {
    const Outcome outcome = Run({"demo", "@tank.xml", "--device", kTankWord, "--from", wrong});
    EXPECT_EQ(outcome.status, kWrongUsage) << wrong;
    EXPECT_THAT(outcome.err, HasSubstr("a time from 00:00 to 23:59 is expected, not ")) << wrong;
  }
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(NetworkCommandsTest, AWordThatIsNoControllerIsExplained) {
  const struct {
    const char* word;
    const char* said;
  } rows[] = {
      {"tc422", "there are emulator, tc420, tc421 and udp:NAME@ADDRESS"},
      {"udp:Smart-123456", "as in udp:Smart-123456@192.168.4.1"},
      {"udp:192.168.4.1", "is no udp:NAME@ADDRESS"},
      {"udp:Smart-123456@192.168.4.1:5000", "is no udp:NAME@ADDRESS"},
      {"udp:Smart-123456@192.168.4", "is no udp:NAME@ADDRESS"},
      {"udp:Smart-123456@192.168.4.256", "is no udp:NAME@ADDRESS"},
      {"udp:Smart-123456@example.org", "is no udp:NAME@ADDRESS"},
  };
  for (const auto& row : rows) {
    const Outcome outcome = Run({"clear", "--device", row.word});
    EXPECT_EQ(outcome.status, kWrongUsage) << row.word;
    EXPECT_THAT(outcome.err, HasSubstr(row.said)) << row.word;
  }
}

// wifi-setup

TEST_F(NetworkCommandsTest, AnOpenNetworkNeedsNoPassword) {
  GivenTank();
  console.terminal = true;
  const Outcome outcome = SetUpWifi({"--security", "open"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(console.prompts, IsEmpty());
  const auto wifi = sim_network::MemoryOf(kTank).wifi;
  ASSERT_TRUE(wifi);
  EXPECT_EQ(wifi->ssid, "Home");
  EXPECT_EQ(wifi->security, 0);
}

TEST_F(NetworkCommandsTest, APasswordIsAskedForAndNotShown) {
  GivenTank();
  console.terminal = true;
  console.secret = "correct horse";
  const Outcome outcome = SetUpWifi({"--security", "wpa2"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(console.prompts, "Password: ");
  EXPECT_THAT(outcome.out + outcome.err, Not(HasSubstr("horse")));
  EXPECT_THAT(outcome.err, HasSubstr("The controller has the settings."));
  const auto wifi = sim_network::MemoryOf(kTank).wifi;
  ASSERT_TRUE(wifi && wifi->complete);
  EXPECT_EQ(wifi->password, "correct horse");
  EXPECT_EQ(wifi->security, 2);
  EXPECT_EQ(wifi->encryption, 1);
}

TEST_F(NetworkCommandsTest, APasswordComesFromAFileOrAPipe) {
  GivenTank();
  for (const char* const content : {"from a file", "from a file\n", "from a file\r\nsecond line"}) {
    GivenFile("password.txt", content);
    EXPECT_EQ(
        SetUpWifi({"--security", "wpa", "--encryption", "tkip", "--password-file", "@password.txt"}).status,
        kSuccess);
    const auto wifi = sim_network::MemoryOf(kTank).wifi;
    EXPECT_EQ(wifi->password, "from a file");
    EXPECT_EQ(wifi->security, 1);
    EXPECT_EQ(wifi->encryption, 2);
  }
  console.secret = "from a pipe";
  EXPECT_EQ(SetUpWifi({"--security", "wpa2", "--password-file", "-"}).status, kSuccess);
  EXPECT_EQ(sim_network::MemoryOf(kTank).wifi->password, "from a pipe");
}

// Windows editors and shells put one in front.
TEST_F(NetworkCommandsTest, AByteOrderMarkIsNoPartOfThePassword) {
  GivenTank();
  const std::string mark = "\xEF\xBB\xBF";
  for (const std::string& password : {std::string("12345678"), std::string(42, 'x')}) {
    GivenFile("password.txt", mark + password + "\r\n");
    EXPECT_EQ(SetUpWifi({"--security", "wpa2", "--password-file", "@password.txt"}).status, kSuccess);
    console.secret = mark + password;
    EXPECT_EQ(SetUpWifi({"--security", "wpa2", "--password-file", "-"}).status, kSuccess);
    for (const auto& sent : sim_network::Traffic())
      EXPECT_THAT(sent.bytes, Not(HasSubstr(mark))) << "sent to the controller";
  }
  GivenFile("password.txt", mark + "seven77");
  EXPECT_THAT(SetUpWifi({"--security", "wpa2", "--password-file", "@password.txt"}).err,
              HasSubstr("8 to 64 bytes"));
}

// A packet to a controller with a name of full length has room for 42.
TEST_F(NetworkCommandsTest, APasswordThatAPacketCannotCarryIsWarnedOf) {
  for (const std::size_t size : {8U, 42U, 43U, 64U}) {
    sim_network::Reset();
    GivenTank();
    GivenFile("password.txt", std::string(size, 'x'));
    const Outcome outcome = SetUpWifi({"--security", "wpa2", "--password-file", "@password.txt"});
    EXPECT_EQ(outcome.status, kSuccess) << size;
    EXPECT_EQ(outcome.err.find("the first 42 bytes of a password only") != std::string::npos, size > 42)
        << size;
    EXPECT_EQ(sim_network::MemoryOf(kTank).wifi->password.size(), std::min<std::size_t>(size, 42)) << size;
    EXPECT_EQ(sim_network::Violations().empty(), size <= 42) << "the controller counts what it gets";
  }
  sim_network::Reset();
}

TEST_F(NetworkCommandsTest, AnErrorOfWifiSetupSaysWhatToDo) {
  GivenFile("short.txt", "seven77");
  GivenFile("long.txt", std::string(65, 'x'));
  GivenFile("empty.txt", "");
  const struct {
    Words more;
    int status;
    const char* said;
  } rows[] = {
      {{"--security", "wpa2"}, kWrongUsage, "give --password-file FILE, or - for standard input"},
      {{"--security", "wpa2", "--password-file", "@short.txt"}, kWrongUsage, "8 to 64 bytes"},
      {{"--security", "wpa2", "--password-file", "@long.txt"}, kWrongUsage, "8 to 64 bytes"},
      {{"--security", "wpa2", "--password-file", "@empty.txt"},
       kFileFailed,
       "no password can be read from empty.txt"},
      {{"--security", "wpa2", "--password-file", "@none.txt"},
       kFileFailed,
       "no password can be read from none.txt"},
      {{"--security", "wpa2", "--password-file", "-"}, kFileFailed, "no password can be read from -"},
      {{"--security", "wep"}, kWrongUsage, "--security"},
      {{"--security", "wpa2", "--encryption", "des"}, kWrongUsage, "--encryption"},
      {{}, kWrongUsage, "--security is required"},
      {{"--security", "open", "--device", "tc421"}, kWrongUsage, "--device"},
  };
  for (const auto& row : rows) {
    const Outcome outcome = SetUpWifi(row.more);
    EXPECT_EQ(outcome.status, row.status) << row.said;
    EXPECT_THAT(outcome.err, HasSubstr(row.said));
  }
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(NetworkCommandsTest, WifiIsSetUpOverTheNetworkOnly) {
  for (const char* const word : {"tc420", "tc421", "emulator"}) {
    const Outcome outcome = Run({"wifi-setup", "--device", word, "--ssid", "Home", "--security", "open"});
    EXPECT_EQ(outcome.status, kWrongUsage);
    EXPECT_THAT(outcome.err, HasSubstr("WiFi is set up over the network: --device udp:NAME@ADDRESS"));
  }
}

TEST_F(NetworkCommandsTest, AnSsidHasOneTo32Bytes) {
  GivenTank();
  const auto withSsid = [this](const std::string& ssid) {
    return Run({"wifi-setup", "--device", kTankWord, "--ssid", ssid, "--security", "open"});
  };
  EXPECT_THAT(withSsid(std::string(33, 'x')).err, HasSubstr("1 to 32 bytes, not 33"));
  EXPECT_EQ(withSsid("").status, kWrongUsage);
  EXPECT_EQ(withSsid(std::string(32, 'x')).status, kSuccess);
}

TEST_F(NetworkCommandsTest, GivingUpAtThePromptSendsNothing) {
  GivenTank();
  console.terminal = true;
  const Outcome outcome = SetUpWifi({"--security", "wpa2"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.err, HasSubstr("no password was given"));
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(NetworkCommandsTest, AWrongAcknowledgementFailsWifiSetup) {
  GivenTank();
  console.terminal = true;
  console.secret = "correct horse";
  sim_network::SetAnswer([](const sim_network::Datagram& reply) {
    sim_network::Datagram wrong = reply;
    wrong.bytes[4] = '?';
    return std::vector{wrong};
  });
  const Outcome outcome = SetUpWifi({"--security", "wpa2"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.err, EndsWith("Error setting WiFi SSID\n"));
  EXPECT_EQ(sim_network::MemoryOf(kTank).wifi->password, "");
}

// What a command line holds anybody on the computer can read, so there is no word for it there.
TEST_F(NetworkCommandsTest, APasswordIsShownByTheTraceAlone) {
  GivenTank();
  const std::string password = "Gorgonian-4711-mark";
  GivenFile("password.txt", password + "\n");
  console.secret = password;
  const auto printed = [&](bool terminal, Words words, int status) {
    console.terminal = terminal;
    const Outcome outcome = SetUpWifi(words);
    EXPECT_EQ(outcome.status, status) << outcome.err;
    return outcome.out + outcome.err + std::exchange(console.prompts, {});
  };
  const Words file = {"--security", "wpa2", "--password-file", "@password.txt"};
  for (const bool answers : {true, false}) {
    const int status = answers ? kSuccess : kOperationFailed;
    if (!answers) {
      sim_network::SetAnswer([](const sim_network::Datagram& reply) {
        sim_network::Datagram wrong = reply;
        wrong.bytes[4] = '?';
        return std::vector{wrong};
      });
    }
    EXPECT_THAT(printed(true, {"--security", "wpa2"}, status), Not(HasSubstr("4711")));
    EXPECT_THAT(printed(false, {"--security", "wpa2", "--password-file", "-"}, status),
                Not(HasSubstr("4711")));
    EXPECT_THAT(printed(false, file, status), Not(HasSubstr("4711")));
    if (answers) {
      EXPECT_EQ(sim_network::MemoryOf(kTank).wifi->password, password);
    }
  }
  sim_network::SetAnswer(nullptr);
  Words traced = file;
  traced.push_back("--trace");
  EXPECT_THAT(printed(false, traced, kSuccess),
              HasSubstr("Packet_SetWiFi_Password(Password=" + password + ")"));
  EXPECT_THAT(Run({"wifi-setup", "--help"}).out, Not(HasSubstr("--password ")));
}

TEST_F(NetworkCommandsTest, WifiSetupOfASilentControllerIsExplained) {
  const Outcome outcome = SetUpWifi({"--security", "open"});
  EXPECT_EQ(outcome.status, kNoDevice);
  EXPECT_THAT(outcome.err, HasSubstr("Error setting open WiFi\nNo answer from " + kTankWord));
}

}  // namespace
