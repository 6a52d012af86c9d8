#include "chart/heading.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using UX::AngleTo;
using UX::Point;

constexpr float kPi = 3.14159265F;

TEST(Heading, AnglesGoClockwiseFromTheRight) {
  const Point here{100.0F, 50.0F};
  EXPECT_EQ(AngleTo(here, {130.0F, 50.0F}), 0.0F);
  EXPECT_FLOAT_EQ(AngleTo(here, {120.0F, 70.0F}), kPi / 4.0F);
  EXPECT_FLOAT_EQ(AngleTo(here, {100.0F, 90.0F}), kPi / 2.0F);
  EXPECT_FLOAT_EQ(AngleTo(here, {60.0F, 50.0F}), kPi);
  EXPECT_FLOAT_EQ(AngleTo(here, {100.0F, 20.0F}), 6.28318F - kPi / 2.0F);
}

TEST(Heading, AFullTurnIsAsLongAsTold) {
  EXPECT_FLOAT_EQ(AngleTo({0.0F, 30.0F}, {0.0F, 0.0F}, 2.0F * kPi), 1.5F * kPi);
}

TEST(Heading, TwoPointsThatAreOneHaveNoDirection) {
  EXPECT_EQ(AngleTo({7.0F, 8.0F}, {7.0F, 8.0F}), 0.0F);
}

// Above by so little that the distance is lost: the end of the full turn, not its beginning.
TEST(Heading, ADistanceThatIsLostLeavesAFullTurn) {
  EXPECT_EQ(AngleTo({0.0F, 1e-30F}, {0.0F, 0.0F}), 6.28318F);
  EXPECT_EQ(AngleTo({0.0F, 0.0F}, {0.0F, 1e-30F}), 0.0F);
}

TEST(Heading, IsDefinedForTinyDistances) {
  for (int power = -60; power > -80; --power) {
    const float x = std::ldexp(1.0F, power);
    for (const Point to : {Point{x, 0.0F}, Point{-x, x / 3.0F}, Point{x, -x}}) {
      const float angle = AngleTo({}, to);
      EXPECT_GE(angle, 0.0F);
      EXPECT_LE(angle, 6.28318F);
    }
  }
}

TEST(Heading, PointsNextToEachOtherHaveNoHeading) {
  EXPECT_EQ(UX::HeadingTo({5.0F, 5.0F}, {4.99995F, 5.00005F}), 0.0F);
  EXPECT_FLOAT_EQ(UX::HeadingTo({5.0F, 5.0F}, {4.999F, 5.0F}), kPi) << "one axis is enough";
}

TEST(Heading, GoingAlongAHeadingArrives) {
  const Point from{120.0F, 300.0F};
  for (const Point to : {Point{500.0F, 300.0F}, Point{80.0F, 310.0F}, Point{119.0F, -4.0F}}) {
    const Point arrived = UX::Along(from, AngleTo(from, to), UX::DistanceBetween(from, to));
    EXPECT_NEAR(arrived.x, to.x, 0.01F);
    EXPECT_NEAR(arrived.y, to.y, 0.01F);
  }
}

}  // namespace
