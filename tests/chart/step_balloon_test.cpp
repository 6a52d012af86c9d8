// Where the balloons of popups are and how they look.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

#include "chart/step_marker.h"
#include "chart/step_popups.h"
#include "tests/chart/popups_fixture.h"
#include "tests/program/random_program.h"
#include "tests/support/checking_canvas.h"

namespace chart_test {
namespace {

using UX::Brush;
using UX::Point;
using UX::StepPopup;
using UX::StepPopups;

using StepBalloonTest = GivenStepPopups;

// Where it begins.

TEST_F(StepBalloonTest, ComesOutOfTheHoveredStep) {
  Hover(0, 1);
  Pass();
  Wait(0.01);
  ExpectCenter(kNoonAt50);
}

TEST_F(StepBalloonTest, ComesOutOfTheSelectedStepIfNoneIsHovered) {
  chart_.Select(1, 1);
  Pass();
  Wait(0.01);
  const auto balloon = Look(1);
  EXPECT_NEAR(balloon->center.x, 452.0F, 1.0F);
  EXPECT_NEAR(balloon->center.y, 150.0F, 1.0F) << "80 percent, in the lane from 129 to 234";
}

// Odd, and meant: the popup of the selected step begins at the height that its value has in the hovered lane,
// not in its own.
TEST_F(StepBalloonTest, ComesFromTheHoveredLaneForASelectedStepOfAnother) {
  chart_.Select(1, 1);
  Hover(0, 1);
  Pass();
  Wait(0.01);
  const auto balloon = Look(1);
  EXPECT_NEAR(balloon->center.x, 452.0F, 1.0F);
  EXPECT_NEAR(balloon->center.y, 31.0F, 1.0F) << "80 percent, in the lane from 10 to 115";
}

TEST_F(StepBalloonTest, AHoverThatNamesNoStepHasNoLane) {
  chart_.Select(1, 1);
  Hover(0, 17);
  Pass();
  Wait(0.01);
  EXPECT_NEAR(Look(1)->center.y, 150.0F, 1.0F);
}

// Where it goes. The text is 40 by 40 pixels, so the box is 43 by 43.

TEST_F(StepBalloonTest, GoesBelowAStepThatHasNoRoomAbove) {
  Hover(0, 0);
  Pass();
  for (int i = 0; i < 3; ++i) Draw(), PassFor(0.1);
  ExpectCenter({kSixAt100.x, kSixAt100.y + 32.0F}, 2.0F);
}

TEST_F(StepBalloonTest, GoesAboveAStepThatHas) {
  Hover(0, 2);  // at 115
  Pass();
  for (int i = 0; i < 3; ++i) Draw(), PassFor(0.1);
  ExpectCenter({673.0F, 115.0F - 32.0F}, 2.0F);
}

TEST_F(StepBalloonTest, StaysWithinTheLanesAtTheirRightEnd) {
  chart_.document.modes[0].channels[0][2] = {23, 59, 50.0F};
  Hover(0, 2);
  Pass();
  for (int i = 0; i < 3; ++i) Draw(), PassFor(0.1);
  Draw();
  const UX::Rectangle box = canvas_.All<UX::RoundedRectangle>(Done::Fill).at(0).box;
  EXPECT_LE(box.x + box.width, 894.0F + 3.0F) << "but for its border";
}

TEST_F(StepBalloonTest, IsOnItsWayForATenthOfASecondAfterEachFrame) {
  Hover(0, 1);
  Pass();
  Wait(0.15);
  ExpectCenter(kNoonAt50);  // the frame that sends it
  Wait(0.05);
  ExpectCenter({kNoonAt50.x, kNoonAt50.y - 16.0F}, 1.5F);  // halfway, and sent anew
  Wait(0.05);
  ExpectCenter({kNoonAt50.x, kNoonAt50.y - 24.0F}, 1.5F);
  Wait(0.1);
  ExpectCenter({kNoonAt50.x, kNoonAt50.y - 32.0F}, 1.5F);
}

TEST_F(StepBalloonTest, TravelTakesATenthOfASecondForAnyDistance) {
  for (const float distance : {0.001F, 0.5F, 3.0F, 32.0F, 900.0F, 1e5F}) {
    StepPopup popup(1, {100.0F, 50.0F}, chart_.now);
    popup.SendTo({100.0F - distance * 0.6F, 50.0F + distance * 0.8F});
    EXPECT_NEAR(popup.travel.duration, 0.1F, 1e-6F) << distance;
    EXPECT_EQ(popup.travelCurve, bumper_base::BumperCurve::Linear);
    EXPECT_NEAR(popup.secondsPerPixel * static_cast<double>(popup.travel.to), 0.1, 1e-6);
  }
}

TEST_F(StepBalloonTest, TravelToWhereItIsTakesNone) {
  StepPopup popup(1, {100.0F, 50.0F}, chart_.now);
  popup.SendTo({100.0F, 50.0F});
  EXPECT_EQ(popup.secondsPerPixel, static_cast<double>(1.0F / 10.0F * 500.0F / 500.0F));
  EXPECT_EQ(popup.travel.duration, 0.0F);
  Wait(1.0);
  EXPECT_EQ(popup.PresentPoint(), (Point{100.0F, 50.0F}));
}

TEST_F(StepBalloonTest, AGoalThatChangesOnTheWayIsHeadedForFromThere) {
  StepPopup popup(1, {100.0F, 50.0F}, chart_.now);
  popup.SendTo({140.0F, 50.0F});
  Wait(0.05);
  popup.SendTo({120.0F, 10.0F});
  EXPECT_NEAR(popup.PresentPoint().x, 120.0F, 1e-3F);
  Wait(0.05);
  EXPECT_NEAR(popup.PresentPoint().x, 120.0F, 1e-3F);
  EXPECT_NEAR(popup.PresentPoint().y, 30.0F, 1e-3F);
}

TEST_F(StepBalloonTest, RestsWhereItBelongs) {
  GivenGrownPopup();
  const Point center = Look()->center;
  for (int i = 0; i < 200; ++i) {
    PassFor(0.02);
    ExpectCenter(center);
  }
}

// At 12:00 on the other lane's 50 percent the balloon of the selected step would lie over the hovered marker.
TEST_F(StepBalloonTest, KeepsClearOfTheHoveredMarker) {
  Channel& channel = chart_.document.modes[0].channels[0];
  channel[2] = {12, 0, 10.0F, false, channel[2].id};  // under the step at 50 percent, 42 pixels lower
  chart_.Select(0, 2);
  Hover(0, 1);
  Pass();
  for (int i = 0; i < 4; ++i) Draw(), PassFor(0.1);
  Draw();
  const UX::RoundedRectangle balloon = canvas_.All<UX::RoundedRectangle>(Done::Fill).back();
  EXPECT_GE(balloon.box.y + 3.0F, kNoonAt50.y + 9.0F) << "not in its place above, which the marker has";
}

// Under focus a lane grows; the balloon's goal goes with its step.
TEST_F(StepBalloonTest, FollowsAGlidingLane) {
  GivenGrownPopup();
  chart_.layout.FocusLane(0);
  for (int i = 0; i < 60; ++i) PassFor(0.01), Draw();
  ExpectCenter({452.0F, 107.0F - 32.0F}, 2.0F);
}

// How it looks.

TEST_F(StepBalloonTest, ShowsLeaderBalloonAndText) {
  GivenGrownPopup();
  Draw();
  ASSERT_EQ(canvas_.drawn.size(), 4U);
  EXPECT_EQ(canvas_.text, "12:00\n50%");
  EXPECT_FLOAT_EQ(canvas_.limits.width, 4.0F * 16.36F);
  EXPECT_FLOAT_EQ(canvas_.limits.height, 3.0F * 16.36F);

  const auto& [leader, inside, outline, text] =
      std::tie(canvas_.drawn[0], canvas_.drawn[1], canvas_.drawn[2], canvas_.drawn[3]);
  EXPECT_EQ(leader.brush, Brush::Gray);
  EXPECT_EQ(leader.width, 1.0F);
  EXPECT_EQ(leader.transform, UX::kIdentity);

  const auto balloon = std::get<UX::RoundedRectangle>(inside.shape);
  EXPECT_EQ(balloon.box.width, 49.0F);
  EXPECT_EQ(balloon.box.height, 49.0F);
  EXPECT_EQ(balloon.radius, 5.0F);
  EXPECT_EQ(inside.brush, Brush::White);
  EXPECT_EQ(outline.done, Done::Stroke);
  EXPECT_EQ(outline.brush, Brush::Black);
  EXPECT_EQ(outline.width, 2.0F);

  EXPECT_EQ(text.done, Done::Text);
  EXPECT_EQ(text.brush, Brush::Black);
  EXPECT_EQ(text.transform.offset, (Point{balloon.box.x + 3.0F, balloon.box.y + 3.0F}));
}

TEST_F(StepBalloonTest, TheLeaderBeginsOnTheRimOfTheMarker) {
  for (const auto& [channel, step] : {std::pair{0, 0}, {0, 1}, {0, 2}, {1, 0}, {1, 1}}) {
    Hover(channel, step);
    Pass();
    for (int i = 0; i < 4; ++i) Draw(channel), PassFor(0.1);
    Draw(channel);
    // The first lane's popups stay for a while; the one hovered last is the last one or alone.
    const UX::MarkerCenter marker = UX::GetMarkerCenter(
        chart_.layout.LaneRect(channel), chart_.document,
        chart_.document.modes[0].channels[static_cast<std::size_t>(channel)][static_cast<std::size_t>(step)]);
    const UX::Line leader = canvas_.All<UX::Line>(Done::Stroke).back();
    const float x = leader.from.x - static_cast<float>(marker.x);
    const float y = leader.from.y - static_cast<float>(marker.y);
    EXPECT_NEAR(std::hypot(x, y), 8.18F, 1e-3F);
    // And points to the balloon.
    const float toX = leader.to.x - static_cast<float>(marker.x);
    const float toY = leader.to.y - static_cast<float>(marker.y);
    EXPECT_NEAR(x * toY - y * toX, 0.0F, 0.05F);
    EXPECT_GT(x * toX + y * toY, 0.0F);
  }
}

TEST_F(StepBalloonTest, GrowsAboutTheCentreOfTheBalloon) {
  Hover(0, 1);
  Pass();
  Wait(0.15);
  Draw();
  const Drawn& inside = canvas_.drawn.at(1);
  const UX::Rectangle box = std::get<UX::RoundedRectangle>(inside.shape).box;
  EXPECT_NEAR(inside.transform.scale, 0.75F, 1e-4F);
  const auto moved = [&](float at, float offset) { return at * inside.transform.scale + offset; };
  EXPECT_NEAR(moved(box.x + box.width / 2.0F, inside.transform.offset.x), box.x + box.width / 2.0F, 1e-3F);
  EXPECT_NEAR(moved(box.y + box.height / 2.0F, inside.transform.offset.y), box.y + box.height / 2.0F, 1e-3F);
  // The text, which is drawn from the origin, keeps its place in the balloon.
  const Drawn& text = canvas_.drawn.at(3);
  EXPECT_EQ(text.transform.scale, inside.transform.scale);
  EXPECT_NEAR(text.transform.offset.x, moved(box.x + 3.0F, inside.transform.offset.x), 1e-3F);
  EXPECT_NEAR(text.transform.offset.y, moved(box.y + 3.0F, inside.transform.offset.y), 1e-3F);
}

// White is as labels leave it for the first balloon of a frame, and opaque for the next.
TEST_F(StepBalloonTest, TakesWhiteAsItIsAndLeavesItOpaque) {
  chart_.Select(0, 0);
  Hover(0, 2);
  Pass();
  Wait(0.3);
  canvas_.OpacityOf(Brush::White) = 0.7F;
  canvas_.OpacityOf(Brush::Black) = 0.5F;
  Draw();
  EXPECT_EQ(canvas_.drawn.at(1).opacity, 0.7F);
  EXPECT_EQ(canvas_.drawn.at(5).opacity, 1.0F);
  EXPECT_EQ(canvas_.OpacityOf(Brush::White), 1.0F);
  EXPECT_EQ(canvas_.OpacityOf(Brush::Black), 1.0F);
}

// Anything that a document may hold.

void DrawPopupsOf(GivenChart& chart, UX::Canvas& canvas, program_test::RandomProgram& random) {
  StepPopups popups(chart.scene);
  for (int i = 0; i < 12; ++i) {
    chart.Hover(random.Below(kChannelCount), random.Below(6));
    chart.Select(random.Below(kChannelCount), random.Below(6));
    popups.Update();
    chart.Wait(0.04);
    for (std::int32_t lane = 0; lane < kChannelCount; ++lane) popups.DrawPopups(canvas, lane);
  }
}

TEST(StepPopupsOfAnything, AreDrawnWithinReach) {
  constexpr std::pair<int, int> kSizes[] = {{1024, 768}, {1, 1}, {400, 330}, {3840, 2160}, {0, 0}};
  for (std::uint32_t seed = 0; seed < 200; ++seed) {
    program_test::RandomProgram random(seed);
    GivenChart chart(program_test::GivenDocument(random.AnyMode(6)));
    const auto& [width, height] = kSizes[seed % std::size(kSizes)];
    chart.Resize(width, height);
    if (seed % 3 == 0) chart.ShowHours(5, 7);
    CheckingCanvas canvas;
    chart.drawing.Rebuild(canvas);
    DrawPopupsOf(chart, canvas, random);
    EXPECT_EQ(canvas.fault, "") << "seed " << seed;
  }
}

TEST(StepPopupsOfAnything, AreDrawnForValuesThatAreNoNumbers) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  constexpr float kHighest = std::numeric_limits<float>::max();
  for (const float value :
       {kInfinity, -kInfinity, std::numeric_limits<float>::quiet_NaN(), kHighest, -kHighest})
    for (const std::int32_t hour :
         {0, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
      GivenChart chart(GivenSteps("10:00 10, 10:00 10, 11:00 20, 12:00 30, 13:00 0, 14:00 7"));
      for (Step& step : chart.document.modes[0].channels[0]) step.hour = hour, step.value = value;
      CheckingCanvas canvas;
      chart.drawing.Rebuild(canvas);
      program_test::RandomProgram random(1);
      DrawPopupsOf(chart, canvas, random);
      EXPECT_EQ(canvas.fault, "") << value << " at " << hour;
    }
}

TEST(StepPopupsOfAnything, AreDrawnWhereTheViewIsEmpty) {
  GivenChart chart(GivenSteps("10:00 10, 11:00 20"));
  chart.ShowHours(10, 10);
  CheckingCanvas canvas;
  chart.drawing.Rebuild(canvas);
  program_test::RandomProgram random(1);
  DrawPopupsOf(chart, canvas, random);
  EXPECT_EQ(canvas.fault, "");
}

}  // namespace
}  // namespace chart_test
