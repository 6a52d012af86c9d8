// Everything that speaks to a controller: devices, upload, demo, sync-time and clear.

#include <atomic>
#include <future>
#include <memory>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/options.h"
#include "cli/program_argument.h"
#include "cli/progress.h"
#include "cli/text.h"
#include "common/platform.h"
#include "devices/demo_state.h"
#include "devices/device_info.h"
#include "devices/operations.h"
#include "devices/worker.h"
#include "program/mode_commands.h"

namespace cli {

namespace {

using TCBase::DeviceInfo;
using TCBase::OperationResult;
using TCBase::Program::ModeListView;

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

struct DeviceArguments {
  std::vector<std::string> devices;  // words of the table above
  bool trace = false;
};

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

using Operation = std::function<OperationResult(const DeviceInfo&)>;
using Progress = std::function<std::string()>;

/// Serves the devices on the worker's thread, while this one watches over Ctrl+C and the progress. The worst
/// result counts: a controller that is not there is worse than one that was stopped.
ExitStatus ServeDevices(const Session& session, const DeviceArguments& arguments, const Operation& operation,
                        const Progress& progress = {}) {
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
  return worst;
}

// devices

struct ListArguments : DeviceArguments {
  double wait = 0.0;  // seconds
  bool json = false;
};

/// Blocks until the worker has looked for controllers once more.
void AwaitPass(TCBase::Worker& worker) {
  // The worker looks after each job, so that it has looked when it comes to the second.
  std::promise<void> reached;
  worker.AddJob([] {});
  worker.AddJob([&] { reached.set_value(); });
  reached.get_future().wait();
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

/// What --device calls the controller; empty for one that it does not serve.
std::string WordOf(const DeviceInfo& device) {
  for (const KnownDevice& known : kKnownDevices)
    if (known.model == device.model) return known.word;
  return {};
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

// upload

struct UploadArguments : DeviceArguments {
  ProgramArgument program;
};

ExitStatus Upload(const Session& session, const UploadArguments& arguments) {
  ModeListView document;
  const ExitStatus loaded = LoadArgument(session, arguments.program, document);
  if (loaded != ExitStatus::Success) return loaded;
  if (!OptimizeAllModes(document)) return ExitStatus::OperationFailed;

  UploadProgress progress(document, static_cast<int>(arguments.devices.size()));
  session.status.ListenToDeviceLog([&](const std::string& text) { progress.Listen(text); });
  return ServeDevices(
      session, arguments, [&](const DeviceInfo& info) { return UploadOperation(info, document); },
      [&] { return progress.Text(); });
}

Run DeclareUpload(CLI::App& app) {
  const auto arguments = std::make_shared<UploadArguments>();
  DeclareFile(app, arguments->program);
  DeclareDevices(app, *arguments);
  return [arguments](Session& session) { return Upload(session, *arguments); };
}

// demo

struct DemoArguments : DeviceArguments {
  ProgramArgument program;
  int seconds = 60;
};

ExitStatus Demo(const Session& session, const DemoArguments& arguments) {
  ModeListView document;
  const ExitStatus loaded = LoadArgument(session, arguments.program, document);
  if (loaded != ExitStatus::Success) return loaded;
  return ServeDevices(
      session, arguments,
      [&](const DeviceInfo& info) { return DemoOperation(info, document, arguments.seconds); }, DemoProgress);
}

Run DeclareDemo(CLI::App& app) {
  const auto arguments = std::make_shared<DemoArguments>();
  DeclareFile(app, arguments->program);
  DeclareDevices(app, *arguments);
  DeclareMode(app, arguments->program, false);
  app.add_option("--seconds", arguments->seconds, "How long the day takes")
      ->check(Unnamed(CLI::Range(1, TCBase::Program::kSecondsPerDay)))
      ->capture_default_str()
      ->type_name("S");
  return [arguments](Session& session) { return Demo(session, *arguments); };
}

// sync-time

struct SyncTimeArguments : DeviceArguments {
  std::string time;  // empty for the computer's
};

std::string CheckTime(const std::string& text) {
  return ParseDateTime(text) ? "" : "a time is written as in 2026-03-14 09:26:53, not " + text;
}

Run DeclareSyncTime(CLI::App& app) {
  const auto arguments = std::make_shared<SyncTimeArguments>();
  DeclareDevices(app, *arguments);
  app.add_option("--time", arguments->time, "The time to set, instead of the computer's")
      ->check(CLI::Validator(CheckTime, ""))
      ->type_name("\"yyyy-MM-dd HH:mm:ss\"");
  return [arguments](Session& session) {
    const DateTime time = ParseDateTime(arguments->time).value_or(platform::LocalTime());
    return ServeDevices(session, *arguments,
                        [&](const DeviceInfo& info) { return SyncTimeOperation(info, {}, time); });
  };
}

// clear

Run DeclareClear(CLI::App& app) {
  const auto arguments = std::make_shared<DeviceArguments>();
  DeclareDevices(app, *arguments);
  return [arguments](Session& session) {
    return ServeDevices(session, *arguments,
                        [](const DeviceInfo& info) { return ClearAllOperation(info, {}); });
  };
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

const Command kUpload = {
    "upload",
    "Store all modes of a program in a controller",
    R"(Modes of more than 48 steps are thinned out on the way; the file stays as it is. Ctrl+C stops behind the
mode that is being sent, a second one at once.
Examples:
  lumarinectl upload tank.xml --device tc420
  lumarinectl upload tank.xml --device emulator --trace      see every byte, without a controller)",
    &DeclareUpload,
};

const Command kDemo = {
    "demo",
    "Play a mode's day on a controller",
    R"(Ctrl+C stops the demo and gives the controller back to its own program, a second one ends at once.
Examples:
  lumarinectl demo tank.xml --device tc420                   the first mode, in a minute
  lumarinectl demo tank.xml --device tc420 --mode 2 --seconds 300)",
    &DeclareDemo,
};

const Command kSyncTime = {
    "sync-time",
    "Set a controller's clock",
    R"(Examples:
  lumarinectl sync-time --device tc420
  lumarinectl sync-time --device tc420 --time "2026-03-14 09:26:53")",
    &DeclareSyncTime,
};

const Command kClear = {
    "clear",
    "Make a controller forget all its modes",
    R"(Example:
  lumarinectl clear --device tc420)",
    &DeclareClear,
};

}  // namespace cli
