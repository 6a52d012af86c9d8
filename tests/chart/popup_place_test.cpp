#include "chart/popup_place.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using UX::FindPopupPlace;
using UX::Rect;

// A balloon of 40 by 30 on a circle of 32 pixels.
constexpr int kWidth = 40;
constexpr int kHeight = 30;
constexpr int kRadiusParameter = 16;
constexpr int kRadius = 2 * kRadiusParameter;
constexpr Rect kNothing{};

// The box whose centre is off the anchor (200, 200) by so much.
constexpr Rect BoxAt(int x, int y) {
  return {200 + x - kWidth / 2, 200 + y - kHeight / 2, kWidth, kHeight};
}

Rect Find(const Rect& allowed, const Rect& avoid = kNothing) {
  return FindPopupPlace(allowed, 200, 200, kWidth, kHeight, kRadiusParameter, avoid);
}

bool IsWithin(const Rect& box, const Rect& allowed) {
  return box.x >= allowed.x && box.y >= allowed.y && box.x + box.width <= allowed.x + allowed.width &&
         box.y + box.height <= allowed.y + allowed.height;
}

bool Overlap(const Rect& a, const Rect& b) {
  return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

constexpr Rect kEverywhere{0, 0, 400, 400};

// Both sweeps stop at once: the one from above has it.
TEST(PopupPlace, IsAboveTheStepWhereThereIsRoomOnAllSides) {
  EXPECT_EQ(Find(kEverywhere), BoxAt(0, -kRadius));
}

TEST(PopupPlace, IsBelowWhereThereIsNoRoomAbove) {
  EXPECT_EQ(Find({0, 170, 400, 230}), BoxAt(0, kRadius));
}

TEST(PopupPlace, IsAboveWhereThereIsNoRoomBelow) {
  EXPECT_EQ(Find({0, 0, 400, 230}), BoxAt(0, -kRadius));
}

// Room for a box beside the anchor only: both sweeps come by the left first, equally soon.
TEST(PopupPlace, GoesToTheLeftBeforeTheRight) {
  const Rect row{0, 180, 400, 40};
  const Rect place = Find(row);
  EXPECT_LT(place.x, BoxAt(0, 0).x);
  EXPECT_TRUE(IsWithin(place, row));
  EXPECT_LE(place.y, BoxAt(0, 0).y) << "the sweep from above comes down to the row";
}

TEST(PopupPlace, GoesToTheRightAtTheLeftEdge) {
  const Rect corner{185, 180, 215, 40};
  const Rect place = Find(corner);
  EXPECT_TRUE(IsWithin(place, corner));
  EXPECT_GT(place.x, BoxAt(0, 0).x);
}

TEST(PopupPlace, KeepsClearOfTheMarker) {
  const Rect above{190, 150, 20, 20};
  EXPECT_EQ(Find(kEverywhere, above), BoxAt(0, kRadius)) << "the other side is free at once";

  const Rect aboveAndBelow{195, 150, 10, 100};
  const Rect place = Find(kEverywhere, aboveAndBelow);
  EXPECT_FALSE(Overlap(place, aboveAndBelow));
  EXPECT_LE(place.x + kWidth, aboveAndBelow.x) << "on the left";
}

TEST(PopupPlace, MayTouchTheEdgeOfTheMarker) {
  const Rect box = BoxAt(0, -kRadius);
  EXPECT_EQ(Find(kEverywhere, {box.x + kWidth, box.y, 10, kHeight}), box);
  EXPECT_EQ(Find(kEverywhere, {box.x - 10, box.y, 10, kHeight}), box);
  EXPECT_EQ(Find(kEverywhere, {box.x, box.y + kHeight, kWidth, 10}), box);
  EXPECT_EQ(Find(kEverywhere, {box.x, box.y - 10, kWidth, 10}), box);
  EXPECT_NE(Find(kEverywhere, {box.x + kWidth - 1, box.y, 10, kHeight}), box);
}

TEST(PopupPlace, MayFillTheAllowedAreaExactly) {
  const Rect box = BoxAt(0, kRadius);
  EXPECT_EQ(Find(box), box);
}

TEST(PopupPlace, HalvesOddSizesDownward) {
  EXPECT_EQ(FindPopupPlace(kEverywhere, 200, 200, 43, 31, kRadiusParameter, kNothing),
            (Rect{200 - 21, 200 - kRadius - 15, 43, 31}));
}

// A full turn later the sweep from above is back above the anchor; it tries nothing after that.
TEST(PopupPlace, WithoutRoomItIsTheLastPlaceTried) {
  EXPECT_EQ(Find({0, 0, 10, 10}), BoxAt(0, -kRadius));
  EXPECT_EQ(Find({0, 0, -140, -166}), BoxAt(0, -kRadius)) << "a window too small to have lanes";
}

TEST(PopupPlace, WithoutARadiusItIsOnTheStepOrNowhere) {
  EXPECT_EQ(FindPopupPlace(kEverywhere, 200, 200, kWidth, kHeight, 0, kNothing), BoxAt(0, 0));
}

TEST(PopupPlace, FitsIfThereIsRoomOnAnySide) {
  std::mt19937 random(20);
  const auto between = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
  constexpr Rect kAllowed{10, 0, 884, 602};
  int found = 0;
  for (int i = 0; i < 5000; ++i) {
    const int x = between(0, 900);
    const int y = between(-5, 610);
    const int width = between(1, 80);
    const int height = between(1, 60);
    const int parameter = between(8, 30);
    const Rect avoid{between(x - 60, x + 60), between(y - 60, y + 60), 20, 20};
    const auto fits = [&](const Rect& box) { return IsWithin(box, kAllowed) && !Overlap(box, avoid); };
    const auto sideFits = [&](int dx, int dy) {
      return fits({x - width / 2 + dx, y - height / 2 + dy, width, height});
    };
    const int radius = 2 * parameter;
    if (sideFits(0, -radius) || sideFits(0, radius) || sideFits(-radius, 0) || sideFits(radius, 0)) {
      EXPECT_TRUE(fits(FindPopupPlace(kAllowed, x, y, width, height, parameter, avoid))) << x << ' ' << y;
      ++found;
    }
  }
  EXPECT_GT(found, 1000);
}

}  // namespace
