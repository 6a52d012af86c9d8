#pragma once

// Words of scripts for the WiFi wizard.

#include <cstddef>
#include <utility>
#include <vector>

#include "app/window/numbers.h"
#include "dialogs/dialog_template.h"
#include "tests/support/dialog_script.h"
#include "tests/support/user.h"

namespace in_wizard {

/// Presses the button that searches the network.
inline DialogStep Search() {
  return in_dialog::Press(dialogs::tc421_search_control::kSearch);
}
/// Waits until the search has found so many controllers.
inline DialogStep WaitForRows(std::size_t count) {
  return in_dialog::Await([count](const SeenDialog& seen) {
    return seen.controls.at(dialogs::tc421_search_control::kFound).rows.size() == count;
  });
}

/// Opens the wizard and goes through it, a script a page. False if the menu does not offer it.
inline bool Run(User& user, std::vector<DialogScript> pages) {
  for (DialogScript& page : pages) user.WillFill(std::move(page));
  return user.Choose(app::command::kSetupWifi);
}

}  // namespace in_wizard
