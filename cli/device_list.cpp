// Which controllers there are: devices.

#include <future>
#include <memory>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/options.h"
#include "cli/serve.h"
#include "common/timer.h"
#include "devices/worker.h"

namespace cli {

namespace {

using TCBase::DeviceInfo;

struct ListArguments : DeviceArguments {
  double wait = 0.0;  // seconds
  bool json = false;
};

/// Blocks until the worker has looked for controllers once more.
void AwaitPass(TCBase::Worker& worker) {
  // The worker looks after each job, so that it has looked when it comes to the second.
  const auto reached = std::make_shared<std::promise<void>>();
  worker.AddJob([] {});
  worker.AddJob([reached] { reached->set_value(); });
  reached->get_future().wait();
}

std::vector<DeviceInfo> FindDevices(double wait) {
  TCBase::Worker worker(TCBase::Discovery::AtOnce);
  const timer_base::TimerFeatures<TimerCore_Counter> waited;
  std::vector<DeviceInfo> devices;
  do {
    AwaitPass(worker);
    devices = worker.GetDevices();
  } while (devices.empty() && waited.Now() < wait);
  return devices;
}

void PrintDevices(std::ostream& out, const std::vector<DeviceInfo>& devices) {
  constexpr std::size_t kColumn = 10;
  for (const DeviceInfo& device : devices) {
    std::string word = WordOf(device);
    if (word.empty()) word = "-";
    word.resize(kColumn, ' ');
    out << word << device.name << '\n';
  }
}

Json JsonOf(const std::vector<DeviceInfo>& devices) {
  Json list = Json::array();
  for (const DeviceInfo& device : devices) {
    const std::string word = WordOf(device);
    list.push_back({{"device", word.empty() ? Json() : Json(word)}, {"name", device.name}});
  }
  return list;
}

ExitStatus List(const Session& session, const ListArguments& arguments) {
  if (arguments.trace) session.status.Trace();
  const std::vector<DeviceInfo> devices = FindDevices(arguments.wait);
  if (arguments.json) {
    PrintJson(session.out, JsonOf(devices));
  } else {
    PrintDevices(session.out, devices);
  }
  if (!devices.empty()) return ExitStatus::Success;
  session.status.Print("No controller found. \"--device emulator\" works without one.");
  // A look that finds nothing has done its work; to have waited in vain is a failure.
  return arguments.wait > 0.0 ? ExitStatus::NoDevice : ExitStatus::Success;
}

Run DeclareList(CLI::App& app) {
  const auto arguments = std::make_shared<ListArguments>();
  app.add_option("--wait", arguments->wait, "Wait this long for a controller to be plugged in")
      ->check(Unnamed(CLI::NonNegativeNumber))
      ->type_name("SECONDS");
  app.add_flag("--json", arguments->json, "The same for other programs");
  DeclareTrace(app, *arguments);
  return [arguments](Session& session) { return List(session, *arguments); };
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

}  // namespace cli
