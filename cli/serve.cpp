#include "cli/serve.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>
#include <memory>

#include "cli/device_word.h"
#include "cli/network_listener.h"
#include "cli/options.h"
#include "devices/demo_state.h"
#include "devices/worker.h"

namespace cli {

namespace {

using TCBase::DeviceInfo;
using TCBase::OperationResult;

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

/// What may be wrong where a controller on a cable cannot be connected.
void ExplainConnectError(const Session& session, const DeviceInfo& info) {
  if (info.model != TCBase::ModelTC420 && info.model != TCBase::ModelTC421USB) return;
  session.status.Print(
      "No connection to " + WordOf(info) +
      ". Does \"lumarinectl devices\" list it, and does no other program hold it? Linux keeps it to root "
      "until resources/linux/70-lumarine.rules is in /etc/udev/rules.d.");
}

}  // namespace

void DeclareTrace(CLI::App& app, DeviceArguments& arguments) {
  app.add_flag("--trace", arguments.trace, "Show all that goes to and comes from the controller");
}

void DeclareDevices(CLI::App& app, DeviceArguments& arguments) {
  app.add_option("--device", arguments.devices, "The controller; several are served in the order given")
      ->required()
      // Else the option would take the words behind its value too.
      ->allow_extra_args(false)
      ->check(CLI::Validator(CheckDevice, ""))
      ->type_name(kDeviceWords);
  DeclareTrace(app, arguments);
}

std::vector<DeviceInfo> DevicesOf(const DeviceArguments& arguments) {
  std::vector<DeviceInfo> devices;
  for (const std::string& word : arguments.devices) devices.push_back(*ParseDevice(word));
  return devices;
}

ExitStatus ServeDevices(const Session& session, const DeviceArguments& arguments, const Operation& operation,
                        const Progress& progress, const LogListener& listener) {
  constexpr std::chrono::milliseconds kRedraw{100};
  if (arguments.trace) session.status.Trace();

  std::atomic<bool> stopping = false;
  const auto watch = session.console.WatchInterrupts([&] {
    stopping = true;
    TCBase::PostCommand(TCBase::CommandStop);
  });

  // The listener stays behind with the session.
  const auto network = std::make_shared<NetworkListener>();
  session.status.ListenToDeviceLog([network, listener](const std::string& text) {
    network->Listen(text);
    if (listener) listener(text);
  });
  ExitStatus worst = ExitStatus::Success;
  const auto serveOne = [&](const DeviceInfo& info) {
    network->Begin(info);
    const OperationResult result = operation(info);
    const bool silent = result != OperationResult::Cancelled && network->Explain(session);
    if (result == OperationResult::NotConnected) ExplainConnectError(session, info);
    worst = std::max(worst, silent ? ExitStatus::NoDevice : ExitStatusOf(result));
    return result;
  };
  std::packaged_task<void()> serve([&] {
    // The stop itself may be found only behind the operation.
    worst = std::max(worst, ExitStatusOf(RunOnDevices(serveOne, DevicesOf(arguments))));
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
