// A frame of the chart without the drawing itself: what deciding costs, on a canvas that does nothing.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string_view>

#include "chart/chart_drawing.h"
#include "chart/curve_line.h"
#include "program/demo_state.h"
#include "program/program.h"
#include "tests/support/text_metric.h"

namespace {

using namespace TCBase::Program;

class IdleCanvas final : public UX::Canvas {
 public:
  std::int64_t operations = 0;

  void SetBrush(UX::Brush, UX::Color, float) override {}
  void SetOpacity(UX::Brush, float) override {}
  void SetFont(UX::TextFormat, const UX::Font& font) override { font_ = font; }
  void SetTransform(const UX::Transform&) override {}
  void Fill(const UX::Shape&, UX::Brush) override { ++operations; }
  void Stroke(const UX::Shape&, UX::Brush, float) override { ++operations; }
  void FillFigure(const UX::Figure&, UX::Brush) override { ++operations; }
  void StrokeFigure(const UX::Figure&, UX::Brush, float) override { ++operations; }
  void FillColumns(const UX::Rectangle&, std::span<const UX::Color>) override { ++operations; }
  UX::TextSize LayOutText(UX::TextFormat, std::string_view text, const UX::TextSize& limits) override {
    return chart_test::MeasureText(font_, text, limits);
  }
  void DrawLayout(UX::Brush) override { ++operations; }
  void BeginLabel(UX::Label, std::int32_t, std::int32_t) override {}
  void EndLabel() override {}
  void DrawLabel(UX::Label) override { ++operations; }

 private:
  UX::Font font_{8.0F, false};
};

// The steps spread over the day, in order, some of them jumps.
ModeListView GivenDay(std::int32_t stepsInAChannel) {
  ModeListView document;
  Mode mode;
  for (Channel& channel : mode.channels) {
    for (std::int32_t i = 0; i < stepsInAChannel; ++i) {
      const std::int32_t minute = i * kMinutesPerDay / stepsInAChannel;
      channel.push_back(
          {minute / 60, minute % 60, static_cast<float>(i * 37 % 101), i % 5 == 0, NextStepId()});
    }
  }
  document.modes.push_back(mode);
  return document;
}

// With a hovered and a selected step and their balloons, labels at the mouse, and a demo.
void Frame(benchmark::State& state) {
  ModeListView document = GivenDay(static_cast<std::int32_t>(state.range(0)));
  StepSelection selection{document, 1, 20};
  StepSelection hover{document, 3, 30};
  TCBase::DemoState demo;
  double now = 0.0;
  UX::ChartLayout layout{now};
  layout.Update(1024, 768);
  UX::ChartDrawing drawing({document, selection, hover, layout, demo, now});
  IdleCanvas canvas;
  drawing.Rebuild(canvas);
  ModeStep sent;
  sent.values = {0, 25, 50, 75, 100};
  demo.SetStep(sent);
  demo.SetRunning(43'200, TCBase::StatePlaying);
  drawing.MouseMoved(500, 300);
  drawing.Update();
  now += 0.15;  // balloons grow and lanes glide
  for (auto _ : state) {
    drawing.Update();
    drawing.Draw(canvas);
    benchmark::DoNotOptimize(canvas.operations);
  }
  state.counters["operations"] =
      benchmark::Counter(static_cast<double>(canvas.operations), benchmark::Counter::kAvgIterations);
}
BENCHMARK(Frame)->Arg(48)->Arg(480)->Arg(4800)->Unit(benchmark::kMicrosecond);

void CurveLine(benchmark::State& state) {
  const ModeListView document = GivenDay(static_cast<std::int32_t>(state.range(0)));
  UX::Figure line;
  for (auto _ : state) {
    UX::BuildCurveLine(line, document.modes[0].channels[0], {10, 10, 884, 105}, document);
    benchmark::DoNotOptimize(line.Points().data());
  }
  state.counters["points"] = static_cast<double>(line.Points().size());
}
BENCHMARK(CurveLine)->Arg(48)->Arg(480)->Arg(4800)->Arg(48'000)->Unit(benchmark::kMicrosecond);

void Rebuild(benchmark::State& state) {
  ModeListView document = GivenDay(48);
  StepSelection selection{document};
  StepSelection hover{document};
  const TCBase::DemoState demo;
  double now = 0.0;
  UX::ChartLayout layout{now};
  layout.Update(1024, 768);
  UX::ChartDrawing drawing({document, selection, hover, layout, demo, now});
  IdleCanvas canvas;
  for (auto _ : state) {
    drawing.Rebuild(canvas);
    benchmark::DoNotOptimize(canvas.operations);
  }
}
BENCHMARK(Rebuild)->Unit(benchmark::kMicrosecond);

}  // namespace
