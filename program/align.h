#pragma once

#include "program/program.h"

namespace TCBase::Program {

/// Moves a mode's steps to a grid: `result` is `source` with every step at a multiple of `interval` minutes,
/// 1 or more (less counts as 1), and fresh ids. Within a channel every step moves to at least one interval
/// behind the one before it, also where that leads past midnight: it then comes out in the early morning. The
/// two may be the same mode. May exceed the limit of merged steps.
void AlignMode(const Mode& source, Mode& result, std::int32_t interval);

}  // namespace TCBase::Program
