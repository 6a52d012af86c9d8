#pragma once

// Which file may include which header, and where a platform's headers may stand: docs/architecture.md as a
// check. What our libraries and programs may have of each other and of other people's libraries is what CMake
// lets them link (cmake/LumarineIncludes.cmake).

#include <filesystem>
#include <functional>
#include <istream>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

class IncludeRule {
 public:
  /// Reads lines "FILE ... : HEADER ...", one for each library and program: its files, and what each of them
  /// may include. A header that ends with a slash stands for all below it. What the build at hand leaves out
  /// has no line.
  explicit IncludeRule(std::istream& lines);

  /// Judges the include lines of one file. `path` is relative to the project's root, with forward slashes;
  /// the answer holds one sentence a fault, with the line's number.
  std::vector<std::string> Faults(std::string_view path, std::string_view source) const;

  /// All headers and sources below the project's root, relative to it, build folders left out.
  std::vector<std::filesystem::path> ProjectSources(const std::filesystem::path& root) const;

 private:
  using Headers = std::vector<std::string>;

  /// What is wrong with an include, or nothing.
  std::string Fault(std::string_view path, const std::string& header, bool quoted) const;
  std::string FaultOfOurs(std::string_view path, std::string_view header) const;
  /// What a file may include; nullptr if it is in no line.
  const Headers* HeadersFor(std::string_view path) const;

  std::map<std::string, std::shared_ptr<const Headers>, std::less<>> files_;  // shared by those of one line
  std::set<std::string, std::less<>> roots_;  // the project's own first folders, with a slash
};
