// Commands of the Device menu. What takes time is a job for the worker, which gets copies of the device list
// and the program as they are at this moment.

#include "app/commands.h"
#include "app/demo_control.h"
#include "app/upload_check.h"
#include "common/platform.h"
#include "devices/demo_state.h"
#include "devices/device_list.h"
#include "devices/jobs.h"

namespace app {

void Commands::SyncTime(int) {
  state_.worker.AddJob(TCBase::TimeSyncJob(state_.devices, state_.program, platform::LocalTime()));
}

void Commands::UploadProgram(int) {
  if (!CheckBeforeUpload(state_.program, state_.devices, shell_.questions)) return;
  state_.worker.AddJob(TCBase::UploadJob(state_.devices, state_.program));
}

void Commands::ClearAll(int) {
  state_.worker.AddJob(TCBase::ClearJob(state_.devices, state_.program));
}

void Commands::PlayDemo(int) {
  app::PlayDemo(state_.worker, state_.devices, state_.program, shell_.settings.DemoSpeed(),
                shell_.mainWindow);
  state_.menuBar->RefreshNow(0, shell_.settings.LoggingEnabled());
}

void Commands::StopDemo(int) {
  TCBase::PostCommand(TCBase::CommandStop);
  state_.menuBar->RefreshNow(-1, shell_.settings.LoggingEnabled());
}

void Commands::SetDemoSpeed(int seconds) {
  shell_.settings.SetDemoSpeed(seconds);
  NotifyDemoIdle(shell_.mainWindow);
}

void Commands::AddEmulator(int) {
  if (TCBase::AddEmulator(state_.devices)) state_.ctrls->FillDeviceList();
}

void Commands::ReadDeviceSelection(int) {
  state_.ctrls->ReadDeviceSelection();
  shell_.mainWindow.TakeFocus();
}

}  // namespace app
