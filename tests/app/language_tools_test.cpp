// The translators' tools: export, test and merge.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/commands.h"
#include "common/files.h"
#include "common/message.h"
#include "common/xml_file.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "localisation/translation_store.h"
#include "tests/app/language_fixture.h"
#include "tests/support/files.h"

namespace {

using namespace in_dialog;
using app::Control;
using dialogs::kCancel;
using dialogs::kOk;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
namespace command = app::command;
namespace value_id = dialogs::get_value_control;

// Export

TEST_F(Language, AnExportIsProposedUnderTheSettingsName) {
  const std::pair<const char*, const char*> rows[] = {
      {"", "LumarineStrings_.XML"}, {"de", "LumarineStrings_de.XML"}, {"fr01", "LumarineStrings_fr01.XML"}};
  for (const auto& [locale, name] : rows) {
    user.GetSettings().SetValue("locale", locale);
    user.WillPick({});
    ASSERT_TRUE(user.Choose(command::kExportTranslation));
    const auto& asked = Desk().questions.filesAsked.back();
    EXPECT_TRUE(asked.save);
    EXPECT_EQ(asked.filter.name, u"XML Files");
    EXPECT_EQ(asked.filter.pattern, u"*.XML");
    EXPECT_EQ(asked.startName, name);
  }
  EXPECT_EQ(NewLog(), "") << "cancelled is cancelled";
}

TEST_F(Language, AnExportHoldsAllKeysInTheActiveLanguage) {
  user.Choose(kGerman);
  NewLog();
  const std::filesystem::path file = Export();
  EXPECT_EQ(NewLog(), "Localization file " + Utf8FromPath(file) + " exported successfully!\n");
  EXPECT_EQ(TextIn(file, "Devices"), "Geräte");
  EXPECT_EQ(TextIn(file, "Redo"), "Redo") << "recorded when the menu asked for it";
  EXPECT_EQ(TextIn(file, "two\\r\\nlines"), "zwei\\r\\nZeilen");
  user.Choose(command::kEnglish);
  Export();
  EXPECT_EQ(TextIn(file, "Devices"), "Devices");
}

TEST_F(Language, AnExportOverAFileAsksFirst) {
  const std::filesystem::path file = GivenFile("taken.xml", "precious");
  user.WillPick({file});
  user.WillAnswer(app::Answer::No);
  ASSERT_TRUE(user.Choose(command::kExportTranslation));
  EXPECT_THAT(user.Questions(), SizeIs(1));
  EXPECT_EQ(BytesOf(file), "precious");
  EXPECT_EQ(NewLog(), "");
}

TEST_F(Language, AnExportThatCannotBeWrittenSaysSo) {
  const std::filesystem::path file = folder / "missing" / "exported.xml";
  user.WillPick({file});
  user.Choose(command::kExportTranslation);
  EXPECT_THAT(NewLog(), AllOf(StartsWith("Error creating file " + Utf8FromPath(file)),
                              HasSubstr("Error exporting localization file " + Utf8FromPath(file) + "!\n")));
}

// Test

TEST_F(Language, ATestIsSpokenAtOnce) {
  const std::filesystem::path file = GivenFile("přeloženo.xml", kTested);
  Test(file);
  EXPECT_EQ(Desk().questions.filesAsked.back().filter.name, u"XML Files");
  EXPECT_FALSE(Desk().questions.filesAsked.back().multiple);
  EXPECT_EQ(NewLog(), "Translation file " + Utf8FromPath(file) + " loaded successfully!\n")
      << "in the language of before; the test itself is not announced";
  EXPECT_EQ(user.MenuItem(command::kUndo).text, "Oje");
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Apparate");
  EXPECT_EQ(user.Text(Control::PowerTitleLabel), "Channel power");
}

TEST_F(Language, AGoodTestIsCheckedInTheMenuAndTheSettingKeepsTheFormerOne) {
  user.Choose(kGerman);
  Test(GivenFile("test.xml", kTested));
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch", "Slovak", "Test Translation*", "English"));
  EXPECT_EQ(Locale(), "de");
  user.Close();
  user.Start();
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch*", "Slovak", "Englisch")) << "and it is gone";
}

TEST_F(Language, ALanguageAddedByATestKeepsItsPlaceInFrontOfEnglish) {
  Test(GivenFile("test.xml", kTested));
  user.Choose(kGerman);
  Test(GivenFile("test.xml", kTested));
  user.Choose(command::kEnglish);
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch", "Slovak", "Test Translation", "English*"));
  ASSERT_TRUE(user.Choose(kTest));
  EXPECT_EQ(Locale(), "test") << "chosen from the menu it is a language as any other";
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Apparate");
}

TEST_F(Language, AfterABadTestTheLanguageIsUnchangedAndThereIsNoTest) {
  user.Choose(kGerman);
  NewLog();
  const std::filesystem::path file = GivenFile("bad.xml", "<strings><string");
  user.WillAnswer(app::Answer::Ok);
  Test(file);
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"Invalid Translation File");
  EXPECT_EQ(Utf8FromWide(asked[0].text),
            "Error loading the XML translation file!\r\n" + Utf8FromPath(file) +
                "\r\n\r\nThis is most probably caused by invalid XML.\r\nPlease try to open your XML file in "
                "your web browser to see the parsing error location.");
  EXPECT_EQ(asked[0].buttons, app::Buttons::Ok);
  EXPECT_EQ(asked[0].icon, app::Icon::Error);
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch*", "Slovak", "Englisch"));
  EXPECT_EQ(Store().GetLanguageId(), "de");
  EXPECT_EQ(NewLog(), "");
}

