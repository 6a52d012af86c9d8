// Bytes as a document: the fast path of the reader does what its state table does, in one piece and in
// several, and what was read comes back from the writer.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "OvkLib/src/ovk_xml.h"
#include "OvkLib/src/ovk_xml_reader.h"
#include "tests/OvkLib/xml_trees.h"

namespace {

using ovk::xml::element;
using ovk::xml::observer;
using ovk::xml::parser;
using ovk::xml::tree_builder;

void Require(bool holds) {
  if (!holds) std::abort();
}

void CompareCalls(std::string_view document) {
  xml_trees::Recorder walked;
  parser<observer> walking(walked);
  xml_trees::Walk(walking, document);

  xml_trees::Recorder ran;
  parser<observer> running(ran);
  const size_t half = document.size() / 2;
  running.run(document.substr(0, half));
  running.run(document.substr(half));
  Require(ran.told == walked.told);
  Require(xml_trees::Remembered(running) == xml_trees::Remembered(walking));
}

void CompareTrees(std::string_view document) {
  tree_builder walked;
  observer& stranger = walked;
  parser<observer> walking(stranger);
  xml_trees::Walk(walking, document);

  tree_builder ran;
  parser<tree_builder> running(ran);
  running.run(document);
  Require(running.state == walking.state);
  Require(ran.open.count() == walked.open.count());
  Require((ran.root == nullptr) == (walked.root == nullptr));
  if (ran.root != nullptr) Require(xml_trees::SameTree(*ran.root, *walked.root));
}

// The one text that does not come back as it was: the writer lets it through as a CDATA section.
bool HoldsCdataMark(const element& tree) {
  if (tree.text.view().starts_with("<![CDATA[")) return true;
  for (const auto& child : tree.children) {
    if (HoldsCdataMark(*child)) return true;
  }
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view document(reinterpret_cast<const char*>(data), size);
  CompareCalls(document);
  CompareTrees(document);

  auto tree = xml_trees::Parsed(document);
  if (!tree) return 0;
  ovk::xml::trim(*tree);
  const element copy = *tree;
  Require(xml_trees::SameTree(copy, *tree));
  auto again = xml_trees::Parsed(xml_trees::Serialized(*tree));
  if (HoldsCdataMark(*tree)) return 0;
  Require(again.has_value());
  ovk::xml::trim(*again);
  Require(xml_trees::SameTree(*again, *tree));
  return 0;
}
