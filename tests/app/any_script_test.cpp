// What people write, in any script, goes through dialogs, lists, title, files, settings and log unharmed.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/files.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "tests/app/app_test.h"

namespace {

using namespace in_dialog;
using app::Control;
using dialogs::kOk;
using testing::Contains;
using testing::HasSubstr;
namespace command = app::command;
namespace id = dialogs::mode_name_control;

// At most fifteen UTF-16 units each.
constexpr const char* kWords[] = {
    "Žluťoučký kůň",  "Zażółć gęślą", "Ανατολή ηλίου", "日の出と月", "🐠🪸 reef 🌊",
    "e\u0301b\u0308", "שקיעה",        "กลางคืน",        "<&> \"'"};

class AnyScript : public AppTest, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
  }

  const std::string word{GetParam()};
};

TEST_P(AnyScript, NamesAModeFromTheDialogToTheFileAndBack) {
  user.WillFill({Type(id::kName, word), Type(id::kDescription, word + "\n" + word), Press(kOk)});
  user.Press(Control::AddModeButton);
  EXPECT_THAT(user.List(Control::ModeList), Contains(word));
  EXPECT_EQ(NewLog(), "Added new mode: " + word + "\n");
  EXPECT_EQ(user.Text(Control::ModeDescription), "Mode " + word + " (Steps: 12): " + word + "\r\n" + word);

  const std::filesystem::path file = folder / PathFromUtf8("🐠 日の出.xml");
  user.WillPick({file});
  user.Choose(command::kSaveProgramAs);
  EXPECT_EQ(user.Title(), "Lumarine - " + Utf8FromPath(file));
  EXPECT_THAT(NewLog(), HasSubstr("Saved program " + Utf8FromPath(file) + "\n"));
  user.Close();
  ASSERT_FALSE(user.IsRunning()) << "saved is saved";

  user.Start();  // with the file that was open last
  EXPECT_EQ(user.Title(), "Lumarine - " + Utf8FromPath(file));
  EXPECT_THAT(user.List(Control::ModeList), Contains(word));
  EXPECT_EQ(Program().modes.back().name, word);
  EXPECT_EQ(Program().modes.back().description, word + "\r\n" + word);

  user.ClickRow(Control::ModeList, 2);
  user.WillFill({Press(kOk)});
  user.DoubleClickRow(Control::ModeList, 2);
  EXPECT_EQ(user.Dialogs().back().controls.at(id::kName).text, word) << "and back into the dialog";
  EXPECT_EQ(Mode().name, word) << "from where it comes as it went";
}

TEST_P(AnyScript, NamesAChannelFromTheDialogToTheFileAndBack) {
  GivenSelection(2, -1);
  user.WillFill({Type(id::kName, word), Type(id::kDescription, word), Press(kOk)});
  user.Choose(command::kRenameChannel);
  const std::filesystem::path file = folder / "channels.xml";
  user.WillPick({file});
  user.Choose(command::kSaveProgramAs);
  user.Choose(command::kNewProgram);
  user.WillAnswer(app::Answer::No);  // a new program is a change of the one saved
  user.WillPick({file});
  user.Choose(command::kLoadProgram);
  EXPECT_EQ(Program().channelInfos[2].name, word);
}

TEST_P(AnyScript, NamesADeviceFromTheDialogToTheSettingsAndBack) {
  GivenDevices({"A"});
  user.WillFill({Type(id::kName, word), Type(id::kDescription, word), Press(kOk)});
  user.DoubleClickRow(Control::DeviceList, 0);
  EXPECT_THAT(user.List(Control::DeviceList), Contains(word));
  user.Close();
  ASSERT_FALSE(user.IsRunning());
  user.Start();
  GivenDevices({"A"});
  EXPECT_THAT(user.List(Control::DeviceList), Contains(word));
  EXPECT_EQ(user.GetSettings().GetDeviceValue("device_description", "A", ""), word);
}

INSTANTIATE_TEST_SUITE_P(Words, AnyScript, testing::ValuesIn(kWords),
                         [](const auto& row) { return std::to_string(row.index); });

}  // namespace
