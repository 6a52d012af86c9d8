#include "OvkLib/src/ovk_xml_reader.h"

#include <array>
#include <optional>
#include <utility>

namespace ovk::xml {

namespace {

// What a transition does with its byte, besides going to the next state.
enum action : uint8_t {
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

// One line of the table: in the state `from`, each of `bytes` leads to the state `to`, by `does`; `push`, if
// there is one, goes on the stack. The first line that fits counts. What no line has leads to `error`.
struct line {
  int32_t from;
  std::string_view bytes;
  int32_t to;
  action does = kGo;
  int32_t push = states::error;
};

constexpr std::string_view kElse = "";
constexpr std::string_view kNameByte = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_:0123456789-.";
constexpr std::string_view kNameStart = kNameByte.substr(0, kNameByte.find('0'));
constexpr std::string_view kBlank = "\t\n\r ";
constexpr std::string_view kDigit = "0123456789";
constexpr std::string_view kHexDigit = "0123456789abcdefABCDEF";

using namespace states;

// As the state to go to: the one on top of the stack, which goes. An empty stack gives `error`.
constexpr int32_t popped = -1;

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

// The lines spread out: one transition for each state and byte.
struct transition {
  int8_t to = error;
  int8_t push = error;
  action does = kGo;
  // The state stays, and all that happens is that the byte is dropped, appended to something or passed: a run
  // of such bytes may be taken in one stroke.
  bool prolongs = false;

