#pragma once

// A store with few words, and a look at what is in its tree.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "OvkLib/src/ovk_xml.h"
#include "common/files.h"
#include "localisation/translation_store.h"
#include "tests/OvkLib/xml_trees.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

class Translations : public testing::Test {
 protected:
  /// German has "Step {1}" and "Undo", Slovak has "Undo".
  static constexpr char kFewWords[] = R"(<localisation>
  <languages>
    <language id='de' name='Deutsch'/>
    <language id='sk' name='Slovak' author='Lumarine team'/>
  </languages>
  <strings>
    <string id='Step {1}'><de>Schritt {1}</de></string>
    <string id='Undo'><de>Rückgängig</de><sk>Späť</sk></string>
    <string id='Redo'/>
  </strings>
</localisation>)";

  void GivenDocument(std::string_view document) { store.emplace(document); }
  /// A document with German and these entries.
  void GivenStrings(const std::string& strings) {
    GivenDocument("<localisation><languages><language id='de' name='Deutsch'/></languages><strings>" +
                  strings + "</strings></localisation>");
  }
  void GivenGerman(const std::string& strings) {
    GivenStrings(strings);
    store->SetLanguage("de");
  }

  std::string Tree() const { return xml_trees::Serialized(store->CopyTree()); }
  /// The entry of a key as it stands in the tree: "<string id='Undo'/>"; nothing if there is none.
  std::string Entry(std::string_view key) const {
    ovk::xml::element tree = store->CopyTree();
    const ovk::xml::element* entry = tree.child("strings").find_child_by_id("string", key);
    if (entry == nullptr) return "";
    std::string text;
    for (const char c : xml_trees::Serialized(*entry, -100)) {
      if (c != '\r' && c != '\n') text += c;
    }
    return text;
  }
  int Entries() const { return store->CopyTree().child("strings").children.count(); }
  std::vector<std::string> LanguageIds() {
    std::vector<std::string> ids;
    for (const auto& language : store->GetLanguages().children) {
      ids.emplace_back(language->attribute_or_empty("id").view());
    }
    return ids;
  }

  std::filesystem::path File(std::string_view bytes, const std::string& name = "exchange.xml") const {
    return FileWith(folder / name, bytes);
  }
  /// What an export writes now.
  std::string Exported() {
    EXPECT_TRUE(store->ExportTranslationFile(folder / "exported.xml"));
    return BytesOf(folder / "exported.xml");
  }

  const TemporaryFolder folder;
  std::optional<TranslationStore> store{std::in_place, kFewWords};
};
