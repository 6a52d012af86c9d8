#include "program/generate/moon.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace TCBase::Program::Generate {

namespace {

constexpr double kDegreesToRadians = std::numbers::pi / 180;
// Dynamical time is before UTC by so much in the years around 2025, in days; a minute more or less in others.
constexpr double kDynamicalTime = 70.0 / 86400;
// From one new moon to the next, on average, and the first of the year 2000.
constexpr double kSynodicMonth = 29.530588861;
constexpr double kFirstNewMoon = 2451550.09766;

// Which argument a term has: multiples of the sun's and the moon's anomaly and the moon's argument of
// latitude.
struct PhaseTerm {
  double newMoon;  // days
  double fullMoon;
  int sun;
  int moon;
  int latitude;
};

// Chapter 49. The power of the eccentricity that goes with a term is how often the sun's anomaly is in it.
constexpr PhaseTerm kPhaseTerms[] = {
    {-0.40720, -0.40614, 0, 1, 0}, {0.17241, 0.17302, 1, 0, 0},    {0.01608, 0.01614, 0, 2, 0},
    {0.01039, 0.01043, 0, 0, 2},   {0.00739, 0.00734, -1, 1, 0},   {-0.00514, -0.00515, 1, 1, 0},
    {0.00208, 0.00209, 2, 0, 0},   {-0.00111, -0.00111, 0, 1, -2}, {-0.00057, -0.00057, 0, 1, 2},
    {0.00056, 0.00056, 1, 2, 0},   {-0.00042, -0.00042, 0, 3, 0},  {0.00042, 0.00042, 1, 0, 2},
    {0.00038, 0.00038, 1, 0, -2},  {-0.00024, -0.00024, -1, 2, 0},
};

// The moon of a number, counted from the first of the year 2000: n is a new moon, n + 0.5 a full one.
double PhaseAt(double number) {
  const bool isNew = number == std::floor(number);
  const double t = number / 1236.85;  // centuries
  const double sun = (2.5534 + 29.10535670 * number - 0.0000014 * t * t) * kDegreesToRadians;
  const double moon = (201.5643 + 385.81693528 * number + 0.0107582 * t * t) * kDegreesToRadians;
  const double latitude = (160.7108 + 390.67050284 * number - 0.0016118 * t * t) * kDegreesToRadians;
  const double node = (124.7746 - 1.56375588 * number + 0.0020672 * t * t) * kDegreesToRadians;
  const double eccentricity = 1 - 0.002516 * t - 0.0000074 * t * t;
  double day = kFirstNewMoon + kSynodicMonth * number + 0.00015437 * t * t - 0.00017 * std::sin(node);
  for (const PhaseTerm& term : kPhaseTerms) {
    day += (isNew ? term.newMoon : term.fullMoon) * std::pow(eccentricity, std::abs(term.sun)) *
           std::sin(term.sun * sun + term.moon * moon + term.latitude * latitude);
  }
  return day - kDynamicalTime;
}

// `half` is 0 for new moons, 0.5 for full ones.
double NextPhase(double julianDay, double half) {
  constexpr double kReach = 1e7;  // of days; where a double still tells one moon from the next
  if (!(std::abs(julianDay) < kReach)) return kFirstNewMoon;
  double number = std::floor((julianDay - kFirstNewMoon) / kSynodicMonth) - 1 + half;
  while (PhaseAt(number) < julianDay) ++number;
  return PhaseAt(number);
}

}  // namespace

double MoonIlluminated(double julianDay) {
  const double t = (julianDay + kDynamicalTime - 2451545.0) / 36525.0;
  const double elongation = (297.8501921 + 445267.1114034 * t) * kDegreesToRadians;
  const double sun = (357.5291092 + 35999.0502909 * t) * kDegreesToRadians;
  const double moon = (134.9633964 + 477198.8675055 * t) * kDegreesToRadians;
  const double corrections = -6.289 * std::sin(moon) + 2.100 * std::sin(sun) -
                             1.274 * std::sin(2 * elongation - moon) - 0.658 * std::sin(2 * elongation) -
                             0.214 * std::sin(2 * moon) - 0.110 * std::sin(elongation);
  const double phaseAngle = std::numbers::pi - elongation + corrections * kDegreesToRadians;
  const double part = (1 + std::cos(phaseAngle)) / 2;
  return part >= 0 && part <= 1 ? part : 0.0;
}

double NextNewMoon(double julianDay) {
  return NextPhase(julianDay, 0.0);
}

double NextFullMoon(double julianDay) {
  return NextPhase(julianDay, 0.5);
}

}  // namespace TCBase::Program::Generate
