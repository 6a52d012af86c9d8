// common/file_replace.h, the calls, on POSIX.

#include "common/file_replace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>

namespace platform {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kNewFileMode = 0666;  // less what the user's mask takes away
constexpr mode_t kGuardedMode = 0600;
constexpr mode_t kPermissionBits = 07777;

FileCallResult ResultOf(bool done) {
  return done ? FileCallResult{} : FileCallResult{FileCallResult::Failed, errno};
}

FileCallResult Failure(int error) {
  return {FileCallResult::Failed, error};
}

// Whether the names in a folder stand for files that a process has open, as /dev/stdout does in the end.
bool HoldsOpenFiles(const fs::path& folder, std::error_code& error) {
  return fs::canonical(folder.empty() ? "." : folder, error).native().starts_with("/proc/");
}

// Goes from link to link, to the end of the last even if there is nothing. `isOpen` at the name of an open
// file: a new file in its place would not be the one that is open. The error if the system does not tell
// where a link leads: it must not be taken for the file.
int FollowLinks(fs::path& path, bool& isOpen) {
  constexpr int kMostLinks = 40;  // as the system's own limit
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code error;
    const fs::path next = fs::read_symlink(path, error);
    if (error.value() == EINVAL || error.value() == ENOENT) return 0;  // it is no link, or nothing
    if (!error) isOpen = HoldsOpenFiles(path.parent_path(), error);
    if (error || isOpen) return error.value();
    path = path.parent_path() / next;
  }
  return 0;
}

// The answer of a call, made again where a signal has broken it off.
template <class Call>
auto Uninterrupted(Call call) {
  for (;;) {
    const auto answer = call();
    if (answer >= 0 || errno != EINTR) return answer;
  }
}

class PosixFileCalls : public FileCalls {
 public:
  PosixFileCalls() = default;
  PosixFileCalls(const PosixFileCalls&) = delete;
  PosixFileCalls& operator=(const PosixFileCalls&) = delete;
  ~PosixFileCalls() override {
    if (file_ >= 0) close(file_);
  }

  FileCallResult Inspect(const fs::path& path, FileTarget& target) override {
    target = {FileTarget::Absent, path};
    const bool exists = stat(path.c_str(), &old_) == 0;
    if (!exists && errno != ENOENT) return Failure(errno);
    if (exists && S_ISDIR(old_.st_mode)) return Failure(EISDIR);
    if (exists && !S_ISREG(old_.st_mode)) {
      target.kind = FileTarget::Stream;
      return {};
    }
    bool isOpen = false;
    if (const int error = FollowLinks(target.path, isOpen)) return Failure(error);
    if (!exists) return {};
    target.kind = isOpen ? FileTarget::Stream : FileTarget::Regular;
    target.hasHardLinks = old_.st_nlink > 1;
    // A file that is protected stays so, though its folder would let it be replaced.
    return ResultOf(access(path.c_str(), W_OK) == 0);
  }

  FileCallResult Create(const fs::path& path, bool guarded) override {
    const mode_t mode = guarded ? kGuardedMode : kNewFileMode;
    file_ = Uninterrupted([&] { return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode); });
    return ResultOf(file_ >= 0);
  }

  FileCallResult TakePermissions(const FileTarget&) override {
    // Only root may give a file away, and only a member may give it to a group. Others keep the file.
    if (fchown(file_, old_.st_uid, old_.st_gid) != 0 &&
        fchown(file_, static_cast<uid_t>(-1), old_.st_gid) != 0)
      errno = 0;
    return ResultOf(fchmod(file_, old_.st_mode & kPermissionBits) == 0);
  }

  FileCallResult Open(const FileTarget& target) override {
    file_ = Uninterrupted([&] { return open(target.path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC); });
    return ResultOf(file_ >= 0);
  }

  FileCallResult Write(std::string_view bytes, std::size_t& written) override {
    const ssize_t count = Uninterrupted([&] { return write(file_, bytes.data(), bytes.size()); });
    if (count == 0) return Failure(EIO);
    if (count > 0) written = static_cast<std::size_t>(count);
    return ResultOf(count > 0);
  }

  FileCallResult Flush() override {
    return ResultOf(Uninterrupted([this] { return fsync(file_); }) == 0);
  }

  FileCallResult Close() override {
    const int file = file_;
    file_ = -1;
    // A call that a signal has broken off has closed it, and everything was flushed before.
    return ResultOf(close(file) == 0 || errno == EINTR);
  }

  // One step, for which no backup is needed: there is always a file of that name.
  FileCallResult Replace(const fs::path& from, const fs::path& to, const fs::path&) override {
    return Move(from, to);
  }

  FileCallResult Move(const fs::path& from, const fs::path& to) override {
    return ResultOf(std::rename(from.c_str(), to.c_str()) == 0);
  }

  FileCallResult Remove(const fs::path& path) override {
    return ResultOf(unlink(path.c_str()) == 0 || errno == ENOENT);
  }

  // Some file systems cannot, and some folders may be written but not opened. The file is whole either way.
  void FlushFolder(const fs::path& folder) override {
    const int handle = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return;
    fsync(handle);
    close(handle);
  }

 private:
  struct stat old_ {};
  int file_ = -1;
};

}  // namespace

std::unique_ptr<FileCalls> SystemFileCalls() {
  return std::make_unique<PosixFileCalls>();
}

}  // namespace platform
