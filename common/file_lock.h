#pragma once

// Turns at a file that several copies of the program read, change and write.

#include <filesystem>
#include <memory>

namespace platform {

/// A turn, which ends with the object or with the process.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

/// Whoever else asks for the same file waits in this call while the answer lives: another process of this
/// user, or another thread. Nobody is kept from the file itself, and nothing is left on the disk. Waits a
/// second at most. Null if it is not the caller's turn by then, or if the folder cannot be locked. The answer
/// stays on its thread, which has one at a time.
std::unique_ptr<FileLock> TakeFileLock(const std::filesystem::path& path);

}  // namespace platform
