#include "chart/chart_layout.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

using TCBase::Program::ModeListView;
using UX::ChartLayout;
using UX::Rect;

constexpr double kGlideSeconds = 0.2;

class ChartLayoutTest : public testing::Test {
 protected:
  void SetUp() override {
    now_ = 100.0;
    layout_.Update(1024, 768);
    FinishGliding();
  }

  void FinishGliding() { now_ += kGlideSeconds; }

  std::vector<int> Heights() {
    std::vector<int> heights;
    heights.reserve(5);
    for (int i = 0; i < 5; ++i) heights.push_back(layout_.LaneRect(i).height);
    return heights;
  }
  std::vector<int> Tops() {
    std::vector<int> tops;
    tops.reserve(5);
    for (int i = 0; i < 5; ++i) tops.push_back(layout_.LaneRect(i).y);
    return tops;
  }

  double now_ = 0.0;
  ChartLayout layout_{now_};
};

using Ints = std::vector<int>;

TEST_F(ChartLayoutTest, FollowsTheClientArea) {
  EXPECT_EQ(layout_.clientRect, (Rect{0, 0, 1024, 768}));
  EXPECT_EQ(layout_.chartRect, (Rect{10, 10, 884, 582}));
  EXPECT_EQ(layout_.collapsedHeight, 83);
  EXPECT_EQ(layout_.ChartWindowRect(), (Rect{120, 30, 904, 602}));
  EXPECT_EQ(layout_.DialogAnchorChart(), (Rect{10, 30, 884, 602}));
  EXPECT_EQ(layout_.DialogAnchorTop(), (Rect{10, 10, 110, 196}));
  EXPECT_EQ(layout_.DialogAnchorBottom(), (Rect{10, 538, 110, 64}));
}

TEST_F(ChartLayoutTest, TheStripTakesItsRoomFromTheLanes) {
  EXPECT_EQ(layout_.StripRect(), (Rect{}));
  layout_.ShowStrip(true);
  FinishGliding();
  EXPECT_EQ(layout_.StripRect(), (Rect{10, 10, 884, 16}));
  EXPECT_EQ(layout_.chartRect, (Rect{10, 40, 884, 552}));
  EXPECT_EQ(layout_.collapsedHeight, 78);
  EXPECT_EQ(Heights(), (Ints{99, 99, 99, 99, 99}));
  EXPECT_EQ(Tops()[0], 40);
  EXPECT_EQ(layout_.LaneAt(500, 20), -1) << "the strip is no lane";
  EXPECT_EQ(layout_.LaneAt(500, 40), 0);
  EXPECT_EQ(layout_.ChartWindowRect(), (Rect{120, 30, 904, 602})) << "of the window nothing changes";
  layout_.Update(1000, 700);
  EXPECT_EQ(layout_.chartRect, (Rect{10, 40, 860, 484})) << "it stays in another size";
  layout_.ShowStrip(false);
  EXPECT_EQ(layout_.chartRect, (Rect{10, 10, 860, 514}));
  EXPECT_EQ(layout_.StripRect(), (Rect{}));
}

TEST_F(ChartLayoutTest, GivesFiveLanesAlike) {
  EXPECT_EQ(Heights(), (Ints{105, 105, 105, 105, 105}));
  EXPECT_EQ(Tops(), (Ints{10, 129, 248, 367, 486}));
  EXPECT_EQ(layout_.LaneRect(3).x, 10);
  EXPECT_EQ(layout_.LaneRect(3).width, 884);
}

TEST_F(ChartLayoutTest, AFocusedLaneGetsWhatTheOthersGiveUp) {
  layout_.FocusLane(2);
  FinishGliding();
  EXPECT_EQ(Heights(), (Ints{83, 83, 194, 83, 83}));
  EXPECT_EQ(Tops(), (Ints{10, 107, 204, 412, 509}));
  EXPECT_EQ(Tops()[4] + Heights()[4], 10 + 582) << "five lanes and four gaps fill the area exactly";
}

TEST_F(ChartLayoutTest, LosesTheFocusAgain) {
  layout_.FocusLane(2);
  layout_.ClearFocus();
  FinishGliding();
  EXPECT_EQ(layout_.focusedLane, -1);
  EXPECT_EQ(Heights(), (Ints{105, 105, 105, 105, 105}));
}

