#pragma once

// What a program of the system prints.

#include <optional>
#include <string>
#include <vector>

namespace platform {

/// Runs `program`, looked for in PATH, without input and in plain English, and answers what it prints, of at
/// most a megabyte. Nothing if it is missing, fails or does not come to an end within five seconds.
std::optional<std::string> AskProgram(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace platform
