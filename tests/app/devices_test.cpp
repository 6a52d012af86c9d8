// Commands that the worker carries out, the questions before an upload, the demo and the device log.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/handlers/demo_control.h"
#include "app/handlers/device_log.h"
#include "app/handlers/upload_check.h"
#include "common/files.h"
#include "common/log.h"
#include "dialogs/dialog.h"
#include "program/demo_state.h"
#include "tests/app/app_test.h"
#include "tests/program/program_fixture.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/sim_network.h"
#include "tests/support/virtual_clock.h"

namespace {

using app::Answer;
using app::Control;
using program_test::GivenModeOfMergedSteps;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
namespace command = app::command;

class Devices : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
  }

  // A program of one mode with that many merged steps.
  void GivenModeOf(int steps) {
    Program().modes = {GivenModeOfMergedSteps(steps, 10)};
    Program().modes.front().name = "Reef";
  }
  // What was shown outside the window.
  const std::vector<app::WorkSign>& Work() { return user.GetDesktop().work; }
  // Waits until all jobs queued so far are done.
  void WaitForWorker() {
    std::atomic<bool> done{false};
    user.State().worker.AddJob([&done] { done = true; });
    while (!done) user.Turn();
    user.Settle();
  }
};

TEST_F(Devices, TheEmulatorIsAddedOnce) {
  GivenDevices({"TC421-1*", "TC421-2"});
  user.Choose(command::kAddEmulator);
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("TC420_Emulator"));
  EXPECT_THAT(user.SelectedRows(Control::DeviceList), ElementsAre(0));
  user.State().devices.front().selected = false;
  user.Choose(command::kAddEmulator);
  EXPECT_FALSE(user.State().devices.front().selected) << "there was nothing to add";
}

TEST_F(Devices, AScanListsWhatIsOnTheNetworkAndALoneControllerIsTicked) {
  sim_network::Reset();
  sim_network::PlugIn({192, 168, 4, 7}, "Smart-123456");
  user.Choose(command::kScanWifi);
  ASSERT_TRUE(WaitUntil([this] { return !user.List(Control::DeviceList).empty(); }));
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("Smart-123456"));
  EXPECT_THAT(user.SelectedRows(Control::DeviceList), ElementsAre(0));
  EXPECT_EQ(NewLog(),
            "Searching for network devices...\nFound 1 device(s)\n"
            "Trying to find hostname for 192.168.4.7:5000...\nHostname not found, using Smart-123456\n");
}

TEST_F(Devices, ANameFromTheNetworkIsListedHarmlesslyAndKeptAsItIs) {
  GivenDevices({"\x1B[31m\xFFTank"});
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("\uFFFD[31m\uFFFDTank"));
  EXPECT_EQ(user.State().devices.front().name, "\x1B[31m\xFFTank");
}

TEST_F(Devices, TheTimeOfThisComputerIsSent) {
  user.Choose(command::kAddEmulator);
  user.Choose(command::kSyncTime);
  WaitForWorker();
  EXPECT_EQ(NewLog(),
            "Configuring device TC420_Emulator\nSyncing time\nFinished configuring device TC420_Emulator\n");
}

TEST_F(Devices, ClearingAsksNothing) {
  user.Choose(command::kAddEmulator);
  user.Choose(command::kClearAll);
  WaitForWorker();
  EXPECT_EQ(
      NewLog(),
      "Configuring device TC420_Emulator\nClearing all modes\nFinished configuring device TC420_Emulator\n");
  EXPECT_THAT(user.Questions(), IsEmpty());
}

TEST_F(Devices, AnUploadCarriesTheProgramAsItWasAtTheCommand) {
  user.Choose(command::kAddEmulator);
  user.Choose(command::kUploadProgram);
  Program().modes.front().name = "Later";
  WaitForWorker();
  EXPECT_EQ(NewLog(),
            "Configuring device TC420_Emulator\nUploading started\nUploading mode: Normal\nUploading mode: "
            "AlwaysOn\nUploading finished\nFinished configuring device TC420_Emulator\n");
}

// What is shown outside the window

