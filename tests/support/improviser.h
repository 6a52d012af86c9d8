#pragma once

// Somebody who deals with whatever comes up: questions, file dialogs and dialogs that nobody was told to
// expect. See User::WillImprovise.

#include <filesystem>
#include <vector>

#include "app/window/ports.h"
#include "tests/support/dialog_script.h"

class Improviser {
 public:
  virtual ~Improviser() = default;

  /// One of the buttons that the question has.
  virtual app::Answer Answer(const app::Question& question) = 0;
  /// What to choose in a file dialog, one file or none; none cancels it.
  virtual std::vector<std::filesystem::path> Pick() = 0;
  /// What to do next in the dialog as it stands there now: something that its user can do. Asked until the
  /// dialog is closed.
  virtual DialogStep NextStep(const SeenDialog& dialog) = 0;
};
