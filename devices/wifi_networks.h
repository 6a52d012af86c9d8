#pragma once

// The wireless networks that the computer itself can see. One filling per platform below platform/; tests
// bring one of their own (tests/support/sim_network.h). To list and to use them is wifi.h's business.

#include <string>
#include <vector>

namespace platform {

/// How a network knows who may join. Without a password a server of its owner's decides. Other is all else, a
/// shared key and what is newer among it.
enum class WifiAuthentication { Open, Wpa, WpaPassword, Wpa2, Wpa2Password, Other };

/// What a network hides its traffic with; Other is all else, and nothing at all.
enum class WifiCipher { Tkip, Ccmp, Other };

/// One network as the computer's own wireless adapter sees it.
struct WifiNetwork {
  std::string ssid;  // up to 32 bytes, any; empty for a hidden network
  WifiAuthentication authentication = WifiAuthentication::Other;
  WifiCipher cipher = WifiCipher::Other;
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
