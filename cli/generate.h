#pragma once

// The kinds of "generate", by the file that holds them.

#include "cli/session.h"

namespace cli {

// generate_sun.cpp
extern const Command kGenerateSun;
extern const Command kGenerateSeason;

// generate_moon.cpp
extern const Command kGenerateMoon;

// generate_ramp.cpp
extern const Command kGenerateRamp;
extern const Command kGenerateAcclimation;

}  // namespace cli
