#include "program/removal_errors.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "common/truncate.h"
#include "program/curve.h"

namespace TCBase::Program {

namespace {

// Two curves' distance in whole percent.
std::int32_t Difference(float a, float b) {
  return TruncateToInt(std::fabs(a - b));
}

}  // namespace

bool OrderedErrors::Suits(const Channel& channel) {
  std::int64_t earliest = 0;
  for (const Step& step : channel) {
    const std::int64_t minute = MinuteOfDay(step);
    if (minute < earliest || minute >= kMinutesPerDay) return false;
    earliest = minute;
  }
  return true;
}

OrderedErrors::OrderedErrors(const Channel& channel)
    : channel_(channel), left_(channel.size()), links_(channel.size()), ranks_(2 * channel.size()) {
  if (channel.empty()) return;
  const auto last = static_cast<std::uint32_t>(channel.size() - 1);
  for (std::uint32_t i = 0; i <= last; ++i) links_[i] = {i == 0 ? last : i - 1, i == last ? 0 : i + 1};
  RankAll();
}

void OrderedErrors::Remove(std::uint32_t index) {
  const auto [before, after] = links_[index];
  links_[before].after = after;
  links_[after].before = before;
  if (index == first_) first_ = after;
  --left_;
  SetRank(index, RemovalRank());
  SetRank(before, RemovalRank(ErrorOf(before), before));
  SetRank(after, RemovalRank(ErrorOf(after), after));
}

bool OrderedErrors::SharesMinute(std::uint32_t a, std::uint32_t b) const {
  return MinuteOfDay(channel_[a]) == MinuteOfDay(channel_[b]);
}

std::int32_t OrderedErrors::ErrorOf(std::uint32_t index) const {
  const auto [before, after] = links_[index];
  // Hidden behind another step of its minute: the curve does not see it go. Where the curve is no number, and
  // so is this error, the first step of the minute has the lowest error of all and goes before this one is
  // looked at.
  if (index != first_ && SharesMinute(before, index)) return 0;
  const Step& step = channel_[index];
  const std::int64_t second = SecondOfDay(step);
  return Difference(CurveSegment(channel_[before], step).At(second),
                    CurveSegment(channel_[before], channel_[after]).At(second));
}

void OrderedErrors::RankAll() {
  const std::size_t count = channel_.size();
  for (std::uint32_t i = 0; i < count; ++i) ranks_[count + i] = RemovalRank(ErrorOf(i), i);
  for (std::size_t node = count - 1; node > 0; --node) {
    ranks_[node] = std::min(ranks_[2 * node], ranks_[2 * node + 1]);
  }
}

void OrderedErrors::SetRank(std::uint32_t index, RemovalRank rank) {
  std::size_t node = channel_.size() + index;
  ranks_[node] = rank;
  while (node > 1) {
    const RemovalRank lower = std::min(ranks_[node], ranks_[node ^ 1]);
    node /= 2;
    if (ranks_[node] == lower) return;
    ranks_[node] = lower;
  }
}

UnorderedErrors::UnorderedErrors(const Channel& channel) : left_(channel), indices_(channel.size()) {
  std::iota(indices_.begin(), indices_.end(), 0U);
  FindCheapest();
}

void UnorderedErrors::Remove(std::uint32_t index) {
  const auto position = std::lower_bound(indices_.begin(), indices_.end(), index) - indices_.begin();
  indices_.erase(indices_.begin() + position);
  left_.erase(left_.begin() + position);
  FindCheapest();
}

void UnorderedErrors::FindCheapest() {
  cheapest_ = RemovalRank();
  if (left_.size() <= kMinChannelSteps) return;
  IndexTimes();
  for (std::size_t i = 0; i < left_.size(); ++i) {
    cheapest_ = std::min(cheapest_, RemovalRank(ErrorOf(i), indices_[i]));
  }
}

void UnorderedErrors::IndexTimes() {
  const std::size_t count = left_.size();
  times_.resize(count);
  next_.resize(count);
  records_.clear();
  for (std::size_t i = 0; i < count; ++i) {
    times_[i] = SecondOfDay(left_[i]);
    if (records_.empty() || times_[i] > times_[records_.back()]) records_.push_back(i);
  }
  for (std::size_t i = count; i-- > 0;) {
    std::size_t next = i + 1;
    while (next < count && times_[next] < times_[i]) next = next_[next];
    next_[i] = next;
  }
}

// The first step at or after a second; the number of steps if there is none.
std::size_t UnorderedErrors::FirstNotBefore(std::int64_t second) const {
  const auto record = std::lower_bound(records_.begin(), records_.end(), second,
                                       [this](std::size_t i, std::int64_t t) { return times_[i] < t; });
  return record == records_.end() ? left_.size() : *record;
}

// The same among the steps behind `index`, which is itself the first of all.
std::size_t UnorderedErrors::NextNotBefore(std::size_t index, std::int64_t second) const {
  if (times_[index] == second) return next_[index];
  // A step past the day that closes the stretch around the second it comes back to: there is but one such
  // step in a channel, since all before it are within the day. The walk is not worth an index.
  std::size_t next = index + 1;
  while (next < left_.size() && times_[next] < second) ++next;
  return next;
}

// The curve without the step `missing`, if that is one, at a ring second whose stretch is closed by the step
// `to`.
float UnorderedErrors::ValueWithout(std::size_t missing, std::size_t to, std::int64_t second) const {
  const std::size_t first = missing == 0 ? 1 : 0;
  const std::size_t last = missing == left_.size() - 1 ? left_.size() - 2 : left_.size() - 1;
  if (to == first || to == left_.size()) return CurveSegment(left_[last], left_[first]).At(second);
  return CurveSegment(left_[to - 1 == missing ? to - 2 : to - 1], left_[to]).At(second);
}

std::int32_t UnorderedErrors::ErrorOf(std::size_t position) const {
  const std::int64_t second = RingSecond(times_[position]);
  const std::size_t to = FirstNotBefore(second);
  const std::size_t toWithout = to == position ? NextNotBefore(position, second) : to;
  return Difference(ValueWithout(left_.size(), to, second), ValueWithout(position, toWithout, second));
}

}  // namespace TCBase::Program
