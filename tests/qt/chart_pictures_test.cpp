// Golden pictures of the chart: all of a frame but its texts, since fonts differ between machines.

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <cstdint>
#include <string>
#include <vector>

#include "chart/bumper.h"
#include "chart/chart_drawing.h"
#include "chart/chart_layout.h"
#include "platform/qt/canvas/qt_canvas.h"
#include "program/demo_state.h"
#include "tests/qt/pictures.h"
#include "tests/support/virtual_clock.h"

namespace {

using TCBase::Program::ModeListView;
using TCBase::Program::Step;
using TCBase::Program::StepSelection;

// The canvas without letters: texts have the size of so many squares, labels are left out.
class WordlessCanvas : public UX::Canvas {
 public:
  explicit WordlessCanvas(qt::QtCanvas& canvas) : canvas_(canvas) {}

  void SetBrush(UX::Brush brush, UX::Color color, float opacity) override {
    canvas_.SetBrush(brush, color, opacity);
  }
  void SetOpacity(UX::Brush brush, float opacity) override { canvas_.SetOpacity(brush, opacity); }
  void SetFont(UX::TextFormat, const UX::Font& font) override { size_ = font.size; }
  void SetTransform(const UX::Transform& transform) override { canvas_.SetTransform(transform); }
  void Fill(const UX::Shape& shape, UX::Brush brush) override { canvas_.Fill(shape, brush); }
  void Stroke(const UX::Shape& shape, UX::Brush brush, float width) override {
    canvas_.Stroke(shape, brush, width);
  }
  void FillFigure(const UX::Figure& figure, UX::Brush brush) override { canvas_.FillFigure(figure, brush); }
  void StrokeFigure(const UX::Figure& figure, UX::Brush brush, float width) override {
    canvas_.StrokeFigure(figure, brush, width);
  }
  void FillColumns(const UX::Rectangle& box, std::span<const UX::Color> colors) override {
    canvas_.FillColumns(box, colors);
  }
  UX::TextSize LayOutText(UX::TextFormat, std::string_view, const UX::TextSize&) override {
    return {24.0F, 12.0F};
  }
  void DrawLayout(UX::Brush) override {}
  void BeginLabel(UX::Label label, std::int32_t width, std::int32_t height) override {
    canvas_.BeginLabel(label, width, height);
  }
  void EndLabel() override { canvas_.EndLabel(); }
  void DrawLabel(UX::Label) override {}

 private:
  qt::QtCanvas& canvas_;
  float size_ = 1.0F;
};

// A chart window of 300 x 300 with somebody at the mouse.
class ChartPicturesTest : public testing::Test {
 protected:
  ChartPicturesTest() {
    virtual_clock::Reset();
    now_ = frameClock_.Now();
    document_.modes.emplace_back();
    const std::uint32_t colors[] = {0xFF2060FF, 0xFFF0F0E0, 0xFF9040FF, 0xFFFF3020, 0xFF40C070};
    for (std::size_t c = 0; c < 5; ++c) document_.channelInfos[c].color = colors[c];
    GivenSteps(0, {{6, 0, 0, false, 1}, {9, 30, 80, false, 2}, {18, 0, 80, false, 3}, {21, 0, 0, false, 4}});
    GivenSteps(1, {{0, 0, 20, true, 5}, {8, 0, 100, true, 6}, {20, 0, 40, true, 7}});
    GivenSteps(2, {{12, 0, 50, false, 8}});
    GivenSteps(3, {{4, 0, 100, false, 9}, {4, 0, 0, false, 10}, {23, 59, 60, true, 11}});
    layout_.Update(300 + 120, 300 + 166);
  }

  void GivenSteps(std::size_t channel, std::vector<Step> steps) {
    document_.modes[0].channels[channel] = std::move(steps);
  }
  void GivenDemo(std::int32_t second, const std::array<std::int32_t, 5>& values) {
    demo_.SetStep({0, 0, values, {}});
    demo_.SetRunning(second, TCBase::StatePlaying);
  }

  // The frame when all has come to rest.
  QImage Frame() {
    WordlessCanvas wordless(canvas_);
    Pass();
    drawing_.Rebuild(wordless);
    QImage image;
    for (int pass = 0; pass < 3; ++pass) {
      drawing_.Update();
      Pass();
      image = QImage(300, 300, QImage::Format_ARGB32_Premultiplied);
      image.fill(Qt::white);
      QPainter painter(&image);
      canvas_.Begin(painter);
      drawing_.Draw(wordless);
      canvas_.End();
    }
    return image;
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

 private:
  void Pass() {
    virtual_clock::Advance(0.9);
    now_ = frameClock_.Now();
  }
};

TEST_F(ChartPicturesTest, AWholeDay) {
  pictures::ExpectGolden(Frame(), "whole_day");
}

TEST_F(ChartPicturesTest, ADemoAtNoon) {
  GivenDemo(12 * 3600, {80, 100, 50, 0, 25});
  pictures::ExpectGolden(Frame(), "demo_at_noon");
}

TEST_F(ChartPicturesTest, ASelectedStepAndTheMouse) {
  selection_.channel = 0;
  selection_.step = 1;
  drawing_.MouseMoved(200, 75);
  pictures::ExpectGolden(Frame(), "selected_step_and_mouse");
}

TEST_F(ChartPicturesTest, AHoveredStep) {
  hoverStep_.channel = 1;
  hoverStep_.step = 1;
  drawing_.MouseMoved(100, 50);
  pictures::ExpectGolden(Frame(), "hovered_step");
}

TEST_F(ChartPicturesTest, AnEnlargedLaneOverFourHours) {
  layout_.FocusLane(1);
  document_.viewStart = 6 * 3600;
  document_.viewEnd = 10 * 3600;
  pictures::ExpectGolden(Frame(), "enlarged_lane_over_four_hours");
}

TEST_F(ChartPicturesTest, StepsInNoOrderAndOutOfRange) {
  GivenSteps(0, {{20, 0, 10, false, 1}, {8, 0, 90, true, 2}, {12, 30, 33, false, 3}});
  GivenSteps(1, {{30, 0, 10, false, 4}, {-3, 75, 900, false, 5}, {8, 0, -50, false, 6}});
  GivenSteps(4, {{2147483647, 2147483647, 2e9F, false, 7}, {-2147483647, 0, 1, false, 8}});
  pictures::ExpectGolden(Frame(), "steps_in_no_order_and_out_of_range");
}

}  // namespace
