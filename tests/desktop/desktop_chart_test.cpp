// The chart of the real window: what it shows, and what mouse and keyboard do to it. Each test leaves a
// picture in the build's folder desktop-pictures.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "app/window/numbers.h"
#include "chart/chart_layout.h"
#include "common/truncate.h"
#include "program/channel_edit.h"
#include "program/optimize.h"
#include "program/program_file.h"
#include "program/view.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"
#include "tests/desktop/patience.h"
#include "tests/support/temporary_folder.h"

namespace {

using app::Control;
using desktop::ScreenPicture;
using TCBase::Program::Channel;
using TCBase::Program::ModeListView;
using TCBase::Program::Step;
using testing::ElementsAre;
using testing::HasSubstr;
using UX::Color;
using UX::Rect;
namespace command = app::command;

constexpr Color kWhite{255, 255, 255};
constexpr Color kBlack{0, 0, 0};
constexpr Color kSalmon{250, 128, 114};
constexpr Color kCornflowerBlue{100, 149, 237};

// Longer than the lanes and the balloons take to come to rest.
constexpr double kRestSeconds = 0.6;

// One run of the program for all tests; each begins with the example as its file has it.
struct OpenProgram {
  OpenProgram() { driver.Start(); }

  const desktop::FirstDay firstDay;
  const TemporaryFolder folder;
  const std::filesystem::path file = folder / "reef-day.xml";
  desktop::DesktopUser driver;
};

class DesktopChart : public testing::Test {
 protected:
  static void SetUpTestSuite() { open = std::make_unique<OpenProgram>(); }
  static void TearDownTestSuite() {
    open->driver.Close();
    EXPECT_FALSE(open->driver.IsRunning());
    open.reset();
  }
  void SetUp() override {
    std::filesystem::copy_file(std::filesystem::absolute(LUMARINE_SOURCE_DIR) / "examples" / "reef-day.xml",
                               open->file, std::filesystem::copy_options::overwrite_existing);
    ASSERT_TRUE(TCBase::Program::LoadProgram(open->file, expected));
    user.WillPick({open->file});
    ASSERT_TRUE(user.Choose(command::kLoadProgram));
    // No lane is selected, and none larger than the others.
    user.ClickRow(Control::ModeList, 1);
    user.ClickRow(Control::ModeList, 0);
    user.ClickBackground();
    user.Resize(1008, 690);
    const app::Size client = user.ClientSize();
    layout.Update(client.width, client.height);
    LetLanesRest();
  }
  void TearDown() override { LeavePicture(""); }

  void LetLanesRest() {
    now += 1.0;  // of the layout here
    user.Wait(kRestSeconds);
  }
  // By a click into the lane beside its steps, at the very top of the day.
  void Focus(int lane) {
    const Rect place = layout.LaneRect(lane);
    user.ClickChart(place.x + 2, place.y + place.height / 2);
    layout.FocusLane(lane);
    user.MoveMouse(0, 0);  // where it shows no crosshair
    LetLanesRest();
  }

  // On the emulator, slowly enough not to end by itself.
  void StartDemo() {
    user.Choose(command::kAddEmulator);
    user.Choose(command::kSpeedSlow);
    user.Press(Control::PlayButton);
    ASSERT_TRUE(desktop::WaitUntil([&] { return user.Text(Control::DemoStatusLabel) == "Playing"; }));
  }
  void StopDemo() {
    user.Press(Control::StopButton);
    ASSERT_TRUE(desktop::WaitUntil([&] { return user.IsEnabled(Control::ModeList); }));
  }

  Channel& ChannelOf(int lane) { return expected.modes[0].channels[static_cast<std::size_t>(lane)]; }
  Step& StepOf(int lane, std::size_t step) { return ChannelOf(lane).at(step); }
  POINT PointOf(int lane, const Step& step) {
    const Rect place = layout.LaneRect(lane);
    return {UX::TimeToX(place, expected, step), UX::PercentToY(place, step.value)};
  }
  POINT PointOf(int lane, std::size_t step) { return PointOf(lane, StepOf(lane, step)); }
  // Gives a step the time and the strength of a point.
  void MoveTo(Step& step, int lane, POINT point) {
    const Rect place = layout.LaneRect(lane);
    const std::int32_t second = UX::XToTime(place, expected, static_cast<std::int32_t>(point.x));
    step.hour = second / 3600;
    step.minute = second % 3600 / 60;
    step.value = UX::YToPercent(place, static_cast<std::int32_t>(point.y));
  }

