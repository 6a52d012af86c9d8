#pragma once

// Where the sun stands over a place in the course of a day, by the equations that NOAA's Global Monitoring
// Laboratory publishes for its solar calculator (after Jean Meeus, "Astronomical Algorithms"). Good to a
// hundredth of a degree; that is some seconds of time, and more only where the sun goes along the horizon.

#include <array>
#include <optional>

#include "program/generate/calendar.h"
#include "program/generate/place.h"
#include "program/time_of_day.h"

namespace TCBase::Program::Generate {

/// Altitudes of the sun's centre, in degrees: at sunrise and sunset, when its upper edge, lifted by the usual
/// 34' of refraction, touches the horizon; and where the twilights end.
inline constexpr double kSunriseAltitude = -0.833;
inline constexpr double kCivilAltitude = -6;
inline constexpr double kNauticalAltitude = -12;

/// The sun over a place on one day, of which 00:00 is `utcOffset` minutes before that of UTC. What is out of
/// range counts as its nearest, and not a number as 0.
class SunDay {
 public:
  SunDay(const Position& position, const Date& date, int utcOffset);

  /// Of the sun's centre, without refraction, in degrees; minutes from 0 to 1440.
  double AltitudeAt(int minute) const { return altitudes_[static_cast<std::size_t>(minute)]; }

  /// When the sun stands highest, in minutes from 00:00 on, 0 up to but not 1440.
  double Noon() const { return noon_; }

  /// When the sun's centre first rises above, or first falls below, this altitude, in minutes from 0 to 1440.
  /// Nothing if it does not on that day.
  std::optional<double> Rise(double altitude) const;
  std::optional<double> Set(double altitude) const;

  double Highest() const;

 private:
  std::array<double, kMinutesPerDay + 1> altitudes_;
  double noon_;
};

}  // namespace TCBase::Program::Generate
