// Each fault that an examination knows, made on purpose: what is told of it, and what is advised.

#include "doctor/examination.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "common/files.h"
#include "common/log.h"
#include "devices/usb_rule.h"
#include "doctor/checks.h"
#include "tests/support/files.h"
#include "tests/support/scripted_computer.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/sim_network.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/virtual_clock.h"

namespace {

namespace fs = std::filesystem;

using doctor::Finding;
using doctor::Sign;
using platform::Adapter;
using platform::Firewall;
using sim_hidapi::Family;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class Examination : public testing::Test {
 protected:
  void SetUp() override {
    virtual_clock::Reset();
    virtual_clock::SetLocalTime({2026, 3, 14, 9, 26, 53, 0});
    sim_hidapi::Reset();
    sim_network::Reset();
    subject_.settingsFile = folder_ / "LumarineConfig.xml";
    subject_.deviceLogFile = folder_ / "LumarineLog.txt";
  }
  void TearDown() override {
    scripted_computer::Set({});
    EXPECT_EQ(sim_hidapi::OpenHandles(), 0);
    EXPECT_EQ(sim_network::OpenSockets(), 0);
    EXPECT_THAT(sim_network::Traffic(), IsEmpty()) << "an examination sends nothing";
  }

  // What is found of one thing.
  std::vector<Finding> AllOf(std::string_view id) {
    scripted_computer::Set(facts);
    std::vector<Finding> findings = Examine(subject_);
    std::erase_if(findings, [&](const Finding& finding) { return finding.id != id; });
    return findings;
  }
  Finding Of(std::string_view id) {
    std::vector<Finding> findings = AllOf(id);
    EXPECT_THAT(findings, SizeIs(1)) << id;
    return findings.empty() ? Finding() : findings.front();
  }
  void Expect(std::string_view id, Sign sign, const std::string& found, const std::string& advice = "") {
    const Finding finding = Of(id);
    EXPECT_EQ(finding.sign, sign) << id;
    EXPECT_EQ(WithoutFolder(finding.found.English()), found) << id;
    EXPECT_EQ(WithoutFolder(finding.advice.English()), advice) << id;
  }
  std::string WithoutFolder(std::string text) const {
    const std::string prefix = Utf8FromPath(folder_.path() / "");
    for (std::size_t at = 0; (at = text.find(prefix, at)) != std::string::npos;)
      text.erase(at, prefix.size());
    return text;
  }

  scripted_computer::Facts facts;
  TemporaryFolder folder_;
  doctor::Subject subject_;
};

// The whole of it

TEST_F(Examination, LooksAtAllThingsInItsOrder) {
  std::vector<std::string> told;
  const auto findings = Examine(subject_, [&](const Finding& finding) { told.emplace_back(finding.id); });
  EXPECT_THAT(
      told, ElementsAre("usb-controllers", "udp-port", "network-adapters", "broadcast", "firewall",
                        "documents-folder", "settings", "device-log", "computer-clock", "controller-clock"));
  EXPECT_EQ(findings.size(), told.size());
}

TEST_F(Examination, EndsBehindTheThingAtWhichItIsStopped) {
  std::stop_source stop;
  const auto findings = Examine(
      subject_,
      [&](const Finding& finding) {
        if (finding.id == "udp-port") stop.request_stop();
      },
      stop.get_token());
  EXPECT_EQ(findings.back().id, "udp-port");
}

TEST_F(Examination, LogsNothing) {
  std::string log;
  const auto keep = [&](const std::string& text) { log += text; };
  for (LogChannel* const channel : {&statusLog, &warningLog, &deviceLog}) channel->textHandler = keep;
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SetAllowed(Family::TC420, false);
  sim_network::HoldPort(true);
  Examine(subject_);
  for (LogChannel* const channel : {&statusLog, &warningLog, &deviceLog}) {
    channel->Drain();
    channel->textHandler = nullptr;
  }
  EXPECT_EQ(log, "");
}

TEST_F(Examination, LeavesNothingInTheFolders) {
  Examine(subject_);
  EXPECT_TRUE(fs::is_empty(folder_.path()));
}

// Controllers on USB

TEST_F(Examination, NoController) {
  Expect("usb-controllers", Sign::Look, "No controller is plugged in.",
         "One on the network needs no cable. If one is plugged in, try another cable, since some carry power "
         "only, and "
         "another socket of the computer.");
}

TEST_F(Examination, AControllerThatCanBeOpened) {
  sim_hidapi::PlugIn(Family::TC421);
  Expect("usb-controllers", Sign::Good, "TC421 is plugged in and can be opened.");
}

TEST_F(Examination, OneOfEachKind) {
  sim_hidapi::PlugIn(Family::TC421);
  sim_hidapi::PlugIn(Family::TC420);
  EXPECT_THAT(AllOf("usb-controllers"), SizeIs(2));
}

TEST_F(Examination, AControllerThatThisUserMayNotOpen) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SetAllowed(Family::TC420, false);
  Expect("usb-controllers", Sign::Broken, "TC420 is plugged in, but this user may not open it.",
         "For controllers on USB give this command once: sudo lumarinectl usb-setup");
  sim_hidapi::SetRulesFolder(folder_.path());
  FileWith(folder_ / TCBase::kUsbRuleFile, "rule");
  EXPECT_THAT(Of("usb-controllers").advice.English(),
              StartsWith("The rule is installed, but it counts only"));
}

