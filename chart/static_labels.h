#pragma once

// Text that stands still: hours, percents and the names of the channels. User interface thread.

#include <cstdint>
#include <string>

#include "chart/canvas.h"
#include "chart/renderer_base.h"

namespace UX {

/// Makes the labels of the axes: hours, for the present view, and percents. In a chart too small for them,
/// none.
void MakeAxisLabels(Canvas& canvas, const ChartScene& scene);
/// Makes the label of each channel's shown name.
void MakeChannelNames(Canvas& canvas, const ChartScene& scene);

/// What a channel, 0 to 4, is called: its name, or else its number in the user's language.
std::string ShownChannelName(const TCBase::Program::ModeListView& program, std::int32_t channel);

/// Draws those that belong to a lane, which is at `area` now. Begins and ends with the identity for the
/// canvas's transform.
void DrawLaneLabels(Canvas& canvas, std::int32_t lane, const Rect& area, const ChartLayout& layout);

}  // namespace UX
