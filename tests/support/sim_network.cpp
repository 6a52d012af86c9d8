#include "tests/support/sim_network.h"

#include <algorithm>
#include <charconv>
#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <utility>

#include "common/platform.h"
#include "devices/datagrams.h"
#include "tests/support/virtual_clock.h"

namespace {

using sim_network::Address;
using sim_network::Call;
using sim_network::Datagram;
using sim_network::Weather;
using TCBase::Ipv4Address;

constexpr std::uint16_t kPort = 5000;
constexpr Address kEverybody{255, 255, 255, 255};
// What a system keeps for a slow reader.
constexpr std::size_t kRoom = 256;

struct Socket {
  bool open = true;
  bool mayBroadcast = false;
  bool waits = true;
  bool bound = false;
  std::deque<Datagram> queue;
};

struct PlannedFault {
  Call call;
  int nth;
  int times;
};

struct Simulation {
  std::map<Address, std::unique_ptr<sim::Controller>> controllers;
  std::vector<Socket> sockets;
  std::vector<sim_network::Sent> traffic;
  std::vector<std::string> misuse;
  Weather toControllers;
  Weather fromControllers;
  std::mt19937 random;
  std::function<std::vector<Datagram>(const Datagram&)> answer;
  std::function<std::optional<Datagram>()> flood;
  bool trusting = false;
  bool portHeld = false;
  std::vector<PlannedFault> faults;
  int faultsStruck = 0;
  std::string error = "Success";
  std::map<Address, std::string> hostNames;
  std::vector<Address> lookups;
  platform::WifiQuery wifiQuery = platform::WifiQuery::NoAdapter;
  std::vector<platform::WifiNetwork> wifiNetworks;
};

std::unique_ptr<Simulation>& Held() {
  static auto simulation = std::make_unique<Simulation>();
  return simulation;
}

Simulation& Sim() {
  return *Held();
}

std::mutex& Mutex() {
  static std::mutex mutex;
  return mutex;
}

// Guarded by Mutex(). It outlives the simulation, as who asks may do.
struct HeldLookups {
  bool areHeld = false;
  int waiting = 0;
  std::condition_variable changed;
};
HeldLookups& NameServices() {
  static HeldLookups held;
  return held;
}

double Seconds() {
  return static_cast<double>(platform::ClockTicks()) / static_cast<double>(platform::ClockFrequency());
}

// From 0 up to but not including 1, the same from every library.
double Chance() {
  return static_cast<double>(Sim().random()) / 4294967296.0;
}

bool Fails(const std::string& error) {
  Sim().error = error;
  return false;
}

bool Befalls(Call call) {
  bool befallen = false;
  for (PlannedFault& fault : Sim().faults) {
    if (fault.call != call) continue;
    --fault.nth;
    befallen |= fault.nth <= 0 && fault.nth > -fault.times;
  }
  if (!befallen) return false;
  Sim().error = "simulated fault";
  ++Sim().faultsStruck;
  return true;
}

Socket* Find(platform::DatagramSocket socket) {
  auto& sockets = Sim().sockets;
  const auto index = static_cast<std::size_t>(socket);
  if (socket >= 0 && index < sockets.size() && sockets[index].open) return &sockets[index];
  Sim().error = "Bad file descriptor";
  return nullptr;
}

void Queue(const Datagram& datagram) {
  for (Socket& socket : Sim().sockets) {
    if (socket.open && socket.bound && socket.queue.size() < kRoom) socket.queue.push_back(datagram);
  }
}

// Brings a datagram through the weather: calls `deliver` for each copy that arrives, now or later.
template <class Deliver>
void Carry(const Weather& weather, const std::string& bytes, const Deliver& deliver) {
  if (Chance() < weather.loss) return;
  const int copies = Chance() < weather.repeat ? 2 : 1;
  for (int copy = 0; copy < copies; ++copy) {
    std::string carried = bytes;
    if (Chance() < weather.shorten) carried.resize(Sim().random() % bytes.size());
    if (Chance() < weather.corrupt && !carried.empty()) {
      carried[Sim().random() % carried.size()] ^= static_cast<char>(1 + Sim().random() % 255);
    }
    if (Chance() >= weather.delay) {
      deliver(carried);
      continue;
    }
    virtual_clock::At(Seconds() + Chance() * weather.longestDelay, [deliver, carried] {
      const std::lock_guard lock(Mutex());
      deliver(carried);
    });
  }
}

bool EndsMode(const std::string& frame) {
  return frame.size() == 64 && frame.substr(2, 2) == "\x04\x0A";
}

void GiveToController(const Address& address, const std::string& frame) {
  const auto controller = Sim().controllers.find(address);
  if (controller == Sim().controllers.end()) return;
  std::string reply = controller->second->Receive(frame, Seconds());
  if (reply.empty() && Sim().trusting && EndsMode(frame)) reply = frame;
  if (reply.empty()) return;
  const Datagram datagram{TCBase::MakeIpv4Address(address, kPort), reply};
  for (const Datagram& sent : Sim().answer ? Sim().answer(datagram) : std::vector{datagram}) {
    Carry(Sim().fromControllers, sent.bytes, [from = sent.from](const std::string& bytes) {
      Queue({from, bytes});
    });
  }
}

}  // namespace

