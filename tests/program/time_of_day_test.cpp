// Seconds of the day, as hour and minute and as text.

#include "program/time_of_day.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <ostream>

namespace TCBase::Program {

void PrintTo(const TimeOfDay& time, std::ostream* out) {
  *out << time.hour << ':' << time.minute;
}

namespace {

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

struct Second {
  std::int64_t second;
  TimeOfDay time;
  const char* text;
  const char* textWithSeconds;
};

const Second kSeconds[] = {
    {0, {0, 0}, "00:00", "00:00:00"},         {59, {0, 0}, "00:00", "00:00:59"},
    {60, {0, 1}, "00:01", "00:01:00"},        {3599, {0, 59}, "00:59", "00:59:59"},
    {3600, {1, 0}, "01:00", "01:00:00"},      {29100, {8, 5}, "08:05", "08:05:00"},
    {86340, {23, 59}, "23:59", "23:59:00"},   {86399, {23, 59}, "23:59", "23:59:59"},
    {86400, {0, 0}, "00:00", "23:59:59"},     {90060, {1, 1}, "01:01", "23:59:59"},
    {-60, {0, -1}, "00:-1", "00:00:00"},      {-3660, {-1, -1}, "-1:-1", "00:00:00"},
    {kHighest, {3, 14}, "03:14", "23:59:59"}, {kLowest, {-3, -14}, "-3:-14", "00:00:00"},
};

TEST(TimeOfDay, IsWhatAClockShowsAtASecond) {
  for (const Second& row : kSeconds) {
    EXPECT_EQ(TimeOfDayAt(row.second), row.time) << row.second;
    EXPECT_EQ(TimeText(row.time), row.text) << row.second;
    EXPECT_EQ(TimeTextWithSeconds(static_cast<std::int32_t>(row.second)), row.textWithSeconds) << row.second;
  }
}

// As a file may bring them.
TEST(TimeOfDay, IsWrittenWholeWhenItIsOffTheDay) {
  EXPECT_EQ(TimeText({24, 60}), "24:60");
  EXPECT_EQ(TimeText({100, 5}), "100:05");
}

TEST(TimeOfDay, HasItsMinuteAndKeepsTheHighestHour) {
  EXPECT_EQ(MinuteOfDay(TimeOfDay{0, 0}), 0);
  EXPECT_EQ(MinuteOfDay(TimeOfDay{8, 5}), 485);
  EXPECT_EQ(MinuteOfDay(TimeOfDay{23, 59}), 1439);
  EXPECT_EQ(MinuteOfDay(TimeOfDay{0, -1}), -1);
  EXPECT_EQ(MinuteOfDay(TimeOfDay{kHighest, kHighest}), 2147483647LL * 61);
}

TEST(TimeOfDay, EachMinuteOfTheDayComesBackFromItsSecond) {
  for (std::int32_t minute = 0; minute < 1440; ++minute)
    ASSERT_EQ(MinuteOfDay(TimeOfDayAt(minute * 60 + 37)), minute);
}

TEST(TheDay, EndsWithItsLastMinute) {
  EXPECT_EQ(kMinutesPerDay, 1440);
  EXPECT_EQ(kSecondsPerDay, 86400);
  EXPECT_EQ(TimeText(TimeOfDayAt(kDayStart)), "00:00");
  EXPECT_EQ(TimeText(TimeOfDayAt(kDayEnd)), "23:59");
  EXPECT_EQ(kDayEnd, 86340);
}

TEST(TheDay, IsARing) {
  EXPECT_EQ(RingSecond(86399), 86399);
  EXPECT_EQ(RingSecond(86400), 0);
  EXPECT_EQ(RingSecond(3 * 86400 + 61), 61);
  EXPECT_EQ(RingSecond(-1), 0);
}

TEST(TheDay, HasWholeMinutesOnEitherSideOfIt) {
  EXPECT_EQ(WholeMinute(119), 60);
  EXPECT_EQ(WholeMinute(120), 120);
  EXPECT_EQ(WholeMinute(-59), 0);
  EXPECT_EQ(WholeMinute(-119), -60);
  EXPECT_EQ(WholeMinute(86459), 86400);
}

}  // namespace
}  // namespace TCBase::Program
