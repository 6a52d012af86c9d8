#include "app/handlers/edit_commands.h"

#include "common/log.h"
#include "common/message.h"

namespace app {

Changed UndoChange(CommandContext& context) {
  if (!context.state.undoStack.Undo()) return Changed::No;
  LogStatus(Message("Undo"));
  return Changed::Yes;
}

Changed RedoChange(CommandContext& context) {
  if (!context.state.undoStack.Redo()) return Changed::No;
  LogStatus(Message("Redo"));
  return Changed::Yes;
}

Changed SelectAllSteps(CommandContext& context) {
  LogPanePort& log = context.shell.logPane;
  if (context.fromKey && log.HasFocus()) {
    log.SelectAll();
    return Changed::No;
  }
  context.state.chartInput.SelectAllSteps();
  return Changed::Yes;
}

Changed ToggleCarefulMouse(CommandContext& context) {
  Settings& settings = context.shell.settings;
  const bool on = !settings.IsOn(kCarefulMouseSetting);
  settings.SetOn(kCarefulMouseSetting, on);
  LogStatus(on ? Message("Careful mouse: a double click adds a step, and a drag begins after {1} pixels.",
                         kCarefulPixels)
               : Message("The mouse is no longer careful: a click adds a step."));
  return Changed::No;
}

}  // namespace app
