#pragma once

#include "program/program.h"

namespace TCBase::Program {

/// The two ends of the day that a step can be added at, as seconds.
inline constexpr std::int32_t kDayStart = 0;
inline constexpr std::int32_t kDayEnd = 23 * 3600 + 59 * 60;

/// Gives every channel a fading step at the minute of `second`, with the whole percent that its curve has
/// there. A step that stands there already stays as it is. Seconds off the day count as in ChannelValueAt.
/// False, and nothing done, if the mode is at the limit of merged steps.
bool AddStepToAllChannels(Mode& mode, std::int32_t second);

}  // namespace TCBase::Program
