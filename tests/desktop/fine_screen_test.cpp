// The real window on a screen of any resolution: the same units, more pixels. scripts/test runs this on the
// usual screen and on one of 120 dots to the inch, which LUMARINE_SCREEN_DPI then tells.

#include <gtest/gtest.h>

#include <cstdlib>

#include "app/window/control_table.h"
#include "chart/bumper.h"
#include "chart/chart_layout.h"
#include "program/builtin_modes.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"

namespace {

class FineScreen : public testing::Test {
 protected:
  void SetUp() override {
    // What follows is in pixels of the screen; Windows would convert it for a program that does not know
    // them.
    before_ = SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
    ASSERT_NE(before_, nullptr);
    user.Start();
    dpi = static_cast<int>(GetDpiForWindow(FindWindowW(L"LUMARINE", nullptr)));
    const char* const told = std::getenv("LUMARINE_SCREEN_DPI");
    ASSERT_EQ(dpi, told != nullptr ? std::atoi(told) : USER_DEFAULT_SCREEN_DPI);
  }
  void TearDown() override {
    if (user.IsRunning()) user.Close();
    if (before_ != nullptr) SetThreadDpiAwarenessContext(before_);
  }

  int Pixels(int units) const { return MulDiv(units, dpi, USER_DEFAULT_SCREEN_DPI); }
  int Units(int pixels) const { return MulDiv(pixels, USER_DEFAULT_SCREEN_DPI, dpi); }

  const desktop::FirstDay firstDay;
  desktop::DesktopUser user;
  int dpi = 0;

 private:
  DPI_AWARENESS_CONTEXT before_ = nullptr;
};

TEST_F(FineScreen, ControlsKeepTheirSizeInInches) {
  const app::Size client = user.ClientSize();
  for (const app::ControlRow& row : app::ControlTable()) {
    const UX::Rect units = row.place.In(Units(client.width), Units(client.height));
    const UX::Rect place = user.Place(row.control);
    EXPECT_EQ(place.x, Pixels(units.x)) << row.text;
    EXPECT_EQ(place.y, Pixels(units.y)) << row.text;
    EXPECT_EQ(place.x + place.width, Pixels(units.x + units.width)) << row.text;
    EXPECT_EQ(place.y + place.height, Pixels(units.y + units.height)) << row.text;
  }
}

TEST_F(FineScreen, AClickMeetsTheStepThatStandsThere) {
  const app::Size client = user.ClientSize();
  const TCBase::Program::ModeListView program = TCBase::Program::NewProgram();
  double now = 0.0;
  UX::ChartLayout layout{now};
  layout.Update(Units(client.width), Units(client.height));
  now += 1.0;  // the lanes are at rest
  const UX::Rect lane = layout.LaneRect(1);
  const TCBase::Program::Step& step = program.modes[0].channels[1][1];
  user.MoveMouse(Pixels(UX::TimeToX(lane, program, step)), Pixels(UX::PercentToY(lane, step.value)));
  user.HoldButton();
  user.ReleaseButton();
  EXPECT_TRUE(user.WaitForLog("Step (Time: 10:00) (Strength: 80)"));
}

}  // namespace
