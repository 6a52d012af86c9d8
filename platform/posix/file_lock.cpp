// common/file_lock.h, on POSIX: a lock of the file's folder. One of the file itself would go with the file,
// which saving replaces; a file for the lock alone would lie about.

#include "common/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace platform {

namespace {

using std::chrono::steady_clock;

constexpr auto kPatience = std::chrono::seconds(1);
constexpr auto kBetweenAttempts = std::chrono::milliseconds(5);

class FolderLock : public FileLock {
 public:
  explicit FolderLock(const std::filesystem::path& folder)
      : folder_(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;
  ~FolderLock() override {
    if (folder_ >= 0) close(folder_);
  }

  bool Take() const {
    const auto end = steady_clock::now() + kPatience;
    while (flock(folder_, LOCK_EX | LOCK_NB) != 0) {
      const bool isTaken = errno == EWOULDBLOCK || errno == EINTR;
      if (!isTaken || steady_clock::now() >= end) return false;
      std::this_thread::sleep_for(kBetweenAttempts);
    }
    return true;
  }

 private:
  const int folder_;
};

}  // namespace

std::unique_ptr<FileLock> TakeFileLock(const std::filesystem::path& path) {
  auto lock = std::make_unique<FolderLock>(path.parent_path());
  if (!lock->Take()) return nullptr;
  return lock;
}

}  // namespace platform
