// What assistive technology is told of the main window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/numbers.h"
#include "tests/app/chart_test.h"

namespace {

using app::Control;
namespace key = app::key;

class Accessible : public ChartTest {
 protected:
  std::string Name(Control control) { return Utf8FromWide(user.GetDesktop().controls.At(control).name); }
  std::string Chart() {
    user.Settle();
    return Utf8FromWide(user.GetDesktop().controls.At(Control::ChartWindow).description);
  }
};

TEST_F(Accessible, WhatHasNoWordsOfItsOwnHasAName) {
  using Kind = dialogs::ControlKind;
  for (const app::ControlRow& row : app::ControlTable()) {
    const bool saysItself = row.kind == Kind::Label;
    EXPECT_EQ(Name(row.control).empty(), saysItself) << static_cast<int>(row.control);
  }
  EXPECT_EQ(Name(Control::AddModeButton), "Add new mode");
  EXPECT_EQ(Name(Control::PowerSlider), "Channel power");
}

TEST_F(Accessible, TheChartTellsTheSelectedStep) {
  GivenStepsInLane0("08:00 0, 10:30 55.9, 18:00 20 J");
  user.State().selection.step = -1;
  user.State().Refresh(app::part::kChart);
  EXPECT_EQ(Chart(), "Channel 1, 3 steps, none selected");

  GivenSelection(0, 1);
  user.State().Refresh(app::part::kChart);
  EXPECT_EQ(Chart(), "Channel 1, step 2 of 3: 10:30, 55 percent, fade");
  user.GetDesktop().focus = headless::Focus::Chart;
  user.PressKey(key::kLeft);
  EXPECT_EQ(Chart(), "Channel 1, step 2 of 3: 10:29, 55 percent, fade");
  user.PressKey(key::kJ);
  EXPECT_EQ(Chart(), "Channel 1, step 2 of 3: 10:29, 55 percent, jump");
  GivenSelection(0, 2);
  user.State().Refresh(app::part::kChart);
  EXPECT_EQ(Chart(), "Channel 1, step 3 of 3: 18:00, 20 percent, jump");
}

TEST_F(Accessible, TheChartTellsThatNothingIsSelected) {
  GivenSelection(-1, -1);
  user.State().Refresh(app::part::kChart);
  EXPECT_EQ(Chart(), "No channel selected");
  GivenSelection(7, 0);
  user.State().Refresh(app::part::kChart);
  EXPECT_EQ(Chart(), "No channel selected") << "a channel that is not there";
}

TEST_F(Accessible, AChannelOfAnotherNameIsCalledByIt) {
  GivenSelection(2, -1);
  Program().channelInfos[2].name = "Königsblau";
  user.State().Refresh(app::part::kChart);
  EXPECT_EQ(Chart(), "Königsblau, " + std::to_string(Channel(2).size()) + " steps, none selected");
}

}  // namespace
