// What the files and folders of POSIX have that others have not.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>
#include <string>

#include "common/files.h"
#include "common/log.h"
#include "common/platform.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

class PosixFiles : public testing::Test {
 protected:
  void SetUp() override { statusLog.Drain(); }

  int Entries() { return static_cast<int>(std::distance(fs::directory_iterator(folder_.path()), {})); }

  const TemporaryFolder folder_;
};

TEST_F(PosixFiles, APipeIsNotReadSinceItWouldBlock) {
  const fs::path pipe = folder_ / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::string bytes;
  EXPECT_FALSE(ReadFileBytes(pipe, bytes));
  EXPECT_FALSE(ReadFileBytes("/dev/zero", bytes));
}

TEST_F(PosixFiles, AFileOfUntoldLengthIsReadToItsEnd) {
  EXPECT_NE(BytesOf("/proc/self/status").find("Pid:"), std::string::npos);
}

TEST_F(PosixFiles, ADeviceIsWrittenInPlaceAndItsFailureTold) {
  std::string lines;
  EXPECT_TRUE(WriteFileBytes("/dev/null", "gone"));
  EXPECT_FALSE(WriteFileBytes("/dev/full", "too much"));
  statusLog.textHandler = [&lines](const std::string& text) { lines += text; };
  statusLog.Drain();
  statusLog.textHandler = nullptr;
  EXPECT_EQ(lines, "Error creating file /dev/full, error: No space left on device\r\n");
}

