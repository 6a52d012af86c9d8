#pragma once

// What drawing asks of a scene.

#include <cstdint>

#include "program/program.h"

namespace UX {

/// The steps that a lane, 0 to 4, shows; without a current mode, none.
const TCBase::Program::Channel& ChannelOfLane(const TCBase::Program::ModeListView& program,
                                              std::int32_t lane);

/// The nearest number to a pixel that a canvas takes (see kFarthest).
float WithinReach(std::int32_t pixel);

}  // namespace UX
