// The step table: what it shows, and what can be done in it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "app/table/step_cells.h"
#include "program/step_group.h"
#include "tests/app/app_test.h"

namespace {

using app::TableSheet;
using testing::ElementsAre;
using testing::HasSubstr;
namespace column = app::table_column;
namespace key = app::key;

class StepTableTest : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
    GivenSteps(0, {{8 * 60, 0.0F}, {12 * 60, 80.0F}, {20 * 60, 10.0F}});
  }

  void GivenTheTable(int row = 0) {
    user.Choose(app::command::kStepTable);
    user.ClickTableRow(row);
    NewLog();
  }
  std::vector<std::string> Rows() { return user.TableRows(TableSheet::Steps); }
  headless::StepTable& Window() { return user.GetDesktop().stepTable; }
  void ExpectUnchanged() {
    EXPECT_THAT(Rows(), ElementsAre("08:00 | 0 | fade", "12:00 | 80 | fade", "20:00 | 10 | fade"));
  }
};

TEST_F(StepTableTest, ShowsTheSelectedChannelAndTheMergedRows) {
  Mode().name = "Reef";
  GivenTheTable();
  EXPECT_EQ(user.TableTitle(), "Step table: Reef, Channel 1");
  EXPECT_EQ(user.TableHeading(TableSheet::Steps), "Channel 1: Time | Percent | To the next");
  ExpectUnchanged();
  const std::string count = std::to_string(CountModeSteps(Mode()));
  EXPECT_EQ(user.TableHeading(TableSheet::Merged),
            "As sent: " + count + " of 48: Time | Channel 1 | Channel 2 | Channel 3 | Channel 4 | Channel 5");
  EXPECT_EQ(std::to_string(user.TableRows(TableSheet::Merged).size()), count);
}

TEST_F(StepTableTest, OpensOnceAndComesToTheFrontThen) {
  user.PressKey('T', true);
  EXPECT_TRUE(user.HasTable());
  user.PressKey('T', true);
  EXPECT_EQ(Window().opened, 2);
  user.CloseTable();
  EXPECT_FALSE(user.HasTable());
  EXPECT_TRUE(user.IsRunning());
}

TEST_F(StepTableTest, ItsOwnKeyClosesIt) {
  GivenTheTable();
  user.PressTableKey('T', true);
  EXPECT_FALSE(user.HasTable());
}

TEST_F(StepTableTest, GoesWithTheMainWindow) {
  GivenTheTable();
  user.GetDesktop().application->mainWindow.OnDestroy();
  EXPECT_FALSE(user.HasTable());
}

TEST_F(StepTableTest, NothingIsShownAgainWhileNothingChanges) {
  GivenTheTable();
  const int fills = Window().At(TableSheet::Steps).fills;
  const int selections = Window().selections;
  user.Wait(1.0);
  EXPECT_EQ(Window().At(TableSheet::Steps).fills, fills);
  EXPECT_EQ(Window().selections, selections);
}

TEST_F(StepTableTest, APercentThatIsNoNumberIsShownOnce) {
  Channel(0)[1].value = std::numeric_limits<float>::quiet_NaN();
  GivenTheTable();
  const int fills = Window().At(TableSheet::Steps).fills;
  user.Wait(0.1);
  EXPECT_EQ(Window().At(TableSheet::Steps).fills, fills);
}

TEST_F(StepTableTest, FollowsADragWithinATurn) {
  GivenTheTable();
  Channel(0)[1].value = 42.5F;
  user.Turn();
  EXPECT_EQ(Rows()[1], "12:00 | 42.5 | fade");
}

TEST_F(StepTableTest, FollowsTheSelection) {
  GivenTheTable();
  GivenSelection(0, 2);
  user.Turn();
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(2));
  GivenSelection(1, -1);
  user.Turn();
  EXPECT_THAT(user.TableTitle(), HasSubstr("Channel 2"));
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre());
  GivenSelection(-1, -1);
  user.Turn();
  EXPECT_THAT(user.TableTitle(), HasSubstr("Channel 2"));
}

