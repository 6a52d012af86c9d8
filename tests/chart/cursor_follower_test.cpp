#include "chart/cursor_follower.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "chart/chart_layout.h"
#include "tests/support/virtual_clock.h"

namespace {

using UX::CursorFollower;
using UX::Point;

class CursorFollowerTest : public ::testing::Test {
 protected:
  CursorFollowerTest() { virtual_clock::Reset(); }

  void ExpectAt(float x, float y) {
    const Point point = follower_.Position();
    EXPECT_NEAR(point.x, x, 0.01F) << "after " << virtual_clock::Seconds() << " s";
    EXPECT_NEAR(point.y, y, 0.01F) << "after " << virtual_clock::Seconds() << " s";
  }

  CursorFollower follower_;
};

TEST_F(CursorFollowerTest, StandsAtTheOriginUntilTheMouseMoves) {
  virtual_clock::Advance(10.0);
  EXPECT_EQ(follower_.Position(), (Point{0.0F, 0.0F}));
}

// The origin is left of the lanes: off the day if the view begins with it, and a moment before the view
// otherwise.
TEST_F(CursorFollowerTest, AtTheOriginItsTimeIsOffTheDayOnlyIfTheViewBeginsWithTheDay) {
  double now = 0.0;
  UX::ChartLayout layout{now};
  layout.Update(1024, 768);
  TCBase::Program::ModeListView view;
  const auto time = [&] { return UX::XToTime(layout.LaneRect(0), view, follower_.Position().x); };
  EXPECT_FALSE(UX::IsOnDay(time()));
  view.viewStart = 6 * 3600;
  EXPECT_TRUE(UX::IsOnDay(time()));
  EXPECT_LT(time(), 6 * 3600);
}

TEST_F(CursorFollowerTest, CoversFiveThousandPixelsASecondWithASoftArrival) {
  follower_.MouseMoved(600, 800);  // 1000 pixels away
  ExpectAt(0.0F, 0.0F);
  virtual_clock::Advance(0.1);
  ExpectAt(0.75F * 600.0F, 0.75F * 800.0F);
  virtual_clock::Advance(0.05);
  ExpectAt(0.9375F * 600.0F, 0.9375F * 800.0F);
  virtual_clock::Advance(0.0501);
  ExpectAt(600.0F, 800.0F);
  virtual_clock::Advance(60.0);
  ExpectAt(600.0F, 800.0F);
}

// A click adds a step at the minute of the pixel; a hair beside it is another minute.
TEST_F(CursorFollowerTest, RestsExactlyWhereTheMouseIs) {
  int places = 0;
  for (int y = 0; y < 602; y += 7) {
    for (int x = 0; x < 904; ++x) {
      follower_.MouseMoved((x * 577) % 904, (y * 389) % 602);
      virtual_clock::Advance(0.05);
      follower_.MouseMoved(x, y);
      virtual_clock::Advance(0.5);
      if (!(follower_.Position() == Point{static_cast<float>(x), static_cast<float>(y)})) ++places;
    }
  }
  EXPECT_EQ(places, 0) << "places that it misses";
}

TEST_F(CursorFollowerTest, GoesInEveryDirection) {
  for (const Point mouse : {Point{300, 300}, Point{100, 300}, Point{100, 100}, Point{300, 100},
                            Point{300, 300}, Point{50, 20}, Point{50, 400}, Point{400, 20}}) {
    follower_.MouseMoved(static_cast<int>(mouse.x), static_cast<int>(mouse.y));
    virtual_clock::Advance(1.0);
    ExpectAt(mouse.x, mouse.y);
  }
}

TEST_F(CursorFollowerTest, ANewGoalIsHeadedForFromWhereItIs) {
  follower_.MouseMoved(1000, 0);
  virtual_clock::Advance(0.1);
  ExpectAt(750.0F, 0.0F);
  follower_.MouseMoved(750, 500);
  ExpectAt(750.0F, 0.0F);
  virtual_clock::Advance(0.05);  // half of the 0.1 seconds
  ExpectAt(750.0F, 375.0F);
  virtual_clock::Advance(0.0501);
  ExpectAt(750.0F, 500.0F);
}

TEST_F(CursorFollowerTest, StaysForAMouseThatMovesToWhereItIs) {
  follower_.MouseMoved(0, 0);
  ExpectAt(0.0F, 0.0F);
  virtual_clock::Advance(0.1);
  ExpectAt(0.0F, 0.0F);
}

TEST_F(CursorFollowerTest, NoPlaceIsTooFar) {
  constexpr int kLowest = std::numeric_limits<int>::min();
  constexpr int kHighest = std::numeric_limits<int>::max();
  for (const auto& [x, y] : {std::pair{kLowest, kHighest}, {kHighest, kLowest}, {kLowest, kLowest}, {5, 5}}) {
    follower_.MouseMoved(x, y);
    for (int i = 0; i < 5; ++i) {
      virtual_clock::Advance(1e5);
      const Point point = follower_.Position();
      EXPECT_LE(std::fabs(point.x), UX::kFarthest);
      EXPECT_LE(std::fabs(point.y), UX::kFarthest);
    }
  }
}

}  // namespace
