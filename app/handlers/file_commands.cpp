#include "app/handlers/file_commands.h"

#include <utility>

#include "app/handlers/device_log.h"
#include "app/handlers/upload_check.h"
#include "common/log.h"
#include "common/message.h"
#include "dialogs/dlg_about.h"
#include "program/steps_text.h"

namespace app {

// These handlers refresh nothing. The document does so itself when it takes another program, since that also
// comes from a file dropped on the window.

Changed NewProgram(CommandContext& context) {
  context.state.document->NewProgram();
  return Changed::No;
}

Changed NewFromTemplate(CommandContext& context, const TCBase::Program::ProgramTemplate* from) {
  TCBase::Program::ModeListView program = NewProgramFrom(*from);
  const TCBase::Program::Mode mode = program.modes.front();
  if (!context.state.document->StartOver(std::move(program))) return Changed::No;
  LogStatus(Message("New program \"{1}\". {2}", mode.name, mode.description));
  return Changed::No;
}

Changed LoadProgram(CommandContext& context) {
  context.state.document->Load();
  return Changed::No;
}

Changed SaveProgram(CommandContext& context) {
  context.state.document->Save();
  return Changed::No;
}

Changed SaveProgramAs(CommandContext& context) {
  context.state.document->SaveFileAs();
  return Changed::No;
}

Changed ShowProgramInfo(CommandContext& context) {
  TCBase::Program::LogModeSteps(context.state.program);
  return Changed::No;
}

Changed Exit(CommandContext& context) {
  if (context.state.document->AskToSave()) context.shell.mainWindow.Destroy();
  return Changed::No;
}

Changed ToggleLogging(CommandContext& context) {
  ToggleDeviceLog(context.shell.settings, context.shell.deviceLogFile);
  return Changed::No;
}

Changed ShowKnownIssues(CommandContext& context) {
  context.shell.questions.Ask(KnownIssues(context.state.program));
  return Changed::No;
}

Changed ShowAbout(CommandContext& context) {
  dialogs::DlgAbout(context.shell.dialogs).DoModal();
  return Changed::No;
}

}  // namespace app
