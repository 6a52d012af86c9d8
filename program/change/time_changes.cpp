// Changes of times, but for the mirror.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <utility>
#include <vector>

#include "program/change/kinds.h"

namespace TCBase::Program {

namespace {

constexpr std::int32_t kLastMinute = kMinutesPerDay - 1;
constexpr std::int32_t kHalfDay = kMinutesPerDay / 2;

std::int32_t MinuteOf(const Step& step) {
  return static_cast<std::int32_t>(MinuteOfDay(step));
}

void MoveTo(DraftStep& each, std::int32_t minute) {
  SetTime(each.step, TimeOfDayAtMinute(minute));
}

// Ascending places at least a minute apart, as near to those that are wanted as that and both ends allow.
// There is room for all.
std::vector<std::int32_t> PlacesFor(std::vector<std::int32_t> wanted, std::int32_t first, std::int32_t last) {
  for (std::int32_t& place : wanted) {
    place = std::max(place, first);
    first = place + 1;
  }
  std::for_each(wanted.rbegin(), wanted.rend(), [&last](std::int32_t& place) {
    place = std::min(place, last);
    last = place - 1;
  });
  return wanted;
}

bool IsOfTheDay(std::int32_t minute) {
  return minute >= 0 && minute <= kLastMinute;
}

// Minutes from `about` to a step on the ring, -720 to 719.
std::int32_t Distance(const Step& step, std::int32_t about) {
  return RingMinute(std::int64_t{MinuteOf(step)} - about + kHalfDay) - kHalfDay;
}

// Steps on one side of a moment, the nearest first; `sign` is 1 for those behind it.
void StretchSide(const std::vector<DraftStep*>& steps, const StretchTime& change, std::int32_t sign) {
  std::vector<std::int32_t> wanted;
  for (const DraftStep* const each : steps) {
    // At most ten times 720.
    const double distance = sign * Distance(each->step, change.about);
    wanted.push_back(static_cast<std::int32_t>(std::lround(distance * change.percent / kMostPercent)));
  }
  // The moment itself is of the later side, the one twelve hours away of the earlier.
  const std::int32_t first = sign > 0 ? 0 : 1;
  const std::vector<std::int32_t> places = PlacesFor(std::move(wanted), first, first + kHalfDay - 1);
  for (std::size_t i = 0; i < steps.size(); ++i)
    MoveTo(*steps[i], RingMinute(std::int64_t{change.about} + sign * places[i]));
}

std::vector<DraftStep*> MeantOf(Draft& draft) {
  std::vector<DraftStep*> meant;
  for (DraftStep& each : draft) {
    if (each.meant) meant.push_back(&each);
  }
  return meant;
}

// Steps with the same nearest line of a grid.
struct Cluster {
  std::int32_t line;
  DraftStep* first;
  DraftStep* last;
};

std::vector<Cluster> ClustersOf(Draft& draft, std::int32_t interval) {
  std::vector<Cluster> clusters;
  for (DraftStep& each : draft) {
    if (!each.meant) continue;
    const std::int32_t nearest = (MinuteOf(each.step) + interval / 2) / interval * interval;
    const std::int32_t line = std::min(nearest, kLastMinute / interval * interval);
    if (clusters.empty() || clusters.back().line != line) {
      clusters.push_back({line, &each, &each});
      continue;
    }
    // What lies between the first and the last goes.
    if (clusters.back().last != clusters.back().first) clusters.back().last->gone = true;
    clusters.back().last = &each;
  }
  return clusters;
}

// `before` and `behind` are the lines that others take. Answers the last line that is taken now.
std::int32_t Settle(const Cluster& cluster, std::int32_t interval, std::int32_t before, std::int32_t behind) {
  const std::int32_t line = cluster.line;
  const std::int32_t below = line - MinuteOf(cluster.first->step);
  const std::int32_t above = MinuteOf(cluster.last->step) - line;
  MoveTo(*cluster.first, line);
  MoveTo(*cluster.last, line);
  if (cluster.first == cluster.last) return line;
  if (below > above && line - interval > before) {
    MoveTo(*cluster.first, line - interval);
    return line;
  }
  if (below <= above && line + interval < behind) {
    MoveTo(*cluster.last, line + interval);
    return line + interval;
  }
  (std::abs(below) > std::abs(above) ? cluster.first : cluster.last)->gone = true;
  return line;
}

}  // namespace

bool IsInRange(const ShiftTime& change) {
  return change.minutes >= -kMostShift && change.minutes <= kMostShift;
}

bool IsInRange(const StretchTime& change) {
  return change.percent >= kLeastStretchPercent && change.percent <= kMostScalePercent &&
         IsOfTheDay(change.about);
}

bool IsInRange(const MirrorTime& change) {
  return IsOfTheDay(change.about);
}

bool IsInRange(const RoundTimes& change) {
  return change.minutes >= 1 && change.minutes <= kHalfDay;
}

void Apply(const ShiftTime& change, Draft& draft) {
  const std::vector<DraftStep*> meant = MeantOf(draft);
  std::vector<std::int32_t> places;
  for (const DraftStep* const each : meant) places.push_back(MinuteOf(each->step) + change.minutes);
  if (change.stopAtEnds) places = PlacesFor(std::move(places), 0, kLastMinute);
  for (std::size_t i = 0; i < meant.size(); ++i) MoveTo(*meant[i], RingMinute(places[i]));
}

void Apply(const StretchTime& change, Draft& draft) {
  std::vector<DraftStep*> later = MeantOf(draft);
  const auto distance = [&](const DraftStep* each) { return Distance(each->step, change.about); };
  std::ranges::sort(later, {}, distance);
  const auto behind = std::ranges::find_if(later, [&](const DraftStep* each) { return distance(each) >= 0; });
  std::vector<DraftStep*> earlier(later.begin(), behind);
  std::ranges::reverse(earlier);
  later.erase(later.begin(), behind);
  StretchSide(later, change, 1);
  StretchSide(earlier, change, -1);
}

void Apply(const RoundTimes& change, Draft& draft) {
  const std::vector<Cluster> clusters = ClustersOf(draft, change.minutes);
  std::int32_t taken = -1;
  for (std::size_t i = 0; i < clusters.size(); ++i) {
    const std::int32_t behind = i + 1 < clusters.size() ? clusters[i + 1].line : kMinutesPerDay;
    taken = Settle(clusters[i], change.minutes, taken, behind);
  }
}

}  // namespace TCBase::Program
