#pragma once

#include "program/program.h"

namespace TCBase::Program {

/// The table that a TC421 knows: `result` gets the name, the description and, in each channel, 48 fading
/// steps with the source's whole percents at every half hour. A jump survives as a ramp of at most half an
/// hour. The two may be the same mode. The steps have fresh ids; any thread.
void ResampleHalfHour(const Mode& source, Mode& result);

}  // namespace TCBase::Program
