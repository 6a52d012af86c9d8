// What Windows says of a device that somebody holds.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "common/files.h"
#include "doctor/computer_facts.h"
#include "platform/win32/windows_headers.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

bool IsRefused(const std::filesystem::path& file) {
  return platform::UseOfDevice(Utf8FromPath(file)).refused;
}

TEST(OpenFiles, MayBeKeptFromOthers) {
  const TemporaryFolder folder;
  const std::filesystem::path file = FileWith(folder / "device", "");
  EXPECT_FALSE(IsRefused(file));
  const HANDLE held = CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(IsRefused(file));
  CloseHandle(held);
  EXPECT_FALSE(IsRefused(file));
  EXPECT_FALSE(IsRefused(folder / "none"));
}

}  // namespace
