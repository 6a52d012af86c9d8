#include "tests/support/table_scripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "app/window/numbers.h"
#include "chart/chart_layout.h"
#include "common/truncate.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "tests/support/demo_words.h"

namespace scripts {

namespace {

using app::TableSheet;
using TCBase::Program::ModeListView;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;
namespace column = app::table_column;
namespace command = app::command;
namespace key = app::key;

std::vector<std::string> Rows(User& user) {
  return user.TableRows(TableSheet::Steps);
}

// The first channel with two steps, and the table on it.
void StartAtTheTable(User& user) {
  user.Start();
  user.PressKey('T', true);
  ASSERT_TRUE(user.HasTable());
  user.ClickTableRow(0);
  ASSERT_TRUE(user.Choose(command::kClearSteps));
  user.Wait(1.0);  // two quick clicks on a cell would edit it
  user.ClickTableRow(0);
  ASSERT_THAT(Rows(user), ElementsAre("08:00 | 0 | fade", "22:00 | 0 | fade"));
}

void LeaveUnsaved(User& user) {
  user.WillAnswer(app::Answer::No);
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

// A point of a lane, by the time and the percent there; the lane stands enlarged or not.
void ClickLane(User& user, std::int32_t lane, bool enlarged, std::int32_t hour, float percent) {
  double now = 0.0;
  UX::ChartLayout layout{now};
  const app::Size client = user.ClientSize();
  layout.Update(client.width, client.height);
  if (enlarged) layout.FocusLane(lane);
  for (auto& height : layout.laneHeights) height.from = height.to;
  const Rect place = layout.LaneRect(lane);
  const ModeListView wholeDay;
  user.ClickChart(UX::TimeToX(place, wholeDay, hour * 3600), UX::PercentToY(place, percent));
}

// What is saved of a channel, as the table writes its rows, but for fractions.
std::vector<std::string> SavedRows(User& user, const std::filesystem::path& file, std::int32_t channel) {
  EXPECT_TRUE(user.Choose(command::kSaveProgram));
  ModeListView saved = TCBase::Program::NewProgram();
  EXPECT_TRUE(LoadProgram(file, saved));
  std::vector<std::string> rows;
  for (const auto& step : saved.modes.at(0).channels.at(static_cast<std::size_t>(channel))) {
    rows.push_back(ToTimeText(step) + " | " + std::to_string(TruncateToInt(step.value)) + " | " +
                   (step.jump ? "jump" : "fade"));
  }
  return rows;
}

std::vector<std::string> RowsWithoutFractions(User& user) {
  std::vector<std::string> rows = Rows(user);
  for (std::string& row : rows) {
    const std::size_t point = row.find('.');
    if (point != std::string::npos) row.erase(point, row.find(" | ", point) - point);
  }
  return rows;
}

}  // namespace

void EditStepsInTheTable(User& user, const Folders&) {
  StartAtTheTable(user);
  EXPECT_THAT(user.TableTitle(), StartsWith("Step table: "));
  EXPECT_THAT(user.TableTitle(), EndsWith(", Channel 1"));
  EXPECT_EQ(user.TableHeading(TableSheet::Steps), "Channel 1: Time | Percent | To the next");
  EXPECT_THAT(user.TableHeading(TableSheet::Merged), HasSubstr(" of 48: Time | Channel 1 | "));

  user.TypeInTable(0, column::kPercent, "62.5");
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(1)) << "Enter goes on";
  user.TypeInTable(0, column::kTime, "930");
  user.TypeInTable(0, column::kJump, "j");
  EXPECT_THAT(Rows(user), ElementsAre("09:30 | 62.5 | jump", "22:00 | 0 | fade"));
  user.TypeInTable(1, column::kPercent, "5", key::kEscape);
  EXPECT_EQ(Rows(user)[1], "22:00 | 0 | fade");

