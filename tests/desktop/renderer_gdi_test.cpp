// What the chart over GDI+ shows, by its pixels. The main window is 1024 by 768: lanes are 884 by 105, the
// first one at (10, 10), and an hour is 36.8 pixels.

#include "platform/win32/renderer_gdi.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "program/demo_state.h"
#include "tests/desktop/gdi_chart.h"

namespace {

using namespace desktop;

using RendererGdi = GdiChart;

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kGrid = 0xAAAAAA;
constexpr std::uint32_t kLabel = 0x696969;
constexpr std::uint32_t kName = 0x87CEFA;
constexpr std::uint32_t kCurve = 0xFA8072;
constexpr std::uint32_t kFrame = 0x323232;
constexpr std::uint32_t kMarker = 0xFFFF00;
constexpr std::uint32_t kFadeRim = 0xFF0000;
constexpr std::uint32_t kJumpRim = 0xAA46E6;
constexpr std::uint32_t kSelectedMarker = 0xFF4500;
constexpr std::uint32_t kTooltip = 0xFAFAD2;
constexpr std::uint32_t kDemo = 0x32B40A;

constexpr std::array<std::uint32_t, 5> kLanes = {0x400000, 0x004000, 0x000040, 0x404000, 0x004040};

// Grids.

constexpr int Middle(int from, int length) {
  return from + length / 2;
}

TEST_F(RendererGdi, LaneIsFilledWithItsChannelsColour) {
  Draw();
  for (int lane = 0; lane < 5; ++lane) {
    EXPECT_EQ(At(lane, "16:30", 25), kLanes[static_cast<std::size_t>(lane)]) << lane;
  }
  EXPECT_EQ(At(0, 0), kWhite);
  EXPECT_EQ(At(617, 122), kWhite) << "the gap between two lanes";
}

TEST_F(RendererGdi, GridHasALineForEachHourAndEachTenthOfTheHeight) {
  GivenSteps(0, {StepAt("12:00", 55)});
  Draw();
  const int y = Y(0, 25);
  for (const int x : {10, 46, 83, 231, 452, 673, 857, 894}) {
    EXPECT_EQ(At(x, y), kGrid) << x;
    EXPECT_NE(At(x + 1, y), kGrid) << x;
  }
  const int x = X(0, "16:30");
  // What lies under the curve is not seen, nor is the line at the foot where hours are written.
  for (const int line : {10, 20, 31, 41, 73, 83, 94, 115}) {
    EXPECT_EQ(At(x, line), kGrid) << line;
    EXPECT_NE(At(x, line + 1), kGrid) << line;
  }
}

TEST_F(RendererGdi, ZoomedGridIsClippedToItsLane) {
  GivenSteps(0, {StepAt("12:00", 55)});
  GivenView("06:01", "08:01");
  Draw();
  const int y = Y(0, 25);
  EXPECT_EQ(At(X(0, "07:00"), y), kGrid);
  EXPECT_EQ(X(0, "06:00"), 2) << "left of the lane, in sight of the window";
  EXPECT_EQ(picture.Count(kWhite, {0, 10, 10, 40}), 10 * 40);
  EXPECT_EQ(At(894, y), kGrid) << "the outline is one pixel wider than the lane";
  EXPECT_EQ(At(895, y), kWhite);
}

TEST_F(RendererGdi, WholeDayIsShownInTheOldSizeUntilRebuild) {
  // The kept grid is found by its colour alone. A size that changes without Rebuild shows the old picture,
  // cut off: odd, and how it is.
  GivenSteps(0, {StepAt("12:00", 55)});
  Draw();
  GivenSize(1024, 668);  // lanes of 85 pixels
  Draw();
  const int x = X(0, "16:30");
  EXPECT_EQ(At(x, 20), kGrid) << "a tenth of 105";
  EXPECT_EQ(At(x, 18), kLanes[0]);
  EXPECT_EQ(At(x, 95), kLanes[0]) << "no outline at the foot";
  renderer.Rebuild();
  Draw();
  EXPECT_EQ(At(x, 20), kLanes[0]);
  EXPECT_EQ(At(x, 18), kGrid) << "a tenth of 85";
  EXPECT_EQ(At(x, 95), kGrid);
}

TEST_F(RendererGdi, ZoomedGridIsDrawnInTheNewSizeAtOnce) {
  GivenSteps(0, {StepAt("12:00", 55)});
  GivenView("00:00", "23:59");
  Draw();
  GivenSize(1024, 668);
  Draw();
  EXPECT_EQ(At(X(0, "16:30"), 18), kGrid);
}

TEST_F(RendererGdi, LanesOfOneColourShareAGrid) {
  // The smaller lane comes first and makes the grid for both.
  layout.FocusLane(1);
  LetLanesSettle();
  const int footOfTheSmaller = Lane(1).y + Lane(0).height;
  Draw();
  EXPECT_EQ(At(X(1, "16:30"), footOfTheSmaller), kLanes[1]);
  program.channelInfos[1].color = program.channelInfos[0].color;
  Draw();
  EXPECT_EQ(At(X(1, "16:30"), footOfTheSmaller), kGrid);
}

TEST_F(RendererGdi, HoursAndPercentsAreWrittenOnTheGrid) {
  GivenSteps(0, {StepAt("12:00", 55)});
  Draw();
  EXPECT_GT(picture.Count(kLabel, {X(0, "12:00"), 103, 34, 12}), 0) << "12:00";
  EXPECT_GT(picture.Count(kLabel, {X(0, "23:00"), 103, 34, 12}), 0) << "23:00";
  for (int percent = 20; percent <= 100; percent += 10) {
    EXPECT_GT(picture.Count(kLabel, {10, Y(0, static_cast<float>(percent)), 30, 10}), 0) << percent;
  }
  EXPECT_EQ(picture.Count(kLabel, {500, 11, 390, 80}), 0) << "nowhere else";
}

TEST_F(RendererGdi, HoursMoveWithTheView) {
  GivenSteps(0, {StepAt("12:00", 55)});
  GivenView("06:00", "08:00");
  Draw();
  EXPECT_GT(picture.Count(kLabel, {X(0, "07:00"), 103, 34, 12}), 0);
  EXPECT_EQ(picture.Count(kLabel, {X(0, "07:20"), 103, 200, 12}), 0);
}

// Channels.

TEST_F(RendererGdi, ChannelWithoutANameIsNumbered) {
  Draw();
  const UX::Rect names = picture.Bounds(kName);
  EXPECT_NEAR(names.x, 10 + 36, 12);
  EXPECT_NEAR(names.y, 20, 12);
  const WindowPicture numbered = picture;
  for (int i = 0; i < 5; ++i) {
    program.channelInfos[static_cast<std::size_t>(i)].name = "Channel " + std::to_string(i + 1);
  }
  EXPECT_EQ(Draw(), numbered);
  program.channelInfos[4].name = "Moon";
  EXPECT_NE(Draw(), numbered);
}

TEST_F(RendererGdi, CurveRunsFlatBeforeAStepThatJumps) {
  // The other way round than everywhere else, where the flag of the step before decides: there the curve
  // rises to 80 percent by noon and stays there until 18:00.
  const TCBase::Program::Channel steps = {StepAt("06:00", 20), StepAt("12:00", 80, kJump),
                                          StepAt("18:00", 40)};
  ASSERT_EQ(ChannelValueAt(steps, 11 * 3600 - 1800), 65.0F);
  ASSERT_EQ(ChannelValueAt(steps, std::int64_t{15} * 3600), 80.0F);
  GivenSteps(0, steps);
  Draw();
  EXPECT_EQ(At(0, "10:30", 20), kCurve);
  EXPECT_EQ(At(0, "10:30", 65), kLanes[0]);
  EXPECT_EQ(At(0, "12:00", 50), kCurve) << "the jump";
  EXPECT_EQ(At(0, "15:00", 60), kCurve) << "on its way down";
  EXPECT_NE(At(0, "15:00", 80), kCurve);
}

TEST_F(RendererGdi, CurveSlopesWhereNoStepJumps) {
  GivenSteps(0, {StepAt("06:00", 20), StepAt("12:00", 80), StepAt("18:00", 40)});
  Draw();
  EXPECT_EQ(At(0, "09:00", 50), kCurve);
  EXPECT_EQ(At(0, "15:00", 60), kCurve);
  EXPECT_EQ(At(0, "00:10", 30), kCurve) << "half way from 18:00 to 06:00";
  EXPECT_EQ(At(0, "23:50", 30), kCurve);
}

TEST_F(RendererGdi, CurveIsATwentiethOfTheLaneThick) {
  GivenSteps(1, {StepAt("12:00", 50)});
  Draw();
  const auto thickness = [&] { return picture.Count(kCurve, {X(1, "16:30"), Lane(1).y, 1, Lane(1).height}); };
  EXPECT_NEAR(thickness(), 105 / 20.0, 1.0);
  layout.FocusLane(1);
  LetLanesSettle();
  Draw();
  EXPECT_NEAR(thickness(), 194 / 20.0, 1.0);
}

TEST_F(RendererGdi, NothingIsFilledUnderTheCurve) {
  GivenSteps(0, {StepAt("06:00", 80), StepAt("18:00", 80)});
  Draw();
  EXPECT_EQ(At(0, "12:30", 45), kLanes[0]);
  EXPECT_EQ(At(0, "12:30", 95), kLanes[0]);
}

TEST_F(RendererGdi, CurveIsDrawnForAnyCountOfSteps) {
  GivenSteps(0, {StepAt("12:00", 50)});
  Draw();
  EXPECT_EQ(At(0, "04:00", 50), kCurve) << "one step";
  EXPECT_EQ(At(1, "04:00", 0), kCurve) << "no step";
}

TEST_F(RendererGdi, CurveAndMarkersStayNearTheirLane) {
  GivenSteps(1, {StepAt("06:00", 400), StepAt("18:00", -300)});
  Draw();
  EXPECT_GT(picture.Count(kCurve, {0, Lane(1).y - 13, 904, Lane(1).height + 26}), 0);
  EXPECT_EQ(picture.Count(kCurve, {0, 10, 904, 90}), 0) << "the lane above";
  EXPECT_EQ(Count(kMarker), 0) << "too far off";
}

TEST_F(RendererGdi, MarkersAreYellowWithARimThatTellsAJump) {
  GivenSteps(0, {StepAt("08:00", 50), StepAt("16:00", 50, kJump)});
  Draw();
  EXPECT_EQ(At(0, "08:00", 50), kMarker);
  EXPECT_EQ(At(0, "16:00", 50), kMarker);
  const UX::Rect fade = picture.Bounds(kFadeRim);
  const UX::Rect jump = picture.Bounds(kJumpRim);
  EXPECT_NEAR(Middle(fade.x, fade.width), X(0, "08:00"), 1);
  EXPECT_NEAR(Middle(jump.x, jump.width), X(0, "16:00"), 1);
  EXPECT_NEAR(fade.width, 16 + 2, 1);
  EXPECT_NEAR(jump.width, 16 + 3, 1);
}

TEST_F(RendererGdi, MarkersGoByTheHeightOfTheWindow) {
  struct Row {
    int height;
    int diameter;  // 1 more than the fiftieth part of the height, which stays within 10 to 20
  };
  for (const Row& row : {Row{400, 11}, Row{768, 16}, Row{1100, 21}}) {
    GivenSize(1024, row.height);
    renderer.Rebuild();
    GivenSteps(0, {StepAt("12:00", 50)});
    Draw();
    // The rim, 2 wide, covers half of itself.
    EXPECT_NEAR(picture.Bounds(kMarker).width, row.diameter - 2, 1) << row.height;
    EXPECT_NEAR(picture.Bounds(kFadeRim).width, row.diameter + 2, 1) << row.height;
  }
}

// What is selected.

TEST_F(RendererGdi, SelectedChannelIsFramed) {
  Select(1, -1);
  Draw();
  const UX::Rect lane = Lane(1);
  EXPECT_EQ(At(lane.x - 3, lane.y + 50), kFrame);
  EXPECT_EQ(At(lane.x + lane.width + 3, lane.y + 50), kFrame);
  EXPECT_EQ(At(400, lane.y - 3), kFrame);
  EXPECT_EQ(At(400, lane.y + lane.height + 3), kFrame);
  EXPECT_EQ(picture.Bounds(kFrame).height, 105 + 6 + 2);
}

TEST_F(RendererGdi, NothingIsFramedWithoutASelectedChannel) {
  for (const int channel : {-1, 5}) {
    Select(channel, 0);
    Draw();
    EXPECT_EQ(Count(kFrame), 0) << channel;
  }
}

TEST_F(RendererGdi, SelectedStepHasItsOwnMarkerAndATooltip) {
  GivenSteps(0, {StepAt("08:00", 50), StepAt("12:00", 80), StepAt("16:00", 50)});
  Select(0, 1);
  Draw();
  EXPECT_EQ(At(0, "08:00", 50), kMarker);
  const int x = X(0, "12:00");
  const int y = Y(0, 80);
  EXPECT_EQ(At(x, y), kSelectedMarker);
  EXPECT_EQ(At(x - 8, y), kBlack) << "the rim of the marker";
  EXPECT_EQ(At(x - 10, y), kBlack) << "the ring around it";
  EXPECT_EQ(At(x - 13, y - 2), kLanes[0]);
  const UX::Rect tooltip = picture.Bounds(kTooltip);
  EXPECT_NEAR(Middle(tooltip.x, tooltip.width), x, 2) << "below the step";
  EXPECT_NEAR(Middle(tooltip.y, tooltip.height), y + 2 * 16, 2);
  EXPECT_GT(picture.Count(kBlack, tooltip), 20) << "12:00, 80%";
  EXPECT_EQ(At(tooltip.x - 1, y + 2 * 16), kBlack) << "its outline";
}

TEST_F(RendererGdi, TooltipStaysWithinTheLane) {
  for (const float percent : {0.0F, 30.0F, 100.0F}) {
    for (const char* time : {"00:00", "12:00", "23:59"}) {
      GivenSteps(2, {StepAt(time, percent)});
      Select(2, 0);
      Draw();
      const UX::Rect tooltip = picture.Bounds(kTooltip);
      const UX::Rect lane = Lane(2);
      SCOPED_TRACE(std::string(time) + ", " + std::to_string(percent));
      ASSERT_GT(tooltip.width, 10);
      EXPECT_GE(tooltip.x, lane.x);
      EXPECT_GE(tooltip.y, lane.y);
      EXPECT_LE(tooltip.x + tooltip.width, lane.x + lane.width);
      EXPECT_LE(tooltip.y + tooltip.height, lane.y + lane.height);
    }
  }
}

TEST_F(RendererGdi, StaleSelectionMarksNoStep) {
  GivenSteps(0, {StepAt("08:00", 50)});
  for (const int step : {-1, 1}) {
    Select(0, step);
    Draw();
    EXPECT_EQ(Count(kSelectedMarker) + Count(kTooltip), 0) << step;
  }
}

// The demo.

TEST_F(RendererGdi, DemoIsALineOverTheWholeHeight) {
  demoState.SetRunning(12 * 3600, TCBase::StatePlaying);
  Draw();
  for (const int y : {1, 64, 300, 600}) EXPECT_EQ(At(452, y), kDemo) << y;
  EXPECT_NEAR(Count(kDemo), 2 * 602, 602);
}

TEST_F(RendererGdi, DemoLineStandsOnWholeMinutesOfTheDay) {
  GivenView("12:00", "14:00");
  demoState.SetRunning(12 * 3600 + 30 * 60 + 59, TCBase::StatePlaying);
  const WindowPicture first = Draw();
  EXPECT_EQ(At(231, 5), kDemo);
  demoState.SetRunning(86400 + 12 * 3600 + 30 * 60, TCBase::StatePlaying);
  EXPECT_EQ(Draw(), first) << "the next day";
  demoState.SetRunning(12 * 3600 + 31 * 60, TCBase::StatePlaying);
  Draw();
  EXPECT_EQ(At(238, 5), kDemo);
}

TEST_F(RendererGdi, NoDemoLineWithoutADemoOrOutsideTheView) {
  Draw();
  EXPECT_EQ(Count(kDemo), 0);
  GivenView("12:00", "14:00");
  demoState.SetRunning(12 * 3600 - 60, TCBase::StatePlaying);
  Draw();
  EXPECT_EQ(Count(kDemo), 0) << "it would stand in the window's margin";
}

// As a renderer.

TEST_F(RendererGdi, OtherSlotsChangeNothing) {
  GivenSteps(0, {StepAt("08:00", 50)});
  const WindowPicture before = Draw();
  renderer.Initialise();
  renderer.MouseMoved(300, 60);
  renderer.Relayout();
  renderer.Update();
  LetLanesSettle();
  EXPECT_FALSE(renderer.IsAnimating());
  EXPECT_EQ(Draw(), before);
  renderer.Release();
  EXPECT_EQ(Draw(), before);
}

TEST_F(RendererGdi, PaintsOnlyWhatTheWindowAsksFor) {
  const WindowPicture before = Draw();
  EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE)) << "all has been painted";
  GivenSteps(0, {StepAt("08:00", 50)});
  renderer.Render();
  EXPECT_EQ(WindowPicture(window), before);
}

}  // namespace
