#pragma once

// The step table's window of the program under test, as one sees it from outside.

#include <string>
#include <vector>

#include "app/window/step_table_port.h"
#include "platform/win32/windows_headers.h"

namespace desktop::step_table {

/// The window; null while it is closed. `main` is the program's main window, which owns it.
HWND FindWindowOf(HWND main);

/// The list of a sheet.
HWND ListOf(HWND table, app::TableSheet sheet);
/// What the tab of a sheet says.
std::string TabText(HWND table, app::TableSheet sheet);
/// What stands above its columns, and its cells row by row, with " | " between.
std::string Columns(HWND list);
std::vector<std::string> Rows(HWND list);
std::vector<int> SelectedRows(HWND list);
/// The middle of a cell on the screen; the list is scrolled to it.
POINT CellPoint(HWND list, int row, int column);
/// The field over the cell that is edited; null if none is.
HWND EditedCell(HWND list);
/// What is wrong, if the window says anything of the kind.
std::string Fault(HWND table);

}  // namespace desktop::step_table
