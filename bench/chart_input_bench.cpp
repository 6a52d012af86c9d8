// A mouse move over the chart, from the event to the lane that is to be painted: what the application adds to
// each pixel of a drag, in the fullest mode. The platform's windows and the drawing are not in it.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>
#include <string>

#include "tests/support/headless_user.h"

namespace {

using namespace TCBase::Program;

class FullMode {
 public:
  FullMode() {
    std::filesystem::create_directories(folder_);
    user_.Start();
    // 5 x 48 steps: every channel has one each half hour.
    for (Channel& channel : user_.State().CurrentMode().channels) {
      channel.clear();
      for (int i = 0; i < 48; ++i) channel.push_back({i / 2, i % 2 * 30, static_cast<float>(i * 37 % 101)});
      RenumberSteps(channel);
    }
    user_.State().chartLayout.FocusLane(2);
    user_.Wait(1.0);  // the lanes are at rest
  }
  ~FullMode() { std::filesystem::remove_all(folder_); }
  FullMode(const FullMode&) = delete;
  FullMode& operator=(const FullMode&) = delete;

  void Press() {
    const UX::Rect lane = user_.State().chartLayout.LaneRect(2);
    const Step& step = user_.State().CurrentMode().channels[2][24];
    Chart().OnLeftDown(UX::TimeToX(lane, user_.State().program, step), UX::PercentToY(lane, step.value));
  }
  app::AppState& State() { return user_.State(); }
  app::ChartWindow& Chart() { return user_.GetDesktop().application->chartWindow; }
  std::vector<UX::Rect>& Invalidated() { return user_.GetDesktop().chart.invalidated; }

 private:
  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("lumarine-bench-" + std::to_string(std::random_device()()));
  headless::HeadlessUser user_{folder_};
};

// To and fro through the whole day, so that the step passes its neighbours.
void DragAStep(benchmark::State& state) {
  FullMode mode;
  mode.Press();
  int x = 450;
  int direction = 1;
  for (auto _ : state) {
    x += direction;
    if (x == 880 || x == 20) direction = -direction;
    mode.Invalidated().clear();
    mode.Chart().OnMouseMove(x, 250 + x % 50, true);
    if (mode.Invalidated().size() != 1) state.SkipWithError("nothing was dragged");
  }
}
BENCHMARK(DragAStep)->Unit(benchmark::kMicrosecond);

// The same with all 240 steps selected.
void DragAllSteps(benchmark::State& state) {
  FullMode mode;
  mode.State().selection.channel = 2;
  mode.State().chartInput.SelectAllSteps();
  mode.State().chartInput.SelectAllSteps();
  mode.Press();
  int y = 250;
  int direction = 1;
  for (auto _ : state) {
    y += direction;
    if (y == 300 || y == 200) direction = -direction;
    mode.Invalidated().clear();
    mode.Chart().OnMouseMove(450, y, true);
    if (mode.Invalidated().empty()) state.SkipWithError("nothing was dragged");
  }
}
BENCHMARK(DragAllSteps)->Unit(benchmark::kMicrosecond);

// A step dragged while the step table is open, until the table says the same.
void DragAStepWithTheTableOpen(benchmark::State& state) {
  FullMode mode;
  mode.State().selection.channel = 2;
  mode.State().stepTable.Open();
  mode.Press();
  int x = 450;
  int direction = 1;
  for (auto _ : state) {
    x += direction;
    if (x == 880 || x == 20) direction = -direction;
    mode.Chart().OnMouseMove(x, 250 + x % 50, true);
    mode.State().stepTable.Follow();
  }
}
BENCHMARK(DragAStepWithTheTableOpen)->Unit(benchmark::kMicrosecond);

void MoveWithoutAButton(benchmark::State& state) {
  FullMode mode;
  int x = 20;
  for (auto _ : state) {
    x = x == 880 ? 20 : x + 1;
    mode.Chart().OnMouseMove(x, 250, false);
  }
}
BENCHMARK(MoveWithoutAButton)->Unit(benchmark::kMicrosecond);

}  // namespace
