// "New from ...": modes that are made, seen while their dialog asks.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "dialogs/dialog_template.h"
#include "program/program_file.h"
#include "tests/app/app_test.h"
#include "tests/support/virtual_clock.h"

namespace {

using namespace in_dialog;
using app::Control;
using dialogs::kCancel;
using dialogs::kOk;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
namespace command = app::command;
namespace id = dialogs::generate_control;

constexpr int kAll[] = {command::kNewFromSun, command::kNewFromMoon, command::kNewFromRampDay,
                        command::kNewFromAcclimation, command::kNewFromSeason};

class GenerateCommands : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    virtual_clock::SetLocalTime({2026, 11, 23, 12, 0, 0, 0});
    GivenTheProgramRuns();
  }

  void Make(int command, DialogScript script) {
    user.WillFill(std::move(script));
    ASSERT_TRUE(user.Choose(command));
  }
  float AtNoon(int channel) { return ChannelValueAt(Channel(channel), 12 * 3600); }
};

TEST_F(GenerateCommands, TheDayIsSeenWhileTheDialogStandsOpen) {
  GivenSelection(1, 1);
  Make(command::kNewFromRampDay,
       {Meanwhile([this] {
          EXPECT_THAT(Program().modes, SizeIs(3));
          EXPECT_EQ(Mode().name, "Ramp day");
          EXPECT_EQ(AtNoon(0), 100);
        }),
        Type(id::kLevels, "60"), Meanwhile([this] { EXPECT_EQ(AtNoon(0), 60); }), Type(id::kLevels, "x"),
        Meanwhile([this] { EXPECT_EQ(Mode().name, "Normal"); }), Type(id::kLevels, "70"), Press(kOk)});
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn", "Ramp day"));
  EXPECT_EQ(AtNoon(0), 70);
  EXPECT_EQ(user.State().selection.channel, -1);
  EXPECT_THAT(NewLog(), HasSubstr("Added new mode: Ramp day\n4 rows, at most 0.0 % off\n"));
}

TEST_F(GenerateCommands, ACancelledSunLeavesNoPlaceInTheSettings) {
  Make(command::kNewFromSun, {Press(kCancel)});
  ASSERT_TRUE(user.GetSettings().Save());
  EXPECT_THAT(BytesOf(folder / "LumarineConfig.xml"), testing::Not(HasSubstr("place")));
}

TEST_F(GenerateCommands, ACancelledOneLeavesNothing) {
  const TCBase::Program::ModeListView before = Program();
  for (const int command : kAll) {
    GivenSelection(1, 1);
    Make(command, {Look(), Press(kCancel)});
    EXPECT_TRUE(Program() == before) << command;
    EXPECT_EQ(Program().currentMode, 0) << command;
    EXPECT_EQ(user.State().selection.step, 1) << command;
    EXPECT_EQ(UndoDepth(), 0) << command;
    EXPECT_THAT(user.List(Control::ModeList), SizeIs(2)) << command;
  }
  EXPECT_EQ(NewLog(), "");
}

TEST_F(GenerateCommands, EachIsOneEntryOfTheHistory) {
  const TCBase::Program::ModeListView before = Program();
  int modes = 2;
  for (const int command : {command::kNewFromSun, command::kNewFromMoon, command::kNewFromRampDay,
                            command::kNewFromAcclimation}) {
    Make(command, {Press(kOk)});
    EXPECT_THAT(Program().modes, SizeIs(++modes));
    EXPECT_EQ(UndoDepth(), modes - 2);
  }
  for (int i = 0; i < 4; ++i) user.Choose(command::kUndo);
  EXPECT_TRUE(Program() == before);
  for (int i = 0; i < 4; ++i) user.Choose(command::kRedo);
  EXPECT_THAT(Program().modes, SizeIs(6));
}

TEST_F(GenerateCommands, ThePlaceIsRemembered) {
  Make(command::kNewFromSun, {Type(id::kPlace, "berlin"), Press(kOk)});
  Make(command::kNewFromSeason, {Press(kCancel)});
  const std::vector<SeenDialog> seen = user.Dialogs();
  EXPECT_EQ(seen[0].controls.at(id::kPlace).text, "Asia/Singapore");
  EXPECT_EQ(seen[1].controls.at(id::kPlace).text, "Europe/Berlin");
}

TEST_F(GenerateCommands, AnAcclimationIsOfTheCurrentMode) {
  user.ClickRow(Control::ModeList, 1);
  Make(command::kNewFromAcclimation, {Type(id::kFirstDay, "2026-11-10"), Press(kOk)});
  EXPECT_EQ(Mode().name, "Day 14 of 28");
  EXPECT_EQ(AtNoon(0), 69) << "of 100";
}

TEST_F(GenerateCommands, AnAcclimationMayBeAFileADay) {
  const std::filesystem::path slow = folder / "slow";
  std::filesystem::create_directory(slow);
  user.WillPick({slow / "day-001.xml"});
  Make(command::kNewFromAcclimation, {Type(id::kDays, "5"), Pick(id::kWhat, 1), Press(kOk)});
  EXPECT_THAT(Program().modes, SizeIs(2)) << "the program stays as it is";
  EXPECT_EQ(UndoDepth(), 0);
  TCBase::Program::ModeListView third;
  ASSERT_TRUE(LoadProgram(slow / "day-003.xml", third));
  EXPECT_THAT(third.modes, SizeIs(2));
  EXPECT_EQ(third.modes[0].name, "Normal");
  EXPECT_EQ(ChannelValueAt(third.modes[0].channels[0], 10 * 3600), 56) << "70 % of 80";
  EXPECT_TRUE(std::filesystem::exists(slow / "day-005.xml"));
  EXPECT_THAT(NewLog(), HasSubstr("Saved 5 programs in "));
}

TEST_F(GenerateCommands, ASeasonIsAFileAWeekAndReplacesNoneUnasked) {
  const std::filesystem::path season = folder / "season";
  std::filesystem::create_directory(season);
  GivenFile("season/week-07.xml", "mine");
  user.WillPick({season / "week-01.xml"});
  user.WillAnswer(app::Answer::No);
  Make(command::kNewFromSeason, {Press(kOk)});
  EXPECT_FALSE(std::filesystem::exists(season / "week-01.xml"));
  EXPECT_EQ(BytesOf(season / "week-07.xml"), "mine");

  user.WillPick({season / "week-01.xml"});
  user.WillAnswer(app::Answer::Yes);
  Make(command::kNewFromSeason, {Press(kOk)});
  TCBase::Program::ModeListView week;
  ASSERT_TRUE(LoadProgram(season / "week-07.xml", week));
  EXPECT_THAT(week.modes, SizeIs(3));
  EXPECT_EQ(week.modes[2].name, "Week 7");
  EXPECT_TRUE(std::filesystem::exists(season / "week-52.xml"));
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(GenerateCommands, WithoutAFolderNothingIsWritten) {
  user.WillPick({});
  Make(command::kNewFromSeason, {Press(kOk)});
  EXPECT_EQ(NewLog(), "");
}

}  // namespace
