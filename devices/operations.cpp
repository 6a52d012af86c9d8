#include "devices/operations.h"

#include <cstdio>
#include <string_view>

#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "common/platform.h"
#include "devices/shown_name.h"
#include "devices/tc420.h"
#include "devices/tc421.h"
#include "devices/usb_rights.h"
#include "devices/usb_rule.h"
#include "program/resample.h"

namespace TCBase {

namespace {

constexpr int kClearMilliseconds = 3000;
constexpr int kModeMilliseconds = 500;

}  // namespace

DeviceBase::Steps StepsFor(const DeviceInfo& info, const Program::Mode& mode) {
  DeviceBase::Steps steps;
  if (ControllerModelOf(info).keeps == Keeps::HalfHours) {
    Program::Mode resampled;
    Program::ResampleHalfHour(mode, resampled);
    Program::CollectModeSteps(resampled, steps);
  } else {
    Program::CollectModeSteps(mode, steps);
  }
  return steps;
}

namespace {

// A mode is its rows between an opening and a closing frame. One more ends the upload to a TC420; a TC421
// gets a row for each half hour.
int CountFrames(const Program::ModeListView& program, const DeviceInfo& info) {
  constexpr int kHalfHours = 48;
  const ControllerModel& model = ControllerModelOf(info);
  const bool halfHours = model.keeps == Keeps::HalfHours;
  int frames = model.family == Family::TC420 ? 1 : 0;
  for (const Program::Mode& mode : program.modes)
    frames += (halfHours ? kHalfHours : CountModeSteps(mode)) + 2;
  return frames;
}

}  // namespace

int CountUploadFrames(const Program::ModeListView& program, const std::vector<DeviceInfo>& devices) {
  int frames = 0;
  for (const DeviceInfo& info : devices) frames += info.selected ? CountFrames(program, info) : 0;
  return frames;
}

OperationResult FailureOf(const DeviceInfo& info, const Exchange& exchange) {
  if (exchange.portTaken) return OperationResult::PortTaken;
  // Silence says less on a cable: an emulator never answers, and a TC420 need not.
  const bool silent = exchange.packets > 0 && exchange.replies == 0;
  return IsOnNetwork(info) && silent ? OperationResult::NoAnswer : OperationResult::Failed;
}

std::unique_ptr<DeviceBase> CreateDevice(const DeviceInfo& info, OperationObserver& observer) {
  switch (info.model) {
    case ModelTC420:
      return std::make_unique<TC420::Device>(observer);
    case ModelTC421USB:
      return std::make_unique<TC421::USBDevice>(observer);
    case ModelTC421UDP:
      return std::make_unique<TC421::UDPDevice>(info, observer);
    default:
      return std::make_unique<TC420::Mock>(observer);
  }
}

void WarnOfRights(const ControllerModel& model) {
  if (const auto rule = InstalledUsbRule()) {
    LogWarning(
        Message(
            "{1} is plugged in, but this user may not open it, though {2} is installed. Plug it in again. "
            "The rule counts for who is logged in at this computer itself, not over ssh.",
            model.name, Utf8FromPath(*rule))
            .utf8());
    return;
  }
  LogWarning(
      Message("{1} is plugged in, but this user may not open it. This command changes that once and for "
              "all: {2}",
              model.name, platform::RightsCommand())
          .utf8());
}

OperationReport WithDevice(
    const DeviceInfo& info, OperationObserver& observer,
    const std::function<OperationReport(DeviceBase& device, const ExchangeCount& count)>& operation) {
  ExchangeCount count(observer);
  const std::unique_ptr<DeviceBase> device = CreateDevice(info, count);
  OperationReport report(OperationResult::NotConnected);
  if (device->Connect()) {
    report = operation(*device, count);
  } else {
    LogStatus(Message("Connect error"));
    if (device->IsForbidden()) {
      report.result = OperationResult::Forbidden;
      WarnOfRights(ControllerModelOf(info));
    }
  }
  report.exchange = count.Counted();
  if (report.exchange.portTaken || report.result == OperationResult::Failed) {
    report.result = FailureOf(info, report.exchange);
  }
  return report;
}

bool TakeStop(const OperationContext& context) {
  const bool posted = IsStop(context.demo.TakeCommand());
  return posted || context.stop.stop_requested();
}

namespace {

// Whether all packets that `send` gives to the device are confirmed.
bool AreConfirmed(const ExchangeCount& count, const std::function<void()>& send) {
  const int before = count.Counted().unconfirmed;
  send();
  return count.Counted().unconfirmed == before;
}

// True if the controller has confirmed the whole mode. The log has an error only where the device has.
bool UploadMode(DeviceBase& device, const ExchangeCount& count, const DeviceInfo& info, int bank,
                const Program::Mode& mode) {
  const DeviceBase::Steps steps = StepsFor(info, mode);
  LogStatus(Message("Uploading mode: {1}", mode.name));
  bool taken = false;
  const bool confirmed = AreConfirmed(count, [&] { taken = device.UploadMode(bank, mode.name, steps); });
  if (!taken) LogStatus(Message("Upload error"));
  return taken && confirmed;
}

}  // namespace

OperationReport SyncTimeOperation(const DeviceInfo& info, const Program::ModeListView& /*program*/,
                                  const DateTime& time, const OperationContext& context) {
  return WithDevice(info, context.observer, [&](DeviceBase& device, const ExchangeCount&) {
    LogStatus(Message("Syncing time"));
    return OperationReport(device.TimeSync(time) ? OperationResult::Done : OperationResult::Failed);
  });
}

OperationReport ClearAllOperation(const DeviceInfo& info, const Program::ModeListView& /*program*/,
                                  const OperationContext& context) {
  return WithDevice(info, context.observer, [](DeviceBase& device, const ExchangeCount&) {
    LogStatus(Message("Clearing all modes"));
    const bool cleared = device.ClearAll();
    platform::SleepMilliseconds(kClearMilliseconds);
    return OperationReport(cleared ? OperationResult::Done : OperationResult::Failed);
  });
}

OperationReport UploadOperation(const DeviceInfo& info, const Program::ModeListView& program,
                                const OperationContext& context) {
  return WithDevice(info, context.observer, [&](DeviceBase& device, const ExchangeCount& count) {
    LogStatus(Message("Uploading started"));
    context.demo.TakeCommand();
    context.demo.SetIdle();
    device.UploadStart();
    OperationReport report;
    for (int bank = 0; const Program::Mode& mode : program.modes) {
      if (!UploadMode(device, count, info, bank++, mode)) report.unconfirmedModes.push_back(mode.name);
      platform::SleepMilliseconds(kModeMilliseconds);
      if (TakeStop(context)) {
        // RunOnDevices looks for it, since it has further controllers to leave alone.
        context.demo.PostCommand(CommandStop);
        report.result = OperationResult::Cancelled;
        break;
      }
    }
    report.endUnconfirmed = !AreConfirmed(count, [&] { device.UploadFinish(); });
    // The line comes after a cancel or errors, too: it closes what "Uploading started" opened.
    LogStatus(Message("Uploading finished"));
    const bool confirmed = report.unconfirmedModes.empty() && !report.endUnconfirmed;
    if (report.result == OperationResult::Done && !confirmed) report.result = OperationResult::Failed;
    return report;
  });
}

std::string LastReplyOf(const DeviceInfo& info, const OperationReport& upload) {
  if (upload.result != OperationResult::Done || upload.exchange.replies == 0) return {};
  char seconds[32];
  std::snprintf(seconds, sizeof seconds, "%.1f", upload.exchange.lastReply);
  return Message("The last answer of {1} came {2} s after the upload began.", ShownName(info.name),
                 std::string_view(seconds))
      .utf8();
}

OperationResult RunOnDevices(const std::function<OperationResult(const DeviceInfo&)>& operation,
                             const std::vector<DeviceInfo>& devices, const OperationContext& context) {
  OperationResult first = OperationResult::Done;
  context.demo.TakeCommand();
  for (const DeviceInfo& info : devices) {
    if (!info.selected) continue;
    LogStatus(Message("Configuring device {1}", ShownName(info.name)));
    const OperationResult result = operation(info);
    if (first == OperationResult::Done) first = result;
    if (TakeStop(context)) {
      LogStatus(Message("Cancelled!"));
      return OperationResult::Cancelled;
    }
    LogStatus(Message("Finished configuring device {1}", ShownName(info.name)));
  }
  return first;
}

}  // namespace TCBase
