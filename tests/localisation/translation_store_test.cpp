// The store: how it begins, which language it speaks, and what a lookup answers and records.

#include "localisation/translation_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "common/message.h"
#include "tests/localisation/translations.h"

namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// How it begins.

TEST_F(Translations, BeginsWithEnglish) {
  EXPECT_EQ(store->GetLanguageId(), "en");
  EXPECT_EQ(store->Translate("Undo"), "Undo");
}

TEST_F(Translations, WithoutADocumentKnowsOnlyEnglish) {
  for (const std::string& document :
       {""s, "  \r\n"s, "no XML"s, "<localisation>"s, "<localisation></other>"s}) {
    GivenDocument(document);
    EXPECT_EQ(store->GetLanguageId(), "en");
    EXPECT_EQ(Tree(), "<localisation>\r\n  <languages/>\r\n</localisation>\r\n");
    EXPECT_THAT(LanguageIds(), IsEmpty());
    store->SetLanguage("de");
    EXPECT_EQ(store->Translate("Undo"), "Undo");
  }
}

TEST_F(Translations, StartingWithADocumentForgetsEverything) {
  store->SetLanguage("de");
  store->Translate("recorded");
  GivenStrings("<string id='Redo'/>");
  EXPECT_EQ(store->GetLanguageId(), "en");
  EXPECT_THAT(LanguageIds(), ElementsAre("de"));
  EXPECT_EQ(Entries(), 1);
}

TEST_F(Translations, WhatSurroundsTheDocumentDoesNotMatter) {
  GivenDocument("\xEF\xBB\xBF<?xml version='1.0'?><!-- texts -->"s + kFewWords + "<<<");
  store->SetLanguage("de");
  EXPECT_EQ(store->Translate("Step {1}"), "Schritt {1}");
}

// A document with a root of another name is as good as any.
TEST_F(Translations, TheNameOfTheRootIsNotLookedAt) {
  GivenDocument(
      "<texts><strings><string id='Undo'><de>Zurück</de></string></strings>"
      "<languages><language id='de'/></languages></texts>");
  store->SetLanguage("de");
  EXPECT_EQ(store->Translate("Undo"), "Zurück");
  EXPECT_EQ(store->CopyTree().name, "texts");
}

TEST_F(Translations, WhatTheDocumentLeavesOutIsCreatedOnDemand) {
  GivenDocument("<texts><languages><language id='de'/></languages></texts>");
  store->SetLanguage("de");
  EXPECT_EQ(store->Translate("Undo"), "Undo");
  EXPECT_EQ(Entry("Undo"), "<string id='Undo'/>");

  GivenDocument("<texts/>");
  EXPECT_THAT(LanguageIds(), IsEmpty());
  EXPECT_EQ(Tree(), "<texts>\r\n  <languages/>\r\n</texts>\r\n");
}

// It is kept for what it was meant for; the resource is the only source.
TEST_F(Translations, NothingOpensTheExternalFile) {
  EXPECT_EQ(store->externalFileName, u"LumarineStrings.xml");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  File("<localisation><languages><language id='pl'/></languages></localisation>", "LumarineStrings.xml");
  GivenDocument("");
  EXPECT_THAT(LanguageIds(), IsEmpty());
  std::filesystem::current_path(before);
}

// The language.

TEST_F(Translations, SetLanguageWithAnUnknownIdLeavesTheLanguageAsItWas) {
  store->SetLanguage("sk");
  for (const std::string& id : {"xx"s, ""s, "DE"s, "de "s, "d"s, "de\0"s, "en\0"s, "EN"s}) {
    store->SetLanguage(id);
    EXPECT_EQ(store->GetLanguageId(), "sk") << id;
  }
  store->SetLanguage("de");
  EXPECT_EQ(store->GetLanguageId(), "de");
}

TEST_F(Translations, SetLanguageWithEnglishAlwaysSucceeds) {
  store->SetLanguage("de");
  store->SetLanguage("en");
  EXPECT_EQ(store->GetLanguageId(), "en");
  EXPECT_EQ(store->Translate("Undo"), "Undo");

  GivenDocument("<localisation><languages/></localisation>");
  store->SetLanguage("en");
  EXPECT_EQ(store->GetLanguageId(), "en");
}

