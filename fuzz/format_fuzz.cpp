// A line as a template and the lines behind it as arguments: the text is what filling one placeholder after
// the other gives, in both widths of character and in the quick way over standard strings.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "OvkLib/src/ovk_format.h"
#include "fuzz/input.h"

namespace {

using fuzz::Require;

// A template in pieces: those that came with an argument are not searched any more.
template <class String>
struct Piece {
  String text;
  bool isArgument;
};

// Splits each piece of the template at the placeholder, and puts the argument there.
template <class String>
std::vector<Piece<String>> FilledOnce(const std::vector<Piece<String>>& pieces, const String& placeholder,
                                      const String& argument) {
  std::vector<Piece<String>> filled;
  for (const Piece<String>& piece : pieces) {
    std::size_t done = 0;
    for (std::size_t at = 0; !piece.isArgument && (at = piece.text.find(placeholder, done)) != String::npos;
         done = at + placeholder.size()) {
      filled.push_back({piece.text.substr(done, at - done), false});
      filled.push_back({argument, true});
    }
    filled.push_back({piece.text.substr(done), piece.isArgument});
  }
  return filled;
}

template <class String>
String Filled(const String& text, const std::vector<String>& arguments) {
  std::vector<Piece<String>> pieces = {{text, false}};
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string placeholder = "{" + std::to_string(i + 1) + "}";
    pieces = FilledOnce(pieces, String(placeholder.begin(), placeholder.end()), arguments[i]);
  }
  String all;
  for (const Piece<String>& piece : pieces) all += piece.text;
  return all;
}

// As many characters as bytes, above 127 too.
std::u16string Widened(std::string_view text) {
  std::u16string wide;
  for (const char c : text) wide += static_cast<char16_t>(static_cast<unsigned char>(c) * 0x101);
  return wide;
}

std::u16string WidenedAscii(std::string_view text) {
  return {text.begin(), text.end()};
}

// The sign counts, and stands in front of the zeros.
std::string Padded(std::int32_t number, std::int32_t width) {
  std::string digits = std::to_string(number);
  const std::size_t sign = number < 0 ? 1 : 0;
  while (static_cast<std::int64_t>(digits.size()) < width) digits.insert(sign, "0");
  return digits;
}

void CheckNarrow(const std::string& text, const std::vector<std::string>& arguments) {
  ovk::format format{std::string_view(text)};
  Require(format.text() == std::string_view(text));
  std::vector<std::string> given;
  for (const std::string& argument : arguments) {
    format.arg(argument.data(), static_cast<std::int32_t>(argument.size()));
    given.push_back(argument);
    // Read in between, as nobody does.
    if (argument.size() % 3 == 0) Require(format.text() == std::string_view(Filled(text, given)));
  }
  const std::string filled = Filled(text, arguments);
  Require(format.text() == std::string_view(filled));
  Require(format.c_str()[filled.size()] == '\0');

  std::string quick = "what was there before";
  ovk::fill(quick, text, std::vector<std::string_view>(arguments.begin(), arguments.end()));
  Require(quick == filled);
}

void CheckWide(const std::string& text, const std::vector<std::string>& arguments) {
  const std::u16string wideText = Widened(text);
  ovk::wformat format{std::u16string_view(wideText)};
  std::vector<std::u16string> wide;
  for (const std::string& argument : arguments) {
    wide.push_back(Widened(argument));
    format.arg(wide.back().data(), static_cast<std::int32_t>(wide.back().size()));
  }
  Require(format.text() == std::u16string_view(Filled(wideText, wide)));
}

void CheckNumbers(const std::string& text, std::int32_t number, std::int32_t width) {
  ovk::format format{std::string_view(text)};
  format.arg(number, width);
  format.arg(width, 0);
  Require(format.text() == std::string_view(Filled(text, {Padded(number, width), std::to_string(width)})));

  const std::u16string wideText = WidenedAscii(text);
  ovk::wformat wide{std::u16string_view(wideText)};
  wide.arg(number);
  Require(wide.text() == std::u16string_view(Filled(wideText, {WidenedAscii(Padded(number, 2))})));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const auto number = input.Take<std::int32_t>();
  const auto width = input.Take<std::int8_t>();
  const std::string text(input.TakeLine());
  std::vector<std::string> arguments;
  while (!input.IsEmpty()) arguments.emplace_back(input.TakeLine());
  CheckNarrow(text, arguments);
  CheckWide(text, arguments);
  CheckNumbers(text, number, width);
  return 0;
}
