// Bringing a TC421 into a wireless network: the three packets, the listing, the set-up.

#include "devices/wifi.h"

#include <algorithm>

#include "devices/tc421.h"
#include "tests/devices/network_test.h"

namespace {

using platform::WifiAuthentication;
using platform::WifiCipher;
using platform::WifiNetwork;
using platform::WifiQuery;
using sim_network::Datagram;
using TCBase::ListWifiNetworks;
using TCBase::OperationResult;
using TCBase::SetupWifi;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string FrameOf(const TCBase::PacketBase& packet) {
  std::string frame;
  packet.Serialize(frame);
  return frame;
}

void ExpectOnTheWire(const TCBase::PacketBase& packet, const char* frame, const char* description) {
  ASSERT_EQ(FromHex(frame).size(), 64U) << frame;
  EXPECT_EQ(sim::ToHex(FrameOf(packet)), sim::ToHex(FromHex(frame))) << description;
  EXPECT_EQ(packet.description, description);
}

// Packets.

TEST(WifiWire, ASearchCarriesNoNameAndHasNoLineOfItsOwn) {
  ExpectOnTheWire(TC421::Packet_Find(), "55 AA 17 00 00 03 DD EE FF 00*52 E3 00 00", "");
}

TEST(WifiWire, AClearOverUdpToADeviceWithAName) {
  ExpectOnTheWire(TC421::Packet_ClearAll(SelectedTank()),
                  "55 AA 05 FE 00*45 53 6D 61 72 74 2D 31 32 33 34 35 36 02 00 00", "Packet_ClearAll()");
}

TEST(WifiWire, TheClockIsTheOnlyFrameOverUdpWithItsChecksumAtTheEnd) {
  const std::string clock = FrameOf(TC421::Packet_TimeSync(SelectedTank(), {2026, 3, 14, 9, 26, 53, 0}));
  EXPECT_EQ(sim::ToHex(clock.substr(61)), "00 00 62");
}

TEST(WifiWire, EveryWifiPacketIsTheTabledFrame) {
  ExpectOnTheWire(
      TC421::Packet_SetWiFi_SSID(SelectedTank(), "Reef", 2, 1),
      "55 AA 18 00 00 04 01 52 65 65 66 00*28 02 01 00*8 53 6D 61 72 74 2D 31 32 33 34 35 36 A1 00 00",
      "Packet_SetWiFi_SSID(SSID=Reef, Security=2, Encryption=1)");
  ExpectOnTheWire(TC421::Packet_SetWiFi_Password(SelectedTank(), "abcd"),
                  "55 AA 18 00 00 04 02 61 62 63 64 00*38 53 6D 61 72 74 2D 31 32 33 34 35 36 A7 00 00",
                  "Packet_SetWiFi_Password(Password=abcd)");
  ExpectOnTheWire(TC421::Packet_SetWiFi_Open(SelectedTank(), "Reef"),
                  "55 AA 18 00 00 04 03 52 65 65 66 00*38 53 6D 61 72 74 2D 31 32 33 34 35 36 A0 00 00",
                  "Packet_SetWiFi_Open(SSID=Reef)");
}

// The controller has its own ideas of a cut password: it gets the length of the whole one all the same.
TEST(WifiWire, APasswordOf63BytesHasItsLengthAndKeeps42OfThem) {
  const std::string password(63, 'k');
  const std::string frame = FrameOf(TC421::Packet_SetWiFi_Password(SelectedTank(), password));
  EXPECT_EQ(frame[5], 63);
  EXPECT_EQ(frame.substr(7, 42), password.substr(0, 42));
  EXPECT_EQ(frame.substr(49, 12), "Smart-123456");
}

TEST(WifiWire, BehindAShortNameALongPasswordShows) {
  const std::string frame =
      FrameOf(TC421::Packet_SetWiFi_Password(GivenNetworkDevice(kTank, "ABC"), std::string(63, 'k')));
  EXPECT_EQ(frame.substr(49, 11), "ABCkkkkkkkk");
  EXPECT_EQ(frame[60], 0);
}

TEST(WifiWire, OfAnSsidOf40Bytes32AreSentAndTheLengthIsThatOfAll) {
  const TC421::Packet_SetWiFi_SSID packet(SelectedTank(), std::string(40, 's'), 1, 2);
  EXPECT_EQ(packet.data.size(), 35U);
  EXPECT_EQ(packet.data, '\x01' + std::string(32, 's') + "\x01\x02");
  EXPECT_EQ(FrameOf(packet)[5], 40);
}

TEST(WifiWire, OfALengthTheLowByteIsSent) {
  EXPECT_EQ(FrameOf(TC421::Packet_SetWiFi_Open(SelectedTank(), std::string(256 + 7, 's')))[5], 7);
}

TEST(WifiWire, TheChecksumStandsBeforeTheEndOnUsbToo) {
  const TCBase::DeviceInfo usb = GivenDevice(TCBase::ModelTC421USB, "");
  for (const TC421::Packet& packet : {TC421::Packet(TC421::Packet_SetWiFi_Open(usb, "A")),
                                      TC421::Packet(TC421::Packet_SetWiFi_Password(usb, "A")),
                                      TC421::Packet(TC421::Packet_SetWiFi_SSID(usb, "A", 1, 1))}) {
    EXPECT_FALSE(packet.alternateChecksum);
  }
}

// Words.

TEST(WifiWords, EachValueHasItsWordAndEachWordItsValue) {
  EXPECT_STREQ(NameOf(TCBase::SecurityOpen), "Open");
  EXPECT_STREQ(NameOf(TCBase::SecurityWPA), "WPA");
  EXPECT_STREQ(NameOf(TCBase::SecurityWPA2), "WPA2");
  EXPECT_STREQ(NameOf(TCBase::SecurityInvalid), "Invalid");
  EXPECT_STREQ(NameOf(TCBase::EncryptionAES), "AES");
  EXPECT_STREQ(NameOf(TCBase::EncryptionTKIP), "TKIP");
  EXPECT_STREQ(NameOf(TCBase::EncryptionInvalid), "Invalid");
  EXPECT_EQ(TCBase::ParseWifiSecurity("Open"), 0);
  EXPECT_EQ(TCBase::ParseWifiSecurity("WPA"), 1);
  EXPECT_EQ(TCBase::ParseWifiSecurity("WPA2"), 2);
  EXPECT_EQ(TCBase::ParseWifiEncryption("AES"), 1);
  EXPECT_EQ(TCBase::ParseWifiEncryption("TKIP"), 2);
}

TEST(WifiWords, AnyOtherTextIsInvalid) {
  for (const char* text : {"", "open", "WPA ", "WPA3", "Invalid", "99"}) {
    EXPECT_EQ(TCBase::ParseWifiSecurity(text), 99) << text;
    EXPECT_EQ(TCBase::ParseWifiEncryption(text), 0) << text;
  }
}

// The listing.

class WifiListTest : public DeviceTest {};

TEST_F(WifiListTest, WhatSecuresANetworkIsBroughtToTheControllersNumbers) {
  const std::pair<WifiAuthentication, int> kSecurity[] = {
      {WifiAuthentication::Open, 0},         {WifiAuthentication::Wpa, 1},
      {WifiAuthentication::WpaPassword, 1},  {WifiAuthentication::Wpa2, 2},
      {WifiAuthentication::Wpa2Password, 2}, {WifiAuthentication::Other, 99}};
  for (const auto& [authentication, security] : kSecurity) {
    EXPECT_EQ(TCBase::SecurityOf({"A", authentication}), security) << security;
  }
  const std::pair<WifiCipher, int> kEncryption[] = {
      {WifiCipher::Ccmp, 1}, {WifiCipher::Tkip, 2}, {WifiCipher::Other, 0}};
  for (const auto& [cipher, encryption] : kEncryption) {
    EXPECT_EQ(TCBase::EncryptionOf({"A", WifiAuthentication::Other, cipher}), encryption) << encryption;
  }
}

TEST_F(WifiListTest, ANetworkOfWhichNothingIsToldIsInvalid) {
  EXPECT_STREQ(NameOf(TCBase::SecurityOf({"Old"})), "Invalid");
  EXPECT_STREQ(NameOf(TCBase::EncryptionOf({"Old"})), "Invalid");
}

TEST_F(WifiListTest, NetworksComeInTheSystemsOrderDuplicatesKeptHiddenOnesLeftOut) {
  sim_network::SetWifi(WifiQuery::Answered, {{"Reef"}, {""}, {"Attic"}, {"Reef"}});
  std::vector<WifiNetwork> networks{{"from before"}};
  EXPECT_TRUE(ListWifiNetworks(networks));
  std::vector<std::string> names(networks.size());
  std::transform(networks.begin(), networks.end(), names.begin(),
                 [](const WifiNetwork& network) { return network.ssid; });
  EXPECT_THAT(names, ElementsAre("Reef", "Attic", "Reef"));
  EXPECT_EQ(TakeStatus(), "");
}

TEST_F(WifiListTest, EachFailureIsALineAndAnEmptyList) {
  const std::pair<WifiQuery, const char*> kCases[] = {
      {WifiQuery::NoService, "Can't connect Wi-Fi! Problem function: WlanOpenHandle.\n"},
      {WifiQuery::NoAdapterList, "Can't enumerate WLAN adapters! Problem function: WlanEnumInterfaces.\n"},
      {WifiQuery::NoAdapter, "No Wi-Fi adapter found.\n"},
      {WifiQuery::NoNetworkList,
       "Can't get available networks! Probably your PC in Airplane mode, and /or Wifi turned out.Problem "
       "function : WlanGetAvailableNetworkList.\n"},
  };
  for (const auto& [query, line] : kCases) {
    sim_network::SetWifi(query);
    std::vector<WifiNetwork> networks{{"from before"}};
    EXPECT_FALSE(ListWifiNetworks(networks));
    EXPECT_THAT(networks, IsEmpty());
    EXPECT_EQ(TakeStatus(), line);
  }
}

// The set-up.

class WifiSetupTest : public NetworkTest {
 protected:
  static OperationResult Setup(TCBase::WifiSecurity security) {
    return SetupWifi(SelectedTank(), {"Reef", "secret coral", TCBase::EncryptionAES, security}).result;
  }
  // From now on the controller acknowledges with another letter than it should.
  static void AcknowledgeWith(const std::string& letters) {
    sim_network::SetAnswer([letters](const Datagram& reply) {
      Datagram wrong = reply;
      if (letters.find(wrong.bytes[4]) != std::string::npos) wrong.bytes[4] = 'x';
      return std::vector{wrong};
    });
  }
  static sim::Wifi Wifi() { return *sim_network::MemoryOf(kTank).wifi; }
};

TEST_F(WifiSetupTest, AnOpenNetworkIsOnePacket) {
  EXPECT_EQ(Setup(TCBase::SecurityOpen), OperationResult::Done);
  EXPECT_EQ(TakeStatus(), "Setting up WiFi\n");
  EXPECT_EQ(SentCommands(), "1800");
  EXPECT_EQ(Wifi().ssid, "Reef");
  EXPECT_TRUE(Wifi().complete);
  ExpectNoNetworkViolations();
}

TEST_F(WifiSetupTest, AProtectedNetworkIsItsNameAndItsPassword) {
  for (const auto security : {TCBase::SecurityWPA, TCBase::SecurityWPA2}) {
    EXPECT_EQ(Setup(security), OperationResult::Done);
    EXPECT_EQ(TakeStatus(), "Setting up WiFi\n");
    EXPECT_EQ(Wifi().ssid, "Reef");
    EXPECT_EQ(Wifi().password, "secret coral");
    EXPECT_EQ(Wifi().security, security);
    EXPECT_EQ(Wifi().encryption, 1);
    EXPECT_TRUE(Wifi().complete);
  }
  EXPECT_THAT(sim_network::Traffic(), SizeIs(4));
  ExpectNoNetworkViolations();
}

TEST_F(WifiSetupTest, AWrongAcknowledgementEndsTheSetUpWithItsText) {
  const struct {
    TCBase::WifiSecurity security;
    const char* letters;
    const char* line;
    std::size_t sent;
  } kCases[] = {
      {TCBase::SecurityOpen, "t", "Error setting open WiFi", 1},
      {TCBase::SecurityWPA2, "p", "Error setting WiFi SSID", 1},
      {TCBase::SecurityWPA2, "r", "Error setting WiFi password", 2},
  };
  for (const auto& wrong : kCases) {
    AcknowledgeWith(wrong.letters);
    const std::size_t before = sim_network::Traffic().size();
    EXPECT_EQ(Setup(wrong.security), OperationResult::Failed);
    EXPECT_EQ(TakeStatus(), std::string("Setting up WiFi\n") + wrong.line + "\n");
    EXPECT_EQ(sim_network::Traffic().size() - before, wrong.sent);
  }
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.0);
}