TEST_F(StepTableTest, FollowsUndoNamesAndModes) {
  GivenTheTable(1);
  user.TypeInTable(1, column::kPercent, "33");
  user.PressKey('Z', true);
  ExpectUnchanged();
  Program().channelInfos[0].name = "White";
  Program().modes.push_back(Program().modes.front());
  Program().modes.back().name = "Other";
  Program().modes.back().channels[0] = {{7, 0, 5.0F}};
  Program().currentMode = static_cast<int>(Program().modes.size()) - 1;
  user.Turn();
  EXPECT_EQ(user.TableTitle(), "Step table: Other, White");
  EXPECT_THAT(Rows(), ElementsAre("07:00 | 5 | fade"));
}

TEST_F(StepTableTest, ASelectedRowIsASelectedStep) {
  GivenTheTable();
  user.ClickTableRow(2);
  EXPECT_EQ(user.State().selection.channel, 0);
  EXPECT_EQ(user.State().selection.step, 2);
}

TEST_F(StepTableTest, SeveralRowsAreAGroup) {
  GivenTheTable();
  user.ClickTableRow(2, false, true);
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(0, 1, 2));
  EXPECT_EQ(user.State().stepGroup.Ids().size(), 3U);
  user.ClickTableRow(1, true);
  EXPECT_EQ(user.State().stepGroup.Ids().size(), 2U);
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(0, 2));
  user.ClickTableRow(1);
  EXPECT_THAT(user.State().stepGroup.Ids(), ElementsAre());
  user.PressTableKey('A', true);
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(0, 1, 2));
}

TEST_F(StepTableTest, TimesAreTypedInManyWays) {
  GivenTheTable();
  for (const auto& [typed, shown] :
       std::initializer_list<std::pair<const char*, const char*>>{{"9:15", "09:15"},
                                                                  {" 09:20 ", "09:20"},
                                                                  {"0925", "09:25"},
                                                                  {"930", "09:30"},
                                                                  {"9", "09:00"},
                                                                  {"10", "10:00"}}) {
    user.TypeInTable(0, column::kTime, typed);
    EXPECT_EQ(Rows()[0], std::string(shown) + " | 0 | fade") << typed;
  }
}

TEST_F(StepTableTest, WhatIsNoTimeSaysSoAndChangesNothing) {
  GivenTheTable();
  const int undo = UndoDepth();
  for (const char* typed : {"", "x", "24:00", "8:60", "8:", ":30", "12345", "-1", "8:3x", "1 2"}) {
    user.TypeInTable(0, column::kTime, typed);
    EXPECT_THAT(user.TableFault(), HasSubstr("no time")) << typed;
    ExpectUnchanged();
  }
  EXPECT_EQ(UndoDepth(), undo);
  user.PressTableKey(key::kEscape);
  EXPECT_EQ(user.TableFault(), "");
}

TEST_F(StepTableTest, PercentsHaveFractions) {
  GivenTheTable();
  for (const auto& [typed, shown] :
       std::initializer_list<std::pair<const char*, const char*>>{{"62.5", "62.5"},
                                                                  {"62,25", "62.25"},
                                                                  {"100 %", "100"},
                                                                  {"99.999", "99.99"},
                                                                  {"47.1", "47.1"},
                                                                  {"0", "0"}}) {
    user.TypeInTable(1, column::kPercent, typed);
    EXPECT_EQ(Rows()[1], "12:00 | " + std::string(shown) + " | fade") << typed;
  }
  for (const char* typed : {"", "-1", "101", "x", "nan", "inf", "1e1", "5 5", "%"}) {
    user.TypeInTable(1, column::kPercent, typed);
    EXPECT_THAT(user.TableFault(), HasSubstr("no percent")) << typed;
  }
}

TEST_F(StepTableTest, WhatWasNotChangedIsNoEntryAndKeepsItsFraction) {
  Channel(0)[1].value = 47.23618F;
  GivenTheTable();
  const int undo = UndoDepth();
  user.TypeInTable(1, column::kPercent, "47.23");
  EXPECT_EQ(Channel(0)[1].value, 47.23618F);
  EXPECT_EQ(UndoDepth(), undo);
}

