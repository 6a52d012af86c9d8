#include "OvkLib/src/ovk_xml_reader.h"

#include <bit>
#include <cstring>
#include <optional>
#include <type_traits>
#include <utility>

namespace ovk::xml {

namespace {

using namespace states;

// Up to here a walk through the attributes is faster than keeping an index of them.
constexpr int32_t kFewAttributes = 16;

const row& RowOf(int32_t state) {
  return rows[static_cast<size_t>(state)];
}

// The position of the first `a` or `b`, from the first byte of the word at the lowest address.
inline const char* FindEither(char a, char b, const char* const begin, const char* const end) {
  constexpr uint64_t kOnes = 0x0101010101010101;
  constexpr uint64_t kTops = 0x8080808080808080;
  const char* at = begin;
  if constexpr (std::endian::native == std::endian::little) {
    const uint64_t all_a = kOnes * static_cast<unsigned char>(a);
    const uint64_t all_b = kOnes * static_cast<unsigned char>(b);
    for (; end - at >= 8; at += 8) {
      uint64_t word;
      std::memcpy(&word, at, sizeof(word));
      const uint64_t from_a = word ^ all_a;
      const uint64_t from_b = word ^ all_b;
      // The lowest top bit that is set stands for the first zero byte of either; those above it may be wrong.
      const uint64_t zeros = (((from_a - kOnes) & ~from_a) | ((from_b - kOnes) & ~from_b)) & kTops;
      if (zeros != 0) return at + (std::countr_zero(zeros) >> 3);
    }
  }
  while (at != end && *at != a && *at != b) ++at;
  return at;
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

std::string_view Between(const char* begin, const char* end) {
  return {begin, static_cast<size_t>(end - begin)};
}

// Behind the bytes from `at` on that prolong the state of the row.
const char* EndOfRun(const row& of, const char* at, const char* const end) {
  if (of.few_stops) return FindEither(of.stops[0], of.stops[1], at, end);
  while (at != end && of[*at].prolongs) ++at;
  return at;
}

const char* EndOfName(const char* at, const char* const end) {
  while (at != end && RowOf(attribute_name)[*at].prolongs) ++at;
  return at;
}

bool IsNameStart(char c) {
  return RowOf(end_open)[c].to == end_name;
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

bool tree_builder::on_start_tag(const ovk::string& name) {
  return add_element(name.view());
}
bool tree_builder::on_end_tag(const ovk::string& name) {
  return end_element(name.view());
}
bool tree_builder::on_char(char c) {
  return add_text({&c, 1});
}

bool tree_builder::on_attribute(const ovk::string& name, const ovk::string& value) {
  return add_attribute(name.view(), value.view());
}

bool tree_builder::on_close_empty() {
  if (root != nullptr || open.empty()) return false;
  forget_places();
  std::unique_ptr<element> closed = std::move(open.back());
  open.pop_back();
  if (open.empty()) {
    root = std::move(closed);
  } else {
    auto& siblings = open.back()->children;
    siblings.make_room(nodes_);
    siblings.push_back(std::move(closed));
  }
  return true;
}

void tree_builder::reset() {
  forget_places();
  root.reset();
  open.clear();
}

bool tree_builder::add_element(std::string_view name) {
  forget_places();
  open.emplace_back(new (nodes_) element(name, nodes_));
  return true;
}

bool tree_builder::end_element(std::string_view name) {
  if (open.empty() || open.back()->name != name) return false;
  return on_close_empty();
}

bool tree_builder::add_attribute(std::string_view name, std::string_view value) {
  if (open.empty()) return false;
  auto& attributes = open.back()->attributes;
  if (const int32_t place = find_in_top(name); place >= 0) [[unlikely]] {
    attributes[place].value = ovk::string(value, nodes_);
  } else {
    attributes.make_room(nodes_);
    attributes.emplace_back(name, value, nodes_);
  }
  return true;
}

bool tree_builder::add_text(std::string_view text) {
  if (open.empty()) return false;
  open.back()->text.append(text, nodes_);
  return true;
}

int32_t tree_builder::find_in_top(std::string_view name) {
  const auto& attributes = open.back()->attributes;
  if (attributes.count() >= kFewAttributes) [[unlikely]]
    return find_among_many(name);
  for (int32_t i = 0; i < attributes.count(); ++i) {
    if (attributes[i].name == name) return i;
  }
  return -1;
}

int32_t tree_builder::find_among_many(std::string_view name) {
  const auto& attributes = open.back()->attributes;
  for (auto i = static_cast<int32_t>(places_.size()); i < attributes.count(); ++i) {
    places_.emplace(attributes[i].name.view(), i);
  }
  const auto found = places_.find(name);
  return found == places_.end() ? -1 : found->second;
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
  const transition next = RowOf(state)[byte];
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
    const char* const begin = next;
    if (state == content) {
      next = take_tag(next, end);
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
      return;
  }
}

// A whole tag in `content`, as nearly all are written. Takes nothing if there is something else, or not all
// of it.
template <class Receiver>
const char* parser<Receiver>::take_tag(const char* const begin, const char* const end) {
  if (end - begin < 3 || *begin != '<') return begin;
  const bool opens = begin[1] != '/';
  const char* const tag = begin + (opens ? 1 : 2);
  const char* const tag_end = EndOfName(tag, end);
  if (tag_end == end || !IsNameStart(*tag)) return begin;
  if (!opens) {
    if (*tag_end != '>') return begin;
    state = pop();
    fail_unless(state != error && pass_end_tag(Between(tag, tag_end)));
    return tag_end + 1;
  }
  if (*tag_end != ' ' && *tag_end != '>') return begin;
  stack.push_back(content);
  pass_start_tag(Between(tag, tag_end));
  if (*tag_end == '>') return tag_end + 1;
  state = between_attributes;
  const char* const next = take_attributes(tag_end + 1, end);
  if (end - next < 2 || state == error || next[0] != '/' || next[1] != '>') return next;
  state = pop();
  fail_unless(observer.on_close_empty());
  return next + 2;
}

// Attributes as nearly all are written, from between_attributes to between_attributes: a blank, the name,
// "=", the value. Stops before the first that is written otherwise, holds a reference or is cut off.
template <class Receiver>
const char* parser<Receiver>::take_attributes(const char* next, const char* const end) {
  while (state != error) {
    const char* const begin = next + (next != end && *next == ' ' ? 1 : 0);
    const char* const equals = EndOfName(begin, end);
    if (end - equals < 2 || *equals != '=' || !IsNameStart(*begin)) break;
    const char quote = equals[1];
    if (quote != '\'' && quote != '"') break;
    const char* const text = equals + 2;
    const char* const text_end = FindEither(quote, '&', text, end);
    if (text_end == end || *text_end != quote) break;
    fail_unless(pass_attribute(Between(begin, equals), Between(text, text_end)));
    next = text_end + 1;
  }
  return next;
}

template <class Receiver>
bool parser<Receiver>::pass_attribute(std::string_view attributeName, std::string_view attributeValue) {
  if constexpr (std::is_same_v<Receiver, tree_builder>) {
    return observer.add_attribute(attributeName, attributeValue);
  } else {
    name.append(attributeName);
    value.append(attributeValue);
    const bool accepted = observer.on_attribute(name, value);
    name.clear();
    value.clear();
    return accepted;
  }
}

template <class Receiver>
void parser<Receiver>::pass_start_tag(std::string_view tag) {
  if constexpr (std::is_same_v<Receiver, tree_builder>) {
    observer.add_element(tag);
  } else {
    name.append(tag);
    observer.on_start_tag(name);
    name.clear();
  }
}
template <class Receiver>
bool parser<Receiver>::pass_end_tag(std::string_view tag) {
  if constexpr (std::is_same_v<Receiver, tree_builder>) {
    return observer.end_element(tag);
  } else {
    name.append(tag);
    const bool accepted = observer.on_end_tag(name);
    name.clear();
    return accepted;
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
