#pragma once

// Whole commands on modes, log lines included, as the menu of the window and the command line give them.
// Undo, refusals in a message box and the chart are the caller's. Log lines go to statusLog, translated. The
// first three work on the current mode, which the document must have.

#include <cstdint>

#include "program/program.h"

namespace TCBase::Program {

/// "Optimize mode for TC421": resamples the mode to half hours and drops the steps that add nothing.
void OptimizeForTC421(ModeListView& document);

/// "Align steps" to `interval` minutes, 1 or more.
void AlignCurrentMode(ModeListView& document, std::int32_t interval);

/// "Add endpoint steps" at kDayStart or kDayEnd. False, and the reason in the log, if the mode is full.
bool AddEndpointSteps(ModeListView& document, std::int32_t second);

/// Brings every mode within the step limit, as before an upload; ends with false at the first that cannot be.
bool OptimizeAllModes(ModeListView& document);

/// Appends a mode and makes it the current one. Nothing is logged.
void AppendMode(ModeListView& document, Mode mode);

/// Appends a mode by chance, named after the number of modes as in Rand_2, and makes it the current one.
void AppendRandomMode(ModeListView& document);

}  // namespace TCBase::Program
