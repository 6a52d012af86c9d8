// What only the real window can show: its controls, keys and mouse, as Windows carries them out.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "app/commands.h"
#include "app/window/numbers.h"
#include "common/files.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"
#include "tests/desktop/patience.h"
#include "tests/support/temporary_folder.h"

namespace {

using app::Control;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;
namespace command = app::command;

constexpr int kEnterKey = 13;
constexpr int kMenuKey = 121;  // F10

class DesktopWindow : public testing::Test {
 protected:
  void SetUp() override { user.Start(); }
  void TearDown() override {
    if (user.IsRunning()) user.Close();
    EXPECT_FALSE(user.IsRunning());
  }

  const desktop::FirstDay firstDay;
  // Waits until the demo's label says `text`.
  void WaitForDemo(const std::string& text) {
    desktop::WaitUntil([&] { return user.Text(Control::DemoStatusLabel) == text; });
    EXPECT_EQ(user.Text(Control::DemoStatusLabel), text);
  }

  desktop::DesktopUser driver;
  User& user = driver;
};

TEST_F(DesktopWindow, CannotBeMadeSmallerThanItsLeastSize) {
  user.Resize(300, 200);
  const app::Size least = user.ClientSize();
  EXPECT_GT(least.width, app::kLeastWindowWidth - 40) << "but for the frame";
  EXPECT_LE(least.width, app::kLeastWindowWidth);
  EXPECT_GT(least.height, app::kLeastWindowHeight - 100) << "but for the frame, title and menu";
  EXPECT_LE(least.height, app::kLeastWindowHeight);
}

TEST_F(DesktopWindow, AClickInTheModeListChangesTheMode) {
  user.ClickRow(Control::ModeList, 1);
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(1));
  EXPECT_THAT(user.Text(Control::ModeDescription), StartsWith("Mode AlwaysOn (Steps: 2)"));
}

TEST_F(DesktopWindow, ZoomKeysWorkFromTheModeList) {
  user.ClickRow(Control::ModeList, 0);
  user.PressKey(app::key::kNumpadAdd);
  user.PressKey(app::key::kNumpadAdd);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 2);
  user.PressKey(app::key::kNumpadSubtract);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
}

TEST_F(DesktopWindow, ControlsThatHaveTheFocusLetTheAcceleratorsThrough) {
  user.Press(Control::StopButton);
  user.PressKey(app::key::kNumpadAdd);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
}

TEST_F(DesktopWindow, LogPaneIsEmptiedWholeOnceItIsFull) {
  std::size_t longest = 0;
  while (user.Log().size() >= longest && longest < 100000) {
    longest = user.Log().size();
    user.Choose(command::kProgramInfo);
  }
  EXPECT_LT(user.Log().size(), longest);
  EXPECT_THAT(user.Log(), testing::Not(HasSubstr("Language set to English"))) << "not by lines from its top";
}

TEST_F(DesktopWindow, DemoGreysTheMenusAndEndsByTheStopButton) {
  user.Choose(command::kAddEmulator);
  user.Press(Control::PlayButton);
  WaitForDemo("Playing");
  EXPECT_TRUE(user.MenuItem(command::kStopDemo).enabled);
  EXPECT_FALSE(user.MenuItem(command::kClearSteps).enabled) << "by its menu";
  EXPECT_FALSE(user.MenuItem(command::kUndo).enabled) << "by itself";
  EXPECT_FALSE(user.IsEnabled(Control::ModeList));
  user.Press(Control::StopButton);
  WaitForDemo("Ready (60s)");
  EXPECT_TRUE(desktop::WaitUntil([&] { return user.MenuItem(command::kUndo).enabled; }));
  EXPECT_TRUE(user.IsEnabled(Control::ModeList));
}

TEST_F(DesktopWindow, KnownIssuesComeInABoxOverTheWindow) {
  user.WillAnswer(app::Answer::Ok);
  ASSERT_TRUE(user.Choose(command::kKnownIssues));
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"Known issues with some TC420 devices");
  EXPECT_NE(asked[0].text.find(u"\"AlwaysOn\" (2 steps)"), std::u16string::npos);
}

TEST_F(DesktopWindow, LanguagesAreChosenInTheMenuItself) {
  const auto openLanguageMenu = [this] {
    user.PressKey(kMenuKey);
    for (int i = 0; i < app::menu::kLanguage; ++i) user.PressKey(app::key::kRight);
    user.PressKey(app::key::kDown);  // onto the first of them
  };
  openLanguageMenu();
  user.PressKey(kEnterKey);
  EXPECT_TRUE(user.MenuItem(command::kFirstLanguage).checked);
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Geräte");
  const std::string german = user.MenuItem(command::kUndo).text;
  EXPECT_NE(german, "Undo");
  openLanguageMenu();
  user.PressKey(app::key::kUp);  // round to the last
  user.PressKey(kEnterKey);
  EXPECT_TRUE(user.MenuItem(command::kEnglish).checked);
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Devices");
  EXPECT_EQ(user.MenuItem(command::kUndo).text, "Undo");
}

TEST_F(DesktopWindow, LoadIsCancelledByItsDialog) {
  user.WillPick({});
  ASSERT_TRUE(user.Choose(command::kLoadProgram));
  EXPECT_EQ(user.Title(), "Lumarine - New program");
}

TEST_F(DesktopWindow, PictureShowsTheWindow) {
  const TemporaryFolder folder;
  const std::filesystem::path file = folder / "window.png";
  std::string bytes;
  EXPECT_TRUE(desktop::WaitUntil([&] {
    return user.TakePicture(file) && ReadFileBytes(file, bytes) && bytes.size() > 10000;
  })) << "a screen of one colour is smaller, and so is a window that is not painted yet";
}

}  // namespace
