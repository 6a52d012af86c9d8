#pragma once

// Modes by chance, for trying a controller out.

#include "program/program.h"

namespace TCBase::Program {

/// Appends a step with random time, value and jump, at a minute on which the channel has none; its place is
/// the end, in order or not. A channel with a step on every minute stays as it is. Draws from the C library's
/// rand().
void AddRandomStep(Channel& channel);

/// Adds two random steps to each channel and up to 14 more anywhere, and sorts the channels.
void FillRandomMode(Mode& mode);

}  // namespace TCBase::Program
