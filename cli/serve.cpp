#include "cli/serve.h"

#include <algorithm>
#include <chrono>
#include <future>
#include <stop_token>

#include "cli/device_word.h"
#include "cli/explain.h"
#include "cli/options.h"
#include "common/message.h"

namespace cli {

namespace {

using TCBase::DeviceInfo;

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

void WorkWithProgress(const Session& session, const Progress& progress, const std::function<void()>& work) {
  constexpr std::chrono::milliseconds kRedraw{100};
  std::future<void> done = std::async(std::launch::async, work);
  while (done.wait_for(kRedraw) != std::future_status::ready) {
    if (progress) session.status.ShowProgress(progress());
  }
  session.status.ShowProgress({});
  done.get();
}

ExitStatus ServeDevices(const Session& session, const DeviceArguments& arguments, const Service& service) {
  if (arguments.trace) session.status.Trace();

  TCBase::DemoState demo;
  std::stop_source stopping;
  const TCBase::OperationContext context{demo, stopping.get_token(), service.observer};
  const auto watch = session.console.WatchInterrupts([&] {
    stopping.request_stop();
    session.status.Print(Message(service.stopsBehindMode
                                     ? TextKey("Stopping behind this mode. Ctrl+C again ends at once.")
                                     : TextKey("Stopping. Ctrl+C again ends at once."))
                             .utf8());
  });

  ExitStatus worst = ExitStatus::Success;
  const auto serveOne = [&](const DeviceInfo& info) {
    const TCBase::OperationReport report = service.operation(info, context);
    worst = std::max(worst, Explain(session, info, report));
    return report.result;
  };
  WorkWithProgress(session, service.progress, [&] {
    // The stop itself may be found only behind the operation.
    if (RunOnDevices(serveOne, DevicesOf(arguments), context) == TCBase::OperationResult::Cancelled)
      worst = std::max(worst, ExitStatus::OperationFailed);
  });
  return worst;
}

}  // namespace cli
