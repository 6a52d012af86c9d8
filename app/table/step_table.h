#pragma once

// What the step table shows and does: the steps of a channel as rows, and the mode's rows as a controller
// gets them. Remembers what it has shown, to show only what has changed. User interface thread.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/document/undo_stack.h"
#include "app/window/ports.h"
#include "app/window/refresh.h"
#include "app/window/step_table_port.h"
#include "chart/chart_layout.h"
#include "common/message.h"
#include "program/demo_state.h"
#include "program/program.h"
#include "program/step_group.h"

namespace app {

/// What the step table works on; all of it outlives the table.
struct StepTableParts {
  StepTablePort& window;
  const MainWindowPort& mainWindow;
  TCBase::Program::ModeListView& program;
  TCBase::Program::StepSelection& selection;
  TCBase::Program::StepGroup& group;
  UndoStack& undoStack;
  UX::ChartLayout& chartLayout;
  const TCBase::DemoState& demo;
  Refresh refresh;
};

class StepTable {
 public:
  explicit StepTable(const StepTableParts& parts);

  /// Opens the window or brings it to the front.
  void Open();
  /// Takes the window away; nothing if there is none.
  void Close();
  bool IsOpen() const { return open_; }
  /// Shows what has changed since the last time: the document, the selection, the mode. Cheap if nothing has,
  /// for each turn of the main loop.
  void Follow();
  /// Shows all anew, in the language in use.
  void ShowAnew();

  // What the user does in the window. Nothing of it changes the document while a demo runs or while a dialog
  // of the main window waits for the user.

  /// Rows of TableSheet::Steps were selected: so are their steps.
  void OnSelect(const TableSelection& selection);
  /// A cell of TableSheet::Steps is to be edited. False: it must not be now, and the window says why.
  bool OnEdit();
  /// The cell's editing was given up: nothing happens to the document.
  void OnEditGivenUp();
  /// A cell was edited. False: what was typed is wrong, the document is as it was, and the window says why;
  /// the cell may go on being edited. `goesOn`: the next row becomes the current one.
  bool OnTyped(std::int32_t row, int column, std::u16string_view text, bool goesOn);
  /// A key of namespace key, pressed in a list while no cell is edited. False if it is none of the table's
  /// keys: the list may make of it what lists do.
  bool OnKey(TableSheet sheet, int key, bool ctrl);

 private:
  /// What the window shows.
  struct Shown {
    std::string modeName;
    std::array<std::string, TCBase::Program::kChannelCount> channelNames;
    std::int32_t channel;
    std::array<TCBase::Program::Channel, TCBase::Program::kChannelCount> channels;
    TableSelection selection;
  };

  // step_table.cpp
  bool ShowsNames(const TCBase::Program::Mode& mode) const;
  bool ShowsSteps(const TCBase::Program::Mode& mode) const;
  void ShowNames(const TCBase::Program::Mode& mode);
  void ShowSteps(const TCBase::Program::Mode& mode);
  TableSelection SelectionToShow() const;
  void SelectChannel(std::int32_t channel);
  /// The next row becomes the current one, if there is one.
  void GoOn();
  void SelectAll();
  bool OnPlainKey(int key);
  bool OnCtrlKey(int key);

  // step_table_edits.cpp
  /// False while nothing may be changed; the window says why.
  bool MayChange();
  /// Those of the shown channel's steps that are selected, alone or with others, ascending.
  std::vector<std::int32_t> SelectedRows() const;
  /// These steps of the shown channel and no others; `current` is one of them.
  void SelectOnly(const std::vector<std::int32_t>& rows, std::int32_t current);
  void Insert();
  void Delete();
  void ToggleJumps();
  void Copy();
  void Cut();
  void Paste();
  /// Whether any of these may go; says it if not.
  bool MayDelete(const std::vector<std::int32_t>& rows);
  void DeleteRows(const std::vector<std::int32_t>& rows);
  /// Puts the channel in place of the shown one, as one entry of the history. False, and it stays, if the
  /// mode would have more rows than a controller takes, and more than it has.
  bool Replace(TCBase::Program::Channel channel);
  /// The same where one step has changed, which must not stand on another's minute.
  bool ReplaceStep(TCBase::Program::Channel channel, std::size_t row);
  /// Shows what was done or selected, here and on the chart.
  void Show();
  void Say(Message message);
  void SayTooMany();

  TCBase::Program::Channel* ShownChannel() const;

  StepTablePort& window_;
  const MainWindowPort& mainWindow_;
  TCBase::Program::ModeListView& program_;
  TCBase::Program::StepSelection& selection_;
  TCBase::Program::StepGroup& group_;
  UndoStack& undoStack_;
  UX::ChartLayout& chartLayout_;
  const TCBase::DemoState& demo_;
  const Refresh refresh_;

  bool open_ = false;
  std::int32_t channel_ = 0;    // the selected one, or the one that was so last
  std::optional<Shown> shown_;  // nothing: all is to be shown
  TableRow mergedColumns_;
};

}  // namespace app
