#pragma once

// What brings a TC421 into a wireless network: which ones there are, what they are secured with in the
// controller's own numbers, and handing a controller the chosen one.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "devices/device_base.h"
#include "devices/device_info.h"
#include "devices/operation_observer.h"
#include "devices/operations.h"
#include "devices/wifi_networks.h"

namespace TCBase {

using platform::WifiNetwork;

/// How a TC421 numbers them. 99 is never sent.
enum WifiSecurity : std::int32_t {
  SecurityOpen = 0,
  SecurityWPA = 1,
  SecurityWPA2 = 2,
  SecurityInvalid = 99
};
enum WifiEncryption : std::int32_t { EncryptionInvalid = 0, EncryptionAES = 1, EncryptionTKIP = 2 };

/// "Open", "WPA", "WPA2"; "Invalid" for any other value.
const char* NameOf(WifiSecurity security);
/// "AES", "TKIP"; "Invalid" for any other value.
const char* NameOf(WifiEncryption encryption);
/// Knows exactly those words; any other text is invalid.
WifiSecurity ParseWifiSecurity(std::string_view name);
WifiEncryption ParseWifiEncryption(std::string_view name);

/// What a network is secured with, in a controller's numbers. What a controller cannot do, a shared key among
/// it, is invalid.
WifiSecurity SecurityOf(const WifiNetwork& network);
WifiEncryption EncryptionOf(const WifiNetwork& network);

/// Puts all networks with a name in the place of what `networks` holds, in the system's order; one with a
/// stored profile may come twice. False, with a line for the user and an empty list, if the system does not
/// tell.
bool ListWifiNetworks(std::vector<WifiNetwork>& networks);

/// The network that a controller is to join.
struct WifiNetworkConfig {
  std::string ssid;
  std::string password;  // of no account for an open network
  WifiEncryption encryption = EncryptionInvalid;
  WifiSecurity security = SecurityInvalid;
};

/// Hands `config` to a controller; blocks for up to six seconds a packet if it stays silent. Not Done, with a
/// line for the user, if a packet is not acknowledged: the next one is not sent then. An invalid security
/// sends nothing, which a warning says, and is Done.
OperationReport SetupWifi(const DeviceInfo& info, const WifiNetworkConfig& config,
                          OperationObserver& observer = NoObserver());

}  // namespace TCBase