TEST_F(Examination, AControllerThatAnotherProgramHolds) {
  sim_hidapi::PlugIn(Family::TC420);
  facts.uses["simulated/0"] = {true, {}};
  Expect("usb-controllers", Sign::Broken, "TC420 is plugged in, but another program holds it.",
         "Close that program and try again.");
  facts.uses["simulated/0"] = {true, {{"ledtool", 4711, false}}};
  Expect("usb-controllers", Sign::Broken, "TC420 is plugged in, but another program holds it: ledtool (4711)",
         "Close that program and try again.");
  facts.uses["simulated/0"] = {false, {{"ledtool", 4711, false}, {"", 12, false}}};
  Expect("usb-controllers", Sign::Look,
         "TC420 is plugged in, but another program holds it: ledtool (4711), 12",
         "Close that program and try again.");
}

TEST_F(Examination, AControllerThatThisProgramUses) {
  sim_hidapi::PlugIn(Family::TC420);
  facts.uses["simulated/0"] = {false, {{"lumarine", 1, true}}};
  Expect("usb-controllers", Sign::Good, "TC420 is plugged in, and this program uses it.");
}

TEST_F(Examination, AControllerThatDoesNotOpen) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::Inject({sim_hidapi::Call::Open, 1, sim_hidapi::kForever});
  Expect("usb-controllers", Sign::Broken, "TC420 is plugged in, but it cannot be opened.",
         "Unplug it, wait for some seconds and plug it in again, at another socket of the computer if that "
         "does not "
         "help.");
}

TEST_F(Examination, TwoControllersOfAKind) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::PlugIn(Family::TC420);
  Expect("usb-controllers", Sign::Look,
         "Controllers of the kind TC420 that are plugged in: 2. The first one is used.",
         "Plug in only the one that you want to reach.");
}

TEST_F(Examination, TheRule) {
  EXPECT_THAT(AllOf("usb-rule"), IsEmpty()) << "where every user has the rights";
  const fs::path own = folder_ / "etc";
  const fs::path packaged = folder_ / "lib";
  sim_hidapi::SetRulesFolder(own);
  sim_hidapi::SetPackagedRulesFolders({packaged});
  Expect("usb-rule", Sign::Look, "No rule is installed. Linux keeps controllers to root without one.",
         "For controllers on USB give this command once: sudo lumarinectl usb-setup");

  std::string carried;
  ASSERT_TRUE(LoadResourceBytes(TCBase::kUsbRuleResource, TCBase::kUsbRuleType, carried));
  fs::create_directories(packaged);
  FileWith(packaged / TCBase::kUsbRuleFile, "# Of a package.\n\n" + carried);
  Expect("usb-rule", Sign::Good, Utf8FromPath(fs::path("lib") / "70-lumarine.rules") + " is installed.");

  fs::create_directories(own);
  FileWith(own / TCBase::kUsbRuleFile, "# somebody's own\n");
  Expect("usb-rule", Sign::Look,
         Utf8FromPath(fs::path("etc") / "70-lumarine.rules") + " is another one than this program has.",
         "If a controller cannot be opened, this command installs the program's own: sudo lumarinectl "
         "usb-setup");
}

// The network

TEST_F(Examination, ThePort) {
  Expect("udp-port", Sign::Good, "It is free.");
  sim_network::HoldPort(true);
  const std::string advice = "Close that program and try again.";
  Expect("udp-port", Sign::Broken, "Another program has it; this user is not told which one.", advice);
  facts.portHolders = {{}};
  Expect("udp-port", Sign::Broken, "Another program has it; this user is not told which one.", advice);
  facts.portHolders = {{"lumarine", 77, false}};
  Expect("udp-port", Sign::Broken, "Another program has it: lumarine (77)", advice);
  facts.portHolders = {{"lumarine", 77, true}};
  Expect("udp-port", Sign::Good, "This program itself uses it.");
}

