// The curve's line: point by point as defined for any channel that has room for its points, and the same
// picture from fewer points for one that has not.

#include "chart/curve_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <vector>

#include "common/truncate.h"
#include "tests/program/program_fixture.h"
#include "tests/program/random_program.h"
#include "tests/support/plain_program.h"

namespace UX {

// How points look in a failed test.
void PrintTo(const Point& point, std::ostream* out) {
  *out << point.x << ',' << point.y;
}

}  // namespace UX

namespace chart_test {
namespace {

using namespace TCBase::Program;
using UX::Point;

using Points = std::vector<Point>;

constexpr UX::Rect kLane{10, 10, 884, 105};

Points LineOf(const Channel& channel, const UX::Rect& lane, const ModeListView& view) {
  UX::Figure line;
  UX::BuildCurveLine(line, channel, lane, view);
  return {line.Points().begin(), line.Points().end()};
}

// The points one after the other, as the curve is defined.
Points PlainLineOf(const Channel& channel, const UX::Rect& lane, const ModeListView& view) {
  Points points;
  if (channel.size() < 2) return points;
  const auto within = [](std::int32_t pixel) {
    return std::min(std::max(static_cast<float>(pixel), -UX::kFarthest), UX::kFarthest);
  };
  const auto add = [&](std::int64_t second, float percent) {
    points.push_back({within(UX::TimeToX(lane, view, second)), within(UX::PercentToY(lane, percent))});
  };
  std::int32_t v = TruncateToInt(Plain::ChannelValueAt(channel, 0));
  add(0, static_cast<float>(v));
  Step previous = channel.back();
  for (const Step& step : channel) {
    if (previous.jump) add(SecondOfDay(step), static_cast<float>(v));
    add(SecondOfDay(step), step.value);
    v = TruncateToInt(step.value);
    previous = step;
  }
  add(86340, Plain::ChannelValueAt(channel, 86340));
  return points;
}

// What a line covers: for each run of points in one column, the column, where the line comes in, how far it
// goes up and down there, and where it goes out.
struct ColumnRun {
  float x;
  float in;
  float top;
  float bottom;
  float out;
  friend bool operator==(const ColumnRun&, const ColumnRun&) = default;
};
std::vector<ColumnRun> RunsOf(const Points& points) {
  std::vector<ColumnRun> runs;
  for (const Point point : points) {
    if (runs.empty() || runs.back().x != point.x) {
      runs.push_back({point.x, point.y, point.y, point.y, point.y});
      continue;
    }
    ColumnRun& run = runs.back();
    run.top = std::min(run.top, point.y);
    run.bottom = std::max(run.bottom, point.y);
    run.out = point.y;
  }
  return runs;
}

TEST(CurveLine, HoldsAfterAJumpAndFadesOtherwise) {
  const ModeListView day;
  EXPECT_EQ(LineOf(program_test::GivenChannel("06:00 0, 12:00 50.9 J, 18:00 80"), kLane, day),
            (Points{{10, 73}, {231, 115}, {452, 61}, {673, 62}, {673, 31}, {893, 72}}))
      << "a jump holds the whole percents of 50.9";
  EXPECT_EQ(LineOf(program_test::GivenChannel("12:00 50"), kLane, day), Points());
  EXPECT_EQ(LineOf({}, kLane, day), Points());
}

TEST(CurveLine, KeepsEveryPointOfFourInAColumn) {
  // Two jumps within one pixel.
  const Channel channel = program_test::GivenChannel("06:00 10 J, 12:00 90 J, 12:01 20 J, 18:00 50");
  const ModeListView day;
  EXPECT_EQ(LineOf(channel, kLane, day), PlainLineOf(channel, kLane, day));
}

TEST(CurveLine, ThinsACrowdedColumnToWhatItCovers) {
  const Channel channel = program_test::GivenChannel(
      "06:00 10, 12:00 50, 12:00 60, 12:00 20, 12:00 40, 12:00 90, 12:00 30, 12:00 70, 18:00 50");
  EXPECT_EQ(LineOf(channel, kLane, ModeListView()),
            (Points{{10, 83}, {231, 104}, {452, 62}, {452, 94}, {452, 20}, {452, 41}, {673, 62}, {893, 83}}));
}

TEST(CurveLine, AFullDocumentHasAllItsPoints) {
  program_test::RandomProgram random(1);
  ModeListView morning;
  morning.viewStart = 6 * 3600;
  morning.viewEnd = 12 * 3600;
  for (const ModeListView& view : {ModeListView(), morning}) {
    for (int i = 0; i < 100; ++i) {
      const Mode mode = random.AscendingMode(kMaxModeSteps);
      for (const Channel& channel : mode.channels)
        EXPECT_EQ(LineOf(channel, kLane, view), PlainLineOf(channel, kLane, view)) << i;
    }
  }
}

class CurveLineOfAnyChannel : public testing::TestWithParam<program_test::ChannelKind> {};

TEST_P(CurveLineOfAnyChannel, CoversWhatAllItsPointsCover) {
  program_test::RandomProgram random(2);
  ModeListView morning;
  morning.viewStart = 6 * 3600;
  morning.viewEnd = 12 * 3600;
  for (const std::int32_t steps : {2, 5, 48, 500, 3000}) {
    const Channel channel = random.ChannelOf(GetParam(), steps);
    for (const UX::Rect lane : {kLane, UX::Rect{10, 10, 100, 20}, UX::Rect{10, 10, 0, 20}}) {
      for (const ModeListView& view : {ModeListView(), morning}) {
        const Points line = LineOf(channel, lane, view);
        const Points plain = PlainLineOf(channel, lane, view);
        EXPECT_EQ(RunsOf(line), RunsOf(plain)) << steps << " steps";
        EXPECT_LE(line.size(), 4 * RunsOf(line).size());
        EXPECT_LE(line.size(), plain.size());
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, CurveLineOfAnyChannel, testing::ValuesIn(program_test::kChannelKinds));

TEST(CurveLine, CostsNoMoreThanItsColumns) {
  Channel channel;
  for (std::int32_t i = 0; i < 100'000; ++i) {
    const std::int32_t minute = i * kMinutesPerDay / 100'000;
    channel.push_back({minute / 60, minute % 60, static_cast<float>(i * 37 % 101), i % 3 == 0});
  }
  EXPECT_LE(LineOf(channel, kLane, ModeListView()).size(), 4U * 884U);
}

}  // namespace
}  // namespace chart_test
