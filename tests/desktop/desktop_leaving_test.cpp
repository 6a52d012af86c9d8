// Closing the real window while the worker is in the middle of something.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "app/window/numbers.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "program/time_of_day.h"
#include "tests/desktop/demo_user.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"
#include "tests/support/temporary_folder.h"

namespace {

using app::Control;
using testing::HasSubstr;
using testing::Not;
namespace command = app::command;

// Half a second each: far more than the end of the program is waited for.
constexpr int kManyModes = 400;

// A demo that is sent there ends soon.
constexpr int kLastMinutes = TCBase::Program::kSecondsPerDay - 7 * TCBase::Program::kSecondsPerMinute;

class DesktopLeaving : public testing::Test {
 protected:
  void SetUp() override {
    user.Start();
    ASSERT_TRUE(user.Choose(command::kAddEmulator));
  }
  void TearDown() override {
    if (user.IsRunning()) user.Close();
  }

  // Closes the window; the program ends by itself, and well.
  void Leave() {
    user.Close();
    EXPECT_FALSE(user.IsRunning());
  }

  const desktop::FirstDay firstDay;
  const TemporaryFolder work;
  desktop::DesktopUser driver;
  User& user = driver;
};

TEST_F(DesktopLeaving, WhileADemoIsPaused) {
  user.Press(Control::PlayButton);
  ASSERT_TRUE(desktop::AwaitDemoStatus(user, "Playing"));
  user.Press(Control::PlayButton);
  ASSERT_TRUE(desktop::AwaitDemoStatus(user, "Paused"));
  Leave();
}

TEST_F(DesktopLeaving, WithASecondDemoPressedFor) {
  // Too late for a second one on a fast machine, and then it is a pause.
  user.Press(Control::PlayButton);
  user.Press(Control::PlayButton);
  Leave();
}

TEST_F(DesktopLeaving, RightAfterTheEndOfADemoWithAStopTooLate) {
  user.Press(Control::PlayButton);
  ASSERT_TRUE(desktop::AwaitDemoStatus(user, "Playing"));
  desktop::SeekTo(user, kLastMinutes);
  ASSERT_TRUE(user.WaitForLog("Demo finished\r\n"));
  user.Press(Control::StopButton);
  Leave();
}

TEST_F(DesktopLeaving, InTheMiddleOfALongUpload) {
  TCBase::Program::ModeListView document = TCBase::Program::NewProgram();
  for (int i = 0; i < kManyModes; ++i) document.modes.push_back(document.modes[1]);
  ASSERT_TRUE(SaveProgram(document, work / "long.xml"));
  user.WillPick({work / "long.xml"});
  ASSERT_TRUE(user.Choose(command::kLoadProgram));
  ASSERT_TRUE(user.Choose(command::kUploadProgram));
  ASSERT_TRUE(user.WaitForLog("Uploading mode: AlwaysOn\r\n"));
  ASSERT_THAT(user.Log(), Not(HasSubstr("Uploading finished")));
  Leave();
}

}  // namespace
