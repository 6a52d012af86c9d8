#pragma once

#include "program/program.h"

namespace TCBase::Program {

/// Gives every channel a fading step at the minute of `second`, with the whole percent that its curve has
/// there. A step that stands there already stays as it is. Seconds off the day count as in ChannelValueAt.
/// False, and nothing done, if the mode is at the limit of merged steps.
bool AddStepToAllChannels(Mode& mode, std::int32_t second);

}  // namespace TCBase::Program
