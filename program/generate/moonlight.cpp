#include "program/generate/moonlight.h"

#include <algorithm>

#include "program/generate/moon.h"
#include "program/generate/wrapped_steps.h"

namespace TCBase::Program::Generate {

float MoonLevel(const Moonlight& moonlight, const Date& date, int utcOffset) {
  const double midnight = JulianDayOf(date) + 1 - utcOffset / static_cast<double>(kMinutesPerDay);
  return PercentInRange(moonlight.level) * static_cast<float>(MoonIlluminated(midnight));
}

int LengthOf(const Hours& hours) {
  const int length = MinuteOnTheRing(hours.end) - MinuteOnTheRing(hours.begin);
  return length > 0 ? length : length + kMinutesPerDay;
}

Channel MoonlitChannel(float percent, const Hours& night) {
  const int length = LengthOf(night);
  const int ramp = std::min(kMoonRamp, length / 2);
  return WrappedSteps(night.begin, {{0, 0.0F}, {ramp, percent}, {length - ramp, percent}, {length, 0.0F}});
}

Generated MakeMoonMode(const MoonNight& night, const Mode& others, int mostRows) {
  Mode mode = others;
  mode.channels[ChannelInRange(night.moonlight.channel)] =
      MoonlitChannel(MoonLevel(night.moonlight, night.date, night.utcOffset), night.night);
  return RoundedToFit(mode, mostRows);
}

}  // namespace TCBase::Program::Generate
