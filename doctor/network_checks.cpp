// What stands between the program and a controller on the network.

#include <algorithm>
#include <string_view>

#include "devices/datagrams.h"
#include "devices/udp_device.h"
#include "doctor/checks.h"
#include "doctor/network_facts.h"

namespace doctor {

namespace {

using platform::Adapter;
using platform::Firewall;

// A socket for a moment.
class Probe {
 public:
  Probe() = default;
  Probe(const Probe&) = delete;
  Probe& operator=(const Probe&) = delete;
  ~Probe() {
    if (socket_ != platform::kNoSocket) platform::CloseDatagrams(socket_);
  }

  bool IsOpen() const { return socket_ != platform::kNoSocket; }
  bool HasPort() const {
    return platform::BindDatagrams(socket_, TCBase::MakeIpv4Address(TCBase::kAnyAddress, TCBase::kUdpPort));
  }

 private:
  platform::DatagramSocket socket_ = platform::OpenDatagrams();
};

Finding Port(Sign sign, const Sentence& found, const Sentence& advice = Sentence()) {
  return {sign, "udp-port", Sentence(TextKey("UDP port 5000")), found, advice};
}

Finding TakenPort(const std::vector<platform::Holder>& holders) {
  const std::string others = NamesOf(holders);
  if (HasThisOne(holders)) return Port(Sign::Good, Sentence(TextKey("This program itself uses it.")));
  const Sentence advice(TextKey("Close that program and try again."));
  if (others.empty())
    return Port(Sign::Broken, Sentence(TextKey("Another program has it; this user is not told which one.")),
                advice);
  return Port(Sign::Broken, Sentence(TextKey("Another program has it: {1}"), {others}), advice);
}

bool IsUsable(const Adapter& adapter) {
  return adapter.kind != Adapter::Loopback && adapter.isUp && !adapter.addresses.empty();
}

bool IsHardware(const Adapter& adapter) {
  return adapter.kind == Adapter::Wired || adapter.kind == Adapter::Wireless;
}

// That a router has given none.
bool IsSelfGiven(const std::string& address) {
  return address.starts_with("169.254.");
}

bool HasOnlySelfGiven(const Adapter& adapter) {
  return std::ranges::all_of(adapter.addresses, &IsSelfGiven);
}

template <class Filter>
std::vector<Adapter> Those(const std::vector<Adapter>& adapters, const Filter& filter) {
  std::vector<Adapter> chosen;
  std::ranges::copy_if(adapters, std::back_inserter(chosen), filter);
  return chosen;
}

// "eth0 (192.168.0.7), wlan0 (10.0.0.2)"
std::string Listed(const std::vector<Adapter>& adapters) {
  std::string list;
  for (const Adapter& adapter : adapters) {
    if (!list.empty()) list += ", ";
    list += adapter.name;
    for (std::size_t i = 0; i < adapter.addresses.size(); ++i)
      list += (i == 0 ? " (" : ", ") + adapter.addresses[i];
    if (!adapter.addresses.empty()) list += ')';
  }
  return list;
}

Finding Adapters(Sign sign, const Sentence& found, const Sentence& advice = Sentence()) {
  return {sign, "network-adapters", Sentence(TextKey("Network adapters")), found, advice};
}

Finding NoAddress(const std::vector<Adapter>& up) {
  if (up.empty())
    return Adapters(
        Sign::Look, Sentence(TextKey("This computer is in no network.")),
        Sentence(TextKey("For controllers on the network plug in its cable, or switch WiFi on. Others need "
                         "no network.")));
  return Adapters(
      Sign::Look, Sentence(TextKey("No address has: {1}"), {Listed(up)}),
      Sentence(TextKey("The router gives it one; switch the adapter off and on again, and look at the "
                       "router.")));
}

// Those that may lead to a controller: adapters that can be touched, where there are some.
std::vector<Adapter> Candidates(const std::vector<Adapter>& adapters) {
  const std::vector<Adapter> usable = Those(adapters, &IsUsable);
  std::vector<Adapter> hardware = Those(usable, &IsHardware);
  if (!hardware.empty()) return hardware;
  return Those(usable, [](const Adapter& adapter) { return adapter.kind != Adapter::Tunnel; });
}

Finding Broadcast(Sign sign, const Sentence& found, const Sentence& advice = Sentence()) {
  return {sign, "broadcast", Sentence(TextKey("Way of a scan")), found, advice};
}

// How to reach a controller in the network of another adapter.
Sentence ByAnother(const Adapter& adapter) {
  return Sentence(TextKey("Switch the others off for the time, or have a scan leave by {1}: {2}"),
                  {adapter.name, platform::BroadcastCommand(adapter.name)});
}

Finding BroadcastBy(const std::string& name, const std::vector<Adapter>& candidates) {
  const auto chosen = std::ranges::find(candidates, name, &Adapter::name);
  if (chosen == candidates.end())
    return Broadcast(Sign::Broken,
                     Sentence(TextKey("A scan leaves by {1}, which leads past your own network: {2}"),
                              {name, Listed(candidates)}),
                     ByAnother(candidates.front()));
  if (candidates.size() == 1)
    return Broadcast(Sign::Good, Sentence(TextKey("A scan leaves by {1}."), {name}));
  const std::vector<Adapter> others =
      Those(candidates, [&](const Adapter& adapter) { return adapter.name != name; });
  return Broadcast(Sign::Look,
                   Sentence(TextKey("A scan leaves by {1} only, not by {2}."), {name, Listed(others)}),
                   ByAnother(others.front()));
}

Finding Wall(Sign sign, const Sentence& found, const Sentence& advice = Sentence()) {
  return {sign, "firewall", Sentence(TextKey("Firewall")), found, advice};
}

Sentence LetIn(const Firewall& firewall) {
  if (firewall.command.empty())
    return Sentence(TextKey("If a scan finds nothing, have the firewall let UDP port 5000 in."));
  return Sentence(TextKey("If a scan finds nothing, let UDP port 5000 in: {1}"), {firewall.command});
}

Finding Running(const Firewall& firewall) {
  switch (firewall.passage) {
    case Firewall::Open:
      return Wall(Sign::Good, Sentence(TextKey("{1} lets UDP port 5000 in."), {firewall.name}));
    case Firewall::Closed:
      return Wall(Sign::Broken, Sentence(TextKey("{1} does not let UDP port 5000 in."), {firewall.name}),
                  LetIn(firewall));
    case Firewall::Untold:
      break;
  }
  return Wall(Sign::Look,
              Sentence(TextKey("{1} is on. Whether it lets UDP port 5000 in cannot be told from here."),
                       {firewall.name}),
              LetIn(firewall));
}

}  // namespace

Findings CheckPort(const Subject&) {
  const Probe probe;
  if (!probe.IsOpen())
    return {
        Port(Sign::Broken, Sentence(TextKey("The system gives no access to the network.")),
             Sentence(TextKey("Look at what keeps programs from the network: rights, a sandbox, a security "
                              "program.")))};
  if (!probe.HasPort()) return {TakenPort(platform::HoldersOfUdpPort(TCBase::kUdpPort))};
  return {Port(Sign::Good, Sentence(TextKey("It is free.")))};
}

Findings CheckAdapters(const Subject&) {
  const std::vector<Adapter> adapters = platform::NetworkAdapters();
  const std::vector<Adapter> up = Those(
      adapters, [](const Adapter& adapter) { return adapter.kind != Adapter::Loopback && adapter.isUp; });
  const std::vector<Adapter> usable = Those(up, &IsUsable);
  if (usable.empty()) return {NoAddress(up)};
  if (!std::ranges::all_of(usable, &HasOnlySelfGiven))
    return {Adapters(Sign::Good, Sentence(TextKey("In use: {1}"), {Listed(usable)}))};
  return {Adapters(
      Sign::Look,
      Sentence(TextKey("No router has given an address; the adapter has one of its own: {1}"),
               {Listed(usable)}),
      Sentence(TextKey("The router gives it one; switch the adapter off and on again, and look at the "
                       "router.")))};
}

Findings CheckBroadcast(const Subject&) {
  const std::vector<Adapter> candidates = Candidates(platform::NetworkAdapters());
  if (candidates.empty()) return {};
  const std::string name = platform::BroadcastAdapter();
  if (name.empty())
    return {Broadcast(Sign::Broken, Sentence(TextKey("A scan cannot leave this computer.")),
                      ByAnother(candidates.front()))};
  return {BroadcastBy(name, candidates)};
}

Findings CheckFirewall(const Subject&) {
  const Firewall firewall = platform::QueryFirewall(TCBase::kUdpPort);
  switch (firewall.state) {
    case Firewall::Absent:
      return {Wall(Sign::Good, Sentence(TextKey("There is none.")))};
    case Firewall::Off:
      return {Wall(Sign::Good, Sentence(TextKey("{1} is off."), {firewall.name}))};
    case Firewall::On:
      return {Running(firewall)};
    case Firewall::Unknown:
      break;
  }
  return {Wall(Sign::Look, Sentence(TextKey("There may be one: its rules are not for every user to read.")),
               LetIn(firewall))};
}

}  // namespace doctor
