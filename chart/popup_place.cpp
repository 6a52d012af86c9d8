#include "chart/popup_place.h"

#include "chart/heading.h"
#include "common/truncate.h"

namespace UX {

namespace {

// A quarter turn, a full turn on, and the 64th part of a turn.
constexpr float kSweepStart = 1.570795F;
constexpr float kSweepEnd = 7.8539753F;
constexpr float kSweepStep = 0.09817469F;

bool IsWithin(const Rect& box, const Rect& allowed) {
  return box.x >= allowed.x && box.y >= allowed.y && box.x + box.width <= allowed.x + allowed.width &&
         box.y + box.height <= allowed.y + allowed.height;
}

bool IsClearOf(const Rect& box, const Rect& avoid) {
  return box.x >= avoid.x + avoid.width || box.y >= avoid.y + avoid.height || box.x + box.width <= avoid.x ||
         box.y + box.height <= avoid.y;
}

struct Sweep {
  Rect place;   // the last one tried
  float angle;  // at which the sweep stopped; kSweepEnd or more: found nothing
};

}  // namespace

Rect FindPopupPlace(const Rect& allowed, std::int32_t anchorX, std::int32_t anchorY, std::int32_t boxWidth,
                    std::int32_t boxHeight, std::int32_t radiusParameter, const Rect& avoid) {
  const Rect box{anchorX - boxWidth / 2, anchorY - boxHeight / 2, boxWidth, boxHeight};
  const auto radius = static_cast<float>(2 * radiusParameter);
  const auto search = [&](float direction) {
    Sweep sweep{box, kSweepStart};
    for (; sweep.angle < kSweepEnd; sweep.angle += kSweepStep) {
      const Point offset = Along({}, direction * sweep.angle, radius);
      sweep.place.x = TruncateToInt(offset.x) + box.x;
      sweep.place.y = TruncateToInt(offset.y) + box.y;
      if (IsWithin(sweep.place, allowed) && IsClearOf(sweep.place, avoid)) break;
    }
    return sweep;
  };
  const Sweep fromBelow = search(1.0F);
  const Sweep fromAbove = search(-1.0F);
  return fromAbove.angle > fromBelow.angle ? fromBelow.place : fromAbove.place;
}

}  // namespace UX
