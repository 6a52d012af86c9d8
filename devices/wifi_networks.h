#pragma once

// The wireless networks that the computer itself can see. One filling per platform below platform/; tests
// bring one of their own (tests/support/sim_network.h). To list and to use them is wifi.h's business.

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

/// One network as the computer's own wireless adapter sees it. The two algorithms are in Windows' numbers,
/// which the other fillings translate to.
struct WifiNetwork {
  std::string ssid;         // up to 32 bytes, any; empty for a hidden network
  std::int32_t auth = 0;    // 1 open, 2 shared key, 3 WPA, 4 WPA with a password, 6 WPA2, 7 WPA2 with one
  std::int32_t cipher = 0;  // 0 none, 2 TKIP, 4 CCMP
};

/// How far the question got.
enum class WifiQuery {
  Answered,
  NoService,      // nobody manages wireless adapters here
  NoAdapterList,  // it does not tell of its adapters
  NoAdapter,      // it has none
  NoNetworkList,  // the adapter does not tell what it sees, as when it is switched off
};

/// Appends the networks in the order of the platform's answer, hidden ones and duplicates included. Adds
/// nothing unless Answered. May take some seconds. Causes no traffic of its own: what is known is told.
WifiQuery QueryWifiNetworks(std::vector<WifiNetwork>& networks);

}  // namespace platform
