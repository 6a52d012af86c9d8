#pragma once

// What the logic does when the platform tells of an event at the window of the step table. A shell calls
// these as the events come and decides nothing itself. User interface thread.

#include <cstdint>
#include <string_view>

#include "app/window/step_table_port.h"

namespace app {

struct AppState;
class Commands;

class StepTableWindow {
 public:
  /// Both outlive the window.
  StepTableWindow(AppState& state, Commands& commands) : state_(state), commands_(commands) {}

  /// The user wants the window closed. StepTablePort::Close is called from here.
  void OnClose();
  /// Other rows of TableSheet::Steps are selected, by mouse or keyboard, or another one of them is current.
  void OnSelect(const TableSelection& selection);
  /// The user asks to edit a cell of TableSheet::Steps. False: the cell is not to be edited now.
  bool OnEdit();
  /// A cell was edited: with the Enter key, which `goesOn` to the next row, or by leaving it. True: the
  /// editing is over. False: what was typed is wrong, and StepTablePort::SetFault has said why; with Enter
  /// the cell goes on being edited as it is, and one that was left shows its old text.
  bool OnTyped(std::int32_t row, int column, std::u16string_view text, bool goesOn);
  /// The editing of a cell was given up.
  void OnEditGivenUp();
  /// A key that is pressed in a list without Shift and Alt while no cell is edited, numbers of namespace key
  /// and capitals. True: the key goes no further. False: the list makes of it what lists do with arrows, and
  /// F2 and what can be typed begin to edit. Commands whose keys are Ctrl and a letter are given from here,
  /// too, so that none of this window's keys goes to the main one's.
  bool OnKey(TableSheet sheet, int key, bool ctrl);

 private:
  AppState& state_;
  Commands& commands_;
};

}  // namespace app
