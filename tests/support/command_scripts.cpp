#include "tests/support/command_scripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/window/numbers.h"
#include "chart/chart_layout.h"
#include "common/files.h"
#include "program/align.h"
#include "program/builtin_modes.h"
#include "program/endpoint.h"
#include "program/mode_file.h"
#include "program/optimize.h"
#include "program/program_file.h"
#include "program/resample.h"
#include "program/view.h"
#include "tests/support/demo_words.h"
#include "tests/support/files.h"

namespace scripts {

namespace {

using app::Answer;
using app::Control;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
namespace command = app::command;
namespace key = app::key;
namespace prog = TCBase::Program;

// What comes to the log from one look to the next.
class NewLines {
 public:
  explicit NewLines(User& user) : user_(user) { Take(); }

  std::string Take() {
    const std::string log = user_.Log();
    std::string fresh = log.substr(seen_);
    seen_ = log.size();
    return fresh;
  }

 private:
  User& user_;
  std::size_t seen_ = 0;
};

// Editing

// Steps on no round minute, so that each grid takes them elsewhere, and each channel with its own.
ModeListView OddProgram() {
  ModeListView document = prog::NewProgram();
  int hour = 6;
  for (prog::Channel& channel : document.modes[0].channels) {
    channel = {{hour, 7, 10.0F, false, 0}, {12, 14, 80.0F, false, 0}, {hour + 12, 41, 20.0F, true, 0}};
    ++hour;
  }
  return document;
}

constexpr int kNoLane = -1;

// A command and what it does to the document, with the channel of this lane selected.
struct Edit {
  int command;
  int lane;
  std::string log;
  std::function<void(ModeListView&)> change;
};

std::function<void(ModeListView&)> ToMode(const std::function<void(Mode&)>& change) {
  return [change](ModeListView& document) { change(document.modes[0]); };
}

Edit AlignedTo(int command, int minutes) {
  ModeListView expected = OddProgram();
  AlignMode(expected.modes[0], expected.modes[0], minutes);
  return {command, kNoLane,
          "All steps were aligned to " + std::to_string(minutes) +
              " minute intervals. Current number of steps is " +
              std::to_string(CountModeSteps(expected.modes[0])) + ".\r\n",
          [expected](ModeListView& document) { document = expected; }};
}

Edit EndpointAt(int command, int second, const std::string& time) {
  ModeListView expected = OddProgram();
  EXPECT_TRUE(AddStepToAllChannels(expected.modes[0], second));
  return {command, kNoLane,
          "Added step at " + time + " to all channels. Current number of steps is " +
              std::to_string(CountModeSteps(expected.modes[0])) + ".\r\n",
          [expected](ModeListView& document) { document = expected; }};
}

std::vector<Edit> Edits() {
  const auto nothing = [](ModeListView&) {};
  return {
      {command::kCopySteps, 0, "Copied steps to clipboard\r\n", nothing},
      {command::kPasteSteps, 4, "Pasted steps from clipboard\r\n",
       ToMode([](Mode& mode) { mode.channels[4] = mode.channels[0]; })},
      {command::kMoveStepsUp, 3, "Moved steps up\r\n",
       ToMode([](Mode& mode) { std::swap(mode.channels[3], mode.channels[2]); })},
      {command::kMoveStepsDown, 0, "Moved steps down\r\n",
       ToMode([](Mode& mode) { std::swap(mode.channels[0], mode.channels[1]); })},
      {command::kClearSteps, 2, "Cleared all steps\r\n", ToMode([](Mode& mode) {
         mode.channels[2] = {{8, 0}, {22, 0}};
       })},
      {command::kChannelColor, 3, "",
       [](ModeListView& document) {
         document.channelInfos[3].color = prog::NextChannelColor(document.channelInfos[3].color);
       }},
      {command::kOptimizeForTC421, kNoLane,
       "All steps were aligned to 30 minute intervals. This is useful for configuring TC421 device.\r\n",
       ToMode([](Mode& mode) {
         ResampleHalfHour(mode, mode);
         prog::RemoveExactSteps(mode);
       })},
      EndpointAt(command::kEndpointStart, prog::kDayStart, "00:00"),
      EndpointAt(command::kEndpointEnd, prog::kDayEnd, "23:59"),
      AlignedTo(command::kAlign3, 3),
      AlignedTo(command::kAlign5, 5),
      AlignedTo(command::kAlign10, 10),
      AlignedTo(command::kAlign15, 15),
      AlignedTo(command::kAlign30, 30),
      AlignedTo(command::kAlign60, 60),
  };
}

// Clicks into a lane where there is no step. It is not the one that is selected already.
void SelectLane(User& user, int lane) {
  user.ClickBackground();  // all lanes are alike from here on
  const app::Size client = user.ClientSize();
  double now = 0.0;
  UX::ChartLayout layout{now};
  layout.Update(client.width, client.height);
  for (auto& height : layout.laneHeights) height.from = height.to;
  const Rect place = layout.LaneRect(lane);
  user.ClickChart(UX::TimeToX(place, {}, std::int64_t{3} * 3600), place.y + place.height / 2);
}

// The document as it comes out of a file.
ModeListView Stored(const ModeListView& document, const std::filesystem::path& file) {
  ModeListView stored;
  EXPECT_TRUE(SaveProgram(document, file) && LoadProgram(file, stored));
  return stored;
}

// Files

void ExportTo(User& user, int command, const prog::ModeFileKind& kind, const Mode& mode,
              const std::filesystem::path& file) {
  user.WillPick({file});
  ASSERT_TRUE(user.Choose(command));
  std::string expected;
  kind.write(mode, expected);
  EXPECT_TRUE(BytesOf(file) == expected) << file;
}

}  // namespace

void EditByMenu(User& user, const Folders& folders) {
  const std::filesystem::path file = folders.work / "odd.xml";
  const ModeListView original = Stored(OddProgram(), file);
  const std::vector<Edit> edits = Edits();
  std::vector<ModeListView> expected;
  for (const Edit& edit : edits) {
    expected.push_back(original);
    edit.change(expected.back());
    expected.back() = Stored(expected.back(), folders.work / "expected.xml");
  }
  user.Start();
  user.WillPick({file});
  ASSERT_TRUE(user.Choose(command::kLoadProgram));
  const auto saved = [&] {
    EXPECT_TRUE(user.Choose(command::kSaveProgram));
    ModeListView document;
    EXPECT_TRUE(LoadProgram(file, document));
    return document;
  };
  const std::string savedLine = "Saved program " + Utf8FromPath(file) + "\r\n";
  NewLines log(user);
  for (std::size_t i = 0; i < edits.size(); ++i) {
    SCOPED_TRACE(edits[i].command);
    if (edits[i].lane != kNoLane) SelectLane(user, edits[i].lane);
    ASSERT_TRUE(user.Choose(edits[i].command));
    EXPECT_TRUE(saved() == expected[i]);
    ASSERT_TRUE(user.Choose(command::kUndo));
    EXPECT_EQ(log.Take(), edits[i].log + savedLine + "Undo\r\n");
  }
  EXPECT_TRUE(saved() == original);
  user.Choose(command::kRedo);
  EXPECT_TRUE(saved() == expected.back());
  user.Close();
  EXPECT_FALSE(user.IsRunning()) << "it is saved";
}

void MoveTheViewByKeys(User& user, const Folders&) {
  user.Start();
  const app::Size client = user.ClientSize();
  double now = 0.0;
  UX::ChartLayout layout{now};
  layout.Update(client.width, client.height);
  const Rect& chart = layout.chartRect;
  ModeListView view;
  const auto pan = [](int seconds) {
    return [seconds](ModeListView& document) { prog::PanView(document, seconds); };
  };
  const struct {
    int key;
    std::function<void(ModeListView&)> change;
  } presses[] = {
      {key::kNumpadAdd, prog::ViewZoomIn},
      {key::kNumpadAdd, prog::ViewZoomIn},
      {key::kNumpadAdd, prog::ViewZoomIn},
      {key::kPageDown, pan(900)},
      {key::kPageDown, pan(900)},
      {key::kPageUp, pan(-900)},
      {key::kEnd, pan(86400)},
      {key::kPageUp, pan(-900)},
      {key::kNumpadSubtract, prog::ViewZoomOut},
      {key::kHome, pan(-86400)},
      {key::kNumpadMultiply, [](ModeListView& document) { prog::SetViewHours(document, 24.0F); }},
  };
  int x = chart.x + chart.width / 3;
  for (const auto& press : presses) {
    SCOPED_TRACE(press.key);
    user.PressKey(press.key);
    press.change(view);
    EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 24 - (view.viewEnd - view.viewStart) / 3600);
    // Elsewhere than before, or it is no move.
    x = x == chart.x + chart.width / 3 ? chart.x + chart.width / 2 : chart.x + chart.width / 3;
    user.MoveMouse(x, chart.y + 2);
    const std::int32_t second = UX::XToTime(chart, view, x);
    EXPECT_EQ(user.Text(Control::TimeLabel), prog::TimeTextWithSeconds(prog::WholeMinute(second)));
  }
  user.Close();
}

