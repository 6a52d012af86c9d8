#pragma once

// A sheet of the step table: a list view, and the field over a cell that is edited in place.

#include <string>
#include <string_view>
#include <vector>

#include "app/step_table_window.h"
#include "app/window/step_table_port.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

class StepSheet {
 public:
  explicit StepSheet(app::TableSheet sheet) : sheet_(sheet) {}
  StepSheet(const StepSheet&) = delete;
  StepSheet& operator=(const StepSheet&) = delete;

  /// Posted to the parent when other rows are selected; the parent calls TellSelection.
  static constexpr UINT kSelectionChanged = WM_APP + 1;
  /// Sent to the parent when the user asks for the other sheet.
  static constexpr UINT kOtherSheet = WM_APP + 2;

  void Connect(app::StepTableWindow& logic) { logic_ = &logic; }
  /// Makes the list, hidden and empty. It goes with its parent.
  void Create(HWND parent);
  HWND Handle() const { return list_; }
  void Move(const RECT& place);
  /// `name` is what assistive technology calls the list.
  void SetColumns(std::u16string_view name, const app::TableRow& columns);
  void SetRows(const std::vector<app::TableRow>& rows);
  void SetSelection(const app::TableSelection& selection);
  /// The cell that is edited is left, and what was typed into it with it.
  void DropEdit();
  void TellSelection();

  // Messages that come to the parent.

  LRESULT OnNotify(const NMHDR& event);

 private:
  static LRESULT CALLBACK ListProcedure(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                                        DWORD_PTR sheet);
  static LRESULT CALLBACK EditProcedure(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                                        DWORD_PTR sheet);

  bool IsEdited() const { return sheet_ == app::TableSheet::Steps; }
  /// LVCFMT_LEFT and so on.
  int AlignmentOf(int column) const;
  int CurrentRow() const;
  void FillWidth();
  void MoveColumn(int by);
  LRESULT DrawCell(const NMHDR& event);
  /// Of a cell, in the list's coordinates.
  RECT CellRect(int row, int column) const;

  // Keys of the list. True: the key goes no further.
  bool OnKeyDown(int key);
  bool OnCharacter(wchar_t character);

  // The field.
  void BeginEdit(int row, int column);
  bool OnEditKey(int key);
  /// By a key: the field stays if what was typed is wrong.
  void FinishEdit(bool goesOn);
  /// By going elsewhere.
  void LeaveEdit();
  /// Takes the field away.
  void EndEdit();
  std::u16string Typed() const;
  void MarkWrong(bool wrong);

  const app::TableSheet sheet_;
  app::StepTableWindow* logic_ = nullptr;
  HWND list_ = nullptr;
  std::vector<app::TableRow> rows_;
  int columns_ = 0;
  int column_ = 0;      // that the keyboard stands on
  bool quiet_ = false;  // changes of the selection are not the user's
  bool tells_ = false;  // kSelectionChanged is on its way

  HWND edit_ = nullptr;  // null while no cell is edited
  int editRow_ = 0;
  int editColumn_ = 0;
  bool wrong_ = false;  // what was typed
};

}  // namespace win32
