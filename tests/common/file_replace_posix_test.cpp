// Replacing files where there are processes to kill, links, permissions and pipes.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "common/file_replace.h"
#include "common/files.h"
#include "common/log.h"
#include "tests/common/file_calls_between.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using platform::FileCallResult;

/// The status of a child process that does `action`; never returns from there.
int InAChild(const std::function<int()>& action) {
  const pid_t child = fork();
  if (child == 0) _exit(action());
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

constexpr uid_t kNobody = 65534;

/// What `action` answers when done by somebody without privileges.
int AsNobody(const std::function<int()>& action) {
  return InAChild([&action] {
    if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) return -1;
    return action();
  });
}

class PosixFileReplace : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(WriteFileBytes(file_, kOld)); }

  static std::string ContentOf(const fs::path& path) {
    std::string bytes;
    EXPECT_TRUE(ReadFileBytes(path, bytes)) << path;
    return bytes;
  }
  static struct stat FactsOf(const fs::path& path) {
    struct stat facts {};
    EXPECT_EQ(stat(path.c_str(), &facts), 0) << path;
    return facts;
  }
  int Entries() const { return static_cast<int>(std::distance(fs::directory_iterator(folder_.path()), {})); }

  static constexpr std::string_view kOld = "the old content, which is longer";
  static constexpr std::string_view kNew = "the new content";
  const TemporaryFolder folder_;
  const fs::path file_ = folder_ / "program.xml";
};

TEST_F(PosixFileReplace, KilledBeforeAnyCallHasLeftTheOldFileOrTheNewOne) {
  constexpr int kAlive = 0;
  constexpr int kKilled = 1;
  std::vector<std::string> found;
  fs::permissions(file_, static_cast<fs::perms>(0640));
  int status = kKilled;
  for (int n = 1; status == kKilled; ++n) {
    ASSERT_TRUE(WriteFileBytes(file_, kOld));
    status = InAChild([&] {
      int call = 0;
      FileCallsBetween calls([&](std::string_view) {
        if (++call == n) _exit(kKilled);
        return FileCallResult();
      });
      calls.mostAtOnce = 4;  // several writes, to be killed between them
      return ReplaceFileBytes(calls, file_, kNew) == 0 ? kAlive : kKilled + 1;
    });
    found.push_back(ContentOf(file_));
    EXPECT_EQ(FactsOf(file_).st_mode & 07777, 0640U) << n;
  }
  EXPECT_EQ(status, kAlive);
  // Old up to the swap, new from then on; the last two calls come behind it.
  std::vector<std::string> expected(found.size() - 3, std::string(kOld));
  expected.insert(expected.end(), 3, std::string(kNew));
  EXPECT_EQ(found, expected);
  EXPECT_EQ(expected.size(), 13U);
}

TEST_F(PosixFileReplace, OfALinkToALinkReplacesTheFileAtTheEnd) {
  fs::create_directory(folder_ / "other");
  fs::create_symlink("../program.xml", folder_ / "other" / "second");
  fs::create_symlink("other/second", folder_ / "first");
  ASSERT_TRUE(WriteFileBytes(folder_ / "first", kNew));
  EXPECT_EQ(ContentOf(file_), kNew);
  EXPECT_TRUE(fs::is_symlink(folder_ / "first"));
  EXPECT_TRUE(fs::is_symlink(folder_ / "other" / "second"));
  EXPECT_EQ(Entries(), 3);
}

TEST_F(PosixFileReplace, OfALinkToNothingCreatesWhatItPointsTo) {
  fs::create_symlink("later.xml", folder_ / "link");
  ASSERT_TRUE(WriteFileBytes(folder_ / "link", kNew));
  EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
  EXPECT_EQ(ContentOf(folder_ / "later.xml"), kNew);
}

TEST_F(PosixFileReplace, OfALinkToItselfFails) {
  fs::create_symlink("loop", folder_ / "loop");
  EXPECT_FALSE(WriteFileBytes(folder_ / "loop", kNew));
  EXPECT_EQ(Entries(), 2);
}

TEST_F(PosixFileReplace, KeepsPermissionsAndOwner) {
  const uid_t owner = geteuid() == 0 ? kNobody : geteuid();
  const gid_t group = geteuid() == 0 ? kNobody : getegid();
  ASSERT_EQ(chown(file_.c_str(), owner, group), 0);
  fs::permissions(file_, static_cast<fs::perms>(0664));
  ASSERT_TRUE(WriteFileBytes(file_, kNew));
  EXPECT_EQ(FactsOf(file_).st_mode & 07777, 0664U);
  EXPECT_EQ(FactsOf(file_).st_uid, owner);
  EXPECT_EQ(FactsOf(file_).st_gid, group);
}

