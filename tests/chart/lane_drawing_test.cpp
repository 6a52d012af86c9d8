#include "chart/lane_drawing.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "program/builtin_modes.h"
#include "tests/chart/chart_fixture.h"

namespace chart_test {
namespace {

using testing::TestWithParam;
using testing::Values;

std::vector<UX::Point> PointsOf(const UX::Figure& figure, std::size_t contour) {
  const auto points = figure.PointsOf(figure.Contours()[contour]);
  return {points.begin(), points.end()};
}

using Points = std::vector<UX::Point>;

TEST(LaneGrid, HasALineEachTenPercentAndEachHourAndAnOutline) {
  UX::Figure grid;
  ModeListView day;
  UX::BuildGrid(grid, 884, 105, day);
  ASSERT_EQ(grid.Contours().size(), 10U + 24U + 1U);
  EXPECT_EQ(PointsOf(grid, 0), (Points{{0, 0}, {884, 0}}));
  EXPECT_EQ(PointsOf(grid, 9), (Points{{0, 94.5F}, {884, 94.5F}}));
  EXPECT_EQ(PointsOf(grid, 10), (Points{{0, 0}, {0, 105}}));
  EXPECT_EQ(PointsOf(grid, 11), (Points{{36, 0}, {36, 105}})) << "36.8, truncated";
  EXPECT_EQ(PointsOf(grid, 33), (Points{{847, 0}, {847, 105}}));
  EXPECT_EQ(PointsOf(grid, 34), (Points{{0, 0}, {884, 0}, {884, 105}, {0, 105}}));
  for (std::size_t i = 0; i < 35; ++i) EXPECT_EQ(grid.Contours()[i].closed, i == 34);
}

TEST(LaneGrid, PutsHoursOutsideTheViewOutsideTheLane) {
  UX::Figure grid;
  ModeListView morning;
  morning.viewStart = 6 * 3600;
  morning.viewEnd = 8 * 3600;
  UX::BuildGrid(grid, 884, 105, morning);
  EXPECT_EQ(PointsOf(grid, 10 + 5), (Points{{-442, 0}, {-442, 105}}));
  EXPECT_EQ(PointsOf(grid, 10 + 7), (Points{{442, 0}, {442, 105}}));
}

TEST(LaneBackground, FramesTheCurrentChannelOnly) {
  GivenChart chart(NewProgram());
  chart.Select(2, -1);
  EXPECT_EQ(chart.Background(2).Text("cornflowerBlue"), "stroke box 6,244 892x113 cornflowerBlue w3\n");
  EXPECT_EQ(chart.Background(1).Text("cornflowerBlue"), "");
}

TEST(LaneBackground, PutsItsLabelsIntoTheLane) {
  GivenChart chart(NewProgram());
  EXPECT_EQ(chart.Background(1).Text("draw"),
            "draw 20% at 10,213\n"  // the label for 10 % is made and not shown
            "draw 30% at 10,202\n"
            "draw 40% at 10,192\n"
            "draw 50% at 10,181\n"
            "draw 60% at 10,171\n"
            "draw 70% at 10,160\n"
            "draw 80% at 10,150\n"
            "draw 90% at 10,139\n"
            "draw 100% at 10,129\n"
            "draw hours at 10,224\n"
            "draw name2 at 52,150\n");
}

TEST(LaneBackground, MovesItsLabelsWithAWiderChart) {
  GivenChart chart(NewProgram(), 3040, 768);
  EXPECT_EQ(chart.Background(0).Text("draw 100%"), "draw 100% at 12,10\n");
  EXPECT_EQ(chart.Background(0).Text("draw name"), "draw name1 at 150,31\n");
}

TEST(LaneCurve, AnEmptyChannelHasNone) {
  GivenChart chart(GivenSteps(""));
  EXPECT_EQ(chart.Curve().Text(), "");
  EXPECT_EQ(chart.Steps().Text(), "");
}

TEST(LaneCurve, AChannelWithOneStepShowsItsMarkerButNoCurveAndNoArea) {
  GivenChart chart(GivenSteps("12:00 50"));
  EXPECT_EQ(chart.Curve().Text(), "");
  EXPECT_EQ(chart.Steps().Text(),
            "fill circle 452,62 r8.18 white\n"
            "stroke circle 452,62 r8.18 black w3\n");
}

TEST(LaneCurve, AJumpOverMidnightHoldsFromTheLeftEdge) {
  GivenChart chart(GivenSteps("06:00 10, 12:00 90, 18:00 40 J"));
  EXPECT_EQ(chart.Curve().Text("stroke"),
            "stroke figure salmon w4: 10,73 231,73 231,104 452,20 673,73 893,73\n");
}

TEST(LaneCurve, AfterAJumpAtTheDaysEndAStepAtMidnightFollowsAtTheLeftEdge) {
  // The curve begins at its value of 00:00, which is the step's own: it holds for no pixel.
  GivenChart chart(GivenSteps("00:00 20, 12:00 90, 18:00 40 J"));
  EXPECT_EQ(chart.Curve().Text("stroke"),
            "stroke figure salmon w4: 10,94 10,94 10,94 452,20 673,73 893,73\n");
}

TEST(LaneCurve, GoesThreePixelsUnderTheLane) {
  GivenChart chart(GivenSteps("06:00 0, 12:00 50"));
  EXPECT_EQ(chart.Curve().Text("fill"),
            "fill figure channel1 50%: 10,118 10,98 231,115 452,62 893,97 894,118 close\n");
}

TEST(LaneCurve, RunsBeyondTheLaneWhereTheViewIsZoomed) {
  GivenChart chart(GivenSteps("06:00 0, 18:00 100"));
  chart.ShowHours(10, 12);
  EXPECT_EQ(chart.Curve().Text("stroke"), "stroke figure salmon w4: -4410,62 -1758,115 3546,10 6190,62\n");
}

// Markers.

struct MarkerCase {
  const char* name;
  const char* steps;
  bool selected;
  bool hovered;
  const char* lines;
};
class StepMarkers : public TestWithParam<MarkerCase> {};

TEST_P(StepMarkers, ShowTheirState) {
  GivenChart chart(GivenSteps(GetParam().steps));
  if (GetParam().selected) chart.Select(0, 0);
  if (GetParam().hovered) chart.Hover(0, 0);
  EXPECT_EQ(chart.Steps().Text(), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(States, StepMarkers,
                         Values(MarkerCase{"Fade", "12:00 50", false, false,
                                           "fill circle 452,62 r8.18 white\n"
                                           "stroke circle 452,62 r8.18 black w3\n"},
                                MarkerCase{"Jump", "12:00 50 J", false, false,
                                           "fill box 443.82,53.82 16.36x16.36 white\n"
                                           "stroke box 443.82,53.82 16.36x16.36 black w3\n"},
                                MarkerCase{"HoveredFade", "12:00 50", false, true,
                                           "fill circle 452,62 r8.18 white\n"
                                           "stroke circle 452,62 r8.18 black w3\n"
                                           "stroke circle 452,62 r11.18 black w1\n"},
                                MarkerCase{"SelectedFade", "12:00 50", true, false,
                                           "fill circle 452,62 r10.1 salmon\n"
                                           "stroke circle 452,62 r10.1 black w3\n"
                                           "stroke circle 452,62 r13.1 black w1\n"},
                                MarkerCase{"SelectedAndHoveredJump", "12:00 50 J", true, true,
                                           "fill box 441.9,51.9 20.2x20.2 salmon\n"
                                           "stroke box 441.9,51.9 20.2x20.2 black w3\n"
                                           "stroke box 438.9,48.9 26.2x26.2 black w1\n"}),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(StepMarkers, AreMarkedInTheirOwnLaneOnly) {
  GivenChart chart(program_test::GivenDocument(program_test::GivenMode({"12:00 50", "12:00 50"})));
  chart.Select(1, 0);
  chart.Hover(1, 0);
  EXPECT_EQ(chart.Steps(0).Text("salmon") + chart.Steps(0).Text("w1"), "");
  EXPECT_EQ(chart.Steps(1).Text("salmon"), "fill circle 452,181 r10.1 salmon\n");
}

TEST(StepMarkers, IgnoreASelectionThatIsStale) {
  GivenChart chart(GivenSteps("12:00 50"));
  chart.Select(0, 1);
  chart.Hover(0, -7);
  EXPECT_EQ(chart.Steps().Text("salmon") + chart.Steps().Text("w1"), "");
}

TEST(StepMarkers, OfTwoStepsWithEqualXLieOverEachOtherWithoutMerging) {
  GivenChart chart(GivenSteps("12:00 50, 12:01 80"));
  EXPECT_EQ(chart.Steps().Text("fill"),
            "fill circle 452,62 r8.18 white\n"
            "fill circle 452,31 r8.18 white\n");
  chart.document.modes[0].channels[0][1].value = 50.0F;
  EXPECT_EQ(chart.Steps().Text("fill"),
            "fill circle 452,62 r8.18 white\n"
            "fill circle 452,62 r8.18 white\n")
      << "not even with the same value: smooth edges that lie on each other are darker";
}

TEST(StepMarkers, OfManyThatLieExactlyOnOneAnotherTwoAreDrawn) {
  GivenChart chart(GivenSteps("12:00 50, 12:00 50, 12:01 50, 12:01 50, 12:02 50 J, 12:02 50 J, 12:02 50 J"));
  EXPECT_EQ(chart.Steps().Text("fill"),
            "fill circle 452,62 r8.18 white\n"
            "fill circle 452,62 r8.18 white\n"
            "fill box 444.82,53.82 16.36x16.36 white\n"
            "fill box 444.82,53.82 16.36x16.36 white\n")
      << "12:02 is a pixel on";
  chart.Hover(0, 1);
  EXPECT_EQ(chart.Steps().Text("circle"),
            "fill circle 452,62 r8.18 white\n"
            "stroke circle 452,62 r8.18 black w3\n"
            "fill circle 452,62 r8.18 white\n"
            "stroke circle 452,62 r8.18 black w3\n"
            "stroke circle 452,62 r11.18 black w1\n"
            "fill circle 452,62 r8.18 white\n"
            "stroke circle 452,62 r8.18 black w3\n"
            "fill circle 452,62 r8.18 white\n"
            "stroke circle 452,62 r8.18 black w3\n")
      << "what is marked looks different and is always drawn";
}

TEST(StepMarkers, OutOfSightAreLeftOut) {
  // The chart's window is 904 pixels wide and 602 high; a marker and its ring reach 12.18 pixels.
  GivenChart chart(GivenSteps("06:00 50, 10:00 50, 12:00 50, 12:30 50"));
  chart.ShowHours(10, 12);
  EXPECT_EQ(chart.Steps().Text("fill"),
            "fill circle 10,62 r8.18 white\n"
            "fill circle 894,62 r8.18 white\n");
}

struct SightCase {
  const char* name;
  const char* step;
  bool isDrawn;
};
class MarkersInSight : public TestWithParam<SightCase> {};

TEST_P(MarkersInSight, AreDrawnIfAnyOfThemIs) {
  // A pixel a minute and a lane of 105 pixels for 100 percent.
  GivenChart chart(GivenSteps(GetParam().step), 140 + 120, 768);
  chart.ShowHours(10, 12);
  EXPECT_EQ(!chart.Steps().Text("fill").empty(), GetParam().isDrawn);
}

INSTANTIATE_TEST_SUITE_P(
    Edges, MarkersInSight,
    Values(SightCase{"LeftEdge", "09:50 50", true}, SightCase{"ALittleLeft", "09:38 50", true},
           SightCase{"TooFarLeft", "09:37 50", false}, SightCase{"RightEdge", "12:10 50", true},
           SightCase{"ALittleRight", "12:22 50", true}, SightCase{"TooFarRight", "12:23 50", false},
           SightCase{"ALittleAbove", "11:00 120", true}, SightCase{"TooFarAbove", "11:00 122", false},
           SightCase{"FarBelowButInTheWindow", "11:00 -400", true},
           SightCase{"TooFarBelow", "11:00 -486", false}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(StepMarkers, FollowTheWindowsHeight) {
  GivenChart low(GivenSteps("12:00 50"), 1024, 400);
  EXPECT_EQ(low.Steps().Text("fill"), "fill circle 452,25 r5.5 white\n");
  low.Select(0, 0);
  EXPECT_EQ(low.Steps().Text("fill"), "fill circle 452,25 r5.5 salmon\n");
  GivenChart high(GivenSteps("12:00 50"), 1024, 2000);
  EXPECT_EQ(high.Steps().Text("fill"), "fill circle 452,185 r10.5 white\n");
  high.Select(0, 0);
  EXPECT_EQ(high.Steps().Text("fill"), "fill circle 452,185 r12 salmon\n");
}

}  // namespace
}  // namespace chart_test
