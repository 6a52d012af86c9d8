// Replacing files where there are processes to kill, links, permissions and pipes.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "common/file_replace.h"
#include "common/files.h"
#include "common/log.h"
#include "tests/common/file_calls_between.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using platform::FileCallResult;
using testing::IsEmpty;

// The status of a child process that does `action`; never returns from there.
int InAChild(const std::function<int()>& action) {
  const pid_t child = fork();
  if (child == 0) _exit(action());
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

constexpr uid_t kNobody = 65534;

// What `action` answers when done by somebody without privileges.
int AsNobody(const std::function<int()>& action) {
  return InAChild([&action] {
    if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) return -1;
    return action();
  });
}

class PosixFileReplace : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(chmod(documents_.path().c_str(), 0777), 0);
    setenv("HOME", documents_.path().c_str(), 1);
    setenv("TMPDIR", documents_.path().c_str(), 1);
    unsetenv("XDG_CONFIG_HOME");
    ASSERT_TRUE(WriteFileBytes(file_, kOld));
  }
  void TearDown() override {
    for (const auto& [name, value] : environment_) {
      if (value) {
        setenv(name, value->c_str(), 1);
      } else {
        unsetenv(name);
      }
    }
  }

  static struct stat FactsOf(const fs::path& path) {
    struct stat facts {};
    EXPECT_EQ(stat(path.c_str(), &facts), 0) << path;
    return facts;
  }
  int Save() { return ReplaceFileBytes(*platform::SystemFileCalls(), file_, kNew); }
  // What is left of writing in place.
  std::vector<fs::path> Copies(const fs::path& folder) const {
    std::vector<fs::path> copies;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
      if (entry.path().filename().native().starts_with("lumarine-copy-")) copies.push_back(entry.path());
    return copies;
  }
  std::vector<fs::path> Copies() const { return Copies(documents_.path()); }
  int Entries() const { return static_cast<int>(std::distance(fs::directory_iterator(folder_.path()), {})); }

  static constexpr std::string_view kOld = "the old content, which is longer";
  static constexpr std::string_view kNew = "the new content";
  static std::optional<std::string> Variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
  }
  const std::vector<std::pair<const char*, std::optional<std::string>>> environment_ = {
      {"HOME", Variable("HOME")},
      {"TMPDIR", Variable("TMPDIR")},
      {"XDG_CONFIG_HOME", Variable("XDG_CONFIG_HOME")}};
  const TemporaryFolder folder_;
  const TemporaryFolder documents_;  // and for temporary files
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
    found.push_back(BytesOf(file_));
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
  EXPECT_EQ(BytesOf(file_), kNew);
  EXPECT_TRUE(fs::is_symlink(folder_ / "first"));
  EXPECT_TRUE(fs::is_symlink(folder_ / "other" / "second"));
  EXPECT_EQ(Entries(), 3);
}

