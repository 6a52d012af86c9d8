// The settings of a process, whose Documents folder the environment tells.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>

#include "common/files.h"
#include "program/settings.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

// A child process with a home of its own sets the language and ends.
class SettingsOfAProcess : public testing::Test {
 protected:
  SettingsOfAProcess() { GTEST_FLAG_SET(death_test_style, "fast"); }

  void SetLanguage() {
    setenv("HOME", home_.path().c_str(), 1);
    unsetenv("XDG_CONFIG_HOME");
    Settings::Instance().SetValue("locale", "de");
  }
  fs::path File() const { return home_ / "LumarineConfig.xml"; }

  const TemporaryFolder home_;
};

TEST_F(SettingsOfAProcess, AreSavedWhenItEnds) {
  EXPECT_EXIT((SetLanguage(), std::exit(0)), testing::ExitedWithCode(0), "");
  Settings next(File());
  EXPECT_EQ(next.GetValue("locale"), "de");
}

TEST_F(SettingsOfAProcess, AreLostWhenItIsKilled) {
  EXPECT_EXIT((SetLanguage(), std::raise(SIGKILL)), testing::KilledBySignal(SIGKILL), "");
  EXPECT_FALSE(fs::exists(File()));
}

TEST_F(SettingsOfAProcess, ThatCannotBeSavedDoNotKeepItFromEnding) {
  fs::create_directory(File());
  EXPECT_EXIT((SetLanguage(), std::exit(0)), testing::ExitedWithCode(0), "");
  EXPECT_TRUE(fs::is_directory(File()));
}

// An account without home has no Documents folder: nothing is read, nothing can be written, nothing breaks.
TEST_F(SettingsOfAProcess, NeedNoDocumentsFolder) {
  const auto run = [] {
    setenv("HOME", "/absent", 1);
    unsetenv("XDG_CONFIG_HOME");
    if (DocumentPath(u"LumarineConfig.xml") != fs::path("./")) std::exit(1);
    Settings::Instance().SetValue("locale", "de");
    std::exit(Settings::Instance().Save() ? 2 : 0);
  };
  EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}

// Neither unreadable nor a pipe, which would block, nor a device without end.
TEST_F(SettingsOfAProcess, StartEmptyFromWhatIsNoRegularFile) {
  for (const char* file : {"/dev/zero", "/proc/self/mem"}) {
    Settings settings(file);
    EXPECT_EQ(settings.GetValue("locale"), "");
  }
  ASSERT_EQ(mkfifo(File().c_str(), 0600), 0);
  Settings settings(File());
  EXPECT_EQ(settings.GetValue("locale"), "");
}

}  // namespace