  // What the program saves of its document.
  ModeListView Saved() {
    EXPECT_TRUE(user.Choose(command::kSaveProgram));
    ModeListView saved;
    EXPECT_TRUE(TCBase::Program::LoadProgram(open->file, saved));
    return saved;
  }
  // What a file holds of the document that is expected: whole percents.
  ModeListView ExpectedInFile() {
    ModeListView whole = expected;
    OptimizeMode(whole.modes[0]);
    for (Channel& channel : whole.modes[0].channels) {
      for (Step& step : channel) step.value = static_cast<float>(TruncateToInt(step.value));
    }
    return whole;
  }
  void ExpectSaved() {
    const ModeListView saved = Saved();
    const ModeListView whole = ExpectedInFile();
    EXPECT_TRUE(saved == whole);
    for (std::size_t lane = 0; lane < whole.modes[0].channels.size(); ++lane) {
      EXPECT_EQ(Told(saved.modes[0].channels[lane]), Told(whole.modes[0].channels[lane])) << lane;
    }
  }
  static std::string Told(const Channel& channel) {
    std::string text;
    for (const Step& step : channel) text += ToDescription(step) + " ";
    return text;
  }

  // Waits until the chart shows what it should; a frame takes its time.
  void ExpectShown(const char* what, const std::function<bool(const ScreenPicture&)>& isShown) {
    EXPECT_TRUE(desktop::WaitUntil([&] {
      if (isShown(driver.ChartPicture())) return true;
      user.Wait(0.05);  // looking takes time that drawing needs
      return false;
    })) << "the chart does not show "
        << what;
  }
  // A marker of a step that is not selected: white, with a black rim.
  bool IsMarker(const ScreenPicture& chart, POINT at) {
    const int radius = TruncateToInt(UX::GetMarkerSize(layout).plainRadius);
    return chart.At(at.x, at.y) == kWhite && chart.At(at.x + radius, at.y) == kBlack &&
           chart.At(at.x - radius, at.y) == kBlack;
  }
  static bool IsFramed(const ScreenPicture& chart, const Rect& lane) {
    return chart.At(lane.x - 4, lane.y + lane.height / 2) == kCornflowerBlue &&
           chart.At(lane.x + 20, lane.y - 4) == kCornflowerBlue &&
           chart.At(lane.x + 20, lane.y + lane.height + 4) == kCornflowerBlue;
  }

  // Of the whole screen.
  void LeavePicture(const std::string& suffix) {
    const std::filesystem::path pictures = std::filesystem::absolute(LUMARINE_PICTURE_DIR);
    std::filesystem::create_directories(pictures);
    const char* test = testing::UnitTest::GetInstance()->current_test_info()->name();
    std::filesystem::path file = pictures / test;
    file += suffix;
    file += ".png";
    EXPECT_TRUE(user.TakePicture(file));
  }

