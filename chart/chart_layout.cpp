#include "chart/chart_layout.h"

#include <algorithm>

#include "common/truncate.h"

namespace UX {

namespace {

using bumper_base::FrameBumper;
using TCBase::Program::kChannelCount;
using TCBase::Program::ModeListView;

constexpr float kFirstLaneHeight = 10.0F;
constexpr float kGlideSeconds = 0.2F;
constexpr float kSettledSeconds = 1.0F;      // longer than any frame takes
constexpr std::int32_t kCollapsedLanes = 7;  // that would fill the area

// What surrounds the chart's window in the main window, and that window's own margin around the lanes.
constexpr std::int32_t kLeftColumn = 120;
constexpr std::int32_t kTopStrip = 30;
constexpr std::int32_t kBelowChart = 166;
constexpr std::int32_t kMargin = 10;
constexpr std::int32_t kStripHeight = 16;

bool IsLane(std::int32_t index) {
  return index >= 0 && index < kChannelCount;
}

template <class Value>
std::array<Value, kChannelCount> ForEachLane(const Value& value) {
  return {value, value, value, value, value};
}

float PixelsPerSecond(const Rect& lane, const ModeListView& view) {
  return static_cast<float>(lane.width) / static_cast<float>(view.viewEnd - view.viewStart);
}

bool IsWithin(std::int32_t value, std::int32_t begin, std::int32_t length) {
  return value >= begin && value < begin + length;
}

}  // namespace

ChartLayout::ChartLayout(const double& now)
    : laneHeights(ForEachLane(FrameBumper(bumper_base::FrameTimer(now)))) {
  for (auto& height : laneHeights) height.from = height.to = height.goal = kFirstLaneHeight;
}

void ChartLayout::Update(std::int32_t clientWidth, std::int32_t clientHeight) {
  clientRect = {0, 0, clientWidth, clientHeight};
  PlaceLanes();
}

void ChartLayout::ShowStrip(bool shown) {
  showsStrip_ = shown;
  PlaceLanes();
}

void ChartLayout::PlaceLanes() {
  const std::int32_t above = kMargin + (showsStrip_ ? kStripHeight + kLaneGap : 0);
  chartRect = {kMargin, above, clientRect.width - kLeftColumn - 2 * kMargin,
               clientRect.height - kBelowChart - above - kMargin};
  collapsedHeight = chartRect.height / kCollapsedLanes;
  Reflow();
}

void ChartLayout::FocusLane(std::int32_t index) {
  if (!IsLane(index) || index == focusedLane) return;
  focusedLane = index;
  Reflow();
}

void ChartLayout::ClearFocus() {
  focusedLane = -1;
  Reflow();
}

bool ChartLayout::IsGliding() const {
  // Every paint of the main window sends the lanes to where they stand already; that is no motion.
  return std::any_of(laneHeights.begin(), laneHeights.end(), [](const auto& height) {
    return height.from != height.to && height.RunTime() < kSettledSeconds;
  });
}

void ChartLayout::Reflow() {
  const std::int32_t area = chartRect.height;
  const auto evenHeight = static_cast<float>(area + kLaneGap) / kChannelCount - kLaneGap;
  const std::int32_t focusedHeight = area - (kChannelCount - 1) * (collapsedHeight + kLaneGap);
  for (std::int32_t i = 0; i < kChannelCount; ++i) {
    const float target = focusedLane == -1  ? evenHeight
                         : i == focusedLane ? static_cast<float>(focusedHeight)
                                            : static_cast<float>(collapsedHeight);
    Retarget(laneHeights[static_cast<std::size_t>(i)], target, kGlideSeconds,
             bumper_base::BumperCurve::EaseOut);
  }
}

Rect ChartLayout::LaneRect(std::int32_t index) {
  auto top = static_cast<float>(chartRect.y);
  for (std::int32_t i = 0; i < index; ++i) top += laneHeights[static_cast<std::size_t>(i)].Value() + kLaneGap;
  const float height = laneHeights[static_cast<std::size_t>(index)].Value();
  return {chartRect.x, TruncateToInt(top), chartRect.width, TruncateToInt(height)};
}

std::int32_t ChartLayout::LaneAt(std::int32_t x, std::int32_t y) const {
  if (!IsWithin(x, chartRect.x, chartRect.width)) return -1;
  auto top = static_cast<float>(chartRect.y);
  for (std::int32_t i = 0; i < kChannelCount; ++i) {
    const float height = laneHeights[static_cast<std::size_t>(i)].to;
    if (IsWithin(y, TruncateToInt(top), TruncateToInt(height))) return i;
    top += height + kLaneGap;
  }
  return -1;
}

Rect ChartLayout::StripRect() const {
  if (!showsStrip_) return {};
  return {chartRect.x, kMargin, chartRect.width, kStripHeight};
}

Rect ChartLayout::LaneStrip() const {
  return {chartRect.x, 0, chartRect.width, ChartWindowRect().height};
}

Rect ChartLayout::ChartWindowRect() const {
  return {kLeftColumn, kTopStrip, clientRect.width - kLeftColumn, clientRect.height - kBelowChart};
}

Rect ChartLayout::DialogAnchorChart() const {
  return {kMargin, kTopStrip, clientRect.width - kLeftColumn - 2 * kMargin, clientRect.height - kBelowChart};
}

Rect ChartLayout::DialogAnchorTop() const {
  return {10, 10, 110, 196};
}

Rect ChartLayout::DialogAnchorBottom() const {
  return {10, clientRect.height - 230, 110, 64};
}

std::int32_t TimeToX(const Rect& lane, const ModeListView& view, std::int64_t second) {
  return TruncateToInt(static_cast<float>(second - view.viewStart) * PixelsPerSecond(lane, view) +
                       static_cast<float>(lane.x));
}

std::int32_t TimeToX(const Rect& lane, const ModeListView& view, const TCBase::Program::Step& step) {
  return TimeToX(lane, view, TCBase::Program::SecondOfDay(step));
}

std::int32_t PercentToY(const Rect& lane, float percent) {
  const auto height = static_cast<float>(lane.height);
  return TruncateToInt(height - height / 100.0F * percent + static_cast<float>(lane.y));
}

std::int32_t XToTime(const Rect& lane, const ModeListView& view, std::int32_t x) {
  return XToTime(lane, view, static_cast<float>(x));
}

std::int32_t XToTime(const Rect& lane, const ModeListView& view, float x) {
  return TruncateToInt((x - static_cast<float>(lane.x)) / PixelsPerSecond(lane, view) +
                       static_cast<float>(view.viewStart));
}

float YToPercent(const Rect& lane, std::int32_t y) {
  return YToPercent(lane, static_cast<float>(y));
}

float YToPercent(const Rect& lane, float y) {
  const auto height = static_cast<float>(lane.height);
  return (static_cast<float>(lane.y) - y + height) / (height / 100.0F);
}

bool IsOnDay(std::int32_t second) {
  return second >= 0 && second < TCBase::Program::kSecondsPerDay;
}

MarkerSize GetMarkerSize(const ChartLayout& layout) {
  const auto height = static_cast<float>(layout.clientRect.height);
  const float diameter = std::clamp(height / 50.0F, 10.0F, 20.0F) + 1.0F;
  return {diameter, diameter * 0.5F, std::clamp(height / 40.0F, 10.0F, 23.0F) + 1.0F};
}

}  // namespace UX
