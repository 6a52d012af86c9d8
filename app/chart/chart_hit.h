#pragma once

// What lies under the mouse: the chart's geometry against the steps of the current mode. Reads only. Points
// are in the chart window's coordinates; user interface thread.

#include <cstdint>
#include <optional>

#include "chart/chart_layout.h"
#include "program/program.h"
#include "program/step_group.h"

namespace app {

using TCBase::Program::StepPlace;

/// The step that a press takes: the first within the radius of a marker, in the order of lanes and steps.
/// Looks into the lanes where they are at this moment, with what sticks out of them.
std::optional<StepPlace> HitStep(UX::ChartLayout& layout, const TCBase::Program::ModeListView& program,
                                 std::int32_t x, std::int32_t y);

/// The step that is marked as the one under the mouse: the nearest of all, in whatever lane, or none (-1, -1)
/// if that one is not within the radius. Nothing for a mode without steps.
std::optional<StepPlace> HoveredStep(UX::ChartLayout& layout, const TCBase::Program::ModeListView& program,
                                     std::int32_t x, std::int32_t y);

}  // namespace app
