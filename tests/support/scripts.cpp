#include "tests/support/scripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/window/numbers.h"
#include "common/files.h"
#include "tests/support/chart_scripts.h"
#include "tests/support/command_scripts.h"
#include "tests/support/demo_scripts.h"
#include "tests/support/dialog_scripts.h"
#include "tests/support/files.h"
#include "tests/support/language_scripts.h"
#include "tests/support/maker_scripts.h"
#include "tests/support/table_scripts.h"
#include "tests/support/view_scripts.h"

namespace scripts {

namespace {

using app::Answer;
using app::Control;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
namespace command = app::command;

std::string TitleOf(const std::filesystem::path& file) {
  return "Lumarine - " + Utf8FromPath(file);
}

void Load(User& user, const std::filesystem::path& file) {
  user.WillPick({file});
  ASSERT_TRUE(user.Choose(command::kLoadProgram));
  ASSERT_EQ(user.Title(), TitleOf(file));
}

// Changes the program, and the current mode's number of steps with it.
void Edit(User& user) {
  ASSERT_TRUE(user.Choose(command::kEndpointEnd));
}

void StartWithoutSettings(User& user, const Folders&) {
  user.Start();
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn"));
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(0));
  EXPECT_THAT(user.Text(Control::ModeDescription), HasSubstr("Mode Normal (Steps: 12): Daily program"));
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (60s)");
  EXPECT_TRUE(user.MenuItem(command::kSpeedFast).checked);
  EXPECT_FALSE(user.MenuItem(command::kLogging).checked);
  EXPECT_EQ(user.Log(),
            "Language set to English\r\n"
            "Loaded program contains 2 modes\r\n"
            "Mode Normal steps count: 12\r\n");
  user.Close();
  EXPECT_FALSE(user.IsRunning()) << "nothing was changed, so nothing was asked";
}

void LoadAnExample(User& user, const Folders& folders) {
  user.Start();
  Load(user, folders.examples / "planted-tank.xml");
  EXPECT_THAT(user.List(Control::ModeList), testing::Contains("Planted tank"));
  EXPECT_THAT(user.Log(), HasSubstr("Loaded program file " +
                                    Utf8FromPath(folders.examples / "planted-tank.xml") + "\r\n"));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void UndoAndRedo(User& user, const Folders&) {
  user.Start();
  const std::string before = user.Text(Control::ModeDescription);
  ASSERT_TRUE(user.Choose(command::kAlign60));
  const std::string after = user.Text(Control::ModeDescription);
  ASSERT_NE(before, after);
  ASSERT_TRUE(user.Choose(command::kUndo));
  EXPECT_EQ(user.Text(Control::ModeDescription), before);
  user.PressKey('Y', true);
  EXPECT_EQ(user.Text(Control::ModeDescription), after);
  user.PressKey('Z', true);
  EXPECT_EQ(user.Text(Control::ModeDescription), before);
  EXPECT_THAT(user.Log(), HasSubstr("Undo\r\nRedo\r\nUndo\r\n"));
  user.Close();
  EXPECT_FALSE(user.IsRunning()) << "what was undone needs no saving";
}

void SaveAsWritesTheSameBytes(User& user, const Folders& folders) {
  const std::filesystem::path example = folders.examples / "seedling-bed.xml";
  const std::filesystem::path copy = folders.work / "Grüße.xml";
  user.Start();
  Load(user, example);
  user.WillPick({copy});
  ASSERT_TRUE(user.Choose(command::kSaveProgramAs));
  EXPECT_EQ(user.Title(), TitleOf(copy));
  EXPECT_THAT(user.Log(), HasSubstr("Saved program " + Utf8FromPath(copy) + "\r\n"));
  EXPECT_EQ(BytesOf(copy), BytesOf(example));

  const std::filesystem::path second = folders.work / "second.xml";
  Load(user, copy);
  user.WillPick({second});
  ASSERT_TRUE(user.Choose(command::kSaveProgramAs));
  EXPECT_EQ(BytesOf(second), BytesOf(copy));
  user.Close();
}

void CloseAnsweredEachWay(User& user, const Folders& folders) {
  const std::filesystem::path file = folders.work / "tank.xml";
  std::filesystem::copy_file(folders.examples / "planted-tank.xml", file);
  const std::string original = BytesOf(file);
  user.Start();
  Load(user, file);
  Edit(user);

  user.WillAnswer(Answer::Cancel);
  user.Close();
  ASSERT_TRUE(user.IsRunning());
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"Program modified");
  EXPECT_EQ(asked[0].text, u"Save changes?");
  EXPECT_EQ(asked[0].buttons, app::Buttons::YesNoCancel);

  user.WillAnswer(Answer::No);
  user.Close();
  EXPECT_FALSE(user.IsRunning());
  EXPECT_EQ(BytesOf(file), original);

  user.Start();
  Edit(user);
  user.WillAnswer(Answer::Yes);
  user.Close();
  EXPECT_FALSE(user.IsRunning());
  EXPECT_NE(BytesOf(file), original);
}

void UploadToTheEmulator(User& user, const Folders& folders) {
  user.Start();
  Load(user, folders.examples / "planted-tank.xml");
  const std::string before = user.Log();
  ASSERT_TRUE(user.Choose(command::kAddEmulator));
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("TC420_Emulator"));
  EXPECT_THAT(user.SelectedRows(Control::DeviceList), ElementsAre(0)) << "a lone device is ticked";
  ASSERT_TRUE(user.Choose(command::kUploadProgram));
  ASSERT_TRUE(user.WaitForLog("Finished configuring device TC420_Emulator\r\n"));
  std::string expected = before +
                         "Configuring device TC420_Emulator\r\n"
                         "Uploading started\r\n";
  for (const std::string& mode : user.List(Control::ModeList)) expected += "Uploading mode: " + mode + "\r\n";
  EXPECT_EQ(user.Log(), expected +
                            "Uploading finished\r\n"
                            "Finished configuring device TC420_Emulator\r\n");
  user.Close();
}