TEST_F(StepTableTest, JumpsAreTypedOrToggled) {
  GivenTheTable();
  user.TypeInTable(0, column::kJump, "j");
  EXPECT_TRUE(Channel(0)[0].jump);
  EXPECT_THAT(NewLog(), HasSubstr("Step (Time: 08:00) (Strength: 0, Jump)"));
  user.TypeInTable(0, column::kJump, "Fade");
  EXPECT_FALSE(Channel(0)[0].jump);
  user.TypeInTable(0, column::kJump, "x");
  EXPECT_THAT(user.TableFault(), HasSubstr("\"jump\""));
  user.PressTableKey(key::kEscape);
  user.ClickTableRow(1);
  NewLog();
  user.PressTableKey(key::kSpace);
  EXPECT_TRUE(Channel(0)[1].jump);
  EXPECT_EQ(NewLog(), "Step jump toggle\n");
}

TEST_F(StepTableTest, AStepThatIsMovedBehindAnotherStaysSelected) {
  GivenTheTable();
  user.TypeInTable(0, column::kTime, "13:00", key::kEscape);
  ExpectUnchanged();
  user.TypeInTable(0, column::kTime, "13:00");
  EXPECT_THAT(Rows(), ElementsAre("12:00 | 80 | fade", "13:00 | 0 | fade", "20:00 | 10 | fade"));
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(2)) << "Enter goes on from where the step is now";
}

TEST_F(StepTableTest, AMinuteHoldsOneStep) {
  GivenTheTable();
  user.TypeInTable(0, column::kTime, "12:00");
  EXPECT_EQ(user.TableFault(), "There is a step at 12:00 already.");
  ExpectUnchanged();
}

TEST_F(StepTableTest, EachEditIsOneEntry) {
  GivenTheTable();
  const int undo = UndoDepth();
  user.TypeInTable(0, column::kPercent, "5");
  EXPECT_EQ(UndoDepth(), undo + 1);
  user.PressTableKey(key::kInsert);
  EXPECT_EQ(UndoDepth(), undo + 2);
  user.PressTableKey(key::kDelete);
  EXPECT_EQ(UndoDepth(), undo + 3);
  for (int i = 0; i < 3; ++i) user.PressTableKey('Z', true);
  ExpectUnchanged();
}

TEST_F(StepTableTest, InsertPutsAStepIntoTheMiddleOfTheGap) {
  GivenTheTable();
  user.PressTableKey(key::kInsert);
  EXPECT_THAT(Rows(),
              ElementsAre("08:00 | 0 | fade", "10:00 | 40 | fade", "12:00 | 80 | fade", "20:00 | 10 | fade"));
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(1));
  EXPECT_THAT(NewLog(), HasSubstr("Added new step (Time: 10:00) (Strength: 40). Current number of steps: "));
}

TEST_F(StepTableTest, BehindTheLastStepTheGapGoesOverMidnight) {
  GivenTheTable(2);
  user.PressTableKey(key::kInsert);
  EXPECT_EQ(Rows()[0], "02:00 | 5 | fade");
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(0));
}

TEST_F(StepTableTest, InsertNeedsAFreeMinute) {
  GivenSteps(0, {{60, 0.0F}, {61, 5.0F}});
  GivenTheTable();
  user.PressTableKey(key::kInsert);
  EXPECT_EQ(user.TableFault(), "No minute is free behind this step.");
  EXPECT_EQ(Rows().size(), 2U);
}

TEST_F(StepTableTest, DeleteGoesOnToTheNextRowAndLeavesTwo) {
  GivenTheTable(1);
  user.PressTableKey(key::kDelete);
  EXPECT_THAT(Rows(), ElementsAre("08:00 | 0 | fade", "20:00 | 10 | fade"));
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(1));
  EXPECT_THAT(NewLog(), HasSubstr("Step deleted. Current number of steps: "));
  user.PressTableKey(key::kDelete);
  EXPECT_EQ(Rows().size(), 2U);
  EXPECT_EQ(NewLog(), "Unable to delete step. Minimum 2 steps per channel is required.\n");
  EXPECT_THAT(user.TableFault(), HasSubstr("Minimum 2 steps"));
}

