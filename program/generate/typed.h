#pragma once

// How people type what a day of light is made from, and read it back. Nothing stands for any other text.

#include <optional>
#include <string>
#include <string_view>

#include "program/generate/fit.h"
#include "program/generate/moonlight.h"

namespace TCBase::Program::Generate {

/// "8:05" or "08:05", 00:00 to 23:59, as the minute of the day.
std::optional<int> ParseMinute(std::string_view text);
std::string MinuteText(int minute);
/// The nearest minute that the day has, of one from 0 to 1440: "07:42".
std::string NearestMinuteText(double minute);

/// "10:00-22:00"; "22:00-06:00" goes over midnight.
std::optional<Hours> ParseHours(std::string_view text);

/// A percent from 0 to 100, with a fraction or without.
std::optional<float> ParsePercent(std::string_view text);

/// "80" for all channels, or "80,80,100,60,0" for each.
std::optional<Levels> ParseLevels(std::string_view text);

/// "5=20": the channel, counted from 1, and its percent at a full moon.
std::optional<Moonlight> ParseMoonlight(std::string_view text);

/// "+01:00", "-3:30" or "2", in minutes, at most kMostUtcOffset.
std::optional<int> ParseUtcOffset(std::string_view text);
/// "+01:00".
std::string UtcOffsetText(int minutes);

}  // namespace TCBase::Program::Generate
