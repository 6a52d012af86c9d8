#include "tests/support/demo_words.h"

#include <chrono>
#include <cstdlib>
#include <string>

#include "app/window/control_table.h"
#include "chart/chart_layout.h"
#include "common/truncate.h"
#include "program/program.h"
#include "program/time_of_day.h"

namespace in_demo {

using app::Control;
using TCBase::Program::kSecondsPerHour;
using TCBase::Program::kSecondsPerMinute;

namespace {

std::string PowersAt(const TCBase::Program::Mode& mode, int second) {
  std::string text;
  for (const TCBase::Program::Channel& channel : mode.channels) {
    if (!text.empty()) text += ' ';
    text += std::to_string(TruncateToInt(TCBase::Program::ChannelValueAt(channel, second)));
  }
  return text;
}

}  // namespace

bool Await(User& user, const std::function<bool()>& isSo) {
  constexpr double kGlanceSeconds = 0.1;
  constexpr int kMostGlances = 1200;
  // A worker that has not begun yet holds up no time, however long the machine keeps it from that.
  constexpr std::chrono::seconds kLeast{20};
  const auto end = std::chrono::steady_clock::now() + kLeast;
  for (int glances = 0; glances < kMostGlances || std::chrono::steady_clock::now() < end; ++glances) {
    if (isSo()) return true;
    user.Wait(kGlanceSeconds);
  }
  return false;
}

bool AwaitStatus(User& user, const std::string& text) {
  return Await(user, [&] { return user.Text(Control::DemoStatusLabel) == text; });
}

void SeekTo(User& user, int second) {
  const app::Size client = user.ClientSize();
  double now = 0.0;
  UX::ChartLayout layout{now};
  layout.Update(client.width, client.height);
  const UX::Rect& chart = layout.chartRect;
  const int minute = second / kSecondsPerMinute;
  user.ClickChart(chart.x + chart.width * minute / TCBase::Program::kMinutesPerDay,
                  chart.y + chart.height / 2);
}

int ShownSecond(User& user) {
  const std::string time = user.Text(Control::TimeLabel);
  if (time.size() != std::string("00:00:00").size()) return -1;
  return std::stoi(time) * kSecondsPerHour + std::stoi(time.substr(3)) * kSecondsPerMinute +
         std::stoi(time.substr(6));
}

bool AwaitSecond(User& user, const TCBase::Program::Mode& mode, int second) {
  return Await(user, [&] {
    const int shown = ShownSecond(user);
    // A pixel of the chart is more than a minute.
    return shown >= 0 && std::abs(shown - second) <= 3 * kSecondsPerMinute &&
           user.Text(Control::PowerLabel) == PowersAt(mode, shown);
  });
}

}  // namespace in_demo
