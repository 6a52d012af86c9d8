#include "tests/support/dialog_scripts.h"

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
#include "program/settings.h"

namespace scripts {

namespace {

using app::Answer;
using app::Control;
using dialogs::kCancel;
using dialogs::kOk;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using namespace in_dialog;
namespace about = dialogs::about_control;
namespace command = app::command;
namespace date_time = dialogs::date_time_control;
namespace get_value = dialogs::get_value_control;
namespace mode_name = dialogs::mode_name_control;
namespace prog = TCBase::Program;
namespace steps = dialogs::add_steps_control;

// Lines of three languages, a character of two units, and one that menus and labels make a line of.
constexpr char kAnyScript[] = "Žluť κύμα 水 🐠 & é";

SeenDialog LastSeen(User& user) {
  std::vector<SeenDialog> seen = user.Dialogs();
  EXPECT_THAT(seen, Not(IsEmpty()));
  return seen.empty() ? SeenDialog() : seen.back();
}

// Saves the program and reads what was saved, as somebody else would.
prog::ModeListView SavedProgram(User& user, const Folders& folders) {
  const std::filesystem::path file = folders.work / "saved.xml";
  if (!std::filesystem::exists(file)) user.WillPick({file});
  EXPECT_TRUE(user.Choose(command::kSaveProgram));
  prog::ModeListView document = prog::NewProgram();
  EXPECT_TRUE(prog::LoadProgram(file, document));
  return document;
}

// Types a demo speed; false, if the program does not take it.
bool TakesSpeed(User& user, const std::string& text) {
  user.WillFill({Type(get_value::kValue, text), PressEnter()});
  user.Choose(command::kSpeedCustom);
  return user.Questions().empty();
}

}  // namespace

void AddAndEditModes(User& user, const Folders& folders) {
  user.Start();
  user.WillFill({Type(mode_name::kName, "Never"), PressEscape()});
  user.Press(Control::AddModeButton);
  SeenDialog seen = LastSeen(user);
  EXPECT_EQ(seen.title, "Add new mode");
  EXPECT_EQ(seen.x, 60);
  EXPECT_EQ(seen.y, 60);
  EXPECT_THAT(seen.controls[mode_name::kCopyFrom].rows, ElementsAre("<empty>", "Normal", "AlwaysOn"));

  // Too long by the three that are not taken.
  user.WillFill({Type(mode_name::kName, "Ράδιο Ηλιοβασίλεμα"), Type(mode_name::kDescription, kAnyScript),
                 Pick(mode_name::kCopyFrom, 2), PressEnter()});
  user.Press(Control::AddModeButton);
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn", "Ράδιο Ηλιοβασίλ"));
  EXPECT_THAT(user.Log(), HasSubstr("Added new mode: Ράδιο Ηλιοβασίλ\r\n"));
  EXPECT_THAT(user.Text(Control::ModeDescription), HasSubstr(kAnyScript));

  user.WillFill({Paste(mode_name::kName, "水槽 🐠"), Press(kOk)});
  user.DoubleClickRow(Control::ModeList, 0);
  seen = LastSeen(user);
  EXPECT_EQ(seen.title, "Edit mode");
  EXPECT_EQ(seen.controls[mode_name::kName].text, "Normal");
  EXPECT_FALSE(seen.controls[mode_name::kCopyFrom].visible);
  user.WillFill({Type(mode_name::kName, ""), Press(kCancel)});
  user.DoubleClickRow(Control::ModeList, 0);

  const prog::ModeListView saved = SavedProgram(user, folders);
  ASSERT_THAT(saved.modes, SizeIs(3));
  EXPECT_EQ(saved.modes[0].name, "水槽 🐠");
  EXPECT_EQ(saved.modes[2].name, "Ράδιο Ηλιοβασίλ");
  EXPECT_EQ(saved.modes[2].description, kAnyScript);
  EXPECT_EQ(saved.modes[2].channels, saved.modes[1].channels);
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void NameAChannelAndTypeItsSteps(User& user, const Folders& folders) {
  user.Start();
  user.ClickChart(452, 60);
  user.WillFill(
      {Type(mode_name::kName, "Modrá 水"), Paste(mode_name::kDescription, kAnyScript), PressEnter()});
  ASSERT_TRUE(user.Choose(command::kRenameChannel));
  EXPECT_EQ(LastSeen(user).title, "Edit channel name");

  // A wrong line and an emptied field keep the count.
  user.WillFill({Type(steps::kSteps, "08:00 0\n10:00 80 J\nnoon 5"), Look(), Type(steps::kSteps, ""), Look(),
                 Paste(steps::kSteps, "07:30 15\n21:15 40 J\n"), Look(), Press(kOk)});
  ASSERT_TRUE(user.Choose(command::kManualStepsEdit));
  std::vector<SeenDialog> seen = user.Dialogs();
  ASSERT_THAT(seen, SizeIs(4));
  EXPECT_THAT(seen[0].controls[steps::kSteps].text, HasSubstr("08:00 0\r\n"));
  EXPECT_THAT(seen[0].controls[steps::kHelp].text, HasSubstr("\r\n10:00 80 J\r\n"));
  EXPECT_EQ(seen[1].controls[steps::kSteps].text, "08:00 0\r\n10:00 80 J\r\nnoon 5");
  const std::string count = seen[1].controls[steps::kCount].text;
  EXPECT_THAT(count, testing::MatchesRegex("Text contains .*2 steps"));
  EXPECT_EQ(seen[2].controls[steps::kCount].text, count);
  EXPECT_EQ(seen[3].controls[steps::kCount].text, count);

  user.WillFill({Type(steps::kSteps, "12:00 100"), Press(kOk)});
  ASSERT_TRUE(user.Choose(command::kManualStepsAdd));
  user.WillFill({Type(steps::kSteps, "13:00 100"), PressEscape()});
  ASSERT_TRUE(user.Choose(command::kManualStepsAdd));

  const prog::ModeListView saved = SavedProgram(user, folders);
  EXPECT_EQ(saved.channelInfos[0].name, "Modrá 水");
  EXPECT_EQ(saved.channelInfos[0].description, kAnyScript);
  EXPECT_THAT(saved.modes[0].channels[0],
              ElementsAre(prog::Step{7, 30, 15.0F, false}, prog::Step{12, 0, 100.0F, false},
                          prog::Step{21, 15, 40.0F, true}));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void TypeADemoSpeed(User& user, const Folders& folders) {
  user.Start();
  for (const char* const wrong : {"9", "86401", ""}) {
    user.WillAnswer(Answer::Ok);
    EXPECT_FALSE(TakesSpeed(user, wrong)) << wrong;
    EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (60s)");
  }
  user.WillFill({Type(get_value::kValue, "120"), Press(kCancel)});
  user.Choose(command::kSpeedCustom);
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (60s)");

  EXPECT_TRUE(TakesSpeed(user, "1x2e3 4")) << "letters are not taken";
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (1234s)");
  EXPECT_TRUE(user.MenuItem(command::kSpeedCustom).checked);
  user.Close();
  EXPECT_EQ(Settings(folders.documents / "LumarineConfig.xml").GetValue("demo_speed"), "1234");
}

void SetTheEmulatorsTime(User& user, const Folders&) {
  user.Start();
  ASSERT_TRUE(user.Choose(command::kAddEmulator));
  user.WillFill({SetDateTime(date_time::kDateTime, {2031, 5, 17, 18, 9, 42}), Look(), PressEscape()});
  ASSERT_TRUE(user.Choose(command::kSetTime));
  const DateTime shown = LastSeen(user).controls[date_time::kDateTime].time;
  EXPECT_EQ(shown.year, 2031);
  EXPECT_EQ(shown.month, 5);
  EXPECT_EQ(shown.day, 17);
  EXPECT_EQ(shown.hour, 18);
  EXPECT_EQ(shown.minute, 9);
  EXPECT_EQ(shown.second, 42);
  EXPECT_THAT(user.Log(), Not(HasSubstr("Syncing time"))) << "the dialog was cancelled";

  user.WillFill({PressEnter()});
  ASSERT_TRUE(user.Choose(command::kSetTime));
  EXPECT_TRUE(user.WaitForLog("Syncing time\r\n"));
  EXPECT_TRUE(user.WaitForLog("Finished configuring device TC420_Emulator\r\n"));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void TellOfTheLamps(User& user, const Folders&) {
  namespace figures = dialogs::figures_control;
  user.Start();
  user.WillFill({Type(figures::kFirstWatts, "40"), Type(figures::kFirstPar + 1, "a"), Look(),
                 Type(figures::kFirstPar + 1, "120"), Press(kOk)});
  ASSERT_TRUE(user.Choose(command::kFigures));
  const SeenDialog wrong = user.Dialogs().back();
  EXPECT_EQ(wrong.controls.at(figures::kNote).text, "\"a\" is not a number from 0 to 1000000.");
  EXPECT_THAT(wrong.controls.at(figures::kTable).text, HasSubstr("Energy a day, kWh\t0.3"));
  user.WillFill({PressEscape()});
  ASSERT_TRUE(user.Choose(command::kFigures));
  const SeenDialog again = user.Dialogs().back();
  EXPECT_EQ(again.controls.at(figures::kFirstWatts).text, "40");
  EXPECT_EQ(again.controls.at(figures::kFirstPar + 1).text, "120");
  EXPECT_THAT(again.controls.at(figures::kTable).text, HasSubstr("Light a day, mol/m²\t-\t"));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void PackACheckUp(User& user, const Folders&) {
  namespace check_up = dialogs::check_up_control;
  const auto canPack = [](const SeenDialog& seen) { return seen.controls.at(check_up::kPack).enabled; };
  const auto canSave = [](const SeenDialog& seen) { return seen.controls.at(check_up::kSave).enabled; };
  user.Start();
  user.WillFill({Await(canPack), Look(), Press(check_up::kPack), Await(canSave), Look(), PressEscape()});
  ASSERT_TRUE(user.Choose(command::kCheckUp));
  const std::vector<SeenDialog> seen = user.Dialogs();
  ASSERT_EQ(seen.size(), 3U);
  EXPECT_EQ(seen[0].title, "Check-up");
  EXPECT_THAT(seen[1].controls.at(check_up::kReport).text, HasSubstr("UDP"));
  EXPECT_THAT(seen[2].controls.at(check_up::kReport).text, testing::StartsWith("=== report.txt ("));
  EXPECT_NE(seen[1].controls.at(check_up::kSummary).text, seen[2].controls.at(check_up::kSummary).text);
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void LookAtAbout(User& user, const Folders&) {
  user.Start();
  user.WillFill({Press(kOk)});
  ASSERT_TRUE(user.Choose(command::kAbout));
  SeenDialog seen = LastSeen(user);
  EXPECT_EQ(seen.title, "About...");
  EXPECT_EQ(seen.controls[about::kProgram].text, "Lumarine, Version 4.7, Build 496 (64-bit)");
  EXPECT_FALSE(seen.controls[about::kNote].visible);
  EXPECT_FALSE(seen.controls[about::kNoteButton].visible);
  for (const int link : {about::kEmailLink, about::kWebLink, about::kGroupLink}) {
    EXPECT_NE(seen.controls[link].text, "") << link;
  }
  user.WillFill({PressEscape()});
  ASSERT_TRUE(user.Choose(command::kAbout));
  user.WillFill({PressEnter()});
  ASSERT_TRUE(user.Choose(command::kAbout)) << "the focus is on OK, and not on a link";
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void RenameDevicesInTheNetworkOnly(User& user, const Folders&) {
  user.Start();
  ASSERT_TRUE(user.Choose(command::kAddEmulator));
  user.DoubleClickRow(Control::DeviceList, 0);
  EXPECT_THAT(user.Log(), HasSubstr("You can rename WiFi devices only!\r\n"));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void PasteTenMegabytes(User& user, const Folders& folders) {
  user.Start();
  const std::string tenMegabytes = [] {
    std::string text;
    while (text.size() < 10'000'000) text += "08:00 50 J 水槽 🐠 ";
    return text;
  }();
  // What is cut off at a limit may be half of a character.
  user.WillFill(
      {Paste(mode_name::kName, tenMegabytes), Paste(mode_name::kDescription, tenMegabytes), PressEnter()});
  user.Press(Control::AddModeButton);
  EXPECT_EQ(user.List(Control::ModeList).back(), "08:00 50 J 水槽 ");
  user.WillFill({Paste(get_value::kValue, tenMegabytes), PressEscape()});
  user.Choose(command::kSpeedCustom);
  user.ClickChart(452, 60);
  user.WillFill({Paste(steps::kSteps, tenMegabytes), PressEscape()});
  user.Choose(command::kManualStepsAdd);
  EXPECT_THAT(SavedProgram(user, folders).modes.back().description,
              testing::StartsWith("08:00 50 J 水槽 🐠 08:00"));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

// Systems differ in what a field for digits takes from the clipboard. Whatever it shows is what is read: the
// digits up to the first letter, and without any it is no number.
void PasteLettersIntoASpeed(User& user, const Folders&) {
  user.Start();
  for (const std::string pasted : {"12x", "x12", "水槽 🐠"}) {
    std::string shown;
    bool asked = false;
    user.WillFill({Paste(get_value::kValue, pasted), Look(), Await([&](const SeenDialog& seen) {
                     shown = seen.controls.at(get_value::kValue).text;
                     asked = !shown.starts_with("12");
                     if (asked) user.WillAnswer(Answer::Ok);
                     return true;
                   }),
                   Press(kOk)});
    ASSERT_TRUE(user.Choose(command::kSpeedCustom));
    EXPECT_THAT(user.Questions(), SizeIs(asked ? 1 : 0)) << shown;
    EXPECT_EQ(user.Text(Control::DemoStatusLabel), asked ? "Ready (60s)" : "Ready (12s)") << shown;
    ASSERT_TRUE(user.Choose(command::kSpeedFast));
  }
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

}  // namespace scripts
