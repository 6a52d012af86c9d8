#pragma once

// A computer for tests: doctor/computer_facts.h and doctor/network_facts.h as a test tells. All functions may
// be called on any thread.

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "doctor/computer_facts.h"
#include "doctor/network_facts.h"

namespace scripted_computer {

/// What the system answers. As it stands: one adapter with an address, no firewall, nobody holds anything, a
/// clock that the network sets, an hour ahead of UTC and two in summer, and a user without a name.
struct Facts {
  std::map<std::string, platform::DeviceUse> uses;  // by the path of the device
  platform::ClockKeeper keeper = platform::ClockKeeper::Network;
  int winterOffset = 60;  // minutes
  int summerOffset = 120;
  platform::Identity identity;
  std::vector<std::pair<std::string, std::string>> versions = {{"System", "Scripted 1.0"}};

  std::vector<platform::Adapter> adapters = {
      {"lo", platform::Adapter::Loopback, true, {"127.0.0.1"}},
      {"eth0", platform::Adapter::Wired, true, {"192.168.4.2"}},
  };
  std::string broadcastAdapter = "eth0";
  std::vector<platform::Holder> portHolders;
  platform::Firewall firewall{platform::Firewall::Absent, {}, platform::Firewall::Untold, {}};
};

/// From now on.
void Set(const Facts& facts);

/// Whether who asks for the adapters waits until this is called with false.
void KeepWaiting(bool keep);

}  // namespace scripted_computer
