// The days that are made: sun, moon, ramps, a slow start, a season; and their files.

#include <gmock/gmock.h>

#include <limits>

#include "common/files.h"
#include "program/builtin_modes.h"
#include "program/generate/acclimation.h"
#include "program/generate/moon.h"
#include "program/generate/place.h"
#include "program/generate/ramp_day.h"
#include "program/generate/season.h"
#include "program/generate/series.h"
#include "program/generate/sun_light.h"
#include "program/program_file.h"
#include "tests/program/generate_fixture.h"
#include "tests/program/random_program.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace program_test;

constexpr Position kBerlin = {52.5, 13.4};
constexpr Position kTromsoe = {69.65, 18.96};

Date On(const char* text) {
  return ParseDate(text).value();
}

SunLight GivenSun(const Position& position, const char* date, int utcOffset) {
  SunLight light;
  light.position = position;
  light.date = On(date);
  light.utcOffset = utcOffset;
  return light;
}

float At(const Generated& made, int channel, int hour, int minute = 0) {
  return ChannelValueAt(made.mode.channels[static_cast<std::size_t>(channel)], hour * 3600 + minute * 60);
}

void ExpectDark(const Generated& made, int beginMinute, int endMinute) {
  for (int minute = beginMinute; minute < endMinute; ++minute) {
    for (int channel = 0; channel < kChannelCount; ++channel)
      EXPECT_LE(At(made, channel, 0, minute), 1.0F) << minute;
  }
}

TEST(SunLight, ADayInJuneIsFullAtNoonAndDarkAtNight) {
  SunLight light = GivenSun(kBerlin, "2026-06-21", 120);
  light.levels = {100, 80, 60, 40, 0};
  const Generated made = MakeSunMode(light);
  ExpectOrdinarySteps(made);
  ExpectTrueError(made, SunLightCurves(light));
  EXPECT_LE(made.error, kGoodFit);
  for (int channel = 0; channel < kChannelCount; ++channel)
    EXPECT_NEAR(At(made, channel, 13, 8), light.levels[static_cast<std::size_t>(channel)], 1);
  ExpectDark(made, 0, 3 * 60);  // civil dawn is at 03:53
}

TEST(SunLight, ALowNoonIsAWeakOne) {
  // On the winter solstice the noon sun of Berlin stands at 14 degrees.
  const Generated made = MakeSunMode(GivenSun(kBerlin, "2026-12-21", 60));
  EXPECT_NEAR(At(made, 0, 12, 4), 52, 2);
  ExpectDark(made, 17 * 60, 24 * 60);
}

TEST(SunLight, PolarDaysAndNights) {
  const Generated summer = MakeSunMode(GivenSun(kTromsoe, "2026-06-21", 120));
  ExpectOrdinarySteps(summer);
  EXPECT_GT(At(summer, 0, 0, 44), 5) << "the sun at midnight";
  SunLight winter = GivenSun({78.22, 15.65}, "2026-12-21", 60);
  const Generated night = MakeSunMode(winter);
  ExpectOrdinarySteps(night);
  ExpectDark(night, 0, kMinutesPerDay);
  winter.hours = Hours{600, 1320};
  ExpectDark(MakeSunMode(winter), 0, kMinutesPerDay);
}

TEST(SunLight, TwilightIsAsMuchAsIsWanted) {
  SunLight light = GivenSun(kBerlin, "2026-03-20", 60);  // sunrise 06:12, civil dawn 05:39, nautical 04:59
  const auto percentAt = [&](Twilight twilight, int hour, int minute) {
    light.twilight = twilight;
    return SunLightCurves(light)[0][static_cast<std::size_t>(hour * 60 + minute)];
  };
  EXPECT_EQ(percentAt(Twilight::None, 6, 5), 0);
  EXPECT_GT(percentAt(Twilight::Civil, 6, 5), 2);
  EXPECT_EQ(percentAt(Twilight::Civil, 5, 30), 0);
  EXPECT_GT(percentAt(Twilight::Nautical, 5, 30), 1);
  EXPECT_EQ(percentAt(Twilight::Nautical, 4, 50), 0);
}