TEST_F(StepTableTest, DeletesSeveralFromThisChannelAlone) {
  GivenSteps(0, {{60, 1.0F}, {120, 2.0F}, {180, 3.0F}, {240, 4.0F}, {300, 5.0F}});
  GivenTheTable(1);
  const std::size_t others = Channel(1).size();
  user.State().stepGroup.Set({Channel(0)[1].id, Channel(0)[2].id, Channel(1)[0].id});
  user.Turn();
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(1, 2));
  user.PressTableKey(key::kDelete);
  EXPECT_THAT(Rows(), ElementsAre("01:00 | 1 | fade", "04:00 | 4 | fade", "05:00 | 5 | fade"));
  EXPECT_EQ(Channel(1).size(), others);
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(1));
}

TEST_F(StepTableTest, TheClipboardHasStepsForTextsAndForSpreadsheets) {
  Channel(0)[1].value = 62.5F;
  Channel(0)[1].jump = true;
  GivenTheTable();
  user.PressTableKey('A', true);
  user.PressTableKey('C', true);
  EXPECT_EQ(user.Clipboard(), "08:00\t 0\t\r\n12:00\t 62.5\t J\r\n20:00\t 10\t\r\n");
  EXPECT_EQ(NewLog(), "Copied steps to clipboard\n");
}

TEST_F(StepTableTest, PastesWhatEitherFormHolds) {
  GivenTheTable();
  user.SetClipboard("Time\tLight\r\n9:30\t12,5\tJ\r\n12:00:00\t70%\t\r\n");
  user.PressTableKey('V', true);
  EXPECT_THAT(Rows(), ElementsAre("08:00 | 0 | fade", "09:30 | 12.5 | jump", "12:00 | 70 | fade",
                                  "20:00 | 10 | fade"));
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(1, 2));
  EXPECT_EQ(NewLog(), "Pasted steps from clipboard\n");
  user.SetClipboard("10:00 20\n11 15 30 J");
  user.PressTableKey('V', true);
  EXPECT_EQ(Rows()[2], "10:00 | 20 | fade");
  EXPECT_EQ(Rows()[3], "11:15 | 30 | jump");
}

TEST_F(StepTableTest, WhatIsNoStepIsNotPasted) {
  GivenTheTable();
  user.SetClipboard("9:30 12\r\n99:00 5\r\n");
  user.PressTableKey('V', true);
  EXPECT_EQ(user.TableFault(), "Line 2 of the clipboard is no step.");
  user.SetClipboard("nothing here");
  user.PressTableKey('V', true);
  EXPECT_EQ(user.TableFault(), "There are no steps on the clipboard.");
  ExpectUnchanged();
}

TEST_F(StepTableTest, CutIsCopyAndDelete) {
  GivenTheTable(1);
  user.PressTableKey('X', true);
  EXPECT_EQ(user.Clipboard(), "12:00\t 80\t\r\n");
  EXPECT_EQ(Rows().size(), 2U);
  user.PressTableKey('V', true);
  ExpectUnchanged();
}

TEST_F(StepTableTest, TheModeTakesNoMoreRowsThanAController) {
  for (int i = 1; i < app::kTableSheetCount; ++i) Channel(i) = Channel(0);
  for (auto& channel : Mode().channels) channel = {{8, 0, 0.0F}, {20, 0, 0.0F}};
  for (int minute = 1; minute <= 45; ++minute) InsertStepSorted(Channel(1), {9, minute, 5.0F});
  GivenTheTable();
  user.PressTableKey(key::kInsert);
  ASSERT_EQ(CountModeSteps(Mode()), 48);
  const std::vector<std::string> full = Rows();
  NewLog();
  user.PressTableKey(key::kInsert);
  EXPECT_EQ(NewLog(), "Unable to add new step. Maximum number of 48 steps for the current mode reached\n");
  EXPECT_THAT(user.TableFault(), HasSubstr("Maximum number of 48"));
  user.SetClipboard("11:00 20");
  user.PressTableKey('V', true);
  // Both channels have a step there, so that its new minute is one more.
  user.TypeInTable(0, column::kTime, "8:01");
  EXPECT_THAT(user.TableFault(), HasSubstr("Maximum number of 48"));
  EXPECT_EQ(Rows(), full);
}

