#include "chart/scene_queries.h"

#include <algorithm>
#include <cstddef>

#include "chart/figure.h"

namespace UX {

using namespace TCBase::Program;

const Channel& ChannelOfLane(const ModeListView& program, std::int32_t lane) {
  static const Channel kNoSteps;
  const Mode* mode = FindCurrentMode(program);
  return mode != nullptr ? mode->channels[static_cast<std::size_t>(lane)] : kNoSteps;
}

float WithinReach(std::int32_t pixel) {
  return std::clamp(static_cast<float>(pixel), -kFarthest, kFarthest);
}

}  // namespace UX
