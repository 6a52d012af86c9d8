// "Setup TC421 WiFi" from its first page to its last, over a network of simulated controllers.

#include <atomic>
#include <optional>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/numbers.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "tests/app/app_test.h"
#include "tests/support/files.h"
#include "tests/support/held_scan.h"
#include "tests/support/sim_network.h"
#include "tests/support/wizard_steps.h"

namespace {

using app::Control;
using dialogs::kCancel;
using dialogs::kOk;
using platform::WifiAuthentication;
using platform::WifiCipher;
using platform::WifiQuery;
using sim_network::Datagram;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using namespace in_dialog;
using in_wizard::Search;
using in_wizard::WaitForRows;
namespace command = app::command;
namespace config_id = dialogs::tc421_config_control;
namespace search_id = dialogs::tc421_search_control;

constexpr sim_network::Address kTank{192, 168, 4, 7};
constexpr sim_network::Address kPond{192, 168, 4, 9};

constexpr char kSuccess[] = "Successfully configured TC421 device to use selected WiFi network!";
constexpr char kError[] = "Error configuring TC421 device to use selected WiFi network!";

class WifiWizard : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    sim_network::Reset();
    sim_network::PlugIn(kTank, "Smart-123456");
    sim_network::SetWifi(WifiQuery::Answered, {{"Reef", WifiAuthentication::Wpa2Password, WifiCipher::Ccmp},
                                               {"Attic", WifiAuthentication::Open, WifiCipher::Ccmp}});
    GivenTheProgramRuns();
  }
  void TearDown() override {
    if (user.IsRunning()) user.Close();
    EXPECT_EQ(sim_network::OpenSockets(), 0);
    EXPECT_THAT(sim_network::Violations(), IsEmpty());
  }

  headless::Dialogs& Port() { return user.GetDesktop().dialogs; }
  static std::optional<sim::Wifi> Wifi() { return sim_network::MemoryOf(kTank).wifi; }
  std::vector<std::string> Told() {
    std::vector<std::string> texts;
    for (const auto& told : Port().told) texts.push_back(Utf8FromWide(told.text));
    return texts;
  }
  // The titles of the dialogs that came up, without what they have in common.
  std::vector<std::string> Pages() {
    std::vector<std::string> pages;
    for (const SeenDialog& seen : user.Dialogs()) pages.push_back(seen.title.substr(19));
    return pages;
  }
  bool RunWizard(std::vector<DialogScript> pages) { return in_wizard::Run(user, std::move(pages)); }

  DialogStep WaitForLog(const std::string& text) {
    return Await([this, text](const SeenDialog&) { return user.Log().find(text) != std::string::npos; });
  }
  static DialogScript Init() { return {PressEnter()}; }
  static DialogScript FindOne() { return {Search(), WaitForRows(1), Press(kOk)}; }
  static DialogScript UseReef() {
    return {Pick(config_id::kNetwork, 1), Type(config_id::kPassword, "secret coral"),
            Press(config_id::kSetUp), Press(kOk)};
  }
};

TEST_F(WifiWizard, BringsAControllerIntoAProtectedNetwork) {
  ASSERT_TRUE(RunWizard({Init(), FindOne(), UseReef(), {Look(), Press(kOk)}}));
  EXPECT_THAT(Told(), ElementsAre(kSuccess));
  EXPECT_EQ(Wifi()->ssid, "Reef");
  EXPECT_EQ(Wifi()->password, "secret coral");
  EXPECT_EQ(Wifi()->security, 2);
  EXPECT_EQ(Wifi()->encryption, 1);
  EXPECT_TRUE(Wifi()->complete);
  const std::string last = user.Dialogs().back().controls.at(dialogs::tc421_success_control::kText).text;
  EXPECT_THAT(last, HasSubstr("Successfully configured WiFi on the TC421 device: Smart-123456\r\n"));
  EXPECT_THAT(last, HasSubstr("connect to the configured WiFi network: Reef\r\n"));
  EXPECT_EQ(NewLog(),
            "Searching for network devices...\nFound 1 device(s)\n"
            "Trying to find hostname for 192.168.4.7:5000...\nHostname not found, using Smart-123456\n"
            "Setting up WiFi\n");
}

