#pragma once

// Moonlight: one channel shines through the night as bright as the moon is.

#include "program/generate/calendar.h"
#include "program/generate/fit.h"

namespace TCBase::Program::Generate {

/// Which channel (0 to 4) plays the moon, and its percent at a full moon.
struct Moonlight {
  int channel = kChannelCount - 1;
  float level = 20.0F;
};

/// The percent in the night that follows the day: the moon's illuminated part at its midnight, of the level.
/// The clocks are `utcOffset` minutes before UTC.
float MoonLevel(const Moonlight& moonlight, const Date& date, int utcOffset);

/// A stretch of the day in minutes, 0 to 1439; it may go over midnight. If both are the same it is a whole
/// day.
struct Hours {
  int begin = 0;
  int end = 0;
};

/// How long a stretch is, in minutes, 1 to 1440. Minutes off the day count as those of the clock.
int LengthOf(const Hours& hours);

/// A night with its moon.
struct MoonNight {
  Moonlight moonlight;
  Date date;
  int utcOffset = 0;
  Hours night = {21 * 60, 6 * 60};
};

/// Minutes in which moonlight comes and goes, within the night. A night too short for both has half of it for
/// each.
inline constexpr int kMoonRamp = 30;

/// The channel's steps for a night of that percent, with fractions; the channel is dark by day.
Channel MoonlitChannel(float percent, const Hours& night);

/// `others` with its moonlight channel replaced by the night's; a channel that is none is the nearest. The
/// name stays.
Generated MakeMoonMode(const MoonNight& night, const Mode& others, int mostRows = kMaxModeSteps);

}  // namespace TCBase::Program::Generate
