// What the Device and Help menus and the device list ask with dialogs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "tests/app/app_test.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/virtual_clock.h"

namespace {

using namespace in_dialog;
using app::Control;
using dialogs::kCancel;
using dialogs::kOk;
using headless::Focus;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
namespace command = app::command;
namespace name_id = dialogs::mode_name_control;
namespace value_id = dialogs::get_value_control;
namespace time_id = dialogs::date_time_control;

class DeviceDialogs : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
  }

  headless::Desktop& Desk() { return user.GetDesktop(); }
  void Rename(int row, DialogScript script) {
    user.WillFill(std::move(script));
    user.DoubleClickRow(Control::DeviceList, row);
  }
  void AskSpeed(const std::string& text) {
    user.WillFill({Paste(value_id::kValue, text), Press(kOk)});
    ASSERT_TRUE(user.Choose(command::kSpeedCustom));
  }
};

// Names of devices

TEST_F(DeviceDialogs, RenamingAsksForNameAndDescription) {
  GivenDevices({"TC421-1", "TC421-2"});
  user.GetSettings().SetDeviceValue("device", "TC421-2", "Reef");
  user.GetSettings().SetDeviceValue("device_description", "TC421-2", "in the cellar");
  Rename(1, {Press(kCancel)});
  Rename(0, {Press(kCancel)});
  const std::vector<SeenDialog> seen = user.Dialogs();
  ASSERT_THAT(seen, SizeIs(2));
  EXPECT_EQ(seen[0].title, "Device name");
  const UX::Rect anchor = user.State().chartLayout.DialogAnchorBottom();
  EXPECT_EQ(seen[0].x, anchor.x + 50);
  EXPECT_EQ(seen[0].y, anchor.y - 90);
  EXPECT_EQ(seen[0].controls.at(name_id::kNameLabel).text, "Device name (max 15 characters)");
  EXPECT_EQ(seen[0].controls.at(name_id::kName).text, "Reef");
  EXPECT_EQ(seen[0].controls.at(name_id::kDescriptionLabel).text, "Device description");
  EXPECT_EQ(seen[0].controls.at(name_id::kDescription).text, "in the cellar");
  EXPECT_FALSE(seen[0].controls.at(name_id::kCopyFrom).visible);
  EXPECT_EQ(seen[1].controls.at(name_id::kName).text, "TC421-1")
      << "its own name, as long as it has no other";
  EXPECT_EQ(seen[1].controls.at(name_id::kDescription).text, "");
  EXPECT_EQ(Desk().focus, Focus::MainWindow);
}

TEST_F(DeviceDialogs, ARenamedDeviceKeepsItsPlaceUntilTheNextScan) {
  GivenDevices({"A", "B*", "C"});
  Rename(1, {Type(name_id::kName, "1234567890123456"), Type(name_id::kDescription, "in the cellar"),
             Press(kOk)});
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("A", "123456789012345", "C"));
  EXPECT_EQ(user.GetSettings().GetDeviceValue("device", "B", ""), "123456789012345");
  EXPECT_EQ(user.GetSettings().GetDeviceValue("device_description", "B", ""), "in the cellar");
  Rename(1, {Type(name_id::kName, "Zander"), Press(kOk)});
  EXPECT_EQ(user.GetSettings().GetDeviceValue("device", "B", ""), "Zander")
      << "the key stays the device's name";
  user.State().ctrls->SetDevices({{TCBase::ModelTC421UDP, "C", {}, false},
                                  {TCBase::ModelTC421UDP, "B", {}, false},
                                  {TCBase::ModelTC421UDP, "A", {}, false}});
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("A", "Zander", "C"))
      << "sorted by the device's name";
}

TEST_F(DeviceDialogs, ANameWithAnAmpersandIsThereAtTheNextStart) {
  GivenDevices({"A"});
  Rename(0, {Type(name_id::kName, "Reef & <sump>"), Press(kOk)});
  user.Close();
  ASSERT_FALSE(user.IsRunning());
  user.Start();
  GivenDevices({"A"});
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("Reef & <sump>"));
}

