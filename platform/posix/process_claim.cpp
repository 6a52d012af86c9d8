// common/process_claim.h, on POSIX: a lock, which the system gives back with the descriptor.

#include "common/process_claim.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace platform {

namespace {

class LockedFile : public ProcessClaim {
 public:
  explicit LockedFile(const std::filesystem::path& path)
      : path_(path), file_(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR)) {}
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;
  ~LockedFile() override {
    // While it is locked: nobody can have claimed it in between.
    if (isClaimed_) unlink(path_.c_str());
    if (file_ >= 0) close(file_);
  }

  bool IsOpen() const { return file_ >= 0; }
  bool Lock() const {
    int result = 0;
    do result = flock(file_, LOCK_EX | LOCK_NB);
    while (result != 0 && errno == EINTR);
    return result == 0;
  }
  // The one who had it may have removed the file after it was opened here: then the lock is of a file that
  // nobody finds any more.
  bool Stands() {
    struct stat own {};
    struct stat there {};
    isClaimed_ = fstat(file_, &own) == 0 && stat(path_.c_str(), &there) == 0 && own.st_dev == there.st_dev &&
                 own.st_ino == there.st_ino;
    return isClaimed_;
  }

 private:
  const std::filesystem::path path_;
  const int file_;
  bool isClaimed_ = false;
};

}  // namespace

std::unique_ptr<ProcessClaim> ClaimFile(const std::filesystem::path& path) {
  for (;;) {
    auto file = std::make_unique<LockedFile>(path);
    if (!file->IsOpen() || !file->Lock()) return nullptr;
    if (file->Stands()) return file;
  }
}

}  // namespace platform