TEST_F(PosixFiles, AFailureHalfwayLeavesTheOldFileAndNothingElse) {
  const fs::path path = folder_ / "program.xml";
  ASSERT_TRUE(WriteFileBytes(path, "old"));

  rlimit old{};
  getrlimit(RLIMIT_FSIZE, &old);
  const rlimit small{1000, old.rlim_max};
  const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  const bool written = WriteFileBytes(path, std::string(5000, 'x'));
  setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, oldHandler);

  EXPECT_FALSE(written);
  EXPECT_EQ(BytesOf(path), "old");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(PosixFiles, PermissionsSurviveAWrite) {
  const fs::path path = folder_ / "private.xml";
  ASSERT_TRUE(WriteFileBytes(path, "old"));
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
  ASSERT_TRUE(WriteFileBytes(path, "new"));
  EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(PosixFiles, ANewFileIsAsOpenAsTheUsersMaskAllows) {
  const mode_t old = umask(027);
  const fs::path path = folder_ / "new.xml";
  EXPECT_TRUE(WriteFileBytes(path, "new"));
  umask(old);
  EXPECT_EQ(fs::status(path).permissions(), static_cast<fs::perms>(0640));
}

TEST_F(PosixFiles, ALinkStaysALinkAndItsFileIsWritten) {
  const fs::path path = folder_ / "real.xml";
  const fs::path link = folder_ / "link.xml";
  ASSERT_TRUE(WriteFileBytes(path, "old"));
  fs::create_symlink("real.xml", link);
  ASSERT_TRUE(WriteFileBytes(link, "new"));
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(BytesOf(path), "new");
}

TEST_F(PosixFiles, NamesThatAreNoUtf8AreCarriedAsTheyAre) {
  const fs::path path = folder_ / "caf\xE9.xml";
  EXPECT_TRUE(WriteFileBytes(path, "old"));
  EXPECT_EQ(PathFromUtf8(Utf8FromPath(path)), path);
}

// Sets a variable of the environment for the length of a test.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) {
    if (const char* old = std::getenv(name)) {
      old_ = old;
      had_ = true;
    }
    setenv(name, value.c_str(), 1);
  }
  ~Variable() {
    if (had_) {
      setenv(name_, old_.c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::string old_;
  bool had_ = false;
};

class DocumentsFolder : public testing::Test {
 protected:
  void Configure(const std::string& lines) {
    fs::create_directories(home_ / ".config");
    ASSERT_TRUE(WriteFileBytes(home_ / ".config" / "user-dirs.dirs", lines));
  }

  const TemporaryFolder home_;
  const Variable homeVariable_{"HOME", home_.path().string()};
  const Variable configVariable_{"XDG_CONFIG_HOME", ""};
};

TEST_F(DocumentsFolder, IsTheOneOfTheUsersDesktop) {
  fs::create_directories(home_ / "Papiere");
  Configure("# comment\nXDG_MUSIC_DIR=\"$HOME/Musik\"\nXDG_DOCUMENTS_DIR=\"$HOME/Papiere\"\n");
  EXPECT_EQ(platform::DocumentsFolder(), home_ / "Papiere");
}

TEST_F(DocumentsFolder, MayBeConfiguredByAnAbsolutePath) {
  fs::create_directories(home_ / "elsewhere");
  Configure("XDG_DOCUMENTS_DIR=\"" + (home_ / "elsewhere").string() + "\"\n");
  EXPECT_EQ(platform::DocumentsFolder(), home_ / "elsewhere");
}

TEST_F(DocumentsFolder, IsDocumentsWithoutConfiguration) {
  fs::create_directories(home_ / "Documents");
  EXPECT_EQ(platform::DocumentsFolder(), home_ / "Documents");
}

TEST_F(DocumentsFolder, IsMadeWhereItIsConfiguredWithTheFoldersAboveIt) {
  fs::create_directories(home_ / "Documents");
  Configure("XDG_DOCUMENTS_DIR=\"$HOME/all/my papers\"\n");
  EXPECT_EQ(platform::DocumentsFolder(), home_ / "all" / "my papers");
  EXPECT_TRUE(fs::is_directory(home_ / "all" / "my papers"));
  EXPECT_EQ(platform::DocumentsFolder(), home_ / "all" / "my papers") << "there now";
}

TEST_F(DocumentsFolder, IsDocumentsWhereTheConfiguredOneCannotBeMadeOrIsSenseless) {
  fs::create_directories(home_ / "Documents");
  ASSERT_TRUE(WriteFileBytes(home_ / "file", "in the way"));
  for (const char* line : {"XDG_DOCUMENTS_DIR=\"$HOME/file\"\n", "XDG_DOCUMENTS_DIR=\"$HOME/file/papers\"\n",
                           "XDG_DOCUMENTS_DIR=\"/proc/papers\"\n", "XDG_DOCUMENTS_DIR=\"relative/papers\"\n",
                           "XDG_DOCUMENTS_DIR=\"\n", "XDG_DOCUMENTS_DIR\n"}) {
    Configure(line);
    EXPECT_EQ(platform::DocumentsFolder(), home_ / "Documents") << line;
  }
  EXPECT_FALSE(fs::exists("relative"));
}

TEST_F(DocumentsFolder, OfNoConfigurationIsNotMade) {
  EXPECT_EQ(platform::DocumentsFolder(), home_.path());
  EXPECT_FALSE(fs::exists(home_ / "Documents"));
}

TEST_F(DocumentsFolder, IsTheHomeFolderAtLast) {
  Configure("XDG_DOCUMENTS_DIR=\"/proc/papers\"\n");
  EXPECT_EQ(platform::DocumentsFolder(), home_.path());
}

class StateFolder : public testing::Test {
 protected:
  const TemporaryFolder home_;
  const Variable homeVariable_{"HOME", home_.path().string()};
};

TEST_F(StateFolder, IsWhereTheDesktopKeepsState) {
  const Variable state("XDG_STATE_HOME", "");
  EXPECT_EQ(platform::StateFolder(), home_ / ".local" / "state" / "lumarine");
}

TEST_F(StateFolder, MayBeConfiguredByAnAbsolutePath) {
  {
    const Variable state("XDG_STATE_HOME", (home_ / "kept").string());
    EXPECT_EQ(platform::StateFolder(), home_ / "kept" / "lumarine");
  }
  const Variable state("XDG_STATE_HOME", "relative");
  EXPECT_EQ(platform::StateFolder(), home_ / ".local" / "state" / "lumarine");
}

TEST_F(StateFolder, IsNotMadeByAsking) {
  const Variable state("XDG_STATE_HOME", "");
  platform::StateFolder();
  EXPECT_TRUE(fs::is_empty(home_.path()));
}

}  // namespace
