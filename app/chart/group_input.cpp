#include "app/chart/group_input.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <utility>
#include <vector>

#include "chart/step_marker.h"
#include "program/channel_edit.h"

namespace app {

using namespace TCBase::Program;

namespace {

using Ids = std::vector<std::uint32_t>;

void AppendIds(const Channel& channel, Ids& ids) {
  for (const Step& step : channel) ids.push_back(step.id);
}

Rect RectBetween(const Position& from, std::int32_t x, std::int32_t y) {
  return {std::min(from.x, x), std::min(from.y, y), std::abs(x - from.x), std::abs(y - from.y)};
}

bool IsIn(const Rect& area, const UX::MarkerCenter& point) {
  return point.x >= area.x && point.x <= area.x + area.width && point.y >= area.y &&
         point.y <= area.y + area.height;
}

}  // namespace

bool GroupInput::Holds(const StepPlace& place) const {
  const Step* const step = SelectedStep({parts_.program, place.channel, place.step});
  return step != nullptr && IsStepSelected(parts_.selection, parts_.group, *step);
}

void GroupInput::SelectStep(std::uint32_t id) {
  const StepPlace place = FindStep(parts_.program, id);
  parts_.selection.channel = place.channel;
  parts_.selection.step = place.step;
}

void GroupInput::SetGroup(Ids ids) {
  parts_.group.Set(std::move(ids));
  const Ids& chosen = parts_.group.Ids();
  if (!chosen.empty() && !IsGroupSelected(parts_.selection, parts_.group)) SelectStep(chosen.front());
  if (chosen.size() < 2) parts_.group.Clear();
}

bool GroupInput::Toggle(const StepPlace& place) {
  const std::uint32_t id = SelectedStep({parts_.program, place.channel, place.step})->id;
  Ids ids = SelectedStepIds(parts_.selection, parts_.group);
  if (std::erase(ids, id) == 0) {
    ids.push_back(id);
    SetGroup(std::move(ids));
    SelectStep(id);
    return true;
  }
  if (ids.empty()) {
    parts_.selection.step = -1;
    parts_.group.Clear();
  } else {
    SetGroup(std::move(ids));
  }
  return false;
}

void GroupInput::SelectAll() {
  Ids ids;
  if (const Channel* const channel = SelectedChannel(parts_.selection)) {
    AppendIds(*channel, ids);
    std::ranges::sort(ids);
    const Ids selected = SelectedStepIds(parts_.selection, parts_.group);
    if (!std::ranges::includes(selected, ids)) return SetGroup(std::move(ids));
  }
  ids.clear();
  for (const Channel& channel : CurrentMode(parts_.program).channels) AppendIds(channel, ids);
  SetGroup(std::move(ids));
}

void GroupInput::BeginFrame(std::int32_t x, std::int32_t y) {
  frameStart_ = {x, y};
  DrawFrame(x, y);
}

void GroupInput::DrawFrame(std::int32_t x, std::int32_t y) {
  parts_.overlay.frame = RectBetween(frameStart_, x, y);
}

void GroupInput::EndFrame() {
  const Rect frame = *std::exchange(parts_.overlay.frame, std::nullopt);
  Ids ids = SelectedStepIds(parts_.selection, parts_.group);
  for (std::int32_t i = 0; i < kChannelCount; ++i) {
    const Rect lane = parts_.chartLayout.LaneRect(i);
    for (const Step& step : CurrentMode(parts_.program).channels[static_cast<std::size_t>(i)]) {
      const UX::MarkerCenter center = UX::GetMarkerCenter(lane, parts_.program, step);
      const bool isInSight = center.x >= lane.x && center.x <= lane.x + lane.width;
      if (isInSight && IsIn(frame, center)) ids.push_back(step.id);
    }
  }
  if (!ids.empty()) SetGroup(std::move(ids));
}

void GroupInput::BeginDrag(std::int32_t x, std::int32_t y) {
  const Step* const step = SelectedStep(parts_.selection);
  if (step == nullptr) return drag_.reset();
  drag_.emplace(Drag{x, y, *step, StepMove(parts_.selection, parts_.group)});
}

GroupInput::Target GroupInput::TargetOf(std::int32_t x, std::int32_t y, const HeldKeys& keys) const {
  if (!keys.shift || !drag_) return {x, y};
  const bool keepsTime = std::abs(x - drag_->x) < std::abs(y - drag_->y);
  return keepsTime ? Target{std::nullopt, y} : Target{x, std::nullopt};
}

std::int32_t GroupInput::OriginSecond() const {
  // A file may have brought any time.
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(SecondOfDay(drag_->origin), kDayStart, kDayEnd));
}

bool GroupInput::DragTo(std::int32_t second, float value) {
  if (!drag_ || !IsGroupSelected(parts_.selection, parts_.group)) return false;
  drag_->move.MoveTo(parts_.selection, second / kSecondsPerMinute - MinuteOfDay(drag_->origin),
                     value - drag_->origin.value);
  return true;
}

}  // namespace app
