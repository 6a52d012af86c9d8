// devices/datagrams.h on Windows.

#include "devices/datagrams.h"

// winsock2.h before windows.h would bring its forerunner.
#include <winsock2.h>
#include <ws2tcpip.h>

#include <array>
#include <bit>
#include <memory>
#include <string_view>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "platform/win32/windows_headers.h"

namespace platform {

namespace {

static_assert(AF_INET == TCBase::kIpv4Family && sizeof(sockaddr_in) == sizeof(Ipv4Address));
static_assert(static_cast<DatagramSocket>(INVALID_SOCKET) == kNoSocket);

constexpr std::size_t kHostSize = 1025;
constexpr std::size_t kServiceSize = 32;
constexpr DWORD kAddressTextSize = 64;
constexpr DWORD kLookupMilliseconds = 1000;

SOCKET HandleOf(DatagramSocket socket) {
  return static_cast<SOCKET>(socket);
}

sockaddr_in ToSystem(const Ipv4Address& address) {
  return std::bit_cast<sockaddr_in>(address);
}

const sockaddr* Generic(const sockaddr_in& address) {
  return reinterpret_cast<const sockaddr*>(&address);
}

}  // namespace

void StartNetwork() {
  WSADATA about{};
  WSAStartup(MAKEWORD(1, 1), &about);
}

void StopNetwork() {
  WSACleanup();
}

DatagramSocket OpenDatagrams() {
  return static_cast<DatagramSocket>(socket(AF_INET, SOCK_DGRAM, 0));
}

bool AllowBroadcasts(DatagramSocket socket) {
  // One byte is all that Windows looks at.
  const char on = 1;
  return setsockopt(HandleOf(socket), SOL_SOCKET, SO_BROADCAST, &on, sizeof on) == 0;
}

bool DontWaitForDatagrams(DatagramSocket socket) {
  u_long on = 1;
  return ioctlsocket(HandleOf(socket), static_cast<long>(FIONBIO), &on) == 0;
}

bool BindDatagrams(DatagramSocket socket, const Ipv4Address& local) {
  const sockaddr_in address = ToSystem(local);
  return bind(HandleOf(socket), Generic(address), sizeof address) == 0;
}

std::ptrdiff_t SendDatagram(DatagramSocket socket, std::string_view bytes, const Ipv4Address& to) {
  const sockaddr_in address = ToSystem(to);
  return sendto(HandleOf(socket), bytes.data(), static_cast<int>(bytes.size()), 0, Generic(address),
                sizeof address);
}

std::ptrdiff_t ReceiveDatagram(DatagramSocket socket, char* buffer, std::size_t room, Ipv4Address& from) {
  sockaddr_in address{};
  int size = sizeof address;
  std::ptrdiff_t received = recvfrom(HandleOf(socket), buffer, static_cast<int>(room), 0,
                                     reinterpret_cast<sockaddr*>(&address), &size);
  if (received < 0 && WSAGetLastError() == WSAEMSGSIZE) received = static_cast<std::ptrdiff_t>(room) + 1;
  if (received >= 0) from = std::bit_cast<Ipv4Address>(address);
  return received;
}

void CloseDatagrams(DatagramSocket socket) {
  closesocket(HandleOf(socket));
}

std::string NetworkErrorText() {
  wchar_t* text = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
      static_cast<DWORD>(WSAGetLastError()), MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
      reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  const std::unique_ptr<wchar_t, decltype(&LocalFree)> held(text, &LocalFree);
  return length != 0 ? Utf8FromPlatformWide({text, length}) : std::string();
}

std::string AddressText(const Ipv4Address& address) {
  sockaddr_in system = ToSystem(address);
  std::array<wchar_t, kAddressTextSize> buffer{};
  DWORD length = kAddressTextSize;
  const int error = WSAAddressToStringW(reinterpret_cast<sockaddr*>(&system), sizeof system, nullptr,
                                        buffer.data(), &length);
  return error == 0 ? Utf8FromPlatformWide(buffer.data()) : std::string();
}

std::optional<Ipv4Address> ParseAddress(const std::string& text) {
  sockaddr_in system{};
  system.sin_family = AF_INET;
  if (inet_pton(AF_INET, text.c_str(), &system.sin_addr) <= 0) return std::nullopt;
  return std::bit_cast<Ipv4Address>(system);
}

std::optional<std::string> HostNameOf(const Ipv4Address& address) {
  const sockaddr_in system = ToSystem(address);
  // The lookup itself takes no socket; this one is open beside it, and its time limit reaches nothing else.
  const SOCKET beside = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  setsockopt(beside, SOL_SOCKET, SO_RCVTIMEO, reinterpret_cast<const char*>(&kLookupMilliseconds),
             sizeof kLookupMilliseconds);
  std::array<char, kHostSize> host{};
  std::array<char, kServiceSize> service{};
  const int error =
      getnameinfo(Generic(system), sizeof system, host.data(), kHostSize, service.data(), kServiceSize, 0);
  if (beside != INVALID_SOCKET) closesocket(beside);
  if (error != 0) return std::nullopt;
  // The name is in the system's code page.
  constexpr std::uint32_t kSystemCodePage = 0;
  return Utf8FromWide(WideFromAnsi(host.data(), kSystemCodePage).view());
}

}  // namespace platform
