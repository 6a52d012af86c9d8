#pragma once

// A channel while it is being changed.

#include <cstdint>
#include <vector>

#include "program/change/mode_change.h"

namespace TCBase::Program {

struct DraftStep {
  Step step;
  bool meant = false;  // by the scope
  bool gone = false;   // taken away by the change
  bool added = false;  // by the change
  Step before = step;  // as the channel had it
};

/// Ascending, one step a minute, on the day, values from 0 to 100: also of a channel that was not so.
using Draft = std::vector<DraftStep>;

/// The channel in order, with the steps marked that the scope means; `index` is the channel's. Of the steps
/// on one minute the first stays.
Draft DraftOf(const Channel& channel, std::size_t index, const ChangeScope& scope);

/// The channel that came of a draft whose steps may be in any order, on the same minute, and above or below
/// the values there are; its steps are within the day. Of the steps on one minute the first stays, one that
/// is meant before others. The draft keeps those that stayed.
Channel Finish(Draft& draft);

/// A value from 0 to 100; 0 for what is no number.
float ToPercent(float value);

/// The minute of the ring, 0 to 1439, that any minute stands for, negative ones too.
constexpr std::int32_t RingMinute(std::int64_t minute) {
  return static_cast<std::int32_t>((minute % kMinutesPerDay + kMinutesPerDay) % kMinutesPerDay);
}

}  // namespace TCBase::Program
