// What the running program asks for. The store records each key that is not in the document, so a text that
// the sources hide from a reader of them shows here.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "OvkLib/src/ovk_xml.h"
#include "common/files.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "localisation/translation_store.h"
#include "program/settings.h"
#include "tests/app/app_test.h"
#include "tests/localisation/program_texts.h"
#include "tests/support/sim_hidapi.h"

namespace {

using namespace in_dialog;
using app::Answer;
using app::Control;
namespace command = app::command;

class RecordedTexts : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    ASSERT_TRUE(user.ReadTranslations(std::filesystem::path(LUMARINE_SOURCE_DIR) / "resources"));
    Settings settings(folder / Settings::fileName);
    settings.SetValue("locale", "de");
    settings.Save();
  }
  void TearDown() override { ExpectNothingUntranslated(); }

  // Since the program was started last.
  void ExpectNothingUntranslated() {
    std::set<std::string> english;
    for (const auto& text : program_texts::LookedUpInVain()) english.insert(text.text);
    ovk::xml::element tree = user.Translations().CopyTree();
    for (const auto& entry : tree.child("strings").children) {
      const std::string key(entry->attribute_or_empty("id").view());
      if (!WasAskedInVain(*entry) || program_texts::LeftOver().contains(key)) continue;
      EXPECT_TRUE(english.contains(key)) << key;
    }
  }

  // A key that the document does not have comes without children, and one that it has in other languages
  // only with an empty one.
  static bool WasAskedInVain(const ovk::xml::element& entry) {
    const auto isGerman = [](const auto& child) { return child->name == "de"; };
    const auto german = std::find_if(entry.children.begin(), entry.children.end(), isGerman);
    return german == entry.children.end() || (*german)->text.empty();
  }

  void Choose(int number) { EXPECT_TRUE(user.Choose(number)) << number; }
  void ChooseAndCancel(int number) {
    user.WillFill({PressEscape()});
    Choose(number);
  }
  void ChooseAndPickNothing(int number) {
    user.WillPick({});
    Choose(number);
  }
};

TEST_F(RecordedTexts, OfTheMenusAndTheirDialogs) {
  user.Start();
  EXPECT_EQ(user.Translations().GetLanguageId(), "de");
  Choose(command::kAddEmulator);
  for (const int number : {command::kLoadProgram, command::kSaveProgramAs, command::kImportTmf,
                           command::kExportTmf, command::kImportLmf, command::kExportLmf, command::kExportRaw,
                           command::kExportTranslation, command::kTestTranslation}) {
    ChooseAndPickNothing(number);
  }
  for (const int number :
       {command::kSetTime, command::kSpeedCustom, command::kSetupWifi, command::kFigures, command::kAbout}) {
    ChooseAndCancel(number);
  }
  for (const int number : {command::kSpeedFast, command::kProgramInfo, command::kLogging, command::kAlign30,
                           command::kAlign3, command::kEndpointStart, command::kEndpointEnd,
                           command::kOptimizeForTC421, command::kUndo, command::kRedo}) {
    Choose(number);
  }
  user.WillAnswer(Answer::Ok);
  Choose(command::kKnownIssues);
  GivenSelection(0, 1);
  for (const int number : {command::kManualStepsAdd, command::kManualStepsEdit, command::kRenameChannel}) {
    ChooseAndCancel(number);
  }
  for (const int number :
       {command::kToggleJump, command::kCopySteps, command::kPasteSteps, command::kMoveStepsUp,
        command::kMoveStepsDown, command::kChannelColor, command::kClearSteps}) {
    Choose(number);
  }
  Choose(command::kLightStrip);
  for (const int number : {command::kReefTemplate, command::kPlantedTankTemplate, command::kSeedlingsTemplate,
                           command::kRefugiumTemplate, command::kBlackwaterTemplate}) {
    user.WillAnswer(Answer::No);
    Choose(number);
  }
  user.WillFill({PressEscape()});
  user.Press(Control::AddModeButton);
  user.Press(Control::DeleteModeButton);
  user.WillFill({PressEscape()});
  user.DoubleClickRow(Control::ModeList, 0);
  user.DoubleClickRow(Control::DeviceList, 0);
}

TEST_F(RecordedTexts, OfTheWorker) {
  user.Start();
  Choose(command::kAddEmulator);
  for (const int number :
       {command::kSyncTime, command::kUploadProgram, command::kClearAll, command::kScanWifi}) {
    Choose(number);
  }
  user.GetSettings().SetDemoSpeed(10);
  Choose(command::kPlayDemo);
  EXPECT_TRUE(user.WaitForLog("Demo beendet"));
  sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
  EXPECT_TRUE(user.WaitForLog("TC420-Gerät verbunden"));
  sim_hidapi::PullOut(sim_hidapi::Family::TC420);
  EXPECT_TRUE(user.WaitForLog("TC420-Gerät getrennt"));
}

TEST_F(RecordedTexts, OfFilesThatCannotBeRead) {
  user.Start();
  const std::filesystem::path file = folder / "nothing.xml";
  ASSERT_TRUE(WriteFileBytes(file, "nothing"));
  for (const int number : {command::kLoadProgram, command::kImportTmf, command::kImportLmf}) {
    user.WillPick({file});
    Choose(number);
    user.WillPick({folder / "none"});
    Choose(number);
  }
  for (const int number : {command::kSaveProgramAs, command::kExportTmf, command::kExportLmf,
                           command::kExportRaw, command::kExportTranslation}) {
    user.WillPick({folder / "none" / "file"});
    if (number == command::kSaveProgramAs) user.WillAnswer(app::Answer::Ok);  // that it was not saved
    Choose(number);
  }
}

TEST_F(RecordedTexts, OfWorkThatIsGuarded) {
  user.Start();
  ASSERT_TRUE(WriteFileBytes(folder / "taken.tmf", "taken"));
  user.WillPick({folder / "taken.tmf"});
  user.WillAnswer(app::Answer::Yes);
  Choose(command::kExportTmf);
  user.DropFiles({folder / "none.xml", folder / "other.xml"});
  user.WillPick({folder / "none" / "file.xml"});
  user.WillAnswer(app::Answer::Ok);
  Choose(command::kSaveProgramAs);
  ExpectNothingUntranslated();
  user.Close();
  user.WillAnswer(app::Answer::Yes);
  user.Start();
  EXPECT_EQ(user.Questions().size(), 1U);
}

}  // namespace
