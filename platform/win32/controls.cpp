#include "platform/win32/controls.h"

// after windows.h
#include <commctrl.h>
#include <richedit.h>

#include "platform/win32/control_classes.h"
#include "platform/win32/scale.h"
#include "platform/win32/text.h"

namespace win32 {

namespace {

DWORD ChildStyleOf(const app::ControlRow& row) {
  // A list would otherwise cut its height to whole rows.
  const DWORD wholeHeight = row.kind == dialogs::ControlKind::ListBox ? LBS_NOINTEGRALHEIGHT : 0;
  return StyleOf(row) | wholeHeight;
}

bool AllowsSeveral(app::Control list) {
  return (app::RowOf(list).traits & dialogs::trait::kMultiSelection) != 0;
}

void SetPlace(HWND window, const RECT& place) {
  SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void Controls::Create(const app::ControlRow& row, std::u16string_view text, const Rect& place) {
  // The library registers the class and must stay.
  if (row.kind == dialogs::ControlKind::RichText) LoadLibraryW(L"Msftedit.dll");
  const RECT pixels = Scale(parent_).Pixels(place);
  void* const parameter = row.control == app::Control::ChartWindow ? &chart_ : nullptr;
  const HWND handle = CreateWindowExW(
      0, ClassOf(row.kind), WideText(text).c_str(), ChildStyleOf(row), pixels.left, pixels.top,
      pixels.right - pixels.left, pixels.bottom - pixels.top, parent_,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(row.id)), GetModuleHandleW(nullptr), parameter);
  items_[static_cast<std::size_t>(row.control)] = {handle, place};
  if (row.control == app::Control::LogPane) Send(row.control, EM_EXLIMITTEXT, 0, app::kLogPaneLimit);
}

void Controls::Move(app::Control control, const Rect& place) {
  Item& item = items_[static_cast<std::size_t>(control)];
  item.place = place;
  SetPlace(item.handle, Scale(parent_).Pixels(place));
}

void Controls::SetText(app::Control control, std::u16string_view text) {
  SetWindowTextW(HandleOf(control), WideText(text).c_str());
}

void Controls::SetEnabled(app::Control control, bool enabled) {
  EnableWindow(HandleOf(control), enabled ? TRUE : FALSE);
}

std::optional<app::Control> Controls::Find(HWND handle) const {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (handle != nullptr && items_[i].handle == handle) return static_cast<app::Control>(i);
  }
  return std::nullopt;
}

void Controls::SetDefaultFont() {
  font_.Take(Scale(parent_).dpi(), [this](HFONT font) {
    const auto take = [](HWND child, LPARAM parameter) -> BOOL {
      SendMessageW(child, WM_SETFONT, static_cast<WPARAM>(parameter), TRUE);
      return TRUE;
    };
    EnumChildWindows(parent_, take, reinterpret_cast<LPARAM>(font));
  });
}

void Controls::TakeScale() {
  SetDefaultFont();
  const Scale scale(parent_);
  for (const Item& item : items_) SetPlace(item.handle, scale.Pixels(item.place));
}

LRESULT Controls::Send(app::Control control, UINT message, WPARAM first, LPARAM second) const {
  return SendMessageW(HandleOf(control), message, first, second);
}

// Lists

void Controls::SetRows(app::Control list, const std::vector<app::ListRow>& rows) {
  Send(list, WM_SETREDRAW, FALSE);
  Send(list, LB_RESETCONTENT);
  for (const app::ListRow& row : rows) {
    const std::wstring text = WideText(row.text);
    const auto index = Send(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    Send(list, LB_SETITEMDATA, static_cast<WPARAM>(index), row.data);
    if (row.selected) SelectRow(list, static_cast<std::int32_t>(index));
  }
  Send(list, WM_SETREDRAW, TRUE);
  InvalidateRect(HandleOf(list), nullptr, TRUE);
}

void Controls::SelectRow(app::Control list, std::int32_t row) {
  if (AllowsSeveral(list)) {
    Send(list, LB_SETSEL, TRUE, row);
  } else {
    Send(list, LB_SETCURSEL, static_cast<WPARAM>(row));
  }
}

std::vector<std::int32_t> Controls::SelectedRows(app::Control list) const {
  std::vector<std::int32_t> rows;
  for (std::int32_t row = 0; row < RowCount(list); ++row) {
    if (Send(list, LB_GETSEL, static_cast<WPARAM>(row)) > 0) rows.push_back(row);
  }
  return rows;
}

std::int32_t Controls::CurrentRow(app::Control list) const {
  return static_cast<std::int32_t>(Send(list, LB_GETCURSEL));
}

std::int32_t Controls::RowCount(app::Control list) const {
  return static_cast<std::int32_t>(Send(list, LB_GETCOUNT));
}

std::int32_t Controls::RowData(app::Control list, std::int32_t row) const {
  return static_cast<std::int32_t>(Send(list, LB_GETITEMDATA, static_cast<WPARAM>(row)));
}

// Scroll bar and sliders

void Controls::SetScrollBar(const TCBase::Program::ViewScrollInfo& info) {
  SCROLLINFO bar{};
  bar.cbSize = sizeof bar;
  bar.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  bar.nMin = info.minimum;
  bar.nMax = info.maximum;
  bar.nPage = static_cast<UINT>(info.page);
  bar.nPos = info.position;
  SetScrollInfo(HandleOf(app::Control::ScrollBar), SB_CTL, &bar, TRUE);
}

void Controls::SetSliderRange(app::Control slider, std::int32_t maximum, std::int32_t page,
                              std::int32_t tick) {
  Send(slider, TBM_SETRANGEMIN, FALSE, 0);
  Send(slider, TBM_SETRANGEMAX, TRUE, maximum);
  Send(slider, TBM_SETPAGESIZE, 0, page);
  if (tick != 0) Send(slider, TBM_SETTICFREQ, static_cast<WPARAM>(tick));
}

void Controls::SetSliderPosition(app::Control slider, std::int32_t position) {
  Send(slider, TBM_SETPOS, TRUE, position);
}

}  // namespace win32
