#pragma once

// The window's end of a demo: what Play, Stop and the speed commands ask of the worker.

#include <vector>

#include "common/event_target.h"
#include "devices/device_info.h"
#include "devices/operations.h"
#include "devices/worker.h"
#include "program/program.h"

namespace app {

/// Waits half a second, then posts WM_DEMO_STATE. Any thread; the wait is meant, it is what the user sees as
/// the pause between the end of a demo and the ready text.
void NotifyDemoIdle(EventTarget& mainWindow);

/// Starts a demo of the current mode, a day in `seconds`, on the selected devices, or pauses or resumes the
/// one that runs. The window hears by WM_DEMO_STATE when it is over.
void PlayDemo(TCBase::Worker& worker, const TCBase::OperationContext& context,
              const std::vector<TCBase::DeviceInfo>& devices, const TCBase::Program::ModeListView& program,
              int seconds, EventTarget& mainWindow);

}  // namespace app