  static std::unique_ptr<OpenProgram> open;
  desktop::DesktopUser& driver = open->driver;
  User& user = driver;
  // What the program should hold and where it should show it, by its own arithmetic.
  ModeListView expected;
  double now = 0.0;
  UX::ChartLayout layout{now};
};

std::unique_ptr<OpenProgram> DesktopChart::open;

// What it shows

TEST_F(DesktopChart, ShowsEachStepOfTheModeOnItsCurve) {
  ExpectShown("every step as a marker", [&](const ScreenPicture& chart) {
    for (int lane = 0; lane < 5; ++lane) {
      for (const Step& step : ChannelOf(lane)) {
        if (!step.jump && !IsMarker(chart, PointOf(lane, step))) return false;
      }
    }
    return true;
  });
  ExpectShown("the curve between two steps", [&](const ScreenPicture& chart) {
    const POINT first = PointOf(0, 2);
    const POINT second = PointOf(0, 3);
    return first.y == second.y && chart.At((2 * first.x + second.x) / 3, first.y) == kSalmon;
  });
}

TEST_F(DesktopChart, SelectedLaneIsFramedAndGrows) {
  const int before = layout.LaneRect(2).height;
  Focus(2);
  const Rect lane = layout.LaneRect(2);
  EXPECT_GT(lane.height, before);
  ExpectShown("the frame", [&](const ScreenPicture& chart) { return IsFramed(chart, lane); });
  user.ClickBackground();
  user.MoveMouse(0, 0);
  layout.ClearFocus();
  LetLanesRest();
  ExpectShown("the frame of a lane like the others",
              [&](const ScreenPicture& chart) { return IsFramed(chart, layout.LaneRect(2)); });
}

TEST_F(DesktopChart, BalloonGrowsOutOfTheStepUnderTheMouse) {
  const POINT point = PointOf(1, 1);
  const Rect around{point.x - 60, point.y - 60, 120, 120};
  int before = 0;
  ExpectShown("the step", [&](const ScreenPicture& chart) {
    before = chart.Count(around, kBlack);
    return IsMarker(chart, point);
  });
  user.MoveMouse(static_cast<int>(point.x), static_cast<int>(point.y));
  ExpectShown("the balloon", [&](const ScreenPicture& chart) {
    return chart.Count(around, kBlack) > before + 150;  // its outline and its text
  });
  user.Wait(kRestSeconds);
  LeavePicture("-shown");
  user.MoveMouse(static_cast<int>(layout.LaneRect(1).x) + 30, static_cast<int>(point.y));
  ExpectShown("the step without it",
              [&](const ScreenPicture& chart) { return chart.Count(around, kBlack) < before + 20; });
}

TEST_F(DesktopChart, CrosshairFollowsTheMouse) {
  constexpr Color kDarkGray{169, 169, 169};
  const Rect lane = layout.LaneRect(3);
  const int x = lane.x + lane.width / 4 + 7;
  user.MoveMouse(x, lane.y + lane.height / 3);
  const Rect column{x - 1, 0, 2, lane.y};
  ExpectShown("the crosshair",
              [&](const ScreenPicture& chart) { return chart.Count(column, kDarkGray) > lane.y / 2; });
}

TEST_F(DesktopChart, ShowsADemoAsItPlays) {
  StartDemo();
  EXPECT_FALSE(user.IsEnabled(Control::ModeList));
  EXPECT_FALSE(user.IsEnabled(Control::PowerSlider));

  const Rect top{0, 0, user.Place(Control::ChartWindow).width,
                 6};  // above all lanes: only the cursor is there
  const auto cursorOf = [&](const ScreenPicture& chart) {
    int x = 0;
    while (x < top.width && chart.At(x, 2) != kBlack) ++x;
    return x;
  };
  ExpectShown("the cursor", [&](const ScreenPicture& chart) { return cursorOf(chart) < top.width; });
  const ScreenPicture early = driver.ChartPicture();
  ExpectShown("the cursor farther on", [&](const ScreenPicture& chart) {
    return cursorOf(chart) > cursorOf(early) + 30 && cursorOf(chart) < top.width;
  });
  const ScreenPicture late = driver.ChartPicture();
  for (int lane = 0; lane < 5; ++lane) {
    const Rect place = layout.LaneRect(lane);
    EXPECT_GT(early.CountDifferences(place, late), 100) << "the dot of lane " << lane << " has moved";
  }
  LeavePicture("-playing");
  user.Press(Control::StopButton);
  // The cursor is gone at once, the controls come back when the worker has ended the demo.
  ExpectShown("no cursor and the controls", [&](const ScreenPicture& chart) {
    return cursorOf(chart) == top.width && user.IsEnabled(Control::ModeList);
  });
}

TEST_F(DesktopChart, IsDrawnAnewInAnotherSize) {
  for (const app::Size size : {app::Size{1250, 900}, app::Size{800, 600}}) {
    user.Resize(size.width, size.height);
    const app::Size client = user.ClientSize();
    layout.Update(client.width, client.height);
    LetLanesRest();
    ExpectShown("the steps in their new places", [&](const ScreenPicture& chart) {
      return IsMarker(chart, PointOf(0, 1)) && IsMarker(chart, PointOf(2, 2));
    });
    LeavePicture(size.width > 1000 ? "-large" : "-small");
  }
}

// What the mouse does

TEST_F(DesktopChart, DragMovesAStep) {
  Focus(0);
  const POINT from = PointOf(0, 2);
  const POINT to{from.x - 23, from.y + 41};
  user.DragOnChart(from.x, from.y, to.x, to.y);
  MoveTo(StepOf(0, 2), 0, to);
  EXPECT_THAT(user.Log(), HasSubstr("Step " + ToDescription(StepOf(0, 2))));
  ExpectSaved();
  user.MoveMouse(0, 0);
  ExpectShown("the selected step where it was dropped",
              [&](const ScreenPicture& chart) { return chart.At(to.x, to.y) == kSalmon; });
}

TEST_F(DesktopChart, DragGoesOnBesideTheWindow) {
  Focus(0);
  const POINT from = PointOf(0, 2);
  const POINT to{from.x + 31, from.y + 12};
  user.MoveMouse(from.x, from.y);
  user.HoldButton();
  user.MoveMouse(from.x - 20, from.y + 30);
  user.MoveMouse(-60, from.y + 50);  // over the buttons, left of the day: the step waits
  user.MoveMouse(to.x, to.y);
  user.MoveMouse(to.x, layout.LaneRect(4).y + layout.LaneRect(4).height + 60);  // over the log: none is less
  user.ReleaseButton();
  MoveTo(StepOf(0, 2), 0, to);
  StepOf(0, 2).value = 0.0F;
  ExpectSaved();
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(0));
}

