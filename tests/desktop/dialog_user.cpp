#include "tests/desktop/dialog_user.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "tests/desktop/clipboard.h"
#include "tests/desktop/input.h"
#include "tests/desktop/program_under_test.h"
#include "tests/desktop/window_text.h"

namespace desktop {

namespace {

// More than any dialog has controls.
constexpr int kMostTabs = 20;
// And than any list has rows.
constexpr int kMostRows = 100;

// In the order in which they stand in pickers.
constexpr int DateTime::*kPickerParts[] = {&DateTime::year, &DateTime::month,  &DateTime::day,
                                           &DateTime::hour, &DateTime::minute, &DateTime::second};

std::vector<HWND> ControlsOf(HWND dialog) {
  std::vector<HWND> controls;
  for (HWND control = GetWindow(dialog, GW_CHILD); control != nullptr;
       control = GetWindow(control, GW_HWNDNEXT)) {
    controls.push_back(control);
  }
  return controls;
}

// The same questions go by other numbers for each of the two classes of lists.
struct ListMessages {
  UINT count;
  UINT textLength;
  UINT text;
  UINT selection;
};
constexpr ListMessages kComboBox = {CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_GETCURSEL};
constexpr ListMessages kListBox = {LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT, LB_GETCURSEL};

// Null for a window of another class.
const ListMessages* MessagesOf(HWND control) {
  const std::wstring className = ClassOf(control);
  if (className == L"ComboBox") return &kComboBox;
  return className == L"ListBox" ? &kListBox : nullptr;
}

int SelectedRow(HWND list) {
  return static_cast<int>(SendMessageW(list, MessagesOf(list)->selection, 0, 0));
}

std::vector<std::string> RowsOf(HWND list) {
  const ListMessages& messages = *MessagesOf(list);
  std::vector<std::string> rows;
  const auto count = static_cast<WPARAM>(SendMessageW(list, messages.count, 0, 0));
  for (WPARAM row = 0; row < count; ++row) {
    std::wstring text(static_cast<std::size_t>(SendMessageW(list, messages.textLength, row, 0)) + 1, L'\0');
    SendMessageW(list, messages.text, row, reinterpret_cast<LPARAM>(text.data()));
    rows.push_back(Utf8(text.c_str()));
  }
  return rows;
}

}  // namespace

SeenDialog DialogUser::See() const {
  SeenDialog seen;
  seen.title = WindowText(dialog_);
  RECT place{};
  GetWindowRect(dialog_, &place);
  POINT corner{place.left, place.top};
  ScreenToClient(program_.mainWindow(), &corner);
  seen.x = corner.x;
  seen.y = corner.y;
  for (const HWND control : ControlsOf(dialog_)) {
    SeenControl& entry = seen.controls[GetDlgCtrlID(control)];
    entry.text = WindowText(control);
    entry.visible = IsWindowVisible(control) != 0;
    entry.enabled = IsWindowEnabled(control) != 0;
    if (MessagesOf(control) != nullptr) {
      entry.rows = RowsOf(control);
      entry.row = SelectedRow(control);
    }
    if (ClassOf(control) == L"SysDateTimePick32") entry.time = program_.LookAtPicker(control);
  }
  return seen;
}

void DialogUser::Do(const DialogStep& step) {
  using Kind = DialogStep::Kind;
  switch (step.kind) {
    case Kind::Type:
      return Type(step);
    case Kind::Paste:
      return Paste(step);
    case Kind::Pick:
      return Pick(step);
    case Kind::SetDateTime:
      return SetDateTime(step);
    case Kind::GoTo:
      GoTo(step.control);
      return;
    case Kind::Press:
      if (GoTo(step.control)) PressKey(VK_SPACE);
      return;
    case Kind::PressEnter:
      return PressKey(VK_RETURN);
    case Kind::PressEscape:
      return PressKey(VK_ESCAPE);
    case Kind::Await:
    case Kind::Look:
      break;
  }
}

bool DialogUser::HasFocus(int control) const {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(GetWindowThreadProcessId(dialog_, nullptr), &thread);
  const HWND wanted = GetDlgItem(dialog_, control);
  // The field of a list that one can type into is a window of its own.
  return wanted != nullptr && (thread.hwndFocus == wanted || GetParent(thread.hwndFocus) == wanted);
}

bool DialogUser::GoTo(int control) {
  for (int tabs = 0; tabs < kMostTabs; ++tabs) {
    if (HasFocus(control)) return true;
    PressKey(VK_TAB);
  }
  ADD_FAILURE() << "the Tab key does not get to control " << control << " of \"" << WindowText(dialog_)
                << '"';
  return false;
}

void DialogUser::PressKey(int key) {
  input::PressKey(static_cast<WORD>(key));
  takeInput_();
}

void DialogUser::SelectAll() {
  input::HoldKey(VK_CONTROL);
  input::PressKey(VK_HOME);
  input::HoldKey(VK_SHIFT);
  input::PressKey(VK_END);
  input::ReleaseKey(VK_SHIFT);
  input::ReleaseKey(VK_CONTROL);
}

void DialogUser::Type(const DialogStep& step) {
  if (!GoTo(step.control)) return;
  SelectAll();
  input::PressKey(VK_DELETE);
  for (const char16_t unit : WideFromUtf8(step.text)) {
    if (unit == u'\n') {
      input::PressKey(VK_RETURN);
    } else {
      input::TypeUnit(unit);
    }
  }
  takeInput_();
}

void DialogUser::Paste(const DialogStep& step) {
  if (!GoTo(step.control)) return;
  ASSERT_TRUE(PutOnClipboard(step.text));
  SelectAll();
  input::HoldKey(VK_CONTROL);
  input::PressKey('V');
  input::ReleaseKey(VK_CONTROL);
  takeInput_();
}

void DialogUser::Pick(const DialogStep& step) {
  if (!GoTo(step.control)) return;
  const HWND list = GetDlgItem(dialog_, step.control);
  for (int keys = 0; keys < kMostRows && SelectedRow(list) != step.row; ++keys) {
    PressKey(SelectedRow(list) < step.row ? VK_DOWN : VK_UP);
  }
  EXPECT_EQ(SelectedRow(list), step.row) << "the keys do not get to that row of " << step.control;
}

void DialogUser::SetDateTime(const DialogStep& step) {
  if (!GoTo(step.control)) return;
  const HWND picker = GetDlgItem(dialog_, step.control);
  GoToYear(picker);
  // With the arrow keys, since a month that is shown by its name does not take digits everywhere.
  for (int DateTime::*const part : kPickerParts) {
    const int distance = step.time.*part - program_.LookAtPicker(picker).*part;
    for (int i = 0; i < std::abs(distance); ++i) input::PressKey(distance > 0 ? VK_UP : VK_DOWN);
    PressKey(VK_RIGHT);
  }
}

void DialogUser::GoToYear(HWND picker) {
  // Not every picker begins with its first part. The Up key tells the year from the others, whose turn comes
  // later.
  for (int parts = 0; parts < kMostTabs; ++parts) {
    const int year = program_.LookAtPicker(picker).year;
    PressKey(VK_UP);
    if (program_.LookAtPicker(picker).year != year) return;
    PressKey(VK_RIGHT);
  }
  ADD_FAILURE() << "no part of the picker is the year";
}

}  // namespace desktop
