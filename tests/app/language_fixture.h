#pragma once

// A small document of two languages, and a program that runs with it.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/commands.h"
#include "app/window/numbers.h"
#include "common/xml_file.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "localisation/translation_store.h"
#include "tests/app/app_test.h"

inline constexpr char kDocument[] = R"(<localisation>
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

inline constexpr int kGerman = app::command::kFirstLanguage;
inline constexpr int kSlovak = app::command::kFirstLanguage + 1;
inline constexpr int kTest = app::command::kFirstLanguage + 2;

inline constexpr char kTested[] =
    "<strings><string id='Devices'><translate>Apparate</translate></string>"
    "<string id='Undo'><translate>Oje</translate></string></strings>";

class Language : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTranslations(kDocument);
  }
  /// The program runs with this document.
  void GivenTranslations(std::string document) {
    user.translations = std::move(document);
    GivenTheProgramRuns();
  }

  headless::Desktop& Desk() { return user.GetDesktop(); }
  TranslationStore& Store() { return user.Translations(); }
  std::string Locale() { return user.GetSettings().GetValue("locale"); }

  void Test(const std::filesystem::path& file) {
    user.WillPick({file});
    ASSERT_TRUE(user.Choose(app::command::kTestTranslation));
  }
  /// Answers the two questions for a language.
  void WillName(const std::string& id, const std::string& name) {
    using namespace in_dialog;
    user.WillFill({Type(dialogs::get_value_control::kValue, id), Press(dialogs::kOk)});
    user.WillFill({Type(dialogs::get_value_control::kValue, name), Press(dialogs::kOk)});
  }
  std::filesystem::path Export() {
    std::filesystem::path file = folder / "exported.xml";
    user.WillPick({file});
    if (std::filesystem::exists(file)) user.WillAnswer(app::Answer::Yes);  // to replace it
    user.Choose(app::command::kExportTranslation);
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
    for (const headless::MenuItem& item : Desk().menu.bar[app::menu::kLanguage].items)
      texts.push_back(Utf8FromWide(item.text) + (item.checked ? "*" : ""));
    return texts;
  }

 private:
  static void Append(std::string& text, const headless::MenuItem& item) {
    text += Utf8FromWide(item.text) + (item.checked ? "*\n" : "\n");
    for (const headless::MenuItem& below : item.items) Append(text, below);
  }
};
