// doctor/network_facts.h on Windows, without the firewall.

#include "doctor/network_facts.h"

// winsock2.h before windows.h would bring its forerunner.
#include <winsock2.h>
#include <ws2tcpip.h>

#include <iphlpapi.h>

#include <algorithm>
#include <array>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "platform/win32/processes.h"

namespace platform {

namespace {

// In the words of the system, and in its alignment.
class AdapterList {
 public:
  AdapterList() {
    constexpr ULONG kFlags = GAA_FLAG_SKIP_ANYCAST | GAA_FLAG_SKIP_MULTICAST | GAA_FLAG_SKIP_DNS_SERVER;
    ULONG size = 0;
    // It may grow between two calls.
    ULONG error = GetAdaptersAddresses(AF_INET, kFlags, nullptr, nullptr, &size);
    for (int tries = 0; error == ERROR_BUFFER_OVERFLOW && tries < 3; ++tries) {
      buffer_.resize(size / sizeof(IP_ADAPTER_ADDRESSES) + 1);
      error = GetAdaptersAddresses(AF_INET, kFlags, nullptr, buffer_.data(), &size);
    }
    isThere_ = error == ERROR_SUCCESS;
  }
  const IP_ADAPTER_ADDRESSES* First() const { return isThere_ ? buffer_.data() : nullptr; }

 private:
  std::vector<IP_ADAPTER_ADDRESSES> buffer_;
  bool isThere_ = false;
};

bool IsHardware(const IP_ADAPTER_ADDRESSES& adapter) {
  MIB_IF_ROW2 row{};
  row.InterfaceIndex = adapter.IfIndex;
  return GetIfEntry2(&row) != NO_ERROR || row.InterfaceAndOperStatusFlags.HardwareInterface;
}

Adapter::Kind KindOf(const IP_ADAPTER_ADDRESSES& adapter) {
  constexpr DWORD kVirtualType = 53;  // as VPNs call themselves
  switch (adapter.IfType) {
    case IF_TYPE_SOFTWARE_LOOPBACK:
      return Adapter::Loopback;
    case IF_TYPE_IEEE80211:
      return Adapter::Wireless;
    case IF_TYPE_PPP:
    case IF_TYPE_TUNNEL:
    case kVirtualType:
      return Adapter::Tunnel;
    default:
      return IsHardware(adapter) ? Adapter::Wired : Adapter::Virtual;
  }
}

std::vector<std::string> AddressesOf(const IP_ADAPTER_ADDRESSES& adapter) {
  std::vector<std::string> addresses;
  for (const auto* entry = adapter.FirstUnicastAddress; entry != nullptr; entry = entry->Next) {
    const auto* const address = reinterpret_cast<const sockaddr_in*>(entry->Address.lpSockaddr);
    std::array<char, INET_ADDRSTRLEN> text{};
    if (address->sin_family != AF_INET) continue;
    inet_ntop(AF_INET, &address->sin_addr, text.data(), text.size());
    addresses.emplace_back(text.data());
  }
  return addresses;
}

std::string NameOf(const IP_ADAPTER_ADDRESSES& adapter) {
  return Utf8FromPlatformWide(adapter.FriendlyName);
}

}  // namespace

std::vector<Adapter> NetworkAdapters() {
  const AdapterList list;
  std::vector<Adapter> adapters;
  for (const IP_ADAPTER_ADDRESSES* entry = list.First(); entry != nullptr; entry = entry->Next)
    adapters.push_back(
        {NameOf(*entry), KindOf(*entry), entry->OperStatus == IfOperStatusUp, AddressesOf(*entry)});
  return adapters;
}

std::string BroadcastAdapter() {
  DWORD index = 0;
  if (GetBestInterface(INADDR_BROADCAST, &index) != NO_ERROR) return {};
  const AdapterList list;
  for (const IP_ADAPTER_ADDRESSES* entry = list.First(); entry != nullptr; entry = entry->Next)
    if (entry->IfIndex == index) return NameOf(*entry);
  return {};
}

std::string BroadcastCommand(const std::string& adapter) {
  return "netsh interface ipv4 set interface \"" + adapter + "\" metric=1";
}

std::vector<Holder> HoldersOfUdpPort(std::uint16_t port) {
  DWORD size = 0;
  std::vector<MIB_UDPTABLE_OWNER_PID> buffer;
  DWORD error = GetExtendedUdpTable(nullptr, &size, FALSE, AF_INET, UDP_TABLE_OWNER_PID, 0);
  for (int tries = 0; error == ERROR_INSUFFICIENT_BUFFER && tries < 3; ++tries) {
    buffer.resize(size / sizeof(MIB_UDPTABLE_OWNER_PID) + 1);
    error = GetExtendedUdpTable(buffer.data(), &size, FALSE, AF_INET, UDP_TABLE_OWNER_PID, 0);
  }
  if (error != NO_ERROR || buffer.empty()) return {};
  std::vector<Holder> holders;
  const MIB_UDPROW_OWNER_PID* const rows = buffer.front().table;
  for (DWORD i = 0; i < buffer.front().dwNumEntries; ++i)
    if (ntohs(static_cast<u_short>(rows[i].dwLocalPort)) == port)
      holders.push_back(win32::HolderOf(rows[i].dwOwningPid));
  return holders;
}

}  // namespace platform
