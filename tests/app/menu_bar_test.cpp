// Texts, enabling and check marks of the menu bar.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/files.h"
#include "localisation/translation_store.h"
#include "tests/app/app_test.h"

namespace {

using testing::ElementsAre;
namespace command = app::command;
namespace menu = app::menu;

class MenuBar : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
  }

  headless::Menu& Menu() { return user.GetDesktop().menu; }
  TranslationStore& Translations() { return user.Translations(); }
  // The program runs with these languages.
  void GivenLanguages(const std::string& languages) {
    user.translations = "<localisation><languages>" + languages + "</languages></localisation>";
    GivenTheProgramRuns();
  }
  app::MenuBar& Bar() { return *user.State().menuBar; }
  std::vector<std::string> TextsOf(int position) {
    std::vector<std::string> texts;
    for (const headless::MenuItem& item : Menu().bar[static_cast<std::size_t>(position)].items) {
      texts.push_back(Utf8FromWide(item.text));
    }
    return texts;
  }
  std::string CheckedSpeed() {
    std::string checked;
    for (const int number : kSpeeds) {
      if (Menu().Find(number)->checked) checked += Utf8FromWide(Menu().Find(number)->text);
    }
    return checked;
  }

  static constexpr int kSpeeds[] = {command::kSpeedFast, command::kSpeedNormal, command::kSpeedSlow,
                                    command::kSpeedCustom};
};

TEST_F(MenuBar, SuffixesFollowTheTexts) {
  EXPECT_THAT(
      TextsOf(menu::kFile),
      ElementsAre("New Program", "Load Program", "Save Program", "Save Program As", "", "Import TMF (PLED)",
                  "Export TMF (PLED)", "", "Import LMF (LEDControl)", "Export LMF (LEDControl)", "",
                  "Export RAW", "", "Program info", "", "Exit", "", "New from template"));
}

TEST_F(MenuBar, SubmenusAndMenusOfTheBarHaveTheirTexts) {
  // The shell's own texts give way to the translated ones.
  Menu().SetPopupText(menu::kMode, u"?", -1);
  Menu().SetPopupText(4, u"?", menu::kMode);
  Menu().SetItemText(command::kAlign3, u"?");
  Bar().ApplyTexts();
  EXPECT_EQ(Menu().bar[menu::kMode].text, u"Mode");
  EXPECT_EQ(Menu().bar[menu::kMode].items[4].text, u"Align steps");
  EXPECT_EQ(Menu().Find(command::kAlign3)->text, u"3 minute intervals");
  EXPECT_EQ(Menu().bar[menu::kDevice].items[8].text, u"Demo speed");
}

TEST_F(MenuBar, ALanguageThatIsAddedStandsInFrontOfEnglishAndStaysThere) {
  EXPECT_THAT(TextsOf(menu::kLanguage), ElementsAre("English"));
  GivenLanguages("<language id='de' name='Deutsch'/><language id='test' name='Test Translation'/>");
  EXPECT_THAT(TextsOf(menu::kLanguage), ElementsAre("Deutsch", "Test Translation", "English"));
  EXPECT_TRUE(Menu().HasItem(command::kFirstLanguage));
  EXPECT_TRUE(Menu().HasItem(command::kFirstLanguage + 1));
  const std::filesystem::path file = folder / "cz.xml";
  ASSERT_TRUE(WriteFileBytes(file, "<strings/>"));
  ASSERT_TRUE(Translations().LoadTranslationFile(file, "cz", "Česky"));
  Bar().ApplyTexts();
  Bar().ApplyTexts();
  EXPECT_THAT(TextsOf(menu::kLanguage), ElementsAre("Deutsch", "Test Translation", "Česky", "English"));
}

TEST_F(MenuBar, MarksTheLanguageInUse) {
  EXPECT_TRUE(Menu().Find(command::kEnglish)->checked);
  GivenLanguages("<language id='de' name='Deutsch'/><language id='den' name='other'/>");
  Translations().SetLanguage("de");
  Bar().ApplyTexts();
  EXPECT_FALSE(Menu().Find(command::kEnglish)->checked);
  EXPECT_TRUE(Menu().Find(command::kFirstLanguage)->checked);
  EXPECT_FALSE(Menu().Find(command::kFirstLanguage + 1)->checked) << "whole texts are compared";
}

TEST_F(MenuBar, ShowsAsManyLanguagesAsThereAreCommands) {
  std::string languages;
  for (int i = 0; i < 200; ++i) languages += "<language id='x' name='x'/>";
  GivenLanguages(languages);
  EXPECT_TRUE(Menu().HasItem(command::kLastLanguage));
  EXPECT_THAT(TextsOf(menu::kLanguage), testing::SizeIs(99 + 1)) << "those and English";
}

