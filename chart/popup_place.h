#pragma once

// Where a balloon goes so that it hides neither the edge of the chart nor the step under the mouse.

#include <cstdint>

#include "chart/chart_layout.h"

namespace UX {

/// Looks on a circle about the anchor, of twice the radius parameter, for a place where a box of this size is
/// wholly within `allowed` and clear of `avoid`. Two sweeps, both by way of the left: one begins below the
/// anchor, one above. The one that finds a place sooner wins, the upper one if they are even; if neither
/// does, the result is the last place that the upper one tried. Coordinates are bounded (see kFarthest),
/// sizes and radius a fraction of that.
Rect FindPopupPlace(const Rect& allowed, std::int32_t anchorX, std::int32_t anchorY, std::int32_t boxWidth,
                    std::int32_t boxHeight, std::int32_t radiusParameter, const Rect& avoid);

}  // namespace UX
