#pragma once

// Steps that are told from a moment on and may go over midnight.

#include <cstddef>
#include <vector>

#include "program/program.h"

namespace TCBase::Program::Generate {

/// The minute of the day that any minute stands for, 0 to 1439.
int MinuteOnTheRing(int minute);

/// The channel, or the nearest that there is.
std::size_t ChannelInRange(int channel);

/// A point of a curve, in minutes from where it begins, at most a day.
struct CurvePoint {
  int minute;
  float percent;
};

/// A channel through these points, which ascend, from the minute `begin` of the day on: in the order of the
/// day, and of points on one minute the last. Two steps or more, for two points or more a minute apart.
Channel WrappedSteps(int begin, const std::vector<CurvePoint>& points);

}  // namespace TCBase::Program::Generate
