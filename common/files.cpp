#include "common/files.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <system_error>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/file_replace.h"
#include "common/log.h"
#include "common/platform.h"

namespace {

using PathChar = std::filesystem::path::value_type;

// 0, or the C library's number of what went wrong.
int AppendToFile(const std::filesystem::path& path, std::string_view data) {
  errno = 0;
  std::ofstream file(path, std::ios::binary | std::ios::app);
  file.write(data.data(), static_cast<std::streamsize>(data.size()));
  file.close();
  if (file) return 0;
  return errno != 0 ? errno : EIO;
}

// Why something is no regular file, as the C library's number.
int NumberOf(const std::filesystem::file_status& status, const std::error_code& error) {
  if (status.type() == std::filesystem::file_type::directory) return EISDIR;
  if (status.type() == std::filesystem::file_type::not_found) return ENOENT;
  const std::error_condition condition = error.default_error_condition();
  return condition.category() == std::generic_category() && condition.value() != 0 ? condition.value()
                                                                                   : EINVAL;
}

// 0, or the C library's number of what went wrong.
int ReadFile(const std::filesystem::path& path, std::string& out, std::size_t most) {
  // A folder opens on some platforms, and a pipe blocks until somebody writes into it.
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (!std::filesystem::is_regular_file(status)) return NumberOf(status, error);
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error) return error.default_error_condition().value();
  if (size > most) return EFBIG;
  std::ifstream file;
  if (const int fault = OpenToRead(path, file)) return fault;

  constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;
  std::string bytes;
  // Read in pieces until the end: the size that is told beforehand can be too low (files that grow, /proc).
  while (file) {
    const std::size_t length = bytes.size();
    if (length > most) return EFBIG;
    bytes.resize(length + kPieceBytes);
    file.read(bytes.data() + length, static_cast<std::streamsize>(kPieceBytes));
    bytes.resize(length + static_cast<std::size_t>(file.gcount()));
  }
  if (!file.eof()) return errno != 0 ? errno : EIO;
  if (bytes.size() > most) return EFBIG;
  out = std::move(bytes);
  return 0;
}

}  // namespace

int OpenToRead(const std::filesystem::path& path, std::ifstream& file) {
  do {
    errno = 0;
    file.open(path, std::ios::binary);
  } while (!file && errno == EINTR);
  if (file) return 0;
  return errno != 0 ? errno : EIO;
}

bool ReadFileBytes(const std::filesystem::path& path, std::string& out, std::size_t most,
                   std::string* reason) {
  const int error = ReadFile(path, out, most);
  if (error != 0 && reason != nullptr) *reason = std::generic_category().message(error);
  return error == 0;
}

bool WriteFileBytes(const std::filesystem::path& path, std::string_view data, bool append,
                    std::string* reason) {
  std::filesystem::path kept;
  const int error =
      append ? AppendToFile(path, data) : ReplaceFileBytes(*platform::SystemFileCalls(), path, data, &kept);
  if (error == 0) return true;
  std::string why = std::generic_category().message(error);
  LogStatus(Message("Error creating file {1}, error: {2}", path, why));
  if (!kept.empty()) {
    const Message where("What was to be written is in {1}", kept);
    LogStatus(where);
    why += "\r\n" + where.utf8();
  }
  if (reason != nullptr) *reason = std::move(why);
  return false;
}

std::uint64_t ContentMark(std::string_view bytes) {
  constexpr std::uint64_t kOffset = 14695981039346656037U;
  constexpr std::uint64_t kPrime = 1099511628211U;
  std::uint64_t mark = kOffset;
  for (const char byte : bytes) mark = (mark ^ static_cast<unsigned char>(byte)) * kPrime;
  return mark;
}

bool MayBeThere(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::status(path, error).type() != std::filesystem::file_type::not_found;
}

bool LoadResourceBytes(int id, std::string_view type, std::string& out) {
  const auto bytes = platform::FindResourceBytes(id, type);
  if (!bytes || bytes->empty()) return false;
  out = *bytes;
  return true;
}

std::string Utf8FromPath(const std::filesystem::path& path) {
  // path::u8string() would throw on a name that is no proper Unicode.
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