TEST_F(WifiWizard, BringsAControllerIntoAnOpenNetwork) {
  ASSERT_TRUE(RunWizard({Init(), FindOne(), {Press(config_id::kSetUp), Press(kOk)}, {Press(kOk)}}));
  EXPECT_THAT(Pages(), ElementsAre("Initialization", "Search", "Configuration", "Success"));
  EXPECT_EQ(Wifi()->ssid, "Attic");
  EXPECT_EQ(Wifi()->security, 0);
  EXPECT_TRUE(Wifi()->complete);
}

TEST_F(WifiWizard, WithoutASecurityTypeTheLogSaysThatNothingWasSent) {
  sim_network::SetWifi(WifiQuery::Answered, {{"Old", WifiAuthentication::Other, WifiCipher::Ccmp}});
  ASSERT_TRUE(RunWizard({Init(),
                         FindOne(),
                         {Type(config_id::kPassword, "secret coral"), Press(config_id::kSetUp), Press(kOk)},
                         {Press(kOk)}}));
  EXPECT_THAT(Told(), ElementsAre(kSuccess)) << "a security that is not known counts as one that is set";
  EXPECT_FALSE(Wifi().has_value());
  EXPECT_THAT(NewLog(),
              testing::EndsWith("Setting up WiFi\nNothing was sent to Smart-123456: no security type "
                                "is chosen for the network Old. Choose one and set it up again.\n"));
}

TEST_F(WifiWizard, CancelOnAnyPageEndsItThere) {
  RunWizard({{Press(kCancel)}});
  EXPECT_THAT(Pages(), ElementsAre("Initialization"));
  RunWizard({Init(), {PressEscape()}});
  EXPECT_THAT(Pages(), ElementsAre("Initialization", "Search"));
  EXPECT_THAT(sim_network::Traffic(), IsEmpty()) << "nothing was asked for";
  RunWizard({Init(), FindOne(), {Press(kCancel)}});
  EXPECT_THAT(Pages(), ElementsAre("Initialization", "Search", "Configuration"));
  EXPECT_FALSE(Wifi().has_value());
  RunWizard({Init(), FindOne(), {Press(config_id::kSetUp), Press(kCancel)}});
  EXPECT_THAT(Pages(), ElementsAre("Initialization", "Search", "Configuration"));
  EXPECT_TRUE(Wifi()->complete) << "a set-up that is done stays so";
}

TEST_F(WifiWizard, OfTwoControllersTheChosenOneIsSetUp) {
  sim_network::PlugIn(kPond, "Smart-000001");
  ASSERT_TRUE(RunWizard(
      {Init(), {Search(), WaitForRows(2), Pick(search_id::kFound, 0), Press(kOk)}, UseReef(), {Press(kOk)}}));
  EXPECT_FALSE(Wifi().has_value());
  EXPECT_EQ(sim_network::MemoryOf(kPond).wifi->ssid, "Reef");
}

TEST_F(WifiWizard, NothingFoundIsNotTheEnd) {
  sim_network::SetWeather({.loss = 1.0}, {}, 1);
  const DialogStep comeNearer = Meanwhile([] { sim_network::SetWeather({}, {}, 1); });
  ASSERT_TRUE(RunWizard(
      {Init(),
       {Search(), WaitForLog("Found 0 device(s)"), Look(), comeNearer, Search(), WaitForRows(1), Press(kOk)},
       UseReef(),
       {Press(kOk)}}));
  EXPECT_FALSE(user.Dialogs().at(2).controls.at(kOk).enabled);
  EXPECT_TRUE(Wifi()->complete);
}

TEST_F(WifiWizard, AWrongAcknowledgementIsToldAndTriedAgain) {
  std::atomic<bool> isWrong = true;
  sim_network::SetAnswer([&isWrong](const Datagram& reply) {
    Datagram answer = reply;
    if (isWrong && answer.bytes[4] == 'r') answer.bytes[4] = 'x';
    return std::vector{answer};
  });
  const DialogStep mend = Meanwhile([&isWrong] { isWrong = false; });
  DialogScript config = UseReef();
  config.insert(config.end() - 1, {mend, Press(config_id::kSetUp)});
  ASSERT_TRUE(RunWizard({Init(), FindOne(), config, {Press(kOk)}}));
  EXPECT_THAT(Told(), ElementsAre(kError, kSuccess));
  EXPECT_THAT(NewLog(), HasSubstr("Setting up WiFi\nError setting WiFi password\nSetting up WiFi\n"));
  sim_network::SetAnswer(nullptr);
}

