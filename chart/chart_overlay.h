#pragma once

// What a window's chart shows over and behind the program's own curves. Pictures have nothing of it.

#include <cstdint>
#include <optional>

#include "common/geometry.h"
#include "program/program.h"

namespace UX {

/// What the current mode's curves are compared with.
struct Comparison {
  enum class With {
    Nothing,
    Saved,  // the mode as it was last loaded or saved
    Kept,   // the mode that the user has kept for it
  };

  With with = With::Nothing;
  TCBase::Program::Mode kept;
  /// The document as it was last loaded or saved; null where there is none. It outlives the comparison.
  const TCBase::Program::ModeListView* saved = nullptr;
};

/// The mode whose curves stand behind those of the current mode; null if there is none. Of a saved document
/// it is the one of the same name, the one at the same place first, and where no name fits, the one at that
/// place in a document of as many modes.
const TCBase::Program::Mode* ModeBehind(const Comparison& comparison,
                                        const TCBase::Program::ModeListView& program);

struct ChartOverlay {
  Comparison comparison;
  std::optional<Rect> frame;  // drawn open to select steps, in the chart window's coordinates
};

}  // namespace UX