TEST_F(Language, AFileThatIsNotThereIsABadTest) {
  user.WillAnswer(app::Answer::Ok);
  Test(folder / "none.xml");
  EXPECT_THAT(user.Questions(), SizeIs(1));
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch", "Slovak", "English*"));
}

TEST_F(Language, ATestThatIsCancelledOnlyShowsEverythingAnew) {
  NewJournal();
  user.WillPick({});
  ASSERT_TRUE(user.Choose(command::kTestTranslation));
  EXPECT_EQ(NewLog(), "");
  EXPECT_THAT(user.Questions(), IsEmpty());
  EXPECT_THAT(NewJournal(), ElementsAre("redraw menu", "renderer: rebuild"));
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch", "Slovak", "English*"));
}

// Whoever cancels is looking at the test that he has, whatever he spoke meanwhile.
TEST_F(Language, ATestThatIsCancelledGoesBackToTheOneBefore) {
  Test(GivenFile("test.xml", kTested));
  user.Choose(kGerman);
  user.WillPick({});
  user.Choose(command::kTestTranslation);
  EXPECT_THAT(LanguageMenu(), Contains("Test Translation*"));
  EXPECT_EQ(Locale(), "de");
}

TEST_F(Language, ASecondTestOverwritesKeyByKey) {
  Test(GivenFile("first.xml", kTested));
  Test(GivenFile("second.xml",
                 "<strings><string id='Devices'><translate>Maschinen</translate></string>"
                 "<string id='Channel power'><translate>Kraft</translate></string></strings>"));
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Maschinen");
  EXPECT_EQ(user.Text(Control::PowerTitleLabel), "Kraft");
  EXPECT_EQ(user.MenuItem(command::kUndo).text, "Oje") << "what the new file leaves out stays";
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch", "Slovak", "Test Translation*", "English"));
}

TEST_F(Language, AnExportWhileATestIsActiveGivesTheTestedTexts) {
  user.Choose(kGerman);
  Test(GivenFile("test.xml", kTested));
  const std::filesystem::path file = Export();
  EXPECT_EQ(TextIn(file, "Devices"), "Apparate");
  EXPECT_EQ(TextIn(file, "Channel power"), "Channel power");
  EXPECT_EQ(Desk().questions.filesAsked.back().startName, "LumarineStrings_de.XML")
      << "under the name of the setting";
}

TEST_F(Language, WhatWasExportedIsTestedAndExportedAsTheSameBytes) {
  user.Choose(kGerman);
  const std::string first = BytesOf(Export());
  Test(GivenFile("copy.xml", first));
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Geräte");
  // What the test itself said is recorded, so it is exported once more.
  Export();
  Test(GivenFile("copy.xml", BytesOf(Export())));
  const std::string second = BytesOf(Export());
  EXPECT_EQ(BytesOf(Export()), second);
  EXPECT_EQ(TextIn(folder / "exported.xml", "Devices"), "Geräte");
}

// Merge

