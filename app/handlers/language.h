#pragma once

// The language that the window speaks. User interface thread.

#include <string_view>

#include "app/app_state.h"
#include "app/window/ports.h"
#include "localisation/translation_store.h"

namespace app {

/// Makes a language the one in use and shows everything in it: menus, chart, labels, mode list and demo. All
/// but the zoom slider's label and the window's title, which stay as they are. With an id that is not known
/// the language stays, and all is shown anew.
void ApplyLanguage(AppState& state, const Shell& shell, std::string_view id);

/// Says in the log which language is in use, and who translated it.
void AnnounceLanguage(TranslationStore& translations);

}  // namespace app
