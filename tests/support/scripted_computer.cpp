#include "tests/support/scripted_computer.h"

#include <condition_variable>
#include <mutex>

namespace {

struct Computer {
  std::mutex mutex;
  std::condition_variable goesOn;
  scripted_computer::Facts facts;  // guarded by mutex
  bool keepsWaiting = false;       // the same
};

Computer& TheComputer() {
  static Computer computer;
  return computer;
}

scripted_computer::Facts Facts() {
  const std::lock_guard lock(TheComputer().mutex);
  return TheComputer().facts;
}

}  // namespace

void scripted_computer::Set(const scripted_computer::Facts& facts) {
  const std::lock_guard lock(TheComputer().mutex);
  TheComputer().facts = facts;
}

void scripted_computer::KeepWaiting(bool keep) {
  {
    const std::lock_guard lock(TheComputer().mutex);
    TheComputer().keepsWaiting = keep;
  }
  TheComputer().goesOn.notify_all();
}

namespace platform {

DeviceUse UseOfDevice(const std::string& path) {
  const auto uses = Facts().uses;
  const auto found = uses.find(path);
  return found != uses.end() ? found->second : DeviceUse();
}

ClockKeeper WhoKeepsTheClock() {
  return Facts().keeper;
}

// Summer is from April to October.
std::optional<int> UtcOffsetMinutes(const DateTime& local) {
  const bool isSummer = local.month >= 4 && local.month <= 10;
  return isSummer ? Facts().summerOffset : Facts().winterOffset;
}

Identity WhoThisIs() {
  return Facts().identity;
}

std::vector<std::pair<std::string, std::string>> SystemVersions() {
  return Facts().versions;
}

std::vector<Adapter> NetworkAdapters() {
  std::unique_lock lock(TheComputer().mutex);
  TheComputer().goesOn.wait(lock, [] { return !TheComputer().keepsWaiting; });
  return TheComputer().facts.adapters;
}

std::string BroadcastAdapter() {
  return Facts().broadcastAdapter;
}

std::string BroadcastCommand(const std::string& adapter) {
  return "route " + adapter;
}

std::vector<Holder> HoldersOfUdpPort(std::uint16_t) {
  return Facts().portHolders;
}

Firewall QueryFirewall(std::uint16_t) {
  return Facts().firewall;
}

}  // namespace platform
