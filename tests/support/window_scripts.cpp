#include "tests/support/window_scripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "app/commands.h"
#include "app/window/numbers.h"
#include "common/files.h"
#include "dialogs/dialog.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "tests/support/files.h"
#include "tests/support/patience.h"
#include "tests/support/window_chart_scripts.h"

namespace scripts {

namespace {

using app::Control;
using testing::EndsWith;
using testing::HasSubstr;
using testing::SizeIs;
using UX::Color;
namespace command = app::command;
namespace key = app::key;
namespace scroll = app::scroll;

constexpr Color kBlack{0, 0, 0};
constexpr Color kRed{255, 0, 0};

constexpr int kEnterKey = 13;

// A place on the first lane, beside the steps of the built-in program.
constexpr int kLaneX = 470;
constexpr int kLaneY = 60;

void Leave(User& user) {
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void LeaveUnsaved(User& user) {
  user.WillAnswer(app::Answer::No);
  Leave(user);
}

// Selects the first lane's channel, for what will change it.
void SelectForAChange(User& user) {
  user.ClickChart(kLaneX, kLaneY);
}

// Zoom slider

void ClickBesideTheZoomSlidersThumb(WindowUser& user, const Folders&) {
  user.Start();
  user.ClickBesideThumb(Control::ZoomSlider, WindowUser::Side::Behind);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
  EXPECT_EQ(user.ScrollBar().first, 23 * 60) << "the view is an hour less";
  user.ClickBesideThumb(Control::ZoomSlider, WindowUser::Side::Behind);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 2);
  user.ClickBesideThumb(Control::ZoomSlider, WindowUser::Side::Before);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
  EXPECT_EQ(user.ScrollBar().first, 23 * 60);
  Leave(user);
}

void MoveTheZoomSliderByKeys(WindowUser& user, const Folders&) {
  user.Start();
  user.Scroll(Control::ZoomSlider, scroll::kLineForward, 0);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
  user.Scroll(Control::ZoomSlider, scroll::kPageForward, 0);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 2);
  user.Scroll(Control::ZoomSlider, scroll::kLast, 0);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 22);
  EXPECT_EQ(user.ScrollBar().first, 2 * 60);
  user.Scroll(Control::ZoomSlider, scroll::kLineBack, 0);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 21);
  user.Scroll(Control::ZoomSlider, scroll::kFirst, 0);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 0);
  EXPECT_EQ(user.ScrollBar().first, 24 * 60);
  Leave(user);
}

void DragTheZoomSlider(WindowUser& user, const Folders&) {
  user.Start();
  user.DragThumb(Control::ZoomSlider, 108);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 22);
  EXPECT_EQ(user.ScrollBar().first, 2 * 60);
  user.DragThumb(Control::ZoomSlider, 1);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 0);
  EXPECT_EQ(user.ScrollBar().first, 24 * 60);
  Leave(user);
}

// Scroll bar

void MoveTheScrollBar(WindowUser& user, const Folders&) {
  user.Start();
  user.Scroll(Control::ZoomSlider, scroll::kLast, 0);
  user.PressKey(app::key::kHome, false);
  ASSERT_EQ(user.ScrollBar(), std::pair(120, 0));
  user.ClickBesideThumb(Control::ScrollBar, WindowUser::Side::Behind);
  EXPECT_EQ(user.ScrollBar(), std::pair(120, 120)) << "by its page";
  user.Scroll(Control::ScrollBar, scroll::kLineForward, 0);
  EXPECT_EQ(user.ScrollBar(), std::pair(120, 135));
  user.Scroll(Control::ScrollBar, scroll::kLineBack, 0);
  user.ClickBesideThumb(Control::ScrollBar, WindowUser::Side::Before);
  EXPECT_EQ(user.ScrollBar(), std::pair(120, 0));
  user.DragThumb(Control::ScrollBar, 840);
  EXPECT_GE(user.ScrollBar().second, 1440 - 120);
  // The view itself has followed: the chart's key for the day's end changes nothing any more.
  user.PressKey(app::key::kEnd, false);
  EXPECT_EQ(user.ScrollBar().second, 1440 - 120);
  Leave(user);
}

// Power slider

void ClickBesideThePowerSlidersThumb(WindowUser& user, const Folders&) {
  user.Start();
  SelectForAChange(user);
  const int power = user.SliderPosition(Control::PowerSlider);
  ASSERT_GT(power, 10);
  user.ClickBesideThumb(Control::PowerSlider, WindowUser::Side::Before);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), power - 1);
  user.Scroll(Control::PowerSlider, scroll::kLineBack, 0);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), power - 2);
  user.ClickBesideThumb(Control::PowerSlider, WindowUser::Side::Behind);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), power - 1);
  LeaveUnsaved(user);
}

void UndoEachDragOfThePowerSlider(WindowUser& user, const Folders&) {
  user.Start();
  SelectForAChange(user);
  user.DragThumb(Control::PowerSlider, 70);
  const int first = user.SliderPosition(Control::PowerSlider);
  user.DragThumb(Control::PowerSlider, 30);
  const int second = user.SliderPosition(Control::PowerSlider);
  EXPECT_LT(second, first);
  ASSERT_TRUE(user.Choose(command::kUndo));
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), first);
  LeaveUnsaved(user);
}

// Log pane

