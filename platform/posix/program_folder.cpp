#include "platform/posix/program_folder.h"

#include <system_error>

namespace platform {

std::filesystem::path ProgramFolder() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::filesystem::path() : program.parent_path();
}

std::filesystem::path FindInstalledFile(const std::filesystem::path& folder, const std::string& name) {
  const std::filesystem::path beside = ProgramFolder();
  if (beside.empty()) return {};
  std::error_code error;
  for (const auto& file : {beside / name, beside.parent_path() / folder / name})
    if (std::filesystem::is_regular_file(file, error)) return file;
  return {};
}

}  // namespace platform
