#include "platform/win32/step_sheet.h"

#include <algorithm>
#include <cstddef>
#include <utility>

// after windows.h
#include <commctrl.h>

#include "app/window/numbers.h"
#include "platform/win32/text.h"

namespace win32 {

namespace {

constexpr UINT_PTR kSubclass = 1;
constexpr COLORREF kWrongColor = RGB(192, 0, 0);

bool IsHeld(int key) {
  return GetKeyState(key) < 0;
}

// For as long as it lives the flag is set.
class Quietly {
 public:
  explicit Quietly(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~Quietly() { flag_ = before_; }
  Quietly(const Quietly&) = delete;
  Quietly& operator=(const Quietly&) = delete;

 private:
  bool& flag_;
  const bool before_;
};

void SetCell(HWND list, int row, int column, const std::u16string& text) {
  std::wstring wide = WideText(text);
  ListView_SetItemText(list, row, column, wide.data());
}

void InsertRow(HWND list, int row) {
  LVITEMW item{};
  item.iItem = row;
  ListView_InsertItem(list, &item);
}

}  // namespace

void StepSheet::Create(HWND parent) {
  const DWORD several = IsEdited() ? 0 : LVS_SINGLESEL;
  list_ = CreateWindowExW(
      WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
      WS_CHILD | WS_CLIPCHILDREN | LVS_REPORT | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER | several, 0, 0, 0, 0,
      parent, nullptr, GetModuleHandleW(nullptr), nullptr);
  ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_GRIDLINES);
  SetWindowSubclass(list_, &ListProcedure, kSubclass, reinterpret_cast<DWORD_PTR>(this));
  rows_.clear();
  columns_ = column_ = 0;
  edit_ = nullptr;
  tells_ = false;
}

int StepSheet::AlignmentOf(int column) const {
  if (IsEdited() && column == app::table_column::kJump) return LVCFMT_CENTER;
  return column > 0 ? LVCFMT_RIGHT : LVCFMT_LEFT;
}

int StepSheet::CurrentRow() const {
  return ListView_GetNextItem(list_, -1, LVNI_FOCUSED);
}

void StepSheet::Move(const RECT& place) {
  SetWindowPos(list_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
  FillWidth();
}

void StepSheet::FillWidth() {
  RECT client{};
  GetClientRect(list_, &client);
  for (int column = 0; column < columns_; ++column) {
    const int width = (column + 1) * client.right / columns_ - column * client.right / columns_;
    if (ListView_GetColumnWidth(list_, column) != width) ListView_SetColumnWidth(list_, column, width);
  }
}

void StepSheet::SetColumns(std::u16string_view name, const app::TableRow& columns) {
  SetWindowTextW(list_, WideText(name).c_str());
  for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
    std::wstring text = WideText(columns[static_cast<std::size_t>(column)]);
    LVCOLUMNW told{};
    told.mask = LVCF_TEXT | LVCF_FMT;
    told.fmt = AlignmentOf(column);
    told.pszText = text.data();
    if (column < columns_) {
      ListView_SetColumn(list_, column, &told);
    } else {
      ListView_InsertColumn(list_, column, &told);
    }
  }
  if (std::exchange(columns_, static_cast<int>(columns.size())) != columns_) FillWidth();
}

void StepSheet::SetRows(const std::vector<app::TableRow>& rows) {
  const Quietly quietly(quiet_);
  SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
  const auto count = static_cast<int>(rows.size());
  const bool hasOtherCount = rows.size() != rows_.size();
  for (int row = ListView_GetItemCount(list_); row > count; --row) ListView_DeleteItem(list_, row - 1);
  for (int row = ListView_GetItemCount(list_); row < count; ++row) InsertRow(list_, row);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (std::size_t column = 0; column < rows[row].size(); ++column) {
      const bool isThere = row < rows_.size() && rows_[row][column] == rows[row][column];
      if (!isThere) SetCell(list_, static_cast<int>(row), static_cast<int>(column), rows[row][column]);
    }
  }
  rows_ = rows;
  SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
  // A scroll bar may have come or gone.
  if (hasOtherCount) FillWidth();
  InvalidateRect(list_, nullptr, TRUE);
}

void StepSheet::SetSelection(const app::TableSelection& selection) {
  const Quietly quietly(quiet_);
  constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
  const int before = CurrentRow();
  for (int row = 0; row < ListView_GetItemCount(list_); ++row) {
    const bool isSelected = std::ranges::binary_search(selection.rows, row);
    const UINT state = (isSelected ? LVIS_SELECTED : 0U) | (row == selection.current ? LVIS_FOCUSED : 0U);
    if (ListView_GetItemState(list_, row, kBoth) != state) ListView_SetItemState(list_, row, state, kBoth);
  }
  if (selection.current < 0 || selection.current == before) return;
  ListView_EnsureVisible(list_, selection.current, FALSE);
  ListView_SetSelectionMark(list_, selection.current);
}

