#include "tests/support/chart_scripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "app/window/numbers.h"
#include "chart/chart_layout.h"
#include "common/files.h"
#include "common/truncate.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "program/view.h"
#include "tests/support/demo_words.h"
#include "tests/support/text_count.h"

namespace scripts {

namespace {

using app::Control;
using TCBase::Program::ModeListView;
using testing::ElementsAre;
using testing::HasSubstr;
namespace command = app::command;
namespace key = app::key;

constexpr double kGlideSeconds = 0.3;  // a little longer than the lanes need

// The chart as it stands before the user: where on it a time and a percentage of a lane are, and what a
// pixel will be taken for.
class Map {
 public:
  Map(User& user, std::int32_t lane) : lane_(lane) {
    const app::Size client = user.ClientSize();
    layout_.Update(client.width, client.height);
  }

  struct Point {
    int x;
    int y;
  };
  Point At(int hour, int minute, float percent) {
    return {UX::TimeToX(Lane(), view, hour * 3600 + minute * 60), UX::PercentToY(Lane(), percent)};
  }
  // "08:05 40": the step that a pixel gives, as it is saved.
  std::string StepAt(const Point& point) {
    const std::int32_t second = UX::XToTime(Lane(), view, point.x);
    const float percent = std::clamp(UX::YToPercent(Lane(), point.y), 0.0F, 100.0F);
    return Told({second / 3600, second % 3600 / 60, percent});
  }
  static std::string Told(const TCBase::Program::Step& step) {
    return ToTimeText(step) + " " + std::to_string(TruncateToInt(step.value));
  }

  // The lane becomes the enlarged one, as in the program.
  void Enlarge() { layout_.FocusLane(lane_); }

  ModeListView view;

 private:
  // At rest, whatever the clock says.
  Rect Lane() {
    for (auto& height : layout_.laneHeights) height.from = height.to;
    return layout_.LaneRect(lane_);
  }

  std::int32_t lane_;
  double now_ = 0.0;
  UX::ChartLayout layout_{now_};
};

void Click(User& user, const Map::Point& point) {
  user.ClickChart(point.x, point.y);
}

void Drag(User& user, const Map::Point& from, const Map::Point& to) {
  user.DragOnChart(from.x, from.y, to.x, to.y);
}

// The steps of a lane of the first mode.
std::vector<std::string> StepsOf(const ModeListView& document, std::size_t lane) {
  std::vector<std::string> steps;
  if (document.modes.empty()) return steps;
  for (const auto& step : document.modes.front().channels.at(lane)) steps.push_back(Map::Told(step));
  return steps;
}

std::vector<std::string> SavedSteps(const std::filesystem::path& file, std::size_t lane) {
  ModeListView saved;
  EXPECT_TRUE(LoadProgram(file, saved)) << file;
  return StepsOf(saved, lane);
}

void SaveAs(User& user, const std::filesystem::path& file) {
  user.WillPick({file});
  ASSERT_TRUE(user.Choose(command::kSaveProgramAs));
}

// Selects a lane of the built-in program and leaves it with two steps, at 08:00 and 22:00, of no light.
Map ClearLane(User& user, std::int32_t lane) {
  Map map(user, lane);
  Click(user, map.At(1, 0, 50.0F));
  map.Enlarge();
  user.Wait(kGlideSeconds);
  EXPECT_TRUE(user.Choose(command::kClearSteps));
  Click(user, map.At(1, 0, 50.0F));  // selects it again, and nothing more
  return map;
}

}  // namespace

void DrawADay(User& user, const Folders& folders) {
  user.Start();
  const std::string before = user.Text(Control::ModeDescription);
  Map map = ClearLane(user, 0);

  // The day, click by click; the last one too early, so it is dragged to its place.
  const Map::Point morning = map.At(10, 0, 60.0F);
  const Map::Point noon = map.At(13, 0, 95.0F);
  const Map::Point afternoon = map.At(16, 30, 70.0F);
  const Map::Point evening = map.At(18, 30, 30.0F);
  for (const Map::Point& point : {morning, noon, afternoon, evening}) Click(user, point);
  const Map::Point dusk = map.At(20, 0, 15.0F);
  Drag(user, evening, dusk);
  EXPECT_EQ(CountOf(user.Log(), "Added new step "), 4);
  EXPECT_EQ(CountOf(user.Log(), "Hint: You can also use keyboard ARROWS"), 1);
  const std::string atNoon = map.StepAt(noon);
  user.MoveMouse(noon.x, noon.y);
  EXPECT_EQ(user.Text(Control::TimeLabel), atNoon.substr(0, 5) + ":00");

  // Closer, and a little later.
  for (int hours = 0; hours < 16; ++hours) user.TurnWheel(noon.x, noon.y, 1, true);
  user.TurnWheel(noon.x, noon.y, 60);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 16);
  const std::string unzoomed = map.StepAt(afternoon);
  TCBase::Program::SetViewHours(map.view, 8.0F);
  TCBase::Program::PanView(map.view, 60 * 600);

