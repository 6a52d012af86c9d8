#include "OvkLib/src/ovk_format.h"

#include <charconv>
#include <limits>
#include <optional>

#include "OvkLib/src/ovk_exception.h"

namespace ovk {

namespace {

// The longest, "-2147483648", has eleven characters.
constexpr std::size_t kMostDigits = std::numeric_limits<std::int32_t>::digits10 + 2;

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

// A placeholder within a template: the argument that it takes, counted from 0, and the place behind it.
struct found_placeholder {
  std::size_t argument;
  std::size_t end;
};

// The placeholder that begins at `brace`, if one does that one of `count` arguments fills.
template <class Char>
std::optional<found_placeholder> placeholder_at(std::basic_string_view<Char> text, std::size_t brace,
                                                std::size_t count) {
  const std::size_t digits = brace + 1;
  std::size_t end = digits;
  std::size_t number = 0;
  for (; end < text.size() && text[end] >= '0' && text[end] <= '9'; ++end) {
    number = number * 10 + static_cast<std::size_t>(text[end] - '0');
    // Arguments count from 1, and a placeholder is written without zeros in front.
    if (number == 0 || number > count) return std::nullopt;
  }
  if (end == digits || end == text.size() || text[end] != '}') return std::nullopt;
  return found_placeholder{number - 1, end + 1};
}

// Calls `take` with each piece of the filled text, in order. The template alone is searched, so that nothing
// an argument brings is ever taken for a placeholder.
template <class Char, class Arguments, class Take>
void for_each_piece(std::basic_string_view<Char> text, const Arguments& arguments, Take take) {
  using view = std::basic_string_view<Char>;
  std::size_t done = 0;
  std::size_t brace = text.find(Char('{'));
  while (brace != view::npos) {
    std::size_t next = brace + 1;
    if (const auto found = placeholder_at(text, brace, arguments.size())) {
      take(text.substr(done, brace - done));
      take(view(arguments[found->argument]));
      done = next = found->end;
    }
    brace = text.find(Char('{'), next);
  }
  take(text.substr(done));
}

}  // namespace

template <class Char>
basic_format<Char>::basic_format(view_type text) : template_(text) {}

template <class Char>
void basic_format<Char>::arg(const Char* text, std::int32_t length) {
  arguments_.emplace_back(text, static_cast<std::size_t>(length));
  is_filled_ = false;
}

template <class Char>
const basic_string<Char>& basic_format<Char>::text() const {
  if (!is_filled_) {
    text_ = {};
    for_each_piece(view_type(template_), arguments_, [this](view_type piece) { text_.append(piece); });
    is_filled_ = true;
  }
  return text_;
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
