#include "chart/cursor_follower.h"

#include "chart/heading.h"

namespace UX {

namespace {

constexpr float kSecondsPerPixel = 0.0002F;

}  // namespace

void CursorFollower::MouseMoved(std::int32_t x, std::int32_t y) {
  const Point mouse{static_cast<float>(x), static_cast<float>(y)};
  followerPosition_ = Position();
  followerGoal_ = mouse;
  followerHeading_ = HeadingTo(followerPosition_, mouse);
  const float distance = DistanceBetween(followerPosition_, mouse);
  followerTravel_.from = 0.0F;
  followerTravel_.to = followerTravel_.goal = distance;
  followerTravel_.duration = distance * kSecondsPerPixel;
  followerTravel_.curve = bumper_base::BumperCurve::EaseOut;
  followerTravel_.timer.Reset();
}

Point CursorFollower::Position() {
  // Direction and distance bring it to within a fraction of a pixel, which may be another minute than that
  // of the pixel itself.
  if (!(followerTravel_.RunTime() < followerTravel_.duration)) return Bounded(followerGoal_);
  return Bounded(Along(followerPosition_, followerHeading_, followerTravel_.Value()));
}

}  // namespace UX