TEST_F(ChartLayoutTest, LanesBeginTenPixelsHigh) {
  ChartLayout fresh(now_);
  for (auto& height : fresh.laneHeights) EXPECT_EQ(height.Value(), 10.0F);
}

TEST_F(ChartLayoutTest, FocusingTheFocusedLaneDoesNotStartOver) {
  layout_.FocusLane(2);
  now_ += kGlideSeconds / 2;
  const Ints halfway = Heights();
  layout_.FocusLane(2);
  EXPECT_EQ(Heights(), halfway);
  now_ += kGlideSeconds / 2;
  EXPECT_EQ(Heights(), (Ints{83, 83, 194, 83, 83})) << "it arrives when it would have";
}

TEST_F(ChartLayoutTest, NumbersThatAreNoLaneDoNotTakeTheFocus) {
  layout_.FocusLane(1);
  layout_.FocusLane(-1);
  layout_.FocusLane(5);
  EXPECT_EQ(layout_.focusedLane, 1);
}

TEST_F(ChartLayoutTest, ATinyWindowLeavesNothingToCollapsedLanes) {
  layout_.Update(800, 186 + 6);
  layout_.FocusLane(1);
  FinishGliding();
  EXPECT_EQ(layout_.collapsedHeight, 0);
  EXPECT_EQ(Heights(), (Ints{0, 6 - 4 * 14, 0, 0, 0}));
  layout_.Update(0, 0);
  FinishGliding();
  EXPECT_EQ(layout_.collapsedHeight, -26);
  for (int i = 0; i < 5; ++i) layout_.LaneRect(i);
}

TEST_F(ChartLayoutTest, LanesGlideTogether) {
  layout_.FocusLane(0);
  Ints last = Tops();
  for (int i = 0; i < 10; ++i) {
    now_ += kGlideSeconds / 10;
    const Ints tops = Tops();
    for (std::size_t lane = 1; lane < 5; ++lane) {
      EXPECT_GE(tops[lane], last[lane]);
      // The gap stays the same all the way, but for a pixel of truncation.
      EXPECT_NEAR(tops[lane] - (tops[lane - 1] + Heights()[lane - 1]), 14, 1);
    }
    last = tops;
  }
}

TEST_F(ChartLayoutTest, AReflowBeginsWhereTheLanesAre) {
  layout_.FocusLane(0);
  now_ += kGlideSeconds / 2;
  const Ints halfway = Heights();
  layout_.ClearFocus();
  EXPECT_EQ(Heights(), halfway);
}

TEST_F(ChartLayoutTest, FindsTheLaneUnderAPoint) {
  EXPECT_EQ(layout_.LaneAt(10, 10), 0);
  EXPECT_EQ(layout_.LaneAt(893, 114), 0);
  EXPECT_EQ(layout_.LaneAt(500, 486), 4);
  EXPECT_EQ(layout_.LaneAt(9, 50), -1);
  EXPECT_EQ(layout_.LaneAt(894, 50), -1);
  EXPECT_EQ(layout_.LaneAt(500, 9), -1);
  EXPECT_EQ(layout_.LaneAt(500, 591), -1);
}

TEST_F(ChartLayoutTest, AGapBelongsToNoLane) {
  for (int y = 115; y < 129; ++y) EXPECT_EQ(layout_.LaneAt(500, y), -1) << y;
  EXPECT_EQ(layout_.LaneAt(500, 129), 1);
}

TEST_F(ChartLayoutTest, APointMeetsTheLanesAsTheyWillBe) {
  layout_.FocusLane(0);
  // Nothing has moved yet, but lane 0 is on its way to 194 pixels.
  EXPECT_EQ(layout_.LaneRect(0).height, 105);
  EXPECT_EQ(layout_.LaneAt(500, 200), 0);
}

// The first lane of a window of 1024 by 768.
constexpr Rect kLane{10, 10, 884, 105};
constexpr std::int64_t kHour = 3600;

ModeListView View(int start, int end) {
  ModeListView view;
  view.viewStart = start;
  view.viewEnd = end;
  return view;
}