TEST_F(Translations, OnlyElementsNamedLanguageAreLanguages) {
  GivenDocument("<l><languages><other id='de'/><language name='sk'/><language id='it'/></languages></l>");
  for (const char* id : {"de", "sk", ""}) {
    store->SetLanguage(id);
    EXPECT_EQ(store->GetLanguageId(), "en") << id;
  }
  store->SetLanguage("it");
  EXPECT_EQ(store->GetLanguageId(), "it");
}

TEST_F(Translations, LanguagesComeInTheOrderOfTheDocumentWithAllThatIsToldOfThem) {
  EXPECT_THAT(LanguageIds(), ElementsAre("de", "sk"));
  const ovk::xml::element& slovak = *store->GetLanguages().children[1];
  EXPECT_EQ(slovak.attribute_or_empty("name"), "Slovak");
  EXPECT_EQ(slovak.attribute_or_empty("author"), "Lumarine team");
  EXPECT_EQ(store->GetLanguages().children[0]->find_attribute("author"), -1);
}

// Lookup.

TEST_F(Translations, ATranslationIsFoundByItsKey) {
  store->SetLanguage("de");
  EXPECT_EQ(store->Translate("Step {1}"), "Schritt {1}");
  EXPECT_EQ(store->Translate("Undo"), "Rückgängig");
  store->SetLanguage("sk");
  EXPECT_EQ(store->Translate("Undo"), "Späť");
}

// With English in use nothing is recorded, so that an export holds the document's keys and what was recorded
// in another language.
TEST_F(Translations, EnglishRecordsNothing) {
  const std::string before = Tree();
  EXPECT_EQ(store->Translate("said in English"), "said in English");
  EXPECT_EQ(store->Translate("a\0b"s), "a\0b"s);
  EXPECT_EQ(Tree(), before);

  store->SetLanguage("de");
  store->Translate("said in German");
  store->SetLanguage("en");
  store->Translate("said in English");
  const std::string exported = Exported();
  EXPECT_NE(exported.find("'said in German'"), exported.npos);
  EXPECT_EQ(exported.find("'said in English'"), exported.npos);
}

// The first lookup of an unknown key adds the entry, the second its empty text, and further ones find that.
TEST_F(Translations, AnUnknownKeyIsRecordedInTwoSteps) {
  store->SetLanguage("de");
  EXPECT_EQ(store->Translate("new"), "new");
  EXPECT_EQ(Entry("new"), "<string id='new'/>");
  EXPECT_EQ(store->Translate("new"), "new");
  EXPECT_EQ(Entry("new"), "<string id='new'><de/></string>");
  EXPECT_EQ(store->Translate("new"), "new");
  EXPECT_EQ(Entry("new"), "<string id='new'><de/></string>");
  EXPECT_EQ(Entries(), 4);
}

TEST_F(Translations, RecordedKeysFollowTheDocumentsInTheOrderInWhichTheyWereMissed) {
  store->SetLanguage("sk");
  for (const char* key : {"zebra", "apple", "zebra"}) store->Translate(key);
  ovk::xml::element tree = store->CopyTree();
  const auto& strings = tree.child("strings").children;
  ASSERT_EQ(strings.count(), 5);
  EXPECT_EQ(strings[3]->attribute_or_empty("id"), "zebra");
  EXPECT_EQ(strings[4]->attribute_or_empty("id"), "apple");
}

TEST_F(Translations, AMissingTranslationFallsBackToEnglishAndToNoOtherLanguage) {
  GivenDocument(
      "<l><languages><language id='fr01'/><language id='fr'/></languages>"
      "<strings><string id='Undo'><fr>Annuler</fr></string></strings></l>");
  store->SetLanguage("fr01");
  EXPECT_EQ(store->Translate("Undo"), "Undo");
  EXPECT_EQ(Entry("Undo"), "<string id='Undo'><fr>Annuler</fr><fr01/></string>");
}

TEST_F(Translations, ATextOfWhiteSpaceReadsAsEmptyAndFallsBackToTheKey) {
  GivenGerman("<string id='Undo'><de> \t\r\n\v\f </de></string>");
  EXPECT_EQ(store->Translate("Undo"), "Undo");
  EXPECT_EQ(Entry("Undo"), "<string id='Undo'><de/></string>");
}

