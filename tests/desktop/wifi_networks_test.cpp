// What Windows tells of wireless networks, on a computer that has no adapter for them.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/log.h"
#include "devices/wifi.h"

namespace {

TEST(WifiNetworks, WithoutAnAdapterThereAreNoneAndALineSaysSo) {
  std::string log;
  statusLog.textHandler = [&log](const std::string& item) { log += item; };
  std::vector<TCBase::WifiNetwork> networks{{"from before", 0, 0}};
  EXPECT_FALSE(TCBase::ListWifiNetworks(networks));
  statusLog.Drain();
  statusLog.textHandler = nullptr;
  EXPECT_TRUE(networks.empty());
  EXPECT_EQ(log, "No Wi-Fi adapter found.\r\n");
}

}  // namespace
