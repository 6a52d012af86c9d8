#pragma once

// Helper programs in memory: they note how they are started and end as they are told.

#include <string>
#include <vector>

#include "common/helper_program.h"

namespace fake_helper {

/// Starts over: nobody started anything, and the next one succeeds.
void Reset();

/// What the next ones come to, but for the first `before` of them, which succeed.
void EndWith(platform::HelperResult result, int before = 0);

/// Each start, of a program of ours or of the system: its name and its arguments.
const std::vector<std::vector<std::string>>& Starts();

}  // namespace fake_helper
