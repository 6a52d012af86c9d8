#pragma once

// Handlers of the Edit menu.

#include "app/handlers/command_context.h"

namespace app {

Changed UndoChange(CommandContext& context);
Changed RedoChange(CommandContext& context);
/// All steps of the channel, and once more all of the mode; by its key in the log pane, the log's text.
Changed SelectAllSteps(CommandContext& context);
Changed ToggleCarefulMouse(CommandContext& context);

}  // namespace app
