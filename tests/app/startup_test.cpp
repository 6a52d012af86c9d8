// The order in which things come up and go down, and what a run leaves behind.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/files.h"
#include "common/log.h"
#include "program/demo_state.h"
#include "tests/app/app_test.h"
#include "tests/support/files.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/virtual_clock.h"

namespace {

using app::Control;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
namespace command = app::command;

using StartUp = AppTest;
using ShutDown = AppTest;

const std::vector<std::string> kStartUpOrder = {
    "init common controls", "start graphics", "start network", "load names", "register main class",
    "register chart class", "create main window",
    // The child controls
    "create list ", "create button ➕", "create button ➖", "create label Demo controls", "create button ▶",
    "create button ■", "create label 0:00", "create label [0 0 0 0 0]", "create label Channel power",
    "create slider ", "create label Devices", "create list ", "create label Zoom", "create slider ",
    "create label mode description", "create chart ", "create scroll bar ", "create rich text ",
    "set default font", "show controls",
    //
    "renderer: initialise", "load logo", "show", "renderer: rebuild", "take menu", "redraw menu",
    "title Lumarine - New program", "renderer: rebuild",
    // The main window stands
    "start timer 300 100", "load accelerators"};

// The desktop before its first turn.
class BareDesktop : public AppTest {
 protected:
  const EmptyLogs logs_;
  TranslationStore translations_{""};
  Settings settings_{folder / "LumarineConfig.xml"};
  headless::Desktop desktop_{settings_, translations_, folder / "LumarineLog.txt"};
};

TEST_F(BareDesktop, ComesUpInOrder) {
  ASSERT_TRUE(desktop_.application->StartUp());
  EXPECT_THAT(desktop_.journal, ElementsAreArray(kStartUpOrder));
}

TEST_F(BareDesktop, WaitsHalfASecondForTheFirstStatus) {
  ASSERT_TRUE(desktop_.application->StartUp());
  EXPECT_GE(virtual_clock::Seconds(), 0.5);
  EXPECT_EQ(desktop_.controls.At(Control::DemoStatusLabel).text, u"Demo controls");
  while (desktop_.queue.HasPosted()) desktop_.application->Turn();
  EXPECT_EQ(desktop_.controls.At(Control::DemoStatusLabel).text, u"Ready (60s)");
}

TEST_F(BareDesktop, ShowsWhatWasLoggedMeanwhileWithTheFirstWakeUp) {
  ASSERT_TRUE(desktop_.application->StartUp());
  EXPECT_EQ(desktop_.logPane.Length(), 0U);
  while (desktop_.queue.HasPosted()) desktop_.application->Turn();
  EXPECT_EQ(desktop_.logPane.Text(),
            u"Language set to English\r\n"
            u"Loaded program contains 2 modes\r\n"
            u"Mode Normal steps count: 12\r\n");
}

TEST_F(BareDesktop, ThePowerSliderHasNothingToShowBeforeTheFirstStatus) {
  ASSERT_TRUE(desktop_.application->StartUp());
  EXPECT_EQ(desktop_.controls.SliderPosition(Control::PowerSlider), 0);
  EXPECT_FALSE(desktop_.controls.At(Control::PowerSlider).enabled);
}

TEST_F(BareDesktop, TheMenuShowsThatLoggingIsOnBeforeTheFirstStatus) {
  settings_.SetValue("logging", "on");
  ASSERT_TRUE(desktop_.application->StartUp());
  EXPECT_TRUE(desktop_.menu.Find(command::kLogging)->checked);
}

TEST_F(BareDesktop, EndsAtOnceWithoutAMainWindow) {
  desktop_.refuseWindow = true;
  EXPECT_EQ(desktop_.application->Run(), 0);
  EXPECT_EQ(desktop_.journal.back(), "create main window") << "nothing later, nor any shut-down";
  EXPECT_FALSE(desktop_.controls.Exists(Control::ModeList));
}

TEST_F(BareDesktop, RunsUntilItIsClosed) {
  desktop_.queue.Push(
      {headless::Event::Kind::Other, 0, false, [this] { desktop_.application->mainWindow.OnClose(); }});
  EXPECT_EQ(desktop_.application->Run(), 0);
}

TEST_F(StartUp, FillsTheControls) {
  GivenTheProgramRuns();
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn"));
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(0));
  EXPECT_THAT(user.List(Control::DeviceList), IsEmpty());
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 0);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), 0);
  EXPECT_TRUE(user.IsEnabled(Control::PowerSlider)) << "no demo runs";
  EXPECT_EQ(user.GetDesktop().controls.scrollBar.page, 1440);
  EXPECT_EQ(user.State().renderer->window, &user.GetDesktop().chart);
}

TEST_F(StartUp, ASecondStartBringsTheFileBack) {
  const std::filesystem::path file = GivenFile("Tank");
  GivenTheProgramRuns();
  user.WillPick({file});
  user.Choose(command::kLoadProgram);
  user.Close();
  user.Start();
  EXPECT_EQ(user.Title(), "Lumarine - " + Utf8FromPath(file));
  EXPECT_THAT(user.Log(), HasSubstr("Loaded program file " + Utf8FromPath(file) + "\r\n"));
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Tank", "AlwaysOn"));
  EXPECT_EQ(UndoDepth(), 0);
  user.Close();
  EXPECT_FALSE(user.IsRunning()) << "what was loaded counts as saved";
}

