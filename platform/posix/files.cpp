// common/platform.h, replacing a file, on POSIX.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <string>

#include "common/platform.h"

namespace platform {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kNewFileMode = 0666;  // less what the user's mask takes away
constexpr mode_t kPermissionBits = 07777;

/// An open file; closed at the end of its life at the latest.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool IsOpen() const { return number_ >= 0; }
  int number() const { return number_; }

  bool Write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = write(number_, bytes.data(), bytes.size());
      if (written < 0 && errno != EINTR) return false;
      if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
  }

  /// Network file systems tell only here that the disk was full.
  bool Close() {
    const int number = number_;
    number_ = -1;
    return number < 0 || close(number) == 0;
  }

 private:
  int number_;
};

int OverwriteInPlace(const fs::path& path, std::string_view bytes) {
  Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kNewFileMode));
  return file.IsOpen() && file.Write(bytes) && file.Close() ? 0 : errno;
}

/// A name in `folder` that is free as far as this process knows; leftovers of a process that died are
/// skipped.
int CreateBeside(const fs::path& folder, fs::path& path) {
  static std::atomic<unsigned> serial = 0;
  constexpr int kAttempts = 100;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    path = folder / (".lumarine-" + std::to_string(getpid()) + "-" + std::to_string(serial++));
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
    if (file >= 0 || errno != EEXIST) return file;
  }
  return -1;
}

/// The new file is the old one to everybody else: same owner, same permissions.
bool TakeOver(const Descriptor& file, const struct stat& old) {
  // Giving a file away is root's privilege; for everybody else the owner is the same already or cannot be.
  if (fchown(file.number(), old.st_uid, old.st_gid) != 0) errno = 0;
  return fchmod(file.number(), old.st_mode & kPermissionBits) == 0;
}

/// Makes a rename last through a loss of power. Some file systems cannot; the file itself is safe either way.
void SyncFolder(const fs::path& folder) {
  const Descriptor handle(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (handle.IsOpen()) fsync(handle.number());
}

}  // namespace

int ReplaceFileBytes(const fs::path& path, std::string_view bytes) {
  // Through links to the file itself, which keeps the links.
  std::error_code error;
  const fs::path resolved = fs::canonical(path, error);
  const fs::path target = error ? path : resolved;

  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (exists && !S_ISREG(old.st_mode)) return OverwriteInPlace(target, bytes);
  // A file that is protected stays so, though its folder would let it be replaced.
  if (exists && access(target.c_str(), W_OK) != 0) return errno;

  const fs::path folder = target.has_parent_path() ? target.parent_path() : ".";
  fs::path beside;
  Descriptor file(CreateBeside(folder, beside));
  if (!file.IsOpen()) return exists && errno == EACCES ? OverwriteInPlace(target, bytes) : errno;

  const bool complete = (!exists || TakeOver(file, old)) && file.Write(bytes) && fsync(file.number()) == 0 &&
                        file.Close() && std::rename(beside.c_str(), target.c_str()) == 0;
  if (!complete) {
    const int number = errno;
    unlink(beside.c_str());
    return number;
  }
  SyncFolder(folder);
  return 0;
}

}  // namespace platform
