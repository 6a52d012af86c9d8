#pragma once

// Thinning out: which step matters least to a mode's curves, and taking such steps away until the mode fits a
// controller.

#include <cstddef>
#include <cstdint>

#include "program/program.h"

namespace TCBase::Program {

/// The cheapest step to remove; all -1 where none can be.
struct StepRemoval {
  std::int32_t channel = -1;
  std::int32_t step = -1;
  std::int32_t error = -1;  // see RemovalError

  friend bool operator==(const StepRemoval&, const StepRemoval&) = default;
};

/// The change of the curve at the time of the step `index` if that step goes, in whole percent; less than one
/// percent is 0. Curves that are no number there give the lowest integer (see TruncateToInt).
std::int32_t RemovalError(const Channel& channel, std::size_t index);

/// The step with the lowest removal error of all channels with more than two steps. Of equal ones that in the
/// lower channel, there the one with the lower index.
StepRemoval FindCheapestStep(const Mode& mode);

/// Removes the cheapest step as long as its error is exactly 0: the curves keep their shape to within a
/// percent at each step removed.
void RemoveExactSteps(Mode& mode);

/// Removes the cheapest steps until the mode has no more than kMaxModeSteps merged steps; says so in the log
/// if there is anything to do. False, with a line in the log, if the channels run out of steps first; those
/// removed by then stay removed.
///
/// Takes time in proportion to the steps (n log n) for channels whose steps are within the day and not out of
/// order, whatever their number; with the square of the number for others.
bool OptimizeMode(Mode& mode);

/// The same for any limit.
bool OptimizeModeTo(Mode& mode, int maxSteps);

}  // namespace TCBase::Program
