// A demo on the emulator, on the real window and in real time.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "app/numbers.h"
#include "chart/chart_layout.h"
#include "common/truncate.h"
#include "program/builtin_modes.h"
#include "program/program.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"

namespace {

using app::Control;
using testing::HasSubstr;
namespace command = app::command;

constexpr int kMinute = 60;
constexpr int kHour = 60 * kMinute;

/// Any point of the chart does for a seek, but for its left and right.
constexpr int kSomeY = 300;

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

  /// The demo's label says `text`, now or within some seconds.
  void ExpectSoon(const std::string& text) {
    for (int tries = 0; tries < 100 && user.Text(Control::DemoStatusLabel) != text; ++tries) user.Wait(0.1);
    EXPECT_EQ(user.Text(Control::DemoStatusLabel), text);
  }

  void SeekTo(int second) {
    const app::Size client = user.ClientSize();
    UX::ChartLayout layout;
    layout.Update(client.width, client.height);
    const UX::Rect& chart = layout.chartRect;
    user.ClickChart(chart.x + chart.width * (second / kMinute) / TCBase::Program::kMinutesPerDay, kSomeY);
  }

  /// The second of the day that the read-outs show, once they rest. They agree with each other by the curves.
  int RestingSecond() {
    std::string time;
    while (user.Text(Control::TimeLabel) != time) {
      time = user.Text(Control::TimeLabel);
      user.Wait(0.4);  // the last frame and the read-outs that follow it
    }
    const int second =
        std::stoi(time) * kHour + std::stoi(time.substr(3)) * kMinute + std::stoi(time.substr(6));
    EXPECT_EQ(user.Text(Control::PowerLabel), PowerAt(second)) << "at " << time;
    return second;
  }

  std::string PowerAt(int second) const {
    std::string text;
    for (const TCBase::Program::Channel& channel : program.modes[0].channels) {
      const float value = TCBase::Program::ChannelValueAt(channel, second);
      if (!text.empty()) text += ' ';
      text += std::to_string(TruncateToInt(value));
    }
    return text;
  }

  const TCBase::Program::ModeListView program = TCBase::Program::NewProgram();
  const desktop::FirstDay firstDay;
  desktop::DesktopUser driver;
  User& user = driver;
};

TEST_F(DesktopDemo, IsPausedSoughtResumedAndStopped) {
  Play();
  user.Press(Control::PlayButton);
  ExpectSoon("Paused");
  RestingSecond();
  for (const int wanted : {21 * kHour, 9 * kHour, 13 * kHour + 30 * kMinute}) {
    SeekTo(wanted);
    EXPECT_NEAR(RestingSecond(), wanted, 3 * kMinute) << "a pixel of the chart is more than a minute";
  }
  const int paused = RestingSecond();
  user.PressKey(app::key::kSpace);
  ExpectSoon("Playing");
  EXPECT_THAT(user.Log(), HasSubstr("Demo playback resumed\r\n"));
  user.Wait(1.0);
  user.PressKey(app::key::kSpace);
  ExpectSoon("Paused");
  EXPECT_THAT(user.Log(), HasSubstr("Demo playback paused at "));
  EXPECT_GT(RestingSecond(), paused + TCBase::Program::kSecondsPerDay / 60 / 2) << "half of what it should";

  user.Press(Control::StopButton);
  EXPECT_TRUE(user.WaitForLog("Demo finished\r\n"));
  ExpectSoon("Ready (60s)");
  EXPECT_TRUE(user.IsEnabled(Control::ModeList));
}

TEST_F(DesktopDemo, EndsWithTheDay) {
  Play();
  SeekTo(23 * kHour + 50 * kMinute);
  EXPECT_TRUE(user.WaitForLog("Demo finished\r\n"));
  ExpectSoon("Ready (60s)");
  EXPECT_TRUE(user.IsEnabled(Control::ModeList));
  EXPECT_TRUE(user.MenuItem(command::kUndo).enabled);
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
