#include "common/file_replace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <vector>

#include "common/files.h"
#include "tests/common/file_calls_between.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/virtual_clock.h"

namespace {

namespace fs = std::filesystem;
using platform::FileCallResult;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr FileCallResult kDone;
constexpr FileCallResult kDiskFull{FileCallResult::Failed, ENOSPC};
constexpr FileCallResult kBusy{FileCallResult::Busy, EACCES};

class FileReplace : public testing::Test {
 protected:
  void SetUp() override {
    virtual_clock::Reset();
    ASSERT_TRUE(WriteFileBytes(file_, kOld));
  }

  std::string Content() const { return BytesOf(file_); }

  // What is in the folder beside the file.
  std::vector<std::string> Strays() const {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_.path()))
      if (entry.path() != file_) names.push_back(entry.path().filename().string());
    return names;
  }

  // The calls of a save, with `result` for the calls of that name.
  int Save(std::string_view failing = {}, FileCallResult result = {}) {
    FileCallsBetween calls([&](std::string_view call) {
      made_.emplace_back(call);
      return call == failing ? result : kDone;
    });
    return ReplaceFileBytes(calls, file_, kNew);
  }

  static constexpr std::string_view kOld = "the old content, which is longer";
  static constexpr std::string_view kNew = "the new content";
  const TemporaryFolder folder_;
  const fs::path file_ = folder_ / "program.xml";
  std::vector<std::string> made_;
};

TEST_F(FileReplace, SwapsTheFilesWhenTheNewOneIsOnTheDisk) {
  EXPECT_EQ(Save(), 0);
  EXPECT_THAT(made_, ElementsAre("Inspect", "Create", "TakePermissions", "Write", "Flush", "Close", "Replace",
                                 "Remove", "FlushFolder"));
  EXPECT_EQ(Content(), kNew);
  EXPECT_THAT(Strays(), IsEmpty());
}

TEST_F(FileReplace, GivesANewFileItsNameWhenItIsOnTheDisk) {
  fs::remove(file_);
  EXPECT_EQ(Save(), 0);
  EXPECT_THAT(made_, ElementsAre("Inspect", "Create", "Write", "Flush", "Close", "Move", "FlushFolder"));
  EXPECT_EQ(Content(), kNew);
  EXPECT_THAT(Strays(), IsEmpty());
}

TEST_F(FileReplace, WhoseNthCallFailsLeavesTheOldFileWholeOrTheNewOne) {
  Save();
  const std::vector<std::string> calls = made_;
  for (std::size_t n = 0; n < calls.size(); ++n) {
    SCOPED_TRACE(calls[n]);
    ASSERT_TRUE(WriteFileBytes(file_, kOld));
    made_.clear();
    FileCallsBetween faulty([&](std::string_view call) {
      made_.emplace_back(call);
      return made_.size() == n + 1 ? kDiskFull : kDone;
    });
    const int error = ReplaceFileBytes(faulty, file_, kNew);
    // Past the swap nothing counts as a failure, and another way to swap is found.
    const bool early = calls[n] != "Replace" && calls[n] != "Remove" && calls[n] != "FlushFolder";
    EXPECT_EQ(error, early ? ENOSPC : 0);
    EXPECT_EQ(Content(), early ? kOld : kNew);
    for (const std::string& stray : Strays()) {
      EXPECT_EQ(calls[n], "Remove") << stray;
      fs::remove(folder_ / stray);
    }
  }
}

TEST_F(FileReplace, WhoseDiskIsGoneFromTheNthCallOnLeavesTheOldFileWholeOrTheNewOne) {
  Save();
  const std::size_t count = made_.size();
  for (std::size_t n = 0; n < count; ++n) {
    SCOPED_TRACE(n);
    ASSERT_TRUE(WriteFileBytes(file_, kOld));
    std::size_t call = 0;
    FileCallsBetween faulty([&](std::string_view) { return call++ >= n ? kDiskFull : kDone; });
    const int error = ReplaceFileBytes(faulty, file_, kNew);
    EXPECT_EQ(Content(), error != 0 ? kOld : kNew);
  }
}

TEST_F(FileReplace, OfANewFileThatFailsLeavesNoFile) {
  fs::remove(file_);
  for (const char* call : {"Inspect", "Create", "Write", "Flush", "Close", "Move"}) {
    EXPECT_EQ(Save(call, kDiskFull), ENOSPC) << call;
    EXPECT_FALSE(fs::exists(file_)) << call;
    EXPECT_THAT(Strays(), IsEmpty()) << call;
  }
}

TEST_F(FileReplace, WaitsForAScannerThatHoldsTheFileForAMoment) {
  int held = 8;
  FileCallsBetween calls(
      [&](std::string_view call) { return call == "Replace" && held-- > 0 ? kBusy : kDone; });
  EXPECT_EQ(ReplaceFileBytes(calls, file_, kNew), 0);
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.4);
  EXPECT_EQ(Content(), kNew);
  EXPECT_THAT(Strays(), IsEmpty());
}

