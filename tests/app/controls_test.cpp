// What the child controls show, and what comes of moving them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/log.h"
#include "program/view.h"
#include "tests/app/app_test.h"
#include "tests/program/program_fixture.h"

namespace {

using app::Control;
using headless::Focus;
using testing::ElementsAre;
using testing::StartsWith;
namespace scroll = app::scroll;

class Controls : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    GivenTheProgramRuns();
  }

  headless::Desktop& Desk() { return user.GetDesktop(); }
  // "A* B C*": the devices, ticked ones with an asterisk.
  std::string Ticks() {
    std::string text;
    for (const TCBase::DeviceInfo& device : user.State().devices) {
      text += (text.empty() ? "" : " ") + device.name + (device.selected ? "*" : "");
    }
    return text;
  }
  // Selects exactly these rows of the device list, as clicks do one after the other.
  void SelectDevices(std::initializer_list<int> rows) {
    auto& controls = Desk().controls;
    for (std::int32_t i = 0; i < controls.RowCount(Control::DeviceList); ++i) {
      controls.SelectRow(Control::DeviceList, i, std::find(rows.begin(), rows.end(), i) != rows.end());
    }
    user.SendCommand(app::control_id::kDeviceList, app::kListSelectionChanged);
  }
  std::vector<int> View() { return {Program().viewStart, Program().viewEnd}; }
};

using Seconds = std::vector<int>;

TEST_F(Controls, TheModeDescriptionTellsNameStepsAndDescription) {
  EXPECT_THAT(user.Text(Control::ModeDescription), StartsWith("Mode Normal (Steps: 12): Daily program that"));
  Mode().description.clear();
  user.State().ctrls->ShowModeDescription();
  EXPECT_EQ(user.Text(Control::ModeDescription), "Mode Normal (Steps: 12)");
}

TEST_F(Controls, TheModeListShowsTheModesInTheirOrder) {
  Program().modes.push_back(Program().modes.front());
  Program().modes.back().name = "Größe";
  Program().currentMode = 2;
  user.State().ctrls->FillModeList();
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn", "Größe"));
  EXPECT_THAT(user.SelectedRows(Control::ModeList), ElementsAre(2));
  EXPECT_THAT(user.Text(Control::ModeDescription), StartsWith("Mode Größe "));
}

TEST_F(Controls, AChangeOfLanguageLeavesZoomAsItWas) {
  for (const Control label : {Control::DevicesLabel, Control::PowerTitleLabel, Control::ZoomLabel}) {
    Desk().controls.SetText(label, u"in another language");
  }
  user.State().ctrls->TranslateLabels();
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Devices");
  EXPECT_EQ(user.Text(Control::PowerTitleLabel), "Channel power");
  EXPECT_EQ(user.Text(Control::ZoomLabel), "in another language");
}

// Devices

TEST_F(Controls, DevicesAreShownByTheNameTheUserGaveThem) {
  user.GetSettings().SetDeviceValue("device", "TC421-2", "Reef & sump");
  GivenDevices({"TC421-1", "TC421-2*"});
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("TC421-1", "Reef & sump"));
  EXPECT_THAT(user.SelectedRows(Control::DeviceList), ElementsAre(1));
}

TEST_F(Controls, ALoneDeviceIsAlwaysTicked) {
  user.State().ctrls->SetDevices({{TCBase::ModelTC421UDP, "A", {}, false}});
  EXPECT_EQ(Ticks(), "A*");
}

TEST_F(Controls, TicksSurviveARefresh) {
  GivenDevices({"A", "B*"});
  user.State().ctrls->SetDevices({{TCBase::ModelTC421UDP, "C", {}, false},
                                  {TCBase::ModelTC421UDP, "B", {}, false},
                                  {TCBase::ModelTC420, "A", {}, false}});
  EXPECT_EQ(Ticks(), "A B* C");
  EXPECT_THAT(user.List(Control::DeviceList), ElementsAre("A", "B", "C"));
}

struct SelectionRow {
  std::initializer_list<const char*> devices;
  std::initializer_list<int> selected;
  const char* ticks;
};

