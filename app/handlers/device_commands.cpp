#include "app/handlers/device_commands.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/handlers/demo_control.h"
#include "app/handlers/upload_check.h"
#include "app/window/name_dialog.h"
#include "app/window/numbers.h"
#include "common/log.h"
#include "common/message.h"
#include "common/platform.h"
#include "devices/controller_models.h"
#include "devices/device_list.h"
#include "devices/jobs.h"
#include "devices/shown_name.h"
#include "dialogs/dlg_get_date_time.h"
#include "dialogs/dlg_get_value.h"
#include "dialogs/dlg_mode_name.h"
#include "dialogs/dlg_tc421_config.h"
#include "dialogs/dlg_tc421_init.h"
#include "dialogs/dlg_tc421_search.h"
#include "dialogs/dlg_tc421_success.h"

namespace app {

namespace {

constexpr std::int32_t kSpeedLength = 20;

// A job for no device is done at once and logs nothing of its own.
void TellIfNoneIsSelected(const std::vector<TCBase::DeviceInfo>& devices) {
  if (std::any_of(devices.begin(), devices.end(), [](const auto& device) { return device.selected; })) return;
  LogStatus(
      Message("No device is selected. Connect one by its USB cable, or choose \"{1}\" or \"{2}\", and then "
              "select it in the list.",
              Translate("Scan WiFi devices"), Translate("Add emulator")));
}

void AddJob(AppState& state, TCBase::Worker::Job job) {
  state.worker.AddJob(std::move(job));
  TellIfNoneIsSelected(state.devices);
}

void SetDemoSpeed(const Shell& shell, std::int32_t seconds) {
  shell.settings.SetDemoSpeed(seconds);
  NotifyDemoIdle(shell.mainWindow);
}

void AskDeviceName(const CommandContext& context, const std::string& device) {
  AppState& state = context.state;
  Settings& settings = context.shell.settings;
  dialogs::ModeNameParams params =
      NameDialog({TextKey("Device name"), TextKey("Device name (max 15 characters)"),
                  TextKey("Device description"), kDeviceNameLength},
                 DialogPlaceAbove(state.chartLayout.DialogAnchorBottom()));
  params.name = WideFromUtf8(settings.GetDeviceValue("device", device, TCBase::ShownName(device)));
  params.description = WideFromUtf8(settings.GetDeviceValue("device_description", device, {}));
  if (dialogs::DlgModeName(context.shell.dialogs, params).DoModal() != dialogs::kOk) return;
  settings.SetDeviceValue("device", device, Utf8FromWide(params.name));
  settings.SetDeviceValue("device_description", device, Utf8FromWide(params.description));
  // The list is filled before it is read, and so is not among what the command refreshes.
  state.ctrls->FillDeviceList();
  state.ctrls->ReadDeviceSelection();
}

}  // namespace

Changed SyncTime(CommandContext& context) {
  AppState& state = context.state;
  AddJob(state, TCBase::TimeSyncJob(state.devices, state.program, platform::LocalTime(), state.JobContext()));
  return Changed::No;
}

Changed SetTime(CommandContext& context) {
  AppState& state = context.state;
  dialogs::DateTimeParams params{kDialogPlace.x,
                                 kDialogPlace.y,
                                 Message("Set custom date and time").ToWide(),
                                 Message("Enter date and time").ToWide(),
                                 platform::LocalTime(),
                                 Message("OK").ToWide(),
                                 Message("Cancel").ToWide()};
  if (dialogs::DlgGetDateTime(context.shell.dialogs, params).DoModal() != dialogs::kOk) return Changed::No;
  AddJob(state, TCBase::TimeSyncJob(state.devices, state.program, params.dateTime, state.JobContext()));
  return Changed::No;
}

Changed UploadProgram(CommandContext& context) {
  AppState& state = context.state;
  if (!CheckBeforeUpload(state.program, state.devices, context.shell.questions)) return Changed::No;
  AddJob(state, TCBase::UploadJob(state.devices, state.program, state.JobContext()));
  return Changed::No;
}

Changed ClearAll(CommandContext& context) {
  AppState& state = context.state;
  AddJob(state, TCBase::ClearJob(state.devices, state.program, state.JobContext()));
  return Changed::No;
}

Changed PlayOrPauseDemo(CommandContext& context) {
  AppState& state = context.state;
  const bool starts = state.demoState.state == TCBase::StateIdle;
  PlayDemo(state.worker, state.JobContext(), state.devices, state.program, context.shell.settings.DemoSpeed(),
           context.shell.mainWindow);
  if (starts) TellIfNoneIsSelected(state.devices);
  return Changed::No;
}

Changed StopDemo(CommandContext& context) {
  context.state.demoState.PostCommand(TCBase::CommandStop);
  return Changed::No;
}

Changed ChooseDemoSpeed(CommandContext& context) {
  const DemoSpeed* const speed = std::ranges::find(kDemoSpeeds, context.number, &DemoSpeed::command);
  SetDemoSpeed(context.shell, speed->seconds);
  return Changed::No;
}

Changed AskDemoSpeed(CommandContext& context) {
  dialogs::GetValueParams params{true,
                                 kSpeedLength,
                                 kDialogPlace.x,
                                 kDialogPlace.y,
                                 Message("Enter playback speed").ToWide(),
                                 Message("Seconds to play whole demo (min 10, max 86400)").ToWide(),
                                 {},
                                 Message("OK").ToWide(),
                                 Message("Cancel").ToWide()};
  if (dialogs::DlgGetValue(context.shell.dialogs, params).DoModal() != dialogs::kOk) return Changed::No;
  // The setting is read the same way: letters, which can be pasted, end the number, and a number that is too
  // large is the largest there is.
  const long seconds = std::strtol(Utf8FromWide(params.value).c_str(), nullptr, 10);
  if (seconds >= Settings::kMinDemoSpeed && seconds <= Settings::kMaxDemoSpeed) {
    SetDemoSpeed(context.shell, static_cast<std::int32_t>(seconds));
  } else {
    context.shell.questions.Ask(
        {Message("Invalid value").ToWide(), Message("Please enter value between 10 - 86400").ToWide()});
  }
  return Changed::No;
}

Changed ScanWifi(CommandContext& context) {
  TCBase::Worker& worker = context.state.worker;
  // Owned by nobody here: the main window outlives the worker.
  std::shared_ptr<EventTarget> window(std::shared_ptr<EventTarget>(), &context.shell.mainWindow);
  worker.AddJob(TCBase::ScanJob(worker, std::move(window), WM_SCAN_FINISHED, context.state.workProgress));
  return Changed::No;
}

Changed SetupWifi(CommandContext& context) {
  static_assert(dialogs::DlgTC421_Search::kScanFinished == WM_SCAN_FINISHED);
  dialogs::DialogsPort& port = context.shell.dialogs;
  if (dialogs::DlgTC421_Init(port).DoModal() != dialogs::kOk) return Changed::No;
  dialogs::DlgTC421_Search search(port, context.state.worker);
  if (search.DoModal() != dialogs::kOk) return Changed::No;
  dialogs::DlgTC421_Config config(port, search.Device());
  if (config.DoModal() != dialogs::kOk) return Changed::No;
  dialogs::DlgTC421_Success(port, search.Device(), config.Config()).DoModal();
  return Changed::No;
}

Changed AddEmulator(CommandContext& context) {
  return TCBase::AddEmulator(context.state.devices) ? Changed::Yes : Changed::No;
}

Changed ReadDeviceSelection(CommandContext& context) {
  context.state.ctrls->ReadDeviceSelection();
  return Changed::No;
}

Changed RenameDevice(CommandContext& context) {
  AppState& state = context.state;
  const auto index = static_cast<std::size_t>(state.ctrls->SelectedDeviceIndex());
  if (index >= state.devices.size()) return Changed::No;
  // A copy: the list may be replaced while the dialog stands open.
  const TCBase::DeviceInfo device = state.devices[index];
  if (TCBase::IsOnNetwork(device)) {
    AskDeviceName(context, device.name);
  } else {
    LogStatus(Message("You can rename WiFi devices only!"));
  }
  return Changed::Yes;
}

}  // namespace app