TEST_F(WifiWizard, WhileAnotherProgramHoldsThePortItFindsNothingAndSetsUpNothing) {
  sim_network::HoldPort(true);
  RunWizard({Init(), {Search(), WaitForLog("Found 0 device(s)"), PressEscape()}});
  sim_network::HoldPort(false);
  const auto hold = [](bool held) { return Meanwhile([held] { sim_network::HoldPort(held); }); };
  ASSERT_TRUE(
      RunWizard({Init(),
                 FindOne(),
                 {hold(true), Press(config_id::kSetUp), hold(false), Press(config_id::kSetUp), Press(kOk)},
                 {Press(kOk)}}));
  EXPECT_THAT(Told(), ElementsAre(kError, kSuccess));
  EXPECT_THAT(NewLog(), HasSubstr("Connect error\nSetting up WiFi\n"));
}

// The controller cannot be told anything while the program itself still searches.
TEST_F(WifiWizard, AScanThatStillRunsMakesTheSetUpFailAndTheNextTrySucceed) {
  std::optional<HeldScan> scan;
  const DialogStep hold = Meanwhile([&] { scan.emplace(); });
  const DialogStep waitForScan = Await([&](const SeenDialog&) { return scan->IsHeld(); });
  const DialogStep letGo = Meanwhile([&] { scan->LetGo(); });
  const DialogStep waitForPort = Await([](const SeenDialog&) { return sim_network::OpenSockets() == 0; });
  ASSERT_TRUE(RunWizard({Init(),
                         {Search(), WaitForRows(1), hold, Search(), waitForScan, Press(kOk)},
                         {Press(config_id::kSetUp), letGo, waitForPort, Press(config_id::kSetUp), Press(kOk)},
                         {Press(kOk)}}));
  EXPECT_THAT(Told(), ElementsAre(kError, kSuccess));
  EXPECT_TRUE(Wifi()->complete);
}

TEST_F(WifiWizard, TheMessageOfAScanIsLostOnceItsPageHasGone) {
  HeldScan scan;
  RunWizard({Init(), {Search(), Await([&](const SeenDialog&) { return scan.IsHeld(); }), PressEscape()}});
  scan.LetGo();
  ASSERT_TRUE(user.WaitForLog("Hostname not found, using Smart-123456"));
  user.Settle();
  EXPECT_THAT(user.List(Control::DeviceList), IsEmpty()) << "only the page would have heard of it";
  EXPECT_THAT(sim_network::Traffic(), SizeIs(1));
}

TEST_F(WifiWizard, TheProgramCanBeClosedWhileAScanOfAPageThatHasGoneStillRuns) {
  RunWizard({Init(), {Search(), Search(), Search(), PressEscape()}});
  user.Close();
  EXPECT_FALSE(user.IsRunning());
  EXPECT_LE(sim_network::Traffic().size(), 3U) << "queued scans go with the program";
}

// What was found for the page is not listed until something else makes the list change.
TEST_F(WifiWizard, TheDeviceListStaysUntilItsOwnScan) {
  ASSERT_TRUE(RunWizard({Init(), FindOne(), {PressEscape()}}));
  user.Settle();
  EXPECT_THAT(user.List(Control::DeviceList), IsEmpty());
  user.Choose(command::kScanWifi);
  ASSERT_TRUE(WaitUntil([this] { return !user.List(Control::DeviceList).empty(); }));
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("Smart-123456"));
}

TEST_F(WifiWizard, ThePasswordIsInTheDeviceLogFileInClear) {
  user.Choose(command::kLogging);
  ASSERT_TRUE(RunWizard({Init(), FindOne(), UseReef(), {Press(kOk)}}));
  user.Close();
  const std::string log = BytesOf(folder / "LumarineLog.txt");
  EXPECT_THAT(log, HasSubstr("Packet_SetWiFi_Password(Password=secret coral)"));
  EXPECT_THAT(log, HasSubstr("Packet_SetWiFi_SSID(SSID=Reef, Security=2, Encryption=1)"));
}

TEST_F(WifiWizard, LeavesTheProgramAndItsHistoryAlone) {
  const int depth = UndoDepth();
  RunWizard({Init(), FindOne(), UseReef(), {Press(kOk)}});
  EXPECT_EQ(UndoDepth(), depth);
}

}  // namespace
