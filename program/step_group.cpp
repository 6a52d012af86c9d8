#include "program/step_group.h"

#include <algorithm>
#include <utility>

#include "program/channel_edit.h"

namespace TCBase::Program {

namespace {

constexpr std::int64_t kLastMinute = kMinutesPerDay - 1;

// Puts the selection back to the step with this number, wherever that stands by now.
void FollowStep(StepSelection& selection, std::uint32_t id) {
  const StepPlace place = FindStep(selection.document, id);
  if (place.step >= 0) selection.step = place.step;
}

// The action may change the step, but not its number.
template <class Action>
void ForEachSelectedStep(const StepSelection& selection, const StepGroup& group, const Action& action) {
  if (SelectedStep(selection) == nullptr) return;
  for (Channel& channel : CurrentMode(selection.document).channels) {
    for (Step& step : channel)
      if (IsStepSelected(selection, group, step)) action(step);
  }
}

}  // namespace

bool StepGroup::Holds(std::uint32_t id) const {
  return std::ranges::binary_search(ids_, id);
}

void StepGroup::Add(std::uint32_t id) {
  const auto place = std::ranges::lower_bound(ids_, id);
  if (place == ids_.end() || *place != id) ids_.insert(place, id);
}

void StepGroup::Remove(std::uint32_t id) {
  std::erase(ids_, id);
}

void StepGroup::Set(std::vector<std::uint32_t> ids) {
  ids_ = std::move(ids);
  std::ranges::sort(ids_);
  ids_.erase(std::unique(ids_.begin(), ids_.end()), ids_.end());
}

bool IsGroupSelected(const StepSelection& selection, const StepGroup& group) {
  const Step* const selected = SelectedStep(selection);
  return selected != nullptr && group.Holds(selected->id);
}

bool IsStepSelected(const StepSelection& selection, const StepGroup& group, const Step& step) {
  const Step* const selected = SelectedStep(selection);
  return selected != nullptr && (&step == selected || (group.Holds(selected->id) && group.Holds(step.id)));
}

std::vector<std::uint32_t> SelectedStepIds(const StepSelection& selection, const StepGroup& group) {
  std::vector<std::uint32_t> ids;
  ForEachSelectedStep(selection, group, [&ids](const Step& step) { ids.push_back(step.id); });
  std::ranges::sort(ids);
  return ids;
}

StepPlace FindStep(const ModeListView& document, std::uint32_t id) {
  const Mode* const mode = FindCurrentMode(document);
  if (mode == nullptr) return {};
  for (std::size_t c = 0; c < mode->channels.size(); ++c) {
    const Channel& channel = mode->channels[c];
    const auto found = std::ranges::find(channel, id, &Step::id);
    if (found != channel.end())
      return {static_cast<std::int32_t>(c), static_cast<std::int32_t>(found - channel.begin())};
  }
  return {};
}

StepsDeleted DeleteSelectedSteps(StepSelection& selection, StepGroup& group) {
  StepsDeleted result;
  const std::vector<std::uint32_t> ids = SelectedStepIds(selection, group);
  if (ids.empty()) return result;
  for (Channel& channel : CurrentMode(selection.document).channels) {
    auto spare = static_cast<std::int64_t>(channel.size()) - kMinChannelSteps;
    std::erase_if(channel, [&](const Step& step) {
      if (!std::ranges::binary_search(ids, step.id)) return false;
      const bool goes = spare-- > 0;
      ++(goes ? result.deleted : result.kept);
      return goes;
    });
  }
  group.Clear();
  const auto left = static_cast<std::int32_t>(SelectedChannel(selection)->size());
  selection.step = std::min(selection.step, left - 1);
  return result;
}

void SetSelectedJumps(const StepSelection& selection, const StepGroup& group, bool jump) {
  ForEachSelectedStep(selection, group, [jump](Step& step) { step.jump = jump; });
}

StepMove::StepMove(const StepSelection& selection, const StepGroup& group) {
  ForEachSelectedStep(selection, group, [this](const Step& step) {
    origins_.push_back({step.id, MinuteOfDay(step), step.value});
  });
  std::ranges::sort(origins_, {}, &Origin::id);
}

void StepMove::MoveTo(StepSelection& selection, std::int64_t minutes, float value) const {
  const Step* const selected = SelectedStep(selection);
  if (selected == nullptr || origins_.empty()) return;
  const std::uint32_t current = selected->id;
  const auto [first, last] = std::ranges::minmax(origins_, {}, &Origin::minute);
  // Steps beside the day, as a file may bring them, hold the others where they are.
  minutes = std::max(std::min(minutes, std::max<std::int64_t>(kLastMinute - last.minute, 0)),
                     std::min<std::int64_t>(-first.minute, 0));
  for (Channel& channel : CurrentMode(selection.document).channels) {
    for (Step& step : channel) {
      const auto origin = std::ranges::lower_bound(origins_, step.id, {}, &Origin::id);
      if (origin == origins_.end() || origin->id != step.id) continue;
      SetTime(step, TimeOfDayAt((origin->minute + minutes) * kSecondsPerMinute));
      step.value = origin->value + value;
      Normalize(step);
    }
    SortSteps(channel);
  }
  FollowStep(selection, current);
}

}  // namespace TCBase::Program
