// The translators' exchange file, written and read, and what a merge makes of the tree.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "common/log.h"
#include "common/xml_file.h"
#include "localisation/translation_store.h"
#include "tests/localisation/translations.h"

namespace {

using namespace std::string_literals;
using testing::ElementsAre;

class ExchangeFile : public Translations {
 protected:
  // Loads an exchange file with these entries as German.
  bool LoadGerman(const std::string& entries) {
    return store->LoadTranslationFile(File("<strings>" + entries + "</strings>"), "de", "Deutsch");
  }

  void GivenTheProgramsDocuments() {
    ASSERT_TRUE(LoadResourceBytes(TranslationStore::kDocumentResource, "XML", document_));
    ASSERT_TRUE(LoadResourceBytes(TranslationStore::kMoreResource, "XML", more_));
    store.emplace(document_, more_);
  }

  std::string document_;
  std::string more_;
};

// Writing.

TEST_F(ExchangeFile, HoldsEveryKeyWithItsTextInTheLanguageInUse) {
  store->SetLanguage("de");
  EXPECT_EQ(Exported(),
            "<strings>\r\n"
            "  <string id='Redo'>\r\n    <translate>Redo</translate>\r\n  </string>\r\n"
            "  <string id='Step {1}'>\r\n    <translate>Schritt {1}</translate>\r\n  </string>\r\n"
            "  <string id='Undo'>\r\n    <translate>Rückgängig</translate>\r\n  </string>\r\n"
            "</strings>\r\n");
}

TEST_F(ExchangeFile, InEnglishHoldsEveryKeyAsItsOwnText) {
  EXPECT_EQ(Exported(),
            "<strings>\r\n"
            "  <string id='Redo'>\r\n    <translate>Redo</translate>\r\n  </string>\r\n"
            "  <string id='Step {1}'>\r\n    <translate>Step {1}</translate>\r\n  </string>\r\n"
            "  <string id='Undo'>\r\n    <translate>Undo</translate>\r\n  </string>\r\n"
            "</strings>\r\n");
}

TEST_F(ExchangeFile, HoldsWhatWasRecorded) {
  store->SetLanguage("de");
  store->Translate("recorded");
  EXPECT_NE(Exported().find("<string id='recorded'>"), std::string::npos);
}

TEST_F(ExchangeFile, IsSortedByUnsignedBytesUpToTheFirstZero) {
  GivenStrings(
      "<string id='\xC3\xA4'/><string id='b'/><string id='a&#0;z'/><string id='B'/><string id='ab'/>"
      "<string id='{1}'/><string id='&lt;empty&gt;'/><string/>");
  std::string order;
  ovk::xml::element file = *xml_trees::Parsed(Exported());
  for (const auto& string : file.children) order.append(string->attribute_or_empty("id").view()).append("|");
  EXPECT_EQ(order, "|<empty>|B|a\0z|ab|b|{1}|\xC3\xA4|"s);
}

TEST_F(ExchangeFile, EscapesLineBreaks) {
  GivenGerman(R"(<string id='a\r\nb'><de>c\r\nd</de></string>)");
  EXPECT_EQ(Exported(),
            "<strings>\r\n"
            "  <string id='a\\r\\nb'>\r\n    <translate>c\\r\\nd</translate>\r\n  </string>\r\n"
            "</strings>\r\n");
}

TEST_F(ExchangeFile, OfNoKeysIsAnEmptyRoot) {
  GivenDocument("");
  EXPECT_EQ(Exported(), "<strings/>\r\n");
}

// An entry without id is asked for like any other, and that is the empty key, which is then recorded.
TEST_F(ExchangeFile, AnEntryWithoutIdIsWrittenUnderTheEmptyKey) {
  GivenGerman("<string><de>nobody's</de></string>");
  EXPECT_EQ(Exported(), "<strings>\r\n  <string id=''>\r\n    <translate/>\r\n  </string>\r\n</strings>\r\n");
  EXPECT_EQ(Entry(""), "<string id=''/>");
}

TEST_F(ExchangeFile, ThatCannotBeWrittenIsAFailure) {
  statusLog.Drain();
  EXPECT_FALSE(store->ExportTranslationFile(folder / "absent" / "exported.xml"));
  statusLog.Drain();
}

// The failure's message asks the very store that is being exported.
TEST_F(ExchangeFile, ThatCannotBeWrittenSaysSoInTheLanguageInUse) {
  store.emplace(
      "<l><languages><language id='de'/></languages><strings><string id='Error creating file {1}, error: "
      "{2}'>"
      "<de>{1} geht nicht</de></string></strings></l>");
  store->AnswerMessages();
  store->SetLanguage("de");
  std::string said;
  statusLog.Drain();
  statusLog.textHandler = [&](const std::string& text) { said += text; };
  EXPECT_FALSE(store->ExportTranslationFile(folder / "absent" / "x.xml"));
  statusLog.Drain();
  statusLog.textHandler = nullptr;
  EXPECT_EQ(said, Utf8FromPath(folder / "absent" / "x.xml") + " geht nicht\r\n");
}

// Reading.

TEST_F(ExchangeFile, AddsALanguage) {
  ASSERT_TRUE(store->LoadTranslationFile(
      File("<strings><string id='Undo'><translate>Cofnij</translate></string></strings>"), "pl", "Polish"));
  EXPECT_THAT(LanguageIds(), ElementsAre("de", "sk", "pl"));
  const ovk::xml::element& polish = *store->GetLanguages().children[2];
  EXPECT_EQ(xml_trees::Serialized(polish), "<language id='pl' name='Polish'/>\r\n");
  EXPECT_EQ(store->GetLanguageId(), "en") << "loading is not choosing";
  store->SetLanguage("pl");
  EXPECT_EQ(store->Translate("Undo"), "Cofnij");
  EXPECT_EQ(store->Translate("Redo"), "Redo");
}

TEST_F(ExchangeFile, OverwritesTextsAndKeepsThoseThatItLeavesOut) {
  ASSERT_TRUE(LoadGerman("<string id='Undo'><translate>Zurück</translate></string>"));
  store->SetLanguage("de");
  EXPECT_EQ(store->Translate("Undo"), "Zurück");
  EXPECT_EQ(store->Translate("Step {1}"), "Schritt {1}");
  EXPECT_EQ(Entry("Undo"), "<string id='Undo'><de>Zurück</de><sk>Späť</sk></string>");
}

TEST_F(ExchangeFile, AnEmptyTextOverwritesToo) {
  ASSERT_TRUE(LoadGerman("<string id='Undo'><translate/></string>"));
  store->SetLanguage("de");
  EXPECT_EQ(store->Translate("Undo"), "Undo");
}

TEST_F(ExchangeFile, RenamesALanguageAndKeepsItsAuthor) {
  ASSERT_TRUE(store->LoadTranslationFile(File("<strings/>"), "sk", "Slovenčina"));
  EXPECT_EQ(xml_trees::Serialized(*store->GetLanguages().children[1]),
            "<language id='sk' name='Slovenčina' author='Lumarine team'/>\r\n");
}

TEST_F(ExchangeFile, AnEmptyFileOfTheRightShapeStillAddsTheLanguage) {
  ASSERT_TRUE(store->LoadTranslationFile(File("<strings/>"), "pl", "Polish"));
  EXPECT_THAT(LanguageIds(), ElementsAre("de", "sk", "pl"));
}

TEST_F(ExchangeFile, OfAKeyThatNoLongerExistsIsDroppedWithoutAWord) {
  const int entries = Entries();
  statusLog.Drain();
  std::string said;
  statusLog.textHandler = [&](const std::string& text) { said += text; };
  ASSERT_TRUE(LoadGerman("<string id='gone'><translate>weg</translate></string>"));
  statusLog.Drain();
  statusLog.textHandler = nullptr;
  EXPECT_EQ(said, "");
  EXPECT_EQ(Entries(), entries);
  EXPECT_EQ(Entry("gone"), "");
}

TEST_F(ExchangeFile, EntriesWithoutOrWithSeveralTextsAreSkipped) {
  const std::string before = Tree();
  ASSERT_TRUE(
      LoadGerman("<string id='Undo'/><string id='Redo'>bare</string>"
                 "<string id='Step {1}'><translate>a</translate><translate>b</translate></string>"));
  EXPECT_EQ(Tree(), before);
}

TEST_F(ExchangeFile, TagsAreNotLookedAt) {
  ASSERT_TRUE(store->LoadTranslationFile(File("<a><b id='Undo'><c>Zurück</c></b></a>"), "de", "Deutsch"));
  EXPECT_EQ(Entry("Undo"), "<string id='Undo'><de>Zurück</de><sk>Späť</sk></string>");
}

// The children of its root have no id, so that no entry is usable, and still the language is there, all
// English.
TEST_F(ExchangeFile, InTheShapeOfTheDocumentSucceedsAndAddsALanguageThatIsAllEnglish) {
  const std::string before = Entry("Undo");
  ASSERT_TRUE(store->LoadTranslationFile(File(kFewWords), "pl", "Polish"));
  EXPECT_THAT(LanguageIds(), ElementsAre("de", "sk", "pl"));
  EXPECT_EQ(Entry("Undo"), before);
  store->SetLanguage("pl");
  EXPECT_EQ(store->Translate("Undo"), "Undo");
}

// Odd, and only to be seen by a key of that name: what has no id counts as the text of "not_found".
TEST_F(ExchangeFile, AnEntryWithoutIdCountsAsNotFound) {
  GivenStrings("<string id='not_found'/><string id=''/>");
  ASSERT_TRUE(LoadGerman("<string><translate>verloren</translate></string>"));
  EXPECT_EQ(Entry("not_found"), "<string id='not_found'><de>verloren</de></string>");
  EXPECT_EQ(Entry(""), "<string id=''/>");
}

TEST_F(ExchangeFile, OfTwoEntriesInTheTreeTheFirstTakesTheText) {
  GivenStrings("<string id='a'/><string id='a'/>");
  ASSERT_TRUE(LoadGerman("<string id='a'><translate>b</translate></string>"));
  ovk::xml::element tree = store->CopyTree();
  EXPECT_EQ(tree.child("strings").children[0]->children.count(), 1);
  EXPECT_EQ(tree.child("strings").children[1]->children.count(), 0);
}

TEST_F(ExchangeFile, OnlyStringsWithAnIdTakeTexts) {
  GivenStrings("<other id='a'/><string/><string id='a'/>");
  ASSERT_TRUE(
      LoadGerman("<string id='a'><translate>b</translate></string>"
                 "<string id=''><translate>c</translate></string>"));
  ovk::xml::element tree = store->CopyTree();
  EXPECT_EQ(xml_trees::Serialized(tree.child("strings"), -100),
            "<strings>\r\n<other id='a'/>\r\n<string/>\r\n<string id='a'>\r\n<de>b</de>\r\n</string>\r\n"
            "</strings>\r\n");
}

TEST_F(ExchangeFile, IsTrimmedAndThenUnescaped) {
  GivenStrings(R"(<string id='a\r\nb'/>)");
  ASSERT_TRUE(LoadGerman("<string id='a\\r\\nb'>\r\n<translate>\r\n \\r\\nc </translate>\r\n</string>"));
  store->SetLanguage("de");
  EXPECT_EQ(store->Translate("a\r\nb"), "\r\nc");
}

TEST_F(ExchangeFile, ThatCannotBeReadOrParsedChangesNothing) {
  const std::string before = Tree();
  EXPECT_FALSE(store->LoadTranslationFile(folder / "absent.xml", "pl", "Polish"));
  EXPECT_FALSE(store->LoadTranslationFile(folder.path(), "pl", "Polish"));
  for (const std::string& bytes : {""s, "text"s, "<strings>"s, "<strings><string></strings>"s, "<1/>"s}) {
    EXPECT_FALSE(store->LoadTranslationFile(File(bytes), "pl", "Polish")) << bytes;
  }
  EXPECT_EQ(Tree(), before);
}

TEST_F(ExchangeFile, CutAtAnyByteChangesNothing) {
  store->SetLanguage("de");
  const std::string whole = Exported();
  const std::string before = Tree();
  const size_t rootEnds = whole.rfind('>');
  for (size_t length = 0; length <= rootEnds; ++length) {
    EXPECT_FALSE(store->LoadTranslation(whole.substr(0, length), "pl", "Polish")) << length;
  }
  EXPECT_EQ(Tree(), before);
  EXPECT_TRUE(store->LoadTranslation(whole.substr(0, rootEnds + 1), "pl", "Polish"));
}

TEST_F(ExchangeFile, WrittenReadAndWrittenAgainIsTheSameBytes) {
  GivenGerman(
      R"(<string id='b'><de>&lt;x&gt; &amp; y</de></string><string id='a\r\n'><de>\r\n\r\n{1}</de></string>)"
      R"(<string id='only English'/><string id='Grün'><de>größer</de></string>)");
  const std::string first = Exported();
  ASSERT_TRUE(store->LoadTranslationFile(folder / "exported.xml", "test", "Test Translation"));
  store->SetLanguage("test");
  EXPECT_EQ(Exported(), first);
}

TEST_F(ExchangeFile, OfTheProgramsOwnDocumentsComesBackInEveryLanguage) {
  GivenTheProgramsDocuments();
  const int keys = Entries();
  std::vector<std::string> ids = LanguageIds();
  ids.emplace_back("en");
  for (const std::string& id : ids) {
    store->SetLanguage(id);
    const std::string first = Exported();
    ASSERT_TRUE(store->LoadTranslationFile(folder / "exported.xml", "test", "Test Translation"));
    store->SetLanguage("test");
    EXPECT_EQ(Exported(), first) << id;
  }
  EXPECT_EQ(Entries(), keys);
}

// Merging.

TEST_F(ExchangeFile, ACopyOfTheTreeIsItsOwn) {
  ovk::xml::element copy = store->CopyTree();
  const std::string before = Tree();
  EXPECT_EQ(xml_trees::Serialized(copy), before);
  copy.child("strings").children[0]->child("de").text = "anders";
  copy.child("languages").append_child("language");
  EXPECT_EQ(Tree(), before);
}

TEST_F(ExchangeFile, RemovingALanguageLeavesTheOthersInTheirOrder) {
  GivenDocument(
      "<l><languages><language id='de'/><language id='test'/><language id='sk'/></languages><strings>"
      "<string id='a'><de>1</de><test>2</test><sk>3</sk></string><string id='b'><test>4</test></string>"
      "<string id='c'><de>5</de></string></strings></l>");
  ovk::xml::element copy = store->CopyTree();
  RemoveLanguage(copy, "test");
  EXPECT_EQ(
      xml_trees::Serialized(copy, -100),
      "<l>\r\n<languages>\r\n<language id='de'/>\r\n<language id='sk'/>\r\n</languages>\r\n<strings>\r\n"
      "<string id='a'>\r\n<de>1</de>\r\n<sk>3</sk>\r\n</string>\r\n<string id='b'/>\r\n"
      "<string id='c'>\r\n<de>5</de>\r\n</string>\r\n</strings>\r\n</l>\r\n");
}

TEST_F(ExchangeFile, RemovingTakesTheFirstTextAndTheFirstLanguageOfAnId) {
  GivenDocument(
      "<l><languages><other id='x'/><language name='x'/><language id='x'/><language id='x'/><language "
      "id='x'/>"
      "</languages><strings><string id='a'><x>1</x><x>2</x></string><other><x>3</x></other></strings></l>");
  ovk::xml::element copy = store->CopyTree();
  RemoveLanguage(copy, "x");
  EXPECT_EQ(xml_trees::Serialized(copy, -100),
            "<l>\r\n<languages>\r\n<other id='x'/>\r\n<language name='x'/>\r\n<language id='x'/>\r\n"
            "<language id='x'/>\r\n</languages>\r\n<strings>\r\n<string "
            "id='a'>\r\n<x>2</x>\r\n</string>\r\n<other>\r\n<x>3</x>\r\n"
            "</other>\r\n</strings>\r\n</l>\r\n");
}

TEST_F(ExchangeFile, RemovingAnUnknownLanguageChangesNothing) {
  ovk::xml::element copy = store->CopyTree();
  RemoveLanguage(copy, "test");
  EXPECT_EQ(xml_trees::Serialized(copy), Tree());
}

// The program's documents are edited by merging: what a merge writes has their form, down to the byte. Lines
// end with CR LF.
TEST_F(ExchangeFile, TheProgramsOwnDocumentsAreAsAMergeWritesThem) {
  GivenTheProgramsDocuments();
  TranslationStore::Documents copy = store->CopyDocuments();
  for (const auto& [tree, document] : {std::pair{&copy.document, &document_}, {&copy.more, &more_}}) {
    RemoveLanguage(*tree, "test");
    EscapeLineBreaks(*tree);
    ASSERT_TRUE(ovk::xml::save(folder / "merged.xml", *tree));
    EXPECT_EQ(BytesOf(folder / "merged.xml"), *document);
  }
}

TEST_F(ExchangeFile, AMergeKeepsTheKeysOfEachDocumentApart) {
  store.emplace(kFewWords,
                "<l><strings><string id='More'><de>Mehr</de></string><string id='Undo'/></strings></l>");
  store->SetLanguage("de");
  store->Translate("Recorded");
  ASSERT_TRUE(
      store->LoadTranslation("<s><string id='More'><translate>Viac</translate></string>"
                             "<string id='Redo'><translate>Znova</translate></string></s>",
                             "sk", "Slovak"));
  const std::string before = Tree();
  TranslationStore::Documents copy = store->CopyDocuments();
  EXPECT_EQ(Tree(), before);
  EXPECT_EQ(xml_trees::Serialized(copy.more, -100),
            "<localisation>\r\n<languages/>\r\n<strings>\r\n<string id='More'>\r\n<de>Mehr</de>\r\n"
            "<sk>Viac</sk>\r\n</string>\r\n</strings>\r\n</localisation>\r\n");
  ovk::xml::element& strings = copy.document.child("strings");
  EXPECT_EQ(copy.document.child("languages").children.count(), 2);
  std::string keys;
  for (const auto& entry : strings.children) keys.append(entry->attribute_or_empty("id").view()).append(" ");
  EXPECT_EQ(keys, "Step {1} Undo Redo Recorded ");
  EXPECT_TRUE(strings.find_child_by_id("string", "Redo")->child("sk").text == "Znova");
}

TEST_F(ExchangeFile, WithoutASecondDocumentAMergeHasOnlyTheFirst) {
  store->SetLanguage("de");
  store->Translate("Recorded");
  TranslationStore::Documents copy = store->CopyDocuments();
  EXPECT_EQ(xml_trees::Serialized(copy.document), Tree());
  EXPECT_EQ(copy.more.child("strings").children.count(), 0);
}

}  // namespace
