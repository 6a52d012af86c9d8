// common/platform.h, the system, on POSIX: folders and resources. Files are in file_replace.cpp.

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <string>

#include "common/platform.h"
#include "platform/posix/program_folder.h"

namespace {

// One row of the table that the linker collects from all embedded resources (cmake/EmbedResources.cmake
// writes them, with this layout).
struct ResourceRecord {
  std::int64_t id;
  const char* type;  // terminated
  const char* begin;
  const char* end;
};

}  // namespace

extern "C" {
// The linker's names for the ends of a section; both are null in a program without resources.
// NOLINTBEGIN(bugprone-reserved-identifier): the linker makes them of the section's name.
[[gnu::weak, gnu::visibility("hidden")]] extern const ResourceRecord __start_lumarine_resources[];
[[gnu::weak, gnu::visibility("hidden")]] extern const ResourceRecord __stop_lumarine_resources[];
// NOLINTEND(bugprone-reserved-identifier)
}

namespace platform {

namespace {

namespace fs = std::filesystem;

// The home of the user; an empty path if the account has none.
fs::path HomeFolder() {
  if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') return home;
  const passwd* account = getpwuid(getuid());
  return account != nullptr && account->pw_dir != nullptr ? account->pw_dir : "";
}

// The value of `XDG_DOCUMENTS_DIR="$HOME/Papers"` in the desktop's list of user folders; empty if there is
// none. Only that form and an absolute path are allowed there.
fs::path ConfiguredDocuments(const fs::path& home) {
  constexpr std::string_view kKey = "XDG_DOCUMENTS_DIR=\"";
  constexpr std::string_view kHome = "$HOME";
  const char* config = std::getenv("XDG_CONFIG_HOME");
  const fs::path folder = config != nullptr && *config != '\0' ? fs::path(config) : home / ".config";
  std::ifstream file(folder / "user-dirs.dirs");
  fs::path found;
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with(kKey)) continue;
    std::string value = line.substr(kKey.size());
    value.erase(std::min(value.find('"'), value.size()));
    if (value.starts_with(kHome)) value.replace(0, kHome.size(), home.string());
    found = value;  // as in a shell, which reads this file too: the last one counts
  }
  return found;
}

bool IsFolder(const fs::path& path) {
  std::error_code error;
  return path.is_absolute() && fs::is_directory(path, error);
}

// The user has told where the folder is to be; that it is not there yet, or no longer, changes nothing.
bool IsOrBecomesFolder(const fs::path& path) {
  std::error_code error;
  if (path.is_absolute()) fs::create_directories(path, error);
  return IsFolder(path);
}

}  // namespace

std::optional<fs::path> DocumentsFolder() {
  const fs::path home = HomeFolder();
  if (fs::path configured = ConfiguredDocuments(home); IsOrBecomesFolder(configured)) return configured;
  for (const fs::path& folder : {home / "Documents", home}) {
    if (IsFolder(folder)) return folder;
  }
  return std::nullopt;
}

std::optional<fs::path> StateFolder() {
  constexpr char kOwn[] = "lumarine";
  if (const char* state = std::getenv("XDG_STATE_HOME"); state != nullptr && *state == '/')
    return fs::path(state) / kOwn;
  const fs::path home = HomeFolder();
  if (home.empty()) return std::nullopt;
  return home / ".local" / "state" / kOwn;
}

std::optional<fs::path> FindCompanionFile(const std::string& name) {
  const fs::path file = FindInstalledFile("share/lumarine", name);
  return file.empty() ? std::nullopt : std::optional(file);
}

std::optional<std::string_view> FindResourceBytes(int id, std::string_view type) {
  for (const ResourceRecord* record = __start_lumarine_resources; record != __stop_lumarine_resources;
       ++record) {
    if (record->id != id || record->type != type || record->begin == record->end) continue;
    return std::string_view(record->begin, static_cast<std::size_t>(record->end - record->begin));
  }
  return std::nullopt;
}

}  // namespace platform
