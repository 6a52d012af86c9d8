#pragma once

// The address of a network controller, in the sockets' own layout but without their headers.

#include <array>
#include <cstdint>

namespace TCBase {

/// What `family` holds for IPv4; one number on every platform, which platform/ holds it to.
inline constexpr std::uint16_t kIpv4Family = 2;

/// An IPv4 socket address: 16 bytes, field for field as the sockets interface lays them out, so that
/// platform/ copies it whole. All zero stands for "no address".
struct Ipv4Address {
  std::uint16_t family = 0;               // kIpv4Family; 0 when unset
  std::array<std::uint8_t, 2> port{};     // network order: high byte first
  std::array<std::uint8_t, 4> address{};  // network order: 192.168.0.7 is {192, 168, 0, 7}
  std::array<std::uint8_t, 8> zero{};

  friend bool operator==(const Ipv4Address&, const Ipv4Address&) = default;
};
static_assert(sizeof(Ipv4Address) == 16);

inline constexpr std::array<std::uint8_t, 4> kAnyAddress{0, 0, 0, 0};
inline constexpr std::array<std::uint8_t, 4> kLimitedBroadcast{255, 255, 255, 255};

constexpr Ipv4Address MakeIpv4Address(const std::array<std::uint8_t, 4>& address, std::uint16_t port) {
  return {kIpv4Family,
          {static_cast<std::uint8_t>(port >> 8), static_cast<std::uint8_t>(port & 0xFF)},
          address,
          {}};
}

}  // namespace TCBase
