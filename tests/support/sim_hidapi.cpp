#include "tests/support/sim_hidapi.h"

#include <hidapi/hidapi.h>

#include <algorithm>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <utility>

#include "common/platform.h"
#include "devices/usb_rights.h"

namespace {

using sim_hidapi::Answer;
using sim_hidapi::Call;
using sim_hidapi::Family;
using sim_hidapi::Fault;

constexpr const wchar_t* kSuccess = L"Success";
constexpr const wchar_t* kGone = L"No such device";
constexpr const wchar_t* kDenied = L"Permission denied";

struct Ids {
  unsigned short vendor;
  unsigned short product;
};

Ids IdsOf(Family family) {
  return family == Family::TC420 ? Ids{0x0888, 0x4000} : Ids{0x0483, 0x5750};
}

// A controller and the cable to it.
struct Port {
  Family family;
  std::string path;
  std::unique_ptr<sim::Controller> controller;
  int plug = 0;  // how often it was plugged in; negated while it is pulled out
};

struct PlannedFault {
  Fault fault;
  int seen = 0;  // calls since it was planned
};

struct Simulation {
  std::mutex mutex;
  std::vector<std::shared_ptr<Port>> ports;  // in the order of their first plugging in
  std::vector<PlannedFault> faults;
  int faultsStruck = 0;
  std::map<Call, int> delays;  // milliseconds
  std::set<Family> forbidden;
  std::optional<std::filesystem::path> rulesFolder;
  std::vector<std::filesystem::path> packagedRulesFolders;
  Answer answer = sim_hidapi::Prompt();
  std::vector<std::string> misuse;
  int openHandles = 0;
  const wchar_t* error = kSuccess;  // what concerns no handle
};

Simulation& Sim() {
  static Simulation simulation;
  return simulation;
}

double Seconds() {
  return static_cast<double>(platform::ClockTicks()) / static_cast<double>(platform::ClockFrequency());
}

// The plugged-in controllers of a family, or with a pulled-out one: negative `plug`.
Port* FindPort(Family family, bool pluggedIn) {
  const auto& ports = Sim().ports;
  const auto port = std::find_if(ports.begin(), ports.end(), [&](const std::shared_ptr<Port>& candidate) {
    return candidate->family == family && (candidate->plug > 0) == pluggedIn;
  });
  return port != ports.end() ? port->get() : nullptr;
}

// Every library function passes here first. Takes the time that the call takes, with no lock held, since the
// clock may run other people's code; answers the fault that befalls the call, if any.
const Fault* Enter(Call call, std::unique_lock<std::mutex>& lock) {
  Simulation& sim = Sim();
  lock = std::unique_lock(sim.mutex);
  if (const int delay = sim.delays[call]; delay > 0) {
    lock.unlock();
    platform::SleepMilliseconds(delay);
    lock.lock();
  }
  const Fault* befalls = nullptr;
  for (PlannedFault& planned : sim.faults) {
    if (planned.fault.call != call) continue;
    ++planned.seen;
    const int since = planned.seen - planned.fault.nth;
    if (since >= 0 && since < planned.fault.times) befalls = &planned.fault;
  }
  if (befalls != nullptr) ++sim.faultsStruck;
  return befalls;
}

}  // namespace

// hidapi leaves this open.
struct hid_device_ {
  std::shared_ptr<Port> port;
  int plug = 0;  // the plugging-in that the handle was opened in
  bool nonblocking = false;
  std::deque<std::string> reports;
  int pollsUntilReport = 0;
  const wchar_t* error = kSuccess;

  bool IsAlive() const { return plug == port->plug; }
};

