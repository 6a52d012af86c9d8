#pragma once

// Finds a place for a balloon where it hides neither the edge of the chart nor the step under the mouse.

#include <cstdint>

#include "chart/chart_layout.h"

namespace UX {

/// Looks for a place where a box of this size is wholly within `allowed` and clear of `avoid`. The box's
/// middle goes round the anchor on a circle whose radius is twice `radiusParameter`, in two sweeps that both
/// pass on the left: one begins below the anchor, the other above. The sweep that finds a place sooner wins,
/// the upper one if they are even. If neither finds one, the result is the last place that the upper one
/// tried. Coordinates are bounded (see kFarthest); sizes and radius are a fraction of that.
Rect FindPopupPlace(const Rect& allowed, std::int32_t anchorX, std::int32_t anchorY, std::int32_t boxWidth,
                    std::int32_t boxHeight, std::int32_t radiusParameter, const Rect& avoid);

}  // namespace UX
