// Modes that follow curves: few rows, and the truth about how far they are off.

#include <gmock/gmock.h>

#include <functional>
#include <limits>

#include "tests/program/generate_fixture.h"
#include "tests/program/random_program.h"

namespace {

using namespace program_test;

DayCurves GivenCurves(const std::function<float(int channel, int minute)>& percent) {
  DayCurves curves;
  for (std::size_t c = 0; c < curves.size(); ++c) {
    for (std::size_t minute = 0; minute < curves[c].size(); ++minute)
      curves[c][minute] = percent(static_cast<int>(c), static_cast<int>(minute));
  }
  return curves;
}

float Wave(int minute) {
  return 50.0F + 50.0F * std::sin(static_cast<float>(minute) * 6.2831853F / 1440.0F);
}

TEST(Fit, AWaveIsMetByAFewRows) {
  const DayCurves wave = GivenCurves([](int, int minute) { return Wave(minute); });
  const Generated made = FitCurves(wave);
  ExpectOrdinarySteps(made);
  ExpectTrueError(made, wave);
  EXPECT_LE(made.error, kGoodFit);
  EXPECT_LE(CountModeSteps(made.mode), 20);
}

TEST(Fit, AControllerIsGivenTheSame) {
  const DayCurves wave = GivenCurves([](int channel, int minute) { return Wave(minute + 200 * channel); });
  const Generated made = FitCurves(wave);
  const std::vector<ModeStep> rows = Rows(made.mode);
  float error = 0.0F;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const ModeStep& from = rows[i];
    const ModeStep& to = rows[(i + 1) % rows.size()];
    const auto length =
        static_cast<int>((MinuteOfDay(to) - MinuteOfDay(from) + kMinutesPerDay - 1) % kMinutesPerDay + 1);
    for (std::size_t c = 0; c < wave.size(); ++c) {
      for (int passed = 0; passed < length; ++passed) {
        const auto part = static_cast<float>(passed) / static_cast<float>(length);
        const auto minute = static_cast<std::size_t>((MinuteOfDay(from) + passed) % kMinutesPerDay);
        const float percent =
            std::lerp(static_cast<float>(from.values[c]), static_cast<float>(to.values[c]), part);
        error = std::max(error, std::abs(percent - wave[c][minute]));
      }
    }
  }
  EXPECT_NEAR(error, made.error, 1e-3);
}

TEST(Fit, StraightLinesAreMetExactly) {
  const Mode given =
      GivenMode({"06:00 0, 08:00 80, 20:00 80, 22:00 0", "07:00 10, 23:00 50", "12:00 5, 13:00 5"});
  const DayCurves curves = CurvesOf(given);
  const Generated made = FitCurves(curves);
  EXPECT_LE(made.error, kGoodFit);
  EXPECT_EQ(made.mode.channels[2].size(), 2U);
  ExpectOrdinarySteps(made);
}

TEST(Fit, LightThatNeverChangesHasTwoStepsAChannel) {
  for (const float percent : {0.0F, 33.4F, 100.0F}) {
    const Generated made = FitCurves(GivenCurves([=](int, int) { return percent; }));
    ExpectOrdinarySteps(made);
    EXPECT_EQ(CountModeSteps(made.mode), 2);
    EXPECT_NEAR(made.error, std::abs(percent - std::round(percent)), 1e-5);
  }
}

TEST(Fit, WhatFitsInNoRowsIsToldAsWhatItIs) {
  const DayCurves comb = GivenCurves([](int, int minute) { return minute % 2 ? 100.0F : 0.0F; });
  const Generated made = FitCurves(comb);
  ExpectOrdinarySteps(made);
  ExpectTrueError(made, comb);
  EXPECT_GE(made.error, 50);
}

TEST(Fit, TakesWhateverCurves) {
  const float wild[] = {std::nanf(""),
                        std::numeric_limits<float>::infinity(),
                        -std::numeric_limits<float>::infinity(),
                        -1e30F,
                        1e30F,
                        1e-40F,
                        100.0F};
  const DayCurves curves = GivenCurves([&](int channel, int minute) {
    return wild[static_cast<std::size_t>(minute / 100 + channel) % std::size(wild)];
  });
  const Generated made = FitCurves(curves);
  ExpectOrdinarySteps(made);
  ExpectTrueError(made, curves);
}

TEST(Fit, AtRandomIsValidWithinItsRowsAndTrue) {
  for (int round = 0; round < 80; ++round) {
    RandomProgram random(static_cast<std::uint32_t>(round));
    const DayCurves curves = CurvesOf(random.AnyMode(1 + random.Below(30)));
    const int rows = random.Below(60) - 5;
    const Generated made = FitCurves(curves, rows);
    ExpectOrdinarySteps(made, std::clamp(rows, kFewestRows, kMaxModeSteps));
    ExpectTrueError(made, curves);
    if (HasFailure()) FAIL() << "round " << round;
  }
}

TEST(Fit, FewRowsAreFartherOff) {
  const DayCurves wave = GivenCurves([](int, int minute) { return Wave(minute); });
  EXPECT_GT(FitCurves(wave, 4).error, 5);
  EXPECT_LT(FitCurves(wave, 12).error, 5);
}

TEST(RoundedToFit, KeepsTheStepsWhereTheyAre) {
  const Mode given = GivenMode({"06:00 0.4, 08:00 79.6 J, 22:00 0", "07:00 10, 23:00 50", "01:00 0, 02:00 0",
                                "01:00 0, 02:00 0", "01:00 0, 02:00 0"});
  const Generated made = RoundedToFit(given);
  EXPECT_EQ(Told(made.mode.channels[0]), Told(GivenChannel("06:00 0, 08:00 80 J, 22:00 0")));
  EXPECT_NEAR(made.error, 0.4, 1e-5);
}

TEST(RoundedToFit, FitsWhatHasTooManyRows) {
  Mode given = GivenModeOfMergedSteps(200, 7);
  given.name = "Many";
  const Generated made = RoundedToFit(given);
  ExpectOrdinarySteps(made);
  ExpectTrueError(made, CurvesOf(given));
  EXPECT_EQ(made.mode.name, "Many");
}

}  // namespace
