// A whole frame of the chart on Qt's painter, off-screen: at 900 x 600, as large as the chart is in main
// windows of some sizes, and as large as these themselves. And as the floor the five curves alone, as
// polylines by the same painter.

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPolygonF>
#include <QSize>

#include <cstdint>
#include <cstdlib>

#include "chart/bumper.h"
#include "chart/chart_drawing.h"
#include "chart/chart_layout.h"
#include "common/platform.h"
#include "common/truncate.h"
#include "platform/qt/canvas/qt_canvas.h"
#include "program/demo_state.h"

namespace {

using namespace TCBase::Program;

constexpr QSize kSmall(900, 600);

// What the main window has around the chart's (app/window/control_table.cpp).
constexpr QSize kAroundChart(120, 166);

void GivenQt() {
  static int count = 1;
  static char name[] = "qt_chart_bench";
  static char* arguments[] = {name, nullptr};
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  static const QGuiApplication application(count, arguments);
}

// Steps all over the day, with jumps between them; where there are more steps than minutes, several share
// one.
ModeListView GivenDocument(int steps) {
  ModeListView document;
  Mode& mode = document.modes.emplace_back();
  for (int c = 0; c < kChannelCount; ++c) {
    document.channelInfos[static_cast<std::size_t>(c)].name = "Channel name";
    document.channelInfos[static_cast<std::size_t>(c)].color = 0xFF3050F0U + static_cast<unsigned>(c) * 40U;
    for (int i = 0; i < steps; ++i) {
      const int minute = i * kMinutesPerDay / steps;
      const auto value = static_cast<float>((minute * (c + 7) * 13 + i * 29) % 101);
      mode.channels[static_cast<std::size_t>(c)].push_back(
          {minute / 60, minute % 60, value, i % 7 == 0, NextStepId()});
    }
  }
  return document;
}

// The chart of a user who has a step selected, the mouse over a lane and a demo running.
class Chart {
 public:
  Chart(QSize size, int steps)
      : document_(GivenDocument(steps)), image_(size, QImage::Format_ARGB32_Premultiplied) {
    GivenQt();
    selection_.channel = 1;
    selection_.step = steps / 2;
    const QSize window = size + kAroundChart;
    layout_.Update(window.width(), window.height());
    Pass();
    drawing_.Rebuild(canvas_);
    drawing_.MouseMoved(300, 130);
    drawing_.Update();
    Pass();
    drawing_.Update();
    ModeStep sent;
    sent.values = {0, 25, 50, 75, 100};
    demo_.SetStep(sent);
    demo_.SetRunning(13 * 3600, TCBase::StatePlaying);
    image_.fill(Qt::white);
  }

  void DrawFrame() {
    QPainter painter(&image_);
    painter.fillRect(image_.rect(), Qt::white);
    canvas_.Begin(painter);
    drawing_.Draw(canvas_);
    canvas_.End();
  }

  // Nothing but the curves, with every point that they have.
  void DrawCurves() {
    QPainter painter(&image_);
    painter.fillRect(image_.rect(), Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(250, 128, 114), 4.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    for (int c = 0; c < kChannelCount; ++c) {
      const UX::Rect lane = layout_.LaneRect(c);
      QPolygonF points;
      const Step* previous = nullptr;
      for (const Step& step : document_.modes[0].channels[static_cast<std::size_t>(c)]) {
        const int x = UX::TimeToX(lane, document_, step);
        if (previous != nullptr && previous->jump)
          points << QPointF(x, UX::PercentToY(lane, previous->value));
        points << QPointF(x, UX::PercentToY(lane, step.value));
        previous = &step;
      }
      painter.drawPolyline(points);
    }
  }

 private:
  // A pass of the main loop, when all has come to rest.
  void Pass() {
    platform::SleepMilliseconds(600);
    now_ = frameClock_.Now();
  }

  ModeListView document_;
  StepSelection selection_{document_};
  StepSelection hoverStep_{document_};
  TCBase::DemoState demo_;
  timer_base::TimerFeatures<TimerCore_Counter> frameClock_;
  double now_ = 0.0;
  UX::ChartLayout layout_{now_};
  UX::ChartDrawing drawing_{{document_, selection_, hoverStep_, layout_, demo_, now_}};
  qt::QtCanvas canvas_{qt::Surface::Pixels};
  QImage image_;
};

void WholeFrame(benchmark::State& state) {
  Chart chart(kSmall, static_cast<int>(state.range(0)));
  for (auto _ : state) chart.DrawFrame();
}

void CurvesAlone(benchmark::State& state) {
  Chart chart(kSmall, static_cast<int>(state.range(0)));
  for (auto _ : state) chart.DrawCurves();
}

void Measured(benchmark::internal::Benchmark* bench) {
  bench->Arg(48)->Arg(480)->Arg(4800)->Unit(benchmark::kMillisecond);
}
BENCHMARK(WholeFrame)->Apply(Measured);
BENCHMARK(CurvesAlone)->Apply(Measured);

// The size of a screen, whose chart has 48 steps a channel.

constexpr int kSteps = 48;

QSize ScreenOf(const benchmark::State& state) {
  return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1))};
}

void ChartOfWindow(benchmark::State& state) {
  Chart chart(ScreenOf(state) - kAroundChart, kSteps);
  for (auto _ : state) chart.DrawFrame();
}

void ChartOfWholeScreen(benchmark::State& state) {
  Chart chart(ScreenOf(state), kSteps);
  for (auto _ : state) chart.DrawFrame();
}

void Screens(benchmark::internal::Benchmark* bench) {
  bench->Args({1024, 768})->Args({1920, 1080})->Args({3840, 2160})->Unit(benchmark::kMillisecond);
}
BENCHMARK(ChartOfWindow)->Apply(Screens);
BENCHMARK(ChartOfWholeScreen)->Apply(Screens);

}  // namespace