namespace sim_network {

void Reset() {
  const std::lock_guard lock(Mutex());
  Held() = std::make_unique<Simulation>();
}

void PlugIn(const Address& address, const std::string& name) {
  const std::lock_guard lock(Mutex());
  Sim().controllers[address] = sim::MakeNetworkTC421(name);
}

void TrustIncompleteModes() {
  const std::lock_guard lock(Mutex());
  Sim().trusting = true;
}

sim::Memory MemoryOf(const Address& address) {
  const std::lock_guard lock(Mutex());
  return Sim().controllers.at(address)->GetMemory();
}

std::vector<sim::Received> FramesOf(const Address& address) {
  const std::lock_guard lock(Mutex());
  return Sim().controllers.at(address)->Frames();
}

std::vector<Sent> Traffic() {
  const std::lock_guard lock(Mutex());
  return Sim().traffic;
}

std::vector<std::string> Violations() {
  const std::lock_guard lock(Mutex());
  std::vector<std::string> all = Sim().misuse;
  for (const auto& [address, controller] : Sim().controllers) {
    all.insert(all.end(), controller->Violations().begin(), controller->Violations().end());
  }
  return all;
}

int OpenSockets() {
  const std::lock_guard lock(Mutex());
  return static_cast<int>(std::count_if(Sim().sockets.begin(), Sim().sockets.end(),
                                        [](const Socket& socket) { return socket.open; }));
}

void SetWeather(const Weather& toControllers, const Weather& fromControllers, std::uint32_t seed) {
  const std::lock_guard lock(Mutex());
  Sim().toControllers = toControllers;
  Sim().fromControllers = fromControllers;
  Sim().random.seed(seed);
}

void SetAnswer(std::function<std::vector<Datagram>(const Datagram& reply)> answer) {
  const std::lock_guard lock(Mutex());
  Sim().answer = std::move(answer);
}

void Arrive(const Datagram& datagram) {
  const std::lock_guard lock(Mutex());
  Queue(datagram);
}

void SetFlood(std::function<std::optional<Datagram>()> flood) {
  const std::lock_guard lock(Mutex());
  Sim().flood = std::move(flood);
}

void HoldPort(bool held) {
  const std::lock_guard lock(Mutex());
  Sim().portHeld = held;
}

void Inject(Call call, int nth, int times) {
  const std::lock_guard lock(Mutex());
  Sim().faults.push_back({call, nth, times});
}

int FaultsStruck() {
  const std::lock_guard lock(Mutex());
  return Sim().faultsStruck;
}

void LiftFaults() {
  const std::lock_guard lock(Mutex());
  Sim().faults.clear();
}

void NameHost(const Address& address, const std::string& name) {
  const std::lock_guard lock(Mutex());
  Sim().hostNames[address] = name;
}

void HoldLookups(bool held) {
  std::unique_lock lock(Mutex());
  HeldLookups& services = NameServices();
  services.areHeld = held;
  services.changed.notify_all();
  services.changed.wait(lock, [&services] { return services.areHeld || services.waiting == 0; });
}

std::vector<Address> Lookups() {
  const std::lock_guard lock(Mutex());
  return Sim().lookups;
}

void SetWifi(platform::WifiQuery query, std::vector<platform::WifiNetwork> networks) {
  const std::lock_guard lock(Mutex());
  Sim().wifiQuery = query;
  Sim().wifiNetworks = std::move(networks);
}

}  // namespace sim_network

