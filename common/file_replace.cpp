#include "common/file_replace.h"

#include <atomic>
#include <cerrno>
#include <exception>
#include <string>
#include <system_error>
#include <vector>

#include "common/files.h"
#include "common/platform.h"

namespace {

namespace fs = std::filesystem;
using platform::FileCallResult;
using platform::FileCalls;
using platform::FileTarget;

constexpr int kAttempts = 21;
constexpr int kWaitMilliseconds = 50;  // between two attempts

// The result of the call, or of the last attempt while somebody holds the file.
template <class Call>
FileCallResult Patiently(Call call) {
  for (int attempt = 1;; ++attempt) {
    const FileCallResult result = call();
    if (result.outcome != FileCallResult::Busy || attempt == kAttempts) return result;
    platform::SleepMilliseconds(kWaitMilliseconds);
  }
}

int WriteOut(FileCalls& calls, std::string_view bytes) {
  while (!bytes.empty()) {
    std::size_t written = 0;
    if (const int error = calls.Write(bytes, written).error) return error;
    bytes.remove_prefix(written);
  }
  return 0;
}

// Writes the rest of an open file to the disk and closes it.
int Finish(FileCalls& calls, std::string_view bytes) {
  int error = WriteOut(calls, bytes);
  if (error == 0) error = calls.Flush().error;
  // Network file systems tell only here that the disk was full.
  const int closeError = calls.Close().error;
  return error != 0 ? error : closeError;
}

int WriteStream(FileCalls& calls, const FileTarget& target, std::string_view bytes) {
  if (const int error = Patiently([&] { return calls.Open(target); }).error) return error;
  const int error = WriteOut(calls, bytes);
  const int closeError = calls.Close().error;
  return error != 0 ? error : closeError;
}

// A short name, since one made of the file's own could be too long.
std::string FreshName(const std::string& prefix, const std::string& suffix) {
  static std::atomic<unsigned> serial = 0;
  return prefix + std::to_string(platform::ClockTicks()) + "-" + std::to_string(serial++) + suffix;
}

// Creates a file under a free name, which `name` makes up.
template <class Name>
int CreateFresh(FileCalls& calls, const Name& name, bool guarded, fs::path& created) {
  // Two processes may meet on a name, and one that was killed leaves its file.
  constexpr int kNames = 100;
  int error = EEXIST;
  for (int i = 0; i < kNames && error == EEXIST; ++i) {
    created = name();
    error = calls.Create(created, guarded).error;
  }
  return error;
}

int CreateBeside(FileCalls& calls, const FileTarget& target, fs::path& beside) {
  const auto name = [&target] { return target.path.parent_path() / FreshName(".lumarine-", ".new"); };
  return CreateFresh(calls, name, target.kind == FileTarget::Regular, beside);
}

// Takes a new file back if an exception, as for want of memory, ends the save.
class TakenBackOnException {
 public:
  TakenBackOnException(FileCalls& calls, const fs::path& file) : calls_(calls), file_(file) {}
  TakenBackOnException(const TakenBackOnException&) = delete;
  TakenBackOnException& operator=(const TakenBackOnException&) = delete;
  ~TakenBackOnException() {
    if (std::uncaught_exceptions() == before_) return;
    calls_.Close();
    calls_.Remove(file_);
  }

