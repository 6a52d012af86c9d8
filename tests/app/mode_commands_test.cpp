// The mode list, its two buttons and its dialogs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "program/builtin_modes.h"
#include "tests/app/app_test.h"
#include "tests/program/program_fixture.h"

namespace {

using namespace in_dialog;
using app::Control;
using dialogs::kCancel;
using dialogs::kOk;
using headless::Focus;
using program_test::Told;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
namespace command = app::command;
namespace id = dialogs::mode_name_control;

class Modes : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
    user.GetDesktop().chart.invalidated.clear();
  }

  headless::Desktop& Desk() { return user.GetDesktop(); }
  std::size_t Invalidations() { return Desk().chart.invalidated.size(); }
  void Add(DialogScript script) {
    user.WillFill(std::move(script));
    user.Press(Control::AddModeButton);
  }
  void Edit(int row, DialogScript script) {
    user.WillFill(std::move(script));
    user.DoubleClickRow(Control::ModeList, row);
  }
  std::vector<std::uint32_t> Ids(int mode) {
    std::vector<std::uint32_t> ids;
    for (const auto& channel : Program().modes.at(static_cast<std::size_t>(mode)).channels) {
      for (const auto& step : channel) ids.push_back(step.id);
    }
    return ids;
  }
};

// Add

TEST_F(Modes, AddingAsksForNameDescriptionAndSource) {
  Add({Press(kCancel)});
  const std::vector<SeenDialog> seen = user.Dialogs();
  ASSERT_THAT(seen, SizeIs(1));
  EXPECT_EQ(seen[0].title, "Add new mode");
  const UX::Rect anchor = user.State().chartLayout.DialogAnchorTop();
  EXPECT_EQ(seen[0].x, anchor.x + 50);
  EXPECT_EQ(seen[0].y, anchor.y + 50);
  const auto& controls = seen[0].controls;
  EXPECT_EQ(controls.at(id::kNameLabel).text, "Mode name (device will display first 7 characters only)");
  EXPECT_EQ(controls.at(id::kName).text, "PRG03") << "as many as there are and one more";
  EXPECT_EQ(controls.at(id::kDescriptionLabel).text, "Mode description");
  EXPECT_EQ(controls.at(id::kDescription).text, "");
  EXPECT_EQ(controls.at(id::kCopyLabel).text, "Copy data from");
  EXPECT_THAT(controls.at(id::kCopyFrom).rows, ElementsAre("<empty>", "Normal", "AlwaysOn"));
  EXPECT_EQ(controls.at(kOk).text, "OK");
  EXPECT_EQ(controls.at(kCancel).text, "Cancel");
}

TEST_F(Modes, AnAddedModeIsTheCurrentOne) {
  GivenSelection(2, 1);
  user.ClickRow(Control::ModeList, 1);
  NewLog();
  GivenSelection(2, 1);
  Desk().chart.invalidated.clear();
  Add({Type(id::kName, "Moonlight"), Type(id::kDescription, "by night"), Press(kOk)});
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn", "Moonlight"));
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(2));
  EXPECT_EQ(user.Text(Control::ModeDescription), "Mode Moonlight (Steps: 12): by night");
  EXPECT_EQ(user.State().selection.channel, -1);
  EXPECT_EQ(user.State().selection.step, -1);
  EXPECT_EQ(Invalidations(), 1U);
  EXPECT_EQ(NewLog(), "Added new mode: Moonlight\n");
  EXPECT_EQ(Desk().focus, Focus::MainWindow);
  EXPECT_EQ(UndoDepth(), 1);
  user.Choose(command::kUndo);
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn"));
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(1));
}

TEST_F(Modes, AModeAddedEmptyHasTheCurvesOfNormal) {
  // Required though odd: "<empty>" is not empty.
  Program().modes.front().channels[0].clear();
  Add({Pick(id::kCopyFrom, 0), Press(kOk)});
  TCBase::Program::Mode normal;
  TCBase::Program::BuildNormalMode(normal);
  for (std::size_t i = 0; i < normal.channels.size(); ++i) {
    EXPECT_EQ(Told(Mode().channels[i]), Told(normal.channels[i]));
  }
  EXPECT_EQ(Mode().name, "PRG03");
  EXPECT_EQ(Mode().description, "") << "not that of the daily program";
}

