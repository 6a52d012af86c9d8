#include "devices/jobs.h"

#include <string>
#include <utility>

#include "common/log.h"
#include "common/message.h"
#include "devices/operations.h"
#include "devices/scan.h"
#include "devices/shown_name.h"

namespace TCBase {

namespace {

// What the user has to be told behind an upload; empty if all went well, and if the user ended it.
std::string FailureOf(const DeviceInfo& info, const Program::ModeListView& program,
                      const OperationReport& report) {
  if (report.result == OperationResult::Done || report.result == OperationResult::Cancelled) return {};
  std::vector<std::string> modes = report.unconfirmedModes;
  if (report.exchange.packets == 0) {
    for (const Program::Mode& mode : program.modes) modes.push_back(mode.name);
  }
  const std::string name = ShownName(info.name);
  if (modes.empty()) {
    return Message("{1} has not confirmed the end of the upload. Please upload the program again.", name)
        .utf8();
  }
  std::string names;
  for (const std::string& mode : modes) names += (names.empty() ? "" : ", ") + mode;
  return Message("{1} has not confirmed these modes: {2}. Please upload the program again.", name, names)
      .utf8();
}

// An observer knows of the work for as long as it lives.
class Working {
 public:
  Working(OperationObserver& observer, int frames) : observer_(observer) { observer_.WorkBegins(frames); }
  ~Working() { observer_.WorkEnds(); }
  Working(const Working&) = delete;
  Working& operator=(const Working&) = delete;

 private:
  OperationObserver& observer_;
};

}  // namespace

Worker::Job TimeSyncJob(std::vector<DeviceInfo> devices, Program::ModeListView program, const DateTime& time,
                        const OperationContext& context) {
  return [devices = std::move(devices), program = std::move(program), time, context] {
    RunOnDevices(
        [&](const DeviceInfo& info) { return SyncTimeOperation(info, program, time, context).result; },
        devices, context);
  };
}

Worker::Job UploadJob(std::vector<DeviceInfo> devices, Program::ModeListView program,
                      const OperationContext& context) {
  return [devices = std::move(devices), program = std::move(program), context] {
    const Working working(context.observer, CountUploadFrames(program, devices));
    std::vector<std::string> replies;
    std::vector<std::string> failures;
    const auto upload = [&](const DeviceInfo& info) {
      const OperationReport report = UploadOperation(info, program, context);
      replies.push_back(LastReplyOf(info, report));
      failures.push_back(FailureOf(info, program, report));
      return report.result;
    };
    RunOnDevices(upload, devices, context);
    // Last, where they are seen: the lines of the modes are many.
    for (const std::string& reply : replies) {
      if (!reply.empty()) LogPlain(reply);
    }
    for (const std::string& failure : failures) {
      if (!failure.empty()) LogWarning(failure);
    }
  };
}

Worker::Job ClearJob(std::vector<DeviceInfo> devices, Program::ModeListView program,
                     const OperationContext& context) {
  return [devices = std::move(devices), program = std::move(program), context] {
    RunOnDevices([&](const DeviceInfo& info) { return ClearAllOperation(info, program, context).result; },
                 devices, context);
  };
}

Worker::Job DemoJob(std::vector<DeviceInfo> devices, Program::ModeListView program, int seconds,
                    const OperationContext& context) {
  return [devices = std::move(devices), program = std::move(program), seconds, context] {
    RunOnDevices(
        [&](const DeviceInfo& info) { return DemoOperation(info, program, seconds, context).result; },
        devices, context);
  };
}

Worker::Job ScanJob(Worker& worker, std::shared_ptr<EventTarget> window, std::uint32_t message,
                    OperationObserver& observer) {
  return [&worker, window = std::move(window), message, &observer] {
    const Working working(observer, 0);
    Scan(worker, *window, message);
  };
}

}  // namespace TCBase
