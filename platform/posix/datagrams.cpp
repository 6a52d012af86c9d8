// devices/datagrams.h on POSIX.

#include "devices/datagrams.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace platform {

namespace {

static_assert(AF_INET == TCBase::kIpv4Family && sizeof(sockaddr_in) == sizeof(Ipv4Address));

constexpr std::size_t kHostSize = 1025;
constexpr std::size_t kServiceSize = 32;

int FileOf(DatagramSocket socket) {
  return static_cast<int>(socket);
}

sockaddr_in ToSystem(const Ipv4Address& address) {
  return std::bit_cast<sockaddr_in>(address);
}

const sockaddr* Generic(const sockaddr_in& address) {
  return reinterpret_cast<const sockaddr*>(&address);
}

}  // namespace

void StartNetwork() {}

void StopNetwork() {}

DatagramSocket OpenDatagrams() {
  return socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
}

bool AllowBroadcasts(DatagramSocket socket) {
  const int on = 1;
  return setsockopt(FileOf(socket), SOL_SOCKET, SO_BROADCAST, &on, sizeof on) == 0;
}

bool DontWaitForDatagrams(DatagramSocket socket) {
  const int flags = fcntl(FileOf(socket), F_GETFL);
  return flags != -1 && fcntl(FileOf(socket), F_SETFL, flags | O_NONBLOCK) == 0;
}

bool BindDatagrams(DatagramSocket socket, const Ipv4Address& local) {
  const sockaddr_in address = ToSystem(local);
  return bind(FileOf(socket), Generic(address), sizeof address) == 0;
}

std::ptrdiff_t SendDatagram(DatagramSocket socket, std::string_view bytes, const Ipv4Address& to) {
  const sockaddr_in address = ToSystem(to);
  std::ptrdiff_t sent = 0;
  do {
    sent = sendto(FileOf(socket), bytes.data(), bytes.size(), 0, Generic(address), sizeof address);
  } while (sent < 0 && errno == EINTR);
  return sent;
}

std::ptrdiff_t ReceiveDatagram(DatagramSocket socket, char* buffer, std::size_t room, Ipv4Address& from) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  // MSG_TRUNC makes the answer the size that was sent, not the size that found room.
  const std::ptrdiff_t received =
      recvfrom(FileOf(socket), buffer, room, MSG_TRUNC, reinterpret_cast<sockaddr*>(&address), &size);
  if (received >= 0) from = std::bit_cast<Ipv4Address>(address);
  return received;
}

void CloseDatagrams(DatagramSocket socket) {
  close(FileOf(socket));
}

std::string NetworkErrorText() {
  return std::generic_category().message(errno);
}

std::string AddressText(const Ipv4Address& address) {
  if (address.family != TCBase::kIpv4Family) return {};
  const sockaddr_in system = ToSystem(address);
  std::array<char, INET_ADDRSTRLEN> buffer{};
  if (inet_ntop(AF_INET, &system.sin_addr, buffer.data(), buffer.size()) == nullptr) return {};
  std::string text = buffer.data();
  if (system.sin_port != 0) text.append(":").append(std::to_string(ntohs(system.sin_port)));
  return text;
}

std::optional<Ipv4Address> ParseAddress(const std::string& text) {
  sockaddr_in system{};
  system.sin_family = AF_INET;
  if (inet_pton(AF_INET, text.c_str(), &system.sin_addr) <= 0) return std::nullopt;
  return std::bit_cast<Ipv4Address>(system);
}

std::optional<std::string> HostNameOf(const Ipv4Address& address) {
  const sockaddr_in system = ToSystem(address);
  std::array<char, kHostSize> host{};
  std::array<char, kServiceSize> service{};
  const int error = getnameinfo(Generic(system), sizeof system, host.data(), host.size(), service.data(),
                                service.size(), 0);
  if (error != 0) return std::nullopt;
  return std::string(host.data());
}

}  // namespace platform
