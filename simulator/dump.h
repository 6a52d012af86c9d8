#pragma once

// A controller's memory for other programs, docs/networks.md shows one.

#include <string>

#include "simulator/controller.h"

namespace sim {

/// JSON, ending in a line end. Text that is no UTF-8 gets U+FFFD in its place.
std::string DumpOf(const Controller& controller, const std::string& name);

}  // namespace sim
