#pragma once

// What a program holds before the user has done anything: two modes, the channel table and the palette that
// channels cycle through. Names and descriptions are translated when a mode is built and plain text from then
// on.

#include <cstdint>
#include <string>

#include "program/program.h"

namespace TCBase::Program {

/// Fills an empty mode with the daily program: a day with a siesta on channels 1 to 4, a low background light
/// on channel 5.
void BuildNormalMode(Mode& mode);
/// Fills an empty mode with full light from 09:00 to 22:00 and through the night, for cleaning.
void BuildAlwaysOnMode(Mode& mode);
/// Appends both, the daily program first.
void BuildDefaultModes(ModeListView& document);
/// A document with the built-in modes, the default channel table and the whole day in view.
ModeListView NewProgram();

/// The colour that follows in the palette, a ring of six. After a colour that is not in it comes the first.
std::uint32_t NextChannelColor(std::uint32_t color);

/// What a mode added to the document is called unless the user says otherwise, as in PRG03.
std::u16string SuggestedModeName(const ModeListView& document);

}  // namespace TCBase::Program
