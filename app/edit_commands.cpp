// Commands of the Edit menu and of the view.

#include "app/commands.h"
#include "common/log.h"
#include "common/message.h"

namespace app {

void Commands::UndoChange(int) {
  if (!state_.undoStack.Undo()) return;
  LogStatus(Message("Undo"));
  RefreshAfterHistory();
}

void Commands::RedoChange(int) {
  if (!state_.undoStack.Redo()) return;
  LogStatus(Message("Redo"));
  RefreshAfterHistory();
}

void Commands::RefreshAfterHistory() {
  state_.ctrls->FillModeList();
  state_.powerControl->Update();
  state_.renderer->Rebuild();  // names, colours and view may be others now
  state_.chartInput.InvalidateChart();
}

void Commands::ZoomIn(int) {
  state_.viewControl->ZoomIn();
}

void Commands::ZoomOut(int) {
  state_.viewControl->ZoomOut();
}

void Commands::ShowHours(int hours) {
  state_.viewControl->ShowHours(static_cast<float>(hours));
}

void Commands::Pan(int seconds) {
  state_.viewControl->Pan(seconds);
}

}  // namespace app