TEST_F(Translations, KeysAreComparedByteForByte) {
  GivenGerman(
      "<string id='Undo'><de>a</de></string><string id='undo'><de>b</de></string>"
      "<string id=' Undo'><de>c</de></string>");
  EXPECT_EQ(store->Translate("Undo"), "a");
  EXPECT_EQ(store->Translate("undo"), "b");
  EXPECT_EQ(store->Translate(" Undo"), "c");
  EXPECT_EQ(store->Translate("Undo "), "Undo ");
}

TEST_F(Translations, OfTwoEntriesWithOneKeyTheFirstCounts) {
  GivenGerman("<string id='a'/><string id='a'><de>second</de></string>");
  EXPECT_EQ(store->Translate("a"), "a");
}

TEST_F(Translations, OfTwoTextsInOneLanguageTheFirstCounts) {
  GivenGerman("<string id='a'><de>one</de><de>two</de></string>");
  EXPECT_EQ(store->Translate("a"), "one");
}

TEST_F(Translations, OnlyStringsWithAnIdAreLookedUp) {
  GivenGerman(
      "<other id='a'><de>no</de></other><string><de>no</de></string><string id='a'><de>yes</de></string>");
  EXPECT_EQ(store->Translate("a"), "yes");
  EXPECT_EQ(store->Translate(""), "");
  EXPECT_EQ(Entry(""), "<string id=''/>") << "the entry without id is not the one of the empty key";
}

TEST_F(Translations, MarkupInKeysAndTextsIsResolved) {
  GivenGerman("<string id='&lt;empty&gt; &apos;&quot;&amp;'><de>&lt;leer&gt;</de></string>");
  EXPECT_EQ(store->Translate("<empty> '\"&"), "<leer>");
}

// Zero bytes.

TEST_F(Translations, ATextEndsAtItsFirstZeroByte) {
  GivenGerman("<string id='a'><de>one&#0;two</de></string><string id='b'><de>&#0;two</de></string>");
  EXPECT_EQ(store->Translate("a"), "one");
  EXPECT_EQ(store->Translate("b"), "") << "such a text is not empty, so there is no falling back";
}

TEST_F(Translations, AKeyHoldsZeroBytes) {
  GivenGerman("<string id='a'><de>short</de></string><string id='a&#0;b'><de>long</de></string>");
  EXPECT_EQ(store->Translate("a\0b"s), "long");
  EXPECT_EQ(store->Translate("a"), "short");
  EXPECT_EQ(store->Translate("a\0c"s), "a\0c"s);
  EXPECT_EQ(Entry("a\0c"s), "<string id='a\0c'/>"s);
}

// Line breaks.

TEST_F(Translations, LineBreaksInKeysAndTextsAreRealOnesForTheCode) {
  GivenGerman(R"(<string id='one\r\ntwo'><de>eins\r\nzwei</de></string>)");
  EXPECT_EQ(store->Translate("one\r\ntwo"), "eins\r\nzwei");
}

// Texts are trimmed before line breaks are put in, which is the one way for a text to begin or end with one.
TEST_F(Translations, AnEscapedLineBreakAtEitherEndOfATextSurvives) {
  GivenGerman("<string id='a'><de>\r\n  \\r\\nzwei\\r\\n  \r\n</de></string>");
  EXPECT_EQ(store->Translate("a"), "\r\nzwei\r\n");
}

TEST_F(Translations, AttributesAreNotTrimmed) {
  GivenGerman("<string id=' a '><de>b</de></string>");
  EXPECT_EQ(store->Translate("a"), "a");
  EXPECT_EQ(store->Translate(" a "), "b");
}

// The second document.

class TwoDocuments : public Translations {
 protected:
  void GivenMore(std::string_view strings) {
    store.emplace(kFewWords,
                  "<localisation><languages/><strings>" + std::string(strings) + "</strings></localisation>");
    store->SetLanguage("de");
  }
};

TEST_F(TwoDocuments, AreSpokenFromOneTree) {
  GivenMore(R"(<string id='two\r\nlines'><de>  zwei\r\nZeilen </de></string>)");
  EXPECT_EQ(store->Translate("two\r\nlines"), "zwei\r\nZeilen");
  EXPECT_EQ(store->Translate("Undo"), "Rückgängig");
  EXPECT_EQ(Entries(), 4);
  EXPECT_NE(Exported().find("<string id='two\\r\\nlines'>"), std::string::npos);
}