  friend constexpr bool operator==(const transition&, const transition&) = default;
};
using transition_row = std::array<transition, 256>;

constexpr transition Spread(const line& from) {
  const bool prolongs = from.to == from.from && from.push == error && from.does <= kText;
  return {static_cast<int8_t>(from.to), static_cast<int8_t>(from.push), from.does, prolongs};
}

constexpr std::array<transition_row, states::count> kTransitions = [] {
  std::array<transition_row, states::count> rows{};
  std::array<std::array<bool, 256>, states::count> told{};
  const auto tell = [&](const line& from, size_t byte) {
    const auto state = static_cast<size_t>(from.from);
    if (!std::exchange(told[state][byte], true)) rows[state][byte] = Spread(from);
  };
  for (const line& each : kLines) {
    for (const char byte : each.bytes) tell(each, static_cast<unsigned char>(byte));
    for (size_t byte = 0; each.bytes == kElse && byte < 256; ++byte) tell(each, byte);
  }
  return rows;
}();

const transition_row& RowOf(int32_t state) {
  return kTransitions[static_cast<size_t>(state)];
}
transition In(const transition_row& row, char byte) {
  return row[static_cast<unsigned char>(byte)];
}

// UTF-8 without a look at the range: the number is the document's affair.
void AppendUtf8(ovk::string& to, uint32_t code) {
  const auto put = [&to](uint32_t byte) { to.push_back(static_cast<char>(byte)); };
  const auto put_tail = [&](uint32_t shift) { put(0x80 | (code >> shift & 0x3F)); };
  if (code <= 127) {
    put(code);
  } else if (code <= 2047) {
    put(0xC0 | code >> 6);
    put_tail(0);
  } else if (code <= 65535) {
    put(0xE0 | code >> 12);
    put_tail(6);
    put_tail(0);
  } else {
    put(0xF0 | (code >> 18 & 7));
    put_tail(12);
    put_tail(6);
    put_tail(0);
  }
}

uint32_t DigitValue(char digit) {
  if (digit <= '9') return static_cast<uint32_t>(digit - '0');
  return static_cast<uint32_t>((digit | 0x20) - 'a' + 10);
}

// The number of a numeric reference, as far as it can be told: like ParseUnsigned, it misses an overflow that
// does not wrap below the value so far.
std::optional<uint32_t> NumberOf(std::string_view reference) {
  const bool hexadecimal = reference[2] == 'x';
  const uint32_t radix = hexadecimal ? 16 : 10;
  uint32_t number = 0;
  for (const char digit : reference.substr(hexadecimal ? 3 : 2)) {
    if (digit == ';') break;
    const uint32_t longer = number * radix + DigitValue(digit);
    if (longer < number) return std::nullopt;
    number = longer;
  }
  return number;
}

std::string_view PredefinedEntity(std::string_view reference) {
  if (reference == "&amp;") return "&";
  if (reference == "&apos;") return "'";
  if (reference == "&quot;") return "\"";
  if (reference == "&lt;") return "<";
  if (reference == "&gt;") return ">";
  return {};
}

// A run of character data: the tree builder takes it whole, anybody else byte by byte.
bool PassText(observer& to, std::string_view text) {
  for (const char c : text) {
    if (!to.on_char(c)) return false;
  }
  return true;
}

bool PassText(tree_builder& to, std::string_view text) {
  return to.add_text(text);
}

}  // namespace

bool observer::resolve_entity(const ovk::string&, ovk::string&) {
  return false;
}
bool observer::resolve_char(uint32_t, ovk::string&) {
  return false;
}

template <class Receiver>
parser<Receiver>::parser(Receiver& receiver) : observer(receiver) {
  stack.push_back(done);
}

template <class Receiver>
int32_t parser<Receiver>::pop() {
  if (stack.empty()) return error;
  const int32_t top = stack.back();
  stack.pop_back();
  return top;
}

template <class Receiver>
void parser<Receiver>::step(char byte) {
  const transition next = In(RowOf(state), byte);
  if (next.push != error) stack.push_back(next.push);
  state = next.to == popped ? pop() : next.to;
  switch (next.does) {
    case kGo:
      break;
    case kName:
      name.push_back(byte);
      break;
    case kValue:
      value.push_back(byte);
      break;
    case kEntity:
      entity.push_back(byte);
      break;
    case kText:
      fail_unless(observer.on_char(byte));
      break;
    case kHeldBrackets:
      observer.on_char(']');
      [[fallthrough]];
    case kHeldBracket:
      observer.on_char(']');
      observer.on_char(byte);
      break;
    case kStartTag:
      observer.on_start_tag(name);
      name.clear();
      break;
    case kCloseEmpty:
      if (state != error) fail_unless(observer.on_close_empty());
      break;
    case kEndTag:
      if (state != error) fail_unless(observer.on_end_tag(name));
      name.clear();
      break;
    case kAttribute:
      fail_unless(observer.on_attribute(name, value));
      name.clear();
      value.clear();
      break;
    case kDrop:
      pop();
      break;
    case kReferenceInName:
      start_reference(name);
      break;
    case kReferenceInValue:
      start_reference(value);
      break;
    case kFlush:
      end_reference(entity.view());
      step(byte);
      break;
    case kResolveName:
      entity.push_back(byte);
      resolve_name();
      break;
    case kResolveNumber:
      entity.push_back(byte);
      resolve_number();
      break;
    case kPassReference:
      fail_unless(PassText(observer, name.view()));
      name.clear();
      step(byte);
      break;
  }
}

template <class Receiver>
void parser<Receiver>::run(std::string_view data) {
  const char* next = data.data();
  const char* const end = next + data.size();
  while (next != end && !stopped()) {
    const transition_row& row = RowOf(state);
    const transition first = In(row, *next);
    if (!first.prolongs) {
      step(*next++);
      continue;
    }
    const char* const begin = next;
    do ++next;
    while (next != end && In(row, *next) == first);
    take_run(first.does, std::string_view(begin, static_cast<size_t>(next - begin)));
  }
}

template <class Receiver>
void parser<Receiver>::take_run(uint8_t does, std::string_view bytes) {
  switch (does) {
    case kName:
      return name.append(bytes);
    case kValue:
      return value.append(bytes);
    case kEntity:
      return entity.append(bytes);
    case kText:
      return fail_unless(PassText(observer, bytes));
    default:
      return;
  }
}

template <class Receiver>
void parser<Receiver>::start_reference(ovk::string& to) {
  entity.push_back('&');
  target = &to;
}

template <class Receiver>
void parser<Receiver>::end_reference(std::string_view replacement) {
  target->append(replacement);
  entity.clear();
  target = nullptr;
}

template <class Receiver>
void parser<Receiver>::resolve_name() {
  ovk::string replacement;
  if (observer.resolve_entity(entity, replacement)) return end_reference(replacement.view());
  const std::string_view predefined = PredefinedEntity(entity.view());
  end_reference(predefined.empty() ? entity.view() : predefined);
}

template <class Receiver>
void parser<Receiver>::resolve_number() {
  const std::optional<uint32_t> code = NumberOf(entity.view());
  if (!code) return end_reference(entity.view());
  ovk::string replacement;
  if (!observer.resolve_char(*code, replacement)) {
    replacement.clear();
    AppendUtf8(replacement, *code);
  }
  end_reference(replacement.view());
}

template class parser<observer>;
template class parser<tree_builder>;

bool parse(element& root, const char* data, size_t length) {
  tree_builder builder;
  parser<tree_builder> reader(builder);
  reader.run({data, length});
  if (reader.state == states::error || builder.root == nullptr) return false;
  root.swap(*builder.root);
  return true;
}

}  // namespace ovk::xml
