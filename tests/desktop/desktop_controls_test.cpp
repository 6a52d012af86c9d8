// The controls of the real window: what they are, what the mouse and the keys do to its sliders and its
// scroll bar, and the colours of its log.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

#include "app/window/numbers.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"
#include "tests/support/temporary_folder.h"

// after windows.h
#include <commctrl.h>
#include <richedit.h>

namespace {

using app::Control;
using desktop::DesktopUser;
using testing::EndsWith;
using testing::HasSubstr;
namespace command = app::command;
namespace scroll = app::scroll;

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kRed = RGB(255, 0, 0);

// A place on the first lane, beside the steps of the built-in program.
constexpr int kLaneX = 452;
constexpr int kLaneY = 60;

class DesktopControls : public testing::Test {
 protected:
  void SetUp() override { user.Start(); }
  void TearDown() override {
    if (isChanged_) user.WillAnswer(app::Answer::No);
    user.Close();
    EXPECT_FALSE(user.IsRunning());
  }

  // Selects the first lane's channel, for what will change it.
  void SelectForAChange() {
    user.ClickChart(kLaneX, kLaneY);
    isChanged_ = true;
  }

  const desktop::FirstDay firstDay;
  DesktopUser user;
  bool isChanged_ = false;
};

struct StyleRow {
  Control control;
  DWORD has;
  DWORD hasNot;
};

// WS_VSCROLL is not among them: a control takes it off while there is nothing to scroll.
TEST_F(DesktopControls, HaveTheirStyles) {
  constexpr DWORD kList = LBS_NOTIFY | WS_BORDER;
  constexpr DWORD kNoList = LBS_SORT | LBS_MULTIPLESEL;
  const StyleRow rows[] = {
      {Control::ModeList, kList, kNoList | LBS_EXTENDEDSEL},
      {Control::DeviceList, kList | LBS_EXTENDEDSEL, kNoList},
      {Control::DemoStatusLabel, SS_SUNKEN, 0},
      {Control::TimeLabel, SS_SUNKEN, 0},
      {Control::PowerLabel, SS_SUNKEN, 0},
      {Control::PowerTitleLabel, SS_SUNKEN, 0},
      {Control::DevicesLabel, SS_SUNKEN, 0},
      {Control::ZoomLabel, SS_SUNKEN, 0},
      {Control::ModeDescription, SS_SUNKEN, 0},
      {Control::PowerSlider, TBS_AUTOTICKS, TBS_VERT},
      {Control::ZoomSlider, TBS_AUTOTICKS, TBS_VERT},
      {Control::ScrollBar, SBS_HORZ, SBS_VERT},
      {Control::LogPane, ES_MULTILINE | ES_READONLY | WS_BORDER, 0},
  };
  for (const StyleRow& row : rows) {
    const DWORD style = user.StyleOf(row.control);
    const std::string name = "control " + std::to_string(static_cast<int>(row.control));
    EXPECT_EQ(style & row.has, row.has) << name;
    EXPECT_EQ(style & row.hasNot, 0U) << name;
    EXPECT_EQ(style & (WS_CHILD | WS_VISIBLE), DWORD{WS_CHILD | WS_VISIBLE}) << name;
  }
}

// Zoom slider

TEST_F(DesktopControls, AClickBesideTheZoomSlidersThumbMovesItByOne) {
  user.ClickBesideThumb(Control::ZoomSlider, DesktopUser::Side::Behind);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
  EXPECT_EQ(user.ScrollBar().first, 23 * 60) << "the view is an hour less";
  user.ClickBesideThumb(Control::ZoomSlider, DesktopUser::Side::Behind);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 2);
  user.ClickBesideThumb(Control::ZoomSlider, DesktopUser::Side::Before);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
  EXPECT_EQ(user.ScrollBar().first, 23 * 60);
}

TEST_F(DesktopControls, KeysMoveTheZoomSliderByOneAndToItsEnds) {
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
}

TEST_F(DesktopControls, ADragOfTheZoomSliderZooms) {
  user.DragThumb(Control::ZoomSlider, 108);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 22);
  EXPECT_EQ(user.ScrollBar().first, 2 * 60);
  user.DragThumb(Control::ZoomSlider, 1);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 0);
  EXPECT_EQ(user.ScrollBar().first, 24 * 60);
}

