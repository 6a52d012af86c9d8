#include "chart/light_strip.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "chart/scene_queries.h"
#include "program/curve.h"

namespace UX {

namespace {

using namespace TCBase::Program;

constexpr float kBrightest = 255.0F;
constexpr float kStripLine = 0.5F;
// Nothing of a document makes a strip wider.
constexpr std::int32_t kMostColumns = 16384;

// IEC 61966-2-1: what a screen's number from 0 to 1 is as light, and back.
float LightOf(float screen) {
  return screen <= 0.04045F ? screen / 12.92F : std::pow((screen + 0.055F) / 1.055F, 2.4F);
}
float ScreenOf(float light) {
  return light <= 0.0031308F ? light * 12.92F : 1.055F * std::pow(light, 1.0F / 2.4F) - 0.055F;
}

float PartOf(std::uint32_t color, int shift) {
  return LightOf(static_cast<float>(color >> shift & 0xFFU) / kBrightest);
}

std::uint8_t Byte(float light) {
  return static_cast<std::uint8_t>(std::lround(ScreenOf(std::clamp(light, 0.0F, 1.0F)) * kBrightest));
}

float Share(float percent) {
  constexpr auto kMost = static_cast<float>(kMostPercent);
  return percent > 0.0F ? std::min(percent, kMost) / kMost : 0.0F;  // also for not a number
}

// The second in the middle of a column, on the day.
std::int64_t SecondOf(const ModeListView& view, std::int32_t column, std::int32_t columns) {
  const auto span = static_cast<double>(std::int64_t{view.viewEnd} - view.viewStart);
  const double second = view.viewStart + span * (column + 0.5) / columns;
  return std::clamp(static_cast<std::int64_t>(second), std::int64_t{0}, std::int64_t{kSecondsPerDay} - 1);
}

}  // namespace

LightMixer::LightMixer(const std::array<ChannelInfo, kChannelCount>& channels) {
  Light all;
  for (std::size_t i = 0; i < channels.size(); ++i) {
    const std::uint32_t color = channels[i].color;
    lights_[i] = {PartOf(color, 16), PartOf(color, 8), PartOf(color, 0)};
    all = {all.red + lights_[i].red, all.green + lights_[i].green, all.blue + lights_[i].blue};
  }
  const float most = std::max({all.red, all.green, all.blue});
  if (most <= 0.0F) return;  // five black channels
  for (Light& light : lights_) light = {light.red / most, light.green / most, light.blue / most};
}

Color LightMixer::Mix(const std::array<float, kChannelCount>& percents) const {
  Light sum;
  for (std::size_t i = 0; i < percents.size(); ++i) {
    const float share = Share(percents[i]);
    sum.red += share * lights_[i].red;
    sum.green += share * lights_[i].green;
    sum.blue += share * lights_[i].blue;
  }
  return {Byte(sum.red), Byte(sum.green), Byte(sum.blue)};
}

void LightStrip::Mix(std::int32_t columns) {
  const LightMixer mixer(scene_.program.channelInfos);
  const auto cursor = [this](std::int32_t lane) { return CurveCursor(ChannelOfLane(scene_.program, lane)); };
  std::array<CurveCursor, kChannelCount> curves = {cursor(0), cursor(1), cursor(2), cursor(3), cursor(4)};
  colors_.clear();
  for (std::int32_t column = 0; column < columns; ++column) {
    const std::int64_t second = SecondOf(scene_.program, column, columns);
    std::array<float, kChannelCount> percents{};
    std::ranges::transform(curves, percents.begin(), [&](CurveCursor& curve) { return curve.At(second); });
    colors_.push_back(mixer.Mix(percents));
  }
}

void LightStrip::Draw(Canvas& canvas) {
  const Rect area = scene_.layout.StripRect();
  if (area.width <= 0 || area.height <= 0) return;
  Mix(std::min(area.width, kMostColumns));
  const Rectangle box{static_cast<float>(area.x), static_cast<float>(area.y), static_cast<float>(area.width),
                      static_cast<float>(area.height)};
  canvas.FillColumns(box, colors_);
  canvas.Stroke(box, Brush::Gray, kStripLine);
}

}  // namespace UX