TEST_F(PosixFileReplace, ShowsTheNewContentToNobodyWhoMayNotReadTheOld) {
  fs::permissions(file_, static_cast<fs::perms>(0600));
  const mode_t mask = umask(0);
  std::vector<mode_t> modes;
  FileCallsBetween calls([&](std::string_view) {
    for (const auto& entry : fs::directory_iterator(folder_.path()))
      modes.push_back(FactsOf(entry.path()).st_mode & 0777);
    return FileCallResult();
  });
  EXPECT_EQ(ReplaceFileBytes(calls, file_, kNew), 0);
  umask(mask);
  EXPECT_THAT(modes, testing::Each(0600U));
}

TEST_F(PosixFileReplace, InAFolderThatTakesNoNewFileFailsWithTheOldFileWhole) {
  ASSERT_EQ(chmod(file_.c_str(), 0666), 0);
  ASSERT_EQ(chmod(folder_.path().c_str(), 0555), 0);
  const int error = AsNobody([&] { return ReplaceFileBytes(*platform::SystemFileCalls(), file_, kNew); });
  ASSERT_EQ(chmod(folder_.path().c_str(), 0755), 0);
  EXPECT_EQ(error, EACCES);
  EXPECT_EQ(ContentOf(file_), kOld);
  EXPECT_EQ(Entries(), 1);
}

TEST_F(PosixFileReplace, OfAProtectedFileFailsThoughItsFolderWouldAllowIt) {
  ASSERT_EQ(chmod(file_.c_str(), 0444), 0);
  ASSERT_EQ(chmod(folder_.path().c_str(), 0777), 0);
  const int error = AsNobody([&] { return ReplaceFileBytes(*platform::SystemFileCalls(), file_, kNew); });
  EXPECT_EQ(error, EACCES);
  EXPECT_EQ(ContentOf(file_), kOld);
  EXPECT_EQ(Entries(), 1);
}

TEST_F(PosixFileReplace, OfAPipeWritesIntoIt) {
  const fs::path pipe = folder_ / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::string taken(kNew.size(), '\0');
  std::thread reader([&] {
    const int end = open(pipe.c_str(), O_RDONLY);
    EXPECT_EQ(read(end, taken.data(), taken.size()), static_cast<ssize_t>(taken.size()));
    close(end);
  });
  EXPECT_TRUE(WriteFileBytes(pipe, kNew));
  reader.join();
  EXPECT_EQ(taken, kNew);
  EXPECT_TRUE(S_ISFIFO(FactsOf(pipe).st_mode));
  EXPECT_EQ(Entries(), 2);
}

// As where the standard output was led into a file: a new one would not be the one that is open.
TEST_F(PosixFileReplace, ByTheNameOfAnOpenFileWritesIntoThatFile) {
  const int open_ = open(file_.c_str(), O_RDWR);
  ASSERT_GE(open_, 0);
  const ino_t before = FactsOf(file_).st_ino;
  fs::create_symlink("/proc/self/fd/" + std::to_string(open_), folder_ / "stdout");
  for (const fs::path& name : {fs::path("/proc/self/fd") / std::to_string(open_),
                               fs::path("/dev/fd") / std::to_string(open_), folder_ / "stdout"}) {
    ASSERT_EQ(pwrite(open_, "old", 3, 0), 3);
    EXPECT_TRUE(WriteFileBytes(name, kNew));
    EXPECT_EQ(ContentOf(file_), kNew) << name;
    EXPECT_EQ(FactsOf(file_).st_ino, before) << name;
  }
  close(open_);
  EXPECT_EQ(Entries(), 2);
}

TEST_F(PosixFileReplace, LeavesNoFileOpen) {
  const auto openFiles = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
  const auto before = openFiles();
  for (const char* failing : {"", "TakePermissions", "Write", "Flush", "Close", "Replace"}) {
    FileCallsBetween calls([&](std::string_view call) {
      return call == failing ? FileCallResult{FileCallResult::Failed, EIO} : FileCallResult();
    });
    ReplaceFileBytes(calls, file_, kNew);
  }
  WriteFileBytes("/dev/full", kNew);
  EXPECT_EQ(openFiles(), before);
}

}  // namespace