void WriteTheDeviceLog(User& user, const Folders& folders) {
  user.Start();
  ASSERT_TRUE(user.Choose(command::kLogging));
  EXPECT_TRUE(user.MenuItem(command::kLogging).checked);
  EXPECT_THAT(user.Log(), HasSubstr("Device communication logging ON.\r\n"));
  user.Choose(command::kAddEmulator);
  user.Choose(command::kClearAll);
  ASSERT_TRUE(user.WaitForLog("Finished configuring device TC420_Emulator\r\n"));
  EXPECT_THAT(BytesOf(folders.documents / "LumarineLog.txt"), HasSubstr("ClearAll\r\n"));
  ASSERT_TRUE(user.Choose(command::kLogging));
  EXPECT_FALSE(user.MenuItem(command::kLogging).checked);
  EXPECT_THAT(user.Log(), HasSubstr("Device communication logging OFF.\r\n"));
  user.Close();
}

void ExpectPlaces(User& user) {
  const app::Size client = user.ClientSize();
  for (const app::ControlRow& row : app::ControlTable()) {
    EXPECT_EQ(user.Place(row.control), row.place.In(client.width, client.height))
        << "control " << static_cast<int>(row.control);
  }
}

void ChangeTheWindowsSize(User& user, const Folders&) {
  user.Start();
  ExpectPlaces(user);
  const Rect small = user.Place(Control::ChartWindow);
  user.Resize(1300, 900);
  ExpectPlaces(user);
  user.Maximize();
  ExpectPlaces(user);
  const Rect large = user.Place(Control::ChartWindow);
  EXPECT_GT(large.width, small.width);
  user.Minimize();
  EXPECT_EQ(user.Place(Control::ChartWindow), large) << "minimising moves nothing";
  user.Restore();
  ExpectPlaces(user);
  user.Close();
}

