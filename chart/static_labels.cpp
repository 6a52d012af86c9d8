#include "chart/static_labels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "OvkLib/src/ovk_text.h"
#include "chart/scene_queries.h"
#include "common/message.h"
#include "common/truncate.h"
#include "program/program.h"

namespace UX {

namespace {

using namespace TCBase::Program;

constexpr float kSmallestName = 32.0F;
// The lowest percentage that is shown; a label for 10 % is made all the same.
constexpr int kLowestShownPercent = 20;

struct LabelSize {
  std::int32_t width;
  std::int32_t height;

  bool IsEmpty() const { return width <= 0 || height <= 0; }
  TextSize Limits() const { return {static_cast<float>(width), static_cast<float>(height)}; }
};

LabelSize HoursSize(const ChartLayout& layout) {
  return {layout.chartRect.width, layout.collapsedHeight / 10};
}
LabelSize PercentSize(const ChartLayout& layout) {
  return {layout.chartRect.width / 24, layout.collapsedHeight / 10};
}
LabelSize NameLimits(const ChartLayout& layout) {
  return {layout.chartRect.width, layout.collapsedHeight};
}

void MakeHours(Canvas& canvas, const ChartScene& scene) {
  const LabelSize size = HoursSize(scene.layout);
  if (size.IsEmpty()) return;
  const ModeListView& view = scene.program;
  const auto width = static_cast<float>(size.width);
  const auto viewSeconds = static_cast<float>(view.viewEnd - view.viewStart);

  canvas.BeginLabel(Label::Hours, size.width, size.height);
  for (std::int32_t hour = 0; hour < kHoursPerDay; ++hour) {
    canvas.LayOutText(TextFormat::Small, TimeText({hour, 0}), size.Limits());
    const auto second = static_cast<float>(hour * kSecondsPerHour - view.viewStart);
    canvas.SetTransform(Translation(WithinReach(TruncateToInt(second * width / viewSeconds)), 0.0F));
    canvas.DrawLayout(Brush::Gray);
  }
  canvas.EndLabel();
}

void MakePercents(Canvas& canvas, const ChartLayout& layout) {
  const LabelSize size = PercentSize(layout);
  if (size.IsEmpty()) return;
  const float x = WithinReach(TruncateToInt(static_cast<float>(layout.chartRect.width) / 1440.0F));
  for (int percent = 10; percent <= 100; percent += 10) {
    canvas.BeginLabel(PercentLabel(percent), size.width, size.height);
    canvas.LayOutText(TextFormat::Small, ToDecimal(percent) + "%", size.Limits());
    canvas.SetTransform(Translation(x, 0.0F));
    canvas.DrawLayout(Brush::Gray);
    canvas.EndLabel();
  }
}

void DrawLabelAt(Canvas& canvas, Label label, float x, float y) {
  canvas.SetTransform(Translation(WithinReach(TruncateToInt(x)), WithinReach(TruncateToInt(y))));
  canvas.DrawLabel(label);
}

}  // namespace

void MakeAxisLabels(Canvas& canvas, const ChartScene& scene) {
  MakeHours(canvas, scene);
  MakePercents(canvas, scene.layout);
}

std::string ShownChannelName(const TCBase::Program::ModeListView& program, std::int32_t channel) {
  const std::string& name = program.channelInfos.at(static_cast<std::size_t>(channel)).name;
  return name.empty() ? Message("Channel {1}", channel + 1).utf8() : name;
}

void MakeChannelNames(Canvas& canvas, const ChartScene& scene) {
  const LabelSize limits = NameLimits(scene.layout);
  if (limits.IsEmpty()) return;
  for (std::int32_t channel = 0; channel < kChannelCount; ++channel) {
    const std::string text = ShownChannelName(scene.program, channel);
    const TextSize size = canvas.LayOutText(TextFormat::Large, text, limits.Limits());
    // Rounded up, or the edge of the last letter would be cut off.
    canvas.BeginLabel(ChannelNameLabel(channel),
                      TruncateToInt(std::ceil(std::max(size.width, kSmallestName))),
                      TruncateToInt(std::ceil(std::max(size.height, kSmallestName))));
    canvas.DrawLayout(Brush::LightSkyBlue);
    canvas.EndLabel();
  }
}

void DrawLaneLabels(Canvas& canvas, std::int32_t lane, const Rect& area, const ChartLayout& layout) {
  const auto x = static_cast<float>(area.x);
  const auto y = static_cast<float>(area.y);
  const auto width = static_cast<float>(area.width);
  const auto height = static_cast<float>(area.height);

  // A label that has no size now may be left from a larger window.
  const float axisX = x + width / 1440.0F;
  if (!PercentSize(layout).IsEmpty()) {
    for (int percent = kLowestShownPercent; percent <= 100; percent += 10)
      DrawLabelAt(canvas, PercentLabel(percent), axisX,
                  height - static_cast<float>(percent) * height / 100.0F + y);
  }
  const LabelSize hours = HoursSize(layout);
  if (!hours.IsEmpty()) {
    const std::int32_t bottom = TruncateToInt(height - height / 100.0F + y);
    DrawLabelAt(canvas, Label::Hours, axisX, static_cast<float>(bottom - hours.height));
  }
  if (!NameLimits(layout).IsEmpty())
    DrawLabelAt(canvas, ChannelNameLabel(lane), width / 1440.0F * 70.0F + x,
                height - height / 100.0F * 80.0F + y);
  canvas.SetTransform(kIdentity);
}

}  // namespace UX
