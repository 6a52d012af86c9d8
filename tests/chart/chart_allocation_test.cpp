// A frame takes no memory once it has been drawn before. A program of its own, since it counts every
// allocation of the process.

#include <gtest/gtest.h>

#include <cstdint>

#include "chart/chart_drawing.h"
#include "program/demo_state.h"
#include "tests/program/program_fixture.h"
#include "tests/support/checking_canvas.h"
#include "tests/support/heap_count.h"
#include "tests/support/virtual_clock.h"

namespace {

using namespace TCBase::Program;

constexpr std::int32_t kFrames = 200;

ModeListView GivenFullDay() {
  Mode mode;
  for (Channel& channel : mode.channels)
    for (int i = 0; i < kMaxModeSteps; ++i)
      channel.push_back({i / 2, i % 2 * 30, static_cast<float>(i * 37 % 101), i % 5 == 0, NextStepId()});
  return program_test::GivenDocument(mode);
}

TEST(ChartAllocation, FramesInMotionTakeNoMemory) {
  virtual_clock::Reset();
  ModeListView document = GivenFullDay();
  StepSelection selection{document, 1, 20};
  StepSelection hover{document, 3, 30};
  TCBase::DemoState demo;
  double now = 100.0;
  UX::ChartLayout layout(now);
  layout.Update(1024, 768);
  layout.ShowStrip(true);
  StepGroup group;
  group.Set({document.modes[0].channels[1][20].id, document.modes[0].channels[3][1].id});
  UX::ChartOverlay overlay{{UX::Comparison::With::Kept, document.modes[0]}, Rect{10, 10, 200, 100}};
  UX::ChartDrawing drawing({document, selection, hover, layout, demo, now, group, overlay});
  chart_test::CheckingCanvas canvas;
  drawing.Rebuild(canvas);
  demo.step.values = {0, 25, 50, 75, 100};

  std::int64_t before = 0;
  for (std::int32_t i = 0; i <= kFrames; ++i) {
    if (i == 1) before = heap_count::allocations;  // the first one is for finding sizes
    // Lanes glide to and fro, the mouse moves over all lanes and the gaps, balloons stay up, the demo goes
    // on.
    if (i % 20 == 0) layout.FocusLane(i / 20 % kChannelCount);
    hover.step = i % 10 < 5 ? 30 : -1;
    drawing.MouseMoved(i * 4, i * 3);
    demo.SetRunning(i * 400, TCBase::StatePlaying);
    drawing.Update();
    drawing.Draw(canvas);
    now += 0.02;
    virtual_clock::Advance(0.02);
  }
  EXPECT_EQ(heap_count::allocations - before, 0);
  EXPECT_EQ(canvas.fault, "");
  EXPECT_GT(canvas.operations, std::int64_t{kFrames} * 5 * kMaxModeSteps) << "and they did draw";
}

}  // namespace
