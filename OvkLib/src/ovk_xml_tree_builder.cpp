#include <utility>

#include "OvkLib/src/ovk_xml_reader.h"

namespace ovk::xml {

namespace {

// Up to here a walk through the attributes is faster than keeping an index of them.
constexpr int32_t kFewAttributes = 16;

}  // namespace

bool tree_builder::on_start_tag(const ovk::string& name) {
  if (!places_.empty()) places_.clear();
  open.emplace_back(std::make_unique<element>())->name = name;
  return true;
}

bool tree_builder::on_close_empty() {
  if (root != nullptr || open.empty()) return false;
  if (!places_.empty()) places_.clear();
  std::unique_ptr<element> closed = std::move(open.back());
  open.pop_back();
  if (open.empty()) {
    root = std::move(closed);
  } else {
    open.back()->children.push_back(std::move(closed));
  }
  return true;
}

bool tree_builder::on_end_tag(const ovk::string& name) {
  if (open.empty() || !(open.back()->name == name)) return false;
  return on_close_empty();
}

bool tree_builder::on_attribute(const ovk::string& name, const ovk::string& value) {
  if (open.empty()) return false;
  attribute_of_top(name.view()).value = value;
  return true;
}

bool tree_builder::on_char(char c) {
  if (open.empty()) return false;
  open.back()->text.push_back(c);
  return true;
}

void tree_builder::reset() {
  places_.clear();
  root.reset();
  open.clear();
}

bool tree_builder::add_attribute(std::string_view name, std::string_view value) {
  if (open.empty()) return false;
  attribute_of_top(name).value.assign(value.data(), static_cast<int32_t>(value.size()));
  return true;
}

bool tree_builder::add_text(std::string_view text) {
  if (open.empty()) return false;
  open.back()->text.append(text);
  return true;
}

attribute& tree_builder::attribute_of_top(std::string_view name) {
  element& top = *open.back();
  const int32_t place =
      top.attributes.count() < kFewAttributes ? top.find_attribute(name) : find_among_many(name);
  if (place >= 0) return top.attributes[place];
  attribute& added = top.attributes.emplace_back();
  added.name.append(name);
  return added;
}

int32_t tree_builder::find_among_many(std::string_view name) {
  const auto& attributes = open.back()->attributes;
  for (auto i = static_cast<int32_t>(places_.size()); i < attributes.count(); ++i) {
    places_.emplace(attributes[i].name.view(), i);
  }
  const auto found = places_.find(name);
  return found == places_.end() ? -1 : found->second;
}

}  // namespace ovk::xml
