#pragma once

// Handlers of the mode list, its two buttons, and of the Mode menu.

#include <cstdint>

#include "app/handlers/command_context.h"

namespace app {

/// The user has chosen another mode in the list.
Changed SelectMode(CommandContext& context);
Changed AddMode(CommandContext& context);
Changed EditMode(CommandContext& context);
Changed DeleteMode(CommandContext& context);

Changed OptimizeModeForTC421(CommandContext& context);
/// Shows what the current mode's day comes to.
Changed ShowFigures(CommandContext& context);
/// Adds a step to each channel at a second of the day.
Changed AddEndpoint(CommandContext& context, std::int32_t second);
Changed Align(CommandContext& context, std::int32_t minutes);

// What the curves are compared with; once more, and it is nothing.

/// The mode as it was last loaded or saved.
Changed CompareWithSaved(CommandContext& context);
/// The current mode as it is now, whatever becomes of it and whichever is chosen then.
Changed CompareWithThis(CommandContext& context);

}  // namespace app