// What a demo greys; all else follows the selection or is always there.
const std::set<int> kIdleOnly = {
    command::kNewProgram,
    command::kReefTemplate,
    command::kPlantedTankTemplate,
    command::kSeedlingsTemplate,
    command::kRefugiumTemplate,
    command::kBlackwaterTemplate,
    command::kLoadProgram,
    command::kUndo,
    command::kRedo,
    command::kSyncTime,
    command::kSetTime,
    command::kUploadProgram,
    command::kClearAll,
    command::kSpeedFast,
    command::kSpeedNormal,
    command::kSpeedSlow,
    command::kSpeedCustom,
    command::kPlayDemo,
    command::kScanWifi,
    command::kSetupWifi,
    command::kCopySteps,
    command::kPasteSteps,
    command::kMoveStepsUp,
    command::kMoveStepsDown,
    command::kClearSteps,
    command::kManualStepsAdd,
    command::kManualStepsEdit,
    command::kRenameChannel,
    command::kChannelColor,
    command::kChangeSteps,
    command::kStepTable,
    command::kOptimizeForTC421,
    command::kEndpointStart,
    command::kEndpointEnd,
    command::kAlign3,
    command::kAlign5,
    command::kAlign10,
    command::kAlign15,
    command::kAlign30,
    command::kAlign60,
    command::kNewFromSun,
    command::kNewFromMoon,
    command::kNewFromRampDay,
    command::kNewFromAcclimation,
    command::kNewFromSeason,
    // With a step selected.
    command::kDeleteStep,
    command::kToggleJump,
};
const std::set<int> kAlways = {
    command::kSaveProgram, command::kSaveProgramAs,     command::kImportTmf,       command::kExportTmf,
    command::kImportLmf,   command::kExportLmf,         command::kExportRaw,       command::kProgramInfo,
    command::kExit,        command::kAddEmulator,       command::kEnglish,         command::kLogging,
    command::kKnownIssues, command::kExportTranslation, command::kTestTranslation, command::kAbout,
};

TEST_F(MenuBar, EnablesByWhetherADemoRuns) {
  GivenSelection(0, 0);
  for (const bool idle : {true, false, true}) {
    Bar().Refresh(idle ? -1 : 0, false);
    for (const int number : kIdleOnly) EXPECT_EQ(Menu().IsEnabled(number), idle) << number;
    for (const int number : kAlways) EXPECT_TRUE(Menu().IsEnabled(number)) << number;
    EXPECT_EQ(Menu().IsEnabled(command::kStopDemo), !idle);
  }
}

TEST_F(MenuBar, DuringADemoChannelAndModeAreGreyAndSavingStillWorks) {
  GivenDemoAt(100);
  EXPECT_FALSE(user.MenuItem(command::kCopySteps).enabled);
  EXPECT_FALSE(Menu().bar[menu::kChannel].enabled);
  EXPECT_FALSE(Menu().bar[menu::kMode].enabled);
  user.WillPick({folder / "during.xml"});
  EXPECT_TRUE(user.Choose(command::kSaveProgram));
  EXPECT_TRUE(std::filesystem::exists(folder / "during.xml"));
}

struct SelectionRow {
  int channel;
  int step;
  bool enabled;
};

TEST_F(MenuBar, StepCommandsNeedAStep) {
  Channel(0) = {{8, 0}, {9, 0}, {10, 0}};
  const SelectionRow rows[] = {{-1, -1, false}, {0, -1, false}, {0, 0, true},   {0, 2, true},
                               {0, 3, false},   {5, 0, false},  {-1, 0, false}, {4, 0, true}};
  for (const SelectionRow& row : rows) {
    GivenSelection(row.channel, row.step);
    Bar().Refresh(-1, false);
    EXPECT_EQ(Menu().IsEnabled(command::kToggleJump), row.enabled) << row.channel << ", " << row.step;
    EXPECT_EQ(Menu().IsEnabled(command::kDeleteStep), row.enabled) << row.channel << ", " << row.step;
  }
}

TEST_F(MenuBar, MarksLogging) {
  Bar().Refresh(-1, true);
  EXPECT_TRUE(Menu().Find(command::kLogging)->checked);
  Bar().Refresh(-1, false);
  EXPECT_FALSE(Menu().Find(command::kLogging)->checked);
}

TEST_F(MenuBar, MarksASettingThatIsOn) {
  Bar().Refresh(-1, false);
  EXPECT_FALSE(Menu().Find(command::kLightStrip)->checked);
  user.GetSettings().SetOn(Settings::kLightStrip, true);
  Bar().Refresh(-1, false);
  EXPECT_TRUE(Menu().Find(command::kLightStrip)->checked);
  user.GetSettings().SetOn(Settings::kLightStrip, false);
  Bar().Refresh(-1, false);
  EXPECT_FALSE(Menu().Find(command::kLightStrip)->checked);
}

TEST_F(MenuBar, MarksTheSpeed) {
  const std::pair<int, const char*> rows[] = {{60, "Fast (60 secs)"},
                                              {180, "Normal (180 secs)"},
                                              {300, "Slow (300 secs)"},
                                              {120, "Custom..."},
                                              {61, "Custom..."}};
  for (const auto& [speed, text] : rows) {
    user.GetSettings().SetDemoSpeed(speed);
    Bar().Refresh(-1, false);
    EXPECT_EQ(CheckedSpeed(), text) << speed;
  }
}

TEST_F(MenuBar, ASpeedOfSixtyIsFastWhereverItCameFrom) {
  user.GetSettings().SetValue("demo_speed", "60");
  Bar().Refresh(-1, false);
  EXPECT_EQ(CheckedSpeed(), "Fast (60 secs)");
}

}  // namespace
