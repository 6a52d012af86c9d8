#pragma once

// A mode's figures as a table for people, in their language.

#include <string>
#include <vector>

#include "program/figures/figures.h"

namespace TCBase::Program {

/// Cells of a row, UTF-8; all rows have as many.
using TableRow = std::vector<std::string>;

/// The channels' names as heads of columns: at most `letters` code points, with dots where one was cut;
/// "Channel {1}" for one without a name.
std::array<std::string, kChannelCount> ColumnNames(const ModeListView& document, std::size_t letters);

/// A row of heads, and one for each figure: its name, the five channels, and all together. A figure that no
/// channel has is left out; one that a channel has not is "-".
std::vector<TableRow> FiguresTable(const std::array<std::string, kChannelCount>& names,
                                   const ModeFigures& figures, const LampFacts& facts);

/// What the table does not say itself: what a month is, and what "all" means. UTF-8.
std::string FiguresNote();

}  // namespace TCBase::Program
