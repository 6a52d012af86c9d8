// A demo on the real window and over real sockets, on the controller that a scan finds. Someone else has to
// see to it that there is one, and that it has heard what is printed here (tests/network/wizard_test.sh).

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <iostream>
#include <string>

#include "app/window/numbers.h"
#include "chart/chart_layout.h"
#include "common/truncate.h"
#include "program/builtin_modes.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"

namespace {

using app::Control;
namespace command = app::command;

class NetworkDemo : public testing::Test {
 protected:
  void SetUp() override { user.Start(); }
  void TearDown() override { user.Close(); }

  /// The limit is how long a broken program is waited for.
  void Until(const std::function<bool()>& reached) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!reached() && std::chrono::steady_clock::now() < limit) user.Wait(0.1);
    ASSERT_TRUE(reached());
  }
  void UntilStatus(const std::string& text) {
    Until([&] { return user.Text(Control::DemoStatusLabel) == text; });
  }

  void SeekTo(int hour) {
    const app::Size client = user.ClientSize();
    double now = 0.0;
    UX::ChartLayout layout{now};
    layout.Update(client.width, client.height);
    const UX::Rect& chart = layout.chartRect;
    user.ClickChart(chart.x + chart.width * hour / 24, chart.y + chart.height / 2);
  }

  /// The read-outs are at that hour, or a pixel beside it, and agree with each other.
  bool IsAt(int hour) {
    const std::string time = user.Text(Control::TimeLabel);
    if (time.size() != 8) return false;
    const int second = std::stoi(time) * 3600 + std::stoi(time.substr(3)) * 60 + std::stoi(time.substr(6));
    std::string power;
    for (const TCBase::Program::Channel& channel : program.modes[0].channels) {
      if (!power.empty()) power += ' ';
      power += std::to_string(TruncateToInt(TCBase::Program::ChannelValueAt(channel, second)));
    }
    return std::abs(second - hour * 3600) <= 180 && user.Text(Control::PowerLabel) == power;
  }

  const TCBase::Program::ModeListView program = TCBase::Program::NewProgram();
  const desktop::FirstDay firstDay;
  desktop::DesktopUser user;
};

TEST_F(NetworkDemo, StandsWhereTheUserClicks) {
  ASSERT_TRUE(user.Choose(command::kScanWifi));
  Until([this] { return user.List(Control::DeviceList).size() == 1; });
  ASSERT_TRUE(user.Choose(command::kSpeedSlow));
  user.Press(Control::PlayButton);
  UntilStatus("Playing");
  user.Press(Control::PlayButton);
  UntilStatus("Paused");
  for (const int hour : {9, 18}) {
    SeekTo(hour);
    Until([&] { return IsAt(hour); });
    std::cout << "shown " << user.Text(Control::PowerLabel) << std::endl;
  }
  user.Press(Control::StopButton);
  EXPECT_TRUE(user.WaitForLog("Demo finished\r\n"));
}

}  // namespace
