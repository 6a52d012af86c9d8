// Moments on clocks.

#include "doctor/moments.h"

#include <gtest/gtest.h>

namespace {

TEST(Moments, AreCountedThroughTheCalendar) {
  EXPECT_EQ(ToMinuteText(doctor::Earlier({2026, 3, 1, 0, 0, 30, 0}, 31)), "2026-02-28 23:59");
  EXPECT_EQ(ToMinuteText(doctor::Earlier({2026, 3, 1, 0, 0, 0, 0}, -60)), "2026-03-01 00:01");
  EXPECT_EQ(doctor::DaysBetween({2024, 2, 28, 23, 0, 0, 0}, {2024, 3, 1, 0, 0, 0, 0}), 2);
  EXPECT_EQ(doctor::DaysBetween({2026, 3, 1, 0, 0, 0, 0}, {2026, 2, 28, 0, 0, 0, 0}), -1);
}

TEST(Moments, AreThoseOfTheCalendar) {
  EXPECT_TRUE(doctor::IsMoment({2024, 2, 29, 23, 59, 59, 0}));
  EXPECT_FALSE(doctor::IsMoment({2026, 2, 29, 0, 0, 0, 0}));
  EXPECT_FALSE(doctor::IsMoment({2026, 0, 1, 0, 0, 0, 0}));
  EXPECT_FALSE(doctor::IsMoment({2026, 1, 1, 24, 0, 0, 0}));
  EXPECT_FALSE(doctor::IsMoment({2026, 1, 1, 0, -1, 0, 0}));
  EXPECT_FALSE(doctor::IsMoment({1'000'000, 1, 1, 0, 0, 0, 0}));
}

TEST(Moments, TellHowFarTheyAreFromUtc) {
  EXPECT_EQ(doctor::OffsetText(0), "UTC+00:00");
  EXPECT_EQ(doctor::OffsetText(330), "UTC+05:30");
  EXPECT_EQ(doctor::OffsetText(-570), "UTC-09:30");
}

}  // namespace
