#pragma once

// How the command line writes and reads small things.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "common/date_time.h"

namespace cli {

enum class LineEnds { Keep, Replace };

/// `text` (UTF-8) with nothing in it that a terminal would obey: control characters become U+FFFD. Names come
/// from files that others have written.
std::string ForTerminal(std::string_view text, LineEnds lineEnds);

/// Nine significant digits, which tell every float from its neighbours, the same on every platform:
/// "33.3333321", "1e-05", "inf", "-inf", "nan".
std::string NumberText(float value);

/// Two capital hexadecimal digits a byte.
std::string HexText(std::string_view bytes);

/// The minute of the day of "08:05"; nothing for any other text.
std::optional<int> ParseTimeOfDay(std::string_view text);
/// What is wrong with a time of the day; empty if nothing is.
std::string CheckTimeOfDay(const std::string& text);

/// "CHANNEL=VALUE" with the channel from 1 to 5; nothing for any other text.
struct ChannelValue {
  std::int32_t channel;  // from 0
  std::string value;
};
std::optional<ChannelValue> ParseChannelValue(std::string_view text);

/// "yyyy-MM-dd HH:mm:ss", to the letter, of a moment from the year 2000 on that the calendar has.
std::optional<DateTime> ParseDateTime(std::string_view text);

}  // namespace cli
