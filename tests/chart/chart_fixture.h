#pragma once

// A chart with everything that it needs, and what its frames look like as text.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "chart/chart_drawing.h"
#include "chart/lane_drawing.h"
#include "program/demo_state.h"
#include "tests/program/program_fixture.h"
#include "tests/support/recording_canvas.h"
#include "tests/support/virtual_clock.h"

namespace chart_test {

using namespace TCBase::Program;

/// Time stands still but for Wait().
class GivenChart {
 public:
  explicit GivenChart(ModeListView program, std::int32_t width = 1024, std::int32_t height = 768)
      : document(std::move(program)) {
    for (Mode& mode : document.modes) RenumberSteps(mode);
    virtual_clock::Reset();
    now = 100.0;

    Resize(width, height);
  }
  GivenChart(const GivenChart&) = delete;
  GivenChart& operator=(const GivenChart&) = delete;

  void Wait(double seconds) {
    now += seconds;
    virtual_clock::Advance(seconds);
  }
  /// The lanes have come to rest, and brushes, fonts and labels are made.
  void Resize(std::int32_t width, std::int32_t height) {
    layout.Update(width, height);
    Wait(1.0);
    drawing.Rebuild(canvas);
    canvas.Clear();
  }
  void ShowHours(std::int32_t from, std::int32_t to) {
    document.viewStart = from * 3600;
    document.viewEnd = to * 3600;
    drawing.Relayout(canvas);
    canvas.Clear();
  }
  void Select(std::int32_t channel, std::int32_t step) { selection.channel = channel, selection.step = step; }
  void Hover(std::int32_t channel, std::int32_t step) { hover.channel = channel, hover.step = step; }
  /// The mouse has moved, and what follows it has arrived.
  void PointAt(std::int32_t x, std::int32_t y) {
    drawing.MouseMoved(x, y);
    Wait(2.0);
  }
  void PlayDemo(std::int32_t second, const std::array<std::int32_t, kChannelCount>& values) {
    demo.SetStep({second / 3600, second % 3600 / 60, values, {}});
    demo.SetRunning(second, TCBase::StatePlaying);
  }

  /// The lines of one frame.
  const RecordingCanvas& Frame() {
    canvas.Clear();
    drawing.Draw(canvas);
    return canvas;
  }
  /// The lines of one lane's background, curve or steps alone.
  const RecordingCanvas& Background(std::int32_t lane) {
    canvas.Clear();
    lanes.DrawBackground(canvas, lane);
    return canvas;
  }
  const RecordingCanvas& Curve(std::int32_t lane = 0) {
    canvas.Clear();
    lanes.DrawCurve(canvas, lane);
    return canvas;
  }
  const RecordingCanvas& Steps(std::int32_t lane = 0) {
    canvas.Clear();
    lanes.DrawSteps(canvas, lane);
    return canvas;
  }

  ModeListView document;
  StepSelection selection{document};
  StepSelection hover{document};
  TCBase::DemoState demo;
  double now = 0.0;
  UX::ChartLayout layout{now};
  StepGroup group;
  UX::ChartOverlay overlay;
  const UX::ChartScene scene{document, selection, hover, layout, demo, now, group, overlay};
  UX::ChartDrawing drawing{scene};
  UX::LaneDrawing lanes{scene};
  RecordingCanvas canvas;
};

/// One channel, the first; the others are empty.
inline ModeListView GivenSteps(std::string_view steps) {
  return program_test::GivenDocument(program_test::GivenMode({steps}));
}

}  // namespace chart_test