TEST_F(Controls, ASelectionReachesAsManyRowsAsAreSelected) {
  // Required though odd: only the first k rows are looked at where k rows are selected.
  const SelectionRow rows[] = {
      {{"A", "B", "C"}, {0}, "A* B C"},
      {{"A*", "B*", "C*"}, {2}, "A B* C*"},
      {{"A", "B", "C"}, {2}, "A B C"},
      {{"A", "B", "C"}, {1, 2}, "A B* C"},
      {{"A", "B", "C"}, {0, 1, 2}, "A* B* C*"},
      {{"A*", "B", "C*"}, {0, 1}, "A* B* C*"},
      {{"A*", "B*", "C"}, {}, "A* B* C"},
      {{"A"}, {0}, "A*"},
      {{"A*"}, {}, "A*"},
  };
  for (const SelectionRow& row : rows) {
    GivenDevices(row.devices);
    SelectDevices(row.selected);
    EXPECT_EQ(Ticks(), row.ticks);
  }
}

TEST_F(Controls, ClearingTheDeviceListLeavesTheTicksAndTheNextUploadGoesThere) {
  GivenDevices({"Sim 1*", "Sim 2*"}, TCBase::ModelEmulator);
  SelectDevices({});
  user.Choose(app::command::kUploadProgram);
  EXPECT_TRUE(user.WaitForLog("Finished configuring device Sim 1\r\n"));
  EXPECT_TRUE(user.WaitForLog("Finished configuring device Sim 2\r\n"));
}

TEST_F(Controls, TheFocusGoesBackToTheMainWindow) {
  GivenDevices({"A", "B"});
  Desk().focus = Focus::Control;
  user.ClickRow(Control::DeviceList, 1);
  EXPECT_EQ(Desk().focus, Focus::MainWindow);
  EXPECT_EQ(user.State().ctrls->SelectedDeviceIndex(), 1);
  GivenDevices({});
  EXPECT_EQ(user.State().ctrls->SelectedDeviceIndex(), -1);
}

// Scroll bar and zoom slider

struct ScrollRow {
  int code;
  int position;
  Seconds view;  // in minutes, from 600 to 900 before
};

TEST_F(Controls, TheScrollBarMovesTheView) {
  const ScrollRow rows[] = {
      {scroll::kLineBack, 0, {585, 885}},       {scroll::kLineForward, 0, {615, 915}},
      {scroll::kPageBack, 0, {300, 600}},       {scroll::kPageForward, 0, {900, 1200}},
      {scroll::kThumbMoving, 77, {77, 377}},    {scroll::kThumbMoving, 1400, {1140, 1440}},
      {scroll::kThumbReleased, 77, {600, 900}}, {scroll::kFirst, 77, {600, 900}},
      {scroll::kLast, 77, {600, 900}},          {8, 77, {600, 900}},
  };
  for (const ScrollRow& row : rows) {
    Program().viewStart = 600 * 60;
    Program().viewEnd = 900 * 60;
    Desk().chart.invalidated.clear();
    Desk().focus = Focus::Control;
    NewJournal();
    user.Scroll(Control::ScrollBar, row.code, row.position);
    EXPECT_EQ(View(), (Seconds{row.view[0] * 60, row.view[1] * 60})) << "code " << row.code;
    EXPECT_THAT(NewJournal(), ElementsAre("renderer: relayout"));
    EXPECT_EQ(Desk().chart.invalidated.size(), 1U);
    EXPECT_EQ(Desk().focus, Focus::Control) << "no change of focus";
  }
}

TEST_F(Controls, TheScrollBarShowsThePositionAsComputed) {
  Program().viewStart = 0;
  Program().viewEnd = 300 * 60;
  user.Scroll(Control::ScrollBar, scroll::kLineBack);
  EXPECT_EQ(Desk().controls.scrollBar.position, -15) << "the bar clamps for itself";
  EXPECT_EQ(View(), (Seconds{0, 300 * 60})) << "and the view by its own rule";
}

TEST_F(Controls, WithTheWholeDayInViewTheScrollBarCannotMove) {
  ASSERT_EQ(user.SliderPosition(Control::ZoomSlider), 0);
  EXPECT_EQ(Desk().controls.scrollBar.page, 1440);
  for (const int code : {scroll::kLineForward, scroll::kPageForward, scroll::kLineBack}) {
    user.Scroll(Control::ScrollBar, code);
    EXPECT_EQ(View(), (Seconds{0, 86400}));
  }
}

