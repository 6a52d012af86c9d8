#pragma once

// Handlers of the Channel menu. They act on the selected channel, and leave the program alone without one.

#include "app/handlers/command_context.h"

namespace app {

Changed DeleteStep(CommandContext& context);
Changed ToggleJump(CommandContext& context);
Changed CopySteps(CommandContext& context);
Changed PasteSteps(CommandContext& context);
Changed MoveStepsUp(CommandContext& context);
Changed MoveStepsDown(CommandContext& context);
Changed ClearSteps(CommandContext& context);
Changed ChangeColor(CommandContext& context);
Changed RenameChannel(CommandContext& context);
Changed AddTypedSteps(CommandContext& context);
Changed EditTypedSteps(CommandContext& context);
/// Without a selected channel, too.
Changed ShowStepTable(CommandContext& context);

}  // namespace app