TEST_F(Language, AMergeAsksForIdAndNameInEnglish) {
  user.Choose(kGerman);
  NewLog();
  user.WillFill({Type(value_id::kValue, "xx"), Press(kOk)});
  user.WillFill({Press(kCancel)});
  user.SendCommand(command::kMergeTranslations);
  const std::vector<SeenDialog> seen = user.Dialogs();
  ASSERT_THAT(seen, SizeIs(2));
  const std::pair<const char*, const char*> texts[] = {
      {"Language ID", "Enter language ID (en, fr, sk, etc...)"}, {"Language name", "Enter language name"}};
  for (std::size_t i = 0; i < seen.size(); ++i) {
    EXPECT_EQ(seen[i].title, texts[i].first);
    EXPECT_EQ(seen[i].controls.at(value_id::kPrompt).text, texts[i].second);
    EXPECT_EQ(seen[i].controls.at(value_id::kValue).text, "");
    EXPECT_EQ(seen[i].controls.at(kOk).text, "OK");
    EXPECT_EQ(seen[i].controls.at(kCancel).text, "Cancel") << "not translated";
    EXPECT_EQ(seen[i].x, 60);
    EXPECT_EQ(seen[i].y, 50);
  }
  EXPECT_EQ(NewLog(), "");
}

TEST_F(Language, AMergedIdOfMoreThanFourCharactersCannotBeTyped) {
  const std::filesystem::path file = GivenFile("new.xml", kTested);
  WillName("polish", std::string(40, 'n'));
  user.WillPick({file});
  user.WillPick({});
  user.SendCommand(command::kMergeTranslations);
  const ovk::xml::element& added = *Store().GetLanguages().children[2];
  EXPECT_TRUE(added.attribute_or_empty("id") == "poli");
  EXPECT_EQ(added.attribute_or_empty("name").length(), 30);
}

TEST_F(Language, AMergeWritesTheWholeDocument) {
  Test(GivenFile("test.xml", kTested));
  user.Choose(kGerman);
  const std::filesystem::path file =
      GivenFile("pl.xml",
                "<strings><string id='Devices'><translate>Urządzenia</translate></string>"
                "<string id='two\\r\\nlines'><translate>dwie\\r\\nlinie</translate></string></strings>");
  const std::filesystem::path merged = folder / "merged.xml";
  WillName("pl", "Polish");
  user.WillPick({file});
  user.WillPick({merged});
  NewLog();
  user.SendCommand(command::kMergeTranslations);
  EXPECT_EQ(NewLog(), "Translation file " + Utf8FromPath(file) + " loaded successfully!\n" +
                          "Translation merge success: " + Utf8FromPath(merged) + ".\n");
  const auto& asked = Desk().questions.filesAsked.back();
  EXPECT_TRUE(asked.save);
  EXPECT_EQ(asked.filter.name, u"XML Files");
  EXPECT_EQ(asked.startName, "LumarineStrings_merged.xml");

  ovk::xml::element root;
  ASSERT_TRUE(ovk::xml::load(merged, root));
  EXPECT_TRUE(root.name == "localisation");
  const ovk::xml::element& languages = root.child("languages");
  std::string ids;
  for (const auto& language : languages.children)
    ids += std::string(language->attribute_or_empty("id").view()) + " ";
  EXPECT_EQ(ids, "de sk pl ") << "a test reaches no merged document";
  EXPECT_EQ(BytesOf(merged).find("Apparate"), std::string::npos);
  ovk::xml::element& strings = root.child("strings");
  EXPECT_TRUE(strings.find_child_by_id("string", "Devices")->child("pl").text == "Urządzenia");
  EXPECT_TRUE(strings.find_child_by_id("string", "two\\r\\nlines")->child("pl").text == "dwie\\r\\nlinie");
  EXPECT_NE(strings.find_child_by_id("string", "Redo"), nullptr) << "recorded when the menu asked for it";

  EXPECT_EQ(Store().GetLanguageId(), "de") << "the merged one is there, but not spoken";
  EXPECT_EQ(Store().GetLanguages().children.count(), 4) << "the test is, too";
  // The next build starts with it.
  user.Close();
  user.translations = BytesOf(merged);
  user.Start();
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch*", "Slovak", "Polish", "Englisch"));
  user.Choose(kTest);  // which number is Polish now
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Urządzenia");
  EXPECT_EQ(Message("two\r\nlines").utf8(), "dwie\r\nlinie");
}

