#include "app/handlers/demo_control.h"

#include "app/window/numbers.h"
#include "common/platform.h"
#include "devices/jobs.h"

namespace app {

namespace {
constexpr int kRestMilliseconds = 500;
}

void NotifyDemoIdle(EventTarget& mainWindow) {
  platform::SleepMilliseconds(kRestMilliseconds);
  mainWindow.Post(WM_DEMO_STATE, 0, 0);
}

void PlayDemo(TCBase::Worker& worker, const TCBase::OperationContext& context,
              const std::vector<TCBase::DeviceInfo>& devices, const TCBase::Program::ModeListView& program,
              int seconds, EventTarget& mainWindow) {
  switch (context.demo.state) {
    case TCBase::StatePaused:
      return context.demo.PostCommand(TCBase::CommandResume);
    case TCBase::StatePlaying:
      return context.demo.PostCommand(TCBase::CommandPause);
    default:
      // The state stays idle until the worker gets to the job: a second press queues a second demo.
      worker.AddJob(TCBase::DemoJob(devices, program, seconds, context));
      worker.AddJob([&mainWindow] { NotifyDemoIdle(mainWindow); });
  }
}

}  // namespace app
