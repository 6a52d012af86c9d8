#include "tests/support/window_chart_scripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

#include "app/window/numbers.h"
#include "chart/chart_layout.h"
#include "common/truncate.h"
#include "program/channel_edit.h"
#include "program/optimize.h"
#include "program/program_file.h"
#include "program/view.h"
#include "tests/support/patience.h"

namespace scripts {

namespace {

using app::Control;
using TCBase::Program::Channel;
using TCBase::Program::ModeListView;
using TCBase::Program::Step;
using testing::ElementsAre;
using testing::HasSubstr;
using UX::Color;
namespace command = app::command;

constexpr Color kWhite{255, 255, 255};
constexpr Color kBlack{0, 0, 0};
constexpr Color kSalmon{250, 128, 114};
constexpr Color kCornflowerBlue{100, 149, 237};

// Longer than the lanes and the balloons take to come to rest.
constexpr double kRestSeconds = 0.6;

struct Point {
  int x;
  int y;
};

// The chart with the example as its file has it, before a user. A script is a method.
class Chart {
 public:
  Chart(WindowUser& itsUser, const Folders& folders)
      : user(itsUser),
        file_(folders.work / "reef-day.xml"),
        example_(folders.examples / "reef-day.xml"),
        picture_(folders.picture) {}

  void Begin() {
    user.Start();
    std::filesystem::copy_file(example_, file_);
    ASSERT_TRUE(TCBase::Program::LoadProgram(file_, expected));
    user.WillPick({file_});
    ASSERT_TRUE(user.Choose(command::kLoadProgram));
    user.Resize(1008, 690);
    const app::Size client = user.ClientSize();
    layout.Update(client.width, client.height);
    LetLanesRest();
  }
  // It has been saved, if it was changed.
  void End() {
    LeavePicture("");
    user.Close();
    EXPECT_FALSE(user.IsRunning());
  }

  void SeeEachStepOnItsCurve();
  void SeeTheSelectedLaneFramed();
  void SeeTheBalloonOfAStep();
  void SeeTheCrosshair();
  void SeeADemo();
  void SeeTheChartInOtherSizes();
  void DragAStep();
  void DragAStepBesideTheChart();
  void LoseTheCaptureInADrag();
  void ReleaseBesideTheChartDuringADemo();
  void DeleteAStepDuringADemo();
  void UseTheChartsKeysBehindASlider();
  void UndoADeletionOfTheChartsMenu();
  void SeeLanesGlideUnderTheMenu();
  void AddAndDeleteAStep();
  void MoveAStepByArrows();
  void ZoomAndPanByTheWheel();
  void SeeAStepThatJumps();

 private:
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
    ASSERT_TRUE(WaitUntil([&] { return user.Text(Control::DemoStatusLabel) == "Playing"; }));
  }
  void StopDemo() {
    user.Press(Control::StopButton);
    ASSERT_TRUE(WaitUntil([&] { return user.IsEnabled(Control::ModeList); }));
  }

  Channel& ChannelOf(int lane) { return expected.modes[0].channels[static_cast<std::size_t>(lane)]; }
  Step& StepOf(int lane, std::size_t step) { return ChannelOf(lane).at(step); }
  Point PointOf(int lane, const Step& step) {
    const Rect place = layout.LaneRect(lane);
    return {UX::TimeToX(place, expected, step), UX::PercentToY(place, step.value)};
  }
  Point PointOf(int lane, std::size_t step) { return PointOf(lane, StepOf(lane, step)); }
  // Gives a step the time and the strength of a point.
  void MoveTo(Step& step, int lane, Point point) {
    const Rect place = layout.LaneRect(lane);
    const std::int32_t second = UX::XToTime(place, expected, point.x);
    step.hour = second / 3600;
    step.minute = second % 3600 / 60;
    step.value = UX::YToPercent(place, point.y);
  }

