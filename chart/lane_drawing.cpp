#include "chart/lane_drawing.h"

#include <optional>

#include "chart/curve_line.h"
#include "chart/scene_queries.h"
#include "chart/static_labels.h"
#include "chart/step_marker.h"
#include "common/truncate.h"
#include "program/channel_edit.h"

namespace UX {

namespace {

using namespace TCBase::Program;

constexpr float kGridLine = 0.5F;
constexpr float kFrameLine = 3.0F;
constexpr float kFrameDistance = 4.0F;
constexpr float kCurveLine = 4.0F;
constexpr float kComparedLine = 1.5F;
constexpr float kAreaOpacity = 0.5F;
constexpr std::int32_t kAreaDepth = 3;  // how far the area goes under the lane
constexpr float kMarkerLine = 3.0F;
constexpr float kRingLine = 1.0F;
constexpr float kRingDistance = 3.0F;

struct Marker {
  Point center;
  bool isSquare;
  bool isSelected;
  bool isHover;

  friend bool operator==(const Marker&, const Marker&) = default;
};

Shape MarkerShape(const Marker& marker, float radius) {
  const auto [x, y] = marker.center;
  if (marker.isSquare) return Rectangle{x - radius, y - radius, 2.0F * radius, 2.0F * radius};
  return Circle{marker.center, radius};
}

// Whether any of a marker of this radius, ring and lines included, is within the chart's window.
bool IsInSight(Point center, float radius, const Rect& chartWindow) {
  const float reach = radius + kRingDistance + kRingLine;
  return center.x >= -reach && center.x <= static_cast<float>(chartWindow.width) + reach &&
         center.y >= -reach && center.y <= static_cast<float>(chartWindow.height) + reach;
}

void DrawMarker(Canvas& canvas, const Marker& marker, const ChartLayout& layout) {
  const MarkerSize sizes = GetMarkerSize(layout);
  const float radius = marker.isSelected ? sizes.selectedDiameter * 0.5F : sizes.plainRadius;
  const Brush inside = marker.isSelected ? Brush::Salmon : Brush::White;
  // A label may have left white less. Out of sight, too: it is what the balloons are drawn with.
  canvas.SetOpacity(inside, 1.0F);
  if (!IsInSight(marker.center, radius, layout.ChartWindowRect())) return;

  const Shape shape = MarkerShape(marker, radius);
  canvas.Fill(shape, inside);
  canvas.Stroke(shape, Brush::Black, kMarkerLine);
  if (marker.isSelected || marker.isHover)
    canvas.Stroke(MarkerShape(marker, radius + kRingDistance), Brush::Black, kRingLine);
}

}  // namespace

void BuildGrid(Figure& grid, std::int32_t width, std::int32_t height, const ModeListView& view) {
  const auto right = static_cast<float>(width);
  const auto bottom = static_cast<float>(height);
  const auto viewSeconds = static_cast<float>(view.viewEnd - view.viewStart);
  grid.Clear();
  for (int i = 0; i < 10; ++i) {
    const float y = static_cast<float>(i) * (bottom / 10.0F);
    grid.AddLine({0.0F, y}, {right, y});
  }
  for (std::int32_t second = 0; second < kSecondsPerDay; second += kSecondsPerHour) {
    const float x =
        WithinReach(TruncateToInt(static_cast<float>(second - view.viewStart) * right / viewSeconds));
    grid.AddLine({x, 0.0F}, {x, bottom});
  }
  grid.Begin({0.0F, 0.0F});
  grid.LineTo({right, 0.0F});
  grid.LineTo({right, bottom});
  grid.LineTo({0.0F, bottom});
  grid.Close();
}

void LaneDrawing::DrawBackground(Canvas& canvas, std::int32_t lane) {
  const Rect area = scene_.layout.LaneRect(lane);
  const auto x = static_cast<float>(area.x);
  const auto y = static_cast<float>(area.y);
  const auto width = static_cast<float>(area.width);
  const auto height = static_cast<float>(area.height);

  // Built for each frame, since lanes glide.
  BuildGrid(grid_, area.width, area.height, scene_.program);
  canvas.SetTransform(Translation(x, y));
  canvas.StrokeFigure(grid_, Brush::Gray, kGridLine);
  canvas.SetTransform(kIdentity);

  if (scene_.selection.channel == lane) {
    const Rectangle frame{x - kFrameDistance, y - kFrameDistance, width + 2.0F * kFrameDistance,
                          height + 2.0F * kFrameDistance};
    canvas.Stroke(frame, Brush::CornflowerBlue, kFrameLine);
  }
  DrawLaneLabels(canvas, lane, area, scene_.layout);
}

void LaneDrawing::DrawComparedCurve(Canvas& canvas, std::int32_t lane) {
  const Mode* const mode = ModeBehind(scene_.overlay.comparison, scene_.program);
  if (mode == nullptr) return;
  const Channel& channel = mode->channels[static_cast<std::size_t>(lane)];
  if (channel.size() < 2) return;
  BuildCurveLine(line_, channel, scene_.layout.LaneRect(lane), scene_.program);
  canvas.StrokeFigure(line_, Brush::Black, kComparedLine);
}

void LaneDrawing::DrawCurve(Canvas& canvas, std::int32_t lane) {
  const Channel& channel = ChannelOfLane(scene_.program, lane);
  if (channel.size() < 2) return;
  const Rect area = scene_.layout.LaneRect(lane);
  BuildCurveLine(line_, channel, area, scene_.program);

  const float bottom = WithinReach(area.y + kAreaDepth + area.height);
  area_.Clear();
  area_.Begin({static_cast<float>(area.x), bottom});
  for (const Point point : line_.Points()) area_.LineTo(point);
  area_.LineTo({static_cast<float>(area.x + area.width), bottom});
  area_.Close();

  canvas.SetOpacity(ChannelBrush(lane), kAreaOpacity);  // the demo's dots leave another
  canvas.FillFigure(area_, ChannelBrush(lane));
  canvas.StrokeFigure(line_, Brush::Salmon, kCurveLine);
}

void LaneDrawing::DrawSteps(Canvas& canvas, std::int32_t lane) {
  const Rect area = scene_.layout.LaneRect(lane);
  const Channel& channel = ChannelOfLane(scene_.program, lane);
  const Step* const selected = SelectedStep(scene_.selection);
  const Step* const hovered = SelectedStep(scene_.hoverStep);
  const bool areSeveral = IsGroupSelected(scene_.selection, scene_.group);

  std::optional<Marker> last;
  bool lastIsASecond = false;  // on the one before it
  for (const Step& step : channel) {
    const MarkerCenter center = GetMarkerCenter(area, scene_.program, step);
    const Marker marker{{static_cast<float>(center.x), static_cast<float>(center.y)},
                        step.jump,
                        &step == selected || (areSeveral && scene_.group.Holds(step.id)),
                        &step == hovered};
    const bool isASecond = last == marker;
    if (last && !(isASecond && lastIsASecond)) DrawMarker(canvas, *last, scene_.layout);
    last = marker;
    lastIsASecond = isASecond;
  }
  if (last) DrawMarker(canvas, *last, scene_.layout);
}

}  // namespace UX
