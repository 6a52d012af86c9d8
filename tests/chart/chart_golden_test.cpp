// Labels, lanes and motion as text, to be reviewed by eye: what recording_canvas.h explains. Whole frames are
// in golden_frames_test.cpp, which tells how the files are written anew.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "chart/demo_cursor.h"
#include "program/builtin_modes.h"
#include "tests/chart/chart_fixture.h"
#include "tests/support/golden.h"

namespace chart_test {
namespace {

void ExpectGolden(const std::string& name, const std::string& actual) {
  golden::Expect("tests/chart/golden/" + name + ".txt", actual);
}

TEST(ChartGolden, Rebuild) {
  GivenChart chart(NewProgram());
  chart.drawing.Rebuild(chart.canvas);
  ExpectGolden("rebuild", chart.canvas.Text());
}

TEST(ChartGolden, RelayoutOfAMorning) {
  GivenChart chart(NewProgram());
  chart.document.viewStart = 6 * 3600;
  chart.document.viewEnd = 12 * 3600;
  chart.drawing.Relayout(chart.canvas);
  ExpectGolden("relayout_morning", chart.canvas.Text());
}

// Curve and markers of one lane.

struct LaneCase {
  const char* name;
  const char* steps;
  std::int32_t fromHour = 0;
  std::int32_t toHour = 24;
  std::int32_t selected = -1;
  std::int32_t hovered = -1;
};

class ChartGoldenLane : public testing::TestWithParam<LaneCase> {};

TEST_P(ChartGoldenLane, CurveAndSteps) {
  const LaneCase& lane = GetParam();
  GivenChart chart(GivenSteps(lane.steps));
  chart.ShowHours(lane.fromHour, lane.toHour);
  chart.Select(0, lane.selected);
  chart.Hover(0, lane.hovered);
  ExpectGolden(std::string("lane_") + lane.name, chart.Curve().Text() + chart.Steps().Text());
}

INSTANTIATE_TEST_SUITE_P(
    Lanes, ChartGoldenLane,
    testing::Values(LaneCase{"one_step", "12:00 50"}, LaneCase{"one_jump_step", "12:00 50 J"},
                    LaneCase{"fades", "06:00 0, 09:30 80.7, 18:00 80, 22:00 5"},
                    LaneCase{"jumps", "06:00 10 J, 12:00 90 J, 18:00 40 J"},
                    LaneCase{"jump_over_midnight", "06:00 10, 12:00 90, 18:00 40 J"},
                    LaneCase{"jump_to_midnight", "00:00 20, 12:00 90, 18:00 40 J"},
                    LaneCase{"one_minute", "12:00 10, 12:00 90, 12:00 50"},
                    LaneCase{"out_of_range", "-5:00 50, 12:00 150, 30:00 -20, 2000000000:0 50"},
                    LaneCase{"two_hours", "06:00 0, 11:00 80, 12:00 20 J, 18:00 80", 11, 13},
                    LaneCase{"morning", "06:00 0, 09:30 80 J, 18:00 80", 6, 12},
                    LaneCase{"selected", "06:00 0, 12:00 50, 18:00 80 J", 0, 24, 1},
                    LaneCase{"hovered", "06:00 0, 12:00 50, 18:00 80 J", 0, 24, -1, 2},
                    LaneCase{"selected_and_hovered", "06:00 0, 12:00 50, 18:00 80 J", 0, 24, 2, 2}),
    [](const auto& test) { return std::string(test.param.name); });

// Motion.

TEST(ChartGolden, ALaneComesIntoFocus) {
  GivenChart chart(NewProgram());
  chart.layout.FocusLane(2);
  std::string text;
  for (const double wait : {0.0, 0.05, 0.05, 0.1}) {
    chart.Wait(wait);
    chart.Frame();
    text += "after " + std::to_string(static_cast<int>(wait * 1000.0)) + " more ms\n" +
            chart.canvas.Text("draw hours") + chart.canvas.Text("draw name");
  }
  ExpectGolden("motion_focus", text);
}

TEST(ChartGolden, ABalloonGrows) {
  GivenChart chart(GivenSteps("06:00 0, 12:00 50, 18:00 80"));
  chart.Hover(0, 1);
  std::string text;
  for (const double wait : {0.0, 0.05, 0.05, 0.1, 0.1}) {
    chart.Wait(wait);
    chart.drawing.Update();
    chart.Frame();
    text += "after " + std::to_string(static_cast<int>(wait * 1000.0)) + " more ms\n" +
            chart.canvas.Text("round") + chart.canvas.Text("medium");
  }
  ExpectGolden("motion_balloon", text);
}

TEST(ChartGolden, ADemoMovesOn) {
  GivenChart chart(NewProgram());
  UX::DemoCursor cursor(chart.scene);
  chart.PlayDemo(12 * 3600, {0, 25, 50, 75, 100});
  chart.canvas.Clear();
  std::string text;
  for (const double wait : {0.0, 0.05, 0.1}) {
    chart.Wait(wait);
    cursor.DrawDemoCursor(chart.canvas);
    text += "after " + std::to_string(static_cast<int>(wait * 1000.0)) + " more ms\n" + chart.canvas.Text();
    chart.canvas.Clear();
  }
  ExpectGolden("motion_demo", text);
}

}  // namespace
}  // namespace chart_test
