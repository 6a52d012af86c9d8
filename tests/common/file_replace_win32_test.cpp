// Replacing files that others hold, and what is no file on Windows.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "common/file_replace.h"
#include "common/files.h"
#include "common/log.h"
#include "platform/win32/windows_headers.h"
#include "tests/common/file_calls_between.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/virtual_clock.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class WindowsFileReplace : public testing::Test {
 protected:
  void SetUp() override {
    virtual_clock::Reset();
    statusLog.Drain();
    ASSERT_TRUE(WriteFileBytes(file_, "old"));
  }

  // As a scanner holds it: others may neither write nor remove it.
  HANDLE Hold() {
    const HANDLE file =
        CreateFileW(file_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    return file;
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.path()))
      names.push_back(entry.path().filename().string());
    return names;
  }

  const TemporaryFolder folder_;
  const fs::path file_ = folder_ / "program.xml";
};

TEST_F(WindowsFileReplace, WaitsForAScannerThatHoldsTheFileForAMoment) {
  const HANDLE held = Hold();
  virtual_clock::At(0.3, [held] { CloseHandle(held); });
  EXPECT_TRUE(WriteFileBytes(file_, "new"));
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.3);
  EXPECT_EQ(BytesOf(file_), "new");
  EXPECT_THAT(Names(), ElementsAre("program.xml"));
}

TEST_F(WindowsFileReplace, TellsOfAFileThatIsHeldForLongAndLeavesItWhole) {
  const HANDLE held = Hold();
  EXPECT_FALSE(WriteFileBytes(file_, "new"));
  CloseHandle(held);
  EXPECT_EQ(BytesOf(file_), "old");
  EXPECT_THAT(Names(), ElementsAre("program.xml"));
  std::string lines;
  statusLog.textHandler = [&lines](const std::string& text) { lines += text; };
  statusLog.Drain();
  statusLog.textHandler = nullptr;
  EXPECT_EQ(lines, "Error creating file " + Utf8FromPath(file_) + ", error: Permission denied\r\n");
}

TEST_F(WindowsFileReplace, OfAFileWithAHardLinkKeepsItOneFile) {
  fs::create_hard_link(file_, folder_ / "same.xml");
  ASSERT_TRUE(WriteFileBytes(file_, "a much longer text"));
  ASSERT_TRUE(WriteFileBytes(file_, "new"));
  EXPECT_EQ(BytesOf(file_), "new");
  EXPECT_TRUE(fs::equivalent(file_, folder_ / "same.xml"));
  EXPECT_THAT(Names(), testing::UnorderedElementsAre("program.xml", "same.xml"));
}

TEST_F(WindowsFileReplace, OfAHardLinkThatIsHeldLeavesTheFileWhole) {
  fs::create_hard_link(file_, folder_ / "same.xml");
  const HANDLE held = Hold();
  EXPECT_FALSE(WriteFileBytes(file_, "new"));
  CloseHandle(held);
  EXPECT_EQ(BytesOf(file_), "old");
  EXPECT_THAT(Names(), testing::UnorderedElementsAre("program.xml", "same.xml"));
}

TEST_F(WindowsFileReplace, OfADeviceWritesIntoIt) {
  EXPECT_TRUE(WriteFileBytes(L"NUL", "gone"));
  EXPECT_TRUE(WriteFileBytes(L"\\\\.\\NUL", "gone"));
  EXPECT_FALSE(fs::exists(folder_ / "NUL.new"));
}

TEST_F(WindowsFileReplace, IsNotHinderedByAReaderThatAllowsRemoval) {
  const HANDLE reader = CreateFileW(file_.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(reader, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(WriteFileBytes(file_, "new"));
  CloseHandle(reader);
  EXPECT_EQ(BytesOf(file_), "new");
}

// A process is killed by starting this program anew, which comes here once more: the folder must be the same
// in both, and what is written before a kill the same each time.
class WindowsFileReplaceDeathTest : public testing::Test {
 protected:
  static constexpr std::string_view kOld = "the old content, which is longer";
  static constexpr std::string_view kNew = "the new content";
  static constexpr int kKilled = 1;

  void SetUp() override { fs::create_directories(folder_); }
  void TearDown() override {
    std::error_code inUse;  // by the other process, which removes it then
    fs::remove_all(folder_, inUse);
  }

  // Saves, and does not come back if there is an n-th call to the system. Answers the number of calls.
  int SaveAndDieBefore(int n) {
    int call = 0;
    FileCallsBetween calls([&](std::string_view) {
      if (++call == n) std::_Exit(kKilled);
      return platform::FileCallResult();
    });
    calls.mostAtOnce = 4;  // several writes, to be killed between them
    EXPECT_EQ(ReplaceFileBytes(calls, file_, kNew), 0);
    return call;
  }

  const fs::path folder_ = fs::temp_directory_path() / "lumarine-killed";
  const fs::path file_ = folder_ / "program.xml";
};

TEST_F(WindowsFileReplaceDeathTest, BeforeAnyCallHasLeftTheOldFileOrTheNewOne) {
  constexpr int kCalls = 12;
  constexpr int kBehindTheSwap = 2;
  std::vector<std::string> found;
  for (int n = 1; n <= kCalls; ++n) {
    ASSERT_TRUE(WriteFileBytes(file_, kOld));
    EXPECT_EXIT(SaveAndDieBefore(n), testing::ExitedWithCode(kKilled), "") << n;
    found.push_back(BytesOf(file_));
  }
  std::vector<std::string> expected(kCalls - kBehindTheSwap, std::string(kOld));
  expected.insert(expected.end(), kBehindTheSwap, std::string(kNew));
  EXPECT_EQ(found, expected);
  ASSERT_TRUE(WriteFileBytes(file_, kOld));
  EXPECT_EQ(SaveAndDieBefore(0), kCalls);
  EXPECT_EQ(BytesOf(file_), kNew);
}

}  // namespace
