#include "tests/program/change_test.h"

namespace program_test {
namespace {

TEST(ChangeThinOut, WhatLiesOnALineGoes) {
  EXPECT_EQ(After("08:00 0, 09:00 20, 10:00 40, 11:00 60, 20:00 0", ThinOut{0}),
            "08:00 0, 11:00 60, 20:00 0");
  EXPECT_EQ(After("08:00 50 J, 09:00 50 J, 10:00 50, 12:00 50, 20:00 0", ThinOut{0}),
            "08:00 50 J, 12:00 50, 20:00 0");
}

TEST(ChangeThinOut, WhatIsWithinTheToleranceGoes) {
  constexpr std::string_view kDay = "08:00 0, 09:00 21, 10:00 40, 20:00 0";
  EXPECT_EQ(After(kDay, ThinOut{0.9F}), Told(GivenChannel(kDay)));
  EXPECT_EQ(After(kDay, ThinOut{1}), "08:00 0, 10:00 40, 20:00 0");
}

// One step after the other, each a percent off what is left, would bend this far away from what it was.
TEST(ChangeThinOut, ErrorsDoNotAddUp) {
  EXPECT_EQ(After("08:00 0, 09:00 11, 10:00 21, 11:00 30, 12:00 38, 13:00 45, 14:00 51, 20:00 0", ThinOut{1}),
            "08:00 0, 10:00 21, 12:00 38, 14:00 51, 20:00 0");
}

TEST(ChangeThinOut, ALeapStays) {
  constexpr std::string_view kDay = "08:00 0 J, 09:00 80 J, 20:00 0";
  EXPECT_EQ(After(kDay, ThinOut{10}), Told(GivenChannel(kDay)));
}

TEST(ChangeThinOut, TwoStepsAreKept) {
  EXPECT_EQ(After("08:00 0, 09:00 20, 10:00 40, 11:00 60, 20:00 0", ThinOut{100}), "08:00 0, 11:00 60");
}

TEST(ChangeThinOut, OnlyTheStepsThatAreMeantGo) {
  EXPECT_EQ(
      After("08:00 0, 09:00 20, 10:00 40, 11:00 60, 20:00 0", ThinOut{0}, Within(MinuteAt(10), MinuteAt(20))),
      "08:00 0, 09:00 20, 11:00 60, 20:00 0");
}

TEST(ChangeThinOut, ItTellsHowManyGo) {
  Mode mode = GivenSingle("08:00 0, 09:00 20, 10:00 40, 11:00 60, 20:00 0");
  const ChangeResult result = ChangeMode(mode, ThinOut{0}, {});
  EXPECT_EQ(result.steps, 5);
  EXPECT_EQ(result.removed, 2);
  EXPECT_EQ(result.altered, 0);
  EXPECT_EQ(result.rows, 3);
}

}  // namespace
}  // namespace program_test
