#include "chart/cursor_labels.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "OvkLib/src/ovk_text.h"
#include "chart/figure.h"
#include "chart/scene_queries.h"
#include "common/truncate.h"
#include "program/channel_edit.h"
#include "program/program.h"

namespace UX {

namespace {

using namespace TCBase::Program;

constexpr TextSize kLabelLimits{100.0F, 50.0F};
constexpr std::int32_t kLabelMargin = 3;
constexpr float kLabelRadius = 5.0F;
constexpr float kFarthestLabel = kFarthest / 2.0F;  // leaves room for the label itself
constexpr float kCursorLabelDistance = 4.0F;
constexpr float kCursorLabelOpacity = 0.5F;
constexpr float kValueLabelOpacity = 0.7F;
constexpr float kCrosshairLine = 1.0F;

enum class Side { Left, Right };  // of the point

// A label whose bottom stands on y. Does not put white's opacity back.
void DrawLabel(Canvas& canvas, std::int32_t x, std::int32_t y, std::string_view text, Side side,
               float backgroundOpacity, Brush brush) {
  const TextSize size = canvas.LayOutText(TextFormat::Small, text, kLabelLimits);
  const auto top = static_cast<float>(TruncateToInt(static_cast<float>(y) - size.height));
  const auto left =
      static_cast<float>(side == Side::Left ? TruncateToInt(static_cast<float>(x) - size.width) : x);
  // Nowhere near a screen: the label of a curve whose value is no number, say.
  if (std::max(std::fabs(left), std::fabs(top)) > kFarthestLabel) return;
  const auto extent = [](float length) {
    return static_cast<float>(TruncateToInt(length) + 2 * kLabelMargin);
  };
  canvas.SetOpacity(Brush::White, backgroundOpacity);
  canvas.Fill(
      RoundedRectangle{{left - kLabelMargin, top - kLabelMargin, extent(size.width), extent(size.height)},
                       kLabelRadius},
      Brush::White);
  canvas.SetTransform(Translation(left, top));
  canvas.DrawLayout(brush);
  canvas.SetTransform(kIdentity);
}

}  // namespace

std::int32_t CursorLabels::TimeAt(std::int32_t lane, Point at) {
  return XToTime(scene_.layout.LaneRect(lane), scene_.program, at.x);
}

void CursorLabels::DrawCursorLabels(Canvas& canvas, Point at) {
  const std::int32_t second = TimeAt(0, at);
  if (SelectedStep(scene_.hoverStep) != nullptr || !IsOnDay(second)) return;

  const std::int32_t y = TruncateToInt(at.y);
  DrawLabel(canvas, TruncateToInt(at.x - kCursorLabelDistance), y, TimeText(TimeOfDayAt(second)), Side::Left,
            kCursorLabelOpacity, Brush::DarkGray);
  const std::int32_t lane = scene_.layout.LaneAt(TruncateToInt(at.x), y);
  if (lane < 0 || !IsOnDay(TimeAt(lane, at))) return;
  const std::int32_t percent = TruncateToInt(YToPercent(scene_.layout.LaneRect(lane), at.y));
  DrawLabel(canvas, TruncateToInt(at.x + kCursorLabelDistance), y, ToDecimal(percent) + "%", Side::Right,
            kCursorLabelOpacity, Brush::DarkGray);
}

void CursorLabels::DrawValueLabel(Canvas& canvas, std::int32_t lane, Point at) {
  const std::int32_t second = TimeAt(lane, at);
  if (!IsOnDay(second)) return;
  const Rect area = scene_.layout.LaneRect(lane);
  const float value = ChannelValueAt(ChannelOfLane(scene_.program, lane), second);
  DrawLabel(canvas, TimeToX(area, scene_.program, second), PercentToY(area, value),
            ToDecimal(TruncateToInt(value)) + "%", Side::Right, kValueLabelOpacity, Brush::Gray);
}

void CursorLabels::DrawCrosshair(Canvas& canvas, Point at) {
  if (!IsOnDay(TimeAt(0, at))) return;
  const Rect& lanes = scene_.layout.chartRect;
  const auto height = static_cast<float>(scene_.layout.ChartWindowRect().height);
  const Rectangle across{static_cast<float>(lanes.x), at.y, static_cast<float>(lanes.width), 0.0F};
  canvas.Stroke(across, Brush::DarkGray, kCrosshairLine);
  canvas.Stroke(Rectangle{at.x, 0.0F, 0.0F, height}, Brush::DarkGray, kCrosshairLine);
}

}  // namespace UX