namespace platform {

void StartNetwork() {}

void StopNetwork() {}

DatagramSocket OpenDatagrams() {
  const std::lock_guard lock(Mutex());
  if (Befalls(Call::Open)) return kNoSocket;
  Sim().sockets.emplace_back();
  return static_cast<DatagramSocket>(Sim().sockets.size()) - 1;
}

bool AllowBroadcasts(DatagramSocket socket) {
  const std::lock_guard lock(Mutex());
  Socket* const found = Find(socket);
  if (found == nullptr || Befalls(Call::AllowBroadcasts)) return false;
  found->mayBroadcast = true;
  return true;
}

bool DontWaitForDatagrams(DatagramSocket socket) {
  const std::lock_guard lock(Mutex());
  Socket* const found = Find(socket);
  if (found == nullptr || Befalls(Call::DontWait)) return false;
  found->waits = false;
  return true;
}

bool BindDatagrams(DatagramSocket socket, const Ipv4Address& local) {
  const std::lock_guard lock(Mutex());
  Socket* const found = Find(socket);
  if (found == nullptr || Befalls(Call::Bind)) return false;
  if (local != TCBase::MakeIpv4Address({0, 0, 0, 0}, kPort)) Sim().misuse.push_back("another port is taken");
  const auto& sockets = Sim().sockets;
  const bool taken = std::any_of(sockets.begin(), sockets.end(),
                                 [](const Socket& other) { return other.open && other.bound; });
  if (taken || Sim().portHeld) return Fails("Address already in use");
  found->bound = true;
  return true;
}

std::ptrdiff_t SendDatagram(DatagramSocket socket, std::string_view bytes, const Ipv4Address& to) {
  const std::lock_guard lock(Mutex());
  Simulation& sim = Sim();
  const Socket* const found = Find(socket);
  if (found == nullptr || Befalls(Call::Send)) return -1;
  if (to.address == kEverybody && !found->mayBroadcast) {
    Fails("Permission denied");
    return -1;
  }
  if (to != TCBase::MakeIpv4Address(to.address, kPort)) sim.misuse.push_back("sent to another port");
  const std::string frame(bytes);
  sim.traffic.push_back({Seconds(), to, frame});
  if (to.address == kEverybody) Queue({TCBase::MakeIpv4Address(sim_network::kOwnAddress, kPort), frame});
  for (const auto& [address, controller] : sim.controllers) {
    if (to.address != kEverybody && to.address != address) continue;
    Carry(sim.toControllers, frame,
          [target = address](const std::string& carried) { GiveToController(target, carried); });
  }
  return static_cast<std::ptrdiff_t>(bytes.size());
}

std::ptrdiff_t ReceiveDatagram(DatagramSocket socket, char* buffer, std::size_t room, Ipv4Address& from) {
  const std::lock_guard lock(Mutex());
  Socket* const found = Find(socket);
  if (found == nullptr || Befalls(Call::Receive)) return -1;
  if (found->waits) Sim().misuse.push_back("a receive that would wait");
  std::optional<Datagram> datagram = Sim().flood ? Sim().flood() : std::nullopt;
  if (!datagram && !found->queue.empty()) {
    datagram = std::move(found->queue.front());
    found->queue.pop_front();
  }
  if (!datagram) {
    Fails("Resource temporarily unavailable");
    return -1;
  }
  datagram->bytes.copy(buffer, room);
  from = datagram->from;
  return static_cast<std::ptrdiff_t>(datagram->bytes.size());
}

void CloseDatagrams(DatagramSocket socket) {
  const std::lock_guard lock(Mutex());
  Socket* const found = Find(socket);
  if (found == nullptr) {
    Sim().misuse.push_back("a socket that is not open is closed");
  } else {
    *found = {.open = false, .queue = {}};
  }
}

std::string NetworkErrorText() {
  const std::lock_guard lock(Mutex());
  return Sim().error;
}

std::string AddressText(const Ipv4Address& address) {
  if (address.family != TCBase::kIpv4Family) return {};
  std::string text;
  for (const int number : address.address) {
    if (!text.empty()) text += '.';
    text += std::to_string(number);
  }
  const int port = address.port[0] << 8 | address.port[1];
  if (port != 0) text.append(":").append(std::to_string(port));
  return text;
}

std::optional<Ipv4Address> ParseAddress(const std::string& text) {
  Address address{};
  const char* next = text.data();
  const char* const end = next + text.size();
  for (std::size_t i = 0; i < address.size(); ++i) {
    if (i > 0 && (next == end || *next++ != '.')) return std::nullopt;
    const auto [stop, error] = std::from_chars(next, end, address[i]);
    if (error != std::errc()) return std::nullopt;
    next = stop;
  }
  if (next != end) return std::nullopt;
  return TCBase::MakeIpv4Address(address, 0);
}

std::optional<std::string> HostNameOf(const Ipv4Address& address) {
  std::unique_lock lock(Mutex());
  Sim().lookups.push_back(address.address);
  HeldLookups& held = NameServices();
  ++held.waiting;
  const virtual_clock::Waiting forTest;
  held.changed.wait(lock, [&held] { return !held.areHeld; });
  --held.waiting;
  held.changed.notify_all();
  const auto name = Sim().hostNames.find(address.address);
  if (name == Sim().hostNames.end()) return std::nullopt;
  return name->second;
}

WifiQuery QueryWifiNetworks(std::vector<WifiNetwork>& networks) {
  const std::lock_guard lock(Mutex());
  const std::vector<WifiNetwork>& known = Sim().wifiNetworks;
  networks.insert(networks.end(), known.begin(), known.end());
  return Sim().wifiQuery;
}

}  // namespace platform
