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

}  // namespace app
