#pragma once

// Writing files all or nothing. The new content is written beside the old file, and takes its place when it
// is complete on disk. So whoever reads the file finds the old content or the new one, whole, even if the
// process that writes is killed.
//
// Some files cannot be swapped: those with hard links, which would part from each other, those whose folder
// takes no new files, and those that are mounted by themselves. They are written in place, after a copy of
// the new content is complete on disk somewhere else: at any moment the old content, the new one or that copy
// is whole.

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string_view>

namespace platform {

/// What became of one call to the system.
struct FileCallResult {
  enum Outcome {
    Done,
    Failed,   // for good, as far as one can tell
    Busy,     // somebody holds the file, a virus scanner maybe: try again
    Halfway,  // of Replace: the old file stands under the backup name, and nothing in its place
  };

  Outcome outcome = Done;
  int error = 0;  // the C library's number of it, 0 when done
};

/// What stands at a path.
struct FileTarget {
  enum Kind {
    Absent,   // nothing, or a link to nothing
    Regular,  // a file that can be replaced
    Stream,   // a device, a pipe, a name of an open file: to be written directly
  };

  Kind kind = Absent;
  std::filesystem::path path;  // where symbolic links lead
  bool hasHardLinks = false;   // the file has other names, which must go on to name the same content
};

/// The calls to the system by which a file is replaced, one each; a test puts its own between them. One
/// object serves one save on one thread, and has at most one file open, which it closes at the end of its
/// life.
class FileCalls {
 public:
  virtual ~FileCalls() = default;

  /// Follows links. Fails for what cannot be written: a folder, a file that is protected.
  virtual FileCallResult Inspect(const std::filesystem::path& path, FileTarget& target) = 0;
  /// Opens a new file. Nobody but the user may read a `guarded` one: it will take over the permissions of
  /// another file. EEXIST if there is a file already.
  virtual FileCallResult Create(const std::filesystem::path& path, bool guarded) = 0;
  /// Gives the open file the permissions of the old one, unless Replace() does.
  virtual FileCallResult TakePermissions(const FileTarget& old) = 0;
  /// Opens what stands there: a stream to be written into, or a regular file, which is empty from then on.
  virtual FileCallResult Open(const FileTarget& target) = 0;
  /// Writes at least one byte of `bytes`, which is not empty; `written` tells how many.
  virtual FileCallResult Write(std::string_view bytes, std::size_t& written) = 0;
  /// Waits until what was written is on the disk.
  virtual FileCallResult Flush() = 0;
  /// After a failure the file is closed all the same.
  virtual FileCallResult Close() = 0;

  /// Puts the file `from` in the place of the file `to`, with the permissions of `to`. `backup` is a free
  /// name, which the old file may bear afterwards.
  virtual FileCallResult Replace(const std::filesystem::path& from, const std::filesystem::path& to,
                                 const std::filesystem::path& backup) = 0;
  /// Renames a file. It replaces a file that has the name `to` already.
  virtual FileCallResult Move(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  /// Removes a file. That there is none is no failure.
  virtual FileCallResult Remove(const std::filesystem::path& path) = 0;
  /// Makes renames in a folder last through a loss of power, as well as the platform can.
  virtual void FlushFolder(const std::filesystem::path& folder) = 0;
};

/// The platform's own.
std::unique_ptr<FileCalls> SystemFileCalls();

}  // namespace platform

/// Makes `bytes` the content of the file at `path`; permissions stay, and so do hard links, and symbolic
/// links on the way. Returns 0, or the C library's number of the error. Waits a second for somebody who holds
/// the file.
///
/// After an error the old file is whole and nothing else is left, with two exceptions. A stream may have
/// taken a part of the new content. So may a file that had to be written in place, if its old content could
/// not be put back either: then `kept`, unless it is null, names a copy of the new content. Otherwise `kept`
/// stays as it was.
int ReplaceFileBytes(platform::FileCalls& calls, const std::filesystem::path& path, std::string_view bytes,
                     std::filesystem::path* kept = nullptr);
