#pragma once

// Makes a mode of curves that nature, or arithmetic, has drawn: so few steps that a controller takes them,
// and how far they are off.

#include <array>

#include "program/program.h"

namespace TCBase::Program::Generate {

/// A channel's percent at each minute of the day, 00:00 first.
using MinuteCurve = std::array<float, kMinutesPerDay>;
/// What a mode is to be.
using DayCurves = std::array<MinuteCurve, kChannelCount>;
/// A percent for each channel.
using Levels = std::array<float, kChannelCount>;

/// The fewest rows that a fit may be asked for.
inline constexpr int kFewestRows = 2;
/// A fit takes no further rows once no channel is farther off than this, in percent, at any minute.
inline constexpr float kGoodFit = 1.0F;

/// A mode, and how far off it is.
struct Generated {
  Mode mode;
  float error =
      0.0F;  // the farthest from what was wanted at any minute of the day in any channel, in percent
};

/// 0 to 100; not a number is 0.
float PercentInRange(float percent);

/// The curves of a mode, minute by minute, within 0 to 100.
DayCurves CurvesOf(const Mode& mode);

/// The farthest that the mode's curves are from the wanted ones at any minute, in percent.
float FitError(const Mode& mode, const DayCurves& wanted);

/// A mode without a name whose steps follow the curves: whole percents, times in order, two steps or more in
/// each channel, and no more than `mostRows` merged rows (kFewestRows to kMaxModeSteps, others count as the
/// nearest). It takes the row that mends the worst minute, then the next, until the fit is good or the rows
/// are used up. Percents off the scale count as its nearest end.
Generated FitCurves(const DayCurves& wanted, int mostRows = kMaxModeSteps);

/// The same of a mode that has been worked out with fractions of percents: its values are rounded, and its
/// steps stay unless they are too many rows.
Generated RoundedToFit(const Mode& wanted, int mostRows = kMaxModeSteps);

}  // namespace TCBase::Program::Generate
