// The step table's window under the user's hands.

#include <gtest/gtest.h>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "tests/desktop/clipboard.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/input.h"
#include "tests/desktop/step_table_view.h"
#include "tests/desktop/window_text.h"

namespace desktop {

using app::TableSheet;

HWND DesktopUser::Table() {
  return step_table::FindWindowOf(program_->mainWindow());
}

HWND DesktopUser::TableSteps() {
  return step_table::ListOf(Table(), TableSheet::Steps);
}

bool DesktopUser::HasTable() {
  return Table() != nullptr;
}

void DesktopUser::CloseTable() {
  PostMessageW(Table(), WM_SYSCOMMAND, SC_CLOSE, 0);
  Settle();
}

std::string DesktopUser::TableTitle() {
  return WindowText(Table());
}

std::string DesktopUser::TableHeading(TableSheet sheet) {
  return step_table::TabText(Table(), sheet) + ": " + step_table::Columns(step_table::ListOf(Table(), sheet));
}

std::vector<std::string> DesktopUser::TableRows(TableSheet sheet) {
  return step_table::Rows(step_table::ListOf(Table(), sheet));
}

std::vector<int> DesktopUser::SelectedTableRows() {
  return step_table::SelectedRows(TableSteps());
}

void DesktopUser::ClickTableRow(int row, bool ctrl, bool shift) {
  if (ctrl) input::HoldKey(VK_CONTROL);
  if (shift) input::HoldKey(VK_SHIFT);
  input::Click(step_table::CellPoint(TableSteps(), row, 0));
  if (shift) input::ReleaseKey(VK_SHIFT);
  if (ctrl) input::ReleaseKey(VK_CONTROL);
  SettleInput();
}

void DesktopUser::TypeInTable(int row, int column, const std::string& text, int key) {
  GiveKeysToTheTable();
  const std::pair cell(row, column);
  if (step_table::EditedCell(TableSteps()) == nullptr || editedCell_ != cell) {
    input::Click(step_table::CellPoint(TableSteps(), row, column));
    SettleInput();
    PressKey(VK_F2, false);
    editedCell_ = cell;
  }
  if (step_table::EditedCell(TableSteps()) == nullptr) return;
  PressKey('A', true);
  for (const char16_t unit : WideFromUtf8(text)) input::TypeUnit(unit);
  if (text.empty()) PressKey(VK_DELETE, false);
  PressKey(key, false);
}

void DesktopUser::PressTableKey(int key, bool ctrl) {
  GiveKeysToTheTable();
  PressKey(key, ctrl);
}

void DesktopUser::GiveKeysToTheTable() {
  SetForegroundWindow(Table());
  Settle();
}

std::string DesktopUser::TableFault() {
  return step_table::Fault(Table());
}

std::string DesktopUser::Clipboard() {
  return TextOnClipboard();
}

void DesktopUser::SetClipboard(const std::string& text) {
  // With its own line ends, which are not to be doubled.
  std::string lines = text;
  std::erase(lines, '\r');
  EXPECT_TRUE(PutOnClipboard(lines));
}

}  // namespace desktop
