#pragma once

// Handlers of the Language menu, and of the translators' tools in the Help menu.

#include "app/handlers/command_context.h"
#include "localisation/translation_store.h"

namespace app {

/// The command's number tells which: English, or one by its place among the translations.
Changed ChooseLanguage(CommandContext& context);
Changed ExportTranslation(CommandContext& context);
/// Shows everything in the language that a translator tries out, from a file. The setting keeps the user's.
Changed TestTranslation(CommandContext& context);
/// No menu item: for those who build the program.
Changed MergeTranslation(CommandContext& context);

/// Says in the log which language is in use, and who translated it.
void AnnounceLanguage(TranslationStore& translations);

}  // namespace app
