#pragma once

// Which folder may include which, and where a platform's headers may stand: the folders of
// docs/architecture.md, as a check.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Judges the include lines of one file. `path` is relative to the project's root, with forward slashes;
/// the answer holds one sentence a fault, with the line's number.
std::vector<std::string> IncludeFaults(std::string_view path, std::string_view source);

/// All headers and sources below the project's root, relative to it, build folders left out.
std::vector<std::filesystem::path> ProjectSources(const std::filesystem::path& root);