  user.ClickTableRow(0);
  user.PressTableKey(key::kInsert);
  EXPECT_THAT(Rows(user), ElementsAre("09:30 | 62.5 | jump", "15:45 | 62.5 | jump", "22:00 | 0 | fade"));
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(1));
  user.PressTableKey(key::kSpace);
  EXPECT_EQ(Rows(user)[1], "15:45 | 62.5 | fade");
  user.PressTableKey(key::kDelete);
  EXPECT_THAT(Rows(user), ElementsAre("09:30 | 62.5 | jump", "22:00 | 0 | fade"));
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(1));
  user.PressTableKey(key::kDelete);
  EXPECT_THAT(user.TableFault(), HasSubstr("Minimum 2 steps"));

  for (int i = 0; i < 6; ++i) user.PressTableKey('Z', true);
  EXPECT_THAT(Rows(user), ElementsAre("08:00 | 0 | fade", "22:00 | 0 | fade"));
  user.PressTableKey('Y', true);
  EXPECT_EQ(Rows(user)[0], "08:00 | 62.5 | fade");

  user.CloseTable();
  EXPECT_FALSE(user.HasTable());
  user.PressKey('T', true);
  EXPECT_EQ(Rows(user)[0], "08:00 | 62.5 | fade");
  LeaveUnsaved(user);
}

void TypeWrongIntoTheTable(User& user, const Folders&) {
  StartAtTheTable(user);
  user.TypeInTable(0, column::kTime, "25:00");
  EXPECT_THAT(user.TableFault(), HasSubstr("no time"));
  user.TypeInTable(0, column::kTime, "22:00");
  EXPECT_EQ(user.TableFault(), "There is a step at 22:00 already.");
  user.PressTableKey(key::kEscape);
  EXPECT_EQ(user.TableFault(), "");
  user.TypeInTable(1, column::kPercent, "101");
  EXPECT_THAT(user.TableFault(), HasSubstr("no percent"));
  user.ClickTableRow(0);
  EXPECT_THAT(user.TableFault(), HasSubstr("no percent")) << "so that one can read it";
  user.TypeInTable(1, column::kJump, "hop");
  EXPECT_THAT(user.TableFault(), HasSubstr("\"jump\""));
  user.TypeInTable(1, column::kJump, "jump");
  EXPECT_EQ(user.TableFault(), "");
  EXPECT_THAT(Rows(user), ElementsAre("08:00 | 0 | fade", "22:00 | 0 | jump"));
  LeaveUnsaved(user);
}

void CarryStepsOverTheClipboard(User& user, const Folders&) {
  StartAtTheTable(user);
  user.SetClipboard("10:00 20\r\n12:00 80 J\r\n");
  user.PressTableKey('V', true);
  EXPECT_THAT(Rows(user),
              ElementsAre("08:00 | 0 | fade", "10:00 | 20 | fade", "12:00 | 80 | jump", "22:00 | 0 | fade"));
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(1, 2));
  user.PressTableKey('X', true);
  EXPECT_EQ(user.Clipboard(), "10:00\t 20\t\r\n12:00\t 80\t J\r\n");
  EXPECT_THAT(Rows(user), SizeIs(2));
  user.SetClipboard("Time\tPercent\r\n11:00\t12,5\t\r\n22:00\t40\tJ\r\n");
  user.PressTableKey('V', true);
  EXPECT_THAT(Rows(user), ElementsAre("08:00 | 0 | fade", "11:00 | 12.5 | fade", "22:00 | 40 | jump"));
  user.PressTableKey('A', true);
  user.PressTableKey('C', true);
  EXPECT_EQ(user.Clipboard(), "08:00\t 0\t\r\n11:00\t 12.5\t\r\n22:00\t 40\t J\r\n");
  user.SetClipboard("11:00 12\r\nat noon 5 and then 7\r\n");
  user.PressTableKey('V', true);
  EXPECT_EQ(user.TableFault(), "Line 2 of the clipboard is no step.");
  EXPECT_THAT(Rows(user), SizeIs(3));
  LeaveUnsaved(user);
}