TEST_F(Devices, AnUploadIsShownOutsideTheWindowUntilItEnds) {
  user.Choose(command::kAddEmulator);
  user.Choose(command::kUploadProgram);
  WaitForWorker();
  ASSERT_TRUE(WaitUntil([this] { return !Work().empty() && Work().back() == app::WorkSign(); }));
  ASSERT_GT(Work().size(), 2U);
  for (std::size_t i = 0; i + 1 < Work().size(); ++i) {
    EXPECT_EQ(Work()[i].kind, app::WorkSign::Running);
    if (i > 0) {
      EXPECT_GT(Work()[i].percent, Work()[i - 1].percent) << "each is shown once";
    }
  }
}

TEST_F(Devices, AScanIsShownAsWorkThatNobodyCanMeasure) {
  user.Choose(command::kScanWifi);
  ASSERT_TRUE(WaitUntil([this] { return Work().size() == 2; }));
  EXPECT_THAT(Work(), ElementsAre(app::WorkSign{app::WorkSign::Unmeasured}, app::WorkSign()));
}

TEST_F(Devices, ADemoIsShownAsItsDayAndAPausedOneAsSuch) {
  TCBase::WorkProgress& progress = user.State().workProgress;
  GivenDemoAt(43'200);
  progress.DemoAt(43'200);
  ASSERT_TRUE(WaitUntil([this] { return Work().size() == 1; }));
  user.State().demoState.state = TCBase::StatePaused;
  ASSERT_TRUE(WaitUntil([this] { return Work().size() == 2; }));
  GivenDemoAt(-1, TCBase::StateIdle);
  progress.DemoEnded();
  ASSERT_TRUE(WaitUntil([this] { return Work().size() == 3; }));
  EXPECT_THAT(Work(), ElementsAre(app::WorkSign{app::WorkSign::Running, 50},
                                  app::WorkSign{app::WorkSign::Paused, 50}, app::WorkSign()));
}

// Nothing selected

TEST_F(Devices, ACommandForNoDeviceSaysWhatToDo) {
  GivenDevices({"TC420", "TC421"});
  const std::string line =
      "No device is selected. Connect one by its USB cable, or choose \"Scan WiFi devices\" or \"Add "
      "emulator\", "
      "and then select it in the list.\n";
  for (const int number : {command::kUploadProgram, command::kSyncTime, command::kClearAll}) {
    ASSERT_TRUE(user.Choose(number));
    WaitForWorker();
    EXPECT_EQ(NewLog(), line) << number;
  }
  user.WillFill({in_dialog::Press(dialogs::kOk)});
  ASSERT_TRUE(user.Choose(command::kSetTime));
  EXPECT_EQ(NewLog(), line);
  ASSERT_TRUE(user.Choose(command::kPlayDemo));
  WaitForWorker();
  EXPECT_EQ(NewLog(), line);
}

TEST_F(Devices, ACommandForADeviceDoesNot) {
  user.Choose(command::kAddEmulator);
  for (const int number :
       {command::kUploadProgram, command::kSyncTime, command::kClearAll, command::kPlayDemo}) {
    ASSERT_TRUE(user.Choose(number));
    WaitForWorker();
    EXPECT_THAT(NewLog(), Not(HasSubstr("No device is selected"))) << number;
  }
}

// Uploads that fail

TEST_F(Devices, AnUploadToNobodyEndsWithAWarningThatNamesModesAndController) {
  GivenDevices({"TC420*"}, TCBase::ModelTC420);
  ASSERT_TRUE(user.Choose(command::kUploadProgram));
  WaitForWorker();
  EXPECT_EQ(NewLog(),
            "Configuring device TC420\nConnect error\nFinished configuring device TC420\n"
            "TC420 has not confirmed these modes: Normal, AlwaysOn. Please upload the program again.\n");
  EXPECT_TRUE(user.GetDesktop().logPane.IsRedAt(user.GetDesktop().logPane.Length() - 3));
}

TEST_F(Devices, AModeThatIsRefusedIsNamedBehindAllOthers) {
  Program().modes.insert(Program().modes.begin(), GivenModeOfMergedSteps(1, 10));
  Program().modes.front().name = "Reef";  // controllers take no mode of one step
  user.Choose(command::kAddEmulator);
  NewLog();
  ASSERT_TRUE(user.Choose(command::kUploadProgram));
  WaitForWorker();
  EXPECT_THAT(NewLog(),
              testing::EndsWith(
                  "Finished configuring device TC420_Emulator\n"
                  "TC420_Emulator has not confirmed these modes: Reef. Please upload the program again.\n"));
}

// Upload check

TEST_F(Devices, TheReportTellsEachMode) {
  const app::ModeReport report = app::BuildModeReport(Program());
  EXPECT_EQ(report.text, "\"Normal\" (12 steps)\r\n\"AlwaysOn\" (2 steps)\r\n");
  EXPECT_FALSE(report.manySteps);
}

TEST_F(Devices, MoreThanTwentyStepsAreMany) {
  GivenModeOf(20);
  EXPECT_FALSE(app::BuildModeReport(Program()).manySteps);
  GivenModeOf(21);
  EXPECT_TRUE(app::BuildModeReport(Program()).manySteps);
}

TEST_F(Devices, ManyStepsForATC420AreAskedAbout) {
  GivenModeOf(21);
  user.Choose(command::kAddEmulator);
  user.WillAnswer(Answer::No);
  user.Choose(command::kUploadProgram);
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"Higher step count for some TC420 devices");
  EXPECT_EQ(
      asked[0].text,
      u"Some TC420 devices have problems with modes containing higher number of steps.\r\n\r\n"
      u"If the program uploaded to your TC420 device does not work the same way as during the demo playback, "
      u"please check \"Help / Known Issues\" for more troubleshooting details.\r\n\r\n"
      u"List of all modes with their number of steps:\r\n\r\n"
      u"\"Reef\" (21 steps)\r\n\r\n"
      u"Proceed with uploading the current program? (It is a safe operation)");
  EXPECT_EQ(asked[0].buttons, app::Buttons::YesNo);
  EXPECT_EQ(asked[0].icon, app::Icon::Warning);
  WaitForWorker();
  EXPECT_EQ(NewLog(), "") << "no job was queued";
}

TEST_F(Devices, YesUploadsManySteps) {
  GivenModeOf(21);
  user.Choose(command::kAddEmulator);
  user.WillAnswer(Answer::Yes);
  user.Choose(command::kUploadProgram);
  WaitForWorker();
  EXPECT_THAT(NewLog(), HasSubstr("Uploading mode: Reef\n"));
}

struct AskingRow {
  TCBase::DeviceModel model;
  bool asks;
};

TEST_F(Devices, OnlyTC420sAreAskedAboutTickedOrNot) {
  const AskingRow rows[] = {{TCBase::ModelTC420, true},
                            {TCBase::ModelEmulator, true},
                            {TCBase::ModelTC421USB, false},
                            {TCBase::ModelTC421UDP, false}};
  GivenModeOf(21);
  for (const AskingRow& row : rows) {
    GivenDevices({"A", "B"}, row.model);
    if (row.asks) user.WillAnswer(Answer::No);
    user.Choose(command::kUploadProgram);
    EXPECT_EQ(user.Questions().size(), row.asks ? 1U : 0U) << row.model;
  }
}

TEST_F(Devices, AnUploadBringsModesWithinTheLimit) {
  GivenModeOf(60);
  GivenDevices({"A"});
  user.Choose(command::kUploadProgram);
  EXPECT_LE(CountModeSteps(Mode()), 48);
  EXPECT_THAT(NewLog(), HasSubstr("Mode Reef has more than 48 steps, optimizing...\n"));
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(Devices, KnownIssuesTellTheStepsOfThisProgram) {
  user.WillAnswer(Answer::Ok);
  user.Choose(command::kKnownIssues);
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"Known issues with some TC420 devices");
  EXPECT_EQ(asked[0].buttons, app::Buttons::Ok);
  EXPECT_EQ(asked[0].icon, app::Icon::Information);
  EXPECT_EQ(
      asked[0].text,
      u"Some TC420 devices do not properly support a higher number of steps in the program.\r\n\r\n"
      u"If the program uploaded to your TC420 device does not work the same way as during the demo playback, "
      u"it is "
      u"possible that your device must be configured with a low number of steps to work properly.\r\n\r\n"
      u"Usually, these devices will ignore anything beyond the first 20 steps and keep the same intensity as "
      u"is set "
      u"at step no. 20 until the end of the day.\r\n\r\n"
      u"To overcome this problem, please consider using the \"Mode / Align Steps\" function to snap steps in "
      u"all "
      u"channels to specific intervals. This may reduce and merge some steps with similar times. You can "
      u"delete "
      u"some steps manually as well. Or you can also try to add endpoint steps to the start or end of the "
      u"mode.\r\n\r\n"
      u"If you want to explore more, you can try using PLED software, but it was not working for me "
      u"either.\r\n"
      u"(Please let me know if PLED with the same program works or if you find out more details about this "
      u"problem.)\r\n\r\n"
      u"Here is the list showing the current number of steps for each mode in your program:\r\n\r\n"
      u"\"Normal\" (12 steps)\r\n\"AlwaysOn\" (2 steps)\r\n\r\n");
}

// Demo

TEST_F(Devices, ADemoPlaysAndComesToRest) {
  user.Choose(command::kAddEmulator);
  user.GetSettings().SetDemoSpeed(10);
  NewLog();
  user.Choose(command::kPlayDemo);
  WaitForWorker();
  EXPECT_THAT(NewLog(), HasSubstr("Demo finished\n"));
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (10s)");
  EXPECT_TRUE(user.MenuItem(command::kUploadProgram).enabled);
}

TEST_F(Devices, PlayGreysTheMenuAtOnce) {
  headless::Desktop& desktop = user.GetDesktop();
  desktop.journal.clear();
  desktop.application->mainWindow.OnCommand(command::kPlayDemo, 0);
  EXPECT_FALSE(desktop.menu.IsEnabled(command::kUploadProgram)) << "before the worker has seen the job";
  EXPECT_TRUE(desktop.menu.IsEnabled(command::kStopDemo));
  EXPECT_THAT(desktop.journal, ElementsAre("redraw menu"));
  WaitForWorker();
}

TEST_F(Devices, WithNobodyThereADemoComesToRestAllTheSame) {
  GivenDevices({"TC420*"}, TCBase::ModelTC420);
  const double before = virtual_clock::Seconds();
  user.Choose(command::kPlayDemo);
  WaitForWorker();
  EXPECT_THAT(NewLog(), HasSubstr("Connect error\n"));
  EXPECT_GT(virtual_clock::Seconds() - before, 0.499);
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (60s)");
}

TEST_F(Devices, TheSameButtonPausesAndResumes) {
  GivenDemoAt(100, TCBase::StatePlaying);
  user.Press(Control::PlayButton);
  auto posted = user.State().demoState.TakeCommand();
  ASSERT_NE(posted, nullptr);
  EXPECT_EQ(posted->type, TCBase::CommandPause);
  GivenDemoAt(100, TCBase::StatePaused);
  user.Press(Control::PlayButton);
  posted = user.State().demoState.TakeCommand();
  ASSERT_NE(posted, nullptr);
  EXPECT_EQ(posted->type, TCBase::CommandResume);
  GivenDemoAt(-1);
  EXPECT_EQ(NewLog(), "") << "it logs nothing";
}

TEST_F(Devices, SpaceOnTheChartPausesAndResumes) {
  auto& chart = user.GetDesktop().application->chartWindow;
  chart.OnKeyDown(app::key::kSpace);
  EXPECT_EQ(user.State().demoState.TakeCommand(), nullptr) << "only while a demo runs";
  GivenDemoAt(3725, TCBase::StatePlaying);
  chart.OnKeyDown(app::key::kSpace);
  EXPECT_EQ(user.State().demoState.TakeCommand()->type, TCBase::CommandPause);
  GivenDemoAt(3725, TCBase::StatePaused);
  chart.OnKeyDown(app::key::kSpace);
  EXPECT_EQ(user.State().demoState.TakeCommand()->type, TCBase::CommandResume);
  GivenDemoAt(-1);
  EXPECT_EQ(NewLog(), "Demo playback paused at 01:02:05\nDemo playback resumed\n");
}

TEST_F(Devices, StopIsPostedWithoutTouchingTheDisplay) {
  GivenDemoAt(100);
  user.GetDesktop().application->mainWindow.OnTimer(app::kDemoTimer);
  ASSERT_FALSE(user.MenuItem(command::kUploadProgram).enabled) << "a demo runs";
  user.Press(Control::StopButton);
  const auto posted = user.State().demoState.TakeCommand();
  ASSERT_NE(posted, nullptr);
  EXPECT_EQ(posted->type, TCBase::CommandStop);
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Playing");
  EXPECT_TRUE(user.GetDesktop().menu.IsEnabled(command::kUploadProgram));
  EXPECT_FALSE(user.GetDesktop().menu.IsEnabled(command::kStopDemo));
  GivenDemoAt(-1);
}

TEST_F(Devices, SpeedsAreStoredAndShownAfterHalfASecond) {
  const std::pair<int, const char*> rows[] = {
      {command::kSpeedNormal, "180"}, {command::kSpeedSlow, "300"}, {command::kSpeedFast, "60"}};
  for (const auto& [number, seconds] : rows) {
    const double before = virtual_clock::Seconds();
    user.Choose(number);
    EXPECT_GT(virtual_clock::Seconds() - before, 0.499);
    EXPECT_EQ(user.GetSettings().GetValue("demo_speed"), seconds);
    EXPECT_EQ(NewLog(), std::string("Demo playback speed set to ") + seconds + " seconds\n");
    EXPECT_EQ(user.Text(Control::DemoStatusLabel), std::string("Ready (") + seconds + "s)");
  }
}

// Device log

class DeviceLog : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
  }
  std::string File() {
    std::string bytes;
    ReadFileBytes(folder / "LumarineLog.txt", bytes);
    return bytes;
  }
  static void Line(const std::string& text) {
    deviceLog.Append(text);
    deviceLog.EndLine();
  }
};

