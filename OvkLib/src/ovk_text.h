#pragma once

// Small conversions between text and numbers, and the splitting of text.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Splits `text` at every character of `delimiters` and appends the tokens to `out`. A run of delimiters
/// counts as one: no token is empty.
void Tokenize(std::string_view text, std::string_view delimiters, std::vector<std::string>& out);

/// Decimal, with a leading minus for a negative number.
std::string ToDecimal(std::int32_t number);
std::string ToDecimal(std::uint64_t number);

/// Digits 0 to 9 and A to F. `radix` is 2 to 16; any other gives an empty text.
std::u16string ToRadix(std::uint64_t number, int radix);

struct ParsedUnsigned {
  std::uint32_t value = 0;
  bool overflow = false;
  std::size_t position = 0;  // of the first character that was not read

  friend bool operator==(const ParsedUnsigned&, const ParsedUnsigned&) = default;
};

/// Reads a decimal number from at most `count` characters at `start`; `count` is clipped to the text. A "+"
/// before a digit is skipped. The number ends without complaint at the first character that is no digit:
/// "12abc" is 12, "abc" is 0. Too large a number sets `overflow`, gives 0xFFFFFFFF and stops at the digit
/// that was too much, but only where the 32-bit value wraps below what it was a digit earlier: "5000000000"
/// wraps past that and is read as 705032704.
ParsedUnsigned ParseUnsigned(std::string_view text, std::size_t start, std::size_t count);
