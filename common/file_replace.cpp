#include "common/file_replace.h"

#include <atomic>
#include <cerrno>
#include <string>

#include "common/platform.h"

namespace {

namespace fs = std::filesystem;
using platform::FileCallResult;
using platform::FileCalls;
using platform::FileTarget;

constexpr int kAttempts = 21;
constexpr int kWaitMilliseconds = 50;  // between two attempts

/// The result of the call, or of the last attempt while somebody holds the file.
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

int WriteStream(FileCalls& calls, const fs::path& path, std::string_view bytes) {
  if (const int error = Patiently([&] { return calls.Open(path); }).error) return error;
  const int error = WriteOut(calls, bytes);
  const int closeError = calls.Close().error;
  return error != 0 ? error : closeError;
}

/// A short name, since one made of the file's own could be too long.
fs::path NameBeside(const fs::path& target) {
  static std::atomic<unsigned> serial = 0;
  const std::string now = std::to_string(platform::ClockTicks());
  return target.parent_path() / (".lumarine-" + now + "-" + std::to_string(serial++) + ".new");
}

/// Creates the new file under a free name.
int CreateBeside(FileCalls& calls, const FileTarget& target, fs::path& beside) {
  // Two processes may meet on a name, and one that was killed leaves its file.
  constexpr int kNames = 100;
  int error = EEXIST;
  for (int i = 0; i < kNames && error == EEXIST; ++i) {
    beside = NameBeside(target.path);
    error = calls.Create(beside, target.kind == FileTarget::Regular).error;
  }
  return error;
}

/// Everything up to the moment where the new file can take the old one's place.
int Complete(FileCalls& calls, const FileTarget& old, std::string_view bytes) {
  int error = old.kind == FileTarget::Regular ? calls.TakePermissions(old).error : 0;
  if (error == 0) error = WriteOut(calls, bytes);
  if (error == 0) error = calls.Flush().error;
  // Network file systems tell only here that the disk was full.
  const int closeError = calls.Close().error;
  return error != 0 ? error : closeError;
}

int SwapIn(FileCalls& calls, const fs::path& beside, const FileTarget& target) {
  const auto move = [&calls](const fs::path& from, const fs::path& to) {
    return Patiently([&] { return calls.Move(from, to); });
  };
  if (target.kind == FileTarget::Absent) return move(beside, target.path).error;

  const fs::path backup = fs::path(beside).replace_extension(".old");
  const FileCallResult replaced = Patiently([&] { return calls.Replace(beside, target.path, backup); });
  int error = replaced.error;
  if (replaced.outcome == FileCallResult::Halfway) {
    error = move(beside, target.path).error;
    // The old file must not be left under a name that nobody looks for.
    if (error != 0) move(backup, target.path);
  } else if (error != 0) {
    // The plain way asks less of the file system and fewer rights. Patience has had its turn.
    return calls.Move(beside, target.path).error;
  }
  if (error == 0) Patiently([&] { return calls.Remove(backup); });
  return error;
}

}  // namespace

int ReplaceFileBytes(FileCalls& calls, const fs::path& path, std::string_view bytes) {
  FileTarget target;
  if (const int error = calls.Inspect(path, target).error) return error;
  if (target.kind == FileTarget::Stream) return WriteStream(calls, target.path, bytes);

  fs::path beside;
  if (const int error = CreateBeside(calls, target, beside)) return error;
  int error = Complete(calls, target, bytes);
  if (error == 0) error = SwapIn(calls, beside, target);
  if (error == 0) {
    calls.FlushFolder(target.path.parent_path());
  } else {
    Patiently([&] { return calls.Remove(beside); });
  }
  return error;
}
