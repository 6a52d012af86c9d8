#pragma once

// What a mode's curves come to over a day: how long and how much light, and with what is told of the lamps
// the energy that they draw, what it costs, and the light that falls on plants and corals.
//
// A curve is that of ChannelValueAt, second by second, cut to 0 to 100; what is not a number counts as dark.
// So all figures of any document are finite.

#include <array>
#include <cstdint>
#include <optional>

#include "program/figures/lamp_facts.h"
#include "program/program.h"

namespace TCBase::Program {

/// A twelfth of a year of 365.25 days, which is what a month is here.
inline constexpr double kDaysPerMonth = 365.25 / 12.0;

/// From darkness to darkness. Seconds of the day; the end is the first dark one, and lies before the
/// beginning where the light goes on over midnight.
struct LightSpan {
  std::int32_t begin = 0;
  std::int32_t end = 0;

  friend bool operator==(const LightSpan&, const LightSpan&) = default;
};

struct Figures {
  /// The light that the longest darkness of the day leaves, with shorter darknesses in it. None where it is
  /// dark all day, or never for a minute.
  std::optional<LightSpan> light;
  double hoursOfLight = 0.0;     // above 0 %
  double hoursAboveLevel = 0.0;  // above LampFacts::level
  double percentHours = 0.0;     // 100 % over an hour are 100
  /// What the curve rises at most from one whole minute to the next, midnight included, in percent, and the
  /// minute of the day that it is the rise to: the first of several. 0 where it never rises.
  double steepestRise = 0.0;
  std::int32_t steepestMinute = 0;

  // What nobody has told enough for is none.
  std::optional<double> energy;  // kWh a day: drawn power is taken to follow the percent
  std::optional<double> cost;    // of that, in the price's money
  std::optional<double> dli;     // daily light integral, mol/(m2 d): umol/(m2 s) times seconds over a million
};

struct ModeFigures {
  std::array<Figures, kChannelCount> channels;
  /// Of all channels together. Light is where any channel has some, and above the level where any is; amounts
  /// are added, and the rise is that of the channel that rises most.
  Figures all;
};

/// Takes some milliseconds.
ModeFigures FiguresOf(const Mode& mode, const LampFacts& facts);

}  // namespace TCBase::Program
