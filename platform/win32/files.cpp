// common/platform.h, replacing a file, on Windows.

#include <io.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <string>

#include "common/platform.h"
#include "platform/win32/windows_headers.h"

namespace platform {

namespace {

namespace fs = std::filesystem;

/// 0 or the error number.
int WriteWhole(const fs::path& path, std::string_view bytes) {
  std::FILE* file = _wfopen(path.c_str(), L"wb");
  if (file == nullptr) return errno;
  errno = 0;
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() &&
                       std::fflush(file) == 0 && _commit(_fileno(file)) == 0;
  int error = errno;
  const bool closed = std::fclose(file) == 0;
  if (written && closed) return 0;
  if (error == 0) error = errno;
  return error != 0 ? error : EIO;
}

int ErrorNumberOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
      return EACCES;
    case ERROR_DISK_FULL:
      return ENOSPC;
    default:
      return EIO;
  }
}

}  // namespace

int ReplaceFileBytes(const fs::path& path, std::string_view bytes) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
  // A file that is protected stays so; a folder and a device answer for themselves.
  if (exists && (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0) return EACCES;
  if (exists && (attributes & (FILE_ATTRIBUTE_DEVICE | FILE_ATTRIBUTE_REPARSE_POINT)) != 0) {
    return WriteWhole(path, bytes);
  }

  static std::atomic<unsigned> serial = 0;
  const fs::path beside = path.parent_path() / (L"~lumarine-" + std::to_wstring(GetCurrentProcessId()) +
                                                L"-" + std::to_wstring(serial++) + L".tmp");
  const int error = WriteWhole(beside, bytes);
  if (error == EACCES && exists) return WriteWhole(path, bytes);
  if (error != 0) {
    DeleteFileW(beside.c_str());
    return error;
  }
  // The first way gives the new file the old one's permissions, but cannot create a file, and where it fails
  // it may have removed the old one already.
  const bool moved =
      (exists && ReplaceFileW(path.c_str(), beside.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr,
                              nullptr) != 0) ||
      MoveFileExW(beside.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
  if (moved) return 0;
  const int number = ErrorNumberOf(GetLastError());
  DeleteFileW(beside.c_str());
  return number;
}

}  // namespace platform