// Scroll bar

TEST_F(DesktopControls, TheScrollBarMovesTheView) {
  user.Scroll(Control::ZoomSlider, scroll::kLast, 0);
  user.PressKey(app::key::kHome, false);
  ASSERT_EQ(user.ScrollBar(), std::pair(120, 0));
  user.ClickBesideThumb(Control::ScrollBar, DesktopUser::Side::Behind);
  EXPECT_EQ(user.ScrollBar(), std::pair(120, 120)) << "by its page";
  user.Scroll(Control::ScrollBar, scroll::kLineForward, 0);
  EXPECT_EQ(user.ScrollBar(), std::pair(120, 135));
  user.Scroll(Control::ScrollBar, scroll::kLineBack, 0);
  user.ClickBesideThumb(Control::ScrollBar, DesktopUser::Side::Before);
  EXPECT_EQ(user.ScrollBar(), std::pair(120, 0));
  user.DragThumb(Control::ScrollBar, 840);
  EXPECT_GE(user.ScrollBar().second, 1440 - 120);
  // The view itself has followed: the chart's key for the day's end changes nothing any more.
  user.PressKey(app::key::kEnd, false);
  EXPECT_EQ(user.ScrollBar().second, 1440 - 120);
}

// Power slider

TEST_F(DesktopControls, AClickBesideThePowerSlidersThumbMovesItByOne) {
  SelectForAChange();
  const int power = user.SliderPosition(Control::PowerSlider);
  ASSERT_GT(power, 10);
  user.ClickBesideThumb(Control::PowerSlider, DesktopUser::Side::Before);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), power - 1);
  user.Scroll(Control::PowerSlider, scroll::kLineBack, 0);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), power - 2);
  user.ClickBesideThumb(Control::PowerSlider, DesktopUser::Side::Behind);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), power - 1);
}

TEST_F(DesktopControls, EachDragOfThePowerSliderIsUndoneByItself) {
  SelectForAChange();
  user.DragThumb(Control::PowerSlider, 70);
  const int first = user.SliderPosition(Control::PowerSlider);
  user.DragThumb(Control::PowerSlider, 30);
  const int second = user.SliderPosition(Control::PowerSlider);
  EXPECT_LT(second, first);
  ASSERT_TRUE(user.Choose(command::kUndo));
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), first);
}

// Log pane

class DesktopLog : public DesktopControls {
 protected:
  void SetUp() override {
    DesktopControls::SetUp();
    // One step less than those that come with a warning.
    TCBase::Program::ModeListView program = TCBase::Program::NewProgram();
    program.modes.resize(1);
    for (TCBase::Program::Channel& channel : program.modes.front().channels) channel.clear();
    for (int hour = 0; hour < 20; ++hour) program.modes.front().channels[4].push_back({hour, 0, 10.0F});
    const std::filesystem::path file = folder_ / "many.xml";
    ASSERT_TRUE(SaveProgram(program, file));
    user.WillPick({file});
    ASSERT_TRUE(user.Choose(command::kLoadProgram));
  }
  // A click on the chart adds the step that is one too many.
  void Warn() {
    isChanged_ = true;
    user.ClickChart(kLaneX, kLaneY);  // selects the lane
    user.ClickChart(kLaneX, kLaneY);
    ASSERT_THAT(user.Log(), HasSubstr("You have added more than 20 steps."));
  }

 private:
  const TemporaryFolder folder_;
};

TEST_F(DesktopLog, LinesBehindAWarningHaveItsColour) {
  Warn();
  EXPECT_EQ(user.LogColor("Loaded program file"), kBlack);
  EXPECT_EQ(user.LogColor("You have added more than 20 steps."), kRed);
  EXPECT_EQ(user.LogColor("Hint: Press DELETE"), kRed);
  user.Choose(command::kUndo);
  EXPECT_EQ(user.LogColor("Undo"), kRed);
  user.Choose(command::kRedo);
}

TEST_F(DesktopLog, LinesComeLastAndInTheirColourWhereverTheCaretStands) {
  Warn();
  user.ClickLog();
  user.Choose(command::kUndo);
  EXPECT_THAT(user.Log(), EndsWith("\r\nUndo\r\n"));
  EXPECT_EQ(user.LogColor("Undo"), kRed);
  user.Choose(command::kRedo);
}

}  // namespace
