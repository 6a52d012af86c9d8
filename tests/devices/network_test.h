#pragma once

// What the tests of the network share: a TC421 on the network, and the words for what travels there.

#include <string>
#include <string_view>

#include "tests/devices/device_test.h"
#include "tests/support/sim_network.h"
#include "tests/support/text_count.h"

inline constexpr sim_network::Address kTank{192, 168, 4, 7};
inline constexpr sim_network::Address kPond{192, 168, 4, 9};
inline constexpr sim_network::Address kStranger{10, 0, 0, 66};

TCBase::DeviceInfo GivenNetworkDevice(const sim_network::Address& address, const std::string& name);
/// "Smart-123456" at kTank, ticked.
TCBase::DeviceInfo SelectedTank();

/// Anybody's datagram, from port 5000 unless told otherwise.
sim_network::Datagram From(const sim_network::Address& address, std::string bytes, std::uint16_t port = 5000);

/// A reply of 64 bytes.
std::string GivenReply(std::uint8_t code, std::string_view text);

/// With "Smart-123456" at kTank, and ends with all sockets closed and none misused.
class NetworkTest : public DeviceTest {
 protected:
  void SetUp() override;

  /// The command bytes that have left the computer, run lengths shortened: "0101 0102*48 040A".
  static std::string SentCommands();
  static void ExpectNoNetworkViolations();
};
