#include "platform/win32/open_dialog.h"

#include <algorithm>
#include <array>
#include <vector>

// after windows.h
#include <commctrl.h>
#include <shellapi.h>

#include "platform/win32/message_box.h"
#include "platform/win32/scale.h"
#include "platform/win32/system_time.h"
#include "platform/win32/text.h"

namespace win32 {

namespace {

// The same operations go by other numbers for each of the two classes of lists.
struct ListMessages {
  UINT clear;
  UINT add;
  UINT count;
  UINT select;
  UINT selection;
  UINT setData;
  UINT data;
  UINT find;
};
constexpr ListMessages kListBox = {LB_RESETCONTENT, LB_ADDSTRING,   LB_GETCOUNT,    LB_SETCURSEL,
                                   LB_GETCURSEL,    LB_SETITEMDATA, LB_GETITEMDATA, LB_FINDSTRINGEXACT};
constexpr ListMessages kComboBox = {CB_RESETCONTENT, CB_ADDSTRING,   CB_GETCOUNT,    CB_SETCURSEL,
                                    CB_GETCURSEL,    CB_SETITEMDATA, CB_GETITEMDATA, CB_FINDSTRINGEXACT};

const ListMessages& MessagesOf(HWND list) {
  std::array<wchar_t, 20> name{};
  GetClassNameW(list, name.data(), static_cast<int>(name.size()));
  return lstrcmpiW(name.data(), WC_COMBOBOXW) == 0 ? kComboBox : kListBox;
}

}  // namespace

// DialogTarget

void DialogTarget::Post(std::uint32_t event, std::uintptr_t, std::intptr_t) {
  const std::scoped_lock lock(mutex_);
  if (window_ != nullptr) PostMessageW(window_, kMessage, event, 0);
}

void DialogTarget::Forget() {
  const std::scoped_lock lock(mutex_);
  window_ = nullptr;
}

// OpenDialog

OpenDialog::OpenDialog(HWND window, HWND owner)
    : window_(window), owner_(owner), target_(std::make_shared<DialogTarget>(window)) {}

OpenDialog::~OpenDialog() {
  target_->Forget();
}

LRESULT OpenDialog::Send(int control, UINT message, WPARAM first, LPARAM second) const {
  return SendMessageW(Item(control), message, first, second);
}

void OpenDialog::MoveTo(std::int32_t x, std::int32_t y) {
  const Scale scale(owner_);
  POINT corner{scale.Pixels(x), scale.Pixels(y)};
  ClientToScreen(owner_, &corner);
  SetWindowPos(window_, nullptr, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void OpenDialog::MoveBeside(const Rect& area) {
  const Scale scale(owner_);
  RECT kept = scale.Pixels(area);
  MapWindowPoints(owner_, nullptr, reinterpret_cast<POINT*>(&kept), 2);
  RECT own{};
  GetWindowRect(window_, &own);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(owner_, MONITOR_DEFAULTTONEAREST), &monitor);
  const auto rect = [](const RECT& edges) {
    return Rect{edges.left, edges.top, edges.right - edges.left, edges.bottom - edges.top};
  };
  const Rect size = rect(own);
  const Position place = dialogs::PlaceBeside(rect(kept), size.width, size.height, rect(monitor.rcWork));
  SetWindowPos(window_, nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void OpenDialog::SetTitle(std::u16string_view title) {
  SetWindowTextW(window_, WideText(title).c_str());
}

void OpenDialog::SetText(int control, std::u16string_view text) {
  SetDlgItemTextW(window_, control, WideText(text).c_str());
}

std::u16string OpenDialog::Text(int control, std::size_t units) const {
  std::vector<wchar_t> buffer(units);
  const UINT length = GetDlgItemTextW(window_, control, buffer.data(), static_cast<int>(buffer.size()));
  return {buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(length)};
}

void OpenDialog::SetEnabled(int control, bool enabled) {
  const HWND item = Item(control);
  // A control that is disabled with the focus keeps it, and no key would do anything any more.
  if (!enabled && GetFocus() == item) SendMessageW(window_, WM_NEXTDLGCTL, 0, FALSE);
  EnableWindow(item, enabled ? TRUE : FALSE);
}

void OpenDialog::Hide(int control) {
  ShowWindow(Item(control), SW_HIDE);
}

void OpenDialog::GiveFocus(int control) {
  focusGiven_ = true;
  // Not SetFocus, which leaves the mark of the default button where it was.
  SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(control)), TRUE);
}

// Edit fields

void OpenDialog::LimitText(int control, std::int32_t units) {
  Send(control, EM_SETLIMITTEXT, static_cast<WPARAM>(units));
}

void OpenDialog::AcceptDigitsOnly(int control) {
  const HWND edit = Item(control);
  SetWindowLongPtrW(edit, GWL_STYLE, GetWindowLongPtrW(edit, GWL_STYLE) | ES_NUMBER);
  SetWindowPos(edit, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
}

void OpenDialog::SetTabStops(int control, std::int32_t first, std::int32_t step) {
  std::array<UINT, 20> stops{};
  UINT stop = static_cast<UINT>(first);
  for (UINT& each : stops) {
    each = stop;
    stop += static_cast<UINT>(step);
  }
  Send(control, EM_SETTABSTOPS, stops.size(), reinterpret_cast<LPARAM>(stops.data()));
}

// Lists

void OpenDialog::ClearRows(int control) {
  Send(control, MessagesOf(Item(control)).clear);
}

void OpenDialog::AddRow(int control, std::u16string_view text, std::int32_t data) {
  const ListMessages& messages = MessagesOf(Item(control));
  const LRESULT row = Send(control, messages.add, 0, reinterpret_cast<LPARAM>(WideText(text).c_str()));
  Send(control, messages.setData, static_cast<WPARAM>(row), data);
}

int OpenDialog::RowCount(int control) const {
  return static_cast<int>(Send(control, MessagesOf(Item(control)).count));
}

void OpenDialog::SelectRow(int control, int row) {
  // Left to themselves, not all lists give up their choice for a row that is not there.
  const int found = row < RowCount(control) ? row : -1;
  Send(control, MessagesOf(Item(control)).select, static_cast<WPARAM>(found));
}

void OpenDialog::SelectText(int control, std::u16string_view text) {
  // Windows does not tell small letters from capitals here; no two words of ours differ in that alone.
  const LRESULT row = Send(control, MessagesOf(Item(control)).find, static_cast<WPARAM>(-1),
                           reinterpret_cast<LPARAM>(WideText(text).c_str()));
  if (row >= 0) SelectRow(control, static_cast<int>(row));
}

std::int32_t OpenDialog::SelectedData(int control) const {
  const ListMessages& messages = MessagesOf(Item(control));
  const LRESULT row = Send(control, messages.selection);
  if (row < 0) return -1;
  return static_cast<std::int32_t>(Send(control, messages.data, static_cast<WPARAM>(row)));
}

// Date and time picker

void OpenDialog::SetDateTime(int control, const DateTime& time, std::u16string_view format) {
  const SYSTEMTIME system = SystemTimeOf(time);
  Send(control, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(WideText(format).c_str()));
  Send(control, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&system));
}

DateTime OpenDialog::GetDateTime(int control) const {
  SYSTEMTIME system{};
  Send(control, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&system));
  return DateTimeOf(system);
}

// Beyond the window

void OpenDialog::Tell(std::u16string_view title, std::u16string_view text, dialogs::Icon icon) {
  ShowMessage(window_, title, text, icon, MB_OK);
}

void OpenDialog::OpenLink(std::u16string_view target) {
  ShellExecuteW(nullptr, nullptr, WideText(target).c_str(), nullptr, nullptr, SW_SHOW);
}

void OpenDialog::End(int result) {
  target_->Forget();
  EndDialog(window_, result);
}

void OpenDialog::KeepOnScreen() {
  RECT place{};
  GetWindowRect(window_, &place);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT kept = Within(monitor.rcWork, place);
  if (EqualRect(&kept, &place)) return;
  SetWindowPos(window_, nullptr, kept.left, kept.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

RECT Within(const RECT& area, const RECT& place) {
  const LONG width = place.right - place.left;
  const LONG height = place.bottom - place.top;
  const LONG left = std::max(area.left, std::min(place.left, area.right - width));
  const LONG top = std::max(area.top, std::min(place.top, area.bottom - height));
  return {left, top, left + width, top + height};
}

}  // namespace win32
