#include "devices/operations.h"

#include "common/log.h"
#include "common/message.h"
#include "common/platform.h"
#include "devices/demo_state.h"
#include "devices/shown_name.h"
#include "devices/tc420.h"
#include "devices/tc421.h"
#include "program/resample.h"

namespace TCBase {

namespace {

constexpr int kClearMilliseconds = 3000;
constexpr int kModeMilliseconds = 500;

bool KeepsHalfHours(const DeviceInfo& info) {
  return info.model == ModelTC421USB || info.model == ModelTC421UDP;
}

}  // namespace

bool MayIgnoreManySteps(const DeviceInfo& info) {
  return info.model == ModelTC420 || info.model == ModelEmulator;
}

DeviceBase::Steps StepsFor(const DeviceInfo& info, const Program::Mode& mode) {
  DeviceBase::Steps steps;
  if (KeepsHalfHours(info)) {
    Program::Mode resampled;
    Program::ResampleHalfHour(mode, resampled);
    Program::CollectModeSteps(resampled, steps);
  } else {
    Program::CollectModeSteps(mode, steps);
  }
  return steps;
}

std::unique_ptr<DeviceBase> CreateDevice(const DeviceInfo& info) {
  switch (info.model) {
    case ModelTC420:
      return std::make_unique<TC420::Device>();
    case ModelTC421USB:
      return std::make_unique<TC421::USBDevice>();
    case ModelTC421UDP:
      return std::make_unique<TC421::UDPDevice>(info);
    default:
      return std::make_unique<TC420::Mock>();
  }
}

std::unique_ptr<DeviceBase> ConnectDevice(const DeviceInfo& info, Exchange* exchange) {
  std::unique_ptr<DeviceBase> device = CreateDevice(info);
  if (device->Connect()) return device;
  if (exchange != nullptr) *exchange = device->Exchanged();
  LogStatus(Message("Connect error"));
  return nullptr;
}

namespace {

/// Does `operation` on a controller that is connected for it.
OperationReport WithDevice(const DeviceInfo& info,
                           const std::function<OperationReport(DeviceBase&)>& operation) {
  OperationReport report(OperationResult::NotConnected);
  const std::unique_ptr<DeviceBase> device = ConnectDevice(info, &report.exchange);
  if (device == nullptr) return report;
  report = operation(*device);
  report.exchange = device->Exchanged();
  return report;
}

/// Whether all packets that `send` gives to the device are confirmed.
bool IsConfirmed(const DeviceBase& device, const std::function<void()>& send) {
  const int before = device.Exchanged().unconfirmed;
  send();
  return device.Exchanged().unconfirmed == before;
}

/// True if the controller has confirmed the whole mode. The log has an error only where the device has.
bool UploadMode(DeviceBase& device, const DeviceInfo& info, int bank, const Program::Mode& mode) {
  const DeviceBase::Steps steps = StepsFor(info, mode);
  LogStatus(Message("Uploading mode: {1}", mode.name));
  bool taken = false;
  const bool confirmed = IsConfirmed(device, [&] { taken = device.UploadMode(bank, mode.name, steps); });
  if (!taken) LogStatus(Message("Upload error"));
  return taken && confirmed;
}

}  // namespace

OperationReport SyncTimeOperation(const DeviceInfo& info, const Program::ModeListView& /*program*/,
                                  const DateTime& time) {
  return WithDevice(info, [&](DeviceBase& device) {
    LogStatus(Message("Syncing time"));
    return OperationReport(device.TimeSync(time) ? OperationResult::Done : OperationResult::Failed);
  });
}

OperationReport ClearAllOperation(const DeviceInfo& info, const Program::ModeListView& /*program*/) {
  return WithDevice(info, [](DeviceBase& device) {
    LogStatus(Message("Clearing all modes"));
    const bool cleared = device.ClearAll();
    platform::SleepMilliseconds(kClearMilliseconds);
    return OperationReport(cleared ? OperationResult::Done : OperationResult::Failed);
  });
}

OperationReport UploadOperation(const DeviceInfo& info, const Program::ModeListView& program) {
  return WithDevice(info, [&](DeviceBase& device) {
    LogStatus(Message("Uploading started"));
    TakeCommand();
    demoState.SetIdle();
    device.UploadStart();
    OperationReport report;
    for (int bank = 0; const Program::Mode& mode : program.modes) {
      if (!UploadMode(device, info, bank++, mode)) report.unconfirmedModes.push_back(mode.name);
      platform::SleepMilliseconds(kModeMilliseconds);
      if (IsStop(TakeCommand())) {
        // For RunOnDevices, which has further controllers to leave alone.
        PostCommand(CommandStop);
        report.result = OperationResult::Cancelled;
        break;
      }
    }
    report.endUnconfirmed = !IsConfirmed(device, [&] { device.UploadFinish(); });
    // Also after a cancel or errors: it closes what "Uploading started" opened.
    LogStatus(Message("Uploading finished"));
    const bool confirmed = report.unconfirmedModes.empty() && !report.endUnconfirmed;
    if (report.result == OperationResult::Done && !confirmed) report.result = OperationResult::Failed;
    return report;
  });
}

OperationResult RunOnDevices(const std::function<OperationResult(const DeviceInfo&)>& operation,
                             const std::vector<DeviceInfo>& devices) {
  OperationResult first = OperationResult::Done;
  TakeCommand();
  for (const DeviceInfo& info : devices) {
    if (!info.selected) continue;
    LogStatus(Message("Configuring device {1}", ShownName(info.name)));
    const OperationResult result = operation(info);
    if (first == OperationResult::Done) first = result;
    if (IsStop(TakeCommand())) {
      LogStatus(Message("Cancelled!"));
      return OperationResult::Cancelled;
    }
    LogStatus(Message("Finished configuring device {1}", ShownName(info.name)));
  }
  return first;
}

}  // namespace TCBase