  // What the program saves of its document.
  ModeListView Saved() {
    EXPECT_TRUE(user.Choose(command::kSaveProgram));
    ModeListView saved;
    EXPECT_TRUE(TCBase::Program::LoadProgram(file_, saved));
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
  void ExpectShown(const char* what, const std::function<bool(const PixelPicture&)>& isShown) {
    EXPECT_TRUE(WaitUntil([&] {
      if (isShown(user.ChartPicture())) return true;
      user.Wait(0.05);  // looking takes time that drawing needs
      return false;
    })) << "the chart does not show "
        << what;
  }
  // A marker of a step that is not selected: white, with a black rim.
  bool IsMarker(const PixelPicture& chart, Point at) {
    const int radius = TruncateToInt(UX::GetMarkerSize(layout).plainRadius);
    return chart.At(at.x, at.y) == kWhite && chart.At(at.x + radius, at.y) == kBlack &&
           chart.At(at.x - radius, at.y) == kBlack;
  }
  static bool IsFramed(const PixelPicture& chart, const Rect& lane) {
    return chart.At(lane.x - 4, lane.y + lane.height / 2) == kCornflowerBlue &&
           chart.At(lane.x + 20, lane.y - 4) == kCornflowerBlue &&
           chart.At(lane.x + 20, lane.y + lane.height + 4) == kCornflowerBlue;
  }

  // Of the whole screen.
  void LeavePicture(const std::string& suffix) {
    std::filesystem::path file = picture_;
    file += suffix;
    file += ".png";
    EXPECT_TRUE(user.TakePicture(file));
  }

  WindowUser& user;
  const std::filesystem::path file_;
  const std::filesystem::path example_;
  const std::filesystem::path picture_;
  // What the program should hold and where it should show it, by its own arithmetic.
  ModeListView expected;
  double now = 0.0;
  UX::ChartLayout layout{now};
};

// What it shows

void Chart::SeeEachStepOnItsCurve() {
  ExpectShown("every step as a marker", [&](const PixelPicture& chart) {
    for (int lane = 0; lane < 5; ++lane) {
      for (const Step& step : ChannelOf(lane)) {
        if (!step.jump && !IsMarker(chart, PointOf(lane, step))) return false;
      }
    }
    return true;
  });
  ExpectShown("the curve between two steps", [&](const PixelPicture& chart) {
    const Point first = PointOf(0, 2);
    const Point second = PointOf(0, 3);
    return first.y == second.y && chart.At((2 * first.x + second.x) / 3, first.y) == kSalmon;
  });
}

void Chart::SeeTheSelectedLaneFramed() {
  const int before = layout.LaneRect(2).height;
  Focus(2);
  const Rect lane = layout.LaneRect(2);
  EXPECT_GT(lane.height, before);
  ExpectShown("the frame", [&](const PixelPicture& chart) { return IsFramed(chart, lane); });
  user.ClickBackground();
  user.MoveMouse(0, 0);
  layout.ClearFocus();
  LetLanesRest();
  ExpectShown("the frame of a lane like the others",
              [&](const PixelPicture& chart) { return IsFramed(chart, layout.LaneRect(2)); });
}

void Chart::SeeTheBalloonOfAStep() {
  const Point point = PointOf(1, 1);
  const Rect around{point.x - 60, point.y - 60, 120, 120};
  int before = 0;
  ExpectShown("the step", [&](const PixelPicture& chart) {
    before = chart.Count(around, kBlack);
    return IsMarker(chart, point);
  });
  user.MoveMouse(point.x, point.y);
  ExpectShown("the balloon", [&](const PixelPicture& chart) {
    return chart.Count(around, kBlack) > before + 150;  // its outline and its text
  });
  user.Wait(kRestSeconds);
  LeavePicture("-shown");
  user.MoveMouse(layout.LaneRect(1).x + 30, point.y);
  ExpectShown("the step without it",
              [&](const PixelPicture& chart) { return chart.Count(around, kBlack) < before + 20; });
}

void Chart::SeeTheCrosshair() {
  const Rect lane = layout.LaneRect(3);
  const int x = lane.x + lane.width / 4 + 7;
  const Rect column{x - 1, 0, 2, lane.y};
  const PixelPicture before = user.ChartPicture();
  user.MoveMouse(x, lane.y + lane.height / 3);
  ExpectShown("the crosshair",
              [&](const PixelPicture& chart) { return chart.CountDifferences(column, before) > lane.y / 2; });
}

void Chart::SeeADemo() {
  StartDemo();
  EXPECT_FALSE(user.IsEnabled(Control::ModeList));
  EXPECT_FALSE(user.IsEnabled(Control::PowerSlider));

  const Rect top{0, 0, user.Place(Control::ChartWindow).width,
                 6};  // above all lanes: only the cursor is there
  const auto cursorOf = [&](const PixelPicture& chart) {
    int x = 0;
    while (x < top.width && chart.At(x, 2) != kBlack) ++x;
    return x;
  };
  ExpectShown("the cursor", [&](const PixelPicture& chart) { return cursorOf(chart) < top.width; });
  const PixelPicture early = user.ChartPicture();
  ExpectShown("the cursor farther on", [&](const PixelPicture& chart) {
    return cursorOf(chart) > cursorOf(early) + 30 && cursorOf(chart) < top.width;
  });
  const PixelPicture late = user.ChartPicture();
  for (int lane = 0; lane < 5; ++lane) {
    const Rect place = layout.LaneRect(lane);
    EXPECT_GT(early.CountDifferences(place, late), 100) << "the dot of lane " << lane << " has moved";
  }
  LeavePicture("-playing");
  user.Press(Control::StopButton);
  // The cursor is gone at once, the controls come back when the worker has ended the demo.
  ExpectShown("no cursor and the controls", [&](const PixelPicture& chart) {
    return cursorOf(chart) == top.width && user.IsEnabled(Control::ModeList);
  });
}

void Chart::SeeTheChartInOtherSizes() {
  for (const app::Size size : {app::Size{1250, 900}, app::Size{800, 600}}) {
    user.Resize(size.width, size.height);
    const app::Size client = user.ClientSize();
    layout.Update(client.width, client.height);
    LetLanesRest();
    ExpectShown("the steps in their new places", [&](const PixelPicture& chart) {
      return IsMarker(chart, PointOf(0, 1)) && IsMarker(chart, PointOf(2, 2));
    });
    LeavePicture(size.width > 1000 ? "-large" : "-small");
  }
}

// What the mouse does

void Chart::DragAStep() {
  Focus(0);
  const Point from = PointOf(0, 2);
  const Point to{from.x - 23, from.y + 41};
  user.DragOnChart(from.x, from.y, to.x, to.y);
  MoveTo(StepOf(0, 2), 0, to);
  EXPECT_THAT(user.Log(), HasSubstr("Step " + ToDescription(StepOf(0, 2))));
  ExpectSaved();
  user.MoveMouse(0, 0);
  ExpectShown("the selected step where it was dropped",
              [&](const PixelPicture& chart) { return chart.At(to.x, to.y) == kSalmon; });
}

void Chart::DragAStepBesideTheChart() {
  Focus(0);
  const Point from = PointOf(0, 2);
  const Point to{from.x + 31, from.y + 12};
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

void Chart::LoseTheCaptureInADrag() {
  Focus(0);
  const Point from = PointOf(0, 2);
  const Point to{from.x - 23, from.y + 41};
  user.MoveMouse(from.x, from.y);
  user.HoldButton();
  user.MoveMouse(to.x, to.y);
  user.TakeCapture();
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
void Chart::ReleaseBesideTheChartDuringADemo() {
  const Point step = PointOf(0, 2);
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

void Chart::DeleteAStepDuringADemo() {
  const Point step = PointOf(0, 2);
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

void Chart::UseTheChartsKeysBehindASlider() {
  const Point point = PointOf(0, 2);
  user.ClickChart(point.x, point.y);
  user.Press(Control::ZoomSlider);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
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

void Chart::UndoADeletionOfTheChartsMenu() {
  const Point point = PointOf(0, 2);
  ASSERT_TRUE(user.ChooseAtChart(point.x, point.y, command::kDeleteStep));
  const Channel before = ChannelOf(0);
  ChannelOf(0).erase(ChannelOf(0).begin() + 2);
  ExpectSaved();
  ASSERT_TRUE(user.Choose(command::kUndo));
  ChannelOf(0) = before;
  ExpectSaved();
}

void Chart::SeeLanesGlideUnderTheMenu() {
  const Rect place = layout.LaneRect(3);
  ASSERT_TRUE(user.OpenChartMenu(place.x + place.width - 20, place.y + place.height / 2));
  layout.FocusLane(3);
  now += 1.0;  // of the layout here
  ExpectShown("the lane enlarged behind the menu",
              [&](const PixelPicture& chart) { return IsFramed(chart, layout.LaneRect(3)); });
  user.LeaveMenu();
}

void Chart::AddAndDeleteAStep() {
  const int lane = 2;
  Focus(lane);
  const Channel before = ChannelOf(lane);
  const Rect place = layout.LaneRect(lane);
  const Point point{place.x + place.width / 8, place.y + place.height / 3};
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

void Chart::MoveAStepByArrows() {
  const Point point = PointOf(0, 2);
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

void Chart::ZoomAndPanByTheWheel() {
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
  ExpectShown("the steps in their new places", [&](const PixelPicture& chart) {
    return IsMarker(chart, PointOf(0, 2)) && IsMarker(chart, PointOf(2, 1));
  });
  LeavePicture("-zoomed");
  user.TurnWheel(x, y, -1, true, false);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
}

void Chart::SeeAStepThatJumps() {
  const Point point = PointOf(0, 3);
  ASSERT_TRUE(user.ChooseAtChart(point.x, point.y, command::kToggleJump));
  StepOf(0, 3).jump = true;
  ExpectSaved();
  layout.FocusLane(0);
  LetLanesRest();
  user.MoveMouse(0, 0);
  const Point square = PointOf(0, 3);
  const int half = TruncateToInt(UX::GetMarkerSize(layout).selectedDiameter / 2.0F);
  ExpectShown("a square for a step that jumps", [&](const PixelPicture& chart) {
    return chart.At(square.x, square.y) == kSalmon && chart.At(square.x + half, square.y + half) == kBlack &&
           chart.At(square.x - half, square.y - half) == kBlack;
  });
}

template <void (Chart::*script)()>
void Run(WindowUser& user, const Folders& folders) {
  Chart chart(user, folders);
  chart.Begin();
  if (testing::Test::HasFatalFailure()) return;
  (chart.*script)();
  chart.End();
}

constexpr WindowScript kScripts[] = {
    {"SeeEachStepOnItsCurve", Run<&Chart::SeeEachStepOnItsCurve>},
    {"SeeTheSelectedLaneFramed", Run<&Chart::SeeTheSelectedLaneFramed>},
    {"SeeTheBalloonOfAStep", Run<&Chart::SeeTheBalloonOfAStep>},
    {"SeeTheCrosshair", Run<&Chart::SeeTheCrosshair>},
    {"SeeADemo", Run<&Chart::SeeADemo>},
    {"SeeTheChartInOtherSizes", Run<&Chart::SeeTheChartInOtherSizes>},
    {"DragAStep", Run<&Chart::DragAStep>},
    {"DragAStepBesideTheChart", Run<&Chart::DragAStepBesideTheChart>},
    {"LoseTheCaptureInADrag", Run<&Chart::LoseTheCaptureInADrag>},
    {"ReleaseBesideTheChartDuringADemo", Run<&Chart::ReleaseBesideTheChartDuringADemo>},
    {"DeleteAStepDuringADemo", Run<&Chart::DeleteAStepDuringADemo>},
    {"UseTheChartsKeysBehindASlider", Run<&Chart::UseTheChartsKeysBehindASlider>},
    {"UndoADeletionOfTheChartsMenu", Run<&Chart::UndoADeletionOfTheChartsMenu>},
    {"SeeLanesGlideUnderTheMenu", Run<&Chart::SeeLanesGlideUnderTheMenu>},
    {"AddAndDeleteAStep", Run<&Chart::AddAndDeleteAStep>},
    {"MoveAStepByArrows", Run<&Chart::MoveAStepByArrows>},
    {"ZoomAndPanByTheWheel", Run<&Chart::ZoomAndPanByTheWheel>},
    {"SeeAStepThatJumps", Run<&Chart::SeeAStepThatJumps>},
};

}  // namespace

std::span<const WindowScript> OfTheChart() {
  return kScripts;
}

}  // namespace scripts
