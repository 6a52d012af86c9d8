// common/file_replace.h, the calls, on Windows.

#include "common/file_replace.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <utility>

#include "platform/win32/windows_headers.h"

namespace platform {

namespace {

namespace fs = std::filesystem;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

int ErrorNumberOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_INVALID_DRIVE:
      return ENOENT;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_DELETE_PENDING:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_UNABLE_TO_REMOVE_REPLACED:
    case ERROR_UNABLE_TO_MOVE_REPLACEMENT:
      return EACCES;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case ERROR_WRITE_PROTECT:
      return EROFS;
    case ERROR_FILENAME_EXCED_RANGE:
      return ENAMETOOLONG;
    case ERROR_INVALID_NAME:
      return EINVAL;
    default:
      return EIO;
  }
}

FileCallResult Failure(DWORD error) {
  return {FileCallResult::Failed, ErrorNumberOf(error)};
}

FileCallResult ResultOf(BOOL done) {
  return done ? FileCallResult{} : Failure(GetLastError());
}

// The result of a call on a file that others may hold: scanners and indexers open what was just written.
FileCallResult SharedResultOf(BOOL done) {
  FileCallResult result = ResultOf(done);
  if (result.error == EACCES) result.outcome = FileCallResult::Busy;
  return result;
}

// An open file; closed at the end of its life at the latest.
class Handle {
 public:
  Handle() = default;
  explicit Handle(HANDLE value) : value_(value) {}
  ~Handle() { Close(); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  bool Take(HANDLE value) {
    Close();
    value_ = value;
    return IsOpen();
  }
  BOOL Close() { return !IsOpen() || CloseHandle(std::exchange(value_, INVALID_HANDLE_VALUE)); }
  bool IsOpen() const { return value_ != INVALID_HANDLE_VALUE; }
  HANDLE value() const { return value_; }

 private:
  HANDLE value_ = INVALID_HANDLE_VALUE;
};

bool IsLink(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

// The path of an open file behind all links, or `path` if the system does not say.
fs::path FinalPath(const Handle& file, const fs::path& path) {
  const DWORD size = GetFinalPathNameByHandleW(file.value(), nullptr, 0, FILE_NAME_NORMALIZED);
  std::wstring name(size, L'\0');
  const DWORD length = GetFinalPathNameByHandleW(file.value(), name.data(), size, FILE_NAME_NORMALIZED);
  if (length == 0 || length >= size) return path;
  name.resize(length);
  return name;
}

class WindowsFileCalls : public FileCalls {
 public:
  FileCallResult Inspect(const fs::path& path, FileTarget& target) override {
    target = {FileTarget::Absent, path};
    // Pipes and ports by their device names: to look at one would be to use it.
    if (path.native().starts_with(L"\\\\.\\")) {
      target.kind = FileTarget::Stream;
      return {};
    }
    const Handle file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file.IsOpen()) {
      const FileCallResult result = ResultOf(FALSE);
      return result.error == ENOENT ? FileCallResult{} : result;
    }
    if (GetFileType(file.value()) != FILE_TYPE_DISK) {
      target.kind = FileTarget::Stream;
      return {};
    }
    BY_HANDLE_FILE_INFORMATION facts{};
    if (!GetFileInformationByHandle(file.value(), &facts)) return ResultOf(FALSE);
    // A file that is protected stays so.
    if ((facts.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0)
      return Failure(ERROR_ACCESS_DENIED);
    target.kind = FileTarget::Regular;
    target.hasHardLinks = facts.nNumberOfLinks > 1;
    if (IsLink(path)) target.path = FinalPath(file, path);
    return {};
  }

  FileCallResult Create(const fs::path& path, bool) override {
    return ResultOf(file_.Take(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr)));
  }

  // Replace() does it.
  FileCallResult TakePermissions(const FileTarget&) override { return {}; }

  FileCallResult Open(const FileTarget& target) override {
    const DWORD how = target.kind == FileTarget::Regular ? TRUNCATE_EXISTING : OPEN_EXISTING;
    return SharedResultOf(
        file_.Take(CreateFileW(target.path.c_str(), GENERIC_WRITE, kShareAll, nullptr, how, 0, nullptr)));
  }

  FileCallResult Write(std::string_view bytes, std::size_t& written) override {
    constexpr std::size_t kMostAtOnce = std::size_t{64} * 1024 * 1024;  // the call counts in 32 bits
    DWORD count = 0;
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    if (!WriteFile(file_.value(), bytes.data(), size, &count, nullptr)) return ResultOf(FALSE);
    written = count;
    return count > 0 ? FileCallResult{} : Failure(ERROR_WRITE_FAULT);
  }

  FileCallResult Flush() override { return ResultOf(FlushFileBuffers(file_.value())); }

  FileCallResult Close() override { return ResultOf(file_.Close()); }

  FileCallResult Replace(const fs::path& from, const fs::path& to, const fs::path& backup) override {
    constexpr DWORD kFlags = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
    // Without a backup a failure can leave no file at all.
    const BOOL done = ReplaceFileW(to.c_str(), from.c_str(), backup.c_str(), kFlags, nullptr, nullptr);
    const bool halfway = !done && GetLastError() == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2;
    return halfway ? FileCallResult{FileCallResult::Halfway, EACCES} : SharedResultOf(done);
  }

  FileCallResult Move(const fs::path& from, const fs::path& to) override {
    return SharedResultOf(
        MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
  }

  FileCallResult Remove(const fs::path& path) override {
    const FileCallResult result = SharedResultOf(DeleteFileW(path.c_str()));
    return result.error == ENOENT ? FileCallResult{} : result;
  }

  // The file system's own journal does.
  void FlushFolder(const fs::path&) override {}

 private:
  Handle file_;
};

}  // namespace

std::unique_ptr<FileCalls> SystemFileCalls() {
  return std::make_unique<WindowsFileCalls>();
}

}  // namespace platform