  // The afternoon's step, by the arrows: held and pressed.
  const int hour = std::stoi(unzoomed.substr(0, 2));
  const int minute = std::stoi(unzoomed.substr(3, 2));
  Click(user, {map.At(hour, minute, 0.0F).x, afternoon.y});
  user.HoldKey(key::kLeft, 5);
  user.PressKey(key::kUp);
  user.PressKey(key::kUp);

  const std::filesystem::path file = folders.work / "day.xml";
  SaveAs(user, file);
  const int nudged = hour * 60 + minute - 5;
  Map whole(user, 0);
  whole.Enlarge();
  const std::string nudgedStep = Map::Told({nudged / 60, nudged % 60, std::stof(unzoomed.substr(6)) + 2.0F});
  EXPECT_THAT(SavedSteps(file, 0), ElementsAre("08:00 0", whole.StepAt(morning), atNoon, nudgedStep,
                                               whole.StepAt(dusk), "22:00 0"));

  // Undo it all: cleared, four added, one dragged, one held and two pressed keys.
  for (int entries = 0; entries < 9; ++entries) user.Choose(command::kUndo);
  EXPECT_EQ(CountOf(user.Log(), "Undo\r\n"), 9);
  user.Choose(command::kUndo);
  EXPECT_EQ(CountOf(user.Log(), "Undo\r\n"), 9) << "there is nothing more";
  EXPECT_EQ(user.Text(Control::ModeDescription), before);
  SaveAs(user, folders.work / "undone.xml");
  EXPECT_EQ(SavedSteps(folders.work / "undone.xml", 0), StepsOf(TCBase::Program::NewProgram(), 0));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void TheFirstFiveMinutes(User& user, const Folders& folders) {
  user.Start();
  Map map(user, 0);
  Click(user, map.At(15, 0, 30.0F));
  EXPECT_GT(user.SliderPosition(Control::PowerSlider), 0);
  map.Enlarge();
  user.Wait(kGlideSeconds);
  const Map::Point added = map.At(15, 0, 85.0F);
  Click(user, added);
  EXPECT_THAT(user.Log(), HasSubstr("Current number of steps: 13\r\n"));
  user.PressKey(key::kUp);
  user.PressKey('Z', true);

  ASSERT_TRUE(user.Choose(command::kAddEmulator));
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("TC420_Emulator"));
  user.Press(Control::PlayButton);
  EXPECT_TRUE(in_demo::AwaitStatus(user, "Playing"));
  constexpr int kEvening = 20 * TCBase::Program::kSecondsPerHour;
  in_demo::SeekTo(user, kEvening);
  EXPECT_TRUE(in_demo::Await(user, [&] { return in_demo::ShownSecond(user) >= kEvening; }));
  user.Press(Control::StopButton);
  EXPECT_TRUE(user.WaitForLog("Demo finished\r\n"));

  const std::filesystem::path file = folders.work / "tank.xml";
  user.WillPick({file});
  ASSERT_TRUE(user.Choose(command::kSaveProgram));
  EXPECT_THAT(SavedSteps(file, 0), testing::Contains(map.StepAt(added)));
  ASSERT_TRUE(user.Choose(command::kSyncTime));
  ASSERT_TRUE(user.WaitForLog("Syncing time\r\nFinished configuring device TC420_Emulator\r\n"));
  ASSERT_TRUE(user.Choose(command::kUploadProgram));
  ASSERT_TRUE(user.WaitForLog("Uploading finished\r\nFinished configuring device TC420_Emulator\r\n"));

  user.Close();
  ASSERT_FALSE(user.IsRunning());
  user.Start();
  EXPECT_EQ(user.Title(), "Lumarine - " + Utf8FromPath(file));
  user.Close();
}

