// Languages: the menu, the change while the program runs, and the translators' tools.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/menu_table.h"
#include "common/files.h"
#include "common/message.h"
#include "common/xml_file.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "localisation/translation_store.h"
#include "tests/app/app_test.h"
#include "tests/support/sim_hidapi.h"

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
namespace menu = app::menu;
namespace value_id = dialogs::get_value_control;

constexpr char kDocument[] = R"(<localisation>
  <languages>
    <language id='de' name='Deutsch'/>
    <language id='sk' name='Slovak' author='Lumarine team'/>
  </languages>
  <strings>
    <string id='AlwaysOn'><de>Dauerlicht</de></string>
    <string id='Cancel'><de>Abbrechen</de></string>
    <string id='Channel power'><de>Kanalstärke</de><sk>Výkon kanála</sk></string>
    <string id='Device'><de>Gerät</de></string>
    <string id='Demo speed'><de>Vorführdauer</de></string>
    <string id='Devices'><de>Geräte</de><sk>Zariadenia</sk></string>
    <string id='English'><de>Englisch</de></string>
    <string id='Enter playback speed'><de>Vorführdauer eingeben</de></string>
    <string id='Export TMF'><de>TMF exportieren</de></string>
    <string id='Language set to {1}'><de>Sprache: {1}</de><sk>Jazyk: {1}</sk></string>
    <string id='Mode {1} (Steps: {2})'><de>{2} Schritte in Modus {1}</de></string>
    <string id='New program'><de>Neues Programm</de></string>
    <string id='Normal'><de>Alltag</de></string>
    <string id='Playing'><de>Läuft</de></string>
    <string id='Program modified'><de>Programm geändert</de></string>
    <string id='Ready ({1}s)'><de>Bereit ({1} s)</de></string>
    <string id='Undo'><de>Rückgängig</de></string>
    <string id='Zoom'><de>Ausschnitt</de></string>
    <string id='two\r\nlines'><de>zwei\r\nZeilen</de></string>
    <string id='translated by {1}!'><sk>preklad: {1}!</sk></string>
  </strings>
</localisation>)";

constexpr int kGerman = command::kFirstLanguage;
constexpr int kSlovak = command::kFirstLanguage + 1;
constexpr int kTest = command::kFirstLanguage + 2;

constexpr char kTested[] =
    "<strings><string id='Devices'><translate>Apparate</translate></string>"
    "<string id='Undo'><translate>Oje</translate></string></strings>";

class Language : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    user.translations = kDocument;
    GivenTheProgramRuns();
  }
  void TearDown() override { GivenDemoAt(-1); }

  headless::Desktop& Desk() { return user.GetDesktop(); }
  static TranslationStore& Store() { return TranslationStore::Instance(); }
  std::string Locale() { return user.GetSettings().GetValue("locale"); }

  std::filesystem::path File(const std::string& name, std::string_view bytes) {
    const std::filesystem::path path = folder / PathFromUtf8(name);
    EXPECT_TRUE(WriteFileBytes(path, bytes));
    return path;
  }
  static std::string Bytes(const std::filesystem::path& path) {
    std::string bytes;
    EXPECT_TRUE(ReadFileBytes(path, bytes)) << path;
    return bytes;
  }

  void Test(const std::filesystem::path& file) {
    user.WillPick({file});
    ASSERT_TRUE(user.Choose(command::kTestTranslation));
  }
  /// Answers the two questions for a language.
  void WillName(const std::string& id, const std::string& name) {
    user.WillFill({Type(value_id::kValue, id), Press(kOk)});
    user.WillFill({Type(value_id::kValue, name), Press(kOk)});
  }
  std::filesystem::path Export() {
    const std::filesystem::path file = folder / "exported.xml";
    user.WillPick({file});
    user.Choose(command::kExportTranslation);
    return file;
  }
  /// The text of a key in an exchange file.
  static std::string TextIn(const std::filesystem::path& file, std::string_view key) {
    ovk::xml::element root;
    EXPECT_TRUE(ovk::xml::load(file, root));
    ovk::xml::element* const entry = root.find_child_by_id("string", key);
    return entry == nullptr ? "none" : std::string(entry->child("translate").text.view());
  }

  /// All that the menus say, a line for each item; the marked ones with an asterisk.
  std::string Menus() {
    std::string text;
    for (const headless::MenuItem& popup : Desk().menu.bar) Append(text, popup);
    return text;
  }
  std::vector<std::string> LanguageMenu() {
    std::vector<std::string> texts;
    for (const headless::MenuItem& item : Desk().menu.bar[menu::kLanguage].items)
      texts.push_back(Utf8FromWide(item.text) + (item.checked ? "*" : ""));
    return texts;
  }

 private:
  static void Append(std::string& text, const headless::MenuItem& item) {
    text += Utf8FromWide(item.text) + (item.checked ? "*\n" : "\n");
    for (const headless::MenuItem& below : item.items) Append(text, below);
  }
};

