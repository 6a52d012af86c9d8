#pragma once

// A network for tests: devices/datagrams.h and devices/wifi_networks.h over simulated controllers, with
// weather, neighbours and other programs as a test arranges them. Time is that of common/platform.h. All
// functions may be called on any thread.

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "devices/ipv4_address.h"
#include "devices/wifi_networks.h"
#include "simulator/controller.h"

namespace sim_network {

using Address = std::array<std::uint8_t, 4>;

/// The computer that the tests run on.
inline constexpr Address kOwnAddress{192, 168, 4, 2};

/// As it comes to the computer.
struct Datagram {
  TCBase::Ipv4Address from;
  std::string bytes;
};

/// As it left the computer.
struct Sent {
  double seconds;
  TCBase::Ipv4Address to;
  std::string bytes;
};

/// Nobody on the network, fair weather, nothing recorded. No socket may be open.
void Reset();

/// Brings a controller to the network.
void PlugIn(const Address& address, const std::string& name);
/// From now on controllers acknowledge the end of a mode of which steps are missing, and keep it as it is.
void TrustIncompleteModes();
/// What became of the controller at an address.
sim::Memory MemoryOf(const Address& address);
std::vector<sim::Received> FramesOf(const Address& address);

/// All that has left the computer, to wherever.
std::vector<Sent> Traffic();
/// All that went wrong: frames that no controller understands, and misuse of the calls.
std::vector<std::string> Violations();
int OpenSockets();

// Weather. It befalls datagrams on their way to controllers or back, the broadcast's echo not.

struct Weather {
  // Chances of 0 to 1. A datagram meets them in this order.
  double loss = 0.0;
  double repeat = 0.0;        // comes twice
  double shorten = 0.0;       // loses some bytes at its end
  double corrupt = 0.0;       // has one byte changed
  double delay = 0.0;         // comes later than it should, and so perhaps behind a later one
  double longestDelay = 1.0;  // seconds
};
/// From now on; the same seed is the same weather.
void SetWeather(const Weather& toControllers, const Weather& fromControllers, std::uint32_t seed);

/// From now on, in the place of each reply, what this makes of it.
void SetAnswer(std::function<std::vector<Datagram>(const Datagram& reply)> answer);

// Neighbours.

/// A datagram from anybody arrives now.
void Arrive(const Datagram& datagram);
/// Asked at every receive: what it gives is received before anything else that waits.
void SetFlood(std::function<std::optional<Datagram>()> flood);

// The computer.

/// Another program takes port 5000, or gives it back.
void HoldPort(bool held);

enum class Call { Open, AllowBroadcasts, DontWait, Bind, Send, Receive };
/// The `nth` such call from now fails, and `times` - 1 behind it. A datagram that could not be received waits
/// on.
void Inject(Call call, int nth = 1, int times = 1);
/// How many calls have failed so since Reset().
int FaultsStruck();
/// Nothing fails any more.
void LiftFaults();

/// The name services know this address by that name.
void NameHost(const Address& address, const std::string& name);
/// From now on the name services stay silent, or answer all who have asked; then none of these waits any
/// more.
void HoldLookups(bool held);
/// The addresses whose names were asked for.
std::vector<Address> Lookups();

/// What QueryWifiNetworks answers from now on; without it there is no adapter.
void SetWifi(platform::WifiQuery query, std::vector<platform::WifiNetwork> networks = {});

}  // namespace sim_network
