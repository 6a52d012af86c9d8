// A demo on the emulator, on the real window and in real time.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "app/window/numbers.h"
#include "chart/chart_layout.h"
#include "common/truncate.h"
#include "program/builtin_modes.h"
#include "program/program.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"
#include "tests/desktop/patience.h"

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

  /// The demo's label says `text`, now or soon.
  void ExpectSoon(const std::string& text) {
    desktop::WaitUntil([&] { return user.Text(Control::DemoStatusLabel) == text; });
    EXPECT_EQ(user.Text(Control::DemoStatusLabel), text);
  }

  void SeekTo(int second) {
    const app::Size client = user.ClientSize();
    double now = 0.0;
    UX::ChartLayout layout{now};
    layout.Update(client.width, client.height);
    const UX::Rect& chart = layout.chartRect;
    user.ClickChart(chart.x + chart.width * (second / kMinute) / TCBase::Program::kMinutesPerDay, kSomeY);
  }

  /// The second of the day that the read-outs show.
  int ShownSecond() {
    const std::string time = user.Text(Control::TimeLabel);
    return std::stoi(time) * kHour + std::stoi(time.substr(3)) * kMinute + std::stoi(time.substr(6));
  }
  /// While the demo is paused, the read-outs come to show `wanted`, and agree with each other by the curves.
  void ExpectToRestAt(int wanted) {
    EXPECT_TRUE(desktop::WaitUntil([&] {
      const int second = ShownSecond();
      // A pixel of the chart is more than a minute.
      return std::abs(second - wanted) <= 3 * kMinute && user.Text(Control::PowerLabel) == PowerAt(second);
    })) << user.Text(Control::TimeLabel)
        << " [" << user.Text(Control::PowerLabel) << "] instead of " << wanted / kMinute << " minutes";
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
  Play(command::kSpeedSlow);
  user.Press(Control::PlayButton);
  ExpectSoon("Paused");
  for (const int wanted : {21 * kHour, 9 * kHour, 13 * kHour + 30 * kMinute}) {
    SeekTo(wanted);
    ExpectToRestAt(wanted);
  }
  const int paused = ShownSecond();
  user.PressKey(app::key::kSpace);
  ExpectSoon("Playing");
  EXPECT_THAT(user.Log(), HasSubstr("Demo playback resumed\r\n"));
  EXPECT_TRUE(desktop::WaitUntil([&] { return ShownSecond() > paused + 12 * kMinute; }));
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
  SeekTo(23 * kHour + 50 * kMinute);
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