TEST(ChartConversions, TheDayEndsAtTheRightEdge) {
  const ModeListView day = View(0, 86400);
  EXPECT_EQ(UX::TimeToX(kLane, day, 0), 10);
  EXPECT_EQ(UX::TimeToX(kLane, day, 43200), 452);
  EXPECT_EQ(UX::TimeToX(kLane, day, 86340), 893) << "the last minute is just inside";
  EXPECT_EQ(UX::TimeToX(kLane, day, 86400), 894) << "and the end is the edge itself";
}

TEST(ChartConversions, FollowTheView) {
  const ModeListView morning = View(6 * 3600, 8 * 3600);
  EXPECT_EQ(UX::TimeToX(kLane, morning, 6 * kHour), 10);
  EXPECT_EQ(UX::TimeToX(kLane, morning, 7 * kHour), 452);
  EXPECT_EQ(UX::TimeToX(kLane, morning, 5 * kHour), 10 - 442);
  EXPECT_EQ(UX::XToTime(kLane, morning, 10), 6 * kHour);
  EXPECT_EQ(UX::XToTime(kLane, morning, 452), 7 * kHour);
}

TEST(ChartConversions, AStepStandsAtItsMinute) {
  EXPECT_EQ(UX::TimeToX(kLane, View(0, 86400), {12, 0, 50.0F}), 452);
}

TEST(ChartConversions, PercentGoesUp) {
  EXPECT_EQ(UX::PercentToY(kLane, 100.0F), 10);
  EXPECT_EQ(UX::PercentToY(kLane, 0.0F), 115);
  EXPECT_EQ(UX::PercentToY(kLane, 50.0F), 62);
  EXPECT_EQ(UX::YToPercent(kLane, 115), 0.0F);
  EXPECT_FLOAT_EQ(UX::YToPercent(kLane, 10), 100.0F);
  EXPECT_GT(UX::YToPercent(kLane, 0), 100.0F) << "not clamped";
}

TEST(ChartConversions, BackAndForthStaysWithinAPixel) {
  for (const auto& [start, end] : {std::pair{0, 86400}, {21600, 28800}, {79200, 86400}}) {
    const ModeListView view = View(start, end);
    for (int x = kLane.x; x < kLane.x + kLane.width; ++x) {
      EXPECT_NEAR(UX::TimeToX(kLane, view, UX::XToTime(kLane, view, x)), x, 1);
    }
  }
}

TEST(ChartConversions, TellPointsOffTheDay) {
  const ModeListView day = View(0, 86400);
  EXPECT_FALSE(UX::IsOnDay(UX::XToTime(kLane, day, 9)));
  EXPECT_TRUE(UX::IsOnDay(UX::XToTime(kLane, day, 10)));
  EXPECT_TRUE(UX::IsOnDay(UX::XToTime(kLane, day, 893)));
  EXPECT_FALSE(UX::IsOnDay(UX::XToTime(kLane, day, 894)));
}

TEST(ChartConversions, ALaneWithoutWidthAsksForNothingUndefined) {
  const Rect none{10, 10, 0, 0};
  EXPECT_FALSE(UX::IsOnDay(UX::XToTime(none, View(0, 86400), 20)));
  UX::YToPercent(none, 3);
  UX::PercentToY(none, 30.0F);
}

TEST(MarkerSize, FollowsTheWindowWithinLimits) {
  double now_ = 0.0;
  ChartLayout layout{now_};
  layout.Update(1024, 768);
  EXPECT_FLOAT_EQ(UX::GetMarkerSize(layout).plainDiameter, 16.36F);
  EXPECT_FLOAT_EQ(UX::GetMarkerSize(layout).plainRadius, 8.18F);
  EXPECT_FLOAT_EQ(UX::GetMarkerSize(layout).selectedDiameter, 20.2F);
  layout.Update(1024, 300);
  EXPECT_FLOAT_EQ(UX::GetMarkerSize(layout).plainRadius, 5.5F);
  EXPECT_FLOAT_EQ(UX::GetMarkerSize(layout).selectedDiameter, 11.0F);
  layout.Update(1024, 2000);
  EXPECT_FLOAT_EQ(UX::GetMarkerSize(layout).plainRadius, 10.5F);
  EXPECT_FLOAT_EQ(UX::GetMarkerSize(layout).selectedDiameter, 24.0F);
}

}  // namespace
