#pragma once

// A helper program in memory: notes how it is started and ends as it is told.

#include <string>
#include <vector>

#include "common/helper_program.h"

namespace fake_helper {

/// Starts over: nobody started anything, and the next one succeeds.
void Reset();

/// What the next ones come to.
void EndWith(platform::HelperResult result);

/// Each start: the helper's name and its arguments.
const std::vector<std::vector<std::string>>& Starts();

}  // namespace fake_helper
