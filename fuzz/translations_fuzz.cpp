// Bytes as a translations document, as the second one and as an exchange file: whatever they are, the store
// works on them, and an exchange file that is exported, loaded and exported again settles.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "localisation/translation_store.h"
#include "tests/OvkLib/xml_trees.h"

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

std::string Exported(TranslationStore& store) {
  return xml_trees::Serialized(store.ExportTranslation());
}

// In every language, and through the translators' tools.
void UseEverything(TranslationStore& store) {
  Require(store.Translate("Undo") == "Undo");
  for (const auto& language : store.GetLanguages().children) {
    store.SetLanguage(language->attribute_or_empty("id").view());
    const std::string text = store.Translate("Undo");
    Require(store.Translate("Undo") == text);
  }
  ovk::xml::element copy = store.CopyTree();
  Require(xml_trees::SameTree(copy, store.CopyTree()));
  RemoveLanguage(copy, "de");
  const std::string plain = xml_trees::Serialized(copy);
  EscapeLineBreaks(copy);
  UnescapeLineBreaks(copy);
  // Escaping comes back exactly, but for a text that holds the letters of an escape beside a line break.
  if (plain.find('\\') == plain.npos) Require(xml_trees::Serialized(copy) == plain);
}

// Exports the language in use, loads that as the test language and makes it the one in use.
std::string ExportAndLoad(TranslationStore& store) {
  std::string bytes = Exported(store);
  Require(store.LoadTranslation(bytes, "test", "Test Translation"));
  store.SetLanguage("test");
  return bytes;
}

void ExpectSettledExchange(TranslationStore& store) {
  // The writer lets such a text through as a CDATA section.
  if (Exported(store).find("><![CDATA[") != std::string::npos) return;
  // The first round takes blanks from the ends of keys that stand in for texts, the second records the empty
  // key for entries without any.
  ExportAndLoad(store);
  ExportAndLoad(store);
  const std::string settled = ExportAndLoad(store);
  Require(Exported(store) == settled);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  TranslationStore store(bytes);
  UseEverything(store);
  // Texts end at a zero byte, and keys are sorted up to it only.
  if (bytes.find('\0') == bytes.npos && bytes.find("&#") == bytes.npos) ExpectSettledExchange(store);

  TranslationStore exchange(
      "<l><languages><language id='de'/></languages><strings><string id='Undo'><de>Zur</de></string>"
      "<string id='a\\r\\nb'/><string id='not_found'/></strings></l>");
  if (exchange.LoadTranslation(bytes, "de", "Deutsch"))
    Require(exchange.GetLanguages().children.count() == 1);
  UseEverything(exchange);

  TranslationStore two(
      "<l><languages><language id='de'/></languages><strings><string id='Undo'><de>Zur</de></string>"
      "</strings></l>",
      bytes);
  Require(two.GetLanguages().children.count() == 1);
  Require(two.CopyDocuments().document.child("strings").children.count() == 1);
  UseEverything(two);
  return 0;
}
