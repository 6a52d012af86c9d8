#include "chart/light_strip.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/chart/chart_fixture.h"

namespace chart_test {
namespace {

using UX::Color;
using UX::LightMixer;
using Percents = std::array<float, kChannelCount>;

std::array<ChannelInfo, kChannelCount> GivenColors(std::initializer_list<std::uint32_t> colors) {
  std::array<ChannelInfo, kChannelCount> channels;
  std::size_t i = 0;
  for (const std::uint32_t color : colors) channels[i++].color = color;
  while (i < channels.size()) channels[i++].color = 0xFF000000;
  return channels;
}

using Parts = std::array<int, 3>;

Parts PartsOf(Color color) {
  return {color.red, color.green, color.blue};
}

void ExpectColor(Color seen, Color expected) {
  EXPECT_EQ(PartsOf(seen), PartsOf(expected));
}

TEST(LightMix, OfOneChannelIsItsColor) {
  const LightMixer mixer(GivenColors({0xFFFF8040}));
  ExpectColor(mixer.Mix({100}), {255, 128, 64});
  ExpectColor(mixer.Mix({0}), {0, 0, 0});
}

// Half of the light is 188 on a screen (IEC 61966-2-1), not 128.
TEST(LightMix, AddsLightAndNotNumbersOfTheScreen) {
  ExpectColor(LightMixer(GivenColors({0xFFFFFFFF})).Mix({50}), {188, 188, 188});
  const LightMixer redAndGreen(GivenColors({0xFFFF0000, 0xFF00FF00}));
  ExpectColor(redAndGreen.Mix({100, 100}), {255, 255, 0});
  ExpectColor(redAndGreen.Mix({100, 50}), {255, 188, 0});
}

TEST(LightMix, IsBrightestWithAllChannelsFull) {
  const LightMixer mixer(GivenColors({0xFFFFFFFF, 0xFFFFFFFF}));
  ExpectColor(mixer.Mix({100, 100}), {255, 255, 255});
  ExpectColor(mixer.Mix({100, 0}), {188, 188, 188});
}

TEST(LightMix, CutsWhatIsNoPercent) {
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const LightMixer mixer(GivenColors({0xFFFF0000, 0xFF00FF00, 0xFF0000FF}));
  ExpectColor(mixer.Mix({900, -5, kNan}), {255, 0, 0});
  ExpectColor(mixer.Mix({-kInfinity, kInfinity, 0}), {0, 255, 0});
}

TEST(LightMix, OfBlackChannelsIsBlack) {
  ExpectColor(LightMixer(GivenColors({})).Mix({100, 100, 100, 100, 100}), {0, 0, 0});
}

// Which shows where the strip is, and how wide.
TEST(LightStrip, IsNotThereUnlessItIsShown) {
  GivenChart chart(GivenSteps("06:00 100 J, 18:00 0 J"));
  EXPECT_EQ(chart.Frame().Text("fill columns"), "");
}

TEST(LightStrip, HasAColumnForEachPixelOfTheView) {
  GivenChart chart(GivenSteps("06:00 100 J, 18:00 0 J"));
  chart.document.channelInfos = GivenColors({0xFF2040FF});
  chart.layout.ShowStrip(true);
  EXPECT_EQ(chart.Frame().Text("fill columns"),
            "fill columns 10,10 884x16: 221x #000000 442x #2040ff 221x #000000\n");
  chart.ShowHours(0, 12);
  EXPECT_EQ(chart.Frame().Text("fill columns"), "fill columns 10,10 884x16: 442x #000000 442x #2040ff\n");
}

TEST(LightStrip, FollowsTheCurrentMode) {
  GivenChart chart(GivenSteps("06:00 100 J, 18:00 0 J"));
  chart.document.channelInfos = GivenColors({0xFFFF0000});
  chart.document.modes.push_back(program_test::GivenMode({"12:00 100"}));
  chart.document.currentMode = 1;
  chart.layout.ShowStrip(true);
  EXPECT_EQ(chart.Frame().Text("fill columns"), "fill columns 10,10 884x16: 884x #ff0000\n");
}

}  // namespace
}  // namespace chart_test