TEST_F(Examination, ComputersInNoNetwork) {
  facts.adapters = {{"lo", Adapter::Loopback, true, {"127.0.0.1"}}};
  facts.broadcastAdapter = "";
  const std::string advice =
      "For controllers on the network plug in its cable, or switch WiFi on. Others need no network.";
  Expect("network-adapters", Sign::Look, "This computer is in no network.", advice);
  EXPECT_THAT(AllOf("broadcast"), IsEmpty());
  facts.adapters.push_back({"eth0", Adapter::Wired, false, {}});
  Expect("network-adapters", Sign::Look, "This computer is in no network.", advice);
}

TEST_F(Examination, AnAdapterWithoutAnAddress) {
  const std::string advice =
      "The router gives it one; switch the adapter off and on again, and look at the router.";
  facts.adapters = {{"eth0", Adapter::Wired, true, {}}};
  Expect("network-adapters", Sign::Look, "No address has: eth0", advice);
  facts.adapters = {{"eth0", Adapter::Wired, true, {"169.254.7.7"}}};
  Expect("network-adapters", Sign::Look,
         "No router has given an address; the adapter has one of its own: eth0 (169.254.7.7)", advice);
}

TEST_F(Examination, SeveralAdapters) {
  facts.adapters.push_back({"wlan0", Adapter::Wireless, true, {"10.0.0.2", "10.0.0.3"}});
  Expect("network-adapters", Sign::Good, "In use: eth0 (192.168.4.2), wlan0 (10.0.0.2, 10.0.0.3)");
  Expect("broadcast", Sign::Look, "A scan leaves by eth0 only, not by wlan0 (10.0.0.2, 10.0.0.3).",
         "Switch the others off for the time, or have a scan leave by wlan0: route wlan0");
}

TEST_F(Examination, OneAdapter) {
  facts.adapters.push_back({"docker0", Adapter::Virtual, true, {"172.17.0.1"}});
  Expect("broadcast", Sign::Good, "A scan leaves by eth0.");
}

TEST_F(Examination, AdaptersOfAVirtualMachine) {
  facts.adapters = {{"veth0", Adapter::Virtual, true, {"10.0.0.2"}}};
  facts.broadcastAdapter = "veth0";
  Expect("broadcast", Sign::Good, "A scan leaves by veth0.");
}

TEST_F(Examination, AScanThatLeavesIntoATunnel) {
  facts.adapters.push_back({"tun0", Adapter::Tunnel, true, {"10.8.0.2"}});
  facts.broadcastAdapter = "tun0";
  Expect("broadcast", Sign::Broken,
         "A scan leaves by tun0, which leads past your own network: eth0 (192.168.4.2)",
         "Switch the others off for the time, or have a scan leave by eth0: route eth0");
}

TEST_F(Examination, AScanThatCannotLeave) {
  facts.broadcastAdapter = "";
  Expect("broadcast", Sign::Broken, "A scan cannot leave this computer.",
         "Switch the others off for the time, or have a scan leave by eth0: route eth0");
}

TEST_F(Examination, Firewalls) {
  struct Row {
    Firewall firewall;
    Sign sign;
    std::string found;
    std::string advice;
  };
  const std::string plain = "If a scan finds nothing, have the firewall let UDP port 5000 in.";
  const std::string command = "If a scan finds nothing, let UDP port 5000 in: do it";
  const Row rows[] = {
      {{Firewall::Absent, "nft", Firewall::Untold, ""}, Sign::Good, "There is none.", ""},
      {{Firewall::Off, "Wall", Firewall::Untold, ""}, Sign::Good, "Wall is off.", ""},
      {{Firewall::On, "Wall", Firewall::Open, "do it"}, Sign::Good, "Wall lets UDP port 5000 in.", ""},
      {{Firewall::On, "Wall", Firewall::Closed, "do it"},
       Sign::Broken,
       "Wall does not let UDP port 5000 in.",
       command},
      {{Firewall::On, "Wall", Firewall::Untold, ""},
       Sign::Look,
       "Wall is on. Whether it lets UDP port 5000 in cannot be told from here.",
       plain},
      {{Firewall::Unknown, "", Firewall::Untold, ""},
       Sign::Look,
       "There may be one: its rules are not for every user to read.",
       plain},
  };
  for (const Row& row : rows) {
    facts.firewall = row.firewall;
    Expect("firewall", row.sign, row.found, row.advice);
  }
}

// Files

