#include "chart/step_marker.h"

#include <algorithm>

#include "chart/figure.h"

namespace UX {

namespace {

constexpr auto kFarthestMarker = static_cast<std::int32_t>(kFarthestMiddle);

}  // namespace

MarkerCenter GetMarkerCenter(const Rect& lane, const TCBase::Program::ModeListView& view,
                             const TCBase::Program::Step& step) {
  return {std::clamp(TimeToX(lane, view, step), -kFarthestMarker, kFarthestMarker),
          std::clamp(PercentToY(lane, step.value), -kFarthestMarker, kFarthestMarker)};
}

}  // namespace UX
