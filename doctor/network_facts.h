#pragma once

// What the doctor asks the system about its network. One filling per platform below platform/; tests bring
// one of their own (tests/support/scripted_computer.h). Nothing here sends anything. Any thread.

#include <cstdint>
#include <string>
#include <vector>

#include "doctor/computer_facts.h"

namespace platform {

/// What carries datagrams.
struct Adapter {
  enum Kind {
    Wired,
    Wireless,
    Tunnel,    // what leads elsewhere through another one, as a VPN
    Virtual,   // made by software, for containers or virtual machines mostly
    Loopback,  // leads nowhere
  };

  std::string name;  // UTF-8, as the system's own tools call it
  Kind kind = Wired;
  bool isUp = false;                   // switched on, and something at the other end
  std::vector<std::string> addresses;  // IPv4: "192.168.0.7"

  friend bool operator==(const Adapter&, const Adapter&) = default;
};
std::vector<Adapter> NetworkAdapters();

/// The name of the adapter by which a datagram to everybody (255.255.255.255) leaves. Empty if it cannot
/// leave.
std::string BroadcastAdapter();
/// The command, as it is typed into a shell, that has them leave by the named adapter.
std::string BroadcastCommand(const std::string& adapter);

/// Who has the UDP port, of IPv4 or of both. Holders that this user may not see have no name.
std::vector<Holder> HoldersOfUdpPort(std::uint16_t port);

/// What is known of the firewall.
struct Firewall {
  enum State {
    Absent,   // there is none
    Off,      // it is there and lets everything in
    On,       // it is there and lets in what it has rules for
    Unknown,  // only an administrator may know
  };
  enum Passage { Open, Closed, Untold };

  State state = Unknown;
  std::string name;          // "ufw"; empty if it has none
  Passage passage = Untold;  // of datagrams from outside to the port
  std::string command;       // lets them in, as it is typed into a shell; empty if there is none
};
Firewall QueryFirewall(std::uint16_t udpPort);

}  // namespace platform
