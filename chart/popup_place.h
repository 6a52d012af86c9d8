#pragma once

// Where a balloon goes so that it hides neither the edge of the chart nor the step under the mouse.

#include <cstdint>

#include "chart/chart_layout.h"
#include "chart/figure.h"

namespace UX {

/// The direction from `from` to `to` in radians, 0 to 2 pi, clockwise on the screen.
float AngleTo(Point from, Point to);

/// Looks on a circle about the anchor, of twice the radius parameter, for a place where a box of this size is
/// wholly within `allowed` and clear of `avoid`: both ways round from below, the shorter way wins. Without
/// any such place, the last one tried.
Rect FindPopupPlace(const Rect& allowed, std::int32_t anchorX, std::int32_t anchorY, std::int32_t boxWidth,
                    std::int32_t boxHeight, std::int32_t radiusParameter, const Rect& avoid);

}  // namespace UX
