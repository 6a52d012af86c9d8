#pragma once

// Handlers of the File menu, but for the files of other tools, and of the Help menu, but for the translators'
// tools.

#include "app/handlers/command_context.h"
#include "program/templates.h"

namespace app {

Changed NewProgram(CommandContext& context);
/// The same with the template's mode, of which the log tells.
Changed NewFromTemplate(CommandContext& context, const TCBase::Program::ProgramTemplate* from);
Changed LoadProgram(CommandContext& context);
Changed SaveProgram(CommandContext& context);
Changed SaveProgramAs(CommandContext& context);
Changed ShowProgramInfo(CommandContext& context);
Changed Exit(CommandContext& context);

Changed ToggleLogging(CommandContext& context);
Changed ShowKnownIssues(CommandContext& context);
Changed ShowAbout(CommandContext& context);

}  // namespace app