TEST_F(Modes, ACopiedModeHasNewIdsAndTheDialogsWords) {
  Add({Type(id::kName, "Full"), Type(id::kDescription, "copied"), Pick(id::kCopyFrom, 2), Press(kOk)});
  const auto& source = Program().modes[1];
  for (std::size_t i = 0; i < source.channels.size(); ++i) EXPECT_EQ(Mode().channels[i], source.channels[i]);
  EXPECT_EQ(Mode().name, "Full");
  EXPECT_EQ(Mode().description, "copied");
  std::vector<std::uint32_t> all = Ids(1);
  for (const std::uint32_t id : Ids(2)) {
    EXPECT_NE(id, 0U);
    EXPECT_THAT(all, Not(testing::Contains(id)));
    all.push_back(id);
  }
}

TEST_F(Modes, AddingThatIsCancelledChangesNothing) {
  const auto before = Program();
  Desk().focus = Focus::Chart;
  Add({Type(id::kName, "Moonlight"), PressEscape()});
  EXPECT_TRUE(Program() == before);
  EXPECT_EQ(UndoDepth(), 0);
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(Invalidations(), 0U);
  EXPECT_EQ(Desk().focus, Focus::MainWindow);
}

TEST_F(Modes, AnAddedModeMayHaveFifteenCharacters) {
  Add({Type(id::kName, "1234567890123456"), Press(kOk)});
  EXPECT_EQ(Mode().name, "123456789012345");
}

// Edit

TEST_F(Modes, EditingAsksForNameAndDescription) {
  Edit(1, {Press(kCancel)});
  const std::vector<SeenDialog> seen = user.Dialogs();
  ASSERT_THAT(seen, SizeIs(1));
  EXPECT_EQ(seen[0].title, "Edit mode");
  const UX::Rect anchor = user.State().chartLayout.DialogAnchorTop();
  EXPECT_EQ(seen[0].x, anchor.x + 50);
  EXPECT_EQ(seen[0].y, anchor.y + 50);
  EXPECT_EQ(seen[0].controls.at(id::kName).text, "AlwaysOn");
  EXPECT_THAT(seen[0].controls.at(id::kDescription).text, StartsWith("Program that puts all light"));
  EXPECT_FALSE(seen[0].controls.at(id::kCopyFrom).visible);
  EXPECT_FALSE(seen[0].controls.at(id::kCopyLabel).visible);
  EXPECT_EQ(Desk().focus, Focus::MainWindow);
}

TEST_F(Modes, AnEditedModeIsCalledAnew) {
  Edit(0, {Type(id::kName, "Reef"), Type(id::kDescription, "a day"), Press(kOk)});
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Reef", "AlwaysOn"));
  EXPECT_EQ(user.Text(Control::ModeDescription), "Mode Reef (Steps: 12): a day");
  EXPECT_EQ(UndoDepth(), 0) << "no entry is made";
  EXPECT_EQ(Desk().focus, Focus::MainWindow);
}

// No undo brings them back.
TEST_F(Modes, TheLogKeepsNameAndDescriptionOfAnEditedMode) {
  NewLog();
  Edit(0, {Type(id::kName, "Reef"), Type(id::kDescription, "a day"), Press(kOk)});
  EXPECT_THAT(NewLog(), testing::HasSubstr("Mode Reef was named Normal\nDescription of mode Reef was: "));
  Edit(0, {Type(id::kDescription, "a night"), Press(kOk)});
  EXPECT_THAT(NewLog(), testing::EndsWith("\nDescription of mode Reef was: a day\n"));
  const std::size_t before = user.Log().size();
  Edit(0, {Press(kOk)});
  Edit(0, {Type(id::kName, "Other"), Press(kCancel)});
  EXPECT_THAT(user.Log().substr(before), Not(testing::HasSubstr(" was"))) << "nothing has changed";
  Program().modes[0].description.clear();
  Edit(0, {Type(id::kDescription, "a day"), Press(kOk)});
  EXPECT_THAT(user.Log().substr(before), Not(testing::HasSubstr(" was"))) << "nothing is lost";
}

