// What the files and folders of Windows have that others have not.

#include <gtest/gtest.h>

#include <string>

#include "common/files.h"
#include "common/platform.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

TEST(WindowsFiles, AProtectedFileStays) {
  const TemporaryFolder folder;
  const fs::path path = folder / "program.xml";
  ASSERT_TRUE(WriteFileBytes(path, "old"));
  fs::permissions(path, fs::perms::owner_write, fs::perm_options::remove);
  EXPECT_FALSE(WriteFileBytes(path, "new"));
  fs::permissions(path, fs::perms::owner_write, fs::perm_options::add);
  EXPECT_EQ(BytesOf(path), "old");
}

TEST(WindowsFiles, AFileNameWithALoneSurrogateHasAText) {
  const wchar_t name[] = {L'a', static_cast<wchar_t>(0xD800), 0};
  EXPECT_EQ(Utf8FromPath(fs::path(name)), "a\xEF\xBF\xBD");
}

TEST(DocumentsFolder, IsKnown) {
  const auto folder = platform::DocumentsFolder();
  ASSERT_TRUE(folder.has_value());
  EXPECT_TRUE(folder->is_absolute());
}

TEST(StateFolder, IsOneOfTheUsersOwn) {
  const auto folder = platform::StateFolder();
  ASSERT_TRUE(folder.has_value());
  EXPECT_TRUE(folder->is_absolute());
  EXPECT_EQ(folder->filename(), "Lumarine");
}

}  // namespace
