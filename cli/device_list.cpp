// The commands that list controllers: devices and scan.

#include <algorithm>
#include <future>
#include <memory>

#include "cli/commands.h"
#include "cli/device_word.h"
#include "cli/explain.h"
#include "cli/json.h"
#include "cli/options.h"
#include "cli/progress.h"
#include "cli/serve.h"
#include "common/message.h"
#include "common/timer.h"
#include "devices/controller_models.h"
#include "devices/scan.h"
#include "devices/shown_name.h"
#include "devices/worker.h"

namespace cli {

namespace {

using TCBase::DeviceInfo;

struct ListArguments : DeviceArguments {
  double wait = 0.0;  // seconds
  bool scan = false;
  bool json = false;
};

// Blocks until the worker has looked for controllers once more.
void AwaitPass(TCBase::Worker& worker) {
  // The worker looks after each job, so that it has looked when it comes to the second.
  const auto reached = std::make_shared<std::promise<void>>();
  worker.AddJob([] {});
  worker.AddJob([reached] { reached->set_value(); });
  reached->get_future().wait();
}

// Controllers on USB.
struct Plugged {
  std::vector<DeviceInfo> devices;
  bool forbidden = false;  // there are others, of which the user has read that they may not be opened
};

// Looks at once, and then until there is one or `seconds` have passed.
Plugged LookFor(double seconds) {
  TCBase::Worker worker(TCBase::Discovery::AtOnce);
  const timer_base::TimerFeatures<TimerCore_Counter> waited;
  Plugged found;
  do {
    AwaitPass(worker);
    found = {worker.GetDevices(), !worker.GetForbiddenDevices().empty()};
  } while (found.devices.empty() && waited.Now() < seconds);
  return found;
}

Plugged FindDevices(double wait) {
  const Plugged found = LookFor(wait);
  const bool nothing = found.devices.empty() && !found.forbidden;
  // A worker looks every five seconds: a new one sees what came since the last look.
  return nothing && wait > 0.0 ? LookFor(0.0) : found;
}

// What is on the network, sorted, with a word for the user if that could not be found out.
std::vector<DeviceInfo> ScanNetwork(const Session& session) {
  TCBase::ExchangeCount count(TCBase::NoObserver());
  std::vector<DeviceInfo> devices;
  WorkWithProgress(
      session, [turn = 0]() mutable { return UnmeasuredProgress(turn++); },
      [&] { devices = TCBase::FindNetworkDevices(TCBase::kLookupPatience, count); });
  if (count.Counted().portTaken) ExplainPort(session);
  SortDevices(devices);
  return devices;
}

void PrintDevices(std::ostream& out, const std::vector<DeviceInfo>& devices) {
  std::size_t column = 8;
  for (const DeviceInfo& device : devices) column = std::max(column, WordOf(device).size());
  for (const DeviceInfo& device : devices) {
    std::string word = WordOf(device);
    word.resize(column + 2, ' ');
    out << word << TCBase::ShownName(device.name) << '\n';
  }
}

Json JsonOf(const std::vector<DeviceInfo>& devices) {
  Json list = Json::array();
  for (const DeviceInfo& device : devices) {
    list.push_back({{"device", WordOf(device)}, {"name", device.name}});
    if (IsOnNetwork(device)) list.back()["address"] = AddressOf(device);
  }
  return list;
}

void Print(const Session& session, const ListArguments& arguments, const std::vector<DeviceInfo>& devices) {
  if (arguments.json) {
    PrintJson(session.out, JsonOf(devices), Escaped::BeyondAscii);
  } else {
    PrintDevices(session.out, devices);
  }
}

ExitStatus List(const Session& session, const ListArguments& arguments) {
  if (arguments.trace) session.status.Trace();
  auto [devices, forbidden] = FindDevices(arguments.wait);
  if (arguments.scan) {
    const std::vector<DeviceInfo> found = ScanNetwork(session);
    devices.insert(devices.end(), found.begin(), found.end());
    SortDevices(devices);
  }
  Print(session, arguments, devices);
  if (!devices.empty()) return ExitStatus::Success;
  if (forbidden) return ExitStatus::OperationFailed;
  session.status.Print(Message("No controller found. \"--device emulator\" works without one.").utf8());
  // A look that finds nothing has done its work; to have waited in vain is a failure.
  return arguments.wait > 0.0 || arguments.scan ? ExitStatus::NoDevice : ExitStatus::Success;
}

ExitStatus Scan(const Session& session, const ListArguments& arguments) {
  if (arguments.trace) session.status.Trace();
  const std::vector<DeviceInfo> devices = ScanNetwork(session);
  Print(session, arguments, devices);
  if (!devices.empty()) return ExitStatus::Success;
  session.status.Print(
      Message("No controller found on the network. Is this computer in its WiFi, and does the "
              "firewall let UDP port 5000 in? One whose address is known needs no scan: "
              "--device udp:NAME@ADDRESS.")
          .utf8());
  return ExitStatus::NoDevice;
}

void DeclareOutput(CLI::App& app, ListArguments& arguments) {
  app.add_flag("--json", arguments.json, "The same for other programs");
  DeclareTrace(app, arguments);
}

Run DeclareList(CLI::App& app) {
  const auto arguments = std::make_shared<ListArguments>();
  app.add_option("--wait", arguments->wait, "Wait this long for a controller to be plugged in")
      ->check(Unnamed(CLI::NonNegativeNumber))
      ->type_name("SECONDS");
  app.add_flag("--scan", arguments->scan, "Look for controllers on the network too, as scan does");
  DeclareOutput(app, *arguments);
  return [arguments](Session& session) { return List(session, *arguments); };
}

Run DeclareScan(CLI::App& app) {
  const auto arguments = std::make_shared<ListArguments>();
  DeclareOutput(app, *arguments);
  return [arguments](Session& session) { return Scan(session, *arguments); };
}

}  // namespace

const Command kDevices = {
    "devices",
    "List the controllers that are plugged in",
    R"(Examples:
  lumarinectl devices
  lumarinectl devices --wait 60 && lumarinectl upload tank.xml --device tc420)",
    &DeclareList,
};

const Command kScan = {
    "scan",
    "List the controllers that are on the network",
    R"(Asks everybody in the network that this computer is in, and takes up to three seconds. The first word of a
line is what --device takes.
Examples:
  lumarinectl scan
  lumarinectl scan --json | jq -r '.[0].device')",
    &DeclareScan,
};

}  // namespace cli
