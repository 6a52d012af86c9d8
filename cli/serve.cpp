#include "cli/serve.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>

#include "cli/options.h"
#include "devices/demo_state.h"
#include "devices/worker.h"

namespace cli {

namespace {

using TCBase::DeviceInfo;
using TCBase::OperationResult;

/// A controller as the command line calls it.
struct KnownDevice {
  const char* word;
  TCBase::DeviceModel model;
  const char* name;
};
constexpr KnownDevice kKnownDevices[] = {
    {"emulator", TCBase::ModelEmulator, TCBase::kEmulatorName},
    {"tc420", TCBase::ModelTC420, TCBase::kTC420Name},
};

std::vector<DeviceInfo> DevicesOf(const DeviceArguments& arguments) {
  std::vector<DeviceInfo> devices;
  for (const std::string& word : arguments.devices)
    for (const KnownDevice& known : kKnownDevices)
      if (word == known.word) devices.push_back({known.model, known.name, {}, true});
  return devices;
}

ExitStatus ExitStatusOf(OperationResult result) {
  switch (result) {
    case OperationResult::Done:
      return ExitStatus::Success;
    case OperationResult::NotConnected:
      return ExitStatus::NoDevice;
    case OperationResult::Failed:
    case OperationResult::Cancelled:
      break;
  }
  return ExitStatus::OperationFailed;
}

}  // namespace

void DeclareTrace(CLI::App& app, DeviceArguments& arguments) {
  app.add_flag("--trace", arguments.trace, "Show all that goes to and comes from the controller");
}

void DeclareDevices(CLI::App& app, DeviceArguments& arguments) {
  std::vector<std::string> words;
  for (const KnownDevice& device : kKnownDevices) words.emplace_back(device.word);
  app.add_option("--device", arguments.devices, "The controller; several are served in the order given")
      ->required()
      // Else the option would take the words behind its value too.
      ->allow_extra_args(false)
      ->check(Unnamed(CLI::IsMember(words)))
      ->type_name("emulator|tc420");
  DeclareTrace(app, arguments);
}

std::string WordOf(const DeviceInfo& device) {
  for (const KnownDevice& known : kKnownDevices)
    if (known.model == device.model) return known.word;
  return {};
}

ExitStatus ServeDevices(const Session& session, const DeviceArguments& arguments, const Operation& operation,
                        const Progress& progress) {
  constexpr std::chrono::milliseconds kRedraw{100};
  if (arguments.trace) session.status.Trace();

  std::atomic<bool> stopping = false;
  const auto watch = session.console.WatchInterrupts([&] {
    stopping = true;
    TCBase::PostCommand(TCBase::CommandStop);
  });

  ExitStatus worst = ExitStatus::Success;
  const auto take = [&](OperationResult result) {
    worst = std::max(worst, ExitStatusOf(result));
    return result;
  };
  std::packaged_task<void()> serve([&] {
    take(RunOnDevices([&](const DeviceInfo& info) { return take(operation(info)); }, DevicesOf(arguments)));
  });
  std::future<void> served = serve.get_future();
  TCBase::Worker worker;
  worker.AddJob([&] { serve(); });
  while (served.wait_for(kRedraw) != std::future_status::ready) {
    // An operation empties the command slot when it begins, and a stop from before then would be lost.
    if (stopping) TCBase::PostCommand(TCBase::CommandStop);
    if (progress) session.status.ShowProgress(progress());
  }
  session.status.ShowProgress({});
  served.get();  // hands on what the operation may have thrown
  return worst;
}

}  // namespace cli
