#include "chart/step_marker.h"

#include <algorithm>
#include <cstddef>

#include "chart/figure.h"
#include "program/channel_edit.h"

namespace UX {

namespace {

constexpr auto kFarthestMarker = static_cast<std::int32_t>(kFarthestMiddle);

}  // namespace

const TCBase::Program::Step* NamedStep(const TCBase::Program::StepSelection& selection) {
  const TCBase::Program::Channel* const channel = TCBase::Program::SelectedChannel(selection);
  const auto index = static_cast<std::size_t>(selection.step);
  return channel != nullptr && index < channel->size() ? &(*channel)[index] : nullptr;
}

MarkerCenter GetMarkerCenter(const Rect& lane, const TCBase::Program::ModeListView& view,
                             const TCBase::Program::Step& step) {
  return {std::clamp(TimeToX(lane, view, step), -kFarthestMarker, kFarthestMarker),
          std::clamp(PercentToY(lane, step.value), -kFarthestMarker, kFarthestMarker)};
}

}  // namespace UX
