// common/helper_program.h on POSIX.

#include "common/helper_program.h"

#include <unistd.h>

#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/posix/child_process.h"

namespace platform {

namespace {

std::optional<std::filesystem::path> FindHelper(const std::string& name) {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return std::nullopt;
  const auto folder = program.parent_path();
  for (const auto& path : {folder / name, folder.parent_path() / "libexec" / "lumarine" / name})
    if (access(path.c_str(), X_OK) == 0 && std::filesystem::is_regular_file(path, error)) return path;
  return std::nullopt;
}

HelperResult Run(const std::string& program, const std::vector<std::string>& arguments) {
  const auto child = StartChild(program, arguments);
  if (!child) return {HelperResult::Missing, 0};
  const auto answer = AwaitChild(*child);
  if (!answer) return {HelperResult::Stopped, 0};
  return {HelperResult::Ended, *answer};
}

}  // namespace

HelperResult RunHelper(const std::string& name, const std::vector<std::string>& arguments) {
  const auto path = FindHelper(name);
  if (!path) return {HelperResult::Missing, 0};
  return Run(path->native(), arguments);
}

HelperResult RunSystemProgram(const std::string& name, const std::vector<std::string>& arguments) {
  return Run(name, arguments);
}

}  // namespace platform