// The menu

TEST_F(Language, EachStandsInFrontOfEnglishInTheOrderOfTheTranslations) {
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch", "Slovak", "English*"));
  EXPECT_TRUE(user.Choose(kGerman));
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch*", "Slovak", "Englisch"));
  EXPECT_TRUE(user.Choose(kSlovak));
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch", "Slovak*", "English"));
  EXPECT_TRUE(user.Choose(command::kEnglish));
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch", "Slovak", "English*"));
}

TEST_F(Language, WhatIsChosenIsSpokenEverywhere) {
  user.Choose(kGerman);
  EXPECT_EQ(user.MenuItem(command::kUndo).text, "Rückgängig");
  EXPECT_EQ(user.MenuItem(command::kExportTmf).text, "TMF exportieren (PLED)");
  EXPECT_EQ(Desk().menu.bar[menu::kDevice].text, u"Gerät");
  EXPECT_EQ(Desk().menu.bar[menu::kDevice].items[8].text, u"Vorführdauer");
  EXPECT_EQ(user.MenuItem(command::kRedo).text, "Redo") << "what is not translated is in English";
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Geräte");
  EXPECT_EQ(user.Text(Control::PowerTitleLabel), "Kanalstärke");
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Bereit (60 s)");
  EXPECT_THAT(user.Text(Control::ModeDescription), StartsWith("12 Schritte in Modus Normal: Daily"))
      << "what the program holds stays as it is";
  user.Choose(command::kAlign60);
  user.Choose(command::kUndo);
  EXPECT_THAT(NewLog(), HasSubstr("Rückgängig\n"));
}

TEST_F(Language, TheChangeGoesThroughMenusChartAndLabelsInThisOrder) {
  Desk().chart.invalidated.clear();
  user.Choose(kGerman);
  EXPECT_THAT(NewJournal(), ElementsAre("redraw menu", "renderer: rebuild"));
  EXPECT_THAT(Desk().chart.invalidated, SizeIs(1)) << "the channels' names are drawn anew";
}

TEST_F(Language, DialogsThatOpenLaterSpeakIt) {
  user.Choose(kGerman);
  user.WillFill({Press(kCancel)});
  user.Choose(command::kSpeedCustom);
  const SeenDialog seen = user.Dialogs().at(0);
  EXPECT_EQ(seen.title, "Vorführdauer eingeben");
  EXPECT_EQ(seen.controls.at(kCancel).text, "Abbrechen");
  user.Choose(command::kAlign60);
  user.WillAnswer(app::Answer::Cancel);
  user.Close();
  EXPECT_EQ(user.Questions().at(0).title, u"Programm geändert");
}

// What changed the label too would have to measure it anew; it says what it said at the start.
TEST_F(Language, AfterAChangeZoomStaysInTheOldLanguage) {
  user.Choose(kGerman);
  EXPECT_EQ(user.Text(Control::ZoomLabel), "Zoom");
  EXPECT_EQ(user.Title(), "Lumarine - New program") << "as does the title, until the next program";
  user.Close();
  user.Start();
  EXPECT_EQ(user.Text(Control::ZoomLabel), "Ausschnitt");
  EXPECT_EQ(user.Title(), "Lumarine - Neues Programm");
  user.Choose(command::kEnglish);
  EXPECT_EQ(user.Text(Control::ZoomLabel), "Ausschnitt");
}

TEST_F(Language, ChoosingTheActiveOneAgainRedoesAllOfIt) {
  user.Choose(kGerman);
  Desk().menu.SetItemText(command::kUndo, u"?");
  user.GetSettings().SetValue("locale", "?");
  NewLog();
  NewJournal();
  user.Choose(kGerman);
  EXPECT_EQ(NewLog(), "Sprache: Deutsch\n");
  EXPECT_THAT(NewJournal(), ElementsAre("redraw menu", "renderer: rebuild"));
  EXPECT_EQ(user.MenuItem(command::kUndo).text, "Rückgängig");
  EXPECT_EQ(Locale(), "de");
}

