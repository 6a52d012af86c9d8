// NetworkManager's list of wireless networks, read strictly.

#include "devices/network_manager.h"

#include <gmock/gmock.h>

#include "devices/wifi.h"

namespace {

using platform::WifiNetwork;
using TCBase::HasWifiAdapter;
using TCBase::ReadNetworkManagerList;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

// What a list says, or that it is refused.
std::string Read(std::string_view list) {
  const auto networks = ReadNetworkManagerList(list);
  if (!networks) return "refused";
  std::string text;
  for (const WifiNetwork& network : *networks) {
    text += network.ssid + " " + NameOf(TCBase::SecurityOf(network)) + " " +
            NameOf(TCBase::EncryptionOf(network)) + "\n";
  }
  return text;
}

TEST(NetworkManagerTest, EachWayToSecureANetworkIsUnderstood) {
  EXPECT_EQ(Read("41:WPA2:(none):pair_ccmp group_ccmp psk\n"
                 "42:WPA1:pair_tkip group_tkip psk:(none)\n"
                 "43:WPA1 WPA2:pair_tkip pair_ccmp group_tkip psk:pair_tkip pair_ccmp group_tkip psk\n"
                 "44::(none):(none)\n"
                 "45:WEP:(none):(none)\n"
                 "46:WPA3:(none):pair_ccmp group_ccmp sae\n"
                 "47:WPA2 WPA3:(none):pair_ccmp group_ccmp psk sae\n"
                 "48:WPA2 802.1X:(none):pair_ccmp group_ccmp 802.1X\n"
                 "49:--:(none):(none)\n"
                 "4A:OWE:(none):pair_ccmp group_ccmp owe\n"),
            "A WPA2 AES\nB WPA TKIP\nC WPA2 AES\nD Open Invalid\nE Invalid Invalid\nF Invalid AES\n"
            "G WPA2 AES\nH WPA2 AES\nI Open Invalid\nJ Invalid AES\n");
}

TEST(NetworkManagerTest, ANameMayBeOfAnyBytes) {
  const auto networks = ReadNetworkManagerList("3A5C0A00fF:WPA2:(none):pair_ccmp psk\n");
  ASSERT_THAT(networks, Optional(SizeIs(1)));
  EXPECT_EQ(networks->front().ssid, std::string(":\\\n\0\xFF", 5));
}

TEST(NetworkManagerTest, AHiddenNetworkHasAnEmptyName) {
  EXPECT_EQ(Read(":WPA2:(none):pair_ccmp psk\n--:WPA2:(none):pair_ccmp psk"), " WPA2 AES\n WPA2 AES\n");
}

TEST(NetworkManagerTest, WhatIsNotOfTheFormIsRefusedAsAWhole) {
  for (const char* list : {
           "\n",
           "41:WPA2:(none)\n",
           "41:WPA2:(none):psk:more\n",
           "4:WPA2:(none):psk\n",
           "4G:WPA2:(none):psk\n",
           "Reef:WPA2:(none):psk\n",
           "41:WPA2\\:(none):psk\n",
           "41:WP\\A2:(none):psk\n",
           "41:WPA2:(none):psk\\",
           "41:WPA2:(none):psk\n\n",
           "414141414141414141414141414141414141414141414141414141414141414141:WPA2:(none):psk\n",
       }) {
    EXPECT_EQ(Read(list), "refused") << list;
  }
}

TEST(NetworkManagerTest, EscapedColonsAndBackslashesAreText) {
  EXPECT_EQ(Read("41:odd\\:\\\\:(none):pair_ccmp psk\n"), "A WPA2 AES\n");
}

TEST(NetworkManagerTest, NoNetworksAreAListToo) {
  EXPECT_THAT(ReadNetworkManagerList(""), Optional(IsEmpty()));
}

TEST(NetworkManagerTest, OnlyAWholeWordIsAnAdapter) {
  EXPECT_TRUE(HasWifiAdapter("ethernet\nwifi\nloopback\n"));
  EXPECT_TRUE(HasWifiAdapter("wifi"));
  EXPECT_FALSE(HasWifiAdapter(""));
  EXPECT_FALSE(HasWifiAdapter("ethernet\nwifi-p2p\nloopback\n"));
}

}  // namespace
