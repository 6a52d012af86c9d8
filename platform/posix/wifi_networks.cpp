// devices/wifi_networks.h on POSIX: NetworkManager is asked through its command line.

#include "devices/wifi_networks.h"

#include <optional>

#include "devices/network_manager.h"
#include "platform/posix/ask_program.h"

namespace platform {

namespace {

std::optional<std::string> Ask(const std::vector<std::string>& arguments) {
  return AskProgram("nmcli", arguments);
}

}  // namespace

WifiQuery QueryWifiNetworks(std::vector<WifiNetwork>& networks) {
  const std::optional<std::string> types = Ask({"--terse", "--fields", "TYPE", "device", "status"});
  if (!types) return WifiQuery::NoService;
  if (!TCBase::HasWifiAdapter(*types)) return WifiQuery::NoAdapter;
  const std::optional<std::string> list =
      Ask({"--terse", "--fields", TCBase::kNetworkManagerFields, "device", "wifi", "list", "--rescan", "no"});
  const auto read = list ? TCBase::ReadNetworkManagerList(*list) : std::nullopt;
  if (!read) return WifiQuery::NoNetworkList;
  networks.insert(networks.end(), read->begin(), read->end());
  return WifiQuery::Answered;
}

}  // namespace platform
