#include "common/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "common/log.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

std::string StatusLines() {
  std::string lines;
  statusLog.textHandler = [&lines](const std::string& text) { lines += text; };
  statusLog.Drain();
  statusLog.textHandler = nullptr;
  return lines;
}

std::vector<std::string> NamesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    names.push_back(Utf8FromPath(entry.path().filename()));
  }
  return names;
}

class Files : public testing::Test {
 protected:
  void SetUp() override { StatusLines(); }
  const TemporaryFolder folder_;
};

TEST_F(Files, ReadBackEveryByteThatWasWritten) {
  std::string bytes;
  for (int i = 0; i < 200000; ++i) bytes.push_back(static_cast<char>(i % 256));
  const fs::path path = folder_ / "all.bin";
  EXPECT_TRUE(WriteFileBytes(path, bytes));
  EXPECT_EQ(BytesOf(path), bytes);
  EXPECT_EQ(StatusLines(), "");
}

TEST_F(Files, WritingReplacesTheOldContentAndLeavesNothingElse) {
  const fs::path path = folder_ / "program.xml";
  EXPECT_TRUE(WriteFileBytes(path, "a long old content"));
  EXPECT_TRUE(WriteFileBytes(path, "new"));
  EXPECT_EQ(BytesOf(path), "new");
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("program.xml"));
}

TEST_F(Files, AppendingKeepsTheOldContent) {
  const fs::path path = folder_ / "log.txt";
  EXPECT_TRUE(WriteFileBytes(path, "one\r\n", true));
  EXPECT_TRUE(WriteFileBytes(path, "two\n", true));
  EXPECT_EQ(BytesOf(path), "one\r\ntwo\n");
}

TEST_F(Files, AnEmptyFileIsRead) {
  const fs::path path = folder_ / "empty";
  EXPECT_TRUE(WriteFileBytes(path, ""));
  std::string bytes = "before";
  EXPECT_TRUE(ReadFileBytes(path, bytes));
  EXPECT_EQ(bytes, "");
}

TEST_F(Files, ReadingWhatIsNoFileFailsQuietly) {
  std::string bytes = "before";
  EXPECT_FALSE(ReadFileBytes(folder_ / "absent", bytes));
  EXPECT_FALSE(ReadFileBytes(folder_.path(), bytes));
  EXPECT_FALSE(ReadFileBytes(fs::path(), bytes));
  EXPECT_EQ(bytes, "before");
  EXPECT_EQ(StatusLines(), "");
}

TEST_F(Files, AFileOfImmoderateLengthIsNotRead) {
  const fs::path path = folder_ / "huge";
  std::ofstream(path).put('x');
  fs::resize_file(path, kMostFileBytes + 1);
  std::string bytes = "before";
  EXPECT_FALSE(ReadFileBytes(path, bytes));
  EXPECT_EQ(bytes, "before");
}

TEST_F(Files, ALimitOfTheCallersHoldsToTheByte) {
  const fs::path path = folder_ / "file";
  ASSERT_TRUE(WriteFileBytes(path, "twelve bytes"));
  std::string bytes = "before";
  EXPECT_FALSE(ReadFileBytes(path, bytes, 11));
  EXPECT_EQ(bytes, "before");
  EXPECT_TRUE(ReadFileBytes(path, bytes, 12));
  EXPECT_EQ(bytes, "twelve bytes");
}

TEST_F(Files, NothingIsThereIfTheSystemSaysSo) {
  const fs::path file = FileWith(folder_ / "there.txt", "there");
  EXPECT_TRUE(MayBeThere(file));
  EXPECT_TRUE(MayBeThere(folder_.path()));
  EXPECT_FALSE(MayBeThere(folder_ / "absent.txt"));
  EXPECT_FALSE(MayBeThere(file / "below.txt"));
}

TEST_F(Files, AFailedWriteIsLoggedWithPathAndReason) {
  const fs::path path = folder_ / "absent" / "program.xml";
  const std::string line =
      "Error creating file " + Utf8FromPath(path) + ", error: No such file or directory\r\n";
  EXPECT_FALSE(WriteFileBytes(path, "new"));
  EXPECT_EQ(StatusLines(), line);
  EXPECT_FALSE(WriteFileBytes(path, "new", true));
  EXPECT_EQ(StatusLines(), line);
}

TEST_F(Files, AFolderIsNotOverwritten) {
  const fs::path path = folder_ / "name";
  fs::create_directory(path);
  EXPECT_FALSE(WriteFileBytes(path, "new"));
  EXPECT_FALSE(WriteFileBytes(path, "new", true));
  EXPECT_TRUE(fs::is_directory(path));
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("name"));
}

TEST_F(Files, NamesOfAllLanguagesWork) {
  const std::string name = "\xD1\x81\xD0\xB2\xD0\xB5\xD1\x82 \xE7\x81\xAF.xml";
  const fs::path path = folder_ / PathFromUtf8(name);
  EXPECT_TRUE(WriteFileBytes(path, "bright"));
  EXPECT_EQ(BytesOf(path), "bright");
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre(name));
  EXPECT_EQ(Utf8FromPath(path.filename()), name);
}

TEST_F(Files, AbsentAndEmptyResourcesAreFailures) {
  std::string bytes = "before";
  EXPECT_FALSE(LoadResourceBytes(999, "XML", bytes));
  EXPECT_FALSE(LoadResourceBytes(131, "PNG", bytes));
  EXPECT_FALSE(LoadResourceBytes(132, "XML", bytes));
  EXPECT_EQ(bytes, "before");
}

TEST_F(Files, AResourceIsFoundByNumberAndKind) {
  std::string bytes;
  EXPECT_TRUE(LoadResourceBytes(131, "XML", bytes));
  EXPECT_EQ(bytes, BytesOf(fs::path(LUMARINE_SOURCE_DIR) / "tests/common/data/greeting.xml"));
  EXPECT_TRUE(LoadResourceBytes(134, "PNG", bytes));
  EXPECT_EQ(bytes.size(), BytesOf(fs::path(LUMARINE_SOURCE_DIR) / "tests/common/data/greeting.xml").size());
}

}  // namespace
