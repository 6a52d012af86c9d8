#include "program/change/mode_change.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "program/change/kinds.h"

namespace TCBase::Program {

namespace {

using Drafts = std::array<Draft, kChannelCount>;

bool IsOnTheDay(const TimeSpan& span) {
  const auto isMinute = [](std::int32_t minute) { return minute >= 0 && minute < kMinutesPerDay; };
  return isMinute(span.from) && isMinute(span.to);
}

int CountMeant(const Draft& draft) {
  return static_cast<int>(std::ranges::count(draft, true, &DraftStep::meant));
}

ChannelSet ChannelsMeant(const Drafts& drafts) {
  ChannelSet meant;
  for (std::size_t c = 0; c < drafts.size(); ++c) meant[c] = CountMeant(drafts[c]) > 0;
  return meant;
}

// Answers the channels that it works on.
template <class AnyChange>
ChannelSet Work(const AnyChange& change, const ChangeScope&, Drafts& drafts) {
  const ChannelSet channels = ChannelsMeant(drafts);
  for (std::size_t c = 0; c < drafts.size(); ++c) {
    if (channels[c]) Apply(change, drafts[c]);
  }
  return channels;
}

// Only with steps of one channel.
ChannelSet Work(const CopyToChannels& change, const ChangeScope& scope, Drafts& drafts) {
  std::size_t from = 0;
  while (CountMeant(drafts[from]) == 0) ++from;
  ChannelSet to = change.to;
  to[from] = false;
  for (std::size_t c = 0; c < drafts.size(); ++c) {
    if (to[c]) CopyInto(change, scope, drafts[from], drafts[c]);
  }
  return to;
}

ChangeRefusal RefuseCopy(const CopyToChannels& change, const Drafts& drafts) {
  const ChannelSet from = ChannelsMeant(drafts);
  if (from.count() > 1) return ChangeRefusal::SeveralChannels;
  return (change.to & ~from).none() ? ChangeRefusal::NoOtherChannel : ChangeRefusal::None;
}

void Count(const Draft& draft, std::size_t before, ChangeResult& result) {
  const auto added = std::ranges::count(draft, true, &DraftStep::added);
  const auto altered = std::ranges::count_if(
      draft, [](const DraftStep& each) { return !each.added && !(each.step == each.before); });
  result.added += static_cast<int>(added);
  result.altered += static_cast<int>(altered);
  result.removed += static_cast<int>(before + static_cast<std::size_t>(added) - draft.size());
}

// What stands in the way before anything is done.
ChangeRefusal RefuseScope(const ModeChange& change, const Drafts& drafts) {
  if (ChannelsMeant(drafts).none()) return ChangeRefusal::NoSteps;
  const auto* const copy = std::get_if<CopyToChannels>(&change);
  return copy == nullptr ? ChangeRefusal::None : RefuseCopy(*copy, drafts);
}

// A channel that had fewer than the least may keep as few, but gets no copy of as few.
bool HasTooFew(const Channel& after, const Channel& before, bool isCopy) {
  return after.size() < kMinChannelSteps && (isCopy || after.size() < before.size());
}

ChangeRefusal RefuseOutcome(const Mode& after, const Mode& before, int rows, bool isCopy) {
  for (std::size_t c = 0; c < after.channels.size(); ++c) {
    const bool isChanged = after.channels[c] != before.channels[c];
    if (isChanged && HasTooFew(after.channels[c], before.channels[c], isCopy))
      return ChangeRefusal::TooFewSteps;
  }
  const bool hasTooMany = rows > kMaxModeSteps && rows > CountModeSteps(before);
  return hasTooMany ? ChangeRefusal::TooManyRows : ChangeRefusal::None;
}

bool IsInRange(const ModeChange& change, const ChangeScope& scope) {
  return std::visit([](const auto& each) { return IsInRange(each); }, change) &&
         (!scope.span || IsOnTheDay(*scope.span));
}

}  // namespace

ChangeResult ChangeMode(Mode& mode, const ModeChange& change, const ChangeScope& scope) {
  ChangeResult result;
  if (!IsInRange(change, scope)) {
    result.refusal = ChangeRefusal::NumberOutOfRange;
    return result;
  }
  Drafts drafts;
  for (std::size_t c = 0; c < drafts.size(); ++c) {
    drafts[c] = DraftOf(mode.channels[c], c, scope);
    result.steps += CountMeant(drafts[c]);
  }
  result.refusal = RefuseScope(change, drafts);
  if (result.refusal != ChangeRefusal::None) return result;

  const ChannelSet worked = std::visit([&](const auto& each) { return Work(each, scope, drafts); }, change);
  Mode after = mode;
  for (std::size_t c = 0; c < drafts.size(); ++c) {
    if (!worked[c]) continue;
    after.channels[c] = Finish(drafts[c]);
    Count(drafts[c], mode.channels[c].size(), result);
  }
  result.rows = CountModeSteps(after);
  result.refusal = RefuseOutcome(after, mode, result.rows, std::holds_alternative<CopyToChannels>(change));
  // Copies are no change where the same steps stood.
  if (after.channels == mode.channels) result.altered = result.removed = result.added = 0;
  if (result.Changed()) mode.channels = std::move(after.channels);
  return result;
}

}  // namespace TCBase::Program
