#pragma once

// What the user does to the selected channel and its selected step. Nothing happens without a selected
// channel; a step index is checked, since it may be stale. User interface thread.

#include <cstdint>

#include "program/program.h"

namespace TCBase::Program {

/// The steps copied last, kept until the next copy.
struct StepClipboard {
  Channel steps;
  bool filled = false;
};

/// The channel of the current mode that is selected, or null.
Channel* SelectedChannel(const StepSelection& selection);
/// The selected step, or null where channel or step are out of range.
Step* SelectedStep(const StepSelection& selection);

/// Removes all steps on the selected step's minute, if the channel has more than two. The selection stays at
/// its index, or moves to the last step that is left (-1 if none is).
void DeleteSelectedStep(StepSelection& selection);
/// Moves the selected step by hours, minutes and percent and brings it back into range. A step does not go
/// back before 00:00, but from 23:59 on to 00:00. It is not sorted in, and may come to stand on another's
/// minute.
void NudgeSelectedStep(const StepSelection& selection, std::int32_t hours, std::int32_t minutes, float value);
/// Takes the channel's steps into the clipboard.
void CopyChannelSteps(const StepSelection& selection, StepClipboard& clipboard);
/// Replaces the channel's steps by those of the clipboard. False if nothing was copied yet or none is
/// selected.
bool PasteChannelSteps(const StepSelection& selection, const StepClipboard& clipboard);
/// Leaves two steps, 08:00 and 22:00 at 0, and selects nothing.
void ClearChannel(StepSelection& selection);
/// Swaps the steps with those of the channel above or below, in the current mode, and selects that one: the
/// selection follows the curve. Names and colours stay where they are.
void MoveChannelUp(StepSelection& selection);
void MoveChannelDown(StepSelection& selection);

}  // namespace TCBase::Program