TEST_F(Language, AMergeWritesTheSecondDocumentBesideTheFirst) {
  user.Close();
  user.moreTranslations =
      "<localisation><languages/><strings><string id='Demo playback resumed'><de>Weiter</de></string>"
      "</strings></localisation>";
  user.Start();
  Test(
      GivenFile("test.xml",
                "<strings><string id='Demo playback resumed'><translate>Los</translate></string></strings>"));
  const std::filesystem::path file =
      GivenFile("sk.xml",
                "<strings><string id='Demo playback resumed'><translate>Ďalej</translate></string>"
                "<string id='Undo'><translate>Krok späť</translate></string></strings>");
  WillName("sk", "Slovak");
  user.WillPick({file});
  user.WillPick({folder / PathFromUtf8("přeložené.xml")});
  NewLog();
  user.SendCommand(command::kMergeTranslations);
  const std::filesystem::path more = folder / PathFromUtf8("přeložené-more.xml");
  EXPECT_THAT(NewLog(), AllOf(HasSubstr("Translation merge success: "),
                              HasSubstr("Translation merge success: " + Utf8FromPath(more) + ".\n")));
  EXPECT_EQ(BytesOf(more),
            "<localisation>\r\n  <languages/>\r\n  <strings>\r\n    <string id='Demo playback resumed'>\r\n"
            "      <de>Weiter</de>\r\n      <sk>Ďalej</sk>\r\n    </string>\r\n  </strings>\r\n"
            "</localisation>\r\n");
  const std::string first = BytesOf(folder / PathFromUtf8("přeložené.xml"));
  EXPECT_THAT(first, AllOf(HasSubstr("<sk>Krok späť</sk>"), Not(HasSubstr("Demo playback resumed"))));
  // The next build has them both.
  user.Close();
  user.translations = first;
  user.moreTranslations = BytesOf(more);
  user.Start();
  user.Choose(kSlovak);
  EXPECT_EQ(user.MenuItem(command::kUndo).text, "Krok späť");
  EXPECT_EQ(Message("Demo playback resumed").utf8(), "Ďalej");
}

TEST_F(Language, AMergeWithoutASecondDocumentWritesOneFile) {
  WillName("xx", "Xx");
  user.WillPick({GivenFile("new.xml", kTested)});
  user.WillPick({folder / "merged.xml"});
  user.SendCommand(command::kMergeTranslations);
  EXPECT_TRUE(std::filesystem::exists(folder / "merged.xml"));
  EXPECT_FALSE(std::filesystem::exists(folder / "merged-more.xml"));
}

TEST_F(Language, AMergeOverAFileAsksFirst) {
  GivenFile("taken.xml", "precious");
  WillName("xx", "Xx");
  user.WillPick({GivenFile("new.xml", kTested)});
  user.WillPick({folder / "taken.xml"});
  user.WillAnswer(app::Answer::No);
  user.SendCommand(command::kMergeTranslations);
  EXPECT_THAT(user.Questions(), SizeIs(1));
  EXPECT_EQ(BytesOf(folder / "taken.xml"), "precious");
}

TEST_F(Language, AMergeAsksForTheSecondDocumentToo) {
  user.Close();
  user.moreTranslations =
      "<localisation><languages/><strings><string id='Demo playback resumed'><de>Weiter</de></string>"
      "</strings></localisation>";
  user.Start();
  GivenFile("merged-more.xml", "precious");
  WillName("xx", "Xx");
  user.WillPick({GivenFile("new.xml", kTested)});
  user.WillPick({folder / "merged.xml"});
  user.WillAnswer(app::Answer::No);
  user.SendCommand(command::kMergeTranslations);
  EXPECT_THAT(user.Questions(), SizeIs(1));
  EXPECT_EQ(BytesOf(folder / "merged-more.xml"), "precious");
  EXPECT_FALSE(std::filesystem::exists(folder / "merged.xml")) << "both or none";
}

