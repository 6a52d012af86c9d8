#pragma once

// How the numbers of a change are written by a person, in a dialog or behind an option. Nothing for any other
// text: no spaces, no more than the number.

#include <cstdint>
#include <optional>
#include <string_view>

#include "program/change/mode_change.h"

namespace TCBase::Program {

/// "12", "-0.5", "+3"; finite, and from `least` to `most`.
std::optional<float> ReadNumber(std::string_view text, float least, float most);
/// "12", "-3"; from `least` to `most`.
std::optional<std::int32_t> ReadWhole(std::string_view text, std::int32_t least, std::int32_t most);
/// The minutes of "90", "-90", "+1:30" or "-01:30", up to kMostShift either way.
std::optional<std::int32_t> ReadShift(std::string_view text);
/// The minute of the day of "8:05" or "08:05".
std::optional<std::int32_t> ReadTime(std::string_view text);
/// "1" or "1,3,4", counted from 1; at least one.
std::optional<ChannelSet> ReadChannels(std::string_view text);

}  // namespace TCBase::Program
