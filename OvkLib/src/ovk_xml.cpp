#include "OvkLib/src/ovk_xml.h"

#include <limits>
#include <utility>

#include "OvkLib/src/ovk_text.h"

namespace ovk::xml {

namespace {

// What one element holds, without its children.
void CopyFlat(element& to, const element& from) {
  to.name = from.name;
  to.text = from.text;
  to.attributes = from.attributes;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// The six of isspace in the "C" locale. isspace itself would follow the process's locale, and some of them
// count bytes of UTF-8 texts as blanks.
bool IsSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

void TrimText(ovk::string& text) {
  const std::string_view all = text.view();
  std::size_t begin = 0;
  std::size_t end = all.size();
  while (end > begin && IsSpace(all[end - 1])) --end;
  while (begin < end && IsSpace(all[begin])) ++begin;
  if (begin == end) {
    text.clear();
  } else if (end - begin < all.size()) {
    text.resize(static_cast<std::int32_t>(end), '\0');
    text.erase(0, static_cast<std::int32_t>(begin));
  }
}

}  // namespace

element::element(const element& other) {
  struct pair {
    element* to;
    const element* from;
  };
  array<pair> pending;
  pending.push_back({this, &other});
  while (!pending.empty()) {
    const pair next = pending.back();
    pending.pop_back();
    CopyFlat(*next.to, *next.from);
    next.to->children.reserve(next.from->children.count());
    for (const auto& from : next.from->children) {
      next.to->children.push_back(std::make_unique<element>());
      pending.push_back({next.to->children.back().get(), from.get()});
    }
  }
}

// A destructor can neither recurse, since the depth is up to the document, nor ask for memory, since it
// cannot fail. So the way back up is kept in the place that the child on the way down has left empty in its
// parent.
element::~element() {
  element* node = this;
  element* parent = nullptr;
  while (true) {
    if (!node->children.empty()) {
      element* last = node->children.back().release();
      node->children.back().reset(parent);
      parent = std::exchange(node, last);
    } else if (parent != nullptr) {
      delete node;  // childless by now
      node = parent;
      parent = node->children.back().release();
      node->children.pop_back();
    } else {
      return;
    }
  }
}

void element::swap(element& other) noexcept {
  name.swap(other.name);
  text.swap(other.text);
  children.swap(other.children);
  attributes.swap(other.attributes);
}

const ovk::string& element::attribute_or_empty(std::string_view attributeName) const noexcept {
  static const ovk::string empty;
  const std::int32_t index = find_attribute(attributeName);
  return index < 0 ? empty : attributes[index].value;
}

xml::attribute& element::attribute(std::string_view attributeName) {
  const std::int32_t index = find_attribute(attributeName);
  if (index >= 0) return attributes[index];
  return attributes.emplace_back(attributeName);
}

std::int32_t element::get_int(std::string_view attributeName) const noexcept {
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  constexpr std::uint32_t kMagnitudeOfLeast = 2147483648;
  const std::string_view value = attribute_or_empty(attributeName).view();

  if (value.size() >= 2 && value[0] == '-' && IsDigit(value[1])) {
    const auto number = ParseUnsigned(value, 1, value.size() - 1);
    if (number.overflow || number.value >= kMagnitudeOfLeast) return kLeast;
    return -static_cast<std::int32_t>(number.value);
  }
  const auto number = ParseUnsigned(value, 0, value.size());
  if (number.overflow || number.value >= kMagnitudeOfLeast) return kMost;
  return static_cast<std::int32_t>(number.value);
}

std::int32_t element::find_next_child(std::string_view tag, std::int32_t after) const noexcept {
  for (std::int32_t i = after + 1; i < children.count(); ++i) {
    if (children[i]->name == tag) return i;
  }
  return -1;
}

element& element::child(std::string_view tag) {
  const std::int32_t index = find_next_child(tag, -1);
  return index < 0 ? append_child(tag) : *children[index];
}

element* element::find_child_by_id(std::string_view tag, std::string_view id) noexcept {
  return const_cast<element*>(std::as_const(*this).find_child_by_id(tag, id));
}

const element* element::find_child_by_id(std::string_view tag, std::string_view id) const noexcept {
  for (const auto& child : children) {
    if (!(child->name == tag)) continue;
    const std::int32_t index = child->find_attribute("id");
    if (index >= 0 && child->attributes[index].value == id) return child.get();
  }
  return nullptr;
}

element& element::add_child(element&& detached) {
  return *children.emplace_back(std::make_unique<element>(std::move(detached)));
}

element& element::append_child(std::string_view tag) {
  return *children.emplace_back(std::make_unique<element>(tag));
}

void trim(element& root) {
  array<element*> pending;
  pending.push_back(&root);
  while (!pending.empty()) {
    element* next = pending.back();
    pending.pop_back();
    TrimText(next->text);
    for (const auto& child : next->children) pending.push_back(child.get());
  }
}

}  // namespace ovk::xml
