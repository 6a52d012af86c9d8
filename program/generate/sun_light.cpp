#include "program/generate/sun_light.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "program/generate/wrapped_steps.h"

namespace TCBase::Program::Generate {

namespace {

double SineOf(double degrees) {
  return std::sin(degrees * std::numbers::pi / 180);
}

// The part of full light under a sun of that altitude.
double PartAt(double altitude, double firstLight, double fullSine) {
  if (altitude <= firstLight) return 0;
  if (altitude < kSunriseAltitude)
    return kTwilightPart * (altitude - firstLight) / (kSunriseAltitude - firstLight);
  const double rest = (SineOf(altitude) - SineOf(kSunriseAltitude)) / (fullSine - SineOf(kSunriseAltitude));
  // Without twilight the light begins with the sun, from nothing.
  const double atSunrise = firstLight < kSunriseAltitude ? kTwilightPart : 0;
  return atSunrise + (1 - atSunrise) * std::clamp(rest, 0.0, 1.0);
}

// Between two minutes of a curve on the ring.
float InterpolatedAt(const MinuteCurve& curve, double minute) {
  const double whole = std::floor(minute);
  const int before = MinuteOnTheRing(static_cast<int>(whole));
  const int after = MinuteOnTheRing(before + 1);
  return std::lerp(curve[static_cast<std::size_t>(before)], curve[static_cast<std::size_t>(after)],
                   static_cast<float>(minute - whole));
}

// The light of `span` told anew from `begin` on, so that it takes `length` minutes.
MinuteCurve Moved(const MinuteCurve& parts, const LightSpan& span, int begin, int length) {
  MinuteCurve moved{};
  for (int i = 0; i <= std::min(length, kMinutesPerDay - 1); ++i) {
    const double from = span.begin + static_cast<double>(i) * span.length / length;
    moved[static_cast<std::size_t>(MinuteOnTheRing(MinuteOnTheRing(begin) + i))] =
        InterpolatedAt(parts, from);
  }
  return moved;
}

MinuteCurve InTheViewersHours(const MinuteCurve& parts, const LightSpan& span, const SunLight& light) {
  if (span.length == 0) return parts;
  if (light.hours) return Moved(parts, span, light.hours->begin, LengthOf(*light.hours));
  if (light.begin) return Moved(parts, span, *light.begin, span.length);
  return parts;
}

// Moonlight goes within the first tenth of the day's light.
void AddMoonlight(MinuteCurve& channel, const MinuteCurve& parts, float percent) {
  constexpr float kGoneAt = 0.1F;
  for (std::size_t minute = 0; minute < channel.size(); ++minute)
    channel[minute] = std::max(channel[minute], percent * std::max(0.0F, 1 - parts[minute] / kGoneAt));
}

}  // namespace

double FirstLightAltitude(Twilight twilight) {
  switch (twilight) {
    case Twilight::None:
      return kSunriseAltitude;
    case Twilight::Civil:
      return kCivilAltitude;
    default:
      return kNauticalAltitude;
  }
}

MinuteCurve SunParts(const SunDay& sun, Twilight twilight) {
  const double fullSine = SineOf(std::max(sun.Highest(), kFullLightAltitude));
  const double firstLight = FirstLightAltitude(twilight);
  MinuteCurve parts;
  for (int minute = 0; minute < kMinutesPerDay; ++minute)
    parts[static_cast<std::size_t>(minute)] =
        static_cast<float>(PartAt(sun.AltitudeAt(minute), firstLight, fullSine));
  return parts;
}

LightSpan SpanOfLight(const MinuteCurve& parts, double noon) {
  const auto isLight = [&](int minute) {
    return parts[static_cast<std::size_t>(MinuteOnTheRing(minute))] > 0;
  };
  const int middle = static_cast<int>(noon);
  int begin = middle;
  while (begin > middle - kMinutesPerDay / 2 && isLight(begin)) --begin;
  int end = middle;
  while (end < begin + kMinutesPerDay && isLight(end)) ++end;
  return begin == middle ? LightSpan{} : LightSpan{MinuteOnTheRing(begin), end - begin};
}

DayCurves SunLightCurves(const SunLight& light) {
  const SunDay sun(light.position, light.date, light.utcOffset);
  const MinuteCurve natural = SunParts(sun, light.twilight);
  const MinuteCurve parts = InTheViewersHours(natural, SpanOfLight(natural, sun.Noon()), light);
  DayCurves curves;
  for (std::size_t c = 0; c < curves.size(); ++c) {
    const float level = PercentInRange(light.levels[c]);
    std::ranges::transform(parts, curves[c].begin(), [level](float part) { return part * level; });
  }
  if (light.moonlight)
    AddMoonlight(curves[ChannelInRange(light.moonlight->channel)], parts,
                 MoonLevel(*light.moonlight, light.date, light.utcOffset));
  return curves;
}

Generated MakeSunMode(const SunLight& light, int mostRows) {
  return FitCurves(SunLightCurves(light), mostRows);
}

}  // namespace TCBase::Program::Generate
