#include "OvkLib/src/ovk_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <system_error>

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
basic_format<Char>::basic_format(view_type text) : text_(text), open_(text) {}

template <class Char>
void basic_format<Char>::arg(const Char* text, std::int32_t length) {
  const placeholder<Char> pattern(next_);
  basic_string<Char> blanks;
  blanks.resize(length, Char(' '));
  std::int32_t found = open_.find(pattern.text(), 0);
  while (found != basic_string<Char>::not_found) {
    text_.replace(found, pattern.length(), text, length);
    open_.replace(found, pattern.length(), blanks.c_str(), length);
    found = open_.find(pattern.text(), found + length);
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

/// A placeholder within a template: the argument that it takes, counted from 0, and the place behind it.
struct found_placeholder {
  std::size_t argument;
  std::size_t end;
};

/// The placeholder that begins at `brace`, if one does that one of `count` arguments fills.
std::optional<found_placeholder> placeholder_at(std::string_view text, std::size_t brace, std::size_t count) {
  const char* const digits = text.data() + brace + 1;
  const char* const last = text.data() + text.size();
  // Arguments count from 1, and a placeholder is written without zeros in front.
  if (digits == last || *digits == '0') return std::nullopt;
  std::size_t number = 0;
  const auto [end, fault] = std::from_chars(digits, last, number);
  if (fault != std::errc() || end == last || *end != '}' || number > count) return std::nullopt;
  return found_placeholder{number - 1, static_cast<std::size_t>(end - text.data()) + 1};
}

/// Calls `take` with each piece of the filled text, in order. The template alone is searched, so that nothing
/// an argument brings is ever taken for a placeholder.
template <class Take>
void for_each_piece(std::string_view text, std::span<const std::string_view> arguments, Take take) {
  std::size_t done = 0;
  std::size_t brace = text.find('{');
  while (brace != std::string_view::npos) {
    std::size_t next = brace + 1;
    if (const auto found = placeholder_at(text, brace, arguments.size())) {
      take(text.substr(done, brace - done));
      take(arguments[found->argument]);
      done = next = found->end;
    }
    brace = text.find('{', next);
  }
  take(text.substr(done));
}

}  // namespace

void fill(std::string& out, std::string_view text, std::span<const std::string_view> arguments) {
  std::size_t length = 0;
  for_each_piece(text, arguments, [&](std::string_view piece) { length += piece.size(); });
  if (length > static_cast<std::size_t>(string::max_length)) throw_out_of_memory();
  out.resize(length);
  char* to = out.data();
  for_each_piece(text, arguments, [&](std::string_view piece) { to += piece.copy(to, piece.size()); });
}

template class basic_format<char>;
template class basic_format<char16_t>;

}  // namespace ovk