namespace sim_hidapi {

void Reset() {
  Simulation& sim = Sim();
  const std::lock_guard lock(sim.mutex);
  sim.ports.clear();
  sim.faults.clear();
  sim.faultsStruck = 0;
  sim.delays.clear();
  sim.forbidden.clear();
  sim.rulesFolder.reset();
  sim.packagedRulesFolders.clear();
  sim.answer = Prompt();
  sim.misuse.clear();
  sim.error = kSuccess;
  if (sim.openHandles != 0) sim.misuse.push_back("a handle was still open at the reset");
  sim.openHandles = 0;
}

void PlugIn(Family family) {
  Simulation& sim = Sim();
  const std::lock_guard lock(sim.mutex);
  if (Port* port = FindPort(family, false)) {
    port->plug = 1 - port->plug;
    return;
  }
  auto port = std::make_shared<Port>();
  port->family = family;
  port->path = "simulated/" + std::to_string(sim.ports.size());
  port->controller = family == Family::TC420 ? sim::MakeTC420() : sim::MakeTC421();
  port->plug = 1;
  sim.ports.push_back(std::move(port));
}

void PullOut(Family family) {
  const std::lock_guard lock(Sim().mutex);
  if (Port* port = FindPort(family, true)) port->plug = -port->plug;
}

void SetAllowed(Family family, bool allowed) {
  const std::lock_guard lock(Sim().mutex);
  if (allowed) {
    Sim().forbidden.erase(family);
  } else {
    Sim().forbidden.insert(family);
  }
}

void SetRulesFolder(std::optional<std::filesystem::path> folder) {
  const std::lock_guard lock(Sim().mutex);
  Sim().rulesFolder = std::move(folder);
}

void SetPackagedRulesFolders(std::vector<std::filesystem::path> folders) {
  const std::lock_guard lock(Sim().mutex);
  Sim().packagedRulesFolders = std::move(folders);
}

std::vector<sim::Received> Frames(Family family) {
  Simulation& sim = Sim();
  const std::lock_guard lock(sim.mutex);
  std::vector<sim::Received> frames;
  for (const auto& port : sim.ports) {
    if (port->family != family) continue;
    const auto& received = port->controller->Frames();
    frames.insert(frames.end(), received.begin(), received.end());
  }
  return frames;
}

sim::Memory MemoryOf(Family family) {
  Simulation& sim = Sim();
  const std::lock_guard lock(sim.mutex);
  for (const auto& port : sim.ports) {
    if (port->family == family) return port->controller->GetMemory();
  }
  return {};
}

std::vector<std::string> Violations() {
  Simulation& sim = Sim();
  const std::lock_guard lock(sim.mutex);
  std::vector<std::string> all = sim.misuse;
  for (const auto& port : sim.ports) {
    const auto& violations = port->controller->Violations();
    all.insert(all.end(), violations.begin(), violations.end());
  }
  return all;
}

int OpenHandles() {
  const std::lock_guard lock(Sim().mutex);
  return Sim().openHandles;
}

Answer Prompt() {
  return AtPoll(1);
}

Answer Silent() {
  return {[](const std::string&) { return std::vector<std::string>(); }};
}

Answer AtPoll(int poll) {
  return {[](const std::string& reply) {
            return reply.empty() ? std::vector<std::string>() : std::vector<std::string>{reply};
          },
          poll};
}

Answer Sized(std::vector<std::size_t> sizes) {
  return {[sizes = std::move(sizes)](const std::string& reply) {
    std::vector<std::string> reports(sizes.size(), reply);
    for (std::size_t i = 0; i < sizes.size(); ++i) reports[i].resize(sizes[i]);
    return reports;
  }};
}

void SetAnswer(Answer answer) {
  const std::lock_guard lock(Sim().mutex);
  Sim().answer = std::move(answer);
}

void Inject(const Fault& fault) {
  const std::lock_guard lock(Sim().mutex);
  Sim().faults.push_back({fault});
}

int FaultsStruck() {
  const std::lock_guard lock(Sim().mutex);
  return Sim().faultsStruck;
}

void LiftFaults() {
  const std::lock_guard lock(Sim().mutex);
  Sim().faults.clear();
}

void SlowDown(Call call, int milliseconds) {
  const std::lock_guard lock(Sim().mutex);
  Sim().delays[call] = milliseconds;
}

}  // namespace sim_hidapi

bool platform::MayOpenDevice(const std::string& path) {
  const std::lock_guard lock(Sim().mutex);
  return std::ranges::none_of(Sim().ports, [&](const std::shared_ptr<Port>& port) {
    return port->path == path && port->plug > 0 && Sim().forbidden.contains(port->family);
  });
}

std::optional<std::filesystem::path> platform::RulesFolder() {
  const std::lock_guard lock(Sim().mutex);
  return Sim().rulesFolder;
}

std::vector<std::filesystem::path> platform::PackagedRulesFolders() {
  const std::lock_guard lock(Sim().mutex);
  return Sim().packagedRulesFolders;
}

std::string platform::RightsCommand() {
  return "sudo lumarinectl usb-setup";
}

