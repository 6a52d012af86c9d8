#pragma once

// A folder for fuzzers of what reads and writes files. It is the process's working folder and its user's
// home: nothing outside of it is read or written.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include "fuzz/input.h"

namespace fuzz {

class WorkingFolder {
 public:
  WorkingFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "lumarine-fuzz-XXXXXX").string();
    Require(mkdtemp(name.data()) != nullptr);
    path_ = name;
    std::filesystem::current_path(path_);
    for (const char* const variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME",
                                       "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "TMPDIR"})
      setenv(variable, name.c_str(), 1);
  }
  ~WorkingFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;

  std::filesystem::path operator/(const char* name) const { return path_ / name; }

  void Write(const char* name, std::string_view bytes) const {
    std::ofstream(path_ / name, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  std::string Read(const char* name) const {
    std::ostringstream bytes;
    bytes << std::ifstream(path_ / name, std::ios::binary).rdbuf();
    return bytes.str();
  }

  /// Takes all files and folders out of it.
  void Empty() const {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
      std::filesystem::remove_all(entry.path(), ignored);
  }

 private:
  std::filesystem::path path_;
};

/// The one of the process. It goes with the process, unless that is killed.
inline WorkingFolder& ThisFolder() {
  static WorkingFolder folder;
  return folder;
}

}  // namespace fuzz
