#pragma once

// Who has a file open, as far as this user may see.

#include <functional>
#include <string_view>
#include <vector>

#include "doctor/computer_facts.h"

namespace platform {

/// The processes with an open file that `isWanted` knows by what /proc calls it: a path, or
/// "socket:[INODE]". Other users' processes are seen by root alone. Reads a link for every open file.
std::vector<Holder> ProcessesWith(const std::function<bool(std::string_view)>& isWanted);

/// Whether a process of that name runs.
bool IsRunning(std::string_view program);

}  // namespace platform
