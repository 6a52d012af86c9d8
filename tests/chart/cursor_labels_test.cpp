#include "chart/cursor_labels.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/chart/chart_fixture.h"

namespace chart_test {
namespace {

// In a window of 1024 by 768 a text of the small format is 9.43 pixels high and 3.77 a letter wide.

class CursorLabelsTest : public testing::Test {
 protected:
  std::string AtCursor(UX::Point at) {
    chart.canvas.Clear();
    labels.DrawCursorLabels(chart.canvas, at);
    return chart.canvas.Text();
  }
  std::string AtCurve(UX::Point at, std::int32_t lane = 0) {
    chart.canvas.Clear();
    labels.DrawValueLabel(chart.canvas, lane, at);
    return chart.canvas.Text();
  }
  std::string Cross(UX::Point at) {
    chart.canvas.Clear();
    labels.DrawCrosshair(chart.canvas, at);
    return chart.canvas.Text();
  }

  GivenChart chart{GivenSteps("06:00 0, 12:00 50.9, 18:00 80")};
  UX::CursorLabels labels{chart.scene};
};

TEST_F(CursorLabelsTest, TellTheTimeOnTheLeftAndThePercentageOnTheRight) {
  EXPECT_EQ(AtCursor({452, 62}),
            "fill round 426,49 24x15 r5 white 50%\n"
            "text small \"12:00\" within 100x50 darkGray at 429,52\n"
            "fill round 453,49 17x15 r5 white 50%\n"
            "text small \"50%\" within 100x50 darkGray at 456,52\n");
}

// They stand at whole pixels all the same. A point that has come to rest is a hair beside the mouse's pixel;
// what they tell must not be that of the pixel before.
TEST_F(CursorLabelsTest, TellTheTimeAndPercentageOfAPointBetweenPixels) {
  EXPECT_EQ(AtCursor({452.9F, 62.9F}),
            "fill round 426,49 24x15 r5 white 50%\n"
            "text small \"12:01\" within 100x50 darkGray at 429,52\n"
            "fill round 453,49 17x15 r5 white 50%\n"
            "text small \"49%\" within 100x50 darkGray at 456,52\n")
      << "442.9 pixels of 97.74 seconds are 12:01:27, 52.1 pixels of 1.05 a percent are 49.6";
  EXPECT_NE(AtCursor({451.999F, 62}).find("\"11:59\""), std::string::npos) << "451 would be 11:58";
  EXPECT_NE(AtCursor({9.999F, 62}), "") << "less than a second before the day";
}

TEST_F(CursorLabelsTest, TellNoPercentageBetweenTwoLanes) {
  EXPECT_EQ(AtCursor({452, 120}),
            "fill round 426,107 24x15 r5 white 50%\n"
            "text small \"12:00\" within 100x50 darkGray at 429,110\n");
}

TEST_F(CursorLabelsTest, AreNotThereOffTheDay) {
  EXPECT_EQ(AtCursor({9, 62}), "");
  EXPECT_EQ(AtCursor({894, 62}), "");
  EXPECT_NE(AtCursor({10, 62}), "");
  EXPECT_NE(AtCursor({893, 62}), "");
}

TEST_F(CursorLabelsTest, FollowTheView) {
  chart.ShowHours(6, 8);
  EXPECT_NE(AtCursor({452, 62}).find("\"07:00\""), std::string::npos);
}

TEST_F(CursorLabelsTest, TellTheWholePercentsOfTheCurve) {
  EXPECT_EQ(AtCurve({452, 300}),
            "fill round 449,48 17x15 r5 white 70%\n"
            "text small \"50%\" within 100x50 gray at 452,51\n")
      << "the label stands on the curve, at 50.9";
}

TEST_F(CursorLabelsTest, TellZeroForAnEmptyChannel) {
  EXPECT_EQ(AtCurve({452, 300}, 3),
            "fill round 449,459 13x15 r5 white 70%\n"
            "text small \"0%\" within 100x50 gray at 452,462\n");
}

TEST_F(CursorLabelsTest, TellNoValueOffTheDay) {
  EXPECT_EQ(AtCurve({9, 300}), "");
  EXPECT_EQ(AtCurve({894, 300}), "");
}

TEST_F(CursorLabelsTest, TheCrossGoesOverAllLanes) {
  EXPECT_EQ(Cross({452.5F, 62.25F}),
            "stroke box 10,62.25 884x0 darkGray w1\n"
            "stroke box 452.5,0 0x602 darkGray w1\n");
  EXPECT_EQ(Cross({9, 62}), "");
}

TEST_F(CursorLabelsTest, LeaveTheCanvasUnmoved) {
  AtCursor({452, 62});
  EXPECT_EQ(Cross({452, 62}), "stroke box 10,62 884x0 darkGray w1\nstroke box 452,0 0x602 darkGray w1\n");
}

}  // namespace
}  // namespace chart_test
