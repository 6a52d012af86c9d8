#include <cerrno>
#include <cstring>

#include "OvkLib/src/UWP/ovk_win_error_platform.h"
#include "OvkLib/src/UWP/ovk_win_str_utils.h"

namespace ovk::win {

namespace {

constexpr std::uint32_t kApplicationBit = 0x20000000;

// One row per number of this platform that says the same as a Win32 code; the first row of a code gives its
// text. EIO is not here: it does not tell a failed read from a failed write.
struct same_error {
  int number;
  std::uint32_t code;
};
constexpr same_error kSameErrors[] = {
    {EACCES, 5}, {EPERM, 5}, {EROFS, 19}, {EBUSY, 32}, {ETXTBSY, 32}, {ENOSPC, 112}, {EDQUOT, 112},
};

// 0 if the code comes from nowhere on this platform.
int number_of(std::uint32_t code) {
  if ((code & kApplicationBit) != 0) return static_cast<int>(code & ~kApplicationBit);
  for (const same_error& same : kSameErrors) {
    if (same.code == code) return same.number;
  }
  return 0;
}

}  // namespace

std::uint32_t last_error() {
  const int number = errno;
  for (const same_error& same : kSameErrors) {
    if (same.number == number) return same.code;
  }
  return number == 0 ? 0 : kApplicationBit | static_cast<std::uint32_t>(number);
}

bool append_error_text(std::uint32_t code, wstring& out) {
  const int number = number_of(code);
  const char* text = number == 0 ? nullptr : strerrordesc_np(number);
  if (text == nullptr) return false;
  out.append(WideFromUtf8(text));
  return true;
}

}  // namespace ovk::win
