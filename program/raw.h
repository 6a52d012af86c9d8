#pragma once

// A mode's curves, second by second, for whoever wants to work on them elsewhere. Nothing reads them back.

#include <string>

#include "program/program.h"

namespace TCBase::Program {

/// Replaces `data` with five bytes for each second of the day: the channels' whole percents, of which the low
/// 8 bits are kept. True.
bool WriteRaw(const Mode& mode, std::string& data);

}  // namespace TCBase::Program
