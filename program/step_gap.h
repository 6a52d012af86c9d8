#pragma once

// A step between others, which leaves the curve as it is.

#include <cstdint>
#include <optional>

#include "program/program.h"

namespace TCBase::Program {

/// A step in the middle of the gap between the step at `index` and the one behind it on the ring: with the
/// curve's value there, and jumping if the step before jumps, so that the curve keeps its shape. Behind the
/// last step the gap leads over midnight to the first; a single step has the whole day. In an empty channel
/// it stands at 12:00, at 0. It has a fresh id and is not inserted. Nothing if there is no such step, if no
/// minute is free between the two, or if either is not on the day.
std::optional<Step> StepInGap(const Channel& channel, std::int32_t index);

}  // namespace TCBase::Program
