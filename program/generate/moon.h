#pragma once

// The moon's phases, after Jean Meeus, "Astronomical Algorithms" (second edition), chapters 48 and 49. Times
// are Julian days in UTC; what is far outside of the calendar's reach gets an answer, too, which means
// nothing.

namespace TCBase::Program::Generate {

/// The part of the moon's disc that shines, 0 to 1; right to a hundredth. 0 for not a number.
double MoonIlluminated(double julianDay);

/// The first new moon, or full moon, at or after a moment; right to some minutes.
double NextNewMoon(double julianDay);
double NextFullMoon(double julianDay);

}  // namespace TCBase::Program::Generate
