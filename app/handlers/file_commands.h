#pragma once

// Handlers of the File menu, but for the files of other tools, and of the Help menu, but for the translators'
// tools.

#include "app/handlers/command_context.h"

namespace app {

Changed NewProgram(CommandContext& context);
Changed LoadProgram(CommandContext& context);
Changed SaveProgram(CommandContext& context);
Changed SaveProgramAs(CommandContext& context);
Changed ShowProgramInfo(CommandContext& context);
Changed Exit(CommandContext& context);

Changed ToggleLogging(CommandContext& context);
Changed ShowKnownIssues(CommandContext& context);
Changed ShowAbout(CommandContext& context);

}  // namespace app
