// Which step lies under the mouse, to the pixel.

#include "app/chart/chart_hit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "chart/bumper.h"
#include "tests/program/program_fixture.h"

namespace {

using app::HitStep;
using app::HoveredStep;
using app::StepPlace;
using program_test::GivenChannel;
using program_test::GivenDocument;
using program_test::GivenMode;

constexpr StepPlace kNone{};

class ChartHit : public testing::Test {
 protected:
  void SetUp() override { GivenWindow(1024, 768); }

  void GivenWindow(int width, int height) {
    layout_.Update(width, height);
    now_ += 1.0;  // at rest
  }
  void GivenChannels(std::initializer_list<std::string_view> channels) {
    program_ = GivenDocument(GivenMode(channels));
  }
  StepPlace Hit(int x, int y) { return HitStep(layout_, program_, x, y).value_or(kNone); }
  StepPlace Hovered(int x, int y) { return HoveredStep(layout_, program_, x, y).value(); }

  double now_ = 0.0;
  UX::ChartLayout layout_{now_};
  TCBase::Program::ModeListView program_;
};

// At 12:00 and 50 percent of lane 0: (452, 62). The radius is (768 / 50 + 1) / 2 = 8.18.

TEST_F(ChartHit, TakesTheStepWithinTheRadius) {
  GivenChannels({"12:00 50"});
  EXPECT_EQ(Hit(452, 62), (StepPlace{0, 0}));
  EXPECT_EQ(Hit(460, 62), (StepPlace{0, 0}));
  EXPECT_EQ(Hit(461, 62), kNone);
  EXPECT_EQ(Hit(444, 62), (StepPlace{0, 0}));
  EXPECT_EQ(Hit(443, 62), kNone);
  EXPECT_EQ(Hit(452, 70), (StepPlace{0, 0}));
  EXPECT_EQ(Hit(452, 71), kNone);
  EXPECT_EQ(Hit(457, 68), (StepPlace{0, 0})) << "7.8 away";
  EXPECT_EQ(Hit(458, 68), kNone) << "8.5 away: round, not square";
}

// 1000 pixels: (20 + 1) / 2 = 10.5; 550: (11 + 1) / 2 = 6; 500 and less: 5.5.
TEST_F(ChartHit, TheRadiusGrowsWithTheWindow) {
  struct {
    int height, inside, outside;
  } const kWindows[] = {{400, 5, 6}, {500, 5, 6}, {600, 6, 7}, {768, 8, 9}, {1000, 10, 11}, {3000, 10, 11}};
  GivenChannels({"12:00 100"});
  for (const auto& window : kWindows) {
    GivenWindow(1024, window.height);
    EXPECT_EQ(Hit(452 + window.inside, 10), (StepPlace{0, 0})) << window.height;
    EXPECT_EQ(Hit(452 + window.outside, 10), kNone) << window.height;
  }
}

TEST_F(ChartHit, TheRadiusItselfIsOutside) {
  GivenWindow(1024, 550);
  GivenChannels({"12:00 100"});
  EXPECT_EQ(UX::GetMarkerSize(layout_).plainRadius, 6.0F);
  EXPECT_EQ(Hit(457, 10), (StepPlace{0, 0}));
  EXPECT_EQ(Hit(458, 10), kNone);
  EXPECT_EQ(Hovered(457, 10), (StepPlace{0, 0}));
  EXPECT_EQ(Hovered(458, 10), kNone);
}

TEST_F(ChartHit, LooksEightPixelsBesideTheLane) {
  GivenChannels({"00:00 100, 23:59 0"});
  EXPECT_EQ(Hit(2, 10), (StepPlace{0, 0}));
  EXPECT_EQ(Hit(1, 10), kNone);
  EXPECT_EQ(Hit(10, 2), (StepPlace{0, 0}));
  EXPECT_EQ(Hit(10, 1), kNone);
  EXPECT_EQ(Hit(893, 122), (StepPlace{0, 1}));
  EXPECT_EQ(Hit(893, 123), kNone) << "of the lane, not of the step: that is 8.0 away";
}

TEST_F(ChartHit, OfStepsWithinTheRadiusTakesTheFirst) {
  GivenChannels({"12:00 50, 12:05 50"});  // (452, 62), (455, 62)
  EXPECT_EQ(Hit(455, 62), (StepPlace{0, 0})) << "not the nearest";
  EXPECT_EQ(Hovered(455, 62), (StepPlace{0, 1}));
  program_.modes[0].channels[0] = GivenChannel("12:05 50, 12:00 50");
  EXPECT_EQ(Hit(452, 62), (StepPlace{0, 0})) << "in the order of the list, whatever the times are";
}

TEST_F(ChartHit, OfLanesTakesTheFirst) {
  GivenWindow(1024, 1000);
  // Gap and margins: lane 0 ends at 161, lane 1 begins at 175, and both steps are 7 away from the middle.
  GivenChannels({"12:00 0", "12:00 100"});
  const UX::Rect above = layout_.LaneRect(0);
  const int middle = above.y + above.height + 7;
  EXPECT_EQ(Hit(452, middle), (StepPlace{0, 0}));
  EXPECT_EQ(Hit(452, middle + 2), (StepPlace{0, 0})) << "though the other is nearer";
  EXPECT_EQ(Hovered(452, middle + 2), (StepPlace{1, 0}));
  EXPECT_EQ(Hit(452, middle + 4), (StepPlace{1, 0}));
}

TEST_F(ChartHit, HoverLooksIntoNoLane) {
  // A value that no editor gives: its marker is at 115 + 52, in the second lane.
  GivenChannels({"12:00 -50"});
  EXPECT_EQ(Hit(452, 167), kNone) << "outside the lane of the step";
  EXPECT_EQ(Hovered(452, 167), (StepPlace{0, 0}));
}

TEST_F(ChartHit, HoverTakesTheNearestOverAllLanes) {
  GivenChannels({"12:00 0", "", "12:00 50, 12:05 50, 18:00 10"});
  EXPECT_EQ(Hovered(454, 300), (StepPlace{2, 1}));
  EXPECT_EQ(Hovered(453, 300), (StepPlace{2, 0}));
  EXPECT_EQ(Hovered(452, 116), (StepPlace{0, 0}));
  EXPECT_EQ(Hovered(600, 300), kNone);
}

TEST_F(ChartHit, HoverAtEqualDistanceStaysWithTheFirst) {
  GivenChannels({"12:00 50, 12:00 50"});
  EXPECT_EQ(Hovered(452, 62), (StepPlace{0, 0}));
  program_.modes[0].channels[0] = GivenChannel("12:00 50, 12:04 50");  // at 452 and 454
  EXPECT_EQ(Hovered(453, 62), (StepPlace{0, 0}));
}

TEST_F(ChartHit, WithoutAnyStepHoverHasNothingToSay) {
  GivenChannels({});
  EXPECT_EQ(HoveredStep(layout_, program_, 452, 62), std::nullopt);
  EXPECT_EQ(Hit(452, 62), kNone);
}

TEST_F(ChartHit, WhileLanesGlideLooksWhereTheyAre) {
  GivenChannels({"", "12:00 100"});
  EXPECT_EQ(Hit(452, 129), (StepPlace{1, 0}));
  layout_.FocusLane(0);  // lane 1 goes from 129 to 218
  EXPECT_EQ(Hit(452, 129), (StepPlace{1, 0}));
  EXPECT_EQ(Hit(452, 218), kNone);
  now_ += 0.2;
  EXPECT_EQ(Hit(452, 129), kNone);
  EXPECT_EQ(Hit(452, 218), (StepPlace{1, 0}));
}

TEST_F(ChartHit, ValuesThatAreNoNumbersAreNowhereNearby) {
  GivenChannels({"12:00 50, 13:00 50, 14:00 50"});
  program_.modes[0].channels[0][0].value = std::numeric_limits<float>::quiet_NaN();
  program_.modes[0].channels[0][1].value = std::numeric_limits<float>::infinity();
  program_.modes[0].channels[0][2].value = -std::numeric_limits<float>::infinity();
  program_.modes[0].channels[0].push_back({std::numeric_limits<std::int32_t>::max(), 59, 1e38F});
  for (int x = 0; x < 904; x += 3) {
    EXPECT_EQ(Hit(x, 62), kNone);
    EXPECT_EQ(Hovered(x, 62), kNone);
  }
}

TEST_F(ChartHit, AWindowOfOnePixelHoldsNoStep) {
  GivenChannels({"12:00 50", "00:00 0"});
  GivenWindow(1, 1);
  for (int x = -200; x < 200; x += 7) {
    for (int y = -200; y < 200; y += 7) EXPECT_EQ(Hit(x, y), kNone);
  }
}

}  // namespace
