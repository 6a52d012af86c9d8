#include "tests/support/demo_scripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "app/window/numbers.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "program/time_of_day.h"
#include "tests/support/demo_words.h"

namespace scripts {

namespace {

using app::Control;
using testing::HasSubstr;
using testing::Not;
namespace command = app::command;
namespace prog = TCBase::Program;

constexpr int kMinute = prog::kSecondsPerMinute;
constexpr int kHour = prog::kSecondsPerHour;

// Half a second each: far more than the end of the program is waited for.
constexpr int kManyModes = 400;

// A demo that is sent there ends soon.
constexpr int kLastMinutes = prog::kSecondsPerDay - 7 * kMinute;

void StartWithTheEmulator(User& user) {
  user.Start();
  ASSERT_TRUE(user.Choose(command::kAddEmulator));
}

void ExpectSoon(User& user, const std::string& text) {
  EXPECT_TRUE(in_demo::AwaitStatus(user, text)) << user.Text(Control::DemoStatusLabel);
}

void Play(User& user, int speedCommand = command::kSpeedFast) {
  user.Choose(speedCommand);
  user.Press(Control::PlayButton);
  ExpectSoon(user, "Playing");
}

void ExpectToRestAt(User& user, int second) {
  EXPECT_TRUE(in_demo::AwaitSecond(user, prog::NewProgram().modes[0], second))
      << user.Text(Control::TimeLabel) << " [" << user.Text(Control::PowerLabel) << "] instead of "
      << prog::TimeTextWithSeconds(second);
}

// The program ends by itself, and well.
void Leave(User& user) {
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

}  // namespace

void PauseSeekResumeAndStopADemo(User& user, const Folders&) {
  StartWithTheEmulator(user);
  Play(user, command::kSpeedSlow);
  user.Press(Control::PlayButton);
  ExpectSoon(user, "Paused");
  for (const int wanted : {21 * kHour, 9 * kHour, 13 * kHour + 30 * kMinute}) {
    in_demo::SeekTo(user, wanted);
    ExpectToRestAt(user, wanted);
  }
  const int paused = in_demo::ShownSecond(user);
  user.PressKey(app::key::kSpace);
  ExpectSoon(user, "Playing");
  EXPECT_THAT(user.Log(), HasSubstr("Demo playback resumed\r\n"));
  EXPECT_TRUE(in_demo::Await(user, [&] { return in_demo::ShownSecond(user) > paused + 12 * kMinute; }));
  user.PressKey(app::key::kSpace);
  ExpectSoon(user, "Paused");
  EXPECT_THAT(user.Log(), HasSubstr("Demo playback paused at "));

  user.Press(Control::StopButton);
  EXPECT_TRUE(user.WaitForLog("Demo finished\r\n"));
  ExpectSoon(user, "Ready (300s)");
  EXPECT_TRUE(user.IsEnabled(Control::ModeList));
  Leave(user);
}

void LetADemoEndWithTheDay(User& user, const Folders&) {
  StartWithTheEmulator(user);
  Play(user);
  in_demo::SeekTo(user, 23 * kHour + 50 * kMinute);
  EXPECT_TRUE(user.WaitForLog("Demo finished\r\n"));
  ExpectSoon(user, "Ready (60s)");
  EXPECT_TRUE(user.IsEnabled(Control::ModeList));
  EXPECT_TRUE(in_demo::Await(user, [&] { return user.MenuItem(command::kUndo).enabled; }));
  Leave(user);
}

void LookAtTheMenusDuringADemo(User& user, const Folders&) {
  StartWithTheEmulator(user);
  Play(user);
  EXPECT_TRUE(user.MenuItem(command::kStopDemo).enabled);
  EXPECT_FALSE(user.MenuItem(command::kClearSteps).enabled) << "by its menu";
  EXPECT_FALSE(user.MenuItem(command::kUndo).enabled) << "by itself";
  EXPECT_FALSE(user.IsEnabled(Control::ModeList));
  user.Press(Control::StopButton);
  ExpectSoon(user, "Ready (60s)");
  EXPECT_TRUE(in_demo::Await(user, [&] { return user.MenuItem(command::kUndo).enabled; }));
  EXPECT_TRUE(user.IsEnabled(Control::ModeList));
  Leave(user);
}

// The day would last longer than the program is waited for.
void LeaveADemo(User& user, const Folders&) {
  StartWithTheEmulator(user);
  Play(user, command::kSpeedSlow);
  Leave(user);
}

void LeaveAPausedDemo(User& user, const Folders&) {
  StartWithTheEmulator(user);
  Play(user);
  user.Press(Control::PlayButton);
  ASSERT_TRUE(in_demo::AwaitStatus(user, "Paused"));
  Leave(user);
}

void LeaveASecondDemo(User& user, const Folders&) {
  StartWithTheEmulator(user);
  // Too late for a second one on a fast machine, and then it is a pause.
  user.Press(Control::PlayButton);
  user.Press(Control::PlayButton);
  Leave(user);
}

void LeaveADemoThatHasEnded(User& user, const Folders&) {
  StartWithTheEmulator(user);
  Play(user);
  in_demo::SeekTo(user, kLastMinutes);
  ASSERT_TRUE(user.WaitForLog("Demo finished\r\n"));
  user.Press(Control::StopButton);
  Leave(user);
}

void LeaveAnUpload(User& user, const Folders&) {
  StartWithTheEmulator(user);
  ASSERT_TRUE(user.Choose(command::kUploadProgram));
  Leave(user);
}

void LeaveALongUpload(User& user, const Folders& folders) {
  prog::ModeListView document = prog::NewProgram();
  for (int i = 0; i < kManyModes; ++i) document.modes.push_back(document.modes[1]);
  ASSERT_TRUE(SaveProgram(document, folders.work / "long.xml"));
  StartWithTheEmulator(user);
  user.WillPick({folders.work / "long.xml"});
  ASSERT_TRUE(user.Choose(command::kLoadProgram));
  ASSERT_TRUE(user.Choose(command::kUploadProgram));
  ASSERT_TRUE(user.WaitForLog("Uploading mode: AlwaysOn\r\n"));
  ASSERT_THAT(user.Log(), Not(HasSubstr("Uploading finished")));
  Leave(user);
}

}  // namespace scripts