void SelectInTableAndChart(User& user, const Folders&) {
  StartAtTheTable(user);
  user.TypeInTable(0, column::kPercent, "50");
  user.ClickTableRow(0);
  ASSERT_TRUE(user.Choose(command::kToggleJump)) << "a step is selected";
  EXPECT_THAT(Rows(user), ElementsAre("08:00 | 50 | jump", "22:00 | 0 | fade"));
  user.ClickTableRow(1);
  user.Wait(0.3);
  ClickLane(user, 0, true, 8, 50.0F);
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(0));
  user.PressTableKey(key::kPageDown, true);
  EXPECT_THAT(user.TableTitle(), EndsWith(", Channel 2"));
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre());
  LeaveUnsaved(user);
}

void SelectSeveralRows(User& user, const Folders&) {
  StartAtTheTable(user);
  user.SetClipboard("10:00 20\r\n12:00 80\r\n14:00 30");
  user.PressTableKey('V', true);
  user.ClickTableRow(1);
  user.ClickTableRow(3, false, true);
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(1, 2, 3));
  user.ClickTableRow(2, true);
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(1, 3));
  user.PressTableKey(key::kDelete);
  EXPECT_THAT(Rows(user), ElementsAre("08:00 | 0 | fade", "12:00 | 80 | fade", "22:00 | 0 | fade"));
  user.PressTableKey('A', true);
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(0, 1, 2));
  user.PressTableKey(key::kSpace);
  EXPECT_THAT(Rows(user), ElementsAre("08:00 | 0 | jump", "12:00 | 80 | jump", "22:00 | 0 | jump"));
  LeaveUnsaved(user);
}

void LookAtTheTableDuringADemo(User& user, const Folders&) {
  StartAtTheTable(user);
  ASSERT_TRUE(user.Choose(command::kAddEmulator));
  user.Press(app::Control::PlayButton);
  ASSERT_TRUE(in_demo::AwaitStatus(user, "Playing"));
  user.ClickTableRow(1);
  user.PressTableKey(key::kInsert);
  EXPECT_EQ(user.TableFault(), "While a demo plays the steps stay as they are.");
  user.TypeInTable(1, column::kPercent, "70");
  EXPECT_THAT(Rows(user), ElementsAre("08:00 | 0 | fade", "22:00 | 0 | fade"));
  EXPECT_FALSE(user.MenuItem(command::kUndo).enabled);
  user.Press(app::Control::StopButton);
  EXPECT_TRUE(in_demo::Await(user, [&] { return user.MenuItem(command::kUndo).enabled; }));
  user.TypeInTable(1, column::kPercent, "70");
  EXPECT_EQ(Rows(user)[1], "22:00 | 70 | fade");
  LeaveUnsaved(user);
}

void TheTableSaysWhatTheChartShows(User& user, const Folders& folders) {
  StartAtTheTable(user);
  const std::filesystem::path file = folders.work / "table.xml";
  user.WillPick({file});
  std::mt19937 random(20260501);  // the same day for every shell
  const auto any = [&random](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  ASSERT_THAT(RowsWithoutFractions(user), testing::ElementsAreArray(SavedRows(user, file, 0)));
  for (int round = 0; round < 14; ++round) {
    const int rows = static_cast<int>(Rows(user).size());
    user.ClickTableRow(any(rows));
    switch (any(8)) {
      case 0:
      case 1:
        user.PressTableKey(key::kInsert);
        break;
      case 2:
        user.PressTableKey(key::kDelete);
        break;
      case 3:
        user.PressTableKey(key::kSpace);
        break;
      case 4:
        user.TypeInTable(any(rows), column::kPercent, std::to_string(any(120)), key::kEnter);
        user.PressTableKey(key::kEscape);
        break;
      case 5:
        user.TypeInTable(any(rows), column::kTime,
                         std::to_string(any(26)) + ":" + std::to_string(10 + any(55)));
        user.PressTableKey(key::kEscape);
        break;
      case 6:
        user.PressTableKey(any(3) == 0 ? 'Y' : 'Z', true);
        break;
      default:
        user.Choose(command::kMoveStepsDown);
        user.Choose(command::kMoveStepsUp);
        break;
    }
  }
  ASSERT_THAT(RowsWithoutFractions(user), testing::ElementsAreArray(SavedRows(user, file, 0)));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

}  // namespace scripts
