#pragma once

// What a user does in the step table, for scripts.h.

#include "tests/support/scripts.h"

namespace scripts {

/// Cells are typed into, steps come and go, and all of it is taken back.
void EditStepsInTheTable(User& user, const Folders& folders);
/// Each cell says what is wrong, and nothing changes.
void TypeWrongIntoTheTable(User& user, const Folders& folders);
/// As the program's own text, and as cells of a spreadsheet.
void CarryStepsOverTheClipboard(User& user, const Folders& folders);
/// A row that is selected is a step that is selected, and the other way.
void SelectInTableAndChart(User& user, const Folders& folders);
/// With Shift, Ctrl and for the whole channel.
void SelectSeveralRows(User& user, const Folders& folders);
/// While a demo plays the steps are only read.
void LookAtTheTableDuringADemo(User& user, const Folders& folders);
/// Whatever is done, in whichever window: what is saved is what the table says.
void TheTableSaysWhatTheChartShows(User& user, const Folders& folders);

}  // namespace scripts
