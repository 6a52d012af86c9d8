#pragma once

// The place of a step's marker.

#include <cstdint>

#include "chart/chart_layout.h"
#include "program/program.h"

namespace UX {

struct MarkerCenter {
  std::int32_t x = 0;
  std::int32_t y = 0;
};
/// The step's point in a lane, within kFarthestMiddle whatever the step holds.
MarkerCenter GetMarkerCenter(const Rect& lane, const TCBase::Program::ModeListView& view,
                             const TCBase::Program::Step& step);

}  // namespace UX