TEST_F(StartUp, AFileThatIsGoneGivesANewProgram) {
  const std::filesystem::path file = GivenFile("Tank");
  Settings(folder / "LumarineConfig.xml").Save();
  {
    Settings settings(folder / "LumarineConfig.xml");
    settings.SetValue("last_open_file", Utf8FromPath(folder / "gone.xml"));
    settings.Save();
  }
  user.Start();
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  EXPECT_THAT(user.Log(), HasSubstr("Error loading program " + Utf8FromPath(folder / "gone.xml") + "\r\n"));
  user.Close();
  EXPECT_FALSE(user.IsRunning());
}

TEST_F(StartUp, AFileThatIsNoProgramGivesANewProgram) {
  const std::filesystem::path file = folder / "last.xml";
  const std::vector<std::function<void()>> faults = {
      [&] { ASSERT_TRUE(WriteFileBytes(file, "<modelist")); },
      [&] { ASSERT_TRUE(WriteFileBytes(file, "")); },
      [&] { ASSERT_TRUE(WriteFileBytes(file, std::string_view("\x89PNG\r\n\x1A\n\0\0", 10))); },
      [&] { std::filesystem::create_directory(file); },
      [&] {  // as large as a film, and nothing but zeros
        ASSERT_TRUE(WriteFileBytes(file, "<"));
        std::filesystem::resize_file(file, 100'000'000);
      },
  };
  for (const auto& fault : faults) {
    std::filesystem::remove_all(file);
    fault();
    {
      Settings settings(folder / "LumarineConfig.xml");
      settings.SetValue("last_open_file", Utf8FromPath(file));
      settings.Save();
    }
    user.Start();
    EXPECT_EQ(user.Title(), "Lumarine - New program");
    EXPECT_EQ(user.GetSettings().GetValue("last_open_file"), "");
    user.Close();
    EXPECT_FALSE(user.IsRunning());
  }
}

TEST_F(StartUp, MarksLoggingFromTheSettings) {
  {
    Settings settings(folder / "LumarineConfig.xml");
    settings.SetValue("logging", "on");
    settings.Save();
  }
  user.Start();
  EXPECT_TRUE(user.GetDesktop().menu.Find(command::kLogging)->checked);
}

TEST_F(StartUp, LogsTheTrafficOfDevicesIfTheSettingsSaySo) {
  for (const std::string value : {"off", "on"}) {
    {
      Settings settings(folder / "LumarineConfig.xml");
      settings.SetValue("logging", value);
      settings.Save();
    }
    user.Start();
    LogDevice("a packet");
    EXPECT_EQ(std::filesystem::exists(folder / "LumarineLog.txt"), value == "on");
    user.Close();
  }
  EXPECT_THAT(BytesOf(folder / "LumarineLog.txt"), HasSubstr("a packet\r\n"));
}

TEST_F(StartUp, FromThenOnControllersThatComeAndGoAreListed) {
  GivenTheProgramRuns();
  sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
  // The line comes first, the list with an event behind it.
  ASSERT_TRUE(user.WaitForLog("TC420 Device connected\r\n"));
  ASSERT_TRUE(WaitUntil([this] { return !user.List(Control::DeviceList).empty(); }));
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("TC420"));
  EXPECT_THAT(user.SelectedRows(Control::DeviceList), ElementsAre(0));
  sim_hidapi::PullOut(sim_hidapi::Family::TC420);
  ASSERT_TRUE(user.WaitForLog("TC420 Device disconnected\r\n"));
  EXPECT_TRUE(WaitUntil([this] { return user.List(Control::DeviceList).empty(); }));
}

TEST_F(ShutDown, GoesDownInOrder) {
  GivenTheProgramRuns();
  user.Close();
  ASSERT_FALSE(user.IsRunning());
  const std::vector<std::string> end(user.lastJournal.end() - 8, user.lastJournal.end());
  EXPECT_THAT(end, ElementsAre("destroy", "stop timer 300", "quit 0", "renderer: release", "delete logo",
                               "stop graphics", "stop hid", "stop network"));
}

TEST_F(ShutDown, WritesTheSettingsAtItsVeryEnd) {
  const std::filesystem::path config = folder / "LumarineConfig.xml";
  GivenTheProgramRuns();
  user.Choose(command::kSpeedNormal);
  user.Choose(command::kLogging);
  EXPECT_FALSE(std::filesystem::exists(config)) << "not before";
  user.Choose(command::kLogging);
  user.Choose(command::kExit);
  ASSERT_FALSE(user.IsRunning());
  Settings settings(config);
  EXPECT_EQ(settings.GetValue("demo_speed"), "180");
  EXPECT_EQ(settings.GetValue("logging"), "off");
  EXPECT_EQ(settings.GetValue("last_open_file"), "");
}

TEST_F(ShutDown, AQuitDuringADemoStopsItAndWaits) {
  GivenTheProgramRuns();
  user.Choose(command::kAddEmulator);
  user.GetSettings().SetDemoSpeed(86400);
  user.Choose(command::kPlayDemo);
  while (user.State().demoState.position < 0) user.Turn();
  user.Close();
  ASSERT_FALSE(user.IsRunning());
  std::string log;
  statusLog.textHandler = [&log](const std::string& text) { log += text; };
  statusLog.Drain();
  statusLog.textHandler = nullptr;
  EXPECT_THAT(log, HasSubstr("Cancelled!"));
}

}  // namespace
