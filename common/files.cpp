#include "common/files.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <system_error>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/file_replace.h"
#include "common/log.h"
#include "common/platform.h"

namespace {

using PathChar = std::filesystem::path::value_type;

/// 0, or the C library's number of what went wrong.
int AppendToFile(const std::filesystem::path& path, std::string_view data) {
  errno = 0;
  std::ofstream file(path, std::ios::binary | std::ios::app);
  file.write(data.data(), static_cast<std::streamsize>(data.size()));
  file.close();
  if (file) return 0;
  return errno != 0 ? errno : EIO;
}

}  // namespace

bool ReadFileBytes(const std::filesystem::path& path, std::string& out, std::size_t most) {
  // A folder opens on some platforms, and a pipe blocks until somebody writes into it.
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return false;
  if (std::filesystem::file_size(path, error) > most) return false;
  std::ifstream file(path, std::ios::binary);
  if (!file) return false;

  constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;
  std::string bytes;
  // In pieces until the end, since the size that is told beforehand can be too low (files that grow, /proc).
  while (file) {
    const std::size_t length = bytes.size();
    if (length > most) return false;
    bytes.resize(length + kPieceBytes);
    file.read(bytes.data() + length, static_cast<std::streamsize>(kPieceBytes));
    bytes.resize(length + static_cast<std::size_t>(file.gcount()));
  }
  if (!file.eof() || bytes.size() > most) return false;
  out = std::move(bytes);
  return true;
}

bool WriteFileBytes(const std::filesystem::path& path, std::string_view data, bool append) {
  const int error =
      append ? AppendToFile(path, data) : ReplaceFileBytes(*platform::SystemFileCalls(), path, data);
  if (error == 0) return true;
  LogStatus(Message("Error creating file {1}, error: {2}", path, std::generic_category().message(error)));
  return false;
}

bool LoadResourceBytes(int id, std::string_view type, std::string& out) {
  const auto bytes = platform::FindResourceBytes(id, type);
  if (!bytes || bytes->empty()) return false;
  out = *bytes;
  return true;
}

std::string Utf8FromPath(const std::filesystem::path& path) {
  // Not path::u8string(), which throws on a name that is no proper Unicode.
  const auto& native = path.native();
  if constexpr (sizeof(PathChar) == sizeof(char16_t)) {
    return Utf8FromWide(std::u16string(native.begin(), native.end()));
  } else {
    return std::string(native.begin(), native.end());
  }
}

std::filesystem::path PathFromUtf8(std::string_view text) {
  if constexpr (sizeof(PathChar) == sizeof(char16_t)) {
    const std::u16string wide = WideFromUtf8(text);
    return std::basic_string<PathChar>(wide.begin(), wide.end());
  } else {
    return std::basic_string<PathChar>(text.begin(), text.end());
  }
}
