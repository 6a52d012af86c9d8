// Commands of the Device menu. What takes time is a job for the worker, which gets copies of the device list
// and the program as they are at this moment.

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/commands.h"
#include "app/demo_control.h"
#include "app/name_dialog.h"
#include "app/numbers.h"
#include "app/upload_check.h"
#include "common/log.h"
#include "common/message.h"
#include "common/platform.h"
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

/// A job for no device is done at once and logs nothing of its own.
void TellIfNoneIsSelected(const std::vector<TCBase::DeviceInfo>& devices) {
  if (std::any_of(devices.begin(), devices.end(), [](const auto& device) { return device.selected; })) return;
  LogStatus(
      Message("No device is selected. Connect one by its USB cable, or choose \"{1}\" or \"{2}\", and then "
              "select it in the list.",
              Translate("Scan WiFi devices"), Translate("Add emulator")));
}

}  // namespace

void Commands::SyncTime(int) {
  state_.worker.AddJob(
      TCBase::TimeSyncJob(state_.devices, state_.program, platform::LocalTime(), state_.JobContext()));
  TellIfNoneIsSelected(state_.devices);
}

void Commands::SetTime(int) {
  dialogs::DateTimeParams params{kDialogPlace.x,
                                 kDialogPlace.y,
                                 Message("Set custom date and time").ToWide(),
                                 Message("Enter date and time").ToWide(),
                                 platform::LocalTime(),
                                 Message("OK").ToWide(),
                                 Message("Cancel").ToWide()};
  if (dialogs::DlgGetDateTime(shell_.dialogs, params).DoModal() != dialogs::kOk) return;
  state_.worker.AddJob(
      TCBase::TimeSyncJob(state_.devices, state_.program, params.dateTime, state_.JobContext()));
  TellIfNoneIsSelected(state_.devices);
}

void Commands::UploadProgram(int) {
  if (!CheckBeforeUpload(state_.program, state_.devices, shell_.questions)) return;
  state_.worker.AddJob(TCBase::UploadJob(state_.devices, state_.program, state_.JobContext()));
  TellIfNoneIsSelected(state_.devices);
}

void Commands::ClearAll(int) {
  state_.worker.AddJob(TCBase::ClearJob(state_.devices, state_.program, state_.JobContext()));
  TellIfNoneIsSelected(state_.devices);
}

void Commands::PlayDemo(int) {
  const bool starts = state_.demoState.state == TCBase::StateIdle;
  app::PlayDemo(state_.worker, state_.JobContext(), state_.devices, state_.program,
                shell_.settings.DemoSpeed(), shell_.mainWindow);
  if (starts) TellIfNoneIsSelected(state_.devices);
  state_.menuBar->RefreshNow(0, shell_.settings.LoggingEnabled());
}

void Commands::StopDemo(int) {
  state_.demoState.PostCommand(TCBase::CommandStop);
  state_.menuBar->RefreshNow(-1, shell_.settings.LoggingEnabled());
}

void Commands::SetDemoSpeed(int seconds) {
  shell_.settings.SetDemoSpeed(seconds);
  NotifyDemoIdle(shell_.mainWindow);
}

void Commands::AskDemoSpeed(int) {
  dialogs::GetValueParams params{true,
                                 kSpeedLength,
                                 kDialogPlace.x,
                                 kDialogPlace.y,
                                 Message("Enter playback speed").ToWide(),
                                 Message("Seconds to play whole demo (min 10, max 86400)").ToWide(),
                                 {},
                                 Message("OK").ToWide(),
                                 Message("Cancel").ToWide()};
  if (dialogs::DlgGetValue(shell_.dialogs, params).DoModal() != dialogs::kOk) return;
  // As the setting is read: letters, which can be pasted, end the number, and one too large is the largest.
  const long seconds = std::strtol(Utf8FromWide(params.value).c_str(), nullptr, 10);
  if (seconds >= Settings::kMinDemoSpeed && seconds <= Settings::kMaxDemoSpeed) {
    SetDemoSpeed(static_cast<int>(seconds));
  } else {
    shell_.questions.Ask(
        {Message("Invalid value").ToWide(), Message("Please enter value between 10 - 86400").ToWide()});
  }
}

void Commands::ScanWifi(int) {
  // Owned by nobody here: the main window outlives the worker.
  std::shared_ptr<EventTarget> window(std::shared_ptr<EventTarget>(), &shell_.mainWindow);
  state_.worker.AddJob(TCBase::ScanJob(state_.worker, std::move(window), WM_SCAN_FINISHED));
}

void Commands::SetupWifi(int) {
  static_assert(dialogs::DlgTC421_Search::kScanFinished == WM_SCAN_FINISHED);
  if (dialogs::DlgTC421_Init(shell_.dialogs).DoModal() != dialogs::kOk) return;
  dialogs::DlgTC421_Search search(shell_.dialogs, state_.worker);
  if (search.DoModal() != dialogs::kOk) return;
  dialogs::DlgTC421_Config config(shell_.dialogs, search.Device());
  if (config.DoModal() != dialogs::kOk) return;
  dialogs::DlgTC421_Success(shell_.dialogs, search.Device(), config.Config()).DoModal();
}

void Commands::AddEmulator(int) {
  if (TCBase::AddEmulator(state_.devices)) state_.ctrls->FillDeviceList();
}

void Commands::ReadDeviceSelection(int) {
  state_.ctrls->ReadDeviceSelection();
  shell_.mainWindow.TakeFocus();
}

void Commands::RenameDevice(int) {
  const auto index = static_cast<std::size_t>(state_.ctrls->SelectedDeviceIndex());
  if (index >= state_.devices.size()) return;
  // A copy: the list may be replaced while the dialog stands open.
  const TCBase::DeviceInfo device = state_.devices[index];
  if (device.model == TCBase::ModelTC421UDP) {
    AskDeviceName(device.name);
  } else {
    LogStatus(Message("You can rename WiFi devices only!"));
  }
  shell_.mainWindow.TakeFocus();
}

void Commands::AskDeviceName(const std::string& device) {
  Settings& settings = shell_.settings;
  dialogs::ModeNameParams params =
      NameDialog({"Device name", "Device name (max 15 characters)", "Device description", kDeviceNameLength},
                 DialogPlaceAbove(state_.chartLayout.DialogAnchorBottom()));
  params.name = WideFromUtf8(settings.GetDeviceValue("device", device, TCBase::ShownName(device)));
  params.description = WideFromUtf8(settings.GetDeviceValue("device_description", device, {}));
  if (dialogs::DlgModeName(shell_.dialogs, params).DoModal() != dialogs::kOk) return;
  settings.SetDeviceValue("device", device, Utf8FromWide(params.name));
  settings.SetDeviceValue("device_description", device, Utf8FromWide(params.description));
  state_.ctrls->FillDeviceList();
  state_.ctrls->ReadDeviceSelection();
}

}  // namespace app
