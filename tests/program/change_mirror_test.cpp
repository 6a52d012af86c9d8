#include "tests/program/change_test.h"

namespace program_test {
namespace {

constexpr MirrorTime kNoon{MinuteAt(12)};

TEST(ChangeMirror, FadesGoBackwards) {
  EXPECT_EQ(After("06:00 0, 08:00 80, 20:00 60, 23:00 0", kNoon), "01:00 0, 04:00 60, 16:00 80, 18:00 0");
  EXPECT_EQ(After("00:00 0, 12:00 80, 23:59 10", kNoon), "00:00 0, 00:01 10, 12:00 80");
}

// On at 9 and off at 20 is, read backwards, on at 4 and off at 15.
TEST(ChangeMirror, WhatIsHeldIsHeld) {
  EXPECT_EQ(After("09:00 80 J, 20:00 0 J", kNoon), "04:00 80 J, 15:00 0 J");
  EXPECT_EQ(After("06:00 10 J, 12:00 80 J, 20:00 30 J", kNoon), "04:00 80 J, 12:00 10 J, 18:00 30 J");
}

// The light is level behind the leap, so nothing but a jump is needed.
TEST(ChangeMirror, AnEndThatStaysDarkBecomesABeginning) {
  EXPECT_EQ(After("08:00 0, 09:00 80 J, 18:00 0", kNoon), "06:00 80 J, 15:00 80, 16:00 0 J");
}

TEST(ChangeMirror, AFadeBehindALeapTakesAStepMore) {
  Mode mode = GivenSingle("08:00 80 J, 18:00 50, 22:00 0");
  const ChangeResult result = ChangeMode(mode, kNoon, {});
  EXPECT_EQ(Told(mode.channels[0]), "02:00 0, 06:00 50, 06:01 80 J, 16:00 80");
  EXPECT_EQ(result.added, 1);
  EXPECT_EQ(ChangeMode(mode, kNoon, {}).removed, 1);
  EXPECT_EQ(Told(mode.channels[0]), "08:00 80 J, 18:00 50, 22:00 0");
}

TEST(ChangeMirror, OnlyTheStepsOfASpanTurn) {
  EXPECT_EQ(After("06:00 0, 08:00 10, 09:00 50, 10:00 20, 20:00 0", MirrorTime{MinuteAt(9)},
                  Within(MinuteAt(8), MinuteAt(10))),
            "06:00 0, 08:00 20, 09:00 50, 10:00 10, 20:00 0");
  EXPECT_EQ(After("06:00 0, 08:00 10 J, 10:00 20 J, 12:00 30, 20:00 0", MirrorTime{MinuteAt(10)},
                  Within(MinuteAt(8), MinuteAt(12))),
            "06:00 0, 08:00 30, 08:01 20 J, 10:00 10 J, 12:00 10, 20:00 0");
}

TEST(ChangeMirror, StepsKeepTheirIds) {
  Mode mode = GivenSingle("06:00 0, 08:00 80, 20:00 60");
  const auto before = Serials(mode.channels[0]);
  ChangeMode(mode, kNoon, {});
  EXPECT_EQ(Serials(mode.channels[0]), (std::vector{before[2], before[1], before[0]}));
}

}  // namespace
}  // namespace program_test