TEST(SunLight, IsSqueezedIntoTheViewersHours) {
  for (const Hours hours : {Hours{10 * 60, 22 * 60}, Hours{20 * 60, 4 * 60}, Hours{0, 0}}) {
    for (const char* const date : {"2026-06-21", "2026-12-21"}) {
      SunLight light = GivenSun(kBerlin, date, 60);
      light.hours = hours;
      const DayCurves curves = SunLightCurves(light);
      int lit = 0;
      for (int minute = 0; minute < kMinutesPerDay; ++minute) {
        const bool within = (minute - hours.begin + kMinutesPerDay) % kMinutesPerDay <= LengthOf(hours);
        if (curves[0][static_cast<std::size_t>(minute)] == 0) continue;
        ++lit;
        EXPECT_TRUE(within) << minute;
      }
      EXPECT_GE(lit, LengthOf(hours) - 4);
      ExpectOrdinarySteps(MakeSunMode(light));
    }
  }
}

TEST(SunLight, IsMovedToItsBeginAndStaysAsLong) {
  SunLight light = GivenSun(kBerlin, "2026-12-21", 60);
  const auto lit = [](const MinuteCurve& curve) {
    return std::ranges::count_if(curve, [](float x) { return x > 0; });
  };
  const auto natural = lit(SunLightCurves(light)[0]);
  light.begin = 18 * 60;
  const MinuteCurve moved = SunLightCurves(light)[0];
  EXPECT_EQ(lit(moved), natural);
  EXPECT_EQ(moved[18 * 60], 0);
  EXPECT_GT(moved[18 * 60 + 2], 0);
  EXPECT_GT(moved[60], 0) << "it goes over midnight";
}

TEST(SunLight, TheMoonShinesInTheDarkAlone) {
  SunLight light = GivenSun(kBerlin, "2026-11-23", 60);  // a day before the full moon
  light.levels = {100, 100, 100, 100, 0};
  light.moonlight = Moonlight{4, 20};
  const Generated made = MakeSunMode(light);
  ExpectOrdinarySteps(made);
  ExpectTrueError(made, SunLightCurves(light));
  EXPECT_NEAR(At(made, 4, 0), 20, 1);
  EXPECT_NEAR(At(made, 4, 12), 0, 1);
  EXPECT_NEAR(At(made, 0, 0), 0, 1);
}

TEST(SunLight, AtRandomIsValidWithinItsRowsAndTrue) {
  for (int round = 0; round < 60; ++round) {
    RandomProgram random(static_cast<std::uint32_t>(round));
    const auto between = [&](int low, int high) { return low + random.Below(100000) * (high - low) / 1e5; };
    SunLight light;
    light.position = {between(-90, 90), between(-180, 180)};
    light.date = PlusDays(On("1950-01-01"), random.Below(54000));
    light.utcOffset = random.Below(1800) - 900;
    light.twilight = static_cast<Twilight>(random.Below(3));
    for (float& level : light.levels) level = static_cast<float>(between(0, 100));
    if (random.Below(2)) light.begin = random.Below(1440);
    if (random.Below(2)) light.hours = Hours{random.Below(1440), random.Below(1440)};
    if (random.Below(2)) light.moonlight = Moonlight{random.Below(5), static_cast<float>(between(0, 100))};
    const int rows = 2 + random.Below(47);
    const Generated made = MakeSunMode(light, rows);
    ExpectOrdinarySteps(made, rows);
    ExpectTrueError(made, SunLightCurves(light));
    if (HasFailure()) FAIL() << "round " << round;
  }
}

