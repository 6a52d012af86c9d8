#pragma once

#include "app/handlers/command_context.h"

namespace app {

Changed ChangeSteps(CommandContext& context);

}  // namespace app
