// What is done to controllers: upload, demo, sync-time and clear.

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/commands.h"
#include "cli/options.h"
#include "cli/program_argument.h"
#include "cli/progress.h"
#include "cli/serve.h"
#include "cli/text.h"
#include "common/message.h"
#include "common/platform.h"
#include "devices/controller_models.h"
#include "program/mode_commands.h"

namespace cli {

namespace {

using TCBase::DeviceInfo;
using TCBase::OperationContext;
using TCBase::Program::ModeListView;

// upload

struct UploadArguments : DeviceArguments {
  ProgramArgument program;
};

// What the desktop program asks about before an upload.
void WarnOfManySteps(const Session& session, const ModeListView& document,
                     const std::vector<DeviceInfo>& devices) {
  const auto mayIgnore = [](const DeviceInfo& device) {
    return TCBase::ControllerModelOf(device).mayIgnoreManySteps;
  };
  if (std::ranges::none_of(devices, mayIgnore)) return;
  for (const TCBase::Program::Mode& mode : document.modes) {
    const int steps = CountModeSteps(mode);
    if (steps > TCBase::Program::kManyModeSteps)
      session.status.Print(Message("Mode {1} has {2} steps. Some {3} devices ignore all beyond the first 20; "
                                   "\"lumarinectl edit --align\" makes them fewer.",
                                   mode.name, steps, TCBase::kTC420Name)
                               .utf8());
  }
}

ExitStatus Upload(const Session& session, const UploadArguments& arguments) {
  ModeListView document;
  const ExitStatus loaded = LoadArgument(session, arguments.program, document);
  if (loaded != ExitStatus::Success) return loaded;
  if (!OptimizeAllModes(document)) return ExitStatus::OperationFailed;

  const std::vector<DeviceInfo> devices = DevicesOf(arguments);
  WarnOfManySteps(session, document, devices);
  UploadProgress progress(document, devices);
  std::vector<std::string> replies;
  const ExitStatus served = ServeDevices(session, arguments,
                                         {.operation =
                                              [&](const DeviceInfo& info, const OperationContext& context) {
                                                TCBase::OperationReport report =
                                                    UploadOperation(info, document, context);
                                                replies.push_back(LastReplyOf(info, report));
                                                return report;
                                              },
                                          .progress = [&] { return progress.Line(); },
                                          .observer = progress,
                                          .stopsBehindMode = true});
  for (const std::string& reply : replies) {
    if (!reply.empty()) session.status.Print(reply);
  }
  return served;
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
  std::string from;  // empty for midnight
};

// Has a demo go to a time of the day as soon as it plays.
class Seek final : public TCBase::OperationObserver {
 public:
  // `next` hears everything; it and `demo` outlive the seek.
  Seek(std::optional<int> second, TCBase::DemoState& demo, TCBase::OperationObserver& next)
      : second_(second), demo_(demo), next_(next) {}

  void DemoAt(std::int32_t second) override {
    // A demo empties the command slot as it begins: before this a seek would be lost.
    if (second_) demo_.PostSeek(*std::exchange(second_, std::nullopt));
    next_.DemoAt(second);
  }
  void DemoEnded() override { next_.DemoEnded(); }

 private:
  std::optional<int> second_;  // none once it is posted
  TCBase::DemoState& demo_;
  TCBase::OperationObserver& next_;
};

ExitStatus Demo(const Session& session, const DemoArguments& arguments) {
  ModeListView document;
  const ExitStatus loaded = LoadArgument(session, arguments.program, document);
  if (loaded != ExitStatus::Success) return loaded;
  std::optional<int> from;
  if (const auto minute = ParseTimeOfDay(arguments.from)) from = *minute * TCBase::Program::kSecondsPerMinute;
  DemoProgress progress;
  return ServeDevices(
      session, arguments,
      {.operation =
           [&](const DeviceInfo& info, const OperationContext& context) {
             Seek seek(from, context.demo, context.observer);
             return DemoOperation(info, document, arguments.seconds, {context.demo, context.stop, seek});
           },
       .progress = [&] { return progress.Line(); },
       .observer = progress});
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
  app.add_option("--from", arguments->from, "Go to this time of the day as soon as the demo plays")
      ->check(CLI::Validator(CheckTimeOfDay, ""))
      ->type_name("HH:MM");
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
                        {.operation = [&](const DeviceInfo& info, const OperationContext& context) {
                          return SyncTimeOperation(info, {}, time, context);
                        }});
  };
}

// clear

Run DeclareClear(CLI::App& app) {
  const auto arguments = std::make_shared<DeviceArguments>();
  DeclareDevices(app, *arguments);
  return [arguments](Session& session) {
    return ServeDevices(session, *arguments,
                        {.operation = [](const DeviceInfo& info, const OperationContext& context) {
                          return ClearAllOperation(info, {}, context);
                        }});
  };
}

}  // namespace

const Command kUpload = {
    "upload",
    "Store all modes of a program in a controller",
    R"(Modes of more than 48 steps are thinned out on the way; the file stays as it is. Ctrl+C stops behind the
mode that is being sent, a second one at once.
Examples:
  lumarinectl upload tank.xml --device tc420
  lumarinectl upload tank.xml --device udp:Smart-123456@192.168.4.1
  lumarinectl upload tank.xml --device emulator --trace      see every byte, without a controller)",
    &DeclareUpload,
};

const Command kDemo = {
    "demo",
    "Play a mode's day on a controller",
    R"(Ctrl+C stops the demo and gives the controller back to its own program, a second one ends at once.
Examples:
  lumarinectl demo tank.xml --device tc420                   the first mode, in a minute
  lumarinectl demo tank.xml --device tc420 --mode 2 --seconds 300
  lumarinectl demo tank.xml --device tc420 --from 18:00      the evening, in a quarter of a minute)",
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
