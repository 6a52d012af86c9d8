// The window classes and styles of the main window's controls, column by column.

#include "platform/win32/control_classes.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>

#include "app/window/control_table.h"

// after windows.h
#include <commctrl.h>

namespace {

using app::Control;

constexpr std::array kClasses = {L"listbox",   L"button",
                                 L"button",    L"static",
                                 L"button",    L"button",
                                 L"static",    L"static",
                                 L"static",    L"msctls_trackbar32",
                                 L"static",    L"listbox",
                                 L"static",    L"msctls_trackbar32",
                                 L"static",    L"LumarineRenderWnd",
                                 L"SCROLLBAR", L"RICHEDIT50W"};

TEST(ControlClasses, OfTheMainWindow) {
  ASSERT_EQ(app::ControlTable().size(), kClasses.size());
  for (std::size_t i = 0; i < kClasses.size(); ++i) {
    // Windows does not tell capitals from small letters here.
    EXPECT_EQ(lstrcmpiW(win32::ClassOf(app::ControlTable()[i].kind), kClasses[i]), 0) << "row " << i;
  }
}

DWORD OwnStyleOf(Control control) {
  const DWORD style = win32::StyleOf(app::RowOf(control));
  EXPECT_EQ(style & (WS_CHILD | WS_VISIBLE), DWORD{WS_CHILD | WS_VISIBLE}) << static_cast<int>(control);
  return style & ~DWORD{WS_CHILD | WS_VISIBLE};
}

TEST(ControlStyles, OfTheMainWindow) {
  constexpr DWORD kList = LBS_NOTIFY | WS_VSCROLL | WS_BORDER;
  EXPECT_EQ(OwnStyleOf(Control::ModeList), kList);
  EXPECT_EQ(OwnStyleOf(Control::DeviceList), kList | LBS_EXTENDEDSEL);
  for (const Control button : {Control::AddModeButton, Control::DeleteModeButton, Control::PlayButton,
                               Control::StopButton, Control::ChartWindow, Control::ScrollBar}) {
    EXPECT_EQ(OwnStyleOf(button), 0U) << static_cast<int>(button);
  }
  for (const Control label :
       {Control::DemoStatusLabel, Control::TimeLabel, Control::PowerLabel, Control::PowerTitleLabel,
        Control::DevicesLabel, Control::ZoomLabel, Control::ModeDescription}) {
    EXPECT_EQ(OwnStyleOf(label), DWORD{SS_SUNKEN | SS_ENDELLIPSIS | SS_NOPREFIX}) << static_cast<int>(label);
  }
  EXPECT_EQ(OwnStyleOf(Control::PowerSlider), DWORD{TBS_AUTOTICKS | WS_DISABLED});
  EXPECT_EQ(OwnStyleOf(Control::ZoomSlider), DWORD{TBS_AUTOTICKS});
  EXPECT_EQ(OwnStyleOf(Control::LogPane), DWORD{ES_MULTILINE | ES_READONLY | WS_VSCROLL | WS_BORDER});
}

}  // namespace
