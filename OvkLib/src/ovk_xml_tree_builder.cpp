#include <utility>

#include "OvkLib/src/ovk_xml_reader.h"

namespace ovk::xml {

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
  if (open.count() == 1) {
    root = std::move(open.back());
  } else {
    auto& siblings = open[open.count() - 2]->children;
    siblings.make_room(nodes_);
    siblings.emplace_back(std::move(open.back()));
  }
  open.pop_back();
  return true;
}

void tree_builder::reset() {
  forget_places();
  root.reset();
  open.clear();
}

bool tree_builder::end_element(std::string_view name) {
  if (open.empty() || open.back()->name != name) return false;
  return on_close_empty();
}

std::int32_t tree_builder::find_among_many(std::string_view name) {
  const auto& attributes = open.back()->attributes;
  for (auto i = static_cast<std::int32_t>(places_.size()); i < attributes.count(); ++i) {
    places_.emplace(attributes[i].name.view(), i);
  }
  const auto found = places_.find(name);
  return found == places_.end() ? -1 : found->second;
}

}  // namespace ovk::xml