struct ZoomRow {
  int code;
  int position;
  int expected;  // from 5
};

TEST_F(Controls, TheZoomSliderSetsTheWidthOfTheView) {
  const ZoomRow rows[] = {
      {scroll::kLineBack, 0, 4},    {scroll::kPageBack, 0, 4},      {scroll::kLineForward, 0, 6},
      {scroll::kPageForward, 0, 6}, {scroll::kThumbMoving, 17, 17}, {scroll::kFirst, 9, 0},
      {scroll::kLast, 9, 22},       {scroll::kThumbReleased, 9, 5}, {8, 9, 5},
  };
  for (const ZoomRow& row : rows) {
    user.Scroll(Control::ZoomSlider, scroll::kThumbMoving, 5);
    Desk().focus = Focus::Control;
    NewJournal();
    user.Scroll(Control::ZoomSlider, row.code, row.position);
    EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), row.expected) << "code " << row.code;
    EXPECT_EQ(Program().viewEnd - Program().viewStart, (24 - row.expected) * 3600);
    EXPECT_EQ(Desk().controls.scrollBar.page, (24 - row.expected) * 60);
    EXPECT_THAT(NewJournal(), ElementsAre("renderer: relayout"));
    EXPECT_EQ(Desk().focus, Focus::MainWindow);
  }
}

TEST_F(Controls, TheZoomSliderStopsAtItsEnds) {
  user.Scroll(Control::ZoomSlider, scroll::kLineBack);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 0);
  user.Scroll(Control::ZoomSlider, scroll::kLast);
  user.Scroll(Control::ZoomSlider, scroll::kLineForward);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 22);
  EXPECT_EQ(Program().viewEnd - Program().viewStart, 2 * 3600);
}

TEST_F(Controls, AClickBesideTheThumbMovesTheZoomSliderByOneWhateverItsOwnPage) {
  Desk().controls.SetSliderRange(Control::ZoomSlider, 22, 4, 0);
  user.Scroll(Control::ZoomSlider, scroll::kPageForward);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
  EXPECT_EQ(Program().viewEnd - Program().viewStart, 23 * 3600);
}

// Power slider

TEST_F(Controls, ThePowerSliderShowsTheSelectedChannelsHighestValue) {
  GivenSteps(2, {{480, 40.9F}, {600, 10.0F}});
  user.State().powerControl->Update();
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), 40);
  EXPECT_TRUE(user.IsEnabled(Control::PowerSlider));
  GivenSelection(-1, -1);
  user.State().powerControl->Update();
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), 0);
  EXPECT_FALSE(user.IsEnabled(Control::PowerSlider)) << "a channel at 0% cannot be scaled";
}

TEST_F(Controls, ThePowerSliderIsLeftAloneWhereItStandsRight) {
  GivenSteps(2, {{480, 40.0F}});
  user.State().powerControl->Update();
  Desk().controls.SetEnabled(Control::PowerSlider, false);
  user.State().powerControl->Update();
  EXPECT_FALSE(user.IsEnabled(Control::PowerSlider));
}

struct PowerRow {
  int code;
  int position;
  int expected;  // from 40
};

TEST_F(Controls, ThePowerSliderScalesTheChannel) {
  const PowerRow rows[] = {
      {scroll::kLineBack, 0, 39},       {scroll::kPageBack, 0, 39},     {scroll::kLineForward, 0, 41},
      {scroll::kPageForward, 0, 41},    {scroll::kThumbMoving, 70, 70}, {scroll::kFirst, 0, 0},
      {scroll::kThumbReleased, 70, 40},
  };
  for (const PowerRow& row : rows) {
    GivenSteps(2, {{480, 40.0F}, {600, 20.0F}});
    user.State().powerControl->Update();
    Desk().focus = Focus::Control;
    user.Scroll(Control::PowerSlider, row.code, row.position);
    user.Scroll(Control::PowerSlider, scroll::kThumbReleased);
    EXPECT_EQ(user.SliderPosition(Control::PowerSlider), row.expected) << "code " << row.code;
    if (row.expected != 0) {
      EXPECT_FLOAT_EQ(Channel(2)[0].value, static_cast<float>(row.expected));
    }
    EXPECT_EQ(Desk().focus, Focus::MainWindow);
  }
}

