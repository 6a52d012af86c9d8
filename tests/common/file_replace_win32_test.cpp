// Replacing files that others hold, and what is no file on Windows.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/files.h"
#include "common/log.h"
#include "platform/win32/windows_headers.h"
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

  /// As a scanner holds it: others may neither write nor remove it.
  HANDLE Hold() {
    const HANDLE file =
        CreateFileW(file_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    return file;
  }
  std::string Content() {
    std::string bytes;
    EXPECT_TRUE(ReadFileBytes(file_, bytes));
    return bytes;
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
  EXPECT_EQ(Content(), "new");
  EXPECT_THAT(Names(), ElementsAre("program.xml"));
}

TEST_F(WindowsFileReplace, TellsOfAFileThatIsHeldForLongAndLeavesItWhole) {
  const HANDLE held = Hold();
  EXPECT_FALSE(WriteFileBytes(file_, "new"));
  CloseHandle(held);
  EXPECT_EQ(Content(), "old");
  EXPECT_THAT(Names(), ElementsAre("program.xml"));
  std::string lines;
  statusLog.textHandler = [&lines](const std::string& text) { lines += text; };
  statusLog.Drain();
  statusLog.textHandler = nullptr;
  EXPECT_EQ(lines, "Error creating file " + Utf8FromPath(file_) + ", error: Permission denied\r\n");
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
  EXPECT_EQ(Content(), "new");
}

}  // namespace