TEST_F(DeviceDialogs, OnlyWifiDevicesHaveNamesToChange) {
  for (const TCBase::DeviceModel model : {TCBase::ModelTC420, TCBase::ModelTC421USB, TCBase::ModelEmulator}) {
    GivenDevices({"A"}, model);
    user.DoubleClickRow(Control::DeviceList, 0);
    EXPECT_EQ(NewLog(), "You can rename WiFi devices only!\n");
  }
  EXPECT_THAT(user.Dialogs(), IsEmpty());
}

TEST_F(DeviceDialogs, NoDeviceNoQuestion) {
  user.SendCommand(app::control_id::kDeviceList, app::kListDoubleClick);
  EXPECT_THAT(user.Dialogs(), IsEmpty());
  EXPECT_EQ(NewLog(), "");
}

TEST_F(DeviceDialogs, ADeviceThatGoesWhileItsNameIsAskedIsRenamedAllTheSame) {
  GivenDevices({"A", "B"});
  // The worker tells of another list while the dialog stands open.
  Desk().dialogs.meanwhile = [this] { user.State().ctrls->SetDevices({}); };
  Rename(1, {Type(name_id::kName, "Reef"), Press(kOk)});
  EXPECT_EQ(user.GetSettings().GetDeviceValue("device", "B", ""), "Reef");
  EXPECT_THAT(user.List(Control::DeviceList), IsEmpty());
}

// Time

TEST_F(DeviceDialogs, SettingTheTimeBeginsWithTheLocalTime) {
  virtual_clock::SetLocalTime({2026, 12, 31, 23, 59, 1, 77});
  const DateTime now = platform::LocalTime();
  user.WillFill({Press(kCancel)});
  user.Choose(command::kSetTime);
  const SeenDialog seen = user.Dialogs().at(0);
  EXPECT_EQ(seen.title, "Set custom date and time");
  EXPECT_EQ(seen.x, 60);
  EXPECT_EQ(seen.y, 50);
  EXPECT_EQ(seen.controls.at(time_id::kPrompt).text, "Enter date and time");
  EXPECT_EQ(seen.controls.at(kOk).text, "OK");
  EXPECT_EQ(seen.controls.at(kCancel).text, "Cancel");
  const DateTime& shown = seen.controls.at(time_id::kDateTime).time;
  EXPECT_EQ(shown.year, 2026);
  EXPECT_EQ(shown.month, 12);
  EXPECT_EQ(shown.day, 31);
  EXPECT_EQ(shown.hour, now.hour);
  EXPECT_EQ(shown.minute, now.minute);
  EXPECT_EQ(NewLog(), "") << "cancelled: nothing is sent";
}

TEST_F(DeviceDialogs, TheTimeThatWasSetIsSent) {
  sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
  GivenDevices({"TC420*"}, TCBase::ModelTC420);
  user.WillFill({SetDateTime(time_id::kDateTime, {2031, 2, 3, 4, 5, 6, 7}), Press(kOk)});
  user.Choose(command::kSetTime);
  ASSERT_TRUE(user.WaitForLog("Finished configuring device TC420"));
  EXPECT_THAT(NewLog(), HasSubstr("Syncing time\n"));
  const auto frames = sim_hidapi::Frames(sim_hidapi::Family::TC420);
  ASSERT_THAT(frames, testing::Not(IsEmpty()));
  // The controllers count years from 2000 or whole: the day, hour, minute and second are in the frame as
  // such.
  const std::string frame(frames.front().frame.begin(), frames.front().frame.end());
  EXPECT_THAT(frame, HasSubstr(std::string("\x04\x05\x06", 3)));
}

// Speed

TEST_F(DeviceDialogs, ASpeedOfOnesOwnIsAsked) {
  user.WillFill({Press(kCancel)});
  user.Choose(command::kSpeedCustom);
  const SeenDialog seen = user.Dialogs().at(0);
  EXPECT_EQ(seen.title, "Enter playback speed");
  EXPECT_EQ(seen.x, 60);
  EXPECT_EQ(seen.y, 50);
  EXPECT_EQ(seen.controls.at(value_id::kPrompt).text, "Seconds to play whole demo (min 10, max 86400)");
  EXPECT_EQ(seen.controls.at(value_id::kValue).text, "");
  EXPECT_EQ(seen.controls.at(kOk).text, "OK");
  EXPECT_EQ(seen.controls.at(kCancel).text, "Cancel");
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(user.GetSettings().DemoSpeed(), 60);
}

