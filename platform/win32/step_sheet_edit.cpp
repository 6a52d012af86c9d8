// The field over the cell that is edited.

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/win32/step_sheet.h"
// after windows.h
#include <commctrl.h>

#include "platform/win32/text.h"

namespace win32 {

namespace {

constexpr UINT_PTR kFieldSubclass = 1;

bool IsShiftHeld() {
  return GetKeyState(VK_SHIFT) < 0;
}

}  // namespace

void StepSheet::BeginEdit(int row, int column) {
  LeaveEdit();
  if (!IsEdited() || row < 0 || row >= static_cast<int>(rows_.size()) || !logic_->OnEdit()) return;
  ListView_EnsureVisible(list_, row, FALSE);
  editRow_ = row;
  editColumn_ = column_ = column;
  wrong_ = false;
  const RECT cell = CellRect(row, column);
  const std::wstring text = WideText(rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
  const int alignment = AlignmentOf(column);
  const DWORD side = alignment == LVCFMT_RIGHT ? ES_RIGHT : alignment == LVCFMT_CENTER ? ES_CENTER : ES_LEFT;
  edit_ =
      CreateWindowExW(0, WC_EDITW, text.c_str(), WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL | side,
                      cell.left, cell.top, cell.right - cell.left, cell.bottom - cell.top, list_, nullptr,
                      GetModuleHandleW(nullptr), nullptr);
  SendMessageW(edit_, WM_SETFONT, static_cast<WPARAM>(SendMessageW(list_, WM_GETFONT, 0, 0)), FALSE);
  SetWindowSubclass(edit_, &EditProcedure, kFieldSubclass, reinterpret_cast<DWORD_PTR>(this));
  SendMessageW(edit_, EM_SETSEL, 0, -1);
  SetFocus(edit_);
}

LRESULT CALLBACK StepSheet::EditProcedure(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                                          DWORD_PTR sheet) {
  auto& self = *reinterpret_cast<StepSheet*>(sheet);
  switch (message) {
    case WM_KEYDOWN:
      if (self.OnEditKey(static_cast<int>(first))) return 0;
      break;
    case WM_CHAR:
      // Those of the keys above would sound a bell.
      if (first == VK_RETURN || first == VK_ESCAPE || first == VK_TAB) return 0;
      break;
    case WM_KILLFOCUS: {
      const LRESULT result = DefSubclassProc(window, message, first, second);
      if (self.edit_ == window) self.LeaveEdit();
      return result;
    }
    default:
      break;
  }
  return DefSubclassProc(window, message, first, second);
}

bool StepSheet::OnEditKey(int key) {
  switch (key) {
    case VK_RETURN:
      return FinishEdit(true), true;
    case VK_ESCAPE:
      EndEdit();
      logic_->OnEditGivenUp();
      return true;
    case VK_TAB: {
      const int next = editColumn_ + (IsShiftHeld() ? -1 : 1);
      FinishEdit(false);
      if (edit_ == nullptr && next >= 0 && next < columns_) BeginEdit(CurrentRow(), next);
      return true;
    }
    case 'A':
      if (GetKeyState(VK_CONTROL) >= 0) return false;
      return SendMessageW(edit_, EM_SETSEL, 0, -1), true;
    default:
      return false;
  }
}

std::u16string StepSheet::Typed() const {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(edit_)), L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(edit_, text.data(), static_cast<int>(text.size()) + 1)));
  return {text.begin(), text.end()};
}

void StepSheet::FinishEdit(bool goesOn) {
  if (logic_->OnTyped(editRow_, editColumn_, Typed(), goesOn)) return EndEdit();
  MarkWrong(true);
  SendMessageW(edit_, EM_SETSEL, 0, -1);
}

void StepSheet::LeaveEdit() {
  if (edit_ == nullptr) return;
  const std::u16string text = Typed();
  EndEdit();
  logic_->OnTyped(editRow_, editColumn_, text, false);
}

void StepSheet::DropEdit() {
  EndEdit();
}

void StepSheet::EndEdit() {
  const HWND field = std::exchange(edit_, nullptr);
  if (field == nullptr) return;
  if (GetFocus() == field) SetFocus(list_);
  // Not at once: this may be on the way from one of its own messages.
  ShowWindow(field, SW_HIDE);
  PostMessageW(field, WM_CLOSE, 0, 0);
}

void StepSheet::MarkWrong(bool wrong) {
  if (std::exchange(wrong_, wrong) != wrong && edit_ != nullptr) InvalidateRect(edit_, nullptr, TRUE);
}

}  // namespace win32
