#pragma once

// Steps as text that a user types or reads: one step to a line, "hh:mm value [J]".

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "program/program.h"

namespace TCBase::Program {

/// Replaces `steps` by those of the UTF-8 text, in its order, with id 0. A line ends at a carriage return and
/// nowhere else, a word at a blank or a colon. A line counts if it has three or four words: hour, minute,
/// percent and, for a jump, "J" or "j"; another fourth word is ignored. A word that is no number is read as
/// 0. Numbers and times are clamped into range; minutes above 59 count on into the next hour. Returns how
/// many lines were passed over that hold more than blanks.
std::int32_t ParseStepsText(std::string_view text, std::vector<Step>& steps);

/// Does what InsertStepSorted would do for one step after the other, but in one go.
void InsertStepsSorted(Channel& channel, const std::vector<Step>& steps);

/// Inserts the steps of the text, each with a line in the log. Two on one minute are both inserted, the later
/// one in front; the channel may then be of any length. Returns what ParseStepsText does.
std::int32_t AddStepsFromText(Channel& channel, std::string_view text);

/// Puts the steps of the text in place of the channel's own, otherwise as AddStepsFromText.
std::int32_t ReplaceStepsFromText(Channel& channel, std::string_view text);

/// One line for each step, each ended by CR LF. ParseStepsText reads back the same steps but for fractions.
std::u16string StepsToText(const Channel& channel);

/// The merged table of every mode: a translated heading with its name, then a line for each row, as in "10:00
/// [80J, 80, 80, 80, 0]". Without line ends.
std::vector<std::string> ModeStepLines(const ModeListView& document);

/// Writes these lines to the log.
void LogModeSteps(const ModeListView& document);

}  // namespace TCBase::Program