TEST_F(TwoDocuments, AKeyThatIsInBothIsThatOfTheFirst) {
  GivenMore(
      "<string id='Undo'><de>anders</de><sk>inak</sk></string><string id='Redo'><de>Wieder</de></string>");
  EXPECT_EQ(store->Translate("Undo"), "Rückgängig");
  EXPECT_EQ(store->Translate("Redo"), "Redo");
  EXPECT_EQ(Entries(), 3);
}

TEST_F(TwoDocuments, HaveTheLanguagesOfTheFirst) {
  store.emplace(kFewWords,
                "<l><languages><language id='pl'/></languages><strings><string id='More'><pl>Dalej</pl>"
                "</string></strings></l>");
  EXPECT_THAT(LanguageIds(), ElementsAre("de", "sk"));
  store->SetLanguage("pl");
  EXPECT_EQ(store->GetLanguageId(), "en");
}

TEST_F(TwoDocuments, AreAsTheFirstAloneIfTheSecondIsEmptyOrNoXml) {
  const std::string alone = Tree();
  for (const char* const more : {"", "no XML", "<l>", "<l/>", "<l><strings/></l>"}) {
    store.emplace(kFewWords, more);
    EXPECT_EQ(Tree(), alone) << more;
  }
}

TEST_F(TwoDocuments, AreNoneWithoutTheFirst) {
  store.emplace("no XML", "<l><strings><string id='More'/></strings></l>");
  EXPECT_EQ(Tree(), "<localisation>\r\n  <languages/>\r\n</localisation>\r\n");
}

// What is not an entry there would be taken for one of the first document by a merge.
TEST_F(TwoDocuments, OnlyEntriesOfTheSecondAreTaken) {
  GivenMore("<other id='a'><de>b</de></other><string><de>c</de></string><string id='d'><de>e</de></string>");
  EXPECT_EQ(Entries(), 4);
  EXPECT_EQ(store->Translate("d"), "e");
}

// The one of the process, and messages.

TEST(TheProgramsTranslations, AreBuiltIn) {
  std::string all;
  for (const auto& language : TranslationStore::Instance().GetLanguages().children) {
    all.append(language->attribute_or_empty("id").view()).append(" ");
  }
  EXPECT_EQ(all, "de sk it cz fr01 fr pl es ");
}

class AnsweringMessages : public Translations {
 protected:
  void SetUp() override {
    GivenGerman("<string id='Step {1}'><de>Schritt {1}</de></string>");
    store->SetLanguage("en");
    store->AnswerMessages();
  }
};

TEST_F(AnsweringMessages, HasThemSpeakTheLanguageInUse) {
  EXPECT_EQ(Message("Step {1}", 3).utf8(), "Step 3");
  store->SetLanguage("de");
  EXPECT_EQ(Message("Step {1}", 3).utf8(), "Schritt 3");
  EXPECT_EQ(Translate("Step {1}"), "Schritt {1}");
  store->SetLanguage("en");
  EXPECT_EQ(Message("Step {1}", 3).utf8(), "Step 3");
}

TEST_F(AnsweringMessages, BeginsInTheLanguageInUse) {
  GivenGerman("<string id='Step {1}'><de>Schritt {1}</de></string>");
  EXPECT_EQ(Translate("Step {1}"), "Step {1}");
  store->AnswerMessages();
  EXPECT_EQ(Translate("Step {1}"), "Schritt {1}");
}

TEST_F(AnsweringMessages, AsksForTheTemplateAndNeverForWhatIsFilledIn) {
  store->SetLanguage("de");
  EXPECT_EQ(Message("{1}!", "Step {1}").utf8(), "Step {1}!");
  EXPECT_NE(Entry("{1}!"), "");
  EXPECT_EQ(Entries(), 2);
}

TEST_F(AnsweringMessages, EndsWithTheStore) {
  store->SetLanguage("de");
  store.reset();
  EXPECT_EQ(Translate("Step {1}"), "Step {1}");
}

TEST_F(AnsweringMessages, IsNotDoneByAnotherStore) {
  TranslationStore other("<l><languages><language id='de'/></languages></l>");
  store->SetLanguage("de");
  other.SetLanguage("en");
  EXPECT_EQ(Translate("Step {1}"), "Schritt {1}");
  store->SetLanguage("en");
  other.SetLanguage("de");
  other.Translate("Step {1}");
  EXPECT_EQ(Translate("Step {1}"), "Step {1}");
}

}  // namespace