void SecondStartBringsTheFileBack(User& user, const Folders& folders) {
  const std::filesystem::path file = folders.examples / "reef-day.xml";
  user.Start();
  Load(user, file);
  ASSERT_TRUE(user.Choose(command::kSpeedSlow));
  const std::vector<std::string> modes = user.List(Control::ModeList);
  user.Close();
  ASSERT_FALSE(user.IsRunning());

  user.Start();
  EXPECT_EQ(user.Title(), TitleOf(file));
  EXPECT_EQ(user.List(Control::ModeList), modes);
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (300s)");
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void OpenByCommandLineAndByDrop(User& user, const Folders& folders) {
  // With the drive, as the program names them.
  const std::filesystem::path first = std::filesystem::absolute(folders.examples / "planted-tank.xml");
  const std::filesystem::path second = std::filesystem::absolute(folders.examples / "reef-day.xml");
  user.StartWith({first});
  EXPECT_EQ(user.Title(), TitleOf(first));
  Edit(user);
  user.WillAnswer(Answer::Cancel);
  user.DropFiles({second});
  EXPECT_EQ(user.Title(), TitleOf(first));
  user.WillAnswer(Answer::No);
  user.DropFiles({second, first});
  EXPECT_EQ(user.Title(), TitleOf(second));
  EXPECT_THAT(user.Log(), HasSubstr("Only one file can be open: " + Utf8FromPath(second) + "\r\n"));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void ReplaceAFileOnlyWhenAsked(User& user, const Folders& folders) {
  const std::filesystem::path taken = folders.work / "taken.xml";
  std::filesystem::copy_file(folders.examples / "planted-tank.xml", taken);
  const std::string before = BytesOf(taken);
  user.Start();
  user.WillPick({taken});
  user.WillAnswer(Answer::No);
  ASSERT_TRUE(user.Choose(command::kSaveProgramAs));
  EXPECT_EQ(BytesOf(taken), before);
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1)) << "ours alone, none of the file dialog";
  EXPECT_EQ(asked[0].title, u"File exists");
  user.WillPick({taken});
  user.WillAnswer(Answer::Yes);
  ASSERT_TRUE(user.Choose(command::kSaveProgramAs));
  EXPECT_NE(BytesOf(taken), before);
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

void GetBackWhatCouldNotBeSaved(User& user, const Folders& folders) {
  const std::filesystem::path stick = folders.work / "stick";
  std::filesystem::create_directory(stick);
  std::filesystem::copy_file(folders.examples / "reef-day.xml", stick / "tank.xml");
  user.StartWith({stick / "tank.xml"});
  const std::string original = user.Text(Control::ModeDescription);
  Edit(user);
  std::filesystem::remove_all(stick);
  user.WillAnswer(Answer::Yes);
  user.WillAnswer(Answer::Ok);
  user.Close();
  ASSERT_TRUE(user.IsRunning());
  user.Close();
  ASSERT_FALSE(user.IsRunning());

  user.WillAnswer(Answer::Yes);
  user.Start();
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  EXPECT_NE(user.Text(Control::ModeDescription), original) << "it has a step more";
  user.WillPick({folders.work / "saved.xml"});
  ASSERT_TRUE(user.Choose(command::kSaveProgram));
  EXPECT_FALSE(std::filesystem::exists(folders.documents / "LumarineRecovery-1.xml"));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

constexpr Script kScripts[] = {
    {"StartWithoutSettings", StartWithoutSettings},
    {"LoadAnExample", LoadAnExample},
    {"UndoAndRedo", UndoAndRedo},
    {"SaveAsWritesTheSameBytes", SaveAsWritesTheSameBytes},
    {"CloseAnsweredEachWay", CloseAnsweredEachWay},
    {"UploadToTheEmulator", UploadToTheEmulator},
    {"WriteTheDeviceLog", WriteTheDeviceLog},
    {"ChangeTheWindowsSize", ChangeTheWindowsSize},
    {"SecondStartBringsTheFileBack", SecondStartBringsTheFileBack},
    {"OpenByCommandLineAndByDrop", OpenByCommandLineAndByDrop},
    {"ReplaceAFileOnlyWhenAsked", ReplaceAFileOnlyWhenAsked},
    {"GetBackWhatCouldNotBeSaved", GetBackWhatCouldNotBeSaved},
    {"TheFirstFiveMinutes", TheFirstFiveMinutes},
    {"DrawADay", DrawADay},
    {"MoveSeveralSteps", MoveSeveralSteps},
    {"WorkWithACarefulMouse", WorkWithACarefulMouse},
    {"ChangeManySteps", ChangeManySteps},
    {"MakeDaysOfLight", MakeDaysOfLight},
    {"StartFromATemplate", StartFromATemplate},
    {"ShowWhatWasSavedAndTheLight", ShowWhatWasSavedAndTheLight},
    {"DeleteSteps", DeleteSteps},
    {"EditByMenu", EditByMenu},
    {"MoveTheViewByKeys", MoveTheViewByKeys},
    {"FilesByMenu", FilesByMenu},
    {"DevicesByMenu", DevicesByMenu},
    {"SpeakGerman", SpeakGerman},
    {"TryATranslation", TryATranslation},
    {"AddAndEditModes", AddAndEditModes},
    {"NameAChannelAndTypeItsSteps", NameAChannelAndTypeItsSteps},
    {"TypeADemoSpeed", TypeADemoSpeed},
    {"PasteLettersIntoASpeed", PasteLettersIntoASpeed},
    {"SetTheEmulatorsTime", SetTheEmulatorsTime},
    {"LookAtAbout", LookAtAbout},
    {"PackACheckUp", PackACheckUp},
    {"TellOfTheLamps", TellOfTheLamps},
    {"RenameDevicesInTheNetworkOnly", RenameDevicesInTheNetworkOnly},
    {"PasteTenMegabytes", PasteTenMegabytes},
    {"PauseSeekResumeAndStopADemo", PauseSeekResumeAndStopADemo},
    {"LetADemoEndWithTheDay", LetADemoEndWithTheDay},
    {"LookAtTheMenusDuringADemo", LookAtTheMenusDuringADemo},
    {"LeaveADemo", LeaveADemo},
    {"LeaveAPausedDemo", LeaveAPausedDemo},
    {"LeaveASecondDemo", LeaveASecondDemo},
    {"LeaveADemoThatHasEnded", LeaveADemoThatHasEnded},
    {"LeaveAnUpload", LeaveAnUpload},
    {"LeaveALongUpload", LeaveALongUpload},
    {"ChangeTheMode", ChangeTheMode},
    {"ZoomByKeysFromAnywhere", ZoomByKeysFromAnywhere},
    {"FillTheLog", FillTheLog},
    {"ReadTheKnownIssues", ReadTheKnownIssues},
    {"CancelALoad", CancelALoad},
    {"EditStepsInTheTable", EditStepsInTheTable},
    {"TypeWrongIntoTheTable", TypeWrongIntoTheTable},
    {"CarryStepsOverTheClipboard", CarryStepsOverTheClipboard},
    {"SelectInTableAndChart", SelectInTableAndChart},
    {"SelectSeveralRows", SelectSeveralRows},
    {"LookAtTheTableDuringADemo", LookAtTheTableDuringADemo},
    {"TheTableSaysWhatTheChartShows", TheTableSaysWhatTheChartShows},
};

}  // namespace

std::span<const Script> All() {
  return kScripts;
}

}  // namespace scripts
