#pragma once

// What NetworkManager's command line says of wireless networks. How it is run is platform/posix's business.

#include <optional>
#include <string_view>
#include <vector>

#include "devices/wifi_networks.h"

namespace TCBase {

/// The columns that ReadNetworkManagerList reads, as nmcli's --fields wants them. The name of a network is
/// asked for in hexadecimal, since it may be of any bytes.
inline constexpr char kNetworkManagerFields[] = "SSID-HEX,SECURITY,WPA-FLAGS,RSN-FLAGS";

/// Whether a list of device types (one a line) has a wireless adapter.
bool HasWifiAdapter(std::string_view types);

/// The networks in a list of those columns, as nmcli writes it in its terse form and the C locale; nothing if
/// a line is not of that form.
std::optional<std::vector<platform::WifiNetwork>> ReadNetworkManagerList(std::string_view list);

}  // namespace TCBase