TEST_F(PosixFileReplace, OfALinkToNothingCreatesWhatItPointsTo) {
  fs::create_symlink("later.xml", folder_ / "link");
  ASSERT_TRUE(WriteFileBytes(folder_ / "link", kNew));
  EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
  EXPECT_EQ(BytesOf(folder_ / "later.xml"), kNew);
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

TEST_F(PosixFileReplace, InAFolderThatTakesNoNewFileWritesTheFileInPlace) {
  ASSERT_EQ(chmod(file_.c_str(), 0666), 0);
  const ino_t before = FactsOf(file_).st_ino;
  ASSERT_EQ(chmod(folder_.path().c_str(), 0555), 0);
  const int error = AsNobody([&] { return Save(); });
  ASSERT_EQ(chmod(folder_.path().c_str(), 0755), 0);
  EXPECT_EQ(error, 0);
  EXPECT_EQ(BytesOf(file_), kNew);
  EXPECT_EQ(FactsOf(file_).st_ino, before);
  EXPECT_EQ(Entries(), 1);
  EXPECT_THAT(Copies(), IsEmpty());
}

TEST_F(PosixFileReplace, WhereNoCopyCanBeWrittenLeavesTheOldFileWhole) {
  ASSERT_EQ(chmod(file_.c_str(), 0666), 0);
  ASSERT_EQ(chmod(folder_.path().c_str(), 0555), 0);
  ASSERT_EQ(chmod(documents_.path().c_str(), 0555), 0);
  const int error = AsNobody([&] { return Save(); });
  ASSERT_EQ(chmod(folder_.path().c_str(), 0755), 0);
  ASSERT_EQ(chmod(documents_.path().c_str(), 0755), 0);
  EXPECT_EQ(error, EACCES);
  EXPECT_EQ(BytesOf(file_), kOld);
  EXPECT_EQ(Entries(), 1);
}

TEST_F(PosixFileReplace, OfAFileWithAHardLinkKeepsItOneFile) {
  fs::create_hard_link(file_, folder_ / "same.xml");
  ASSERT_TRUE(WriteFileBytes(file_, kNew));
  EXPECT_EQ(BytesOf(folder_ / "same.xml"), kNew);
  EXPECT_EQ(FactsOf(file_).st_ino, FactsOf(folder_ / "same.xml").st_ino);
  EXPECT_EQ(Entries(), 2);
}

TEST_F(PosixFileReplace, InPlaceKilledBeforeAnyCallHasLeftTheOldFileTheNewOneOrACopy) {
  constexpr int kAlive = 0;
  constexpr int kKilled = 1;
  fs::create_hard_link(file_, folder_ / "same.xml");
  int status = kKilled;
  int killed = 0;
  for (int n = 1; status == kKilled; ++n) {
    SCOPED_TRACE(n);
    std::ofstream(file_, std::ios::trunc) << kOld;
    status = InAChild([&] {
      int call = 0;
      FileCallsBetween calls([&](std::string_view) {
        if (++call == n) _exit(kKilled);
        return FileCallResult();
      });
      calls.mostAtOnce = 4;  // several writes, to be killed between them
      return ReplaceFileBytes(calls, file_, kNew) == 0 ? kAlive : kKilled + 1;
    });
    if (status == kKilled) ++killed;
    bool isWhole = BytesOf(file_) == kOld || BytesOf(file_) == kNew;
    for (const fs::path& copy : Copies(folder_.path())) {
      isWhole = isWhole || BytesOf(copy) == kNew;
      fs::remove(copy);
    }
    EXPECT_TRUE(isWhole);
  }
  EXPECT_EQ(status, kAlive);
  EXPECT_EQ(BytesOf(folder_ / "same.xml"), kNew);
  EXPECT_EQ(killed, 17)
      << "inspect, open and close, four writes and a flush for each, two folders, a removal";
}

TEST_F(PosixFileReplace, InPlaceTellsOfItsCopyOnlyWhereTheFileIsNoLongerWhole) {
  fs::create_hard_link(file_, folder_ / "same.xml");
  int n = 0;
  bool isDone = false;
  while (!isDone) {
    SCOPED_TRACE(++n);
    std::ofstream(file_, std::ios::trunc) << kOld;
    int call = 0;
    std::string failed;
    FileCallsBetween calls([&](std::string_view name) {
      if (++call != n) return FileCallResult();
      failed = name;
      return FileCallResult{FileCallResult::Failed, ENOSPC};
    });
    fs::path kept;
    const int error = ReplaceFileBytes(calls, file_, kNew, &kept);
    isDone = failed.empty();
    if (kept.empty()) {
      EXPECT_EQ(BytesOf(file_), error == 0 ? kNew : kOld) << failed;
    } else {
      EXPECT_EQ(error, ENOSPC) << failed;
      EXPECT_EQ(BytesOf(kept), kNew) << failed;
    }
    for (const fs::path& copy : Copies(folder_.path())) {
      EXPECT_TRUE(copy == kept || failed == "Remove") << failed;
      fs::remove(copy);
    }
  }
  EXPECT_EQ(n, 12) << "all calls, and once more without a fault";
}

// As a file that is mounted by itself: it cannot be renamed over.
TEST_F(PosixFileReplace, OfAFileThatCannotBeSwappedWritesItInPlace) {
  const ino_t before = FactsOf(file_).st_ino;
  for (const int refusal : {EBUSY, EPERM, EACCES}) {
    std::ofstream(file_, std::ios::trunc) << kOld;
    FileCallsBetween calls([&](std::string_view call) {
      const bool isSwap = call == "Replace" || call == "Move";
      return isSwap ? FileCallResult{FileCallResult::Failed, refusal} : FileCallResult();
    });
    EXPECT_EQ(ReplaceFileBytes(calls, file_, kNew), 0);
    EXPECT_EQ(BytesOf(file_), kNew);
    EXPECT_EQ(FactsOf(file_).st_ino, before);
    EXPECT_EQ(Entries(), 1);
  }
}

// As on a full disk that has room for the old content and not for the new one.
TEST_F(PosixFileReplace, InPlaceThatFailsPutsTheOldContentBack) {
  fs::create_hard_link(file_, folder_ / "same.xml");
  for (const char* const failing : {"Write", "Flush", "Close"}) {
    int calls = 0;
    FileCallsBetween faulty([&](std::string_view call) {
      const bool isInPlace = call == failing && ++calls == 2;
      return isInPlace ? FileCallResult{FileCallResult::Failed, ENOSPC} : FileCallResult();
    });
    fs::path kept;
    EXPECT_EQ(ReplaceFileBytes(faulty, file_, kNew, &kept), ENOSPC);
    EXPECT_EQ(BytesOf(file_), kOld) << failing;
    EXPECT_EQ(kept, "") << failing;
    EXPECT_EQ(Entries(), 2) << failing;
  }
}

TEST_F(PosixFileReplace, InPlaceKeepsTheCopyBesideTheFileIfThatIsPossible) {
  fs::create_hard_link(file_, folder_ / "same.xml");
  int writes = 0;
  FileCallsBetween calls([&](std::string_view call) {
    return call == "Write" && ++writes >= 2 ? FileCallResult{FileCallResult::Failed, EIO} : FileCallResult();
  });
  fs::path kept;
  EXPECT_EQ(ReplaceFileBytes(calls, file_, kNew, &kept), EIO);
  EXPECT_EQ(BytesOf(file_), "");
  EXPECT_EQ(BytesOf(kept), kNew);
  EXPECT_EQ(kept.parent_path(), folder_.path());
  EXPECT_EQ(kept.extension(), ".xml");
}

TEST_F(PosixFileReplace, OfAProtectedFileFailsThoughItsFolderWouldAllowIt) {
  ASSERT_EQ(chmod(file_.c_str(), 0444), 0);
  ASSERT_EQ(chmod(folder_.path().c_str(), 0777), 0);
  const int error = AsNobody([&] { return ReplaceFileBytes(*platform::SystemFileCalls(), file_, kNew); });
  EXPECT_EQ(error, EACCES);
  EXPECT_EQ(BytesOf(file_), kOld);
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
    EXPECT_EQ(BytesOf(file_), kNew) << name;
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