TEST_F(StepTableTest, ADemoLeavesTheStepsAlone) {
  GivenTheTable(1);
  GivenDemoAt(100);
  const int undo = UndoDepth();
  user.SetClipboard("11:00 20");
  for (const int plain : {key::kInsert, key::kDelete, key::kSpace}) user.PressTableKey(plain);
  for (const int letter : {'X', 'V', 'Z'}) user.PressTableKey(letter, true);
  user.TypeInTable(1, column::kPercent, "3");
  ExpectUnchanged();
  EXPECT_EQ(UndoDepth(), undo);
  EXPECT_EQ(user.TableFault(), "While a demo plays the steps stay as they are.");
  EXPECT_TRUE(user.MenuItem(app::command::kStepTable).exists);
}

TEST_F(StepTableTest, ADialogOfTheMainWindowLeavesTheStepsAlone) {
  GivenTheTable(1);
  user.TypeInTable(1, column::kPercent, "81");
  user.TypeInTable(1, column::kPercent, "80");
  user.ClickTableRow(1);
  const auto tries = [this] {
    app::StepTableWindow& table = user.GetDesktop().application->stepTableWindow;
    EXPECT_FALSE(table.OnEdit());
    EXPECT_FALSE(table.OnTyped(1, column::kPercent, u"3", true));
    table.OnKey(TableSheet::Steps, key::kInsert, false);
    table.OnKey(TableSheet::Steps, 'Z', true);
    table.OnSelect({{2}, 2});
    EXPECT_EQ(user.State().selection.step, 1);
    ExpectUnchanged();
  };
  headless::Desktop& desktop = user.GetDesktop();
  bool hasTried = false;
  desktop.dialogs.meanwhile = [&, goOn = desktop.dialogs.meanwhile] {
    if (!hasTried) desktop.queue.Push({headless::Event::Kind::Other, 0, false, tries});
    hasTried = true;
    goOn();
  };
  user.WillFill({in_dialog::PressEscape()});
  user.Choose(app::command::kManualStepsAdd);
  EXPECT_TRUE(hasTried);
  ExpectUnchanged();
}

TEST_F(StepTableTest, ChannelsAreChangedByKeys) {
  GivenTheTable();
  user.PressTableKey(key::kPageDown, true);
  EXPECT_THAT(user.TableTitle(), HasSubstr("Channel 2"));
  EXPECT_EQ(user.State().selection.channel, 1);
  user.PressTableKey(key::kPageUp, true);
  user.PressTableKey(key::kPageUp, true);
  EXPECT_THAT(user.TableTitle(), HasSubstr("Channel 1"));
}

TEST_F(StepTableTest, EnterGoesToTheNextRow) {
  GivenTheTable();
  user.PressTableKey(key::kEnter);
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(1));
  user.PressTableKey(key::kEnter);
  user.PressTableKey(key::kEnter);
  EXPECT_THAT(user.SelectedTableRows(), ElementsAre(2));
}

TEST_F(StepTableTest, TheMergedSheetIsCopiedWhole) {
  for (auto& channel : Mode().channels) channel = {{8, 0, 0.0F}, {20, 0, 50.0F, true}};
  GivenTheTable();
  Window().seen = TableSheet::Merged;
  user.PressTableKey(key::kDelete);
  user.PressTableKey('C', true);
  EXPECT_EQ(user.Clipboard(), "08:00\t0\t0\t0\t0\t0\r\n20:00\t50J\t50J\t50J\t50J\t50J\r\n");
}

