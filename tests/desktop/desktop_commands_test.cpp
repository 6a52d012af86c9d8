// Commands that have no menu item and no key, and reach the real window as messages.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "app/window/numbers.h"
#include "common/files.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "program/mode_file.h"
#include "program/settings.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"
#include "tests/support/temporary_folder.h"

namespace {

using app::Answer;
using app::Control;
using testing::ElementsAre;
using testing::HasSubstr;
using namespace in_dialog;
namespace command = app::command;
namespace value_id = dialogs::get_value_control;

class DesktopCommands : public testing::Test {
 protected:
  // Of the program, too, which takes it over from here.
  void SetUp() override { std::filesystem::current_path(work.path()); }
  void TearDown() override {
    if (user.IsRunning()) user.Close();
    EXPECT_FALSE(user.IsRunning());
    std::filesystem::current_path(before);
  }

  // Sends the program a command that has no menu item and no key.
  void Send(int number) {
    PostMessageW(FindWindowW(L"LUMARINE", nullptr), WM_COMMAND, static_cast<WPARAM>(number), 0);
    user.Wait(0.0);
  }

  const std::filesystem::path before = std::filesystem::current_path();
  const desktop::FirstDay firstDay;
  const TemporaryFolder work;
  desktop::DesktopUser driver;
  User& user = driver;
};

TEST_F(DesktopCommands, ARandomModeIsAddedAndWrittenIntoTheWorkingFolder) {
  user.Start();
  Send(command::kRandomMode);
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn", "Rand_2"));
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(2));
  TCBase::Program::Mode mode;
  EXPECT_TRUE(LoadModeFile(TCBase::Program::kTmfFile, work / "Rand_2.tmf", mode));
  user.WillAnswer(Answer::No);
  user.Close();
}

TEST_F(DesktopCommands, TranslationsAreMerged) {
  const std::filesystem::path file = work / "new.xml";
  const std::filesystem::path merged = work / "merged.xml";
  ASSERT_TRUE(WriteFileBytes(
      file, "<strings><string id='Devices'><translate>Přístroje 水</translate></string></strings>"));
  user.Start();
  for (const char* const answer : {"xx", "Nová"}) {
    user.WillFill({Type(value_id::kValue, answer), PressEnter()});
  }
  user.WillPick({file});
  user.WillPick({merged});
  Send(command::kMergeTranslations);
  EXPECT_THAT(user.Log(), HasSubstr("Translation merge success: " + Utf8FromPath(merged) + ".\r\n"));
  std::string bytes;
  ASSERT_TRUE(ReadFileBytes(merged, bytes));
  EXPECT_THAT(bytes, HasSubstr("Přístroje 水"));
}

}  // namespace