TEST_F(WifiSetupTest, ASilentControllerCostsSixSeconds) {
  sim_network::SetAnswer([](const Datagram&) { return std::vector<Datagram>(); });
  EXPECT_EQ(Setup(TCBase::SecurityWPA2), OperationResult::NoAnswer);
  EXPECT_EQ(TakeStatus(), "Setting up WiFi\nError setting WiFi SSID\n");
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 6.0);
}

// A network that the user types has no security before he chooses one.
TEST_F(WifiSetupTest, AnInvalidSecuritySendsNothingAndCountsAsSuccess) {
  EXPECT_EQ(Setup(TCBase::SecurityInvalid), OperationResult::Done);
  EXPECT_EQ(Setup(static_cast<TCBase::WifiSecurity>(3)), OperationResult::Done);
  EXPECT_EQ(TakeStatus(), "Setting up WiFi\nSetting up WiFi\n");
  EXPECT_THAT(TakeWarnings(), testing::StartsWith("Nothing was sent to Smart-123456: no security type is "
                                                  "chosen for the network Reef."));
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
}

TEST_F(WifiSetupTest, WhileTheWorkerHasThePortItIsAConnectError) {
  sim_network::HoldPort(true);
  EXPECT_EQ(Setup(TCBase::SecurityOpen), OperationResult::PortTaken);
  EXPECT_EQ(TakeStatus(), "Connect error\n");
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.0);
}

TEST_F(WifiSetupTest, AControllerThatIsNotPluggedInIsAConnectErrorToo) {
  const auto report = SetupWifi(SelectedTC421(), {"Reef", "", TCBase::EncryptionAES, TCBase::SecurityOpen});
  EXPECT_EQ(report.result, OperationResult::NotConnected);
  EXPECT_EQ(TakeStatus(), "Connect error\n");
}

}  // namespace
