#pragma once

// Modes at random, for holding a fast way against its plain definition. The same seed gives the same mode on
// every platform, so that a failure can be told by its seed.

#include <cstdint>
#include <random>
#include <vector>

#include "program/program.h"

namespace program_test {

using namespace TCBase::Program;

/// What a channel may be like; a mode at random mixes them.
enum class ChannelKind {
  Ascending,   // as editing leaves it
  Doubled,     // in order, several steps on one minute
  OneMinute,   // all steps on one minute
  FewMinutes,  // in order, all steps on two or three minutes
  PastTheDay,  // in order, the last steps on the next day
  Shuffled,    // in order but for neighbours a minute apart
  Unordered,   // any order, doubles included
  OutOfRange,  // hours and minutes of any number, also ones that add up to a time of day
  Descending,  // the first step comes last
  WildValues,  // in order; values that are no percent, not finite or no number
};
inline constexpr ChannelKind kChannelKinds[] = {
    ChannelKind::Ascending,  ChannelKind::Doubled,    ChannelKind::OneMinute, ChannelKind::FewMinutes,
    ChannelKind::PastTheDay, ChannelKind::Shuffled,   ChannelKind::Unordered, ChannelKind::OutOfRange,
    ChannelKind::Descending, ChannelKind::WildValues,
};

class RandomProgram {
 public:
  explicit RandomProgram(std::uint32_t seed) : engine_(seed) {}

  /// 0 to `limit` - 1.
  std::int32_t Below(std::int32_t limit) {
    return static_cast<std::int32_t>(engine_() % static_cast<std::uint32_t>(limit));
  }

  Channel ChannelOf(ChannelKind kind, std::int32_t steps);
  /// Up to `mostSteps` in each channel; some have fewer than two, some minutes are shared between channels.
  Mode AnyMode(std::int32_t mostSteps);
  /// The same with ascending channels only.
  Mode AscendingMode(std::int32_t steps);

 private:
  Step StepAt(std::int32_t minute);

  std::mt19937 engine_;
};

}  // namespace program_test
