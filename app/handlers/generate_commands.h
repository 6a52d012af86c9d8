#pragma once

// Handlers of the Mode menu's "New from ...": days of light that are made. Each shows its day on the chart
// while its dialog asks, and takes it back unless it is wanted.

#include "app/handlers/command_context.h"

namespace app {

Changed NewFromSun(CommandContext& context);
/// The current mode with moonlight in one channel.
Changed NewFromMoon(CommandContext& context);
Changed NewFromRampDay(CommandContext& context);
/// The current mode as it is on a day of a slow start; or the program on each of these days, as files.
Changed NewFromAcclimation(CommandContext& context);
/// Writes a file for each week of a year: this program with the week's day behind its modes.
Changed NewFromSeason(CommandContext& context);

}  // namespace app
