#pragma once

// Handlers of the Device menu, the device list and the buttons of a demo. What takes time is a job for the
// worker, which gets copies of the device list and the program as they are at this moment.

#include "app/handlers/command_context.h"

namespace app {

Changed SyncTime(CommandContext& context);
Changed SetTime(CommandContext& context);
Changed UploadProgram(CommandContext& context);
Changed ClearAll(CommandContext& context);

/// Starts a demo, or pauses or resumes the one that runs.
Changed PlayOrPauseDemo(CommandContext& context);
Changed StopDemo(CommandContext& context);
/// The command's number tells the speed, see kDemoSpeeds.
Changed ChooseDemoSpeed(CommandContext& context);
Changed AskDemoSpeed(CommandContext& context);

Changed ScanWifi(CommandContext& context);
Changed SetupWifi(CommandContext& context);
Changed AddEmulator(CommandContext& context);

/// The user has selected other devices in the list.
Changed ReadDeviceSelection(CommandContext& context);
Changed RenameDevice(CommandContext& context);

}  // namespace app
