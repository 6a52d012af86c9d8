#include "OvkLib/src/ovk_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>

#include "OvkLib/src/ovk_exception.h"

namespace ovk {

namespace {

// The longest, "-2147483648", has eleven characters.
constexpr std::size_t kMostDigits = std::numeric_limits<std::int32_t>::digits10 + 2;

/// The literal of one placeholder, terminated.
template <class Char>
class placeholder {
 public:
  explicit placeholder(std::int32_t number) {
    if (number < static_cast<std::int32_t>(kTable.size())) {
      text_ = kTable[static_cast<std::size_t>(number)].data();
      length_ = 3;
      return;
    }
    char digits[kMostDigits];
    const char* end = std::to_chars(digits, digits + kMostDigits, number).ptr;
    built_[0] = '{';
    Char* last = std::copy(static_cast<const char*>(digits), end, built_ + 1);
    *last++ = '}';
    *last = Char();
    text_ = built_;
    length_ = static_cast<std::int32_t>(last - built_);
  }

  placeholder(const placeholder&) = delete;
  placeholder& operator=(const placeholder&) = delete;

  const Char* text() const { return text_; }
  std::int32_t length() const { return length_; }

 private:
  static constexpr auto kTable = [] {
    std::array<std::array<Char, 4>, 10> table{};
    for (std::size_t i = 0; i < table.size(); ++i) table[i] = {'{', static_cast<Char>('0' + i), '}', 0};
    return table;
  }();

  const Char* text_;
  std::int32_t length_;
  Char built_[kMostDigits + 3];
};

template <class Char>
basic_string<Char> padded(std::int32_t number, std::int32_t width) {
  char digits[kMostDigits] = {};
  const char* end = std::to_chars(digits, digits + kMostDigits, number).ptr;
  const std::int32_t missing = width - static_cast<std::int32_t>(end - digits);
  basic_string<Char> text;
  if (number >= 0 && missing > 0) text.resize(missing, Char('0'));
  for (const char* digit = digits; digit != end; ++digit) text.push_back(static_cast<Char>(*digit));
  if (number < 0) text.insert_zeros(missing);
  return text;
}

}  // namespace

template <class Char>
void basic_format<Char>::arg(const Char* text, std::int32_t length) {
  const placeholder<Char> pattern(next_);
  std::int32_t found = text_.find(pattern.text(), 0);
  while (found != basic_string<Char>::not_found) {
    text_.replace(found, pattern.length(), text, length);
    found = text_.find(pattern.text(), found + length);
  }
  ++next_;
}

void format::arg(std::int32_t number, std::int32_t width) {
  const string text = padded<char>(number, width);
  arg(text.c_str(), text.length());
}

void wformat::arg(std::int32_t number) {
  constexpr std::int32_t kWidth = 2;
  const wstring text = padded<char16_t>(number, kWidth);
  arg(text.c_str(), text.length());
}

namespace {

constexpr std::size_t kShortLength = 3;  // of "{1}"

/// The argument that the placeholder at `brace` takes, counted from 0; kNoArgument for a number that is not
/// in the list, kNoPlaceholder for a brace that begins no placeholder of one digit.
constexpr std::size_t kNoArgument = 10;
constexpr std::size_t kNoPlaceholder = 11;
std::size_t argument_at(std::string_view text, std::size_t brace, std::size_t count) {
  if (text.size() - brace < kShortLength || text[brace + 2] != '}') return kNoPlaceholder;
  const char digit = text[brace + 1];
  if (digit < '0' || digit > '9') return kNoPlaceholder;
  const auto index = static_cast<std::size_t>(digit - '1');  // {0} becomes very large
  return index < count ? index : kNoArgument;
}

/// The length of the filled text if all placeholders can be filled at once, else nothing. They can if no
/// brace that an argument brings, and none that stands in the text for itself, could become part of a
/// placeholder once its surroundings are filled.
std::optional<std::size_t> length_in_one_pass(std::string_view text,
                                              std::span<const std::string_view> arguments) {
  constexpr std::size_t kMostArguments = 9;
  if (arguments.size() > kMostArguments) return std::nullopt;
  for (const std::string_view argument : arguments) {
    if (argument.find('{') != std::string_view::npos) return std::nullopt;
  }
  std::size_t length = text.size();
  for (std::size_t brace = text.find('{'); brace != std::string_view::npos;
       brace = text.find('{', brace + kShortLength)) {
    const std::size_t index = argument_at(text, brace, arguments.size());
    if (index == kNoPlaceholder) return std::nullopt;
    if (index != kNoArgument) length += arguments[index].size() - kShortLength;
  }
  return length;
}

char* put(char* to, std::string_view text) {
  return to + text.copy(to, text.size());
}

void fill_in_one_pass(char* to, std::string_view text, std::span<const std::string_view> arguments) {
  std::size_t done = 0;
  for (std::size_t brace = text.find('{'); brace != std::string_view::npos;
       brace = text.find('{', brace + kShortLength)) {
    const std::size_t index = argument_at(text, brace, arguments.size());
    if (index == kNoArgument) continue;
    to = put(to, text.substr(done, brace - done));
    to = put(to, arguments[index]);
    done = brace + kShortLength;
  }
  put(to, text.substr(done));
}

}  // namespace

void fill(std::string& out, std::string_view text, std::span<const std::string_view> arguments) {
  if (const auto length = length_in_one_pass(text, arguments)) {
    if (*length > static_cast<std::size_t>(string::max_length)) throw_out_of_memory();
    out.resize(*length);
    fill_in_one_pass(out.data(), text, arguments);
    return;
  }
  format format(text);
  for (const std::string_view argument : arguments) {
    if (argument.size() > static_cast<std::size_t>(string::max_length)) throw_out_of_memory();
    format.arg(argument.data(), static_cast<std::int32_t>(argument.size()));
  }
  out = format.text().view();
}

template class basic_format<char>;
template class basic_format<char16_t>;

}  // namespace ovk
