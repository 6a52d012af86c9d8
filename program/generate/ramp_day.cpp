#include "program/generate/ramp_day.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "program/generate/wrapped_steps.h"

namespace TCBase::Program::Generate {

namespace {

using CurvePoints = std::vector<CurvePoint>;

// Minutes that a channel comes later than the first one.
int DelayOf(const RampDay& day, int channel) {
  const int stagger = std::clamp(day.stagger, -kMinutesPerDay, kMinutesPerDay);
  return std::abs(stagger) * (stagger < 0 ? kChannelCount - 1 - channel : channel);
}

// The break, in minutes from sunrise on, within full light from `begin` to `end`.
void AddBreak(CurvePoints& points, const RampDay& day, int begin, int end, float level) {
  const Hours& hours = day.middayBreak->hours;
  const int first = MinuteOnTheRing(MinuteOnTheRing(hours.begin) - MinuteOnTheRing(day.day.begin));
  begin = std::max(begin, first);
  end = std::min(end, first + LengthOf(hours));
  if (end - begin < 2) return;
  const int ramp = std::clamp(day.ramp, 1, (end - begin) / 2);
  const float low = level * PercentInRange(day.middayBreak->percent) / kMostPercent;
  points.insert(points.end(), {{begin, level}, {begin + ramp, low}, {end - ramp, low}, {end, level}});
}

// In minutes from sunrise on.
CurvePoints DayOfChannel(const RampDay& day, int channel) {
  const int begin = DelayOf(day, channel);
  const int end = LengthOf(day.day) - begin;
  if (end - begin < 2) return {{0, 0.0F}, {kMinutesPerDay / 2, 0.0F}};
  const int ramp = std::clamp(day.ramp, 1, (end - begin) / 2);
  const float level = PercentInRange(day.levels[static_cast<std::size_t>(channel)]);
  CurvePoints points = {{begin, 0.0F}, {begin + ramp, level}};
  if (day.middayBreak) AddBreak(points, day, begin + ramp, end - ramp, level);
  points.insert(points.end(), {{end - ramp, level}, {end, 0.0F}});
  return points;
}

void AddNight(CurvePoints& points, const RampDay& day) {
  const int sunset = LengthOf(day.day);
  const int ramp = std::min(kMoonRamp, (kMinutesPerDay - sunset) / 2);
  if (ramp == 0) return;
  const float level = MoonLevel(*day.moonlight, day.date, day.utcOffset);
  points.insert(
      points.end(),
      {{sunset, 0.0F}, {sunset + ramp, level}, {kMinutesPerDay - ramp, level}, {kMinutesPerDay, 0.0F}});
}

}  // namespace

Generated MakeRampDay(const RampDay& day, int mostRows) {
  Mode mode;
  for (int channel = 0; channel < kChannelCount; ++channel) {
    CurvePoints points = DayOfChannel(day, channel);
    const auto index = static_cast<std::size_t>(channel);
    if (day.moonlight && ChannelInRange(day.moonlight->channel) == index) AddNight(points, day);
    mode.channels[index] = WrappedSteps(day.day.begin, points);
  }
  return RoundedToFit(mode, mostRows);
}

}  // namespace TCBase::Program::Generate
