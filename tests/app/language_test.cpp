// Languages: the menu, and the change while the program runs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/commands.h"
#include "common/message.h"
#include "common/xml_file.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "localisation/translation_store.h"
#include "tests/app/language_fixture.h"
#include "tests/support/sim_hidapi.h"

namespace {

using namespace in_dialog;
using app::Control;
using dialogs::kCancel;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
namespace command = app::command;
namespace menu = app::menu;

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
  GivenTranslations("<localisation><languages><language/><language id='de'/></languages></localisation>");
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
  GivenTranslations("<localisation><languages>" + languages + "</languages></localisation>");
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
  GivenTranslations(R"(<localisation><languages><language id='de' name='Deutsch'/></languages><strings>
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

}  // namespace
