#include "chart/heading.h"

#include <algorithm>
#include <cmath>

namespace UX {

namespace {

constexpr float kNear = 0.0001F;  // pixels, along both axes

// The platforms' single-precision functions differ in the last bit. Their double-precision ones, rounded to
// single, do not show it.
float Cosine(float angle) {
  return static_cast<float>(std::cos(static_cast<double>(angle)));
}
float Sine(float angle) {
  return static_cast<float>(std::sin(static_cast<double>(angle)));
}
float ArcCosine(float cosine) {
  return static_cast<float>(std::acos(static_cast<double>(cosine)));
}

}  // namespace

float DistanceBetween(Point from, Point to) {
  const float x = to.x - from.x;
  const float y = to.y - from.y;
  return std::sqrt(x * x + y * y);
}

float AngleTo(Point from, Point to, float fullTurn) {
  const float distance = DistanceBetween(from, to);
  const bool upwards = from.y > to.y;
  if (!(distance > 0.0F)) return upwards ? fullTurn : 0.0F;
  // Squares of tiny numbers lose what keeps a cosine within 1.
  const float angle = ArcCosine(std::clamp((to.x - from.x) / distance, -1.0F, 1.0F));
  return upwards ? fullTurn - angle : angle;
}

float HeadingTo(Point from, Point to) {
  const bool together = std::fabs(to.x - from.x) < kNear && std::fabs(to.y - from.y) < kNear;
  return together ? 0.0F : AngleTo(from, to);
}

Point Along(Point from, float heading, float distance) {
  return {from.x + Cosine(heading) * distance, from.y + Sine(heading) * distance};
}

}  // namespace UX