TEST_F(DesktopChart, ADragThatLosesTheCaptureIsReleased) {
  Focus(0);
  const POINT from = PointOf(0, 2);
  const POINT to{from.x - 23, from.y + 41};
  user.MoveMouse(from.x, from.y);
  user.HoldButton();
  user.MoveMouse(to.x, to.y);
  driver.TakeCapture();
  user.MoveMouse(to.x + 50, to.y + 20);
  user.ReleaseButton();
  const Step before = StepOf(0, 2);
  MoveTo(StepOf(0, 2), 0, to);
  ExpectSaved();
  user.PressKey('Z', true);
  StepOf(0, 2) = before;
  ExpectSaved();
}

// The press seeks and takes no capture, so the release goes to another window.
TEST_F(DesktopChart, AReleaseBesideTheChartDuringADemoIsNotLost) {
  const POINT step = PointOf(0, 2);
  user.ClickChart(step.x, step.y);
  StartDemo();
  user.MoveMouse(step.x + 40, step.y + 30);
  user.HoldButton();
  user.MoveMouse(step.x + 40, -12);
  user.ReleaseButton();
  StopDemo();
  user.MoveMouse(step.x + 60, step.y + 40);
  user.MoveMouse(step.x + 90, step.y + 60);
  ExpectSaved();
}

TEST_F(DesktopChart, DuringADemoDeleteDeletesAndUndoWaits) {
  const POINT step = PointOf(0, 2);
  user.ClickChart(step.x, step.y);
  StartDemo();
  ASSERT_FALSE(user.MenuItem(command::kDeleteStep).enabled);
  user.PressKey(app::key::kDelete);
  user.PressKey('Z', true);
  const Channel before = ChannelOf(0);
  ChannelOf(0).erase(ChannelOf(0).begin() + 2);
  ExpectSaved();
  StopDemo();
  user.PressKey('Z', true);
  ChannelOf(0) = before;
  ExpectSaved();
}

TEST_F(DesktopChart, AfterAClickOnASliderTheKeysAreTheCharts) {
  const POINT point = PointOf(0, 2);
  user.ClickChart(point.x, point.y);
  user.Press(Control::ZoomSlider);
  for (const int key : {app::key::kRight, app::key::kDown, app::key::kDown, app::key::kLeft, app::key::kRight,
                        app::key::kJ}) {
    user.PressKey(key);
  }
  const Step before = StepOf(0, 2);
  StepOf(0, 2).minute += 1;
  StepOf(0, 2).value -= 2.0F;
  StepOf(0, 2).jump = true;
  ExpectSaved();
  for (int i = 0; i < 6; ++i) user.PressKey('Z', true);
  StepOf(0, 2) = before;
  ExpectSaved();
  // Other controls keep theirs.
  user.Press(Control::LogPane);
  for (const int key : {app::key::kRight, app::key::kDown, app::key::kJ}) user.PressKey(key);
  ExpectSaved();
  user.Choose(command::kZoomAll);
}