void FilesByMenu(User& user, const Folders& folders) {
  const std::filesystem::path program = folders.work / "odd.xml";
  const Mode mode = Stored(OddProgram(), program).modes[0];
  user.Start();
  user.WillPick({program});
  ASSERT_TRUE(user.Choose(command::kLoadProgram));
  ExportTo(user, command::kExportTmf, prog::kTmfFile, mode, folders.work / "dawn.tmf");
  ExportTo(user, command::kExportLmf, prog::kLmfFile, mode, folders.work / "noon.lmf");
  ExportTo(user, command::kExportRaw, prog::kRawFile, mode, folders.work / "dusk.raw");

  NewLines log(user);
  for (const auto& [number, name] :
       {std::pair(command::kImportTmf, "dawn.tmf"), std::pair(command::kImportLmf, "noon.lmf")}) {
    user.WillPick({folders.work / name});
    ASSERT_TRUE(user.Choose(number));
    EXPECT_EQ(log.Take(), "Loading " + Utf8FromPath(folders.work / name) + "\r\n");
  }
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn", "dawn", "noon"));
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(3));
  ASSERT_TRUE(user.Choose(command::kProgramInfo));
  for (const std::string& name : user.List(Control::ModeList)) EXPECT_THAT(user.Log(), HasSubstr(name));
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(user.Choose(command::kUndo));
  EXPECT_THAT(user.List(Control::ModeList), SizeIs(2));

  // What was loaded counts as the last saved, and a new program as a change of it.
  ASSERT_TRUE(user.Choose(command::kNewProgram));
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  user.WillAnswer(Answer::Cancel);
  ASSERT_TRUE(user.Choose(command::kExit));
  ASSERT_TRUE(user.IsRunning());
  user.WillAnswer(Answer::No);
  user.Choose(command::kExit);
  for (int tries = 0; user.IsRunning() && tries < 600; ++tries) user.Wait(0.1);
  EXPECT_FALSE(user.IsRunning());
}

