#pragma once

// A strip above the lanes that shows the light of all channels together, from the left to the right of the
// day as the lanes do. User interface thread.

#include <array>
#include <cstdint>
#include <vector>

#include "chart/canvas.h"
#include "chart/renderer_base.h"

namespace UX {

/// Mixes the light of the channels by their colours, as light adds up, for people to see on a screen.
class LightMixer {
 public:
  explicit LightMixer(
      const std::array<TCBase::Program::ChannelInfo, TCBase::Program::kChannelCount>& channels);

  /// Of so many percent of each channel. Those beyond 0 to 100 are cut to that, and what is not a number is
  /// dark. All channels at 100 % are as bright as a screen can be, and none is black.
  Color Mix(const std::array<float, TCBase::Program::kChannelCount>& percents) const;

 private:
  struct Light {
    float red = 0.0F;
    float green = 0.0F;
    float blue = 0.0F;
  };

  std::array<Light, TCBase::Program::kChannelCount>
      lights_;  // at 100 %: in proportion to the light, not to sRGB
};

class LightStrip {
 public:
  /// What the scene refers to outlives the strip.
  explicit LightStrip(const ChartScene& scene) : scene_(scene) {}

  /// Where ChartLayout::StripRect is; nothing where that has no size. Begins and ends with the identity for
  /// the canvas's transform.
  void Draw(Canvas& canvas);

 private:
  /// The colour of each of so many columns.
  void Mix(std::int32_t columns);

  const ChartScene scene_;
  std::vector<Color> colors_;  // kept for its memory
};

}  // namespace UX
