#pragma once

// The mode file of the LEDControl tool: five values for each half hour of the day. docs/formats.md has its
// layout.

#include <string>
#include <string_view>

#include "program/program.h"

namespace TCBase::Program {

/// Appends the 48 half hours of a file to each channel of `mode`, as fading steps. False, with a line in the
/// log and `mode` as it was, if the data has not the size of such a file.
bool ReadLmfSteps(std::string_view data, Mode& mode);

/// The same, brought down to the steps that the curves need (see RemoveExactSteps).
bool ReadLmf(std::string_view data, Mode& mode);

/// Replaces `data` with the mode's file: its whole percents at the half hours. True.
bool WriteLmf(const Mode& mode, std::string& data);

}  // namespace TCBase::Program
