// A demo on the emulator, on the real window and in real time.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "app/window/numbers.h"
#include "program/builtin_modes.h"
#include "program/program.h"
#include "program/time_of_day.h"
#include "tests/desktop/demo_user.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"
#include "tests/desktop/patience.h"

namespace {

using app::Control;
using testing::HasSubstr;
namespace command = app::command;

constexpr int kMinute = TCBase::Program::kSecondsPerMinute;
constexpr int kHour = TCBase::Program::kSecondsPerHour;

class DesktopDemo : public testing::Test {
 protected:
  void SetUp() override {
    user.Start();
    user.Choose(command::kAddEmulator);
  }
  void TearDown() override {
    if (user.IsRunning()) user.Close();
    EXPECT_FALSE(user.IsRunning());
  }

  void Play(int speedCommand = command::kSpeedFast) {
    user.Choose(speedCommand);
    user.Press(Control::PlayButton);
    ExpectSoon("Playing");
  }

  void ExpectSoon(const std::string& text) {
    EXPECT_TRUE(desktop::AwaitDemoStatus(user, text)) << user.Text(Control::DemoStatusLabel);
  }
  void ExpectToRestAt(int second) {
    EXPECT_TRUE(desktop::AwaitSecond(user, program.modes[0], second))
        << user.Text(Control::TimeLabel) << " [" << user.Text(Control::PowerLabel) << "] instead of "
        << TCBase::Program::TimeTextWithSeconds(second);
  }

  const TCBase::Program::ModeListView program = TCBase::Program::NewProgram();
  const desktop::FirstDay firstDay;
  desktop::DesktopUser driver;
  User& user = driver;
};

TEST_F(DesktopDemo, IsPausedSoughtResumedAndStopped) {
  Play(command::kSpeedSlow);
  user.Press(Control::PlayButton);
  ExpectSoon("Paused");
  for (const int wanted : {21 * kHour, 9 * kHour, 13 * kHour + 30 * kMinute}) {
    desktop::SeekTo(user, wanted);
    ExpectToRestAt(wanted);
  }
  const int paused = desktop::ShownSecond(user);
  user.PressKey(app::key::kSpace);
  ExpectSoon("Playing");
  EXPECT_THAT(user.Log(), HasSubstr("Demo playback resumed\r\n"));
  EXPECT_TRUE(desktop::WaitUntil([&] { return desktop::ShownSecond(user) > paused + 12 * kMinute; }));
  user.PressKey(app::key::kSpace);
  ExpectSoon("Paused");
  EXPECT_THAT(user.Log(), HasSubstr("Demo playback paused at "));

  user.Press(Control::StopButton);
  EXPECT_TRUE(user.WaitForLog("Demo finished\r\n"));
  ExpectSoon("Ready (300s)");
  EXPECT_TRUE(user.IsEnabled(Control::ModeList));
}

TEST_F(DesktopDemo, EndsWithTheDay) {
  Play();
  desktop::SeekTo(user, 23 * kHour + 50 * kMinute);
  EXPECT_TRUE(user.WaitForLog("Demo finished\r\n"));
  ExpectSoon("Ready (60s)");
  EXPECT_TRUE(user.IsEnabled(Control::ModeList));
  EXPECT_TRUE(desktop::WaitUntil([&] { return user.MenuItem(command::kUndo).enabled; }));
}

// The day would last longer than the program is waited for.
TEST_F(DesktopDemo, ClosingInTheMiddleEndsTheProgram) {
  Play(command::kSpeedSlow);
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

TEST_F(DesktopDemo, ClosingInTheMiddleOfAnUploadEndsTheProgram) {
  ASSERT_TRUE(user.Choose(command::kUploadProgram));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

}  // namespace
