#pragma once

#include "program/program.h"

namespace app {

/// The document as it was last loaded or saved. Whether the program is modified is never remembered: it is
/// asked, by comparing (see SameProgram), so undoing back to what was saved leaves nothing to save.
struct SavedBaseline {
  explicit SavedBaseline(const TCBase::Program::ModeListView& document) : program(document), copy(document) {}

  const TCBase::Program::ModeListView& program;  // the live one
  TCBase::Program::ModeListView copy;
};

}  // namespace app