TEST(SunLight, TakesWhateverItIsGiven) {
  SunLight light;
  light.position = {std::nan(""), std::numeric_limits<double>::infinity()};
  light.date = Date{std::chrono::year{0}, std::chrono::month{77}, std::chrono::day{0}};
  light.utcOffset = std::numeric_limits<int>::max();
  light.levels = {std::nanf(""), -5, 1e30F, std::numeric_limits<float>::infinity(), 50};
  light.begin = std::numeric_limits<int>::min();
  light.moonlight = Moonlight{-7, std::nanf("")};
  ExpectOrdinarySteps(MakeSunMode(light, -3), 2);
  light.hours = Hours{std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
  light.moonlight = Moonlight{std::numeric_limits<int>::max(), 1e30F};
  ExpectOrdinarySteps(MakeSunMode(light, std::numeric_limits<int>::max()));
}

TEST(MoonMode, TheOtherChannelsStay) {
  MoonNight night;
  night.date = On("2026-11-24");  // full
  night.moonlight = {4, 30};
  night.night = {22 * 60, 5 * 60};
  Mode day;
  BuildNormalMode(day);
  const Generated made = MakeMoonMode(night, day);
  ExpectOrdinarySteps(made);
  EXPECT_EQ(made.mode.name, day.name);
  for (int channel = 0; channel < 4; ++channel)
    EXPECT_EQ(Told(made.mode.channels[static_cast<std::size_t>(channel)]),
              Told(day.channels[static_cast<std::size_t>(channel)]));
  EXPECT_EQ(Told(made.mode.channels[4]), Told(GivenChannel("04:30 30, 05:00 0, 22:00 0, 22:30 30")));
  night.date = On("2026-12-08");  // new
  EXPECT_EQ(At(MakeMoonMode(night, day), 4, 0), 0);
}

// By ephem 63.9 % of the moon shine at 00:00 UTC of 30 November, and 58.4 and 52.9 % twelve hours and a day
// later.
TEST(MoonMode, ItsMoonIsThatOfTheMidnightThatEndsTheDay) {
  const Moonlight whole = {4, 100};
  EXPECT_NEAR(MoonLevel(whole, On("2026-11-29"), 0), 63.9, 1);
  EXPECT_NEAR(MoonLevel(whole, On("2026-11-30"), 0), 52.9, 1);
  EXPECT_NEAR(MoonLevel(whole, On("2026-11-30"), 720), 58.4, 1)
      << "there it is midnight when it is noon in UTC";
}

TEST(MoonMode, FitsBesideAsManyRowsAsThereAre) {
  for (int round = 0; round < 40; ++round) {
    RandomProgram random(static_cast<std::uint32_t>(round));
    MoonNight night;
    night.date = On("2026-11-24");
    night.night = {random.Below(1440), random.Below(1440)};
    night.moonlight = {random.Below(5), static_cast<float>(random.Below(101))};
    const Generated made = MakeMoonMode(night, random.AscendingMode(2 + random.Below(40)));
    ExpectOrdinarySteps(made);
  }
}

TEST(RampDay, IsWhatItIsTold) {
  RampDay day;
  day.day = {10 * 60, 21 * 60};
  day.levels = {100, 80, 60, 40, 0};
  day.stagger = 10;
  day.middayBreak = MiddayBreak{{13 * 60, 15 * 60}, 50};
  day.ramp = 30;
  const Generated made = MakeRampDay(day);
  ExpectOrdinarySteps(made);
  EXPECT_LE(made.error, 0.5);
  EXPECT_EQ(
      Told(made.mode.channels[0]),
      Told(GivenChannel("10:00 0, 10:30 100, 13:00 100, 13:30 50, 14:30 50, 15:00 100, 20:30 100, 21:00 0")));
  EXPECT_EQ(
      Told(made.mode.channels[1]),
      Told(GivenChannel("10:10 0, 10:40 80, 13:00 80, 13:30 40, 14:30 40, 15:00 80, 20:20 80, 20:50 0")));
}

TEST(RampDay, AnOtherStaggerBeginsWithTheLastChannel) {
  RampDay day;
  day.stagger = -15;
  const Generated made = MakeRampDay(day);
  EXPECT_EQ(MinuteOfDay(made.mode.channels[4].front()), 600);
  EXPECT_EQ(MinuteOfDay(made.mode.channels[0].front()), 660);
}

TEST(RampDay, MayGoOverMidnightAndHasItsMoonInTheDark) {
  RampDay day;
  day.day = {20 * 60, 6 * 60};
  day.date = On("2026-11-24");
  day.levels = {100, 100, 100, 100, 0};
  day.moonlight = Moonlight{4, 20};
  const Generated made = MakeRampDay(day);
  ExpectOrdinarySteps(made);
  EXPECT_EQ(Told(made.mode.channels[0]), Told(GivenChannel("05:00 100, 06:00 0, 20:00 0, 21:00 100")));
  EXPECT_EQ(At(made, 4, 12), 20);
  EXPECT_EQ(At(made, 4, 0), 0);
}

TEST(RampDay, AtRandomIsValidAndWithinItsRows) {
  for (int round = 0; round < 150; ++round) {
    RandomProgram random(static_cast<std::uint32_t>(round));
    RampDay day;
    day.day = {random.Below(1440), random.Below(1440)};
    day.ramp = random.Below(800) - 20;
    day.stagger = random.Below(300) - 150;
    for (float& level : day.levels) level = static_cast<float>(random.Below(1001)) / 10;
    if (random.Below(2)) day.middayBreak = MiddayBreak{{random.Below(1440), random.Below(1440)}, 33.3F};
    if (random.Below(2)) day.moonlight = Moonlight{random.Below(5), 44.4F};
    day.date = PlusDays(On("2026-01-01"), random.Below(365));
    const Generated made = MakeRampDay(day);
    ExpectOrdinarySteps(made);
    EXPECT_LE(made.error, 0.51F) << "nothing but rounding";
    if (HasFailure()) FAIL() << "round " << round;
  }
  RampDay wild;
  wild.day = {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
  wild.ramp = std::numeric_limits<int>::max();
  wild.stagger = std::numeric_limits<int>::min();
  wild.levels.fill(std::nanf(""));
  wild.middayBreak = MiddayBreak{{std::numeric_limits<int>::max(), -5}, -1e30F};
  ExpectOrdinarySteps(MakeRampDay(wild));
}

TEST(Acclimation, GrowsEvenlyToTheWhole) {
  const Acclimation acclimation{40, 7};
  EXPECT_EQ(PercentOfDay(acclimation, -3), 40);
  EXPECT_EQ(PercentOfDay(acclimation, 1), 40);
  EXPECT_EQ(PercentOfDay(acclimation, 4), 70);
  EXPECT_EQ(PercentOfDay(acclimation, 7), 100);
  EXPECT_EQ(PercentOfDay(acclimation, 1000), 100);
  EXPECT_EQ(PercentOfDay({40, 1}, 1), 100);
  EXPECT_EQ(PercentOfDay({std::nanf(""), -4}, 0), 100);
  EXPECT_EQ(DayOfAcclimation(On("2026-11-23"), On("2026-11-23")), 1);
  EXPECT_EQ(DayOfAcclimation(On("2026-12-30"), On("2027-01-02")), 4);
}

TEST(Acclimation, TheModeStaysWhatItIsButWeaker) {
  Mode full = GivenMode({"08:00 0, 10:00 80 J, 20:00 33", "07:00 0, 09:00 100"});
  full.name = "Reef";
  const Generated made = MakeAcclimationDay(full, {50, 28}, 1);
  EXPECT_EQ(Told(made.mode.channels[0]), Told(GivenChannel("08:00 0, 10:00 40 J, 20:00 17")));
  EXPECT_EQ(made.mode.name, "Reef");
  EXPECT_NEAR(made.error, 0.5, 1e-4);
  const Generated last = MakeAcclimationDay(full, {50, 28}, 28);
  EXPECT_EQ(Told(last.mode.channels[0]), Told(full.channels[0]));
  EXPECT_EQ(last.error, 0);
}

TEST(Season, HasAProgramForEachWeek) {
  SunLight light = GivenSun(kBerlin, "2026-11-23", 60);
  const std::vector<Generated> season = MakeSeason(light, std::vector<int>(kWeeks, 60));
  ASSERT_EQ(season.size(), static_cast<std::size_t>(kWeeks));
  for (const Generated& day : season) {
    ExpectOrdinarySteps(day);
    EXPECT_LE(day.error, kGoodFit + 0.01F);
  }
  EXPECT_EQ(season[6].mode.name, "Week 7");
  EXPECT_GT(At(season[25], 0, 12), At(season[0], 0, 12) + 30);
  light.date = MiddleOfWeek(std::chrono::year{2026}, 7);
  EXPECT_EQ(Told(season[6].mode.channels[0]), Told(MakeSunMode(light).mode.channels[0]));
}

TEST(Series, WritesItsFilesAndTouchesNoneUnlessItIsTold) {
  const TemporaryFolder temporary;
  const std::filesystem::path folder = temporary.path() / "a" / "season";
  ModeListView document = NewProgram();
  const std::vector<SeriesFile> files = {{"week-01.xml", document}, {"week-02.xml", document}};
  EXPECT_EQ(SaveSeries(folder, files, false).outcome, SeriesSaved::Done);
  ModeListView read;
  EXPECT_TRUE(LoadProgram(folder / "week-02.xml", read));
  EXPECT_TRUE(read == document);

  std::filesystem::remove(folder / "week-01.xml");
  WriteFileBytes(folder / "week-02.xml", "mine");
  const SeriesSaved refused = SaveSeries(folder, files, false);
  EXPECT_EQ(refused.outcome, SeriesSaved::Exists);
  EXPECT_EQ(refused.path, folder / "week-02.xml");
  EXPECT_FALSE(std::filesystem::exists(folder / "week-01.xml")) << "nothing is written";
  EXPECT_EQ(SaveSeries(folder, files, true).outcome, SeriesSaved::Done);
  EXPECT_TRUE(LoadProgram(folder / "week-02.xml", read));

  const SeriesSaved failed = SaveSeries(folder / "week-01.xml", files, true);
  EXPECT_EQ(failed.outcome, SeriesSaved::Failed);
}

TEST(Season, TheClocksOfEachWeekAreThoseOfItsMiddle) {
  const Place* const berlin = FindPlace("Europe/Berlin");
  ASSERT_NE(berlin, nullptr);
  const std::vector<int> offsets = WeeklyUtcOffsets(*berlin, std::chrono::year{2026});
  ASSERT_EQ(offsets.size(), 52U);
  EXPECT_EQ(offsets.front(), 60);
  // The clocks go on on the 29th of March, in the week of the 26th to the 1st, whose middle is that day.
  EXPECT_EQ(offsets[11], 60);
  EXPECT_EQ(offsets[12], 120);
  // And back on the 25th of October, the middle of another.
  EXPECT_EQ(offsets[41], 120);
  EXPECT_EQ(offsets[42], 60);
  EXPECT_EQ(offsets.back(), 60);
}

TEST(Season, HasTheOffsetOfItsLightWhereNoneIsTold) {
  SunLight light;
  light.utcOffset = 90;
  const std::vector<Generated> untold = MakeSeason(light, {}, 48);
  const std::vector<Generated> told = MakeSeason(light, std::vector<int>(52, 90), 48);
  ASSERT_EQ(untold.size(), 52U);
  for (std::size_t i = 0; i < untold.size(); ++i)
    EXPECT_EQ(Told(untold[i].mode.channels[0]), Told(told[i].mode.channels[0])) << i;
}

TEST(Series, FilesOfDaysAndWeeksAreInTheirOrderByName) {
  EXPECT_EQ(DayFileName(1), "day-001.xml");
  EXPECT_EQ(DayFileName(42), "day-042.xml");
  EXPECT_EQ(WeekFileName(7), "week-07.xml");
}

TEST(PutMode, IntoAProgramWithoutModesItIsTheFirst) {
  ModeListView document = EmptyProgram();
  EXPECT_TRUE(document.modes.empty());
  Mode mode;
  mode.name = "Sun";
  PutMode(document, mode, 0);
  ASSERT_EQ(document.modes.size(), 1U);
  EXPECT_EQ(document.modes[0].name, "Sun");
}

TEST(PutMode, ReplacesAModeOrComesBehindAll) {
  ModeListView document = NewProgram();
  Mode mode = GivenMode({"08:00 0, 09:00 1"});
  mode.name = "New";
  PutMode(document, mode, 1);
  ASSERT_EQ(document.modes.size(), 2U);
  EXPECT_EQ(document.modes[1].name, "AlwaysOn");
  EXPECT_EQ(Told(document.modes[1].channels[0]), "08:00 0, 09:00 1");
  PutMode(document, mode, -1);
  PutMode(document, mode, 99);
  ASSERT_EQ(document.modes.size(), 4U);
  EXPECT_EQ(document.modes[3].name, "New");
  EXPECT_EQ(document.currentMode, 3);
}

}  // namespace
