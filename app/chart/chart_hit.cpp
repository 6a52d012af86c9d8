#include "app/chart/chart_hit.h"

#include <cmath>
#include <cstddef>
#include <limits>

#include "chart/scene_queries.h"
#include "common/truncate.h"

namespace app {

using namespace TCBase::Program;

namespace {

// The distance from a point to a step's marker, in pixels. The marker may be as far out as integers go, so
// the difference is not taken in integers.
float Distance(const UX::Rect& lane, const ModeListView& program, const Step& step, std::int32_t x,
               std::int32_t y) {
  const float dx = static_cast<float>(UX::TimeToX(lane, program, step)) - static_cast<float>(x);
  const float dy = static_cast<float>(UX::PercentToY(lane, step.value)) - static_cast<float>(y);
  return std::sqrt(dx * dx + dy * dy);
}

bool IsWithin(const UX::Rect& lane, std::int32_t margin, std::int32_t x, std::int32_t y) {
  return x >= lane.x - margin && x < lane.x + lane.width + margin && y >= lane.y - margin &&
         y < lane.y + lane.height + margin;
}

}  // namespace

std::optional<StepPlace> HitStep(UX::ChartLayout& layout, const ModeListView& program, std::int32_t x,
                                 std::int32_t y) {
  const float radius = UX::GetMarkerSize(layout).plainRadius;
  for (std::int32_t i = 0; i < kChannelCount; ++i) {
    const UX::Rect lane = layout.LaneRect(i);
    if (!IsWithin(lane, TruncateToInt(radius), x, y)) continue;
    const Channel& channel = UX::ChannelOfLane(program, i);
    for (std::size_t s = 0; s < channel.size(); ++s) {
      if (Distance(lane, program, channel[s], x, y) < radius)
        return StepPlace{i, static_cast<std::int32_t>(s)};
    }
  }
  return std::nullopt;
}

std::optional<StepPlace> HoveredStep(UX::ChartLayout& layout, const ModeListView& program, std::int32_t x,
                                     std::int32_t y) {
  float least = std::numeric_limits<float>::infinity();
  std::optional<StepPlace> nearest;
  for (std::int32_t i = 0; i < kChannelCount; ++i) {
    const UX::Rect lane = layout.LaneRect(i);
    const Channel& channel = UX::ChannelOfLane(program, i);
    for (std::size_t s = 0; s < channel.size(); ++s) {
      const float distance = Distance(lane, program, channel[s], x, y);
      if (distance >= least) continue;
      least = distance;
      nearest = StepPlace{i, static_cast<std::int32_t>(s)};
    }
  }
  if (nearest && least >= UX::GetMarkerSize(layout).plainRadius) return StepPlace{};
  return nearest;
}

}  // namespace app