TEST_F(Language, OneWithoutAnAuthorIsAnnouncedByItsName) {
  user.Choose(kGerman);
  EXPECT_EQ(NewLog(), "Sprache: Deutsch\n");
  user.Choose(kSlovak);
  EXPECT_EQ(NewLog(), "Jazyk: Slovak, preklad: Lumarine team!\n");
  user.Choose(command::kEnglish);
  EXPECT_EQ(NewLog(), "Language set to English\n");
}

TEST_F(Language, OneWithoutAnIdIsEnglish) {
  Store().StartWith("<localisation><languages><language/><language id='de'/></languages></localisation>");
  Store().SetLanguage("de");
  user.SendCommand(kGerman);
  EXPECT_EQ(Store().GetLanguageId(), "en");
  EXPECT_EQ(Locale(), "en");
  EXPECT_EQ(NewLog(), "Language set to English\n");
}

// The announcement takes a name that is absent for English. Filling the menu gives the language an empty one,
// so that this is heard at a start only, which announces before there is a menu.
TEST_F(Language, OneWithoutANameIsCalledEnglishUntilTheMenuIsFilled) {
  user.Choose(kGerman);
  user.Close();
  user.translations = "<localisation><languages><language id='de'/></languages></localisation>";
  user.Start();
  EXPECT_THAT(user.Log(), StartsWith("Language set to English\r\n"));
  EXPECT_EQ(Store().GetLanguageId(), "de");
  EXPECT_THAT(LanguageMenu(), ElementsAre("*", "English"));
  NewLog();
  user.SendCommand(kGerman);
  EXPECT_EQ(NewLog(), "Language set to \n");
}

TEST_F(Language, NumbersWithoutALanguageDoNothing) {
  user.Choose(kGerman);
  NewLog();
  NewJournal();
  for (const int number : {kTest, command::kLastLanguage}) user.SendCommand(number);
  EXPECT_EQ(Locale(), "de");
  EXPECT_EQ(NewLog(), "");
  EXPECT_THAT(NewJournal(), IsEmpty());
}

TEST_F(Language, TheLastNumberIsTheNinetyNinthLanguage) {
  std::string languages;
  for (int i = 1; i <= 120; ++i)
    languages += "<language id='l" + std::to_string(i) + "' name='Language " + std::to_string(i) + "'/>";
  Store().StartWith("<localisation><languages>" + languages + "</languages></localisation>");
  user.Choose(command::kEnglish);
  NewLog();
  ASSERT_TRUE(user.Choose(command::kLastLanguage));
  EXPECT_EQ(Store().GetLanguageId(), "l99");
  EXPECT_EQ(NewLog(), "Language set to Language 99\n");
  EXPECT_TRUE(user.MenuItem(command::kLastLanguage).checked);
}

TEST_F(Language, ADemoGoesOnInTheNewLanguage) {
  GivenDemoAt(3600);
  user.Choose(kGerman);
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Läuft");
  EXPECT_EQ(user.Text(Control::TimeLabel), "01:00:00");
  EXPECT_FALSE(user.IsEnabled(Control::ModeList));
  EXPECT_FALSE(Desk().menu.bar[menu::kChannel].enabled);
  EXPECT_TRUE(user.MenuItem(command::kStopDemo).enabled);
}

TEST_F(Language, ListsKeepWhatIsSelectedInThem) {
  GivenDevices({"A", "B*"});
  user.ClickRow(Control::ModeList, 1);
  user.Choose(kGerman);
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn"));
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(1));
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("A", "B"));
  EXPECT_THAT(user.SelectedRows(Control::DeviceList), ElementsAre(1));
}

TEST_F(Language, AThousandChangesLeaveMenusAndListsAsTheyWere) {
  user.Choose(kGerman);
  user.Choose(kSlovak);
  user.Choose(command::kEnglish);
  const std::string before = Menus();
  const std::vector<std::string> modes = user.List(Control::ModeList);
  for (int i = 0; i < 1000; ++i) user.SendCommand(command::kEnglish + i % 3);
  user.Choose(command::kEnglish);
  EXPECT_EQ(Menus(), before);
  EXPECT_EQ(user.List(Control::ModeList), modes);
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(0));
}