 private:
  FileCalls& calls_;
  const fs::path& file_;
  const int before_ = std::uncaught_exceptions();
};

// Everything up to the moment where the new file can take the old one's place.
int Complete(FileCalls& calls, const FileTarget& old, std::string_view bytes) {
  const int error = old.kind == FileTarget::Regular ? calls.TakePermissions(old).error : 0;
  if (error == 0) return Finish(calls, bytes);
  calls.Close();
  return error;
}

FileCallResult SwapIn(FileCalls& calls, const fs::path& beside, const FileTarget& target) {
  const auto move = [&calls](const fs::path& from, const fs::path& to) {
    return Patiently([&] { return calls.Move(from, to); });
  };
  if (target.kind == FileTarget::Absent) return move(beside, target.path);

  const fs::path backup = fs::path(beside).replace_extension(".old");
  FileCallResult replaced = Patiently([&] { return calls.Replace(beside, target.path, backup); });
  if (replaced.outcome == FileCallResult::Halfway) {
    replaced = move(beside, target.path);
    // The old file must not be left under a name that nobody looks for.
    if (replaced.error != 0) move(backup, target.path);
  } else if (replaced.error != 0) {
    // The plain way asks less of the file system and fewer rights. Patience has had its turn.
    return calls.Move(beside, target.path);
  }
  if (replaced.error == 0) Patiently([&] { return calls.Remove(backup); });
  return replaced;
}

// Whether a folder refuses a new file that the file itself might well take.
bool RefusesNewFiles(int error) {
  return error == EACCES || error == EPERM || error == EROFS;
}

// Whether the old file cannot be swapped, though it might be written: it is a mount point (EBUSY), or its
// folder lets nobody but its owner rename it. Not while somebody holds it, who would read a half of it.
bool RefusesSwap(const FileTarget& target, const FileCallResult& swapped) {
  return target.kind == FileTarget::Regular && swapped.outcome == FileCallResult::Failed &&
         (swapped.error == EBUSY || RefusesNewFiles(swapped.error));
}

// The folders for a copy while a file is written in place, the best first: a user who must look for one
// finds it beside the file or among the documents, and it lasts there.
std::vector<fs::path> FoldersForCopies(const FileTarget& target) {
  std::vector<fs::path> folders{target.path.parent_path()};
  if (const auto documents = platform::DocumentsFolder()) folders.push_back(*documents);
  std::error_code error;
  const fs::path temporary = fs::temp_directory_path(error);
  if (!error) folders.push_back(temporary);
  return folders;
}

// Writes a copy of the new content to the disk. The error is that of the first folder.
int WriteCopy(FileCalls& calls, const FileTarget& target, std::string_view bytes, fs::path& copy) {
  int firstError = 0;
  for (const fs::path& folder : FoldersForCopies(target)) {
    const auto name = [&] { return (folder / FreshName("lumarine-copy-", "")) += target.path.extension(); };
    int error = CreateFresh(calls, name, true, copy);
    if (error == 0) {
      error = Finish(calls, bytes);
      if (error == 0) {
        calls.FlushFolder(folder);
        return 0;
      }
      Patiently([&] { return calls.Remove(copy); });
    }
    if (firstError == 0) firstError = error;
  }
  return firstError;
}

// Gives a file other content. An open file has lost its old one, as `isOpen` tells after a failure.
int Rewrite(FileCalls& calls, const FileTarget& target, std::string_view bytes, bool& isOpen) {
  const int error = Patiently([&] { return calls.Open(target); }).error;
  isOpen = error == 0;
  return isOpen ? Finish(calls, bytes) : error;
}

// Writes the new content into the old file while `copy` holds it, too. Where that fails the old content is
// put back. The copy stays only if that failed as well.
int Overwrite(FileCalls& calls, const FileTarget& target, std::string_view bytes, const fs::path& copy,
              fs::path* kept) {
  std::string old;
  const bool isKnown = ReadFileBytes(target.path, old);
  bool isOpen = false;
  const int error = Rewrite(calls, target, bytes, isOpen);
  if (error != 0 && isOpen && !(isKnown && Rewrite(calls, target, old, isOpen) == 0)) {
    if (kept != nullptr) *kept = copy;
    return error;
  }
  Patiently([&] { return calls.Remove(copy); });
  return error;
}

int WriteInPlace(FileCalls& calls, const FileTarget& target, std::string_view bytes, fs::path* kept) {
  fs::path copy;
  if (const int error = WriteCopy(calls, target, bytes, copy)) return error;
  const TakenBackOnException guard(calls, copy);
  return Overwrite(calls, target, bytes, copy, kept);
}

}  // namespace

int ReplaceFileBytes(FileCalls& calls, const fs::path& path, std::string_view bytes, fs::path* kept) {
  FileTarget target;
  if (const int error = calls.Inspect(path, target).error) return error;
  if (target.kind == FileTarget::Stream) return WriteStream(calls, target, bytes);
  if (target.hasHardLinks) return WriteInPlace(calls, target, bytes, kept);

  fs::path beside;
  int error = CreateBeside(calls, target, beside);
  if (target.kind == FileTarget::Regular && RefusesNewFiles(error))
    return WriteInPlace(calls, target, bytes, kept);
  if (error != 0) return error;
  const TakenBackOnException guard(calls, beside);
  error = Complete(calls, target, bytes);
  if (error == 0) {
    const FileCallResult swapped = SwapIn(calls, beside, target);
    // The new file, which is complete, serves as the copy.
    if (RefusesSwap(target, swapped)) return Overwrite(calls, target, bytes, beside, kept);
    error = swapped.error;
  }
  if (error == 0) {
    calls.FlushFolder(target.path.parent_path());
  } else {
    Patiently([&] { return calls.Remove(beside); });
  }
  return error;
}
