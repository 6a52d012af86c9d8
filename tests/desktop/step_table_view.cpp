#include "tests/desktop/step_table_view.h"

#include <array>
#include <cstddef>
#include <memory>
#include <type_traits>

// after windows.h
#include <commctrl.h>

#include "tests/desktop/window_text.h"

namespace desktop::step_table {

namespace {

constexpr int kTextUnits = 200;

struct CloseProcess {
  void operator()(HANDLE process) const { CloseHandle(process); }
};
using Process = std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseProcess>;

// A piece of the program's own memory: common controls of another process read and write there alone. It
// holds a struct and, behind it, room for a text.
template <class Struct>
class Lent {
 public:
  explicit Lent(HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    process_.reset(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id));
    place_ = VirtualAllocEx(process_.get(), nullptr, sizeof(Struct) + kTextUnits * sizeof(wchar_t),
                            MEM_COMMIT, PAGE_READWRITE);
  }
  ~Lent() { VirtualFreeEx(process_.get(), place_, 0, MEM_RELEASE); }
  Lent(const Lent&) = delete;
  Lent& operator=(const Lent&) = delete;

  wchar_t* TextPlace() const {
    return reinterpret_cast<wchar_t*>(static_cast<std::byte*>(place_) + sizeof(Struct));
  }
  LPARAM Write(const Struct& data) {
    WriteProcessMemory(process_.get(), place_, &data, sizeof data, nullptr);
    return reinterpret_cast<LPARAM>(place_);
  }
  Struct Read() const {
    Struct data{};
    ReadProcessMemory(process_.get(), place_, &data, sizeof data, nullptr);
    return data;
  }
  std::string ReadText() const {
    std::array<wchar_t, kTextUnits> text{};
    ReadProcessMemory(process_.get(), TextPlace(), text.data(), sizeof text, nullptr);
    text.back() = L'\0';
    return Utf8(text.data());
  }

 private:
  Process process_;
  void* place_ = nullptr;
};

int ColumnCount(HWND list) {
  const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
  return static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
}

std::string Joined(std::string text, const std::string& cell, bool isFirst) {
  return text.append(isFirst ? "" : " | ").append(cell);
}

}  // namespace

HWND FindWindowOf(HWND main) {
  for (HWND window = nullptr;
       (window = FindWindowExW(nullptr, window, L"LumarineStepTable", nullptr)) != nullptr;) {
    if (GetWindow(window, GW_OWNER) == main && IsWindowVisible(window)) return window;
  }
  return nullptr;
}

HWND ListOf(HWND table, app::TableSheet sheet) {
  // The later one lies in front.
  const HWND front = FindWindowExW(table, nullptr, WC_LISTVIEWW, nullptr);
  const HWND behind = FindWindowExW(table, front, WC_LISTVIEWW, nullptr);
  return sheet == app::TableSheet::Merged ? front : behind;
}

std::string TabText(HWND table, app::TableSheet sheet) {
  const HWND tabs = FindWindowExW(table, nullptr, WC_TABCONTROLW, nullptr);
  Lent<TCITEMW> lent(tabs);
  TCITEMW item{};
  item.mask = TCIF_TEXT;
  item.pszText = lent.TextPlace();
  item.cchTextMax = kTextUnits;
  SendMessageW(tabs, TCM_GETITEMW, static_cast<WPARAM>(sheet), lent.Write(item));
  return lent.ReadText();
}

std::string Columns(HWND list) {
  std::string text;
  for (int column = 0; column < ColumnCount(list); ++column) {
    Lent<LVCOLUMNW> lent(list);
    LVCOLUMNW told{};
    told.mask = LVCF_TEXT;
    told.pszText = lent.TextPlace();
    told.cchTextMax = kTextUnits;
    SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column), lent.Write(told));
    text = Joined(std::move(text), lent.ReadText(), column == 0);
  }
  return text;
}

std::vector<std::string> Rows(HWND list) {
  std::vector<std::string> rows;
  Lent<LVITEMW> lent(list);
  const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
  const int columns = ColumnCount(list);
  for (int row = 0; row < count; ++row) {
    std::string text;
    for (int column = 0; column < columns; ++column) {
      LVITEMW item{};
      item.iSubItem = column;
      item.pszText = lent.TextPlace();
      item.cchTextMax = kTextUnits;
      SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), lent.Write(item));
      text = Joined(std::move(text), lent.ReadText(), column == 0);
    }
    rows.push_back(std::move(text));
  }
  return rows;
}

std::vector<int> SelectedRows(HWND list) {
  std::vector<int> rows;
  for (int row = -1; (row = static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(row),
                                                          MAKELPARAM(LVNI_SELECTED, 0)))) >= 0;) {
    rows.push_back(row);
  }
  return rows;
}

POINT CellPoint(HWND list, int row, int column) {
  SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  Lent<RECT> lent(list);
  // In: which part of which cell.
  const RECT asked{column == 0 ? LVIR_LABEL : LVIR_BOUNDS, column, 0, 0};
  SendMessageW(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), lent.Write(asked));
  const RECT cell = lent.Read();
  POINT middle{(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
  ClientToScreen(list, &middle);
  return middle;
}

HWND EditedCell(HWND list) {
  const HWND field = FindWindowExW(list, nullptr, WC_EDITW, nullptr);
  return field != nullptr && IsWindowVisible(field) ? field : nullptr;
}

std::string Fault(HWND table) {
  const HWND fault = FindWindowExW(table, nullptr, WC_STATICW, nullptr);
  return IsWindowVisible(fault) ? WindowText(fault) : std::string();
}

}  // namespace desktop::step_table