TEST_F(Modes, AnEditedModeIsAChangeToBeSaved) {
  Edit(0, {Type(id::kName, "Reef"), Press(kOk)});
  user.WillAnswer(app::Answer::No);
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

TEST_F(Modes, ADescriptionThatIsEmptiedStays) {
  Edit(0, {Type(id::kDescription, ""), Press(kOk)});
  EXPECT_THAT(Mode().description, StartsWith("Daily program"));
}

// Delete

TEST_F(Modes, TheLastModeCannotBeDeleted) {
  user.Press(Control::DeleteModeButton);
  Desk().chart.invalidated.clear();
  NewLog();
  user.Press(Control::DeleteModeButton);
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("AlwaysOn"));
  EXPECT_EQ(UndoDepth(), 1) << "no snapshot is taken";
  EXPECT_EQ(Invalidations(), 0U);
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(Desk().focus, Focus::MainWindow);
}

TEST_F(Modes, ASelectionStaysWhenItsModeIsDeleted) {
  GivenSelection(0, 7);
  user.Press(Control::DeleteModeButton);
  EXPECT_EQ(user.State().selection.channel, 0);
  EXPECT_EQ(user.State().selection.step, 7) << "of a channel that has two steps";
  EXPECT_FALSE(user.MenuItem(command::kDeleteStep).enabled);
  user.SendCommand(command::kDeleteStep);
  user.SendCommand(command::kToggleJump);
  EXPECT_THAT(Channel(0), SizeIs(2));
}

// Select

TEST_F(Modes, AnotherModeKeepsTheView) {
  Program().viewStart = 3600;
  Program().viewEnd = 7200;
  NewJournal();
  user.ClickRow(Control::ModeList, 1);
  EXPECT_EQ(Program().viewStart, 3600);
  EXPECT_EQ(Program().viewEnd, 7200);
  EXPECT_THAT(NewJournal(), IsEmpty()) << "nothing is rebuilt";
  EXPECT_EQ(Invalidations(), 1U);
  EXPECT_EQ(NewLog(), "Mode AlwaysOn steps count: 2\n");
  EXPECT_EQ(Desk().focus, Focus::MainWindow);
}

TEST_F(Modes, AnotherModeLeavesThePowerSliderAtNothing) {
  GivenSelection(0, 0);
  user.State().powerControl->Update();
  ASSERT_EQ(user.SliderPosition(Control::PowerSlider), 90);
  user.ClickRow(Control::ModeList, 1);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), 0) << "no channel is selected";
  EXPECT_FALSE(user.IsEnabled(Control::PowerSlider));
}

TEST_F(Modes, FiguresKeepsWhatIsToldOfTheLamps) {
  namespace figures = dialogs::figures_control;
  user.WillFill({Type(figures::kFirstWatts, "24"), Type(figures::kPrice, "0.32"), Press(kOk)});
  ASSERT_TRUE(user.Choose(command::kFigures));
  EXPECT_EQ(user.Dialogs().front().title, "Figures of mode Normal");
  EXPECT_EQ(user.GetSettings().FindValue("lamp_watts"), "24;;;;");
  EXPECT_EQ(user.GetSettings().FindValue("electricity_price"), "0.32");
  user.WillFill({Type(figures::kFirstWatts, "1"), PressEscape()});
  ASSERT_TRUE(user.Choose(command::kFigures));
  EXPECT_EQ(user.GetSettings().FindValue("lamp_watts"), "24;;;;");
  EXPECT_EQ(user.Dialogs().front().controls.at(figures::kFirstWatts).text, "24");
  EXPECT_EQ(UndoDepth(), 0);
}

}  // namespace
