#pragma once

// The step table's window in memory, with what its user does to its lists.

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/step_table_window.h"
#include "app/window/numbers.h"
#include "app/window/step_table_port.h"

namespace headless {

class StepTable final : public app::StepTablePort {
 public:
  void Open() override {
    if (!std::exchange(isOpen, true)) sheets = {}, selection = {}, fault.clear(), edited.reset();
    ++opened;
  }
  void Close() override { isOpen = false; }
  void SetTitle(std::u16string_view text) override { title = text; }
  void SetHeadings(app::TableSheet sheet, std::u16string_view name, const app::TableRow& columns) override {
    At(sheet).name = name;
    At(sheet).columns = columns;
  }
  void SetRows(app::TableSheet sheet, const std::vector<app::TableRow>& rows) override {
    At(sheet).rows = rows;
    ++At(sheet).fills;
    if (sheet != app::TableSheet::Steps) return;
    std::erase_if(selection.rows,
                  [&rows](std::int32_t row) { return row >= static_cast<std::int32_t>(rows.size()); });
    if (selection.rows.empty()) selection.current = -1;
  }
  void SetSelection(const app::TableSelection& rows) override {
    selection = rows;
    ++selections;
  }
  void SetFault(std::u16string_view text) override { fault = text; }
  void SetClipboard(std::u16string_view text) override { clipboard = text; }
  std::u16string Clipboard() const override { return clipboard; }

  // What the user does.

  void Click(app::StepTableWindow& logic, std::int32_t row, bool ctrl, bool shift) {
    LeaveCell(logic);
    if (shift) {
      SelectFrom(std::max(anchor_, 0), row);
    } else if (ctrl) {
      Turn(row);
    } else {
      selection.rows = {row};
    }
    if (!shift) anchor_ = row;
    const bool isAmong = std::ranges::binary_search(selection.rows, row);
    selection.current = isAmong ? row : selection.rows.empty() ? -1 : selection.rows.back();
    logic.OnSelect(selection);
  }

  /// Types into a cell, if it may be edited, and presses Enter or Escape.
  void Type(app::StepTableWindow& logic, std::int32_t row, int column, std::u16string_view text, int key) {
    if (edited != std::pair(row, column)) {
      Click(logic, row, false, false);
      if (!logic.OnEdit()) return;
      edited = {row, column};
    }
    typed_ = text;
    Press(logic, key, false);
  }

  void Press(app::StepTableWindow& logic, int key, bool ctrl) {
    if (!edited) {
      MoveBy(logic, logic.OnKey(seen, key, ctrl) ? 0
                    : key == app::key::kDown     ? 1
                    : key == app::key::kUp       ? -1
                                                 : 0);
    } else if (key == app::key::kEscape) {
      edited.reset();
      logic.OnEditGivenUp();
    } else if (key == app::key::kEnter && logic.OnTyped(edited->first, edited->second, typed_, true)) {
      edited.reset();
    }
  }

  struct Sheet {
    std::u16string name;
    app::TableRow columns;
    std::vector<app::TableRow> rows;
    int fills = 0;  // since it was opened
  };
  Sheet& At(app::TableSheet which) { return sheets.at(static_cast<std::size_t>(which)); }

  bool isOpen = false;
  int opened = 0;      // or brought to the front, since the start
  int selections = 0;  // shown, since the start
  std::u16string title;
  std::array<Sheet, app::kTableSheetCount> sheets;
  app::TableSelection selection;
  app::TableSheet seen = app::TableSheet::Steps;  // of the two
  std::u16string fault;
  std::u16string clipboard;
  std::optional<std::pair<std::int32_t, int>> edited;  // row and column of the cell that is edited

 private:
  void LeaveCell(app::StepTableWindow& logic) {
    if (const auto cell = std::exchange(edited, std::nullopt)) {
      logic.OnTyped(cell->first, cell->second, typed_, false);
    }
  }
  void SelectFrom(std::int32_t first, std::int32_t last) {
    selection.rows.clear();
    for (std::int32_t row = std::min(first, last); row <= std::max(first, last); ++row)
      selection.rows.push_back(row);
  }
  void Turn(std::int32_t row) {
    const auto place = std::ranges::lower_bound(selection.rows, row);
    if (place != selection.rows.end() && *place == row) {
      selection.rows.erase(place);
    } else {
      selection.rows.insert(place, row);
    }
  }
  void MoveBy(app::StepTableWindow& logic, std::int32_t rows) {
    const auto count = static_cast<std::int32_t>(At(app::TableSheet::Steps).rows.size());
    if (rows == 0 || count == 0) return;
    Click(logic, std::clamp(selection.current + rows, 0, count - 1), false, false);
  }

  std::int32_t anchor_ = 0;  // where Shift selects from
  std::u16string typed_;
};

}  // namespace headless
