#pragma once

// Texts, enabling and check marks of the menu bar. Remembers nothing: all of it is computed anew each time.
// User interface thread.

#include <cstdint>

#include "app/languages.h"
#include "app/ports.h"
#include "program/program.h"

namespace app {

class MenuBar {
 public:
  /// All of these outlive the menu bar.
  MenuBar(const Shell& shell, const TCBase::Program::StepSelection& selection, const Languages& languages);

  /// Writes all texts in the language in use, makes an item for each language that has none yet, and marks
  /// the one in use. At start-up and after a change of language.
  void ApplyTexts();

  /// Enabling and check marks. `demoPosition` negative stands for no demo.
  void Refresh(std::int32_t demoPosition, bool loggingOn);
  /// The same, and painted at once.
  void RefreshNow(std::int32_t demoPosition, bool loggingOn);

  void MarkLogging(bool on);

 private:
  /// Calls `action` with the command number of each language and the language.
  template <class Action>
  void ForEachLanguage(const Action& action) const;
  void ApplyLanguages();
  void MarkLanguage();
  void MarkDemoSpeed();

  MenuPort& menu_;
  Settings& settings_;
  const TCBase::Program::StepSelection& selection_;
  const Languages& languages_;
};

}  // namespace app
