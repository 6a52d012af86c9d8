// The error numbers of POSIX as Win32 codes.

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "OvkLib/src/UWP/ovk_win_error.h"
#include "OvkLib/src/UWP/ovk_win_str_utils.h"

namespace {

struct Row {
  int number;
  std::uint32_t code;
  const char* text;
};

constexpr Row kRows[] = {
    {EACCES, 5, "Permission denied"},
    {EPERM, 5, "Permission denied"},
    {EROFS, 19, "Read-only file system"},
    {EBUSY, 32, "Device or resource busy"},
    {ETXTBSY, 32, "Device or resource busy"},
    {ENOSPC, 112, "No space left on device"},
    {EDQUOT, 112, "No space left on device"},
    // These have no class, and must not be taken for the Win32 codes of the same number.
    {EIO, 0x20000005, "Input/output error"},
    {ENOTDIR, 0x20000014, "Not a directory"},
    {ENOENT, 0x20000002, "No such file or directory"},
    {EPIPE, 0x20000020, "Broken pipe"},
};

TEST(PosixError, NumbersBecomeTheCodeThatSaysTheSameOrOneOfTheirOwn) {
  for (const Row& row : kRows) {
    errno = row.number;
    try {
      ovk::win::check(true, 1, "a");
      FAIL() << "nothing thrown";
    } catch (const ovk::win::xsystem& thrown) {
      EXPECT_EQ(thrown.code(), row.code) << row.text;
      ovk::wstring described;
      thrown.describe(described);
      EXPECT_TRUE(Utf8FromWide(described.view()).ends_with(std::string("\nDescription: ") + row.text));
    }
  }
}

TEST(PosixError, NoNumberIsCodeZero) {
  errno = 0;
  try {
    ovk::win::check(true, 1, "a");
    FAIL() << "a call that failed without a number has failed all the same";
  } catch (const ovk::win::xsystem& thrown) {
    EXPECT_EQ(thrown.code(), 0U);
  }
}

}  // namespace
