#pragma once

// A day of light as the sun gives it over a place.

#include <optional>

#include "program/generate/fit.h"
#include "program/generate/moonlight.h"
#include "program/generate/sun.h"

namespace TCBase::Program::Generate {

/// With how much of the twilight before sunrise and after sunset.
enum class Twilight { None, Civil, Nautical };

/// The altitude at which the light begins.
double FirstLightAltitude(Twilight twilight);

/// What a day of sun is made from. Minutes are those of the place's clocks, `utcOffset` before UTC.
struct SunLight {
  Position position;
  Date date;
  int utcOffset = 0;
  Twilight twilight = Twilight::Civil;
  Levels levels = {100, 100, 100, 100,
                   100};       // at noon, if the sun stands at kFullLightAltitude or higher then
  std::optional<int> begin;    // first light then, 0 to 1439, the day as long as it is
  std::optional<Hours> hours;  // all light within these, stretched or squeezed; before `begin`
  std::optional<Moonlight> moonlight;
};

/// From here on a higher noon makes no brighter one. A lower one does: its light is less in proportion to the
/// sine of the altitude, as that on level ground is.
inline constexpr double kFullLightAltitude = 30;
/// The part of full light that there is at sunrise; it comes and goes evenly in the twilight.
inline constexpr double kTwilightPart = 0.05;

/// When there is light, by the place's clocks: from first light on, minutes from 0 to 1440 and how long. The
/// day begins where the sun is lowest in the night before its noon. `length` is 0 in the polar night and 1440
/// where the light never goes.
struct LightSpan {
  int begin = 0;
  int length = 0;
};

/// The part of full light at each minute of the place's clocks, 0 to 1.
MinuteCurve SunParts(const SunDay& sun, Twilight twilight);
LightSpan SpanOfLight(const MinuteCurve& parts, double noon);

/// The whole light of the day, and of its night if there is moonlight: that goes as the day comes, and shines
/// in its channel where that is otherwise darker.
DayCurves SunLightCurves(const SunLight& light);

/// A mode without a name.
Generated MakeSunMode(const SunLight& light, int mostRows = kMaxModeSteps);

}  // namespace TCBase::Program::Generate
