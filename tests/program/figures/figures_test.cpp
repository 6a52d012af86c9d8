#include "program/figures/figures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>

#include "tests/program/program_fixture.h"
#include "tests/program/random_program.h"

namespace {

using namespace program_test;

constexpr double kExact = 1e-6;
// What 32-bit arithmetic leaves of a percent.
constexpr double kFloats = 1e-3;

std::int32_t Second(int hour, int minute) {
  return (hour * 60 + minute) * 60;
}

Figures Of(std::string_view steps, const LampFacts& facts = {}) {
  return FiguresOf(GivenMode({steps}), facts).channels[0];
}

// Light.

TEST(FiguresOfADay, BeginAndEndWithItsLight) {
  const Figures figures = Of("08:00 0, 09:00 100, 19:00 100, 20:00 0");
  ASSERT_TRUE(figures.light);
  EXPECT_EQ(figures.light->begin, Second(8, 0) + 1) << "at 08:00 itself it is 0";
  EXPECT_EQ(figures.light->end / 60, Second(20, 0) / 60);
  EXPECT_NEAR(figures.hoursOfLight, 12.0, 2.0 / 3600.0);
  EXPECT_NEAR(figures.percentHours, 100.0 * 11.0, kFloats);
}

TEST(FiguresOfADay, GoOnOverMidnight) {
  const Figures figures = Of("02:30 0 J, 18:00 80 J");
  ASSERT_TRUE(figures.light);
  EXPECT_EQ(*figures.light, (LightSpan{Second(18, 0), Second(2, 30)}));
  EXPECT_NEAR(figures.hoursOfLight, 8.5, kExact);
  EXPECT_NEAR(figures.percentHours, 80.0 * 8.5, kExact);
}

TEST(FiguresOfADay, TakeAMiddayBreakForAPartOfTheLight) {
  const Figures figures = Of("06:00 50 J, 11:00 0 J, 13:00 50 J, 21:00 0 J");
  EXPECT_EQ(figures.light, (LightSpan{Second(6, 0), Second(21, 0)}));
  EXPECT_NEAR(figures.hoursOfLight, 13.0, kExact);
}

TEST(FiguresOfADay, HaveNoBeginningWithoutLightOrWithoutDarkness) {
  for (const char* dark : {"", "12:00 0", "08:00 0, 20:00 0", "08:00 -5, 20:00 -7"}) {
    EXPECT_EQ(Of(dark).light, std::nullopt) << dark;
    EXPECT_EQ(Of(dark).hoursOfLight, 0.0) << dark;
    EXPECT_EQ(Of(dark).percentHours, 0.0) << dark;
  }
  const Figures always = Of("12:00 40");
  EXPECT_EQ(always.light, std::nullopt);
  EXPECT_EQ(always.hoursOfLight, 24.0);
  EXPECT_EQ(always.percentHours, 40.0 * 24.0);
}

TEST(FiguresOfADay, CountTheHoursAboveALevel) {
  LampFacts facts;
  facts.level = 50.0;
  EXPECT_EQ(Of("06:00 50 J, 10:00 51 J, 12:00 0 J", facts).hoursAboveLevel, 2.0)
      << "the level itself is not above it";
  facts.level = 25.0;
  EXPECT_NEAR(Of("00:00 0, 12:00 100", facts).hoursAboveLevel, 18.0, 3.0 / 3600.0);
  facts.level = 100.0;
  EXPECT_EQ(Of("12:00 100", facts).hoursAboveLevel, 0.0);
}

TEST(FiguresOfADay, HaveTheSteepestRise) {
  const Figures jump = Of("08:00 80 J, 20:00 0 J");
  EXPECT_EQ(jump.steepestRise, 80.0);
  EXPECT_EQ(jump.steepestMinute, 8 * 60);
  const Figures fade = Of("08:00 0, 10:00 60, 20:00 0");
  EXPECT_NEAR(fade.steepestRise, 0.5, kFloats);
  EXPECT_EQ(fade.steepestMinute, 8 * 60 + 1)
      << "the first minute of a long rise, not where floats lie highest";
  const Figures midnight = Of("00:00 70 J, 12:00 0 J");
  EXPECT_EQ(midnight.steepestRise, 70.0);
  EXPECT_EQ(midnight.steepestMinute, 0);
  EXPECT_EQ(Of("12:00 40").steepestRise, 0.0);
}

TEST(FiguresOfADay, PassOverADarknessOfLessThanAMinute) {
  EXPECT_EQ(Of("08:00 0, 14:00 50").light, std::nullopt) << "dark at 08:00 and on neither side of it";
  EXPECT_EQ(Of("08:00 0 J, 08:01 50 J").light, (LightSpan{Second(8, 1), Second(8, 0)}));
}

// What is told of the lamps.

TEST(FiguresOfADay, BecomeEnergyAndLightByWhatIsTold) {
  LampFacts facts;
  facts.watts = {40, 0, 20, 0, 0};
  facts.par = {200, 100, 0, 0, 0};
  facts.price = 0.30;
  const ModeFigures figures =
      FiguresOf(GivenMode({"12:00 50", "08:00 100 J, 18:00 0 J", "12:00 100"}), facts);
  EXPECT_NEAR(figures.channels[0].energy.value(), 0.48, kExact) << "half of 40 W over 24 hours";
  EXPECT_NEAR(figures.channels[0].cost.value(), 0.144, kExact);
  EXPECT_NEAR(figures.channels[0].dli.value(), 100.0 * 86400.0 / 1e6, kExact);
  EXPECT_EQ(figures.channels[1].energy, std::nullopt);
  EXPECT_EQ(figures.channels[1].cost, std::nullopt);
  EXPECT_NEAR(figures.channels[1].dli.value(), 3.6, kExact) << "100 umol over ten hours";
  EXPECT_EQ(figures.channels[2].dli, std::nullopt);
  EXPECT_NEAR(figures.all.energy.value(), 0.48 + 0.48, kExact);
  EXPECT_NEAR(figures.all.cost.value(), 0.288, kExact);
  EXPECT_NEAR(figures.all.dli.value(), 8.64 + 3.6, kExact);
}

TEST(FiguresOfADay, HaveNoCostWithoutAPriceAndNothingWithoutWatts) {
  LampFacts facts;
  facts.watts = {40};
  const ModeFigures figures = FiguresOf(GivenMode({"12:00 50"}), facts);
  EXPECT_TRUE(figures.all.energy);
  EXPECT_FALSE(figures.all.cost);
  EXPECT_FALSE(figures.all.dli);
  EXPECT_FALSE(FiguresOf(GivenMode({"12:00 50"}), {}).all.energy);
}

TEST(FiguresOfADay, AMonthIsATwelfthOfAYear) {
  EXPECT_NEAR(kDaysPerMonth * 12.0, 365.25, kExact);
}

// All channels.

TEST(FiguresOfAllChannels, HaveLightWhereAnyHasSome) {
  const ModeFigures figures = FiguresOf(
      GivenMode({"08:00 80 J, 12:00 0 J", "", "11:00 30 J, 20:00 0 J", "13:00 60 J, 14:00 0 J"}), {});
  EXPECT_EQ(figures.all.light, (LightSpan{Second(8, 0), Second(20, 0)}));
  EXPECT_EQ(figures.all.hoursOfLight, 12.0);
  EXPECT_EQ(figures.all.hoursAboveLevel, 4.0 + 1.0);
  EXPECT_NEAR(figures.all.percentHours, 80.0 * 4 + 30.0 * 9 + 60.0, kExact);
  EXPECT_EQ(figures.all.steepestRise, 80.0);
  EXPECT_EQ(figures.all.steepestMinute, 8 * 60);
}

// Against other ways to the same.

// The seconds of a stretch from a step up to the next: a fade's first second weighs more than the last by
// half of what it falls.
double Integral(const Step& from, const Step& to) {
  const double span =
      static_cast<double>((SecondOfDay(to) - SecondOfDay(from) + kSecondsPerDay) % kSecondsPerDay);
  const double a = from.value;
  const double b = to.value;
  return from.jump ? a * span : (a + b) / 2.0 * span + (a - b) / 2.0;
}

double Integral(const Channel& channel) {
  if (channel.size() < 2)
    return channel.empty() ? 0.0 : static_cast<double>(channel[0].value) * kSecondsPerDay;
  double sum = 0.0;
  for (std::size_t i = 0; i < channel.size(); ++i)
    sum += Integral(channel[i], channel[(i + 1) % channel.size()]);
  return sum;
}

TEST(FiguresAtRandom, OfSortedChannelsAreTheIntegralOfTheirLines) {
  for (std::uint32_t seed = 0; seed < 12; ++seed) {
    const Mode mode = RandomProgram(seed).AscendingMode(static_cast<std::int32_t>(seed % 12) + 1);
    const ModeFigures figures = FiguresOf(mode, {});
    for (std::size_t i = 0; i < mode.channels.size(); ++i)
      EXPECT_NEAR(figures.channels[i].percentHours, Integral(mode.channels[i]) / 3600.0, kFloats)
          << "seed " << seed << ", channel " << i << ": " << Told(mode.channels[i]);
  }
}

// The same by ChannelValueAt alone, a second at a time.
Figures Plainly(const Channel& channel, double level) {
  Figures figures;
  const auto at = [&](std::int32_t second) {
    const float value = ChannelValueAt(channel, second);
    return std::isnan(value) ? 0.0 : std::clamp(static_cast<double>(value), 0.0, 100.0);
  };
  for (std::int32_t second = 0; second < kSecondsPerDay; ++second) {
    figures.hoursOfLight += at(second) > 0.0 ? 1.0 / 3600.0 : 0.0;
    figures.hoursAboveLevel += at(second) > level ? 1.0 / 3600.0 : 0.0;
    figures.percentHours += at(second) / 3600.0;
  }
  for (std::int32_t second = 60; second <= kSecondsPerDay; second += 60)
    figures.steepestRise = std::max(figures.steepestRise, at(second % kSecondsPerDay) - at(second - 60));
  return figures;
}

TEST(FiguresAtRandom, OfAnyChannelAreWhatItsSecondsAddUpTo) {
  RandomProgram random(7);
  for (const ChannelKind kind : kChannelKinds) {
    Mode mode;
    mode.channels[2] = random.ChannelOf(kind, 9);
    const Figures plain = Plainly(mode.channels[2], 50.0);
    const ModeFigures all = FiguresOf(mode, {});
    const Figures& figures = all.channels[2];
    EXPECT_NEAR(figures.hoursOfLight, plain.hoursOfLight, 1e-6) << Told(mode.channels[2]);
    EXPECT_NEAR(figures.hoursAboveLevel, plain.hoursAboveLevel, 1e-6);
    EXPECT_NEAR(figures.percentHours, plain.percentHours, 1e-6);
    EXPECT_NEAR(figures.steepestRise, plain.steepestRise, 2e-3);
    EXPECT_EQ(all.all.light, figures.light) << "of one channel";
  }
}

TEST(FiguresAtRandom, OfAnyDocumentAreFinite) {
  LampFacts facts;
  facts.watts.fill(1e6);
  facts.par.fill(1e6);
  facts.price = 1e6;
  for (std::uint32_t seed = 0; seed < 12; ++seed) {
    const ModeFigures figures = FiguresOf(RandomProgram(seed).AnyMode(20), facts);
    for (const double figure :
         {figures.all.hoursOfLight, figures.all.hoursAboveLevel, figures.all.percentHours,
          figures.all.steepestRise, *figures.all.energy, *figures.all.cost, *figures.all.dli})
      EXPECT_TRUE(std::isfinite(figure) && figure >= 0.0) << seed;
    EXPECT_LE(figures.all.percentHours, 5 * 2400.0 + kFloats);
  }
}

}  // namespace
