#pragma once

// What came of a change of steps, in words for the window and the command line.

#include <string>

#include "program/change/mode_change.h"

namespace TCBase::Program {

/// One line: how many steps change and go, or why nothing is changed; translated, UTF-8.
std::string TellResult(const ChangeResult& result);

}  // namespace TCBase::Program