TEST_F(Controls, ThePowerSlidersEndKeySets22Percent) {
  GivenSteps(2, {{480, 40.0F}});
  user.State().powerControl->Update();
  user.Scroll(Control::PowerSlider, scroll::kLast);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), 22);
  EXPECT_FLOAT_EQ(Channel(2)[0].value, 22.0F);
}

TEST_F(Controls, ADragOfThePowerSliderIsOneEntry) {
  GivenSteps(2, {{480, 40.0F}, {600, 20.0F}});
  user.State().powerControl->Update();
  for (const int position : {45, 50, 60, 70})
    user.Scroll(Control::PowerSlider, scroll::kThumbMoving, position);
  user.Scroll(Control::PowerSlider, scroll::kThumbReleased);
  EXPECT_EQ(UndoDepth(), 1);
  EXPECT_FLOAT_EQ(Channel(2)[0].value, 70.0F);
  EXPECT_FLOAT_EQ(Channel(2)[1].value, 35.0F);
  user.Choose(app::command::kUndo);
  EXPECT_FLOAT_EQ(Channel(2)[0].value, 40.0F);
  EXPECT_EQ(user.SliderPosition(Control::PowerSlider), 40);
}

TEST_F(Controls, EachDragOfThePowerSliderIsAnEntryOfItsOwn) {
  GivenSteps(2, {{480, 40.0F}});
  user.State().powerControl->Update();
  for (const int target : {50, 70}) {
    user.Scroll(Control::PowerSlider, scroll::kThumbMoving, target - 5);
    user.Scroll(Control::PowerSlider, scroll::kThumbMoving, target);
    user.Scroll(Control::PowerSlider, scroll::kThumbReleased);
  }
  EXPECT_EQ(UndoDepth(), 2);
  user.Choose(app::command::kUndo);
  EXPECT_FLOAT_EQ(Channel(2)[0].value, 50.0F);
}

TEST_F(Controls, ADragThatBeginsAtZeroMakesNoEntry) {
  GivenSteps(2, {{480, 40.0F}});
  user.State().powerControl->Update();
  user.Scroll(Control::PowerSlider, scroll::kThumbMoving, 0);
  user.Scroll(Control::PowerSlider, scroll::kThumbMoving, 10);
  EXPECT_EQ(UndoDepth(), 0);
}

TEST_F(Controls, EachStepOfThePowerSliderIsAnEntry) {
  GivenSteps(2, {{480, 40.0F}});
  user.State().powerControl->Update();
  user.Scroll(Control::PowerSlider, scroll::kLineForward);
  user.Scroll(Control::PowerSlider, scroll::kLineForward);
  EXPECT_EQ(UndoDepth(), 2);
}

// Demo

TEST_F(Controls, DuringADemoEditingControlsAreDisabled) {
  GivenDemoAt(600);
  Desk().application->mainWindow.OnTimer(app::kDemoTimer);
  for (const Control control :
       {Control::ModeList, Control::AddModeButton, Control::DeleteModeButton, Control::PowerSlider}) {
    EXPECT_FALSE(user.IsEnabled(control));
  }
  for (const Control control : {Control::ZoomSlider, Control::ScrollBar, Control::DeviceList}) {
    EXPECT_TRUE(user.IsEnabled(control));
  }
  GivenDemoAt(-1);
}

struct StatusRow {
  TCBase::DemoPlayState state;
  const char* button;
  const char* status;
};

TEST_F(Controls, TheDemosStatusIsShown) {
  const StatusRow rows[] = {
      {TCBase::StateIdle, "▶", "Ready (60s)"},
      {TCBase::StatePaused, "▶", "Paused"},
      {TCBase::StatePlaying, " ▌ ▌", "Playing"},
  };
  for (const StatusRow& row : rows) {
    TCBase::DemoState record;
    record.state = row.state;
    record.position = 86399;
    record.step.values = {1, 20, 100, 0, 5};
    user.State().ctrls->ShowDemoStatus(record);
    EXPECT_EQ(user.Text(Control::PlayButton), row.button);
    EXPECT_EQ(user.Text(Control::DemoStatusLabel), row.status);
    EXPECT_EQ(user.Text(Control::TimeLabel), "23:59:59");
    EXPECT_EQ(user.Text(Control::PowerLabel), "1 20 100 0 5");
  }
}

