#pragma once

// Directions on the screen, in radians from 0 to 2 pi, clockwise from the right. 32-bit floats that are the
// same on every platform.

#include "chart/figure.h"

namespace UX {

float DistanceBetween(Point from, Point to);
/// The direction from `from` to `to`; 0 for two points that are one. `fullTurn` is where upward directions
/// are counted back from.
float AngleTo(Point from, Point to, float fullTurn = 6.28318F);
/// The angle that AngleTo answers, but 0 for points so near that their direction is chance.
float HeadingTo(Point from, Point to);
/// The point `distance` away in a direction.
Point Along(Point from, float heading, float distance);

}  // namespace UX