TEST_F(DeviceDialogs, LettersAreNotTypedIntoASpeed) {
  user.WillFill({Type(value_id::kValue, "1x2y0"), Look(), PressEnter()});
  user.Choose(command::kSpeedCustom);
  EXPECT_EQ(user.Dialogs().at(1).controls.at(value_id::kValue).text, "120");
  EXPECT_EQ(user.GetSettings().DemoSpeed(), 120);
}

struct SpeedRow {
  const char* text;
  int seconds;
};

// A field for digits looks at keys alone. What is pasted is read as the setting is.
TEST_F(DeviceDialogs, LettersPastedIntoASpeedEndItsNumber) {
  const SpeedRow rows[] = {{"12x", 12}, {" 99", 99}, {"\t98", 98}, {"+97", 97}, {"96.5", 96}, {"95 水", 95}};
  for (const SpeedRow& row : rows) {
    AskSpeed(row.text);
    EXPECT_EQ(user.GetSettings().DemoSpeed(), row.seconds) << row.text;
  }
  EXPECT_THAT(user.Questions(), IsEmpty());
}

TEST_F(DeviceDialogs, SpeedsInRangeAreTaken) {
  const SpeedRow rows[] = {{"10", 10}, {"86400", 86400}, {"120", 120}, {"60", 60}, {"0000075", 75}};
  for (const SpeedRow& row : rows) {
    const double before = virtual_clock::Seconds();
    AskSpeed(row.text);
    EXPECT_EQ(user.GetSettings().DemoSpeed(), row.seconds) << row.text;
    EXPECT_EQ(NewLog(), "Demo playback speed set to " + std::to_string(row.seconds) + " seconds\n");
    EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (" + std::to_string(row.seconds) + "s)");
    EXPECT_GT(virtual_clock::Seconds() - before, 0.499);
  }
  EXPECT_THAT(user.Questions(), IsEmpty());
}

TEST_F(DeviceDialogs, SpeedsOutOfRangeAreRefused) {
  user.GetSettings().SetDemoSpeed(180);
  NewLog();
  for (const char* text : {"9", "86401", "", "0", "-60", "x", "x60", "水槽🐠", "６０", "٦٠", "4294967356",
                           "99999999999999999999", "-99999999999999999999"}) {
    user.WillAnswer(app::Answer::Ok);
    AskSpeed(text);
    const std::vector<app::Question> asked = user.Questions();
    ASSERT_THAT(asked, SizeIs(1)) << text;
    EXPECT_EQ(asked[0].title, u"Invalid value");
    EXPECT_EQ(asked[0].text, u"Please enter value between 10 - 86400");
    EXPECT_EQ(asked[0].buttons, app::Buttons::Ok);
    EXPECT_EQ(user.GetSettings().DemoSpeed(), 180);
  }
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (60s)") << "nothing was shown anew";
}

TEST_F(DeviceDialogs, ASpeedOf60IsTheFastOneAndOf120OnesOwn) {
  AskSpeed("120");
  EXPECT_TRUE(user.MenuItem(command::kSpeedCustom).checked);
  for (const int number : {command::kSpeedFast, command::kSpeedNormal, command::kSpeedSlow}) {
    EXPECT_FALSE(user.MenuItem(number).checked);
  }
  AskSpeed("60");
  EXPECT_TRUE(user.MenuItem(command::kSpeedFast).checked);
  EXPECT_FALSE(user.MenuItem(command::kSpeedCustom).checked);
}

TEST_F(DeviceDialogs, TenMegabytesAreNoSpeed) {
  user.WillAnswer(app::Answer::Ok);
  std::string digits;
  digits.resize(10'000'000, '7');
  AskSpeed(digits);
  EXPECT_EQ(user.GetSettings().DemoSpeed(), 60);
}

// About

