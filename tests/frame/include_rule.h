#pragma once

// Which folder may include which header, and where a platform's headers may stand: docs/architecture.md as a
// check. What our folders may have of each other and of other people's libraries is what CMake lets them link
// (cmake/LumarineIncludes.cmake).

#include <filesystem>
#include <functional>
#include <istream>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

class IncludeRule {
 public:
  /// Reads lines "FOLDER HEADER ...": what the folder may include, beside all that is its own. A header that
  /// ends with a slash stands for all below it. Folders that the build at hand leaves out have no line.
  explicit IncludeRule(std::istream& lines);

  /// Judges the include lines of one file. `path` is relative to the project's root, with forward slashes;
  /// the answer holds one sentence a fault, with the line's number.
  std::vector<std::string> Faults(std::string_view path, std::string_view source) const;

  /// All headers and sources below the project's root, relative to it, build folders left out.
  std::vector<std::filesystem::path> ProjectSources(const std::filesystem::path& root) const;

 private:
  using Folder = std::set<std::string>;  // what its files may include

  /// What is wrong with an include, or nothing.
  std::string Fault(std::string_view path, const std::string& header, bool quoted) const;
  std::string FaultOfOurs(std::string_view path, std::string_view header) const;
  /// The folder in which a file is, the inner one if one is within another; nullptr if it has no line.
  const Folder* FolderOf(std::string_view path) const;

  std::map<std::string, Folder, std::less<>> folders_;
  std::set<std::string, std::less<>> roots_;  // the project's own first folders, with a slash
};
