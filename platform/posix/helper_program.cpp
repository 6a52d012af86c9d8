// common/helper_program.h on POSIX.

#include "common/helper_program.h"

#include <unistd.h>

#include <filesystem>

#include "platform/posix/child_process.h"
#include "platform/posix/program_folder.h"

namespace platform {

namespace {

HelperResult Run(const std::string& program, const std::vector<std::string>& arguments) {
  const auto child = StartChild(program, arguments);
  if (!child) return {HelperResult::Missing, 0};
  const auto answer = AwaitChild(*child);
  if (!answer) return {HelperResult::Stopped, 0};
  return {HelperResult::Ended, *answer};
}

}  // namespace

HelperResult RunHelper(const std::string& name, const std::vector<std::string>& arguments) {
  const std::filesystem::path path = FindInstalledFile("libexec/lumarine", name);
  if (path.empty() || access(path.c_str(), X_OK) != 0) return {HelperResult::Missing, 0};
  return Run(path.native(), arguments);
}

HelperResult RunSystemProgram(const std::string& name, const std::vector<std::string>& arguments) {
  return Run(name, arguments);
}

}  // namespace platform
