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

std::unique_ptr<DeviceBase> ConnectDevice(const DeviceInfo& info) {
  std::unique_ptr<DeviceBase> device = CreateDevice(info);
  if (device->Connect()) return device;
  LogStatus(Message("Connect error"));
  return nullptr;
}

OperationResult SyncTimeOperation(const DeviceInfo& info, const Program::ModeListView& /*program*/,
                                  const DateTime& time) {
  const std::unique_ptr<DeviceBase> device = ConnectDevice(info);
  if (device == nullptr) return OperationResult::NotConnected;
  LogStatus(Message("Syncing time"));
  return device->TimeSync(time) ? OperationResult::Done : OperationResult::Failed;
}

OperationResult ClearAllOperation(const DeviceInfo& info, const Program::ModeListView& /*program*/) {
  const std::unique_ptr<DeviceBase> device = ConnectDevice(info);
  if (device == nullptr) return OperationResult::NotConnected;
  LogStatus(Message("Clearing all modes"));
  const bool cleared = device->ClearAll();
  platform::SleepMilliseconds(kClearMilliseconds);
  return cleared ? OperationResult::Done : OperationResult::Failed;
}

OperationResult UploadOperation(const DeviceInfo& info, const Program::ModeListView& program) {
  const std::unique_ptr<DeviceBase> device = ConnectDevice(info);
  if (device == nullptr) return OperationResult::NotConnected;
  LogStatus(Message("Uploading started"));
  TakeCommand();
  demoState.SetIdle();
  device->UploadStart();
  OperationResult result = OperationResult::Done;
  for (int bank = 0; const Program::Mode& mode : program.modes) {
    const DeviceBase::Steps steps = StepsFor(info, mode);
    LogStatus(Message("Uploading mode: {1}", mode.name));
    if (!device->UploadMode(bank++, mode.name, steps)) {
      LogStatus(Message("Upload error"));
      result = OperationResult::Failed;
    }
    platform::SleepMilliseconds(kModeMilliseconds);
    if (IsStop(TakeCommand())) {
      // For RunOnDevices, which has further controllers to leave alone.
      PostCommand(CommandStop);
      result = OperationResult::Cancelled;
      break;
    }
  }
  device->UploadFinish();
  // Also after a cancel or errors: it closes what "Uploading started" opened.
  LogStatus(Message("Uploading finished"));
  return result;
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
