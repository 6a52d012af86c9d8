#pragma once

// Handlers for modes to and from the files of other tools.

#include "app/handlers/command_context.h"
#include "program/mode_file.h"

namespace app {

/// A kind of file and how file dialogs show it.
struct ExchangeFormat {
  FileFilter filter;
  const TCBase::Program::ModeFileKind& kind;
};
extern const ExchangeFormat kTmf;
extern const ExchangeFormat kLmf;
extern const ExchangeFormat kRaw;

/// The entry in the history is made before the dialog, and stays when the user cancels.
Changed ImportModes(CommandContext& context, const ExchangeFormat* format);
Changed ExportMode(CommandContext& context, const ExchangeFormat* format);

/// No menu item: for trying controllers and the other tools out. Also writes the mode as a file into the
/// working folder.
Changed AddRandomMode(CommandContext& context);

}  // namespace app
