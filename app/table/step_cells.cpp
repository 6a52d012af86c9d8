#include "app/table/step_cells.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "OvkLib/src/ovk_text.h"
#include "common/message.h"

namespace app {

using namespace TCBase::Program;

namespace {

constexpr std::string_view kCellBlanks = " \t\r\n";
constexpr std::size_t kShownDigits = 2;  // behind the point
constexpr TextKey kJumpWord("jump");
constexpr TextKey kFadeWord("fade");

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kCellBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kCellBlanks) + 1);
}

// Up to two digits and nothing else.
std::optional<std::int32_t> ShortNumber(std::string_view digits, std::int32_t most) {
  if (digits.empty() || digits.size() > 2) return std::nullopt;
  std::int32_t number = 0;
  for (const char c : digits) {
    if (c < '0' || c > '9') return std::nullopt;
    number = number * 10 + (c - '0');
  }
  return number <= most ? std::optional(number) : std::nullopt;
}

char Small(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool Begins(std::string_view typed, std::string_view word) {
  return typed.size() <= word.size() && std::equal(typed.begin(), typed.end(), word.begin(),
                                                   [](char a, char b) { return Small(a) == Small(b); });
}

bool BeginsEither(std::string_view typed, TextKey word) {
  return Begins(typed, word) || Begins(typed, Translate(word));
}

}  // namespace

std::string ExactPercent(float percent) {
  // The longest a float gets without an exponent.
  std::array<char, 64> digits{};
  const auto [end, error] =
      std::to_chars(digits.data(), digits.data() + digits.size(), percent, std::chars_format::fixed);
  return error == std::errc() ? std::string(digits.data(), end) : std::string("0");
}

std::string ShownPercent(float percent) {
  std::string text = ExactPercent(percent);
  const std::size_t point = text.find('.');
  if (point == std::string::npos) return text;
  text.resize(std::min(text.size(), point + 1 + kShownDigits));
  text.resize(text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.pop_back();
  return text;
}

TableRow StepCells(const Step& step) {
  return {WideFromUtf8(ToTimeText(step)), WideFromUtf8(ShownPercent(step.value)),
          WideFromUtf8(Translate(step.jump ? kJumpWord : kFadeWord))};
}

TableRow MergedCells(const ModeStep& row) {
  TableRow cells{WideFromUtf8(TimeText({row.hour, row.minute}))};
  for (std::size_t channel = 0; channel < row.values.size(); ++channel) {
    cells.push_back(WideFromUtf8(ToDecimal(row.values[channel]) + (row.jumps[channel] ? "J" : "")));
  }
  return cells;
}

std::optional<TimeOfDay> TimeFromText(std::string_view text) {
  const std::string_view typed = Trimmed(text);
  const std::size_t colon = typed.find(':');
  // Without a colon the last two of three or four digits are the minute.
  const std::size_t hourDigits = colon != std::string_view::npos ? colon
                                 : typed.size() > 2              ? typed.size() - 2
                                                                 : typed.size();
  const bool hasMinute = hourDigits < typed.size();
  const auto hour = ShortNumber(typed.substr(0, hourDigits), kHoursPerDay - 1);
  const auto minute = hasMinute
                          ? ShortNumber(typed.substr(hourDigits + (colon != std::string_view::npos ? 1 : 0)),
                                        kMinutesPerHour - 1)
                          : std::optional<std::int32_t>(0);
  if (!hour || !minute) return std::nullopt;
  return TimeOfDay{*hour, *minute};
}

std::optional<float> PercentFromText(std::string_view text) {
  std::string typed(Trimmed(text));
  if (typed.ends_with('%')) typed = Trimmed(std::string_view(typed).substr(0, typed.size() - 1));
  std::ranges::replace(typed, ',', '.');
  float percent = 0.0F;
  const char* const end = typed.data() + typed.size();
  const auto [read, error] = std::from_chars(typed.data(), end, percent, std::chars_format::fixed);
  if (error != std::errc() || read != end) return std::nullopt;
  if (!(percent >= 0.0F && percent <= static_cast<float>(kMostPercent))) return std::nullopt;
  return std::fabs(percent);  // "-0" is 0
}

std::optional<bool> JumpFromText(std::string_view text) {
  const std::string_view typed = Trimmed(text);
  if (typed.empty()) return std::nullopt;
  if (typed == "J" || typed == "j") return true;
  const bool jump = BeginsEither(typed, kJumpWord);
  const bool fade = BeginsEither(typed, kFadeWord);
  return jump != fade ? std::optional(jump) : std::nullopt;
}

}  // namespace app
