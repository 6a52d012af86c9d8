#pragma once

// Texts, enabling and check marks of the menu bar. Remembers nothing: all of it is computed anew each time.
// User interface thread.

#include <cstdint>
#include <span>
#include <vector>

#include "app/window/command.h"
#include "app/window/ports.h"
#include "program/program.h"

namespace app {

class MenuBar {
 public:
  /// All of these outlive the menu bar.
  MenuBar(const Shell& shell, std::span<const Command> commands,
          const TCBase::Program::StepSelection& selection);

  /// Writes all texts in the language in use, makes an item for each language that has none yet, and marks
  /// the one in use. At start-up and after a change of language.
  void ApplyTexts();

  /// Enabling and check marks. `demoPosition` negative stands for no demo.
  void Refresh(std::int32_t demoPosition, bool loggingOn);
  /// The same, and painted at once.
  void RefreshNow(std::int32_t demoPosition, bool loggingOn);

  void MarkLogging(bool on);

 private:
  /// Calls `action` with the command number of each language besides English, and the language.
  template <class Action>
  void ForEachLanguage(const Action& action) const;
  void FillLanguageMenu();
  void MarkLanguageMenu();
  void MarkDemoSpeed();

  const std::span<const Command> commands_;
  const std::vector<MenuPopup> menus_;
  MenuPort& menu_;
  Settings& settings_;
  const TCBase::Program::StepSelection& selection_;
  TranslationStore& translations_;
};

}  // namespace app