TEST_F(Examination, Settings) {
  Expect("settings", Sign::Good, "None are kept yet: the desktop program writes them when it ends.");
  FileWith(subject_.settingsFile, "<config><logging>on</logging></config>");
  Expect("settings", Sign::Good, "LumarineConfig.xml can be read and written.");
  FileWith(subject_.settingsFile, "<config><logging>on</config>");
  Expect("settings", Sign::Broken, "LumarineConfig.xml is damaged: it is no XML.",
         "The program starts without it and writes a new one when it ends. Rename it if you want to keep the "
         "old one.");
  fs::remove(subject_.settingsFile);
  fs::create_directories(subject_.settingsFile);
  EXPECT_THAT(WithoutFolder(Of("settings").found.English()),
              StartsWith("LumarineConfig.xml cannot be read: "));
  EXPECT_EQ(Of("settings").sign, Sign::Broken);
}

TEST_F(Examination, DeviceLogs) {
  Expect("device-log", Sign::Good, "Logging is off, and there is none.");
  FileWith(subject_.settingsFile, "<config><logging>on</logging></config>");
  Expect("device-log", Sign::Good, "Logging is on. Nothing has been written yet.");
  FileWith(subject_.deviceLogFile, "9:05:03:007 Packet_Find()\r\n");
  const std::string found = Of("device-log").found.English();
  EXPECT_THAT(found, StartsWith("Logging is on. Last written 2026-03-14 09:2")) << "by the clock of the test";
  EXPECT_THAT(found, HasSubstr(", 1 KB."));
  FileWith(subject_.deviceLogFile,
           "9:05:03:007 hid_write error: No such device\r\n9:05:04:007 Packet_Find()\r\n");
  EXPECT_EQ(Of("device-log").sign, Sign::Look);
  EXPECT_THAT(Of("device-log").found.English(), HasSubstr("): 9:05:03:007 hid_write error: No such device"));
  EXPECT_EQ(Of("device-log").advice.English(),
            "Look at the cable or the network, and try again what failed.");
}

TEST_F(Examination, ALogThatIsNoFile) {
  fs::create_directories(subject_.deviceLogFile);
  Expect("device-log", Sign::Look, "LumarineLog.txt cannot be read.",
         "Give yourself the right to read and write it.");
}

// Clocks

TEST_F(Examination, TheClockOfTheComputer) {
  Expect("computer-clock", Sign::Good, "It shows 2026-03-14 09:26, UTC+01:00, and is set by the network.");
  facts.keeper = platform::ClockKeeper::Unknown;
  Expect("computer-clock", Sign::Good, "It shows 2026-03-14 09:26, UTC+01:00.");
  facts.keeper = platform::ClockKeeper::Nobody;
  Expect("computer-clock", Sign::Look, "It shows 2026-03-14 09:26, UTC+01:00, and nobody sets it.",
         "Compare it with another clock, or have the system set it by the network.");
  facts.winterOffset = 0;
  EXPECT_EQ(Of("computer-clock").sign, Sign::Look) << "Lisbon has summer";
  facts.summerOffset = 0;
  Expect("computer-clock", Sign::Look, "It shows 2026-03-14 09:26, UTC+00:00.",
         "Choose your time zone, if this is not the time on your wall: controllers are given this time.");
  virtual_clock::SetLocalTime({1970, 1, 1, 0, 0, 7, 0});
  Expect("computer-clock", Sign::Broken, "It shows 1970-01-01 00:00, UTC+00:00.",
         "Set it: controllers are given this time.");
}

TEST_F(Examination, TheClocksOfControllers) {
  const std::string setIt =
      "Compare its display with this computer's clock, and set it if it differs: lumarinectl sync-time";
  Expect("controller-clock", Sign::Look,
         "A controller can be told the time, but not asked for it, and the device log does not say when that "
         "was.",
         setIt);
  const auto givenSync = [&](const char* fields) {
    FileWith(subject_.deviceLogFile, std::string("9:05:03:007 Packet_TimeSync(") + fields + ")\r\n");
  };
  givenSync("Year=2026, Month=03, Day=01, Hour=09, Minute=05, Second=03");
  Expect("controller-clock", Sign::Good, "One was last set to 2026-03-01 09:05, as the device log says.");
  givenSync("Year=2026, Month=02, Day=01, Hour=09, Minute=05, Second=03");
  Expect("controller-clock", Sign::Look, "One was last set to 2026-02-01 09:05, as the device log says.",
         setIt);
  virtual_clock::SetLocalTime({2026, 4, 2, 9, 0, 0, 0});
  givenSync("Year=2026, Month=03, Day=28, Hour=09, Minute=05, Second=03");
  Expect("controller-clock", Sign::Look,
         "One was last set at 2026-03-28 09:05, before the clocks here were changed: it does not know of "
         "daylight "
         "saving.",
         setIt);
  givenSync("Year=2026, Month=13, Day=28, Hour=09, Minute=05, Second=03");
  EXPECT_THAT(Of("controller-clock").found.English(), StartsWith("A controller can be told"))
      << "no such month";
}

}  // namespace