// A tag of that name could not be read again, and nobody asks for texts in English.
TEST_F(Language, AMergeRefusesAnIdThatIsNoTag) {
  for (const char* const id :
       {"1a", "a b", "&", "en", "<a", "a>", "a'", "\"a", "-a", "a-", "a:b", ".", "é", " a", "a/"}) {
    user.WillFill({Type(value_id::kValue, id), Press(kOk)});
    user.WillAnswer(app::Answer::Ok);
    user.SendCommand(command::kMergeTranslations);
    const std::vector<app::Question> asked = user.Questions();
    ASSERT_THAT(asked, SizeIs(1)) << id;
    EXPECT_EQ(asked[0].title, u"Invalid value");
    EXPECT_EQ(Utf8FromWide(asked[0].text),
              "\"" + std::string(id) +
                  "\" cannot be the ID of a language. An ID begins with a letter, has only "
                  "letters and digits, and is not \"en\": English is built in.");
    EXPECT_EQ(asked[0].buttons, app::Buttons::Ok);
    EXPECT_EQ(asked[0].icon, app::Icon::Error);
    EXPECT_THAT(user.Dialogs(), SizeIs(1)) << "no name is asked for";
  }
  EXPECT_EQ(Store().GetLanguages().children.count(), 2);
  EXPECT_EQ(NewLog(), "");
}

TEST_F(Language, AMergeTakesIdsOfLettersAndDigits) {
  for (const char* const id : {"a", "fr01", "EN", "en1", "z9Z9"}) {
    const std::filesystem::path merged = folder / (std::string(id) + ".xml");
    WillName(id, "New");
    user.WillPick({GivenFile("new.xml", kTested)});
    user.WillPick({merged});
    user.SendCommand(command::kMergeTranslations);
    ovk::xml::element root;
    ASSERT_TRUE(ovk::xml::load(merged, root)) << id;
    EXPECT_NE(root.child("languages").find_child_by_id("language", id), nullptr);
    EXPECT_TRUE(root.child("strings").find_child_by_id("string", "Undo")->child(id).text == "Oje") << id;
  }
}

TEST_F(Language, AMergeCanBeLeftAtEachQuestion) {
  const std::filesystem::path file = GivenFile("new.xml", kTested);
  const std::string before = Menus();
  user.WillFill({Press(kCancel)});  // no id
  user.SendCommand(command::kMergeTranslations);
  user.WillFill({Press(kOk)});  // an empty one
  user.SendCommand(command::kMergeTranslations);
  user.WillFill({Type(value_id::kValue, "xx"), Press(kOk)});
  user.WillFill({Press(kOk)});  // an empty name
  user.SendCommand(command::kMergeTranslations);
  WillName("xx", "Xx");
  user.WillPick({});  // no file
  user.SendCommand(command::kMergeTranslations);
  EXPECT_EQ(Store().GetLanguages().children.count(), 2);
  EXPECT_EQ(NewLog(), "");
  WillName("xx", "Xx");
  user.WillPick({file});
  user.WillPick({});  // nowhere to write
  user.SendCommand(command::kMergeTranslations);
  EXPECT_EQ(NewLog(), "Translation file " + Utf8FromPath(file) + " loaded successfully!\n");
  EXPECT_EQ(Store().GetLanguages().children.count(), 3) << "it is in the running program all the same";
  EXPECT_FALSE(user.MenuItem(kTest).exists);
  EXPECT_EQ(Menus(), before) << "and in the menu with the next change of language";
  user.Choose(command::kEnglish);
  EXPECT_EQ(user.MenuItem(kTest).text, "Xx");
}

TEST_F(Language, ABadFileIsNotMerged) {
  WillName("xx", "Xx");
  user.WillPick({GivenFile("bad.xml", "<")});
  user.WillAnswer(app::Answer::Ok);
  user.SendCommand(command::kMergeTranslations);
  EXPECT_EQ(user.Questions().at(0).title, u"Invalid Translation File");
  EXPECT_EQ(Store().GetLanguages().children.count(), 2);
}

TEST_F(Language, AMergeThatCannotBeWrittenSaysNothingOfItsOwn) {
  const std::filesystem::path file = GivenFile("new.xml", kTested);
  WillName("xx", "Xx");
  user.WillPick({file});
  user.WillPick({folder / "missing" / "merged.xml"});
  user.SendCommand(command::kMergeTranslations);
  const std::string log = NewLog();
  EXPECT_THAT(log, HasSubstr("Error creating file ")) << "as of every file";
  EXPECT_THAT(log, Not(HasSubstr("merge success")));
  EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 2);
}

}  // namespace
