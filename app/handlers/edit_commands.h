#pragma once

// Handlers of the Edit menu.

#include "app/handlers/command_context.h"

namespace app {

Changed UndoChange(CommandContext& context);
Changed RedoChange(CommandContext& context);

}  // namespace app
