#pragma once

// What Linux tells of itself in texts, read. It stands apart from the platform so that it is tested
// everywhere. The texts are what the system gives: nothing in them is relied on beyond what is looked for.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "doctor/network_facts.h"

namespace doctor {

/// Whether a list like "5000", "4000:6000" or "80,4000-6000" has the port.
bool HoldsPort(std::string_view ports, std::uint16_t port);

/// The inodes of the sockets that have the port, of /proc/net/udp or /proc/net/udp6. Of the latter only those
/// that take datagrams of IPv4, too, by their address: none in particular, or one of IPv4.
std::vector<std::string> SocketsOnPort(std::string_view table, std::uint16_t port);

/// Whether /etc/ufw/ufw.conf says that the firewall is on.
bool IsUfwOn(std::string_view config);

/// Whether the rules of /etc/ufw/user.rules let datagrams in: Open or Closed.
platform::Firewall::Passage PassageOfUfw(std::string_view rules, std::uint16_t port);

/// What "nft list ruleset" tells: absent where nothing looks at what comes in. Untold where a rule decides
/// that this does not understand.
platform::Firewall FirewallOfNft(std::string_view ruleset, std::uint16_t port);

/// The value of NAME="value" in /etc/os-release; empty if there is none.
std::string OsReleaseValue(std::string_view text, std::string_view name);

}  // namespace doctor
