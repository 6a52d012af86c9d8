#include "OvkLib/src/ovk_xml_reader.h"

#include <optional>
#include <utility>

#include "OvkLib/src/ovk_scan.h"

namespace ovk::xml {

namespace {

using namespace states;

const row& RowOf(std::int32_t state) {
  return rows[static_cast<std::size_t>(state)];
}

// UTF-8 without a look at the range: the number is the document's affair.
void AppendUtf8(ovk::string& to, std::uint32_t code) {
  const auto put = [&to](std::uint32_t byte) { to.push_back(static_cast<char>(byte)); };
  const auto put_tail = [&](std::uint32_t shift) { put(0x80 | (code >> shift & 0x3F)); };
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

std::uint32_t DigitValue(char digit) {
  if (digit <= '9') return static_cast<std::uint32_t>(digit - '0');
  return static_cast<std::uint32_t>((digit | 0x20) - 'a' + 10);
}

// The number of a numeric reference, as far as it can be told: like ParseUnsigned, it misses an overflow that
// does not wrap below the value so far.
std::optional<std::uint32_t> NumberOf(std::string_view reference) {
  const bool hexadecimal = reference[2] == 'x';
  const std::uint32_t radix = hexadecimal ? 16 : 10;
  std::uint32_t number = 0;
  for (const char digit : reference.substr(hexadecimal ? 3 : 2)) {
    if (digit == ';') break;
    const std::uint32_t longer = number * radix + DigitValue(digit);
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

std::string_view Between(const char* begin, const char* end) {
  return {begin, static_cast<std::size_t>(end - begin)};
}

// Where the bytes from `at` on end that prolong the state of the row.
const char* EndOfRun(const row& of, const char* at, const char* const end) {
  if (of.few_stops) return find_either(of.stops[0], of.stops[1], at, end);
  while (at != end && of.prolongs[static_cast<unsigned char>(*at)]) ++at;
  return at;
}

const char* EndOfName(const char* at, const char* const end) {
  const auto& prolongs = RowOf(attribute_name).prolongs;
  while (at != end && prolongs[static_cast<unsigned char>(*at)]) ++at;
  return at;
}

bool IsNameStart(char c) {
  return RowOf(end_open)[c].to == end_name;
}

// What the parser has found in the document, told to an observer in strings and byte by byte, and to the tree
// builder as it stands there.

void PassStartTag(observer& to, std::string_view name) {
  to.on_start_tag(ovk::string(name));
}
void PassStartTag(tree_builder& to, std::string_view name) {
  to.add_element(name);
}

bool PassEndTag(observer& to, std::string_view name) {
  return to.on_end_tag(ovk::string(name));
}
bool PassEndTag(tree_builder& to, std::string_view name) {
  return to.end_element(name);
}

bool PassAttribute(observer& to, std::string_view name, std::string_view value) {
  return to.on_attribute(ovk::string(name), ovk::string(value));
}
bool PassAttribute(tree_builder& to, std::string_view name, std::string_view value) {
  return to.add_attribute(name, value);
}

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
bool observer::resolve_char(std::uint32_t, ovk::string&) {
  return false;
}

template <class Receiver>
parser<Receiver>::parser(Receiver& receiver) : observer(receiver) {
  stack.push_back(done);
}

template <class Receiver>
std::int32_t parser<Receiver>::pop() {
  if (stack.empty()) return error;
  const std::int32_t top = stack.back();
  stack.pop_back();
  return top;
}

template <class Receiver>
void parser<Receiver>::step(char byte) {
  const transition next = RowOf(state)[byte];
  if (next.push != error) stack.push_back(next.push);
  state = next.to == popped ? pop() : next.to;
  switch (next.does) {
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
    default:
      take_run(next.does, {&byte, 1});
  }
}

template <class Receiver>
void parser<Receiver>::run(std::string_view data) {
  const char* next = data.data();
  const char* const end = next + data.size();
  while (next != end && !stopped()) {
    const char* const begin = next;
    if (state == content) {
      next = take_content(next, end);
    } else if (state == between_attributes) {
      next = take_attributes(next, end);
    }
    if (next != begin) continue;
    const row& here = RowOf(state);
    next = EndOfRun(here, begin, end);
    if (next != begin) {
      take_run(here.run, Between(begin, next));
    } else {
      step(*next++);
    }
  }
}

template <class Receiver>
void parser<Receiver>::take_run(action does, std::string_view bytes) {
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
      return;  // dropped
  }
}

// Text and whole tags as nearly all are written, from `content` to `content`. Stops before the first that is
// written otherwise, before a reference, and before what is cut off.
template <class Receiver>
const char* parser<Receiver>::take_content(const char* next, const char* const end) {
  while (state == content) {
    const char* const tag = find_either('<', '&', next, end);
    if (tag != next) fail_unless(PassText(observer, Between(next, tag)));
    if (state == error || end - tag < 3 || *tag == '&') return tag;
    next = tag[1] == '/' ? take_end_tag(tag, end) : take_start_tag(tag, end);
    if (next == tag) break;
  }
  return next;
}

template <class Receiver>
const char* parser<Receiver>::take_start_tag(const char* const tag, const char* const end) {
  const char* const begin = tag + 1;
  const char* const name_end = EndOfName(begin, end);
  if (name_end == end || (*name_end != ' ' && *name_end != '>') || !IsNameStart(*begin)) return tag;
  stack.push_back(content);
  PassStartTag(observer, Between(begin, name_end));
  if (*name_end == '>') return name_end + 1;

  state = between_attributes;
  const char* const next = take_attributes(name_end + 1, end);
  if (state == error || end - next < 2 || next[0] != '/' || next[1] != '>') return next;
  state = pop();
  fail_unless(observer.on_close_empty());
  return next + 2;
}

template <class Receiver>
const char* parser<Receiver>::take_end_tag(const char* const tag, const char* const end) {
  const char* const begin = tag + 2;
  const char* const name_end = EndOfName(begin, end);
  if (name_end == end || *name_end != '>' || !IsNameStart(*begin)) return tag;
  state = pop();
  fail_unless(state != error && PassEndTag(observer, Between(begin, name_end)));
  return name_end + 1;
}

// Attributes as nearly all are written, from between_attributes to between_attributes: a blank, the name,
// "=", the value. Stops before the first that is written otherwise, holds a reference or is cut off.
template <class Receiver>
const char* parser<Receiver>::take_attributes(const char* next, const char* const end) {
  while (end - next > 4) {
    const char* const begin = *next == ' ' ? next + 1 : next;
    if (!IsNameStart(*begin)) break;
    const char* const equals = EndOfName(begin + 1, end);
    if (end - equals < 2 || *equals != '=') break;
    const char quote = equals[1];
    if (quote != '\'' && quote != '"') break;
    const char* const text = equals + 2;
    const char* const text_end = find_either(quote, '&', text, end);
    if (text_end == end || *text_end != quote) break;
    next = text_end + 1;
    if (!PassAttribute(observer, Between(begin, equals), Between(text, text_end))) {
      state = error;
      break;
    }
  }
  return next;
}

template <class Receiver>
void parser<Receiver>::start_reference(ovk::string& to) {
  entity.push_back('&');
  target = &to;
}

template <class Receiver>
void parser<Receiver>::end_reference(std::string_view replacement) {
  if (target != nullptr) target->append(replacement);
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
  const std::optional<std::uint32_t> code = NumberOf(entity.view());
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

reading read(element& root, std::string_view document) {
  // How far the tree may go past its limit before that is seen is sixty times this.
  constexpr std::size_t kPiece = std::size_t{128} * 1024;
  tree_builder builder;
  parser<tree_builder> reader(builder);
  for (std::size_t at = 0; at < document.size() && !reader.stopped(); at += kPiece) {
    reader.run(document.substr(at, kPiece));
    if (builder.bytes() > kMostTreeBytes) return reading::too_large;
  }
  if (reader.state == states::error || builder.root == nullptr) return reading::malformed;
  root.swap(*builder.root);
  return reading::well_formed;
}

bool parse(element& root, const char* data, std::size_t length) {
  return read(root, {data, length}) == reading::well_formed;
}

}  // namespace ovk::xml
