#include "program/generate/sun.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "program/generate/clock_rule.h"

namespace TCBase::Program::Generate {

namespace {

constexpr double kDegree = std::numbers::pi / 180;
constexpr double kMinutesADay = kMinutesPerDay;

// What is the same for all places at a moment.
struct SunInTheSky {
  double declination;     // degrees
  double equationOfTime;  // minutes that a sundial is before a clock
};

// Names and numbers as in NOAA's spreadsheet.
SunInTheSky SunAt(double julianDay) {
  const double t = (julianDay - 2451545.0) / 36525.0;  // centuries since J2000
  const double meanLongitude = std::fmod(280.46646 + t * (36000.76983 + t * 0.0003032), 360.0) * kDegree;
  const double meanAnomaly = (357.52911 + t * (35999.05029 - 0.0001537 * t)) * kDegree;
  const double eccentricity = 0.016708634 - t * (0.000042037 + 0.0000001267 * t);
  const double equationOfCenter =
      (std::sin(meanAnomaly) * (1.914602 - t * (0.004817 + 0.000014 * t)) +
       std::sin(2 * meanAnomaly) * (0.019993 - 0.000101 * t) + std::sin(3 * meanAnomaly) * 0.000289) *
      kDegree;
  const double node = (125.04 - 1934.136 * t) * kDegree;
  const double longitude = meanLongitude + equationOfCenter - (0.00569 + 0.00478 * std::sin(node)) * kDegree;
  const double obliquity = (23 + (26 + (21.448 - t * (46.815 + t * (0.00059 - t * 0.001813))) / 60) / 60 +
                            0.00256 * std::cos(node)) *
                           kDegree;
  const double y = std::pow(std::tan(obliquity / 2), 2);
  const double equationOfTime = y * std::sin(2 * meanLongitude) - 2 * eccentricity * std::sin(meanAnomaly) +
                                4 * eccentricity * y * std::sin(meanAnomaly) * std::cos(2 * meanLongitude) -
                                0.5 * y * y * std::sin(4 * meanLongitude) -
                                1.25 * eccentricity * eccentricity * std::sin(2 * meanAnomaly);
  return {std::asin(std::sin(obliquity) * std::sin(longitude)) / kDegree, 4 * equationOfTime / kDegree};
}

// Both change so evenly within a day that a straight line between its ends is right to a thousandth of a
// degree.
SunInTheSky Between(const SunInTheSky& begin, const SunInTheSky& end, double part) {
  return {std::lerp(begin.declination, end.declination, part),
          std::lerp(begin.equationOfTime, end.equationOfTime, part)};
}

double Clamped(double degrees, double most) {
  return std::isnan(degrees) ? 0.0 : std::clamp(degrees, -most, most);
}

// Minutes from 0 up to but not 1440.
double OnTheDay(double minute) {
  minute = std::fmod(minute, kMinutesADay);
  return minute < 0 ? minute + kMinutesADay : minute;
}

// The first minute at which `above` becomes true, between two whole ones.
template <class Above>
std::optional<double> FirstCrossing(double altitude, const Above& above) {
  for (int minute = 0; minute < kMinutesPerDay; ++minute) {
    const double before = above(minute) - altitude;
    const double after = above(minute + 1) - altitude;
    if (before < 0 && after >= 0) return minute + before / (before - after);
  }
  return std::nullopt;
}

}  // namespace

SunDay::SunDay(const Position& position, const Date& date, int utcOffset) {
  utcOffset = std::clamp(utcOffset, -kMostUtcOffset, kMostUtcOffset);
  const double latitude = Clamped(position.latitude, 90) * kDegree;
  const double longitude = Clamped(position.longitude, 180);
  const double midnight = JulianDayOf(date) - utcOffset / kMinutesADay;
  const SunInTheSky begin = SunAt(midnight);
  const SunInTheSky end = SunAt(midnight + 1);
  // A clock shows this minute when a sundial without its equation shows 00:00.
  const double dialMidnight = utcOffset - 4 * longitude;
  for (int minute = 0; minute <= kMinutesPerDay; ++minute) {
    const SunInTheSky sun = Between(begin, end, minute / kMinutesADay);
    const double hourAngle = ((minute - dialMidnight + sun.equationOfTime) / 4 - 180) * kDegree;
    const double declination = sun.declination * kDegree;
    altitudes_[static_cast<std::size_t>(minute)] =
        std::asin(std::clamp(std::sin(latitude) * std::sin(declination) +
                                 std::cos(latitude) * std::cos(declination) * std::cos(hourAngle),
                             -1.0, 1.0)) /
        kDegree;
  }
  const double dialNoon = OnTheDay(dialMidnight + kMinutesADay / 2);
  noon_ = OnTheDay(dialNoon - Between(begin, end, dialNoon / kMinutesADay).equationOfTime);
}

std::optional<double> SunDay::Rise(double altitude) const {
  return FirstCrossing(altitude, [this](int minute) { return AltitudeAt(minute); });
}

std::optional<double> SunDay::Set(double altitude) const {
  return FirstCrossing(-altitude, [this](int minute) { return -AltitudeAt(minute); });
}

double SunDay::Highest() const {
  return *std::ranges::max_element(altitudes_);
}

}  // namespace TCBase::Program::Generate
