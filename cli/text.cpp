#include "cli/text.h"

#include <charconv>
#include <chrono>
#include <cmath>

#include "program/program.h"

namespace cli {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD
constexpr int kSignificantDigits = 9;

bool IsControl(unsigned char byte) {
  return byte < 0x20 || byte == 0x7F;
}

// U+0080 to U+009F, of which some begin a terminal's control sequence like ESC [ does.
bool StartsWithHighControl(std::string_view text) {
  return text.size() >= 2 && text[0] == '\xC2' && static_cast<unsigned char>(text[1]) >= 0x80 &&
         static_cast<unsigned char>(text[1]) < 0xA0;
}

// A number of exactly these digits.
std::optional<int> ParseDigits(std::string_view digits) {
  int number = 0;
  for (const char digit : digits) {
    if (digit < '0' || digit > '9') return std::nullopt;
    number = number * 10 + (digit - '0');
  }
  return number;
}

}  // namespace

std::string ForTerminal(std::string_view text, LineEnds lineEnds) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && lineEnds == LineEnds::Keep) {
      result += '\n';
    } else if (IsControl(static_cast<unsigned char>(text[i]))) {
      result += kReplacement;
    } else if (StartsWithHighControl(text.substr(i))) {
      result += kReplacement;
      ++i;
    } else {
      result += text[i];
    }
  }
  return result;
}

std::string NumberText(float value) {
  // The sign of what is not a number depends on the processor's mood.
  if (std::isnan(value)) return "nan";
  char buffer[32];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, kSignificantDigits);
  return std::string(buffer, end.ptr);
}

std::string HexText(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  text.reserve(bytes.size() * 2);
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text += kDigits[value >> 4];
    text += kDigits[value & 0x0F];
  }
  return text;
}

std::optional<int> ParseTimeOfDay(std::string_view text) {
  constexpr std::size_t kLength = 5;
  if (text.size() != kLength || text[2] != ':') return std::nullopt;
  const auto hour = ParseDigits(text.substr(0, 2));
  const auto minute = ParseDigits(text.substr(3));
  if (!hour || !minute || *hour > 23 || *minute > 59) return std::nullopt;
  return static_cast<int>(MinuteOfDay(TCBase::Program::TimeOfDay{*hour, *minute}));
}

std::string CheckTimeOfDay(const std::string& text) {
  return ParseTimeOfDay(text) ? "" : "a time from 00:00 to 23:59 is expected, not " + text;
}

std::optional<ChannelValue> ParseChannelValue(std::string_view text) {
  constexpr char kLastChannel = '0' + TCBase::Program::kChannelCount;
  if (text.size() < 3 || text[0] < '1' || text[0] > kLastChannel || text[1] != '=') return std::nullopt;
  return ChannelValue{text[0] - '1', std::string(text.substr(2))};
}

std::optional<DateTime> ParseDateTime(std::string_view text) {
  constexpr std::string_view kShape = "####-##-## ##:##:##";
  constexpr int kFirstYear = 2000;
  if (text.size() != kShape.size()) return std::nullopt;
  for (std::size_t i = 0; i < kShape.size(); ++i)
    if (kShape[i] != '#' && text[i] != kShape[i]) return std::nullopt;

  const auto year = ParseDigits(text.substr(0, 4));
  const auto month = ParseDigits(text.substr(5, 2));
  const auto day = ParseDigits(text.substr(8, 2));
  const auto hour = ParseDigits(text.substr(11, 2));
  const auto minute = ParseDigits(text.substr(14, 2));
  const auto second = ParseDigits(text.substr(17, 2));
  if (!year || !month || !day || !hour || !minute || !second) return std::nullopt;

  const std::chrono::year_month_day date{std::chrono::year{*year},
                                         std::chrono::month{static_cast<unsigned>(*month)},
                                         std::chrono::day{static_cast<unsigned>(*day)}};
  if (*year < kFirstYear || !date.ok() || *hour > 23 || *minute > 59 || *second > 59) return std::nullopt;
  return DateTime{*year, *month, *day, *hour, *minute, *second, 0};
}

}  // namespace cli