void DevicesByMenu(User& user, const Folders&) {
  user.Start();
  ASSERT_TRUE(user.Choose(command::kAddEmulator));
  EXPECT_THAT(user.SelectedRows(Control::DeviceList), ElementsAre(0));
  for (const auto& [number, line] :
       {std::pair(command::kSyncTime, "Syncing time"), std::pair(command::kClearAll, "Clearing all modes")}) {
    ASSERT_TRUE(user.Choose(number));
    EXPECT_TRUE(user.WaitForLog("Configuring device TC420_Emulator\r\n" + std::string(line) +
                                "\r\nFinished configuring device TC420_Emulator\r\n"));
  }

  for (const auto& [number, seconds] :
       {std::pair(command::kSpeedNormal, "180"), std::pair(command::kSpeedSlow, "300"),
        std::pair(command::kSpeedFast, "60")}) {
    ASSERT_TRUE(user.Choose(number));
    EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (" + std::string(seconds) + "s)");
    for (const int speed : {command::kSpeedFast, command::kSpeedNormal, command::kSpeedSlow}) {
      EXPECT_EQ(user.MenuItem(speed).checked, speed == number) << speed;
    }
    EXPECT_FALSE(user.MenuItem(command::kSpeedCustom).checked);
  }

  ASSERT_TRUE(user.Choose(command::kPlayDemo));
  ASSERT_TRUE(in_demo::AwaitStatus(user, "Playing"));
  EXPECT_FALSE(user.Choose(command::kPlayDemo)) << "the button alone pauses";
  ASSERT_TRUE(user.Choose(command::kStopDemo));
  EXPECT_TRUE(user.WaitForLog("Demo finished\r\n"));
  EXPECT_TRUE(in_demo::AwaitStatus(user, "Ready (60s)"));
  EXPECT_FALSE(user.Choose(command::kStopDemo));

  user.WillFill({in_dialog::PressEscape()});
  ASSERT_TRUE(user.Choose(command::kSetupWifi));
  EXPECT_THAT(user.Dialogs(), SizeIs(1));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

}  // namespace scripts