extern "C" {

int hid_init(void) {
  return 0;
}

int hid_exit(void) {
  return 0;
}

const char* hid_version_str(void) {
  return "simulated";
}

hid_device_info* hid_enumerate(unsigned short vendor, unsigned short product) {
  std::unique_lock<std::mutex> lock;
  if (const Fault* fault = Enter(Call::Enumerate, lock)) {
    Sim().error = fault->text;
    return nullptr;
  }
  hid_device_info* first = nullptr;
  hid_device_info** next = &first;
  for (const auto& port : Sim().ports) {
    const Ids ids = IdsOf(port->family);
    // Zero asks for any.
    if (port->plug <= 0 || (vendor != 0 && vendor != ids.vendor) ||
        (product != 0 && product != ids.product)) {
      continue;
    }
    *next = new hid_device_info{};
    (*next)->path = new char[port->path.size() + 1]();
    port->path.copy((*next)->path, port->path.size());
    (*next)->vendor_id = ids.vendor;
    (*next)->product_id = ids.product;
    next = &(*next)->next;
  }
  Sim().error = first != nullptr ? kSuccess : L"No HID devices with requested VID/PID found in the system.";
  return first;
}

void hid_free_enumeration(hid_device_info* devices) {
  while (devices != nullptr) {
    hid_device_info* next = devices->next;
    delete[] devices->path;
    delete devices;
    devices = next;
  }
}

hid_device* hid_open_path(const char* path) {
  std::unique_lock<std::mutex> lock;
  if (const Fault* fault = Enter(Call::Open, lock)) {
    Sim().error = fault->text;
    return nullptr;
  }
  for (const auto& port : Sim().ports) {
    if (port->path != path || port->plug <= 0) continue;
    if (Sim().forbidden.contains(port->family)) {
      Sim().error = kDenied;
      return nullptr;
    }
    auto device = std::make_unique<hid_device>();
    device->port = port;
    device->plug = port->plug;
    Sim().error = kSuccess;
    ++Sim().openHandles;
    return device.release();
  }
  Sim().error = kGone;
  return nullptr;
}

int hid_set_nonblocking(hid_device* device, int nonblocking) {
  std::unique_lock<std::mutex> lock;
  if (const Fault* fault = Enter(Call::SetNonblocking, lock)) {
    device->error = fault->text;
    return fault->result;
  }
  device->nonblocking = nonblocking != 0;
  return 0;
}

int hid_write(hid_device* device, const unsigned char* data, size_t length) {
  std::unique_lock<std::mutex> lock;
  if (const Fault* fault = Enter(Call::Write, lock)) {
    device->error = fault->text;
    return fault->result;
  }
  if (!device->IsAlive()) {
    device->error = kGone;
    return -1;
  }
  Simulation& sim = Sim();
  if (length != 65) sim.misuse.push_back("a write of " + std::to_string(length) + " bytes");
  if (length == 0 || data[0] != 0) sim.misuse.push_back("a write without the report id 0 in front");
  const std::string frame(reinterpret_cast<const char*>(data) + 1, length - 1);
  const std::string reply = device->port->controller->Receive(frame, Seconds());
  for (std::string& report : sim.answer.reports(reply)) device->reports.push_back(std::move(report));
  device->pollsUntilReport = sim.answer.poll;
  return static_cast<int>(length);
}

int hid_read(hid_device* device, unsigned char* data, size_t length) {
  std::unique_lock<std::mutex> lock;
  if (const Fault* fault = Enter(Call::Read, lock)) {
    device->error = fault->text;
    return fault->result;
  }
  if (!device->IsAlive()) {
    device->error = kGone;
    return -1;
  }
  const bool waiting = device->reports.empty() || --device->pollsUntilReport > 0;
  if (waiting) {
    if (!device->nonblocking) Sim().misuse.push_back("a read that would block for ever");
    return 0;
  }
  const std::string report = std::move(device->reports.front());
  device->reports.pop_front();
  // What does not fit is lost, as in the system's own queue.
  return static_cast<int>(report.copy(reinterpret_cast<char*>(data), length));
}

const wchar_t* hid_error(hid_device* device) {
  const std::lock_guard lock(Sim().mutex);
  return device != nullptr ? device->error : Sim().error;
}

void hid_close(hid_device* device) {
  if (device == nullptr) return;
  const std::lock_guard lock(Sim().mutex);
  --Sim().openHandles;
  delete device;
}

}  // extern "C"