TEST_F(Controls, TheTimeStaysWithinTheDay) {
  user.State().ctrls->ShowTimeAndPower(-1, {});
  EXPECT_EQ(user.Text(Control::TimeLabel), "00:00:00");
  user.State().ctrls->ShowTimeAndPower(86400, {});
  EXPECT_EQ(user.Text(Control::TimeLabel), "23:59:59");
}

// Log pane

TEST_F(Controls, AFullLogPaneIsEmptiedWhole) {
  user.State().ctrls->AppendLog(std::string(20481 - Desk().logPane.Length(), 'x'), app::LogColor::AsBefore);
  ASSERT_EQ(Desk().logPane.Length(), 20481U);
  user.State().ctrls->AppendLog("one more", app::LogColor::AsBefore);
  EXPECT_EQ(Desk().logPane.Text(), u"one more");
}

TEST_F(Controls, ALogPaneOfTheLimitIsNotEmptiedYet) {
  user.State().ctrls->AppendLog(std::string(20480 - Desk().logPane.Length(), 'x'), app::LogColor::AsBefore);
  user.State().ctrls->AppendLog("one more", app::LogColor::AsBefore);
  EXPECT_EQ(Desk().logPane.Length(), 20488U);
}

TEST_F(Controls, LinesBehindAWarningAreRedToo) {
  LogPlain("black");
  user.Settle();
  const std::size_t before = Desk().logPane.Length();
  LogWarning("careful");
  user.Settle();
  LogPlain("still red");
  user.Settle();
  EXPECT_FALSE(Desk().logPane.IsRedAt(before - 1));
  EXPECT_TRUE(Desk().logPane.IsRedAt(before));
  EXPECT_TRUE(Desk().logPane.IsRedAt(Desk().logPane.Length() - 1));
  EXPECT_THAT(user.Log(), testing::EndsWith("black\r\ncareful\r\nstill red\r\n"));
}

TEST_F(Controls, LinesBehindAWarningStayRedWhenThePaneWasEmptied) {
  LogWarning("careful");
  user.Settle();
  user.State().ctrls->AppendLog(std::string(20481 - Desk().logPane.Length(), 'x'), app::LogColor::AsBefore);
  user.State().ctrls->AppendLog("one more", app::LogColor::AsBefore);
  ASSERT_EQ(Desk().logPane.Text(), u"one more");
  EXPECT_TRUE(Desk().logPane.IsRedAt(0));
}

TEST_F(Controls, ALineComesLastWhereverTheUserHasPutTheCaret) {
  user.State().ctrls->AppendLog("first\r\n", app::LogColor::AsBefore);
  const std::u16string before = Desk().logPane.Text();
  for (const std::size_t end : {std::size_t{0}, std::size_t{4}, before.size()}) {
    Desk().logPane.Select(0, end);
    const std::u16string text = Desk().logPane.Text();
    user.State().ctrls->AppendLog("next\r\n", app::LogColor::AsBefore);
    EXPECT_EQ(Desk().logPane.Text(), text + u"next\r\n");
  }
}

TEST_F(Controls, AWarningIsRedWhereverTheUserHasPutTheCaret) {
  user.State().ctrls->AppendLog("first\r\n", app::LogColor::AsBefore);
  const std::size_t begin = Desk().logPane.Length();
  Desk().logPane.Select(0, 0);
  LogWarning("careful");
  user.Settle();
  EXPECT_FALSE(Desk().logPane.IsRedAt(begin - 1)) << "nothing was selected";
  EXPECT_TRUE(Desk().logPane.IsRedAt(begin));
}

TEST_F(Controls, TheLogPaneScrollsToItsEnd) {
  const int before = Desk().logPane.scrolls;
  user.State().ctrls->AppendLog("Größe", app::LogColor::AsBefore);
  EXPECT_EQ(Desk().logPane.scrolls, before + 1);
  EXPECT_THAT(user.Log(), testing::EndsWith("Größe"));
}

}  // namespace
