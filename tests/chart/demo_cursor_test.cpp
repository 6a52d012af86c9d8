#include "chart/demo_cursor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <mutex>
#include <utility>
#include <vector>

#include "program/demo_state.h"
#include "tests/chart/chart_fixture.h"
#include "tests/chart/sketch_canvas.h"
#include "tests/support/checking_canvas.h"

namespace chart_test {
namespace {

using UX::Brush;
using UX::Circle;
using UX::DemoCursor;
using UX::Rectangle;

constexpr std::int32_t kNoon = 12 * 3600;
constexpr float kRadius = 16.36F;  // of a dot without light, in a window 768 pixels high

// A window of 1024 by 768: noon is at x 452, the lanes are 105 pixels high.
class DemoCursorTest : public ::testing::Test {
 protected:
  void Draw() {
    canvas_.drawn.clear();
    cursor_.DrawDemoCursor(canvas_);
  }
  // Frames until everything has arrived.
  void Settle() {
    Draw();
    chart_.Wait(0.2);
    Draw();
  }
  float X() { return canvas_.All<Rectangle>(Done::Stroke).at(0).x + 4.0F; }
  float DotY(std::size_t lane) { return canvas_.All<Circle>(Done::Stroke).at(lane).center.y; }
  // Where the cursor of a demo settles at a second of the day.
  float SettledX(std::int32_t second) {
    chart_.PlayDemo(second, {});
    Settle();
    return X();
  }

