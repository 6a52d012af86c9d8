// Single steps: range and wording.

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "program/program.h"
#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

struct Normalized {
  const char* name;
  Step given;
  Step expected;
};

class Normalizing : public testing::TestWithParam<Normalized> {};

TEST_P(Normalizing, BringsTimeAndValueIntoRange) {
  Step step = GetParam().given;
  Normalize(step);
  EXPECT_EQ(step, GetParam().expected);
}

constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();

INSTANTIATE_TEST_SUITE_P(
    Steps, Normalizing,
    testing::Values(Normalized{"InRangeStays", {8, 5, 40.5F, true}, {8, 5, 40.5F, true}},
                    Normalized{"TenPastMidnightTomorrowIsTheLastMinute", {24, 10, 0}, {23, 59, 0}},
                    Normalized{"AMinuteBeforeMidnightIsMidnight", {0, -1, 0}, {0, 0, 0}},
                    Normalized{"AboveFullIsFull", {1, 0, 120}, {1, 0, 100}},
                    Normalized{"BelowNothingIsNothing", {1, 0, -0.5F}, {1, 0, 0}},
                    Normalized{"TheLastMinuteStays", {23, 59, 100}, {23, 59, 100}},
                    Normalized{"SeventyFiveMinutesAreAnHourAndAQuarter", {0, 75, 1}, {1, 15, 1}},
                    Normalized{"HoursAndMinutesMakeUpForEachOther", {10, -30, 1}, {9, 30, 1}},
                    Normalized{"TheHighestHour", {kHighest, kHighest, 1}, {23, 59, 1}},
                    Normalized{"TheLowestHour", {kLowest, kLowest, 1}, {0, 0, 1}}),
    [](const auto& test) { return test.param.name; });

TEST(StepTime, IsTheMinuteOfASecond) {
  Step step{1, 2, 40, true, 7};
  SetTime(step, 29159);
  EXPECT_EQ(step, (Step{8, 5, 40, true}));
  EXPECT_EQ(SecondOfDay(step), 29100);
  EXPECT_EQ(step.id, 7U);

  ModeStep row{1, 2, {40}, {true}};
  SetTime(row, 29159);
  EXPECT_EQ(row, (ModeStep{8, 5, {40}, {true}}));
  EXPECT_EQ(MinuteOfDay(row), 485);
  EXPECT_EQ(SecondOfDay(row), 29100);
}

TEST(MakingAStep, GivesOneThatFadesWithAnIdOfItsOwn) {
  const Step step = MakeStep(86399, 12.5F);
  EXPECT_EQ(step, (Step{23, 59, 12.5F, false}));
  EXPECT_EQ(MakeStep(0, 0).id, step.id + 1);
}

TEST(StepText, TimeHasTwoDigitsEach) {
  EXPECT_EQ(ToTimeText({8, 5}), "08:05");
  EXPECT_EQ(ToTimeText({23, 59}), "23:59");
}

TEST(StepText, ChartLabelHasTimeOverValue) {
  EXPECT_EQ(ToChartLabel({8, 5, 40}), "08:05\n40%");
  EXPECT_EQ(ToChartLabel({18, 30, 5.9F}), "18:30\n5%");
}

TEST(StepText, DescriptionTellsAJump) {
  EXPECT_EQ(ToDescription({8, 5, 40, true}), "(Time: 08:05) (Strength: 40, Jump)");
  EXPECT_EQ(ToDescription({8, 5, 99.99F, false}), "(Time: 08:05) (Strength: 99)");
}

TEST(StepEquality, ComparesAllButTheSerial) {
  const Step step{8, 0, 40, false, 1};
  EXPECT_EQ(step, (Step{8, 0, 40, false, 2}));
  EXPECT_FALSE(step == (Step{9, 0, 40, false, 1}));
  EXPECT_FALSE(step == (Step{8, 1, 40, false, 1}));
  EXPECT_FALSE(step == (Step{8, 0, 40.5F, false, 1}));
  EXPECT_FALSE(step == (Step{8, 0, 40, true, 1}));
}

TEST(StepSerial, IsNeverGivenTwice) {
  const std::uint32_t one = NextStepId();
  EXPECT_EQ(NextStepId(), one + 1);
}

}  // namespace
}  // namespace program_test
