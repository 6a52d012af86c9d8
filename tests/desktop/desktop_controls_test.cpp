// What the controls of the real window are to Windows.

#include <gtest/gtest.h>

#include <string>

#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"

// after windows.h
#include <commctrl.h>
#include <richedit.h>

namespace {

using app::Control;

struct StyleRow {
  Control control;
  DWORD has;
  DWORD hasNot;
};

// WS_VSCROLL is not among them: a control takes it off while there is nothing to scroll.
TEST(DesktopControls, HaveTheirStyles) {
  const desktop::FirstDay firstDay;
  desktop::DesktopUser user;
  user.Start();
  constexpr DWORD kList = LBS_NOTIFY | WS_BORDER;
  constexpr DWORD kNoList = LBS_SORT | LBS_MULTIPLESEL;
  const StyleRow rows[] = {
      {Control::ModeList, kList, kNoList | LBS_EXTENDEDSEL},
      {Control::DeviceList, kList | LBS_EXTENDEDSEL, kNoList},
      {Control::DemoStatusLabel, SS_SUNKEN, 0},
      {Control::TimeLabel, SS_SUNKEN, 0},
      {Control::PowerLabel, SS_SUNKEN, 0},
      {Control::PowerTitleLabel, SS_SUNKEN, 0},
      {Control::DevicesLabel, SS_SUNKEN, 0},
      {Control::ZoomLabel, SS_SUNKEN, 0},
      {Control::ModeDescription, SS_SUNKEN, 0},
      {Control::PowerSlider, TBS_AUTOTICKS, TBS_VERT},
      {Control::ZoomSlider, TBS_AUTOTICKS, TBS_VERT},
      {Control::ScrollBar, SBS_HORZ, SBS_VERT},
      {Control::LogPane, ES_MULTILINE | ES_READONLY | WS_BORDER, 0},
  };
  for (const StyleRow& row : rows) {
    const DWORD style = user.StyleOf(row.control);
    const std::string name = "control " + std::to_string(static_cast<int>(row.control));
    EXPECT_EQ(style & row.has, row.has) << name;
    EXPECT_EQ(style & row.hasNot, 0U) << name;
    EXPECT_EQ(style & (WS_CHILD | WS_VISIBLE), DWORD{WS_CHILD | WS_VISIBLE}) << name;
  }
  user.Close();
}

}  // namespace
