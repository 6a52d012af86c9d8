#pragma once

// The window of the step table, as the application speaks to it. A shell implements it over a real window,
// the headless shell of the tests in memory. What its user does goes to app::StepTableWindow
// (app/step_table_window.h). User interface thread; texts are finished, translated and UTF-16.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app {

/// A list of the window. One of them is seen at a time, which is the user's choice.
enum class TableSheet {
  Steps,   // of one channel: time, percent, fade or jump; edited in place
  Merged,  // the mode's rows as a controller gets them; only read
};
inline constexpr int kTableSheetCount = 2;

/// The columns of TableSheet::Steps.
namespace table_column {
inline constexpr int kTime = 0;
inline constexpr int kPercent = 1;
inline constexpr int kJump = 2;
inline constexpr int kCount = 3;
}  // namespace table_column

/// The cells of a row, from left to right.
using TableRow = std::vector<std::u16string>;

/// What is selected in TableSheet::Steps.
struct TableSelection {
  std::vector<std::int32_t> rows;  // ascending
  std::int32_t current = -1;       // where the keyboard stands, one of `rows`; -1 if nothing is selected

  friend bool operator==(const TableSelection&, const TableSelection&) = default;
};

/// A window beside the main one, which takes turns with it: neither waits for the other. It goes with the
/// main window at the latest. Nothing that is called here makes it tell the application anything. But for
/// Open and the clipboard's, operations do nothing while it is closed.
class StepTablePort {
 public:
  virtual ~StepTablePort() = default;

  /// Opens the window beside the main one, empty, or brings it to the front; keys go to its list.
  virtual void Open() = 0;
  virtual void Close() = 0;
  virtual void SetTitle(std::u16string_view title) = 0;
  /// What the sheet is called, and what stands above its columns.
  virtual void SetHeadings(TableSheet sheet, std::u16string_view name, const TableRow& columns) = 0;
  /// These rows take the place of those that stood there, as many cells in each as there are columns. Where
  /// the user has scrolled to and what is selected stay as far as there are rows.
  virtual void SetRows(TableSheet sheet, const std::vector<TableRow>& rows) = 0;
  /// The current row is scrolled to if it was another one before.
  virtual void SetSelection(const TableSelection& selection) = 0;
  /// Says below the lists what is wrong with what was typed or asked for; read out, too. Empty: nothing.
  virtual void SetFault(std::u16string_view text) = 0;

  /// The system's clipboard, as plain text. Lines are ended by CR LF or by LF, as they come.
  virtual void SetClipboard(std::u16string_view text) = 0;
  /// Empty if it holds no text.
  virtual std::u16string Clipboard() const = 0;
};

}  // namespace app
