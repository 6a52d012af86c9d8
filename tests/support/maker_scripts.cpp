#include "tests/support/maker_scripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "app/window/numbers.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"

namespace scripts {

namespace {

using namespace in_dialog;
using namespace TCBase::Program;
using app::Control;
using dialogs::kOk;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
namespace command = app::command;
namespace change = dialogs::change_steps_control;
namespace generate = dialogs::generate_control;

ModeListView Saved(User& user, const std::filesystem::path& file) {
  ModeListView saved;
  user.WillPick({file});
  EXPECT_TRUE(user.Choose(command::kSaveProgramAs));
  EXPECT_TRUE(LoadProgram(file, saved));
  return saved;
}

std::string ResultOf(const SeenDialog& seen, int control) {
  return seen.controls.at(control).text;
}

}  // namespace

void ChangeManySteps(User& user, const Folders& folders) {
  const std::filesystem::path file = folders.work / "changed.xml";
  user.Start();
  user.ClickChart(100, 40);  // the first lane
  user.WillFill({Type(change::kFirst, "1:30"), Look(), Type(change::kFirst, "x"), Look(), PressEscape()});
  ASSERT_TRUE(user.Choose(command::kChangeSteps));
  std::vector<SeenDialog> seen = user.Dialogs();
  ASSERT_THAT(seen, SizeIs(3));
  EXPECT_EQ(ResultOf(seen[1], change::kResult), "Steps changed: 8 of 8. Rows of the mode: 17 of 48.");
  EXPECT_EQ(ResultOf(seen[2], change::kResult),
            "Minutes are expected, or hh:mm, up to a day: 90, -90 or 1:30.");
  EXPECT_EQ(Saved(user, file).modes[0].channels, NewProgram().modes[0].channels) << "it was given up";

  user.WillFill({Type(change::kFirst, "30"), Press(kOk)});
  ASSERT_TRUE(user.Choose(command::kChangeSteps));
  EXPECT_THAT(user.Log(), HasSubstr("Steps changed: 8 of 8. Rows of the mode: 19 of 48.\r\n"));
  const Channel changed = Saved(user, file).modes[0].channels[0];
  ASSERT_THAT(changed, SizeIs(8));
  EXPECT_EQ(ToTimeText(changed[0]), "00:00") << "the last one, round the day";
  EXPECT_EQ(ToTimeText(changed[1]), "08:30");
  user.PressKey('Z', true);
  EXPECT_EQ(Saved(user, file).modes[0].channels, NewProgram().modes[0].channels)
      << "one entry of the history";
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void MakeDaysOfLight(User& user, const Folders& folders) {
  const std::filesystem::path file = folders.work / "days.xml";
  user.Start();
  user.WillFill({Look(), Press(kOk)});
  ASSERT_TRUE(user.Choose(command::kNewFromAcclimation));
  EXPECT_EQ(ResultOf(user.Dialogs().back(), generate::kPercent), "40");
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn", "Day 1 of 28"));
  const ModeListView weak = Saved(user, file);
  ASSERT_THAT(weak.modes, SizeIs(3));
  EXPECT_FLOAT_EQ(ChannelPower(weak.modes[2].channels[0]), 36.0F) << "90 percent, and 40 of that";

  user.WillFill(
      {Type(generate::kPlace, "Manaus"), Type(generate::kHours, "10:00-22:00"), Look(), Press(kOk)});
  ASSERT_TRUE(user.Choose(command::kNewFromSun));
  EXPECT_THAT(ResultOf(user.Dialogs().back(), generate::kResult), HasSubstr(" rows, at most "));
  ASSERT_THAT(user.List(Control::ModeList), SizeIs(4));
  const ModeListView sunny = Saved(user, file);
  ASSERT_THAT(sunny.modes, SizeIs(4));
  EXPECT_EQ(ChannelPower(sunny.modes[3].channels[0]), 100.0F);
  EXPECT_EQ(ChannelValueAt(sunny.modes[3].channels[0], 9 * kSecondsPerHour), 0.0F);

  user.PressKey('Z', true);
  user.PressKey('Z', true);
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn"));
  user.WillAnswer(app::Answer::No);
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void StartFromATemplate(User& user, const Folders& folders) {
  user.Start();
  ASSERT_TRUE(user.Choose(command::kReefTemplate));
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  EXPECT_THAT(user.Log(), HasSubstr("For corals: "));
  const ModeListView reef = Saved(user, folders.work / "reef.xml");
  EXPECT_EQ(reef.channelInfos[0].name, "Royal blue");
  ASSERT_THAT(reef.modes, Not(SizeIs(0)));
  EXPECT_THAT(reef.modes[0].description, HasSubstr("For corals: "));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void ShowWhatWasSavedAndTheLight(User& user, const Folders&) {
  user.Start();
  for (const int number : {command::kCompareWithSaved, command::kLightStrip}) {
    EXPECT_FALSE(user.MenuItem(number).checked) << number;
    ASSERT_TRUE(user.Choose(number));
    EXPECT_TRUE(user.MenuItem(number).checked) << number;
  }
  ASSERT_TRUE(user.Choose(command::kCompareWithThis));
  EXPECT_FALSE(user.MenuItem(command::kCompareWithSaved).checked) << "one of them";
  user.Close();
  user.Start();
  EXPECT_FALSE(user.MenuItem(command::kCompareWithThis).checked) << "it is for this once";
  EXPECT_TRUE(user.MenuItem(command::kLightStrip).checked) << "it is a setting";
  ASSERT_TRUE(user.Choose(command::kLightStrip));
  EXPECT_FALSE(user.MenuItem(command::kLightStrip).checked);
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

}  // namespace scripts
