#include "chart/demo_cursor.h"

#include <algorithm>
#include <cstddef>

#include "common/truncate.h"

namespace UX {

namespace {

using bumper_base::BumperCurve;
using TCBase::Program::kChannelCount;
using TCBase::Program::ModeListView;
using TCBase::Program::ModeStep;

// Smooths the jumps of the demo's time.
constexpr float kApproachSeconds = 0.1F;

float Middle(std::int32_t pixel) {
  return std::clamp(static_cast<float>(pixel), -kFarthestMiddle, kFarthestMiddle);
}

float CursorGoal(const ChartLayout& layout, const ModeListView& view, std::int32_t position) {
  const auto second = static_cast<float>(CursorSecond(position) - view.viewStart);
  const auto width = static_cast<float>(layout.chartRect.width);
  const auto seconds = static_cast<float>(view.viewEnd - view.viewStart);
  const auto left = static_cast<float>(layout.chartRect.x);
  return Middle(TruncateToInt(second * width / seconds + left));
}

}  // namespace

std::int32_t CursorSecond(std::int32_t position) {
  return TCBase::Program::WholeMinute(position % TCBase::Program::kSecondsPerDay);
}

void DemoCursor::DrawDemoCursor(Canvas& canvas) {
  const std::int32_t position = scene_.demo.position;
  if (position < 0) return;
  Retarget(demoCursorX_, CursorGoal(scene_.layout, scene_.program, position), kApproachSeconds,
           BumperCurve::Linear);
  const float x = demoCursorX_.Value();
  DrawBand(canvas, x);
  const ModeStep step = scene_.demo.Step();
  for (int lane = 0; lane < kChannelCount; ++lane)
    DrawDot(canvas, x, lane, step.values[static_cast<std::size_t>(lane)]);
}

void DemoCursor::DrawBand(Canvas& canvas, float x) const {
  const auto height = static_cast<float>(scene_.layout.LaneStrip().height);
  canvas.Stroke(Rectangle{x - 4.0F, 0.0F, 8.0F, height}, Brush::Orange, 5.0F);
  canvas.Stroke(Rectangle{x - 1.0F, 0.0F, 2.0F, height}, Brush::Black, 3.0F);
}

void DemoCursor::DrawDot(Canvas& canvas, float x, int lane, std::int32_t intensity) {
  // A document that holds nonsense sends nonsense.
  const auto percent = static_cast<float>(std::clamp(intensity, 0, 100));
  bumper_base::CounterBumper& dotY = demoDotY_[static_cast<std::size_t>(lane)];
  // A focused lane is still on its way to its height, so the dot's place in it is asked anew by each frame.
  const std::int32_t goal = PercentToY(scene_.layout.LaneRect(lane), percent);
  Retarget(dotY, Middle(goal), kApproachSeconds, BumperCurve::Linear);

  const float radius = GetMarkerSize(scene_.layout).plainDiameter;
  const float part = percent / 100.0F;
  const Point center{x, dotY.Value()};
  const Circle dot{center, part * radius + radius};
  const Circle halo{center, 1.4F * radius + part * radius};
  canvas.Fill(dot, Brush::Gray);
  canvas.SetOpacity(ChannelBrush(lane), part);
  canvas.Fill(halo, ChannelBrush(lane));
  canvas.Stroke(dot, Brush::Black, 3.0F);
}

}  // namespace UX
