#include "OvkLib/src/ovk_text.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

template <class Number>
std::string Decimal(Number number) {
  char digits[std::numeric_limits<Number>::digits10 + 2];
  const char* end = std::to_chars(digits, digits + sizeof(digits), number).ptr;
  return {static_cast<const char*>(digits), end};
}

}  // namespace

void Tokenize(std::string_view text, std::string_view delimiters, std::vector<std::string>& out) {
  std::size_t start = text.find_first_not_of(delimiters);
  while (start != std::string_view::npos) {
    const std::size_t end = std::min(text.find_first_of(delimiters, start), text.size());
    out.emplace_back(text.substr(start, end - start));
    start = text.find_first_not_of(delimiters, end);
  }
}

std::string ToDecimal(std::int32_t number) {
  return Decimal(number);
}

std::string ToDecimal(std::uint64_t number) {
  return Decimal(number);
}

std::u16string ToRadix(std::uint64_t number, int radix) {
  constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
  std::u16string text;
  if (radix < 2 || radix > static_cast<int>(kDigits.size())) return text;
  const auto base = static_cast<std::uint64_t>(radix);
  do {
    text.push_back(kDigits[number % base]);
    number /= base;
  } while (number != 0);
  std::reverse(text.begin(), text.end());
  return text;
}

ParsedUnsigned ParseUnsigned(std::string_view text, std::size_t start, std::size_t count) {
  ParsedUnsigned result{0, false, start};
  if (start >= text.size()) return result;
  const std::string_view part = text.substr(start, count);
  std::size_t i = part.size() >= 2 && part[0] == '+' && IsDigit(part[1]) ? 1 : 0;
  for (; i < part.size() && IsDigit(part[i]); ++i) {
    const std::uint32_t next = result.value * 10 + static_cast<std::uint32_t>(part[i] - '0');
    if (next < result.value) {
      result.overflow = true;
      result.value = std::numeric_limits<std::uint32_t>::max();
      break;
    }
    result.value = next;
  }
  result.position = start + i;
  return result;
}