TEST_F(DesktopChart, ADeletionFromTheChartsMenuCanBeUndoneAtOnce) {
  const POINT point = PointOf(0, 2);
  ASSERT_TRUE(user.ChooseAtChart(point.x, point.y, command::kDeleteStep));
  const Channel before = ChannelOf(0);
  ChannelOf(0).erase(ChannelOf(0).begin() + 2);
  ExpectSaved();
  ASSERT_TRUE(user.Choose(command::kUndo));
  ChannelOf(0) = before;
  ExpectSaved();
}

TEST_F(DesktopChart, LanesGlideToTheirEndUnderTheMenu) {
  const Rect place = layout.LaneRect(3);
  ASSERT_TRUE(driver.OpenChartMenu(place.x + place.width - 20, place.y + place.height / 2));
  layout.FocusLane(3);
  now += 1.0;  // of the layout here
  ExpectShown("the lane enlarged behind the menu",
              [&](const ScreenPicture& chart) { return IsFramed(chart, layout.LaneRect(3)); });
  driver.LeaveMenu();
}

TEST_F(DesktopChart, SecondClickAddsAStepAndTheKeyDeletesIt) {
  const int lane = 2;
  Focus(lane);
  const Channel before = ChannelOf(lane);
  const Rect place = layout.LaneRect(lane);
  const POINT point{place.x + place.width / 8, place.y + place.height / 3};
  user.ClickChart(point.x, point.y);
  Step added;
  MoveTo(added, lane, point);
  InsertStepSorted(ChannelOf(lane), added);
  EXPECT_THAT(user.Log(), HasSubstr("Added new step " + ToDescription(added)));
  ExpectSaved();
  LeavePicture("-added");

  user.PressKey(app::key::kDelete);
  ChannelOf(lane) = before;
  EXPECT_THAT(user.Log(), HasSubstr("Step deleted."));
  ExpectSaved();
}

TEST_F(DesktopChart, ArrowsMoveTheStepAndUndoBringsItBack) {
  const POINT point = PointOf(0, 2);
  user.ClickChart(point.x, point.y);
  user.PressKey(app::key::kRight);
  user.PressKey(app::key::kRight);
  user.PressKey(app::key::kDown);
  const Step before = StepOf(0, 2);
  StepOf(0, 2).minute += 2;
  StepOf(0, 2).value -= 1.0F;
  ExpectSaved();
  for (int i = 0; i < 3; ++i) user.PressKey('Z', true);
  StepOf(0, 2) = before;
  ExpectSaved();
}

TEST_F(DesktopChart, WheelZoomsAndPansTheView) {
  const Rect lane = layout.LaneRect(1);
  const int x = lane.x + lane.width / 2;
  const int y = lane.y + lane.height / 2;
  user.TurnWheel(x, y, 1, true, false);
  user.TurnWheel(x, y, 1, true, false);
  ViewZoomIn(expected);
  ViewZoomIn(expected);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 2);
  user.TurnWheel(x, y, -3, false, false);
  TCBase::Program::PanView(expected, -1800);
  user.MoveMouse(0, 0);
  ExpectShown("the steps in their new places", [&](const ScreenPicture& chart) {
    return IsMarker(chart, PointOf(0, 2)) && IsMarker(chart, PointOf(2, 1));
  });
  LeavePicture("-zoomed");
  user.TurnWheel(x, y, -1, true, false);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
}

TEST_F(DesktopChart, RightClickOpensTheChannelMenu) {
  const POINT point = PointOf(0, 3);
  ASSERT_TRUE(user.ChooseAtChart(point.x, point.y, command::kToggleJump));
  StepOf(0, 3).jump = true;
  ExpectSaved();
  layout.FocusLane(0);
  LetLanesRest();
  user.MoveMouse(0, 0);
  const POINT square = PointOf(0, 3);
  const int half = TruncateToInt(UX::GetMarkerSize(layout).selectedDiameter / 2.0F);
  ExpectShown("a square for a step that jumps", [&](const ScreenPicture& chart) {
    return chart.At(square.x, square.y) == kSalmon && chart.At(square.x + half, square.y + half) == kBlack &&
           chart.At(square.x - half, square.y - half) == kBlack;
  });
}

}  // namespace
