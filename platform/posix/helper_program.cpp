// common/helper_program.h on POSIX.

#include "common/helper_program.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <system_error>

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

HelperResult Await(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) == -1)
    if (errno != EINTR) return {HelperResult::Stopped, 0};
  if (!WIFEXITED(status)) return {HelperResult::Stopped, 0};
  return {HelperResult::Ended, WEXITSTATUS(status)};
}

}  // namespace

HelperResult RunHelper(const std::string& name, const std::vector<std::string>& arguments) {
  const auto path = FindHelper(name);
  if (!path) return {HelperResult::Missing, 0};
  // The system's interface is older than const; it changes nothing.
  std::vector<char*> texts{const_cast<char*>(path->c_str())};
  for (const std::string& argument : arguments) texts.push_back(const_cast<char*>(argument.c_str()));
  texts.push_back(nullptr);
  pid_t process = 0;
  if (posix_spawn(&process, path->c_str(), nullptr, nullptr, texts.data(), environ) != 0)
    return {HelperResult::Missing, 0};
  return Await(process);
}

}  // namespace platform
