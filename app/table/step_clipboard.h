#pragma once

// Steps as plain text that travels over the clipboard, in two forms at once: as lines of the text that the
// program lets one type ("hh:mm value J", program/steps_text.h), and as cells for a spreadsheet.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/window/step_table_port.h"
#include "program/program.h"

namespace app {

/// A line for each step, ended by CR LF. A tab and a blank stand between time, percent and, for a jump, "J":
/// a spreadsheet takes the tabs for its cells, and who reads lines of steps goes by the blanks. The percent
/// is exact and has a point whatever the language.
std::u16string StepsForClipboard(const std::vector<TCBase::Program::Step>& steps);

/// Rows as cells for a spreadsheet, with a tab between, lines ended by CR LF.
std::u16string RowsForClipboard(const std::vector<TableRow>& rows);

/// What a text of the clipboard holds.
struct PastedSteps {
  std::vector<TCBase::Program::Step> steps;  // ascending, one a minute (of several the last); ids are 0
  std::int32_t wrongLine = 0;                // the first that is no step, counted from 1; 0 without one
};

/// Reads either form, line by line: with a tab it is cells, and otherwise words between blanks. A time is
/// read as it is typed into the table (TimeFromText), or with its seconds, which do not count, or as two
/// words; further cells and words are passed over. So are lines without any digit: headings, empty ones.
PastedSteps StepsFromClipboard(std::u16string_view text);

}  // namespace app