TEST_F(DeviceLog, IsSwitchedByTheCommand) {
  user.Choose(command::kLogging);
  EXPECT_EQ(user.GetSettings().GetValue("logging"), "on");
  Line("one");
  EXPECT_EQ(File(), "one\r\n");
  user.Choose(command::kLogging);
  EXPECT_EQ(user.GetSettings().GetValue("logging"), "off");
  Line("two");
  EXPECT_EQ(File(), "one\r\n");
  EXPECT_EQ(NewLog(), "Device communication logging ON.\nDevice communication logging OFF.\n");
}

TEST_F(DeviceLog, WhatQueuedUpWhileOffIsWrittenWithTheNextLine) {
  std::string expected;
  for (int i = 0; i < 1000; ++i) {
    Line("line " + std::to_string(i));
    expected += "line " + std::to_string(i) + "\r\n";
  }
  user.Choose(command::kLogging);
  EXPECT_EQ(File(), "");
  Line("the last");
  EXPECT_EQ(File(), expected + "the last\r\n");
}

TEST_F(DeviceLog, IsAppendedTo) {
  ASSERT_TRUE(WriteFileBytes(folder / "LumarineLog.txt", "of yesterday\r\n"));
  user.Choose(command::kLogging);
  Line("of today");
  EXPECT_EQ(File(), "of yesterday\r\nof today\r\n");
}

TEST_F(DeviceLog, WithoutADocumentsFolderEachItemIsAnError) {
  // What DocumentPath answers then: the working folder alone, which is no file.
  const std::filesystem::path nowhere = std::filesystem::path(".") / "";
  user.GetSettings().SetValue("logging", "on");
  app::ConfigureDeviceLog(user.GetSettings(), nowhere);
  Line("lost");
  const std::string log = NewLog();
  const std::string error = "Error creating file " + Utf8FromPath(nowhere) + ", error: ";
  EXPECT_THAT(log, testing::StartsWith(error));
  EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 2) << "one for the text, one for the line end";
  user.GetSettings().SetValue("logging", "off");
  app::ConfigureDeviceLog(user.GetSettings(), nowhere);
}

}  // namespace
