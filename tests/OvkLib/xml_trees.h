#pragma once

// What the tests and the fuzzer of the XML reader and writer have in common: short ways to read and write a
// text, to compare trees, and to follow what a parser does.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "OvkLib/src/ovk_xml.h"
#include "OvkLib/src/ovk_xml_reader.h"

namespace xml_trees {

/// n0, n1 and so on.
inline std::string Numbered(int number) {
  std::string name("n");
  name += std::to_string(number);
  return name;
}

inline std::optional<ovk::xml::element> Parsed(std::string_view document) {
  ovk::xml::element root;
  if (!ovk::xml::parse(root, document.data(), document.size())) return std::nullopt;
  return root;
}

inline std::string Serialized(const ovk::xml::element& root, int32_t indent = 0) {
  ovk::string out;
  ovk::xml::serialize(out, root, indent);
  return std::string(out.view());
}

/// Names, texts, attributes and children in their order. Trees may be of any depth.
inline bool SameTree(const ovk::xml::element& one, const ovk::xml::element& other) {
  std::vector<std::pair<const ovk::xml::element*, const ovk::xml::element*>> pending = {{&one, &other}};
  while (!pending.empty()) {
    const auto [a, b] = pending.back();
    pending.pop_back();
    if (a->name != b->name || a->text != b->text) return false;
    if (a->attributes.count() != b->attributes.count() || a->children.count() != b->children.count())
      return false;
    for (int32_t i = 0; i < a->attributes.count(); ++i) {
      if (a->attributes[i].name != b->attributes[i].name) return false;
      if (a->attributes[i].value != b->attributes[i].value) return false;
    }
    for (int32_t i = 0; i < a->children.count(); ++i) {
      pending.emplace_back(a->children[i].get(), b->children[i].get());
    }
  }
  return true;
}

/// Writes down what it is told, one line per call, and says false to the call of the number `refused`.
class Recorder : public ovk::xml::observer {
 public:
  explicit Recorder(int refused = -1) : refused_(refused) {}

  bool on_start_tag(const ovk::string& name) override { return Note("start", name.view()); }
  bool on_close_empty() override { return Note("close", ""); }
  bool on_end_tag(const ovk::string& name) override { return Note("end", name.view()); }
  bool on_attribute(const ovk::string& name, const ovk::string& value) override {
    return Note("attribute", std::string(name.view()) + "=" + std::string(value.view()));
  }
  bool on_char(char c) override { return Note("char", {&c, 1}); }

  std::string told;

 private:
  bool Note(std::string_view call, std::string_view of) {
    told.append(call).append(" ").append(of).append("\n");
    return refused_ < 0 || refused_-- != 0;
  }

  int refused_;
};

/// All that a parser remembers.
template <class Receiver>
std::string Remembered(const ovk::xml::parser<Receiver>& parser) {
  std::string all("state ");
  all.append(std::to_string(parser.state)).append(", stack");
  for (const int32_t state : parser.stack) all.append(" ").append(std::to_string(state));
  for (const ovk::string* text : {&parser.name, &parser.value, &parser.entity}) {
    all.append(", '").append(text->view()).append("'");
  }
  const char* target = parser.target == nullptr ? "none" : parser.target == &parser.name ? "name" : "value";
  return all + ", target " + target;
}

/// The state table's own way: byte by byte.
template <class Receiver>
void Walk(ovk::xml::parser<Receiver>& parser, std::string_view document) {
  for (const char byte : document) {
    if (parser.stopped()) return;
    parser.step(byte);
  }
}

}  // namespace xml_trees
