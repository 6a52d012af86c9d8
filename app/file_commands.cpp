// Commands of the File and Help menus.

#include "app/commands.h"
#include "app/device_log.h"
#include "app/upload_check.h"
#include "dialogs/dlg_about.h"
#include "program/steps_text.h"

namespace app {

void Commands::NewProgram(int) {
  state_.document->NewProgram();
  state_.renderer->Rebuild();
}

void Commands::LoadProgram(int) {
  state_.document->Load();
  state_.renderer->Rebuild();
}

void Commands::SaveProgram(int) {
  state_.document->Save();
}

void Commands::SaveProgramAs(int) {
  state_.document->SaveFileAs();
}

void Commands::ProgramInfo(int) {
  TCBase::Program::LogModeSteps(state_.program);
}

void Commands::Exit(int) {
  if (state_.document->AskToSave()) shell_.mainWindow.Destroy();
}

void Commands::ToggleLogging(int) {
  ToggleDeviceLog(shell_.settings, shell_.deviceLogFile);
}

void Commands::ShowKnownIssues(int) {
  shell_.questions.Ask(KnownIssues(state_.program));
}

void Commands::ShowAbout(int) {
  dialogs::DlgAbout(shell_.dialogs).DoModal();
}

}  // namespace app