// Starts with a program of one step less than those that come with a warning. A click on the chart adds the
// step that is one too many.
void Warn(User& user, const Folders& folders) {
  TCBase::Program::ModeListView program = TCBase::Program::NewProgram();
  program.modes.resize(1);
  for (TCBase::Program::Channel& channel : program.modes.front().channels) channel.clear();
  for (int hour = 0; hour < 20; ++hour) program.modes.front().channels[4].push_back({hour, 0, 10.0F});
  ASSERT_TRUE(SaveProgram(program, folders.work / "many.xml"));
  user.Start();
  user.WillPick({folders.work / "many.xml"});
  ASSERT_TRUE(user.Choose(command::kLoadProgram));
  user.ClickChart(kLaneX, kLaneY);  // selects the lane
  user.ClickChart(kLaneX, kLaneY);
  ASSERT_THAT(user.Log(), HasSubstr("You have added more than 20 steps."));
}

void SeeTheLogInItsColours(WindowUser& user, const Folders& folders) {
  Warn(user, folders);
  EXPECT_EQ(user.LogColor("Loaded program file"), kBlack);
  EXPECT_EQ(user.LogColor("You have added more than 20 steps."), kRed);
  EXPECT_EQ(user.LogColor("Hint: Press DELETE"), kRed);
  user.Choose(command::kUndo);
  EXPECT_EQ(user.LogColor("Undo"), kRed);
  user.Choose(command::kRedo);
  LeaveUnsaved(user);
}

void PutTheCaretIntoTheLog(WindowUser& user, const Folders& folders) {
  Warn(user, folders);
  user.ClickLog();
  user.Choose(command::kUndo);
  EXPECT_THAT(user.Log(), EndsWith("\r\nUndo\r\n"));
  EXPECT_EQ(user.LogColor("Undo"), kRed);
  user.Choose(command::kRedo);
  LeaveUnsaved(user);
}

// The whole window

void TryToMakeTheWindowTooSmall(WindowUser& user, const Folders&) {
  user.Start();
  user.Resize(300, 200);
  const app::Size least = user.ClientSize();
  EXPECT_GT(least.width, app::kLeastWindowWidth - 40) << "but for the frame";
  EXPECT_LE(least.width, app::kLeastWindowWidth);
  EXPECT_GT(least.height, app::kLeastWindowHeight - 100) << "but for the frame, title and menu";
  EXPECT_LE(least.height, app::kLeastWindowHeight);
  Leave(user);
}

void ChooseLanguagesByTheKeyboard(WindowUser& user, const Folders&) {
  user.Start();
  const auto openLanguageMenu = [&] {
    user.EnterMenuBar();
    for (int i = 0; i < app::menu::kLanguage; ++i) user.PressKey(key::kRight);
    user.PressKey(key::kDown);  // onto the first of them
  };
  openLanguageMenu();
  user.PressKey(kEnterKey);
  EXPECT_TRUE(user.MenuItem(command::kFirstLanguage).checked);
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Geräte");
  EXPECT_NE(user.MenuItem(command::kUndo).text, "Undo");
  openLanguageMenu();
  user.PressKey(key::kUp);  // round to the last
  user.PressKey(kEnterKey);
  EXPECT_TRUE(user.MenuItem(command::kEnglish).checked);
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Devices");
  EXPECT_EQ(user.MenuItem(command::kUndo).text, "Undo");
  Leave(user);
}

void OpenAboutByItsKeys(WindowUser& user, const Folders&) {
  user.Start();
  for (const bool shift : {false, true}) {
    user.WillFill({in_dialog::PressEscape()});
    user.PressAltSlash(shift);
    const std::vector<SeenDialog> seen = user.Dialogs();
    ASSERT_THAT(seen, SizeIs(1));
    EXPECT_EQ(seen[0].title, "About...");
  }
  Leave(user);
}

void TakeAPictureOfTheWindow(WindowUser& user, const Folders& folders) {
  user.Start();
  const std::filesystem::path file = folders.work / "window.png";
  std::string bytes;
  EXPECT_TRUE(WaitUntil([&] {
    return user.TakePicture(file) && ReadFileBytes(file, bytes) && bytes.size() > 10000;
  })) << "a screen of one colour is smaller, and so is a window that is not painted yet";
  Leave(user);
}

constexpr WindowScript kScripts[] = {
    {"ClickBesideTheZoomSlidersThumb", ClickBesideTheZoomSlidersThumb},
    {"MoveTheZoomSliderByKeys", MoveTheZoomSliderByKeys},
    {"DragTheZoomSlider", DragTheZoomSlider},
    {"MoveTheScrollBar", MoveTheScrollBar},
    {"ClickBesideThePowerSlidersThumb", ClickBesideThePowerSlidersThumb},
    {"UndoEachDragOfThePowerSlider", UndoEachDragOfThePowerSlider},
    {"SeeTheLogInItsColours", SeeTheLogInItsColours},
    {"PutTheCaretIntoTheLog", PutTheCaretIntoTheLog},
    {"TryToMakeTheWindowTooSmall", TryToMakeTheWindowTooSmall},
    {"ChooseLanguagesByTheKeyboard", ChooseLanguagesByTheKeyboard},
    {"OpenAboutByItsKeys", OpenAboutByItsKeys},
    {"TakeAPictureOfTheWindow", TakeAPictureOfTheWindow},
};

}  // namespace

std::vector<WindowScript> OfWindows() {
  std::vector<WindowScript> scripts(std::begin(kScripts), std::end(kScripts));
  scripts.insert(scripts.end(), OfTheChart().begin(), OfTheChart().end());
  return scripts;
}

}  // namespace scripts
