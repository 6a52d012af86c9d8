#include "program/figures/amount.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace TCBase::Program {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

std::optional<double> ParseAmount(std::string_view text) {
  std::string digits(WithoutBlanks(text));
  if (digits.empty()) return 0.0;
  // No sign and no exponent, and neither "inf" nor "nan", all of which from_chars knows.
  if (digits.find_first_not_of("0123456789.,") != std::string::npos) return std::nullopt;
  std::ranges::replace(digits, ',', '.');
  double amount = 0.0;
  const char* const end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, amount);
  const bool good = result.ec == std::errc() && result.ptr == end && amount <= kMostAmount;
  return good ? std::optional(amount) : std::nullopt;
}

std::string AmountText(double amount) {
  if (amount == 0.0) return {};
  char buffer[512];  // for any double
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, amount, std::chars_format::fixed).ptr};
}

std::string FixedText(double value, int digits) {
  char buffer[64];
  return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, digits).ptr};
}

}  // namespace TCBase::Program
