#pragma once

// A step as the cells of a table, and back from what somebody types into one. Texts are UTF-8. The words for
// fade and jump are those of the language in use; all else is the same in every language.

#include <optional>
#include <string>
#include <string_view>

#include "app/window/step_table_port.h"
#include "program/program.h"

namespace app {

/// A percent as exactly as the document holds it, in the fewest digits: "40", "62.5".
std::string ExactPercent(float percent);
/// The same with no more than two digits behind the point, and the others cut off: what reads 100 is 100.
std::string ShownPercent(float percent);
/// Cells of TableSheet::Steps.
TableRow StepCells(const TCBase::Program::Step& step);
/// Cells of TableSheet::Merged: the time, and each channel's percent with a J behind it where it jumps.
TableRow MergedCells(const TCBase::Program::ModeStep& row);

// Blanks around what is typed do not count. Nothing: it is no time, no percent, neither word.

/// "8:30", "08:30", "0830", "830", "8"; 0:00 to 23:59.
std::optional<TCBase::Program::TimeOfDay> TimeFromText(std::string_view text);
/// 0 to 100, with a point or a comma before the fraction, and a percent sign or none.
std::optional<float> PercentFromText(std::string_view text);
/// The beginning of "jump" or of "fade", in English or in the language in use, where it is that of one of
/// them only; "J" is a jump in every language.
std::optional<bool> JumpFromText(std::string_view text);

}  // namespace app