TEST_F(FileReplace, GivesUpAfterASecondWithTheOldFileWhole) {
  FileCallsBetween calls(
      [](std::string_view call) { return call == "Replace" || call == "Move" ? kBusy : kDone; });
  EXPECT_EQ(ReplaceFileBytes(calls, file_, kNew), EACCES);
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 1.0);
  EXPECT_EQ(Content(), kOld);
  EXPECT_THAT(Strays(), IsEmpty());
}

TEST_F(FileReplace, RemovesItsNewFileThoughAScannerHoldsIt) {
  int held = 3;
  FileCallsBetween calls([&](std::string_view call) {
    if (call == "Flush") return kDiskFull;
    return call == "Remove" && held-- > 0 ? kBusy : kDone;
  });
  EXPECT_EQ(ReplaceFileBytes(calls, file_, kNew), ENOSPC);
  EXPECT_THAT(Strays(), IsEmpty());
}

// A system that moves the old file out of the way and then cannot go on.
class StopsHalfway : public FileCallsBetween {
 public:
  using FileCallsBetween::FileCallsBetween;
  Result Replace(const Path&, const Path& to, const Path& backup) override {
    fs::rename(to, backup);
    return {Result::Halfway, EACCES};
  }
};

TEST_F(FileReplace, ThatStopsHalfwayIsFinished) {
  StopsHalfway calls([](std::string_view) { return kDone; });
  EXPECT_EQ(ReplaceFileBytes(calls, file_, kNew), 0);
  EXPECT_EQ(Content(), kNew);
  EXPECT_THAT(Strays(), IsEmpty());
}

TEST_F(FileReplace, ThatStopsHalfwayAndCannotBeFinishedIsUndone) {
  int moves = 0;
  StopsHalfway calls(
      [&](std::string_view call) { return call == "Move" && moves++ == 0 ? kDiskFull : kDone; });
  EXPECT_EQ(ReplaceFileBytes(calls, file_, kNew), ENOSPC);
  EXPECT_EQ(Content(), kOld);
  EXPECT_THAT(Strays(), IsEmpty());
}

TEST_F(FileReplace, ThatCanNeitherBeFinishedNorUndoneKeepsTheOldFileUnderAnotherName) {
  StopsHalfway calls([](std::string_view call) { return call == "Move" ? kDiskFull : kDone; });
  EXPECT_EQ(ReplaceFileBytes(calls, file_, kNew), ENOSPC);
  ASSERT_EQ(Strays().size(), 1U);
  EXPECT_EQ(BytesOf(folder_ / Strays()[0]), kOld);
}

TEST_F(FileReplace, SkipsNamesThatAreTaken) {
  constexpr FileCallResult kTaken{FileCallResult::Failed, EEXIST};
  int taken = 5;
  FileCallsBetween calls(
      [&](std::string_view call) { return call == "Create" && taken-- > 0 ? kTaken : kDone; });
  EXPECT_EQ(ReplaceFileBytes(calls, file_, kNew), 0);
  EXPECT_EQ(Content(), kNew);

  EXPECT_EQ(Save("Create", kTaken), EEXIST);
  EXPECT_EQ(Content(), kNew);
}

TEST_F(FileReplace, WritesOnWhereTheSystemTakesAPart) {
  FileCallsBetween calls([](std::string_view) { return kDone; });
  calls.mostAtOnce = 7;
  std::string bytes;
  for (int i = 0; i < 1000; ++i) bytes += static_cast<char>(i % 256);
  EXPECT_EQ(ReplaceFileBytes(calls, file_, bytes), 0);
  EXPECT_EQ(Content(), bytes);
}

TEST_F(FileReplace, TakesBigFiles) {
  std::string bytes(kMostFileBytes, 'x');
  bytes.replace(bytes.size() / 2, 4, "half");
  EXPECT_TRUE(WriteFileBytes(file_, bytes));
  EXPECT_TRUE(Content() == bytes);
  EXPECT_THAT(Strays(), IsEmpty());
}

TEST_F(FileReplace, TakesAnEmptyContent) {
  EXPECT_TRUE(WriteFileBytes(file_, ""));
  EXPECT_EQ(Content(), "");
}

TEST_F(FileReplace, OfAFileWithTheLongestNameWorks) {
  const fs::path path = folder_ / (std::string(251, 'n') + ".xml");
  EXPECT_TRUE(WriteFileBytes(path, kOld));
  EXPECT_TRUE(WriteFileBytes(path, kNew));
  EXPECT_EQ(BytesOf(path), kNew);
}

}  // namespace