void DeleteSteps(User& user, const Folders& folders) {
  user.Start();
  Map map = ClearLane(user, 3);
  const Map::Point first = map.At(11, 0, 80.0F);
  const Map::Point second = map.At(14, 0, 40.0F);
  const Map::Point third = map.At(17, 0, 60.0F);
  for (const Map::Point& point : {first, second, third}) Click(user, point);

  Click(user, second);
  user.PressKey(key::kDelete);
  EXPECT_EQ(CountOf(user.Log(), "Step deleted. Current number of steps: "), 1);

  EXPECT_FALSE(user.ChooseAtChart(second.x, second.y, command::kDeleteStep)) << "there is no step any more";
  user.RightClickChart(first.x, first.y);
  EXPECT_TRUE(user.ChooseAtChart(third.x, third.y, command::kToggleJump));
  EXPECT_TRUE(user.ChooseAtChart(first.x, first.y, command::kDeleteStep));
  EXPECT_EQ(CountOf(user.Log(), "Step deleted. Current number of steps: "), 2);

  const std::filesystem::path file = folders.work / "deleted.xml";
  SaveAs(user, file);
  EXPECT_THAT(SavedSteps(file, 3), ElementsAre("08:00 0", map.StepAt(third), "22:00 0"));
  ModeListView saved;
  ASSERT_TRUE(LoadProgram(file, saved));
  EXPECT_TRUE(saved.modes.front().channels[3][1].jump);

  // The last two stay.
  ASSERT_TRUE(user.ChooseAtChart(third.x, third.y, command::kDeleteStep));
  const Map::Point last = map.At(22, 0, 0.0F);
  user.ChooseAtChart(last.x, last.y, command::kDeleteStep);
  EXPECT_THAT(user.Log(), HasSubstr("Unable to delete step. Minimum 2 steps per channel is required.\r\n"));
  SaveAs(user, file);
  EXPECT_THAT(SavedSteps(file, 3), ElementsAre("08:00 0", "22:00 0"));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void MoveSeveralSteps(User& user, const Folders& folders) {
  user.Start();
  Map map = ClearLane(user, 0);
  const Map::Point morning = map.At(10, 0, 20.0F);
  const Map::Point noon = map.At(13, 0, 50.0F);
  const Map::Point evening = map.At(17, 0, 40.0F);
  for (const Map::Point& point : {morning, noon, evening}) Click(user, point);
  const std::filesystem::path file = folders.work / "several.xml";

  // Two of them by Ctrl, dragged together by the second; the mouse begins on its marker's centre.
  Click(user, morning);
  user.HoldModifiers({.ctrl = true});
  Click(user, noon);
  user.HoldModifiers({});
  EXPECT_THAT(user.Log(), HasSubstr("Selected steps: 2\r\n"));
  const Map::Point moved = map.At(14, 0, 60.0F);
  Drag(user, noon, moved);
  EXPECT_THAT(user.Log(), HasSubstr("Moved steps: 2\r\n"));
  SaveAs(user, file);
  std::vector<std::string> steps = SavedSteps(file, 0);
  ASSERT_EQ(steps.size(), 5U);
  EXPECT_EQ(steps[2], map.StepAt(moved));
  EXPECT_EQ(steps[3], map.StepAt(evening));
  EXPECT_NE(steps[1], map.StepAt(morning)) << "it went with the other one";

  // A frame around the evening takes it in, too, and an arrow moves all three.
  user.HoldModifiers({.ctrl = true});
  Drag(user, map.At(16, 0, 10.0F), map.At(18, 0, 90.0F));
  user.HoldModifiers({});
  const std::string before = map.StepAt(evening);
  user.PressKey(key::kUp);
  SaveAs(user, file);
  steps = SavedSteps(file, 0);
  ASSERT_EQ(steps.size(), 5U);
  EXPECT_EQ(std::stoi(steps[3].substr(6)), std::stoi(before.substr(6)) + 1);
  EXPECT_NE(steps[2], map.StepAt(moved));

  // All of the channel: but for two they go, and come back.
  user.PressKey('A', true);
  user.PressKey(key::kDelete);
  EXPECT_THAT(user.Log(), HasSubstr("Deleted steps: 3. Current number of steps: "));
  SaveAs(user, file);
  EXPECT_EQ(SavedSteps(file, 0).size(), 2U);
  user.PressKey('Z', true);
  SaveAs(user, file);
  EXPECT_EQ(SavedSteps(file, 0), steps);
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void WorkWithACarefulMouse(User& user, const Folders& folders) {
  user.Start();
  ASSERT_TRUE(user.Choose(command::kCarefulMouse));
  EXPECT_TRUE(user.MenuItem(command::kCarefulMouse).checked);
  Map map = ClearLane(user, 0);
  const Map::Point noon = map.At(12, 0, 50.0F);
  user.Wait(1.0);
  Click(user, noon);
  EXPECT_EQ(CountOf(user.Log(), "Added new step "), 0);
  user.Wait(1.0);
  user.DoubleClickChart(noon.x, noon.y);
  EXPECT_EQ(CountOf(user.Log(), "Added new step "), 1);
  user.Wait(1.0);
  user.DragOnChart(noon.x, noon.y, noon.x + 3, noon.y + 3);
  const std::filesystem::path file = folders.work / "careful.xml";
  SaveAs(user, file);
  EXPECT_THAT(SavedSteps(file, 0), ElementsAre("08:00 0", map.StepAt(noon), "22:00 0"));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

}  // namespace scripts
