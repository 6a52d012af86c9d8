#pragma once

// The line of a channel's curve.

#include "chart/chart_layout.h"
#include "chart/figure.h"
#include "program/program.h"

namespace UX {

/// Replaces `line` by the curve over the whole day, from 00:00 to the last minute, in whole pixels. Empty for
/// fewer than two steps. What lies outside the view is part of it.
///
/// More than four points that follow one another in one column of pixels are thinned to the first, the
/// lowest, the highest and the last: the line covers the same pixels, and costs no more than the columns do.
void BuildCurveLine(Figure& line, const TCBase::Program::Channel& channel, const Rect& lane,
                    const TCBase::Program::ModeListView& view);

}  // namespace UX
