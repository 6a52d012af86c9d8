#pragma once

// Handlers of the keys that move and zoom the view.

#include <cstdint>

#include "app/handlers/command_context.h"

namespace app {

Changed ZoomIn(CommandContext& context);
Changed ZoomOut(CommandContext& context);
Changed ShowWholeDay(CommandContext& context);
/// A distance that leads off the day stops at its end.
Changed Pan(CommandContext& context, std::int32_t seconds);

/// Shows the strip of mixed light, or takes it away.
Changed ToggleLightStrip(CommandContext& context);

}  // namespace app
