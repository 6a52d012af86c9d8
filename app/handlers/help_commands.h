#pragma once

// Handlers of the Help menu that help where something is not known or does not work.

#include "app/handlers/command_context.h"

namespace app {

/// Opens the guide with whatever the user reads such pages with.
Changed ShowGuide(CommandContext& context);
/// Looks at what usually goes wrong between program and controllers.
Changed CheckUp(CommandContext& context);

}  // namespace app
