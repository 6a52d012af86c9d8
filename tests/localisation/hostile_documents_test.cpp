// Documents and exchange files that nobody writes by accident. None may crash, and none may take a time that
// grows with the square of its size.

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "localisation/translation_store.h"
#include "tests/localisation/translations.h"

namespace {

// Deep enough that recursion would overflow any stack a test runs on.
constexpr int kDeep = 120'000;

std::string Repeated(std::string_view piece, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += piece;
  return all;
}

class HostileDocuments : public Translations {
 protected:
  // All that the store does, on whatever it was given.
  void UseEverything() {
    for (const std::string& id : LanguageIds()) {
      store->SetLanguage(id);
      store->Translate("Undo");
      store->Translate("Undo");
    }
    ovk::xml::element copy = store->CopyTree();
    RemoveLanguage(copy, "de");
    EscapeLineBreaks(copy);
    store->ExportTranslation();
    store->SetLanguage("en");
    EXPECT_EQ(store->Translate("Undo"), "Undo");
  }
};

TEST_F(HostileDocuments, OfAnyDepth) {
  const std::string deep = Repeated("<strings>\\n", kDeep) + Repeated("</strings>", kDeep);
  GivenDocument(deep);
  UseEverything();
  GivenDocument("<l><languages><language id='de'>" + deep +
                "</language></languages><strings><string id='Undo'><de>" + deep +
                "</de></string></strings></l>");
  UseEverything();
  EXPECT_TRUE(store->LoadTranslationFile(File(deep), "pl", "Polish"));
  EXPECT_FALSE(store->LoadTranslationFile(File(Repeated("<strings>", kDeep)), "pl", "Polish"));
}

TEST_F(HostileDocuments, OfAHundredThousandEntries) {
  std::string keys;
  std::string texts;
  for (int i = 0; i < 100'000; ++i) {
    const std::string id = std::to_string(i);
    keys += "<string id='" + id + "'/>";
    texts.append("<string id='")
        .append(id)
        .append("'><translate>t")
        .append(id)
        .append("</translate></string>");
  }
  GivenStrings(keys);
  // A walk through all keys for each entry would take minutes.
  ASSERT_TRUE(store->LoadTranslation("<strings>" + texts + "</strings>", "de", "Deutsch"));
  store->SetLanguage("de");
  EXPECT_EQ(store->Translate("99999"), "t99999");
}

// Elements without text have forty times their size in memory, and a file of nothing else would fill it.
TEST_F(HostileDocuments, OfMoreBytesThanAnExchangeFileMayHave) {
  constexpr std::size_t kMost = TranslationStore::kMostExchangeBytes;
  std::string bytes = "<strings>";
  while (bytes.size() + 4 + 10 <= kMost) bytes += "<a/>";
  bytes.append(kMost - 10 - bytes.size(), ' ');
  EXPECT_FALSE(store->LoadTranslationFile(File(bytes + " </strings>"), "pl", "Polish"));
  EXPECT_EQ(LanguageIds().size(), 2U);
  EXPECT_TRUE(store->LoadTranslationFile(File(bytes + "</strings>"), "pl", "Polish"));
  EXPECT_EQ(LanguageIds().size(), 3U);
}

TEST_F(HostileDocuments, WithOneLongText) {
  const std::string megabytes(8'000'000, '\\');
  GivenGerman("<string id='" + megabytes + "'><de>" + megabytes + "</de></string>");
  EXPECT_EQ(store->Translate(megabytes), megabytes);
  UseEverything();
}

TEST_F(HostileDocuments, OfOddShapes) {
  for (const char* document : {
           "<l>text<languages>text</languages>text<strings>text</strings></l>",
           "<l><languages/><languages><language id='de'/></languages><strings/><strings/></l>",
           "<l><strings><languages/></strings><languages><strings/></languages></l>",
           "<l><languages><language "
           "id=''/><language/></languages><strings><string><de/></string></strings></l>",
           "<l><languages><language id='en' name='en'/></languages></l>",
           "<l><languages id='&#0;&#x;&#xFFFFFFFF;'><language id='&#0;'/></languages></l>",
           "<l><languages><language id='de'/></languages><strings><string id='Undo'><de><![CDATA[<de>]]></de>"
           "</string></strings></l>",
           "<l><languages><language id='de'/></languages><strings><string "
           "id='\xFF\xC3'><de>\xFE</de></string>"
           "</strings></l>",
       }) {
    GivenDocument(document);
    UseEverything();
  }
}

// Any answer will do, as long as there is one.
TEST_F(HostileDocuments, WithAnyByteFlipped) {
  store->SetLanguage("de");
  const std::string exchange = Exported();
  for (const std::string& good : {std::string(kFewWords), exchange}) {
    for (size_t at = 0; at < good.size(); ++at) {
      for (const int mask : {0x01, 0x10, 0x80, 0xFF}) {
        std::string bad = good;
        bad[at] = static_cast<char>(bad[at] ^ mask);
        GivenDocument(bad);
        store->LoadTranslation(bad, "pl", "Polish");
        UseEverything();
      }
    }
  }
}

// A document and an exchange file with some bytes changed.
TEST_F(HostileDocuments, WithBytesChanged) {
  std::mt19937 random(3);
  const std::string exchange =
      "<strings><string id='Undo'><translate>Zurück</translate></string><string id='Step "
      "{1}'><translate>\\r\\n"
      "{1}</translate></string></strings>";
  using namespace std::string_view_literals;
  constexpr auto kBytes = "<>/'\"=&;\\rn !-[]?\0\xFF"sv;
  for (int i = 0; i < 300; ++i) {
    for (const std::string& good : {std::string(kFewWords), exchange}) {
      std::string bad = good;
      for (auto change = random() % 3 + 1; change > 0; --change) {
        bad[random() % bad.size()] = kBytes[random() % kBytes.size()];
      }
      GivenDocument(bad);
      store->LoadTranslation(bad, "pl", "Polish");
      UseEverything();
    }
  }
}

}  // namespace
