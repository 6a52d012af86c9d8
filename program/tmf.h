#pragma once

// The mode file of the PLED tool: one mode as its merged table. docs/formats.md has its layout.

#include <string>
#include <string_view>

#include "program/program.h"

namespace TCBase::Program {

/// Appends the rows of a file to the five channels of `mode`, each row as a step of every channel, and sorts
/// them. Times past the day become 23:59, values above 100 become 100; rows past kMaxModeSteps are left out,
/// with a line in the log. False, with a line in the log and `mode` as it was, if the size is that of no file
/// with a row.
bool ReadTmf(std::string_view data, Mode& mode);

/// Replaces `data` with the mode's file. A mode without steps gives a file that cannot be read back. True.
bool WriteTmf(const Mode& mode, std::string& data);

}  // namespace TCBase::Program
