#pragma once

// Dialogs in memory: windows made of the templates' rows, filled by scripts told beforehand.

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "dialogs/dialog.h"
#include "tests/support/dialog_script.h"
#include "tests/support/improviser.h"

namespace headless {

/// A dialog without a script, a script that leaves its dialog open or goes on after it closed, and a step
/// that no user could take are mistakes of the test: std::logic_error.
class Dialogs final : public dialogs::DialogsPort {
 public:
  int Run(dialogs::DlgBase& dialog) override;

  std::deque<DialogScript> scripts;  // in the order in which they will be used
  Improviser* improviser = nullptr;  // who goes on behind the last; null: nobody
  std::vector<SeenDialog> seen;      // see User::Dialogs
  std::vector<std::string> links;    // addresses opened, in order

  struct Told {
    std::u16string title;
    std::u16string text;
    dialogs::Icon icon;
  };
  std::vector<Told> told;

  /// Called before each step of a script: what else goes on while a dialog stands open.
  std::function<void()> meanwhile;
};

}  // namespace headless