TEST_F(StepTableTest, SpeaksTheLanguageInUse) {
  ASSERT_TRUE(user.ReadTranslations(std::filesystem::path(LUMARINE_SOURCE_DIR) / "resources"));
  user.WillAnswer(app::Answer::No);
  user.Close();
  user.Start();
  GivenSteps(0, {{8 * 60, 0.0F}, {12 * 60, 80.0F}});
  GivenTheTable();
  int german = app::command::kFirstLanguage;
  while (user.MenuItem(german).exists && user.MenuItem(german).text != "Deutsch") ++german;
  ASSERT_TRUE(user.Choose(german));
  EXPECT_EQ(user.TableHeading(TableSheet::Steps), "Kanal 1: Zeit | Prozent | Bis zum nächsten");
  user.TypeInTable(0, column::kJump, "sprung");
  EXPECT_EQ(Rows()[0], "08:00 | 0 | Sprung");
}

// Whatever is done in either window.
class StepTableRandomTest : public StepTableTest, public testing::WithParamInterface<unsigned> {
 protected:
  int Any(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

  void DoAnything() {
    const int rows = std::max(static_cast<int>(Rows().size()), 1);
    switch (Any(12)) {
      case 0:
        return user.ClickTableRow(Any(rows), Any(2) == 0, Any(3) == 0);
      case 1:
        return user.TypeInTable(Any(rows), column::kTime,
                                std::to_string(Any(26)) + ":" + std::to_string(Any(70)),
                                Any(2) == 0 ? key::kEnter : key::kEscape);
      case 2:
        return user.TypeInTable(Any(rows), column::kPercent,
                                std::to_string(Any(120)) + "." + std::to_string(Any(1000)));
      case 3:
        return user.TypeInTable(Any(rows), column::kJump, Any(2) == 0 ? "j" : "f");
      case 4:
        return user.SetClipboard(std::to_string(Any(24)) + ":00 " + std::to_string(Any(101)) + "\r\n" +
                                 std::to_string(Any(24)) + ":30\t" + std::to_string(Any(101)) + "\tJ");
      case 5:
        return user.PressTableKey("ACXVZYT"[Any(6)], true);
      case 6:
        return user.PressTableKey(Any(2) == 0 ? key::kPageUp : key::kPageDown, true);
      case 7:
        return user.DragOnChart(150 + Any(700), 40 + Any(500), 150 + Any(700), 40 + Any(500));
      case 8:
        return user.PressKey(key::kLeft + Any(4));
      default:
        return user.PressTableKey(std::array{key::kInsert, key::kInsert, key::kDelete, key::kSpace}.at(
            static_cast<std::size_t>(Any(4))));
    }
  }

  void ExpectWhatTheDocumentHolds() {
    const auto& selection = user.State().selection;
    if (selection.channel >= 0) channel_ = selection.channel;
    std::vector<std::string> rows;
    std::vector<int> selected;
    for (const auto& step : Channel(channel_)) {
      if (selection.channel == channel_ && IsStepSelected(selection, user.State().stepGroup, step)) {
        selected.push_back(static_cast<int>(rows.size()));
      }
      rows.push_back(ToTimeText(step) + " | " + app::ShownPercent(step.value) + " | " +
                     (step.jump ? "jump" : "fade"));
    }
    ASSERT_EQ(Rows(), rows);
    ASSERT_EQ(user.SelectedTableRows(), selected);
    ASSERT_EQ(user.TableRows(TableSheet::Merged).size(), static_cast<std::size_t>(CountModeSteps(Mode())));
    ASSERT_LE(CountModeSteps(Mode()), TCBase::Program::kMaxModeSteps);
    ASSERT_GE(Rows().size(), 2U);
  }

 private:
  std::mt19937 random_{GetParam()};
  int channel_ = 0;
};

TEST_P(StepTableRandomTest, SaysWhatTheDocumentHoldsAndUndoGivesBack) {
  GivenTheTable();
  const TCBase::Program::ModeListView before = Program();
  for (int round = 0; round < 150; ++round) {
    DoAnything();
    if (Window().edited) user.PressTableKey(key::kEscape);
    ASSERT_NO_FATAL_FAILURE(ExpectWhatTheDocumentHolds()) << round;
  }
  while (UndoDepth() > 0 && !(Program() == before)) user.Choose(app::command::kUndo);
  EXPECT_TRUE(Program() == before);
}

INSTANTIATE_TEST_SUITE_P(Seeds, StepTableRandomTest, testing::Range(0U, 6U));

}  // namespace