TEST_F(Language, TheWorkerTranslatesWhileItChanges) {
  std::atomic<bool> enough = false;
  std::atomic<int> strange = 0;
  std::thread worker([&] {
    for (int i = 0; !enough; ++i) {
      const std::string text = Message("Ready ({1}s)", 7).utf8();
      if (text != "Ready (7s)" && text != "Bereit (7 s)") ++strange;
      // Keys that nobody knows are recorded meanwhile.
      const std::string key = "key " + std::to_string(i % 500);
      if (Message(key).utf8() != key) ++strange;
    }
  });
  for (int i = 0; i < 200; ++i) user.SendCommand(command::kEnglish + i % 3);
  enough = true;
  worker.join();
  EXPECT_EQ(strange, 0);
}

TEST_F(Language, AnUploadSpeaksTheLanguageOfTheMoment) {
  Store().StartWith(R"(<localisation><languages><language id='de' name='Deutsch'/></languages><strings>
    <string id='Uploading finished'><de>Fertig hochgeladen</de></string></strings></localisation>)");
  user.Choose(kGerman);
  user.Choose(command::kAddEmulator);
  user.ClickRow(Control::DeviceList, 0);
  user.Choose(command::kUploadProgram);
  EXPECT_TRUE(user.WaitForLog("Fertig hochgeladen\r\n"));
}

// From one run to the next

TEST_F(Language, TheNextStartSpeaksTheOneThatWasChosen) {
  user.Choose(kGerman);
  user.Close();
  ASSERT_FALSE(user.IsRunning()) << "a change of language is none of the program";
  user.Start();
  EXPECT_THAT(user.Log(), StartsWith("Sprache: Deutsch\r\n"));
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Geräte");
  EXPECT_EQ(user.Text(Control::PowerTitleLabel), "Kanalstärke");
  EXPECT_TRUE(user.MenuItem(kGerman).checked);
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Alltag", "Dauerlicht"));
  user.Close();
  EXPECT_FALSE(user.IsRunning()) << "and nothing was changed";
}

TEST_F(Language, AProcessThatIsKilledLeavesTheOldOne) {
  user.Choose(kGerman);
  user.Close();
  user.Start();
  user.Choose(kSlovak);
  user.Start();  // with what stands in the file
  EXPECT_TRUE(user.MenuItem(kGerman).checked);
}

TEST_F(Language, OneThatIsGoneFromTheTranslationsIsEnglishAtTheNextStart) {
  user.Choose(kSlovak);
  user.Close();
  user.translations =
      "<localisation><languages><language id='de' name='Deutsch'/></languages></localisation>";
  user.Start();
  EXPECT_THAT(user.Log(), StartsWith("Language set to English\r\n"));
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch", "English*"));
  EXPECT_EQ(Locale(), "sk") << "the setting waits for it to come back";
}

TEST_F(Language, WithoutTranslationsThereIsEnglish) {
  user.Choose(kGerman);
  user.Close();
  user.translations = "no document";
  user.Start();
  EXPECT_THAT(LanguageMenu(), ElementsAre("English*"));
  EXPECT_THAT(user.Log(), StartsWith("Language set to English\r\n"));
}

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

TEST_F(Language, AnExportThatCannotBeWrittenSaysSo) {
  const std::filesystem::path file = folder / "missing" / "exported.xml";
  user.WillPick({file});
  user.Choose(command::kExportTranslation);
  EXPECT_THAT(NewLog(), AllOf(StartsWith("Error creating file " + Utf8FromPath(file)),
                              HasSubstr("Error exporting localization file " + Utf8FromPath(file) + "!\n")));
}

// Test

TEST_F(Language, ATestIsSpokenAtOnce) {
  const std::filesystem::path file = File("přeloženo.xml", kTested);
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
  Test(File("test.xml", kTested));
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch", "Slovak", "Test Translation*", "English"));
  EXPECT_EQ(Locale(), "de");
  user.Close();
  user.Start();
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch*", "Slovak", "Englisch")) << "and it is gone";
}

TEST_F(Language, ALanguageAddedByATestKeepsItsPlaceInFrontOfEnglish) {
  Test(File("test.xml", kTested));
  user.Choose(kGerman);
  Test(File("test.xml", kTested));
  user.Choose(command::kEnglish);
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch", "Slovak", "Test Translation", "English*"));
  ASSERT_TRUE(user.Choose(kTest));
  EXPECT_EQ(Locale(), "test") << "chosen from the menu it is a language as any other";
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Apparate");
}

