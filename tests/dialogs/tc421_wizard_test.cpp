// The four pages that bring a TC421 into a wireless network, each by itself, over a network of simulated
// controllers.

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/log.h"
#include "dialogs/dialog_template.h"
#include "dialogs/dlg_tc421_config.h"
#include "dialogs/dlg_tc421_init.h"
#include "dialogs/dlg_tc421_search.h"
#include "dialogs/dlg_tc421_success.h"
#include "tests/dialogs/dialogs_test.h"
#include "tests/support/held_scan.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/sim_network.h"
#include "tests/support/virtual_clock.h"
#include "tests/support/wizard_steps.h"

namespace {

using namespace dialogs;
using namespace in_dialog;
using in_wizard::Search;
using in_wizard::WaitForRows;
using platform::WifiAuthentication;
using platform::WifiCipher;
using platform::WifiQuery;
using sim_network::Datagram;
using TCBase::DeviceInfo;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
namespace config_id = tc421_config_control;
namespace search_id = tc421_search_control;

constexpr sim_network::Address kTank{192, 168, 4, 7};
constexpr sim_network::Address kPond{192, 168, 4, 9};

// All that has been logged since the last call, with plain line ends.
std::string Taken(LogChannel& log) {
  std::string text;
  log.textHandler = [&text](const std::string& item) { text += item; };
  log.Drain();
  log.textHandler = nullptr;
  std::erase(text, '\r');
  return text;
}

class WizardTest : public DialogsTest {
 protected:
  void SetUp() override {
    virtual_clock::Reset();
    sim_hidapi::Reset();
    sim_network::Reset();
    Taken(statusLog);
    Taken(deviceLog);
  }
  void TearDown() override {
    EXPECT_EQ(sim_network::OpenSockets(), 0);
    EXPECT_THAT(sim_network::Violations(), IsEmpty());
  }

