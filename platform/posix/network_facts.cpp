// doctor/network_facts.h on POSIX, that is on Linux.

#include "doctor/network_facts.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <net/if_arp.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <string_view>

#include "common/files.h"
#include "doctor/system_texts.h"
#include "platform/posix/ask_program.h"
#include "platform/posix/processes.h"

namespace platform {

namespace {

namespace fs = std::filesystem;

using AddressList = std::unique_ptr<ifaddrs, decltype(&freeifaddrs)>;

AddressList Addresses() {
  ifaddrs* first = nullptr;
  if (getifaddrs(&first) != 0) first = nullptr;
  return {first, &freeifaddrs};
}

std::string TextOfFile(const fs::path& file) {
  std::string text;
  ReadFileBytes(file, text);
  return text;
}

// Point to point, or without an address of hardware at all.
bool IsTunnel(const ifaddrs& entry, const fs::path& folder) {
  const std::string type = TextOfFile(folder / "type");
  return (entry.ifa_flags & IFF_POINTOPOINT) != 0 || type == std::to_string(ARPHRD_NONE) + '\n' ||
         type == std::to_string(ARPHRD_PPP) + '\n';
}

Adapter::Kind KindOf(const ifaddrs& entry) {
  if ((entry.ifa_flags & IFF_LOOPBACK) != 0) return Adapter::Loopback;
  const fs::path folder = fs::path("/sys/class/net") / entry.ifa_name;
  std::error_code error;
  if (IsTunnel(entry, folder)) return Adapter::Tunnel;
  if (fs::exists(folder / "phy80211", error) || fs::exists(folder / "wireless", error))
    return Adapter::Wireless;
  return fs::exists(folder / "device", error) ? Adapter::Wired : Adapter::Virtual;
}

// Of IPv4; empty if it is none.
std::string AddressOf(const sockaddr* address) {
  if (address == nullptr || address->sa_family != AF_INET) return {};
  std::array<char, INET_ADDRSTRLEN> text{};
  const auto* const ipv4 = reinterpret_cast<const sockaddr_in*>(address);
  inet_ntop(AF_INET, &ipv4->sin_addr, text.data(), text.size());
  return text.data();
}

// The address from which a datagram to everybody would leave; empty if it cannot. Nothing is sent.
std::string BroadcastSource() {
  const int file = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  const int on = 1;
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(1);  // any will do
  address.sin_addr.s_addr = htonl(INADDR_BROADCAST);
  socklen_t size = sizeof address;
  auto* const generic = reinterpret_cast<sockaddr*>(&address);
  const bool known = setsockopt(file, SOL_SOCKET, SO_BROADCAST, &on, sizeof on) == 0 &&
                     connect(file, generic, size) == 0 && getsockname(file, generic, &size) == 0;
  if (file != -1) close(file);
  return known ? AddressOf(generic) : std::string();
}

// The kernel's parts that could keep datagrams out.
bool HasFilters() {
  const std::string modules = TextOfFile("/proc/modules");
  return modules.empty() || modules.find("nf_tables ") != std::string::npos ||
         modules.find("ip_tables ") != std::string::npos;
}

}  // namespace

std::vector<Adapter> NetworkAdapters() {
  std::vector<Adapter> adapters;
  const AddressList list = Addresses();
  for (const ifaddrs* entry = list.get(); entry != nullptr; entry = entry->ifa_next) {
    auto adapter = std::ranges::find(adapters, entry->ifa_name, &Adapter::name);
    if (adapter == adapters.end()) {
      const bool isUp = (entry->ifa_flags & IFF_UP) != 0 && (entry->ifa_flags & IFF_RUNNING) != 0;
      adapter = adapters.insert(adapter, {entry->ifa_name, KindOf(*entry), isUp, {}});
    }
    if (std::string address = AddressOf(entry->ifa_addr); !address.empty())
      adapter->addresses.push_back(address);
  }
  return adapters;
}

std::string BroadcastAdapter() {
  const std::string source = BroadcastSource();
  if (source.empty()) return {};
  for (const Adapter& adapter : NetworkAdapters())
    if (std::ranges::find(adapter.addresses, source) != adapter.addresses.end()) return adapter.name;
  return {};
}

std::string BroadcastCommand(const std::string& adapter) {
  return "sudo ip route add 255.255.255.255 dev " + adapter;
}

std::vector<Holder> HoldersOfUdpPort(std::uint16_t port) {
  std::vector<std::string> sockets = doctor::SocketsOnPort(TextOfFile("/proc/net/udp"), port);
  std::ranges::move(doctor::SocketsOnPort(TextOfFile("/proc/net/udp6"), port), std::back_inserter(sockets));
  if (sockets.empty()) return {};
  for (std::string& socket : sockets) socket = "socket:[" + socket + "]";
  std::vector<Holder> holders =
      ProcessesWith([&](std::string_view file) { return std::ranges::find(sockets, file) != sockets.end(); });
  if (holders.empty()) holders.emplace_back();
  return holders;
}

Firewall QueryFirewall(std::uint16_t udpPort) {
  const std::string port = std::to_string(udpPort) + "/udp";
  if (doctor::IsUfwOn(TextOfFile("/etc/ufw/ufw.conf"))) {
    const std::string rules = TextOfFile("/etc/ufw/user.rules");
    const auto passage = rules.empty() ? Firewall::Untold : doctor::PassageOfUfw(rules, udpPort);
    return {Firewall::On, "ufw", passage, "sudo ufw allow " + port};
  }
  if (IsRunning("firewalld"))
    return {Firewall::On, "firewalld", Firewall::Untold, "sudo firewall-cmd --add-port=" + port};
  if (const auto ruleset = AskProgram("nft", {"list", "ruleset"}))
    return doctor::FirewallOfNft(*ruleset, udpPort);
  return {HasFilters() ? Firewall::Unknown : Firewall::Absent, {}, Firewall::Untold, {}};
}

}  // namespace platform
