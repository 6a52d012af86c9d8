#include "app/handlers/demo_control.h"

#include <algorithm>

#include "OvkLib/src/ovk_format.h"
#include "app/numbers.h"
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
      // Until the worker gets to it the state stays idle: a second press queues a second demo.
      worker.AddJob(TCBase::DemoJob(devices, program, seconds, context));
      worker.AddJob([&mainWindow] { NotifyDemoIdle(mainWindow); });
  }
}

std::string DayTimeText(std::int32_t second) {
  const std::int32_t shown = std::clamp(second, 0, TCBase::Program::kSecondsPerDay - 1);
  ovk::format text("{1}:{2}:{3}");
  text.arg(shown / 3600, 2);
  text.arg(shown % 3600 / 60, 2);
  text.arg(shown % 60, 2);
  return std::string(text.text().view());
}

}  // namespace app