TEST_F(DeviceDialogs, AboutIsOneKeyAway) {
  user.WillFill({Press(dialogs::about_control::kWebLink), PressEscape()});
  user.Choose(command::kAbout);
  for (const char32_t character : {U'/', U'?'}) {
    user.WillFill({Press(kOk)});
    Desk().queue.Push({headless::Event::Kind::AltCharacter, static_cast<int>(character), false, nullptr});
    user.Settle();
  }
  EXPECT_THAT(user.Dialogs(), SizeIs(3));
  EXPECT_THAT(Desk().dialogs.links, SizeIs(1));
}

TEST_F(DeviceDialogs, EnterLeavesAboutAndOpensNoLink) {
  user.WillFill({PressEnter()});
  user.Choose(command::kAbout);
  EXPECT_THAT(user.Dialogs(), SizeIs(1));
  EXPECT_THAT(Desk().dialogs.links, IsEmpty());
}

// Help

class Help : public AppTest {
 protected:
  // Another program, such as a browser, can be started.
  void GivenTheGuide(bool opens) {
    guide_ = GivenFile("guide.html", "<html>");
    GivenTheProgramRuns();
    user.GetDesktop().opensFiles = opens;
    if (!opens) user.WillAnswer(app::Answer::Ok);
    user.Choose(command::kGuide);
  }

  // What is said instead of showing the guide.
  std::string Told() {
    const std::vector<app::Question> questions = user.Questions();
    EXPECT_THAT(questions, SizeIs(1));
    EXPECT_EQ(questions.back().title, u"User guide");
    return Utf8FromWide(questions.back().text);
  }

  // The check-up, left by the button behind what `look` does.
  void CheckUp(DialogScript look, int button) {
    namespace check_up = dialogs::check_up_control;
    look.insert(look.begin(),
                Await([](const SeenDialog& seen) { return seen.controls.at(check_up::kPack).enabled; }));
    look.push_back(Press(button));
    user.WillFill(std::move(look));
    user.Choose(command::kCheckUp);
  }

  std::filesystem::path guide_;
};

TEST_F(Help, TheGuideIsOpenedByWhateverTheUserReadsPagesWith) {
  GivenTheGuide(true);
  EXPECT_THAT(user.GetDesktop().opened, ElementsAre(guide_));
  EXPECT_THAT(user.Questions(), IsEmpty());
}

TEST_F(Help, WhereNoProgramOpensItTheUserIsToldWhereItIs) {
  GivenTheGuide(false);
  EXPECT_THAT(Told(), testing::EndsWith(Utf8FromPath(guide_)));
}

TEST_F(Help, ACopyWithoutTheGuideSaysSo) {
  GivenTheProgramRuns();
  user.WillAnswer(app::Answer::Ok);
  user.Choose(command::kGuide);
  EXPECT_THAT(Told(), HasSubstr("came without the file guide.html"));
  EXPECT_THAT(user.GetDesktop().opened, IsEmpty());
}

TEST_F(Help, ACheckUpThatIsLeftSavesNothing) {
  GivenTheProgramRuns();
  CheckUp({}, kOk);
  EXPECT_THAT(user.Questions(), IsEmpty());
  EXPECT_EQ(NewLog(), "");
}

TEST_F(Help, WhatWasPackedIsSavedWhereTheUserWants) {
  GivenTheProgramRuns();
  const std::filesystem::path file = folder.path() / "mine.zip";
  user.WillPick({file});
  CheckUp({Press(dialogs::check_up_control::kPack)}, dialogs::check_up_control::kSave);
  EXPECT_THAT(BytesOf(file), testing::StartsWith("PK"));
  EXPECT_THAT(BytesOf(file), HasSubstr("report.txt"));
  EXPECT_EQ(NewLog(), "The report is in " + Utf8FromPath(file) + ". Nothing was sent to anybody.\n");
}

TEST_F(Help, TheEndThatTheFileDialogAddsIsNotThatOfAProgram) {
  GivenTheProgramRuns();
  const std::filesystem::path there = GivenFile("mine.zip", "of mine");
  user.WillPick({folder.path() / "mine.xml"});
  user.WillAnswer(app::Answer::No);
  CheckUp({Press(dialogs::check_up_control::kPack)}, dialogs::check_up_control::kSave);
  EXPECT_EQ(BytesOf(there), "of mine");
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "mine.xml"));
  EXPECT_EQ(NewLog(), "");
}

}  // namespace
