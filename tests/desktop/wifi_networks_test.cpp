// What Windows tells of wireless networks, on a computer that has no adapter for them.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "common/log.h"
#include "devices/wifi.h"
#include "platform/win32/wifi_algorithms.h"

namespace {

TEST(WifiNetworks, WithoutAnAdapterThereAreNoneAndALineSaysSo) {
  std::string log;
  statusLog.textHandler = [&log](const std::string& item) { log += item; };
  std::vector<TCBase::WifiNetwork> networks{{"from before"}};
  EXPECT_FALSE(TCBase::ListWifiNetworks(networks));
  statusLog.Drain();
  statusLog.textHandler = nullptr;
  EXPECT_TRUE(networks.empty());
  EXPECT_EQ(log, "No Wi-Fi adapter found.\r\n");
}

// A number of Windows, by what a controller is told of it.

TEST(WifiAlgorithms, OfWindowsComeToAControllerAsItNumbersThem) {
  const std::pair<int, int> kSecurity[] = {{0, 99}, {1, 0}, {2, 99}, {3, 1},  {4, 1},
                                           {5, 99}, {6, 2}, {7, 2},  {8, 99}, {-1, 99}};
  for (const auto& [number, security] : kSecurity) {
    TCBase::WifiNetwork network;
    network.authentication = platform::AuthenticationOf(static_cast<DOT11_AUTH_ALGORITHM>(number));
    EXPECT_EQ(TCBase::SecurityOf(network), security) << number;
  }
  const std::pair<int, int> kEncryption[] = {{0, 0}, {1, 0}, {2, 2}, {3, 0}, {4, 1}, {5, 0}, {-1, 0}};
  for (const auto& [number, encryption] : kEncryption) {
    TCBase::WifiNetwork network;
    network.cipher = platform::CipherOf(static_cast<DOT11_CIPHER_ALGORITHM>(number));
    EXPECT_EQ(TCBase::EncryptionOf(network), encryption) << number;
  }
}

TEST(WifiAlgorithms, WithAPasswordAndWithoutAreTold) {
  const std::pair<int, platform::WifiAuthentication> kWords[] = {
      {1, platform::WifiAuthentication::Open},         {3, platform::WifiAuthentication::Wpa},
      {4, platform::WifiAuthentication::WpaPassword},  {6, platform::WifiAuthentication::Wpa2},
      {7, platform::WifiAuthentication::Wpa2Password}, {2, platform::WifiAuthentication::Other}};
  for (const auto& [number, word] : kWords)
    EXPECT_EQ(platform::AuthenticationOf(static_cast<DOT11_AUTH_ALGORITHM>(number)), word) << number;
}

}  // namespace