  GivenChart chart_{GivenSteps("06:00 0, 12:00 100")};
  DemoCursor cursor_{chart_.scene};
  SketchCanvas canvas_;
};

TEST_F(DemoCursorTest, ShowsNothingWithoutADemo) {
  Draw();
  EXPECT_TRUE(canvas_.drawn.empty());
  chart_.PlayDemo(0, {});
  Draw();
  EXPECT_FALSE(canvas_.drawn.empty()) << "midnight is a moment like any other";
  chart_.demo.SetIdle();
  Draw();
  EXPECT_TRUE(canvas_.drawn.empty());
}

TEST_F(DemoCursorTest, ShowsAPausedDemoToo) {
  chart_.demo.SetRunning(kNoon, TCBase::StatePaused);
  Draw();
  EXPECT_FALSE(canvas_.drawn.empty());
}

TEST_F(DemoCursorTest, IsABandWithACoreFromTopToBottom) {
  chart_.PlayDemo(kNoon, {});
  Settle();
  const Drawn& band = canvas_.drawn.at(0);
  const Drawn& core = canvas_.drawn.at(1);
  EXPECT_EQ(band.brush, Brush::Orange);
  EXPECT_EQ(band.width, 5.0F);
  EXPECT_EQ(core.brush, Brush::Black);
  EXPECT_EQ(core.width, 3.0F);
  const auto boxes = canvas_.All<Rectangle>(Done::Stroke);
  ASSERT_EQ(boxes.size(), 2U);
  EXPECT_FLOAT_EQ(boxes[0].x, 448.0F);
  EXPECT_FLOAT_EQ(boxes[0].width, 8.0F);
  EXPECT_FLOAT_EQ(boxes[1].x, 451.0F);
  EXPECT_FLOAT_EQ(boxes[1].width, 2.0F);
  for (const Rectangle& box : boxes) {
    EXPECT_EQ(box.y, 0.0F);
    EXPECT_EQ(box.height, 602.0F);
  }
}

TEST_F(DemoCursorTest, GoesByTheWholeMinute) {
  EXPECT_FLOAT_EQ(SettledX(kNoon + 59), 452.0F);
  chart_.ShowHours(12, 14);  // a minute is 7.4 pixels wide
  EXPECT_FLOAT_EQ(SettledX(kNoon + 59), 10.0F);
  EXPECT_FLOAT_EQ(SettledX(kNoon + 60), 17.0F);
  EXPECT_FLOAT_EQ(SettledX(kNoon + 119), 17.0F);
}

TEST_F(DemoCursorTest, BeginsTheNextDayAtTheLeft) {
  EXPECT_FLOAT_EQ(SettledX(0), 10.0F);
  EXPECT_FLOAT_EQ(SettledX(86399), 893.0F);
  EXPECT_FLOAT_EQ(SettledX(86400 + 12 * 3600), 452.0F);
}

TEST_F(DemoCursorTest, FollowsTheView) {
  EXPECT_FLOAT_EQ(SettledX(kNoon), 452.0F);
  chart_.ShowHours(6, 18);
  EXPECT_FLOAT_EQ(SettledX(9 * 3600), 231.0F);
  EXPECT_FLOAT_EQ(SettledX(5 * 3600), -63.0F) << "beside the lanes, left of the view";
}

// However often it is sent there anew, it has a tenth of a second to go.
TEST_F(DemoCursorTest, SmoothsTheJumpsOfTheDemo) {
  EXPECT_FLOAT_EQ(SettledX(0), 10.0F);
  chart_.PlayDemo(kNoon, {100, 0, 0, 0, 0});
  Draw();
  EXPECT_FLOAT_EQ(X(), 10.0F);
  chart_.Wait(0.05);
  Draw();
  EXPECT_NEAR(X(), 231.0F, 0.01F);
  EXPECT_NEAR(DotY(0), 62.5F, 0.01F);
  chart_.Wait(0.05);
  Draw();
  EXPECT_NEAR(X(), 341.5F, 0.01F);
  EXPECT_NEAR(DotY(0), 36.25F, 0.01F);
  chart_.Wait(0.1001);
  Draw();
  EXPECT_EQ(X(), 452.0F);
  EXPECT_EQ(DotY(0), 10.0F);
}

TEST_F(DemoCursorTest, DotsRideOnTheirCurves) {
  chart_.PlayDemo(kNoon, {0, 25, 50, 75, 100});
  Settle();
  const std::vector<Circle> dots = canvas_.All<Circle>(Done::Stroke);
  ASSERT_EQ(dots.size(), 5U);
  for (int lane = 0; lane < 5; ++lane) {
    const Circle& dot = dots[static_cast<std::size_t>(lane)];
    EXPECT_EQ(dot.center.x, 452.0F);
    EXPECT_EQ(dot.center.y, static_cast<float>(
                                UX::PercentToY(chart_.layout.LaneRect(lane), static_cast<float>(25 * lane))));
  }
}

TEST_F(DemoCursorTest, DotsAndHalosGrowAndBrightenWithTheLight) {
  chart_.PlayDemo(kNoon, {0, 25, 50, 75, 100});
  Settle();
  ASSERT_EQ(canvas_.drawn.size(), 2U + 5U * 3U);
  for (int lane = 0; lane < 5; ++lane) {
    const auto* const item = &canvas_.drawn[2U + 3U * static_cast<std::size_t>(lane)];
    const float part = 0.25F * static_cast<float>(lane);
    const auto radius = [&](int i) { return std::get<Circle>(item[i].shape).radius; };

    EXPECT_EQ(item[0].done, Done::Fill);
    EXPECT_EQ(item[0].brush, Brush::Gray);
    EXPECT_FLOAT_EQ(radius(0), kRadius * (1.0F + part));

    EXPECT_EQ(item[1].done, Done::Fill);
    EXPECT_EQ(item[1].brush, UX::ChannelBrush(lane));
    EXPECT_FLOAT_EQ(item[1].opacity, part);
    EXPECT_FLOAT_EQ(radius(1), kRadius * (1.4F + part));

    EXPECT_EQ(item[2].done, Done::Stroke);
    EXPECT_EQ(item[2].brush, Brush::Black);
    EXPECT_EQ(item[2].width, 3.0F);
    EXPECT_FLOAT_EQ(radius(2), radius(0));
  }
}

TEST_F(DemoCursorTest, DotsRideOnLanesThatGlide) {
  chart_.PlayDemo(kNoon, {0, 0, 0, 0, 0});
  Settle();
  EXPECT_EQ(DotY(0), 115.0F);
  chart_.layout.FocusLane(0);
  std::vector<float> heights;
  for (int i = 0; i < 30; ++i) {
    chart_.Wait(0.02);
    Draw();
    heights.push_back(DotY(0));
    EXPECT_LE(DotY(0), static_cast<float>(chart_.layout.LaneRect(0).height) + 10.0F)
        << "behind the lane's own";
  }
  EXPECT_TRUE(std::is_sorted(heights.begin(), heights.end()));
  EXPECT_NEAR(heights.back(), 10.0F + 194.0F, 1.0F);
}

TEST_F(DemoCursorTest, TheNextDemoComesFromWhereTheLastOneEnded) {
  EXPECT_FLOAT_EQ(SettledX(kNoon), 452.0F);
  chart_.demo.SetIdle();
  Draw();
  chart_.PlayDemo(0, {});
  Draw();
  EXPECT_FLOAT_EQ(X(), 452.0F);
}

TEST_F(DemoCursorTest, LeavesTheLockAsItWas) {
  chart_.PlayDemo(kNoon, {});
  Draw();
  const std::unique_lock lock(chart_.demo.stepMutex, std::try_to_lock);
  EXPECT_TRUE(lock.owns_lock());
}

TEST_F(DemoCursorTest, IsDrawnWithinReachForAnyIntensityViewAndSize) {
  constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
  constexpr std::pair<int, int> kSizes[] = {{1024, 768}, {0, 0}, {1, 1}, {140, 166}, {3840, 2160}};
  for (const auto& [width, height] : kSizes)
    for (const auto& [from, to] : {std::pair{0, 24}, {12, 12}, {22, 24}})
      for (const std::int32_t second : {0, kNoon, 86399, kHighest}) {
        chart_.Resize(width, height);
        chart_.ShowHours(from, to);
        CheckingCanvas canvas;
        chart_.drawing.Rebuild(canvas);
        chart_.PlayDemo(second, {kLowest, -1, 101, kHighest, 50});
        const auto before = canvas.operations;
        for (int i = 0; i < 4; ++i) {
          cursor_.DrawDemoCursor(canvas);
          chart_.Wait(0.05);
        }
        EXPECT_EQ(canvas.fault, "") << second << " in " << width << " by " << height;
        EXPECT_EQ(canvas.operations - before, 4 * 17);
      }
}

// What is more than all or less than nothing shows as all and as nothing.
TEST_F(DemoCursorTest, IntensitiesEndAtNothingAndAll) {
  chart_.PlayDemo(kNoon, {-20, 120, 0, 0, 0});
  Settle();
  EXPECT_EQ(DotY(0), 115.0F);
  EXPECT_EQ(DotY(1), 129.0F);
}

}  // namespace
}  // namespace chart_test
