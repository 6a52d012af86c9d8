#pragma once

// Datagrams over IPv4, as the platform carries them. There is one filling per platform below platform/; tests
// bring a network of their own (tests/support/sim_network.h). Nothing here waits for the network but
// HostNameOf, and nothing is sent but by SendDatagram and HostNameOf.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "devices/ipv4_address.h"

namespace platform {

using TCBase::Ipv4Address;

/// The platform's handle of a socket. Used by one thread at a time.
using DatagramSocket = std::intptr_t;
inline constexpr DatagramSocket kNoSocket = -1;

/// Makes the network ready for this process, where a platform wants to be asked. Once, before anything else
/// here; the desktop program on Windows does it as a step of its start. Without it sockets cannot be opened.
void StartNetwork();
/// The end of what StartNetwork began. A process that ends need not call it.
void StopNetwork();

/// A new socket that belongs to the caller, or kNoSocket.
DatagramSocket OpenDatagrams();

/// Lets the socket send to broadcast addresses. False if that is refused.
bool AllowBroadcasts(DatagramSocket socket);

/// From now on ReceiveDatagram answers at once. False if that is refused.
bool DontWaitForDatagrams(DatagramSocket socket);

/// Takes `local` for this socket alone. False if somebody else has its port.
bool BindDatagrams(DatagramSocket socket, const Ipv4Address& local);

/// Hands `bytes` over as one datagram. Negative if it did not leave.
std::ptrdiff_t SendDatagram(DatagramSocket socket, std::string_view bytes, const Ipv4Address& to);

/// Takes the datagram that has waited longest: writes its first `room` bytes to `buffer` and its sender to
/// `from`. Answers its size, or some number above `room` if it was longer than that; the rest is lost.
/// Negative, with nothing written, if none waits or the socket has failed.
std::ptrdiff_t ReceiveDatagram(DatagramSocket socket, char* buffer, std::size_t room, Ipv4Address& from);

/// Gives the socket back. Not for kNoSocket.
void CloseDatagrams(DatagramSocket socket);

/// The system's text (UTF-8) for what went wrong in this thread's last call above.
std::string NetworkErrorText();

/// "192.168.0.7:5000", without the colon and the port if that is zero; empty if the address is of no known
/// family.
std::string AddressText(const Ipv4Address& address);

/// The address of a text like "192.168.0.7", with a port of zero. Nothing for any other text: one with a port
/// behind it, with spaces or with fewer than four numbers.
std::optional<Ipv4Address> ParseAddress(const std::string& text);

/// The name (UTF-8) that the name services know for an address, or nothing. May ask other computers, and
/// blocks for as long as they take to answer.
std::optional<std::string> HostNameOf(const Ipv4Address& address);

}  // namespace platform