  std::string ToldAt(std::size_t index) const {
    const headless::Dialogs::Told& told = port.told.at(index);
    return Utf8FromWide(told.title) + ": " + Utf8FromWide(told.text);
  }
};

// The first page.

using TC421Init = WizardTest;

TEST_F(TC421Init, TellsWhatToDoFirst) {
  EXPECT_EQ(Fill<DlgTC421_Init>({Press(kOk)}), kOk);
  EXPECT_EQ(First().title, "Setup TC421 WiFi - Initialization");
  EXPECT_EQ(First().controls.at(tc421_init_control::kText).text,
            "Hold [Menu] button until \"Set:softAP...\" appears on the TC421 display.\r\n"
            "\r\n"
            "This will put TC421 device into Access Point mode.\r\n"
            "New WiFi network named \"Smart-######\" will get created.\r\n"
            "\r\n"
            "Connect your laptop to this WiFi network!\r\n"
            "After successful connection press Next to search for your TC421 device.");
  EXPECT_EQ(First().controls.at(kOk).text, "Next");
  EXPECT_EQ(First().controls.at(kCancel).text, "Cancel");
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(TC421Init, EndsAsTheUserSays) {
  EXPECT_EQ(Fill<DlgTC421_Init>({PressEnter()}), kOk);
  EXPECT_EQ(Fill<DlgTC421_Init>({Press(kCancel)}), kCancel);
  EXPECT_EQ(Fill<DlgTC421_Init>({PressEscape()}), kCancel);
}

// The second page.

class TC421Search : public WizardTest {
 protected:
  void TearDown() override {
    worker_.reset();
    WizardTest::TearDown();
  }

  int Ask(DialogScript script) {
    port.seen.clear();
    port.scripts.push_back(std::move(script));
    DlgTC421_Search dialog(port, *worker_);
    const int result = dialog.DoModal();
    device = dialog.Device();
    return result;
  }
  // Until as many scans have ended as were begun, and the dialog has heard of it.
  DialogStep WaitForWorker() {
    return Await(
        [this, queued = false, done = std::make_shared<std::atomic<bool>>(false)](const SeenDialog&) mutable {
          if (!queued) worker_->AddJob([done] { *done = true; });
          queued = true;
          return done->load();
        });
  }
  static std::vector<std::string> Rows(const SeenDialog& seen) {
    return seen.controls.at(search_id::kFound).rows;
  }
  static bool IsNextEnabled(const SeenDialog& seen) { return seen.controls.at(kOk).enabled; }

  std::optional<TCBase::Worker> worker_{std::in_place};
  DeviceInfo device;
};

TEST_F(TC421Search, BeginsWithNothingFoundAndSearchesNothingByItself) {
  EXPECT_EQ(Ask({PressEscape()}), kCancel);
  EXPECT_EQ(First().title, "Setup TC421 WiFi - Search");
  EXPECT_EQ(First().controls.at(search_id::kSearch).text, "Search for TC421 WiFi device");
  EXPECT_EQ(First().controls.at(search_id::kFoundLabel).text, "Found devices");
  EXPECT_EQ(First().controls.at(kOk).text, "Next");
  EXPECT_EQ(First().controls.at(kCancel).text, "Cancel");
  EXPECT_FALSE(IsNextEnabled(First()));
  EXPECT_THAT(Rows(First()), IsEmpty());
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(TC421Search, OneDeviceFoundIsSelectedByItselfAndNextEnabledAtOnce) {
  sim_network::PlugIn(kTank, "Smart-123456");
  EXPECT_EQ(Ask({Search(), WaitForRows(1), Look(), Press(kOk)}), kOk);
  EXPECT_THAT(Rows(Last()), ElementsAre("Smart-123456"));
  EXPECT_EQ(Last().controls.at(search_id::kFound).row, 0);
  EXPECT_TRUE(IsNextEnabled(Last()));
  EXPECT_EQ(device.name, "Smart-123456");
  EXPECT_EQ(device.model, TCBase::ModelTC421UDP);
  EXPECT_EQ(device.address, TCBase::MakeIpv4Address(kTank, 5000));
}

TEST_F(TC421Search, OfTwoFoundTheUserChooses) {
  sim_network::PlugIn(kTank, "Smart-2");
  sim_network::PlugIn(kPond, "Smart-1");
  EXPECT_EQ(Ask({Search(), WaitForRows(2), Look(), Pick(search_id::kFound, 0), Look(), Press(kOk)}), kOk);
  EXPECT_THAT(Rows(port.seen.at(1)), ElementsAre("Smart-1", "Smart-2"));
  EXPECT_EQ(port.seen.at(1).controls.at(search_id::kFound).row, -1);
  EXPECT_FALSE(IsNextEnabled(port.seen.at(1)));
  EXPECT_TRUE(IsNextEnabled(port.seen.at(2)));
  EXPECT_EQ(device.name, "Smart-1");
  EXPECT_EQ(device.address, TCBase::MakeIpv4Address(kPond, 5000));
}

TEST_F(TC421Search, NothingFoundLeavesAnotherSearchOrCancel) {
  EXPECT_EQ(Ask({Search(), WaitForWorker(), Look(), PressEscape()}), kCancel);
  EXPECT_THAT(Rows(Last()), IsEmpty());
  EXPECT_FALSE(IsNextEnabled(Last()));
  EXPECT_TRUE(Last().controls.at(search_id::kSearch).enabled);
  EXPECT_EQ(Taken(statusLog), "Searching for network devices...\nFound 0 device(s)\n");
}

TEST_F(TC421Search, EnterIsNoWayRoundTheDisabledButton) {
  EXPECT_EQ(Ask({Search(), WaitForWorker(), GoTo(search_id::kFound), PressEnter(), PressEscape()}), kCancel);
}

TEST_F(TC421Search, UsbControllersAreNotShownAndDoNotShiftTheChoice) {
  sim_hidapi::PlugIn(sim_hidapi::Family::TC421);
  worker_.emplace(TCBase::Discovery::AtOnce);
  sim_network::PlugIn(kTank, "Zoo");
  EXPECT_EQ(Ask({Await([this](const SeenDialog&) { return worker_->GetDevices().size() == 1; }), Search(),
                 WaitForRows(1), Look(), Press(kOk)}),
            kOk);
  ASSERT_THAT(worker_->GetDevices(), SizeIs(2));
  EXPECT_EQ(worker_->GetDevices().front().model, TCBase::ModelTC421USB) << "it stands before the other";
  EXPECT_THAT(Rows(Last()), ElementsAre("Zoo"));
  EXPECT_EQ(device.name, "Zoo");
}

TEST_F(TC421Search, ScansMayBeQueuedAndTheLastOneCounts) {
  sim_network::PlugIn(kTank, "Smart-1");
  EXPECT_EQ(Ask({Search(), Search(), WaitForWorker(), Look(),
                 Meanwhile([] { sim_network::PlugIn(kPond, "Smart-2"); }), Search(), WaitForRows(2), Look(),
                 PressEscape()}),
            kCancel);
  EXPECT_TRUE(IsNextEnabled(port.seen.at(1)));
  EXPECT_THAT(Rows(Last()), ElementsAre("Smart-1", "Smart-2"));
  EXPECT_FALSE(IsNextEnabled(Last())) << "neither of the two is chosen";
  EXPECT_THAT(sim_network::Traffic(), SizeIs(3));
}

TEST_F(TC421Search, WhileAnotherProgramHoldsThePortNothingIsFound) {
  sim_network::PlugIn(kTank, "Smart-1");
  sim_network::HoldPort(true);
  EXPECT_EQ(Ask({Search(), WaitForWorker(), Look(), PressEscape()}), kCancel);
  EXPECT_THAT(Rows(Last()), IsEmpty());
  EXPECT_THAT(Taken(statusLog), HasSubstr("Found 0 device(s)"));
  EXPECT_THAT(Taken(deviceLog), HasSubstr("bind"));
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(TC421Search, AScanThatOutlivesThePageHarmsNothing) {
  sim_network::PlugIn(kTank, "Smart-1");
  HeldScan scan;
  EXPECT_EQ(Ask({Search(), Await([&](const SeenDialog&) { return scan.IsHeld(); }), Press(kCancel)}),
            kCancel);
  scan.LetGo();
  // The next page is another: what the first scan posts is lost, what it found is not.
  EXPECT_EQ(Ask({WaitForWorker(), Look(), Search(), WaitForRows(1), Press(kOk)}), kOk);
  EXPECT_THAT(Rows(Last()), IsEmpty());
  EXPECT_FALSE(IsNextEnabled(Last()));
}

TEST_F(TC421Search, ANameOfAnyBytesIsShownHarmlesslyAndKeptAsItIs) {
  const std::string name = "\x1B[2J\xFF\nTank\xE2\x80\xAE";
  sim_network::PlugIn(kTank, name);
  EXPECT_EQ(Ask({Search(), WaitForRows(1), Look(), Press(kOk)}), kOk);
  EXPECT_THAT(Rows(Last()), ElementsAre("\uFFFD[2J\uFFFD\uFFFDTank\uFFFD"));
  EXPECT_EQ(device.name, name);
}

// The third page.

class TC421Config : public WizardTest {
 protected:
  void SetUp() override {
    WizardTest::SetUp();
    sim_network::PlugIn(kTank, "Smart-123456");
  }

  int Ask(DialogScript script) {
    port.seen.clear();
    port.told.clear();
    port.scripts.push_back(std::move(script));
    DlgTC421_Config dialog(
        port, {TCBase::ModelTC421UDP, "Smart-123456", TCBase::MakeIpv4Address(kTank, 5000), false});
    const int result = dialog.DoModal();
    config = dialog.Config();
    return result;
  }
  static DialogStep SetUpDevice() { return Press(config_id::kSetUp); }
  static DialogStep TypeNetwork(std::string name) { return Type(config_id::kNetwork, std::move(name)); }
  static DialogStep TypePassword(std::string text) { return Type(config_id::kPassword, std::move(text)); }
  static DialogStep PickOpen() { return Pick(config_id::kSecurity, 0); }
  static DialogStep PickWpa2() { return Pick(config_id::kSecurity, 2); }
  static DialogStep PickAes() { return Pick(config_id::kEncryption, 0); }
  static std::string Text(const SeenDialog& seen, int control) { return seen.controls.at(control).text; }
  static void GivenNetworks(std::vector<platform::WifiNetwork> networks) {
    sim_network::SetWifi(WifiQuery::Answered, std::move(networks));
  }
  // From now on the controller answers with another letter where it acknowledges with one of these.
  static void AcknowledgeWronglyFor(const std::string& letters) {
    sim_network::SetAnswer([letters](const Datagram& reply) {
      Datagram wrong = reply;
      if (letters.find(wrong.bytes[4]) != std::string::npos) wrong.bytes[4] = 'x';
      return std::vector{wrong};
    });
  }
  static std::optional<sim::Wifi> Wifi() { return sim_network::MemoryOf(kTank).wifi; }
  void ExpectTold(const std::string& text, Icon icon) const {
    ASSERT_THAT(port.told, SizeIs(1));
    EXPECT_EQ(ToldAt(0), text);
    EXPECT_EQ(port.told[0].icon, icon);
  }

  TCBase::WifiNetworkConfig config;
};

constexpr char kPasswordTold[] = "WiFi password: WiFi password can not be empty";
constexpr char kErrorTold[] =
    "WiFi configuration error: Error configuring TC421 device to use selected WiFi network!";
constexpr char kSuccessTold[] =
    "WiFi configuration success: Successfully configured TC421 device to use selected WiFi network!";

TEST_F(TC421Config, ShowsTheDeviceTheNetworksAndTheWords) {
  GivenNetworks({{"Reef", WifiAuthentication::Wpa2Password, WifiCipher::Ccmp},
                 {"", WifiAuthentication::Wpa2Password, WifiCipher::Ccmp},
                 {"Attic", WifiAuthentication::WpaPassword, WifiCipher::Tkip}});
  EXPECT_EQ(Ask({PressEscape()}), kCancel);
  const SeenDialog& seen = First();
  EXPECT_EQ(seen.title, "Setup TC421 WiFi - Configuration");
  EXPECT_EQ(Text(seen, config_id::kDeviceGroup), "Selected device");
  EXPECT_EQ(Text(seen, config_id::kDevice), "Smart-123456");
  EXPECT_EQ(Text(seen, config_id::kNetworkLabel), "WiFi network");
  EXPECT_EQ(Text(seen, config_id::kPasswordLabel), "Password");
  EXPECT_EQ(Text(seen, config_id::kSecurityLabel), "Security type");
  EXPECT_EQ(Text(seen, config_id::kEncryptionLabel), "Encryption method");
  EXPECT_EQ(Text(seen, config_id::kSetUp), "Set device to use this WiFi network");
  EXPECT_EQ(Text(seen, kOk), "Next");
  EXPECT_EQ(Text(seen, kCancel), "Cancel");
  EXPECT_FALSE(seen.controls.at(kOk).enabled);
  EXPECT_THAT(seen.controls.at(config_id::kNetwork).rows, ElementsAre("Attic", "Reef"));
  EXPECT_THAT(seen.controls.at(config_id::kSecurity).rows, ElementsAre("Open", "WPA", "WPA2"));
  EXPECT_THAT(seen.controls.at(config_id::kEncryption).rows, ElementsAre("AES", "TKIP"));
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(TC421Config, TheFirstNetworkIsChosenWithWhatItIsSecuredWith) {
  GivenNetworks({{"Reef", WifiAuthentication::Wpa2Password, WifiCipher::Ccmp},
                 {"Attic", WifiAuthentication::WpaPassword, WifiCipher::Tkip}});
  Ask({PressEscape()});
  EXPECT_EQ(Text(First(), config_id::kNetwork), "Attic") << "first in the list, not in the system's answer";
  EXPECT_EQ(Text(First(), config_id::kSecurity), "WPA");
  EXPECT_EQ(Text(First(), config_id::kEncryption), "TKIP");
}

TEST_F(TC421Config, AnotherNetworkBringsItsOwnSecurity) {
  GivenNetworks({{"Reef", WifiAuthentication::Wpa2Password, WifiCipher::Ccmp},
                 {"Attic", WifiAuthentication::WpaPassword, WifiCipher::Tkip},
                 {"Bar", WifiAuthentication::Open, WifiCipher::Tkip}});
  Ask({Pick(config_id::kNetwork, 2), Look(), Pick(config_id::kNetwork, 1), Look(), PressEscape()});
  EXPECT_EQ(Text(port.seen.at(1), config_id::kNetwork), "Reef");
  EXPECT_EQ(Text(port.seen.at(1), config_id::kSecurity), "WPA2");
  EXPECT_EQ(Text(port.seen.at(1), config_id::kEncryption), "AES");
  EXPECT_EQ(Text(port.seen.at(2), config_id::kNetwork), "Bar");
  EXPECT_EQ(Text(port.seen.at(2), config_id::kSecurity), "Open");
}

TEST_F(TC421Config, AnInvalidSecurityKeepsWhatWasSelectedBefore) {
  GivenNetworks({{"Attic", WifiAuthentication::Wpa2Password, WifiCipher::Ccmp},
                 {"Old", WifiAuthentication::Other, WifiCipher::Other}});
  Ask({Pick(config_id::kNetwork, 1), Look(), PressEscape()});
  EXPECT_EQ(Text(Last(), config_id::kNetwork), "Old");
  EXPECT_EQ(Text(Last(), config_id::kSecurity), "WPA2");
  EXPECT_EQ(Text(Last(), config_id::kEncryption), "AES");
}

TEST_F(TC421Config, AnInvalidSecurityWithNothingBeforeItLeavesNoneSelected) {
  GivenNetworks({{"Old", WifiAuthentication::Other, WifiCipher::Other}});
  Ask({PressEscape()});
  EXPECT_EQ(Text(First(), config_id::kSecurity), "");
  EXPECT_EQ(First().controls.at(config_id::kSecurity).row, -1);
  EXPECT_EQ(First().controls.at(config_id::kEncryption).row, -1);
}

TEST_F(TC421Config, WithoutAnAdapterThereAreNoNetworksButALine) {
  EXPECT_EQ(Ask({PressEscape()}), kCancel);
  EXPECT_THAT(First().controls.at(config_id::kNetwork).rows, IsEmpty());
  EXPECT_EQ(Taken(statusLog), "No Wi-Fi adapter found.\n");
}

TEST_F(TC421Config, AProtectedNetworkIsHandedToTheDevice) {
  GivenNetworks({{"Reef", WifiAuthentication::Wpa2Password, WifiCipher::Ccmp}});
  EXPECT_EQ(Ask({TypePassword("secret coral"), SetUpDevice(), Look(), Press(kOk)}), kOk);
  ExpectTold(kSuccessTold, Icon::Information);
  EXPECT_TRUE(Last().controls.at(kOk).enabled);
  EXPECT_FALSE(Last().controls.at(config_id::kSetUp).enabled);
  ASSERT_TRUE(Wifi().has_value());
  EXPECT_EQ(Wifi()->ssid, "Reef");
  EXPECT_EQ(Wifi()->password, "secret coral");
  EXPECT_EQ(Wifi()->security, 2);
  EXPECT_EQ(Wifi()->encryption, 1);
  EXPECT_TRUE(Wifi()->complete);
  EXPECT_EQ(config.ssid, "Reef");
  EXPECT_EQ(config.password, "secret coral");
  EXPECT_EQ(config.security, TCBase::SecurityWPA2);
  EXPECT_EQ(config.encryption, TCBase::EncryptionAES);
  EXPECT_EQ(Taken(statusLog), "Setting up WiFi\n");
}

TEST_F(TC421Config, ATypedNetworkDoesAsWellAsAChosenOne) {
  GivenNetworks({{"Reef", WifiAuthentication::WpaPassword, WifiCipher::Tkip}});
  EXPECT_EQ(Ask({TypeNetwork("Hidden lagoon"), Look(), PickWpa2(), PickAes(), TypePassword("12345678"),
                 SetUpDevice(), Press(kOk)}),
            kOk);
  EXPECT_EQ(Text(Last(), config_id::kSecurity), "WPA") << "what is typed changes nothing else";
  EXPECT_EQ(Wifi()->ssid, "Hidden lagoon");
  EXPECT_EQ(Wifi()->security, 2);
  EXPECT_EQ(Wifi()->encryption, 1);
}

TEST_F(TC421Config, AnOpenNetworkNeedsNoPassword) {
  EXPECT_EQ(Ask({TypeNetwork("Attic"), PickOpen(), SetUpDevice(), Press(kOk)}), kOk);
  ExpectTold(kSuccessTold, Icon::Information);
  EXPECT_EQ(Wifi()->ssid, "Attic");
  EXPECT_EQ(Wifi()->security, 0);
  EXPECT_THAT(sim_network::Traffic(), SizeIs(1));
}

TEST_F(TC421Config, Wpa2WithAnEmptyPasswordTellsSoAndSendsNothing) {
  EXPECT_EQ(Ask({TypeNetwork("Reef"), PickWpa2(), PickAes(), SetUpDevice(), Look(), PressEscape()}), kCancel);
  ExpectTold(kPasswordTold, Icon::Error);
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
  EXPECT_FALSE(Last().controls.at(kOk).enabled);
  EXPECT_TRUE(Last().controls.at(config_id::kSetUp).enabled);
}

// Nobody has chosen a security, so there is nothing to send, and nothing went wrong with it.
TEST_F(TC421Config, WithNoSecurityChosenAPasswordIsEnoughForASuccessThatSendsNothing) {
  EXPECT_EQ(Ask({TypeNetwork("Reef"), SetUpDevice(), PressEscape()}), kCancel);
  ExpectTold(kPasswordTold, Icon::Error);
  EXPECT_EQ(config.security, TCBase::SecurityInvalid);
  EXPECT_EQ(config.encryption, TCBase::EncryptionInvalid);
  EXPECT_EQ(Ask({TypeNetwork("Reef"), TypePassword("12345678"), SetUpDevice(), Look(), Press(kOk)}), kOk);
  ExpectTold(kSuccessTold, Icon::Information);
  EXPECT_TRUE(Last().controls.at(kOk).enabled);
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(TC421Config, BeforeTheButtonTheResultIsThatNothingWasChosen) {
  Ask({PressEscape()});
  EXPECT_EQ(config.security, 99);
  EXPECT_EQ(config.encryption, 0);
  EXPECT_EQ(config.ssid, "");
}

struct WrongLetter {
  DialogStep security;
  const char* letters;
  const char* line;
};

TEST_F(TC421Config, AWrongAcknowledgementTellsSoAndCanBeTriedAgain) {
  const WrongLetter rows[] = {{PickOpen(), "t", "Error setting open WiFi\n"},
                              {PickWpa2(), "p", "Error setting WiFi SSID\n"},
                              {PickWpa2(), "r", "Error setting WiFi password\n"}};
  for (const WrongLetter& row : rows) {
    AcknowledgeWronglyFor(row.letters);
    Taken(statusLog);
    const DialogStep mend = Meanwhile([this] {
      ExpectTold(kErrorTold, Icon::Error);
      port.told.clear();
      AcknowledgeWronglyFor("");
    });
    EXPECT_EQ(Ask({TypeNetwork("Reef"), TypePassword("12345678"), PickAes(), row.security, SetUpDevice(),
                   Look(), mend, SetUpDevice(), Press(kOk)}),
              kOk);
    ExpectTold(kSuccessTold, Icon::Information);
    EXPECT_FALSE(Last().controls.at(kOk).enabled);
    EXPECT_TRUE(Last().controls.at(config_id::kSetUp).enabled);
    EXPECT_EQ(Text(Last(), config_id::kPassword), "12345678");
    EXPECT_THAT(Taken(statusLog), HasSubstr(std::string("Setting up WiFi\n") + row.line));
  }
}

TEST_F(TC421Config, ASilentDeviceCostsSixSecondsAndNoMore) {
  sim_network::SetAnswer([](const Datagram&) { return std::vector<Datagram>(); });
  EXPECT_EQ(Ask({TypeNetwork("Reef"), PickOpen(), SetUpDevice(), PressEscape()}), kCancel);
  ExpectTold(kErrorTold, Icon::Error);
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 6.0);
}

TEST_F(TC421Config, AHeldPortFailsAtOnceAndCanBeTriedAgain) {
  sim_network::HoldPort(true);
  const DialogStep release = Meanwhile([] { sim_network::HoldPort(false); });
  EXPECT_EQ(Ask({TypeNetwork("Reef"), PickOpen(), SetUpDevice(), Look(), release, SetUpDevice(), Press(kOk)}),
            kOk);
  EXPECT_FALSE(Last().controls.at(kOk).enabled);
  ASSERT_THAT(port.told, SizeIs(2));
  EXPECT_EQ(ToldAt(0), kErrorTold);
  EXPECT_EQ(ToldAt(1), kSuccessTold);
  EXPECT_THAT(Taken(statusLog), HasSubstr("Connect error\nSetting up WiFi\n"));
}

TEST_F(TC421Config, CancelAfterASuccessLeavesTheDeviceSetUp) {
  EXPECT_EQ(Ask({TypeNetwork("Reef"), PickOpen(), SetUpDevice(), Press(kCancel)}), kCancel);
  EXPECT_TRUE(Wifi()->complete);
}

TEST_F(TC421Config, EnterInAFieldIsNoWayRoundTheButton) {
  EXPECT_EQ(Ask({TypeNetwork("Reef"), PickOpen(), TypePassword("12345678"), PressEnter(), SetUpDevice(),
                 PressEscape()}),
            kCancel);
  EXPECT_EQ(Ask({TypeNetwork("Reef"), PickOpen(), SetUpDevice(), TypePassword("1"), PressEnter()}), kOk);
}

TEST_F(TC421Config, ThePasswordIsShownInClearAndReachesTheDeviceLog) {
  Ask({TypeNetwork("Reef"), TypePassword("secret coral"), PickWpa2(), PickAes(), SetUpDevice(), Look(),
       Press(kOk)});
  EXPECT_EQ(Text(Last(), config_id::kPassword), "secret coral");
  EXPECT_THAT(Taken(deviceLog), HasSubstr("Packet_SetWiFi_Password(Password=secret coral)"));
}

TEST_F(TC421Config, TextsAreReadThroughRoomFor128) {
  Ask({Paste(config_id::kNetwork, std::string(500, 's')), Paste(config_id::kPassword, std::string(500, 'p')),
       SetUpDevice(), PressEscape()});
  EXPECT_EQ(config.ssid, std::string(127, 's'));
  EXPECT_EQ(config.password, std::string(127, 'p'));
}

TEST_F(TC421Config, TenMegabytesOfATextAreReadThroughTheSameRoom) {
  // NOLINTNEXTLINE(bugprone-string-constructor): so long on purpose
  const std::string tenMegabytes(10'000'000, 'w');
  Ask({Paste(config_id::kNetwork, tenMegabytes), Paste(config_id::kPassword, tenMegabytes), SetUpDevice(),
       PressEscape()});
  EXPECT_EQ(config.ssid, std::string(127, 'w'));
  EXPECT_EQ(config.password, std::string(127, 'w'));
}

TEST_F(TC421Config, NetworksOfAnyScriptAreHandedOverAsTheyAreCalled) {
  for (const std::string name : {"Žluťoučký kůň", "水槽 🐠", "Φως & <b>", "{1}"}) {
    GivenNetworks({{name, WifiAuthentication::Open, WifiCipher::Ccmp}});
    EXPECT_EQ(Ask({SetUpDevice(), Press(kOk)}), kOk);
    EXPECT_EQ(Wifi()->ssid, name);
  }
}

// The last page.

class TC421Success : public WizardTest {
 protected:
  int Ask(DialogScript script, const std::string& device, const std::string& ssid) {
    DeviceInfo info;
    info.name = device;
    TCBase::WifiNetworkConfig config;
    config.ssid = ssid;
    return Fill<DlgTC421_Success>(std::move(script), info, config);
  }
};

TEST_F(TC421Success, TellsWhatComesNext) {
  EXPECT_EQ(Ask({Press(kOk)}, "Smart-123456", "Reef"), kOk);
  EXPECT_EQ(First().title, "Setup TC421 WiFi - Success");
  EXPECT_EQ(First().controls.at(kOk).text, "Done");
  EXPECT_EQ(First().controls.at(tc421_success_control::kText).text,
            "Successfully configured WiFi on the TC421 device: Smart-123456\r\n"
            "\r\n"
            "You should now see \"Set:station...\" text on the display.\r\n"
            "Device is now trying to connect to the configured WiFi network: Reef\r\n"
            "\r\n"
            "After successful connection, reconnect your laptop to the same WiFi network.\r\n"
            "Then you will be able to find your TC421 through \"Scan WiFi devices\" command\r\n"
            "and upload program or synchronize time over your configured WiFi network!");
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(TC421Success, EndsByEnterAndByEscape) {
  EXPECT_EQ(Ask({PressEnter()}, "Smart", "Reef"), kOk);
  EXPECT_EQ(Ask({PressEscape()}, "Smart", "Reef"), kCancel);
}

TEST_F(TC421Success, NamesAreTakenAsNamesAndShownHarmlessly) {
  Ask({PressEnter()}, "{1} & {2}\n", "<b>{1}\x07");
  const std::string text = First().controls.at(tc421_success_control::kText).text;
  EXPECT_THAT(text, StartsWith("Successfully configured WiFi on the TC421 device: {1} & {2}\uFFFD\r\n"));
  EXPECT_THAT(text, HasSubstr("configured WiFi network: <b>{1}\uFFFD\r\n"));
}

}  // namespace
