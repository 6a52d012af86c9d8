// Changes of times, but for the mirror.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iterator>
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

// Between two ends that are minutes on the same scale; answers where it stopped.
std::int32_t Stop(DraftStep& each, std::int32_t minute, std::int32_t first, std::int32_t last) {
  const std::int32_t stopped = std::clamp(minute, first, last);
  each.beyond = std::abs(minute - stopped);
  return stopped;
}

bool IsOfTheDay(std::int32_t minute) {
  return minute >= 0 && minute <= kLastMinute;
}

// Minutes from `about` to a step on the ring, -720 to 719.
std::int32_t Distance(const Step& step, std::int32_t about) {
  return RingMinute(std::int64_t{MinuteOf(step)} - about + kHalfDay) - kHalfDay;
}

// Stretches the distances of steps that all lie on one side of the moment, nearest first.
class Side {
 public:
  Side(const StretchTime& change, std::int32_t sign)
      : factor_(double{change.percent} / kMostPercent),
        about_(change.about),
        sign_(sign),
        // The moment itself belongs to the later side.
        nearest_(sign > 0 ? 0 : 1) {}

  void Take(DraftStep& each) {
    const std::int32_t distance = sign_ * Distance(each.step, about_);
    // At most ten times 720; steps that stood apart stand apart.
    nearest_ = std::max(nearest_, static_cast<std::int32_t>(std::lround(distance * factor_)));
    const std::int32_t farthest = sign_ > 0 ? kHalfDay - 1 : kHalfDay;
    MoveTo(each, RingMinute(about_ + sign_ * Stop(each, nearest_, 0, farthest)));
    ++nearest_;
  }

 private:
  const double factor_;
  const std::int32_t about_;
  const std::int32_t sign_;
  std::int32_t nearest_;  // where the next step may stand
};

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
  return change.percent >= kLeastStretch && change.percent <= kMostScale && IsOfTheDay(change.about);
}

bool IsInRange(const MirrorTime& change) {
  return IsOfTheDay(change.about);
}

bool IsInRange(const RoundTimes& change) {
  return change.minutes >= 1 && change.minutes <= kHalfDay;
}

void Apply(const ShiftTime& change, Draft& draft) {
  for (DraftStep& each : draft) {
    if (!each.meant) continue;
    const std::int32_t minute = MinuteOf(each.step) + change.minutes;
    MoveTo(each, change.stopAtEnds ? Stop(each, minute, 0, kLastMinute) : RingMinute(minute));
  }
}

void Apply(const StretchTime& change, Draft& draft) {
  std::vector<DraftStep*> meant;
  for (DraftStep& each : draft) {
    if (each.meant) meant.push_back(&each);
  }
  const auto distance = [&](const DraftStep* each) { return Distance(each->step, change.about); };
  std::ranges::sort(meant, {}, distance);
  const auto behind = std::ranges::find_if(meant, [&](const DraftStep* each) { return distance(each) >= 0; });
  Side later(change, 1);
  std::for_each(behind, meant.end(), [&](DraftStep* each) { later.Take(*each); });
  Side earlier(change, -1);
  std::for_each(std::make_reverse_iterator(behind), meant.rend(),
                [&](DraftStep* each) { earlier.Take(*each); });
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
