#pragma once

// Positional formatting: a template with the placeholders {1}, {2}, ... and arguments that fill them in
// order.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "OvkLib/src/ovk_string.h"

namespace ovk {

/// A template and its arguments. Placeholders may stand in any order and any number of times; an argument
/// whose placeholder is absent is dropped, and a placeholder without an argument stays in the text. There is
/// no escape and no other syntax: all other braces are text. Nothing here can fail but for memory. Belongs to
/// one thread, also where it is only read.
template <class Char>
class basic_format {
 public:
  using view_type = std::basic_string_view<Char>;

  explicit basic_format(view_type text);

  /// Gives the next argument, which fills all occurrences of its placeholder in the template. Arguments are
  /// not searched: one may hold any placeholder.
  void arg(const Char* text, std::int32_t length);

  /// The text as far as it is filled, good until the next argument.
  const basic_string<Char>& text() const;
  const Char* c_str() const { return text().c_str(); }

 private:
  std::basic_string<Char> template_;
  std::vector<std::basic_string<Char>> arguments_;
  // Filled in one pass when it is read.
  mutable basic_string<Char> text_;
  mutable bool is_filled_ = false;
};

class format : public basic_format<char> {
 public:
  using basic_format::arg;
  using basic_format::basic_format;

  /// Decimal, padded with zeros to `width` characters: a negative number behind its sign, which counts. Width
  /// 0 does not pad.
  void arg(std::int32_t number, std::int32_t width);
};

class wformat : public basic_format<char16_t> {
 public:
  using basic_format::arg;
  using basic_format::basic_format;

  /// Decimal, padded to two characters: the only form that wide templates use, as in "PRG{1}".
  void arg(std::int32_t number);
};

/// Puts into `out` the text that a format of `text` has when it was given the arguments in order. Neither
/// `text` nor an argument may be a part of `out`.
void fill(std::string& out, std::string_view text, std::span<const std::string_view> arguments);

extern template class basic_format<char>;
extern template class basic_format<char16_t>;

}  // namespace ovk
