#include "OvkLib/src/ovk_xml_states.h"

#include <cstddef>
#include <string_view>
#include <utility>

namespace ovk::xml::states {

namespace {

// One line of the table: in the state `from`, each of `bytes` leads to the state `to`, by `does`; `push`, if
// there is one, goes on the stack. The first line that fits counts. What no line has leads to `error`.
struct line {  // NOLINT(clang-analyzer-optin.performance.Padding): in the order in which a line reads
  std::int8_t from;
  std::string_view bytes;
  std::int8_t to;
  action does = kGo;
  std::int8_t push = error;
};

constexpr std::string_view kElse = "";
constexpr std::string_view kNameByte = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_:0123456789-.";
constexpr std::string_view kNameStart = kNameByte.substr(0, kNameByte.find('0'));
constexpr std::string_view kBlank = "\t\n\r ";
constexpr std::string_view kDigit = "0123456789";
constexpr std::string_view kHexDigit = "0123456789abcdefABCDEF";

// clang-format off
constexpr line kLines[] = {
    {prolog,                  "<",        prolog_open},
    {prolog,                  kElse,      prolog},
    {prolog_open,             "?",        prolog_instruction},
    {prolog_open,             "!",        prolog_bang},
    {prolog_open,             kNameStart, tag_name,                kName},
    {prolog_bang,             "-",        prolog_hyphen},
    {prolog_bang,             kElse,      prolog_declaration},
    {prolog_hyphen,           "-",        prolog_comment},
    {prolog_hyphen,           kElse,      prolog_declaration},
    {prolog_instruction,      "?",        prolog_end,              kGo, prolog_instruction},
    {prolog_instruction,      kElse,      prolog_instruction},
    {prolog_declaration,      ">",        prolog},
    {prolog_declaration,      kElse,      prolog_declaration},
    {prolog_end,              ">",        prolog,                  kDrop},
    {prolog_end,              kElse,      popped},
    {prolog_comment,          "-",        prolog_comment_hyphen},
    {prolog_comment,          kElse,      prolog_comment},
    {prolog_comment_hyphen,   "-",        prolog_end,              kGo, prolog_comment_hyphen},
    {prolog_comment_hyphen,   kElse,      prolog_comment},

    {tag_name,                kNameByte,  tag_name,                kName},
    {tag_name,                kBlank,     between_attributes,      kStartTag},
    {tag_name,                "/",        tag_slash,               kStartTag},
    {tag_name,                ">",        content,                 kStartTag},
    {tag_slash,               ">",        popped,                  kCloseEmpty},
    {end_open,                kNameStart, end_name,                kName},
    {end_name,                kNameByte,  end_name,                kName},
    {end_name,                kBlank,     end_blanks},
    {end_name,                ">",        popped,                  kEndTag},
    {end_blanks,              kBlank,     end_blanks},
    {end_blanks,              ">",        popped,                  kEndTag},

    {between_attributes,      kNameStart, attribute_name,          kName},
    {between_attributes,      "/",        tag_slash},
    {between_attributes,      ">",        content},
    {between_attributes,      kBlank,     between_attributes},
    {attribute_name,          kNameByte,  attribute_name,          kName},
    {attribute_name,          "=",        after_equals},
    {attribute_name,          kBlank,     before_equals},
    {before_equals,           "=",        after_equals},
    {before_equals,           kBlank,     before_equals},
    {after_equals,            "'",        value_in_apostrophes},
    {after_equals,            "\"",       value_in_quotes},
    {after_equals,            kBlank,     after_equals},
    {value_in_apostrophes,    "'",        between_attributes,      kAttribute},
    {value_in_apostrophes,    "&",        reference,               kReferenceInValue, value_in_apostrophes},
    {value_in_apostrophes,    kElse,      value_in_apostrophes,    kValue},
    {value_in_quotes,         "\"",       between_attributes,      kAttribute},
    {value_in_quotes,         "&",        reference,               kReferenceInValue, value_in_quotes},
    {value_in_quotes,         kElse,      value_in_quotes,         kValue},

    {content,                 "<",        content_open},
    {content,                 "&",        reference,               kReferenceInName, content_after_reference},
    {content,                 kElse,      content,                 kText},
    {content_after_reference, kElse,      content,                 kPassReference},
    {content_open,            "?",        content_instruction},
    {content_open,            "!",        content_bang},
    {content_open,            "/",        end_open},
    {content_open,            kNameStart, tag_name,                kName, content},
    {content_bang,            "[",        cdata_bracket},
    {content_bang,            "-",        content_hyphen},
    {content_bang,            kElse,      content_declaration},
    {content_instruction,     "?",        content_end,             kGo, content_instruction},
    {content_instruction,     kElse,      content_instruction},
    {content_declaration,     ">",        content},
    {content_declaration,     kElse,      content_declaration},
    {content_end,             ">",        content,                 kDrop},
    {content_end,             kElse,      popped},
    {content_hyphen,          "-",        content_comment},
    {content_hyphen,          kElse,      content_declaration},
    {content_comment,         "-",        content_comment_hyphen},
    {content_comment,         kElse,      content_comment},
    {content_comment_hyphen,  "-",        content_end,             kGo, content_comment_hyphen},
    {content_comment_hyphen,  kElse,      content_comment},

    {cdata_bracket,           "C",        cdata_c},
    {cdata_bracket,           kElse,      content_declaration},
    {cdata_c,                 "D",        cdata_cd},
    {cdata_c,                 kElse,      content_declaration},
    {cdata_cd,                "A",        cdata_cda},
    {cdata_cd,                kElse,      content_declaration},
    {cdata_cda,               "T",        cdata_cdat},
    {cdata_cda,               kElse,      content_declaration},
    {cdata_cdat,              "A",        cdata_word},
    {cdata_cdat,              kElse,      content_declaration},
    {cdata_word,              "[",        cdata},
    {cdata_word,              kElse,      content_declaration},
    {cdata,                   "]",        cdata_end_1},
    {cdata,                   kElse,      cdata,                   kText},
    {cdata_end_1,             "]",        cdata_end_2},
    {cdata_end_1,             kElse,      cdata,                   kHeldBracket},
    {cdata_end_2,             ">",        content},
    {cdata_end_2,             kElse,      cdata,                   kHeldBrackets},

    {done,                    kElse,      done},

    {reference,               "#",        numeric_reference,       kEntity},
    {reference,               kNameStart, named_reference,         kEntity},
    {reference,               kElse,      popped,                  kFlush},
    {named_reference,         ";",        popped,                  kResolveName},
    {named_reference,         kNameByte,  named_reference,         kEntity},
    {named_reference,         kElse,      popped,                  kFlush},
    {numeric_reference,       "x",        hexadecimal_reference,   kEntity},
    {numeric_reference,       kDigit,     decimal_reference,       kEntity},
    {numeric_reference,       kElse,      popped,                  kFlush},
    {decimal_reference,       ";",        popped,                  kResolveNumber},
    {decimal_reference,       kDigit,     decimal_reference,       kEntity},
    {decimal_reference,       kElse,      popped,                  kFlush},
    {hexadecimal_reference,   ";",        popped,                  kResolveNumber},
    {hexadecimal_reference,   kHexDigit,  hexadecimal_reference,   kEntity},
    {hexadecimal_reference,   kElse,      popped,                  kFlush},
};
// clang-format on

constexpr bool Prolongs(std::int8_t state, const transition& what) {
  return what.to == state && what.push == error && what.does <= kText;
}

constexpr void FindRun(row& in, std::int8_t state) {
  std::size_t stops = 0;
  for (std::size_t byte = 0; byte < in.transitions.size(); ++byte) {
    if (Prolongs(state, in.transitions[byte])) {
      in.prolongs[byte] = true;
      in.run = in.transitions[byte].does;
    } else if (stops++ < 2) {
      in.stops[stops - 1] = static_cast<char>(byte);
    }
  }
  if (stops == 1) in.stops[1] = in.stops[0];
  in.few_stops = stops == 1 || stops == 2;
}

constexpr std::array<row, count> Spread() {
  std::array<row, count> spread{};
  std::array<std::array<bool, 256>, count> told{};
  const auto tell = [&](const line& from, std::size_t byte) {
    const auto state = static_cast<unsigned char>(from.from);
    if (std::exchange(told[state][byte], true)) return;
    spread[state].transitions[byte] = {from.to, from.push, from.does};
  };
  for (const line& each : kLines) {
    for (const char byte : each.bytes) tell(each, static_cast<unsigned char>(byte));
    for (std::size_t byte = 0; each.bytes == kElse && byte < 256; ++byte) tell(each, byte);
  }
  for (std::size_t state = 0; state < count; ++state) FindRun(spread[state], static_cast<std::int8_t>(state));
  return spread;
}

}  // namespace

constinit const std::array<row, count> rows = Spread();

}  // namespace ovk::xml::states
