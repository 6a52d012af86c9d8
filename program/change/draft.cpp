#include "program/change/draft.h"

#include <algorithm>
#include <cstddef>
#include <tuple>

namespace TCBase::Program {

namespace {

bool IsMeant(const Step& step, std::size_t channel, const ChangeScope& scope) {
  return scope.channels[channel] && (!scope.span || scope.span->Holds(MinuteOfDay(step))) &&
         (!scope.stepIds || std::ranges::binary_search(*scope.stepIds, step.id));
}

std::int64_t MinuteOfDraft(const DraftStep& each) {
  return MinuteOfDay(each.step);
}

void DropDoubles(Draft& draft) {
  const auto isDouble = [](const DraftStep& a, const DraftStep& b) {
    return MinuteOfDay(a.step) == MinuteOfDay(b.step);
  };
  draft.erase(std::unique(draft.begin(), draft.end(), isDouble), draft.end());
}

}  // namespace

float ToPercent(float value) {
  constexpr auto kMost = static_cast<float>(kMostPercent);
  // Not a number compares with nothing.
  return value > 0.0F ? std::min(value, kMost) : 0.0F;
}

Draft DraftOf(const Channel& channel, std::size_t index, const ChangeScope& scope) {
  Draft draft;
  draft.reserve(channel.size());
  for (Step step : channel) {
    const Step before = step;
    step.value = ToPercent(step.value);
    Normalize(step);
    draft.push_back({.step = step, .meant = IsMeant(step, index, scope), .before = before});
  }
  std::ranges::stable_sort(draft, {}, MinuteOfDraft);
  DropDoubles(draft);
  return draft;
}

Channel Finish(Draft& draft) {
  std::erase_if(draft, [](const DraftStep& each) { return each.gone; });
  std::ranges::stable_sort(
      draft, {}, [](const DraftStep& each) { return std::tuple(MinuteOfDraft(each), !each.meant); });
  DropDoubles(draft);
  Channel channel;
  channel.reserve(draft.size());
  for (DraftStep& each : draft) {
    each.step.value = ToPercent(each.step.value);
    channel.push_back(each.step);
  }
  return channel;
}

}  // namespace TCBase::Program
