#pragma once

// What the user has told of the lamps, once for all programs: a curve in percent becomes energy and light by
// it.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "program/program.h"
#include "program/settings.h"

namespace TCBase::Program {

/// All are from 0 to kMostAmount; 0 stands for what was not told.
struct LampFacts {
  std::array<double, kChannelCount> watts{};  // that a channel's lamps draw at 100 %
  std::array<double, kChannelCount> par{};    // their light at 100 % where it is to be known, in umol/(m2 s)
  double price = 0.0;                         // of a kilowatt hour, in whatever money
  double level = kUsualLevel;  // percent, 0 to 100: figures tell how long a channel is above it

  static constexpr double kUsualLevel = 50.0;

  friend bool operator==(const LampFacts&, const LampFacts&) = default;
};

/// The number of a level, 0 to 100, as ParseAmount reads it; nothing for any other text.
std::optional<double> ParseLevel(std::string_view text);

/// The text of which ParseLevel makes the same level.
std::string LevelText(double level);

/// The facts among the settings; what was never told there, or is no number, is as it is in `LampFacts{}`.
LampFacts ReadLampFacts(Settings& settings);
/// Puts those that are others than the settings' there, so that nothing that was never told gets a key.
void KeepLampFacts(Settings& settings, const LampFacts& facts);

}  // namespace TCBase::Program