void StepSheet::TellSelection() {
  tells_ = false;
  if (list_ == nullptr) return;
  app::TableSelection selection;
  for (int row = -1; (row = ListView_GetNextItem(list_, row, LVNI_SELECTED)) >= 0;)
    selection.rows.push_back(row);
  const bool isAmong = std::ranges::binary_search(selection.rows, CurrentRow());
  selection.current = isAmong ? CurrentRow() : selection.rows.empty() ? -1 : selection.rows.back();
  logic_->OnSelect(selection);
}

LRESULT StepSheet::OnNotify(const NMHDR& event) {
  switch (event.code) {
    case LVN_ITEMCHANGED:
      if (IsEdited() && !quiet_ && !std::exchange(tells_, true))
        PostMessageW(GetParent(list_), kSelectionChanged, 0, 0);
      return 0;
    case NM_CLICK:
      column_ = std::max(reinterpret_cast<const NMITEMACTIVATE&>(event).iSubItem, 0);
      InvalidateRect(list_, nullptr, FALSE);
      return 0;
    case NM_DBLCLK: {
      const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(event);
      if (click.iItem >= 0) BeginEdit(click.iItem, std::max(click.iSubItem, 0));
      return 0;
    }
    case LVN_BEGINSCROLL:
      LeaveEdit();
      return 0;
    case NM_CUSTOMDRAW:
      return DrawCell(event);
    default:
      return 0;
  }
}

// The list knows of a row that the keyboard stands on; of the cell it is told here.
LRESULT StepSheet::DrawCell(const NMHDR& event) {
  const auto& draw = reinterpret_cast<const NMLVCUSTOMDRAW&>(event);
  const auto row = static_cast<int>(draw.nmcd.dwItemSpec);
  switch (draw.nmcd.dwDrawStage) {
    case CDDS_PREPAINT:
      return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT:
      return CDRF_NOTIFYPOSTPAINT;
    case CDDS_ITEMPOSTPAINT:
      if (IsEdited() && row == CurrentRow() && GetFocus() == list_) {
        RECT cell = CellRect(row, column_);
        InflateRect(&cell, -1, -1);  // off the grid
        FrameRect(draw.nmcd.hdc, &cell, GetSysColorBrush(COLOR_HIGHLIGHTTEXT));
      }
      return CDRF_DODEFAULT;
    default:
      return CDRF_DODEFAULT;
  }
}

RECT StepSheet::CellRect(int row, int column) const {
  RECT cell{};
  // The bounds of the first cell would be those of the row.
  ListView_GetSubItemRect(list_, row, column, column == 0 ? LVIR_LABEL : LVIR_BOUNDS, &cell);
  return cell;
}

void StepSheet::MoveColumn(int by) {
  column_ = std::clamp(column_ + by, 0, std::max(columns_ - 1, 0));
  InvalidateRect(list_, nullptr, FALSE);
}

LRESULT CALLBACK StepSheet::ListProcedure(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                                          DWORD_PTR sheet) {
  auto& self = *reinterpret_cast<StepSheet*>(sheet);
  switch (message) {
    case WM_KEYDOWN:
      if (self.OnKeyDown(static_cast<int>(first))) return 0;
      break;
    case WM_CHAR:
      if (self.OnCharacter(static_cast<wchar_t>(first))) return 0;
      break;
    case WM_COMMAND:
      if (HIWORD(first) == EN_CHANGE) self.MarkWrong(false);
      break;
    case WM_CTLCOLOREDIT:
      if (self.wrong_) SetTextColor(reinterpret_cast<HDC>(first), kWrongColor);
      return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    case WM_NCDESTROY:
      self.list_ = nullptr;
      break;
    default:
      break;
  }
  return DefSubclassProc(window, message, first, second);
}

bool StepSheet::OnKeyDown(int key) {
  const bool ctrl = IsHeld(VK_CONTROL);
  if (!ctrl && key == VK_F2) return BeginEdit(CurrentRow(), column_), true;
  if (!ctrl && IsEdited() && (key == VK_LEFT || key == VK_RIGHT))
    return MoveColumn(key == VK_LEFT ? -1 : 1), true;
  if (ctrl && key == VK_TAB) return SendMessageW(GetParent(list_), kOtherSheet, 0, 0), true;
  if (IsHeld(VK_SHIFT)) return false;
  // The selection that a key before this one has changed.
  if (tells_) TellSelection();
  return logic_->OnKey(sheet_, key, ctrl);
}

bool StepSheet::OnCharacter(wchar_t character) {
  // Keys have been taken as keys, and the list is not to look for what is typed.
  if (!IsEdited() || character <= L' ') return true;
  BeginEdit(CurrentRow(), column_);
  if (edit_ != nullptr) SendMessageW(edit_, WM_CHAR, character, 0);
  return true;
}

}  // namespace win32