TEST_F(Language, AfterABadTestTheLanguageIsUnchangedAndThereIsNoTest) {
  user.Choose(kGerman);
  NewLog();
  const std::filesystem::path file = File("bad.xml", "<strings><string");
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
  Test(File("test.xml", kTested));
  user.Choose(kGerman);
  user.WillPick({});
  user.Choose(command::kTestTranslation);
  EXPECT_THAT(LanguageMenu(), Contains("Test Translation*"));
  EXPECT_EQ(Locale(), "de");
}

TEST_F(Language, ASecondTestOverwritesKeyByKey) {
  Test(File("first.xml", kTested));
  Test(File("second.xml",
            "<strings><string id='Devices'><translate>Maschinen</translate></string>"
            "<string id='Channel power'><translate>Kraft</translate></string></strings>"));
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Maschinen");
  EXPECT_EQ(user.Text(Control::PowerTitleLabel), "Kraft");
  EXPECT_EQ(user.MenuItem(command::kUndo).text, "Oje") << "what the new file leaves out stays";
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch", "Slovak", "Test Translation*", "English"));
}

TEST_F(Language, AnExportWhileATestIsActiveGivesTheTestedTexts) {
  user.Choose(kGerman);
  Test(File("test.xml", kTested));
  const std::filesystem::path file = Export();
  EXPECT_EQ(TextIn(file, "Devices"), "Apparate");
  EXPECT_EQ(TextIn(file, "Channel power"), "Channel power");
  EXPECT_EQ(Desk().questions.filesAsked.back().startName, "LumarineStrings_de.XML")
      << "under the name of the setting";
}

TEST_F(Language, WhatWasExportedIsTestedAndExportedAsTheSameBytes) {
  user.Choose(kGerman);
  const std::string first = Bytes(Export());
  Test(File("copy.xml", first));
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Geräte");
  // What the test itself said is recorded, so it is exported once more.
  Export();
  Test(File("copy.xml", Bytes(Export())));
  const std::string second = Bytes(Export());
  EXPECT_EQ(Bytes(Export()), second);
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
  const std::filesystem::path file = File("new.xml", kTested);
  WillName("polish", std::string(40, 'n'));
  user.WillPick({file});
  user.WillPick({});
  user.SendCommand(command::kMergeTranslations);
  const ovk::xml::element& added = *Store().GetLanguages().children[2];
  EXPECT_TRUE(added.attribute_or_empty("id") == "poli");
  EXPECT_EQ(added.attribute_or_empty("name").length(), 30);
}

TEST_F(Language, AMergeWritesTheWholeDocument) {
  Test(File("test.xml", kTested));
  user.Choose(kGerman);
  const std::filesystem::path file =
      File("pl.xml",
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
  EXPECT_EQ(Bytes(merged).find("Apparate"), std::string::npos);
  ovk::xml::element& strings = root.child("strings");
  EXPECT_TRUE(strings.find_child_by_id("string", "Devices")->child("pl").text == "Urządzenia");
  EXPECT_TRUE(strings.find_child_by_id("string", "two\\r\\nlines")->child("pl").text == "dwie\\r\\nlinie");
  EXPECT_NE(strings.find_child_by_id("string", "Redo"), nullptr) << "recorded when the menu asked for it";

  EXPECT_EQ(Store().GetLanguageId(), "de") << "the merged one is there, but not spoken";
  EXPECT_EQ(Store().GetLanguages().children.count(), 4) << "the test is, too";
  // The next build starts with it.
  user.Close();
  user.translations = Bytes(merged);
  user.Start();
  EXPECT_THAT(LanguageMenu(), ElementsAre("Deutsch*", "Slovak", "Polish", "Englisch"));
  user.Choose(kTest);  // which number is Polish now
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Urządzenia");
  EXPECT_EQ(Message("two\r\nlines").utf8(), "dwie\r\nlinie");
}

TEST_F(Language, AMergeCanBeLeftAtEachQuestion) {
  const std::filesystem::path file = File("new.xml", kTested);
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
  user.WillPick({File("bad.xml", "<")});
  user.WillAnswer(app::Answer::Ok);
  user.SendCommand(command::kMergeTranslations);
  EXPECT_EQ(user.Questions().at(0).title, u"Invalid Translation File");
  EXPECT_EQ(Store().GetLanguages().children.count(), 2);
}

TEST_F(Language, AMergeThatCannotBeWrittenSaysNothingOfItsOwn) {
  const std::filesystem::path file = File("new.xml", kTested);
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
