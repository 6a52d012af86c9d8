#include "chart/cursor_follower.h"

#include "chart/heading.h"

namespace UX {

namespace {

constexpr float kSecondsPerPixel = 0.0002F;

}  // namespace

void CursorFollower::MouseMoved(std::int32_t x, std::int32_t y) {
  const Point mouse{static_cast<float>(x), static_cast<float>(y)};
  followerPosition_ = Position();
  followerHeading_ = HeadingTo(followerPosition_, mouse);
  const float distance = DistanceBetween(followerPosition_, mouse);
  followerTravel_.from = 0.0F;
  followerTravel_.to = followerTravel_.goal = distance;
  followerTravel_.duration = distance * kSecondsPerPixel;
  followerTravel_.curve = bumper_base::BumperCurve::EaseOut;
  followerTravel_.timer.Reset();
}

Point CursorFollower::Position() {
  return Bounded(Along(followerPosition_, followerHeading_, followerTravel_.Value()));
}

}  // namespace UX
