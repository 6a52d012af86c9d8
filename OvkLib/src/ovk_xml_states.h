#pragma once

// The table of states behind the XML reader.

#include <array>
#include <cstdint>

namespace ovk::xml::states {

// The parser's states, with the numbers under which they stand on its stack. "Prolog" is what comes before
// the root.
enum : std::int32_t {
  error = 0,
  prolog = 1,
  prolog_open = 2,            // after "<"
  prolog_bang = 3,            // after "<!"
  prolog_hyphen = 4,          // after "<!-"
  prolog_instruction = 5,     // after "<?"
  prolog_declaration = 6,     // after "<!" and something else
  prolog_end = 7,             // after "?" or "--", which may end an instruction or a comment
  prolog_comment = 8,         // after "<!--"
  prolog_comment_hyphen = 9,  // after one "-" in it
  tag_name = 10,
  tag_slash = 11,  // after "/" in a tag
  end_open = 12,   // after "</"
  end_name = 13,
  end_blanks = 14,  // after the name of an end tag
  between_attributes = 15,
  attribute_name = 16,
  before_equals = 17,
  after_equals = 18,
  value_in_apostrophes = 19,
  value_in_quotes = 20,
  content = 21,  // character data
  content_after_reference = 22,
  content_open = 23,            // after "<"
  content_bang = 24,            // after "<!"
  content_instruction = 25,     // after "<?"
  content_declaration = 26,     // after "<!" and something else
  content_end = 27,             // after "?" or "--", as prolog_end
  content_hyphen = 28,          // after "<!-"
  content_comment = 29,         // after "<!--"
  content_comment_hyphen = 30,  // after one "-" in it
  cdata_bracket = 31,           // after "<!["
  cdata_c = 32,                 // after "<![C", and so on
  cdata_cd = 33,
  cdata_cda = 34,
  cdata_cdat = 35,
  cdata_word = 36,
  cdata = 37,
  cdata_end_1 = 38,  // after "]" in a CDATA section
  cdata_end_2 = 39,  // after "]]"
  done = 40,
  reference = 41,  // after "&"
  named_reference = 42,
  numeric_reference = 43,  // after "&#"
  decimal_reference = 44,
  hexadecimal_reference = 45,
  count = 46
};

// What a transition does with its byte, besides going to the next state.
enum action : std::uint8_t {
  kGo,               // nothing more
  kName,             // appends it to the name
  kValue,            // appends it to the attribute's value
  kEntity,           // appends it to the reference
  kText,             // passes it as character data
  kHeldBracket,      // passes a "]" and it
  kHeldBrackets,     // passes "]]" and it
  kStartTag,         // the tag's name is complete
  kCloseEmpty,       // the element is complete without content
  kEndTag,           // the element is complete
  kAttribute,        // the attribute is complete
  kDrop,             // forgets the top of the stack
  kReferenceInName,  // begins a reference whose replacement goes to the name
  kReferenceInValue,
  kFlush,        // was no reference: it stays as written, and the byte is taken again
  kResolveName,  // the reference is complete
  kResolveNumber,
  kPassReference,  // passes a reference's replacement as character data, and the byte is taken again
};

// What happens to a byte in a state.
struct transition {
  std::int8_t to = error;    // the state that follows, or `popped`
  std::int8_t push = error;  // goes on the stack, if it is a state to come back to
  action does = kGo;
};

// This value as the following state means the one on top of the stack, which is taken off. An empty stack
// gives `error`.
constexpr std::int8_t popped = -1;

struct row {
  const transition& operator[](char byte) const { return transitions[static_cast<unsigned char>(byte)]; }

  std::array<transition, 256> transitions{};
  // The bytes that prolong the state: it stays, and they are only dropped, appended to something or passed
  // on. A run of them may be taken in one stroke.
  std::array<bool, 256> prolongs{};
  // What happens to each byte of such a run.
  action run = kGo;
  // All bytes but these two prolong the state; or these, which are the same then.
  bool few_stops = false;
  char stops[2] = {};
};

extern const std::array<row, count> rows;

}  // namespace ovk::xml::states
