#include "platform/posix/processes.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <optional>

namespace platform {

namespace {

namespace fs = std::filesystem;

struct Process {
  pid_t id = 0;
  fs::path folder;
};

std::vector<fs::path> EntriesOf(const fs::path& folder) {
  std::vector<fs::path> entries;
  std::error_code error;
  // Processes come and go meanwhile.
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error))
    entries.push_back(entry->path());
  return entries;
}

std::vector<Process> Processes() {
  std::vector<Process> processes;
  for (const fs::path& folder : EntriesOf("/proc")) {
    const std::string name = folder.filename().native();
    pid_t id = 0;
    const auto read = std::from_chars(name.data(), name.data() + name.size(), id);
    if (read.ec == std::errc() && read.ptr == name.data() + name.size()) processes.push_back({id, folder});
  }
  return processes;
}

// Its first 15 bytes, which is all that the kernel keeps.
std::string NameOf(const Process& process) {
  std::ifstream file(process.folder / "comm");
  std::string name;
  std::getline(file, name);
  return name;
}

bool Has(const Process& process, const std::function<bool(std::string_view)>& isWanted) {
  return std::ranges::any_of(EntriesOf(process.folder / "fd"), [&](const fs::path& file) {
    std::error_code error;
    const fs::path target = fs::read_symlink(file, error);
    return !error && isWanted(target.native());
  });
}

}  // namespace

std::vector<Holder> ProcessesWith(const std::function<bool(std::string_view)>& isWanted) {
  std::vector<Holder> holders;
  for (const Process& process : Processes())
    if (Has(process, isWanted)) holders.push_back({NameOf(process), process.id, process.id == getpid()});
  return holders;
}

bool IsRunning(std::string_view program) {
  return std::ranges::any_of(Processes(), [&](const Process& process) { return NameOf(process) == program; });
}

}  // namespace platform
