// Any document, view, window and mouse draws: finite coordinates within reach, each brush and font set before
// it is used, and no more work than there is to see.

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "chart/chart_drawing.h"
#include "program/builtin_modes.h"
#include "program/demo_state.h"
#include "tests/program/program_fixture.h"
#include "tests/program/random_program.h"
#include "tests/support/checking_canvas.h"
#include "tests/support/virtual_clock.h"

namespace chart_test {
namespace {

using namespace TCBase::Program;

class AnyChart {
 public:
  explicit AnyChart(ModeListView program) : document(std::move(program)) {
    virtual_clock::Reset();
    for (Mode& mode : document.modes) RenumberSteps(mode);
  }
  AnyChart(const AnyChart&) = delete;
  AnyChart& operator=(const AnyChart&) = delete;

  void Resize(std::int32_t width, std::int32_t height) {
    layout.Update(width, height);
    layout.ShowStrip(width % 2 == 0);
    drawing.Rebuild(canvas);
  }

  // Frames while the lanes glide, the balloons grow, the mouse moves and a demo runs.
  void DrawAFewFrames() {
    demo.step.values = {0, 25, 50, 75, 100};
    for (int i = 0; i < 6; ++i) {
      drawing.MouseMoved(i * 170, i * 110);
      demo.SetRunning(i * 20'000, TCBase::StatePlaying);
      drawing.Update();
      drawing.Draw(canvas);
      now += 0.07;
      virtual_clock::Advance(0.07);
    }
    EXPECT_EQ(canvas.fault, "");
  }

  ModeListView document;
  StepSelection selection{document};
  StepSelection hover{document};
  TCBase::DemoState demo;
  double now = 100.0;
  UX::ChartLayout layout{now};
  UX::ChartDrawing drawing{{document, selection, hover, layout, demo, now}};
  CheckingCanvas canvas;
};

struct WindowSize {
  std::int32_t width;
  std::int32_t height;
};
constexpr WindowSize kWindows[] = {
    {1024, 768}, {0, 0},     {1, 1},      {140, 186}, {141, 187},
    {150, 193},  {300, 250}, {1024, 187}, {150, 768}, {7680, 4320},
};

struct View {
  std::int32_t start;
  std::int32_t end;
};
constexpr View kViews[] = {{0, kSecondsPerDay}, {0, 7200}, {79200, 86400}, {21600, 43200}, {5000, 5000}};

void ExpectDrawn(const ModeListView& document) {
  AnyChart chart(document);
  for (const WindowSize& size : kWindows) {
    for (const View& view : kViews) {
      SCOPED_TRACE(std::to_string(size.width) + " x " + std::to_string(size.height) + ", from " +
                   std::to_string(view.start) + " to " + std::to_string(view.end));
      chart.document.viewStart = view.start;
      chart.document.viewEnd = view.end;
      chart.Resize(size.width, size.height);
      chart.selection.channel = 1;
      chart.selection.step = 1;
      chart.hover.channel = 0;
      chart.hover.step = 0;
      chart.layout.FocusLane(2);
      chart.DrawAFewFrames();
      chart.hover.step = -1;
      chart.layout.ClearFocus();
      chart.DrawAFewFrames();
      if (testing::Test::HasFailure()) return;
    }
  }
}

struct DocumentCase {
  const char* name;
  const char* steps;
};
class AnyDocument : public testing::TestWithParam<DocumentCase> {};

TEST_P(AnyDocument, IsDrawn) {
  const char* const steps = GetParam().steps;
  ExpectDrawn(program_test::GivenDocument(program_test::GivenMode({steps, steps, steps, steps, steps})));
}

INSTANTIATE_TEST_SUITE_P(
    Steps, AnyDocument,
    testing::Values(DocumentCase{"NoSteps", ""}, DocumentCase{"OneStep", "12:00 50"},
                    DocumentCase{"AllOnOneMinute", "12:00 0, 12:00 100 J, 12:00 50"},
                    DocumentCase{"AllOnOneMinuteAndAlike", "12:00 50, 12:00 50, 12:00 50"},
                    DocumentCase{"TimesOutOfRange", "-2000000000:0 1, 99:99 50, 2000000000:2000000000 3"},
                    DocumentCase{"ValuesOutOfRange", "06:00 -1e9, 12:00 1e30 J, 18:00 1e9"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(AnyDocument, WithValuesThatAreNoNumbersIsDrawn) {
  Mode mode = program_test::GivenMode({"06:00 1, 12:00 2, 18:00 3", "06:00 1 J, 12:00 2 J, 18:00 3 J"});
  for (std::size_t c = 0; c < 2; ++c) {
    mode.channels[c][0].value = std::numeric_limits<float>::quiet_NaN();
    mode.channels[c][1].value = std::numeric_limits<float>::infinity();
    mode.channels[c][2].value = -std::numeric_limits<float>::infinity();
  }
  ExpectDrawn(program_test::GivenDocument(mode));
}

TEST(AnyDocument, WithoutAModeIsDrawn) {
  ExpectDrawn(ModeListView());
  ModeListView stale = NewProgram();
  stale.currentMode = 7;
  ExpectDrawn(stale);
  stale.currentMode = -1;
  ExpectDrawn(stale);
}

TEST(AnyDocument, OfAThousandModesIsDrawn) {
  ModeListView document;
  document.modes.resize(1000, NewProgram().modes.front());
  document.currentMode = 999;
  ExpectDrawn(document);
}

class RandomDocument : public testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomDocument, IsDrawn) {
  program_test::RandomProgram random(GetParam());
  ExpectDrawn(program_test::GivenDocument(random.AnyMode(60)));
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomDocument, testing::Range(1U, 13U));

TEST(ManySteps, CostNoMoreThanThereIsToSee) {
  Mode mode;
  for (Channel& channel : mode.channels) {
    for (std::int32_t i = 0; i < 10'000; ++i) {
      const std::int32_t minute = i * kMinutesPerDay / 10'000;
      channel.push_back({minute / 60, minute % 60, static_cast<float>(minute % 101)});
    }
  }
  AnyChart chart(program_test::GivenDocument(mode));
  chart.Resize(1024, 768);
  chart.now += 1.0;
  chart.canvas.points = 0;
  chart.canvas.operations = 0;
  chart.drawing.Draw(chart.canvas);
  EXPECT_EQ(chart.canvas.fault, "");
  constexpr std::int64_t kColumns = 884;
  constexpr std::int64_t kGrid = 10 * 2 + 24 * 2 + 4;
  EXPECT_LE(chart.canvas.points, 5 * (8 * kColumns + kGrid));
  EXPECT_LE(chart.canvas.operations, std::int64_t{5} * (2 * 2 * kMinutesPerDay + 20))
      << "two markers for each minute at most";
}

TEST(ManySteps, InAnyOrderAreDrawn) {
  program_test::RandomProgram random(1);
  Mode mode;
  for (Channel& channel : mode.channels)
    channel = random.ChannelOf(program_test::ChannelKind::Unordered, 10'000);
  AnyChart chart(program_test::GivenDocument(mode));
  chart.Resize(1024, 768);
  chart.selection.channel = 0;
  chart.selection.step = 9'999;
  chart.DrawAFewFrames();
}

}  // namespace
}  // namespace chart_test
