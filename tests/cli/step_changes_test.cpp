#include "tests/cli/command_fixture.h"

namespace {

using testing::HasSubstr;

class StepChangesTest : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    GivenProgram("tank.xml", GivenRamps({"One", "Two"}));
    GivenFile("day.txt", "08:00 0\n10:00 80\n20:00 60 J\n22:00 10\n");
    ASSERT_EQ(Run({"edit", "@tank.xml", "@tank.xml", "--mode", "2", "--steps", "1=@day.txt"}).status,
              kSuccess);
  }

  // Mode 2 of tank.xml into out.xml.
  Outcome Edit(const Words& change) {
    Words words = {"edit", "@tank.xml", "@out.xml", "--mode", "2"};
    words.insert(words.end(), change.begin(), change.end());
    return Run(words);
  }

  // The channel, from 1, after an edit of the steps of channel 1.
  std::string After(Words change, int channel = 1) {
    change.insert(change.end(), {"--channels", "1"});
    const Outcome outcome = Edit(change);
    if (outcome.status != kSuccess) return outcome.err;
    return StepsOf(Load("out.xml").modes.at(1).channels.at(static_cast<std::size_t>(channel - 1)));
  }

  void ExpectRefused(const Words& change, const std::string& reason) {
    const Outcome outcome = Edit(change);
    EXPECT_EQ(outcome.status, kWrongUsage);
    EXPECT_THAT(outcome.err, HasSubstr(reason));
    EXPECT_FALSE(Exists("out.xml"));
  }
};

TEST_F(StepChangesTest, AShiftIsToldInMinutesOrHours) {
  constexpr char kLater[] = "09:30 0, 11:30 80, 21:30 60J, 23:30 10";
  EXPECT_EQ(After({"--shift-time", "90"}), kLater);
  EXPECT_EQ(After({"--shift-time", "+1:30"}), kLater);
  constexpr char kEarlier[] = "06:30 0, 08:30 80, 18:30 60J, 20:30 10";
  EXPECT_EQ(After({"--shift-time", "-90"}), kEarlier);
  EXPECT_EQ(After({"--shift-time", "-1:30"}), kEarlier);
  EXPECT_EQ(After({"--shift-time=-1:30"}), kEarlier);
  EXPECT_EQ(After({"--shift-time", "3:00"}), "01:00 10, 11:00 0, 13:00 80, 23:00 60J");
  EXPECT_EQ(After({"--shift-time", "3:00", "--stop-at-ends"}), "11:00 0, 13:00 80, 23:00 60J, 23:59 10");
}

TEST_F(StepChangesTest, LevelsShiftAndScale) {
  EXPECT_EQ(After({"--shift-percent", "5"}), "08:00 5, 10:00 85, 20:00 65J, 22:00 15");
  EXPECT_EQ(After({"--shift-percent", "-20"}), "08:00 0, 10:00 60, 20:00 40J, 22:00 0");
  EXPECT_EQ(After({"--scale", "50"}), "08:00 0, 10:00 40, 20:00 30J, 22:00 5");
  EXPECT_EQ(After({"--scale", "50", "--around", "60"}), "08:00 30, 10:00 70, 20:00 60J, 22:00 35");
}

TEST_F(StepChangesTest, TimesStretchAndTurn) {
  EXPECT_EQ(After({"--stretch", "14:00=50"}), "11:00 0, 12:00 80, 17:00 60J, 18:00 10");
  EXPECT_EQ(After({"--mirror", "14:00", "--to", "10:00"}), "18:00 80, 20:00 0, 22:00 10");
}

TEST_F(StepChangesTest, StepsRoundAndJumpAndFade) {
  EXPECT_EQ(After({"--round-times", "180"}), "09:00 0, 12:00 80, 21:00 60J");
  EXPECT_EQ(After({"--round-percents", "25"}), "08:00 0, 10:00 75, 20:00 50J, 22:00 0");
  EXPECT_EQ(After({"--set", "jump"}), "08:00 0J, 10:00 80J, 20:00 60J, 22:00 10J");
  EXPECT_EQ(After({"--set", "fade"}), "08:00 0, 10:00 80, 20:00 60, 22:00 10");
}

TEST_F(StepChangesTest, ACopyGoesToOtherChannels) {
  EXPECT_EQ(After({"--copy-to", "2,5"}, 5), "08:00 0, 10:00 80, 20:00 60J, 22:00 10");
  EXPECT_EQ(After({"--copy-to", "3=50"}, 3), "08:00 0, 10:00 40, 20:00 30J, 22:00 5");
  EXPECT_EQ(After({"--copy-to", "3=50"}, 2), "08:00 0, 20:00 100");
}

TEST_F(StepChangesTest, ThinningOutTellsHowManyStepsGo) {
  GivenFile("day.txt", "08:00 0\n09:00 41\n10:00 80\n20:00 60\n22:00 10\n");
  Run({"edit", "@tank.xml", "@tank.xml", "--mode", "2", "--steps", "1=@day.txt"});
  const Outcome outcome = Edit({"--thin", "1", "--channels", "1"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "1 of 5 steps go. Rows of the mode: 4 of 48.\nSaved program out.xml\n");
}

TEST_F(StepChangesTest, WithoutAScopeAllStepsAreMeant) {
  EXPECT_EQ(Edit({"--shift-percent", "1"}).err,
            "Steps changed: 8 of 12. Rows of the mode: 4 of 48.\nSaved program out.xml\n");
}

TEST_F(StepChangesTest, ASpanMayGoRoundMidnightAndLackAnEnd) {
  EXPECT_EQ(After({"--shift-percent", "5", "--from", "22:00", "--to", "08:00"}),
            "08:00 5, 10:00 80, 20:00 60J, 22:00 15");
  EXPECT_EQ(After({"--shift-percent", "5", "--from", "20:00"}), "08:00 0, 10:00 80, 20:00 65J, 22:00 15");
  EXPECT_EQ(After({"--shift-percent", "5", "--to", "08:00"}), "08:00 5, 10:00 80, 20:00 60J, 22:00 10");
}

TEST_F(StepChangesTest, WhatChangesNothingSaysSo) {
  EXPECT_EQ(Edit({"--shift-time", "0"}).err, "Nothing changes.\nSaved program out.xml\n");
}

TEST_F(StepChangesTest, AChangeThatCannotBeMadeIsRefused) {
  ExpectRefused({"--round-times", "720"}, "a channel needs at least 2 steps");
  ExpectRefused({"--copy-to", "2"}, "Only the steps of one channel can be copied");
  ExpectRefused({"--copy-to", "1", "--channels", "1"}, "Tell another channel to copy to.");
  ExpectRefused({"--scale", "50", "--from", "00:00", "--to", "01:00"}, "There are no such steps.");
}

TEST_F(StepChangesTest, WhatIsTypedWrongIsRefused) {
  for (const char* const text :
       {"x", "1.5", "--5", "-", "1:60", "25:00", "24:01", "1441", "1:", ":30", "1:2:3", "99999999999"})
    ExpectRefused({std::string("--shift-time=") + text}, "minutes or hh:mm, up to a day, are expected, not ");
  for (const char* const text : {"x", "101", "-101", "nan", "inf", "1e9", "5%"})
    ExpectRefused({std::string("--shift-percent=") + text}, "-100 to 100 percent points are expected, not ");
  for (const char* const text : {"14:00", "=50", "14:00=", "14=50", "24:00=50", "14:00=0.5", "14:00=1001"})
    ExpectRefused({std::string("--stretch=") + text},
                  "a time, \"=\" and 1 to 1000 percent are expected, not ");
  for (const char* const text : {"0", "6", "1,", ",1", "1,,2", "12", "a"})
    ExpectRefused({"--shift-time", "5", std::string("--channels=") + text}, "channels from 1 to 5");
  for (const char* const text : {"2=", "=50", "2=-1", "2=1001", "6"})
    ExpectRefused({"--channels", "1", std::string("--copy-to=") + text},
                  "channels from 1 to 5, as in 2,3 or 2,3=50, are expected");
  ExpectRefused({"--scale=-1"}, "0 to 1000 percent are expected, not -1");
  ExpectRefused({"--scale", "5", "--around", "101"}, "0 to 100 percent are expected, not 101");
  ExpectRefused({"--mirror", "24:00"}, "a time from 00:00 to 23:59 is expected, not 24:00");
  ExpectRefused({"--set", "on"}, "jump or fade is expected, not on");
  ExpectRefused({"--thin=-1"}, "0 to 100 percent points are expected");
  ExpectRefused({"--round-times", "0"}, "1 to 720 minutes are expected");
  ExpectRefused({"--round-percents", "2.5"}, "1 to 100 percent are expected");
  ExpectRefused({"--shift-time", "5", "--from", "8"}, "a time from 00:00 to 23:59 is expected, not 8");
}

TEST_F(StepChangesTest, OptionsThatDoNotGoTogetherAreRefused) {
  ExpectRefused({"--clear", "1", "--channels", "1"}, "--channels, --from and --to go with");
  ExpectRefused({"--clear", "1", "--to", "08:00"}, "--channels, --from and --to go with");
  ExpectRefused({"--scale", "5", "--stop-at-ends"}, "--stop-at-ends goes with --shift-time only");
  ExpectRefused({"--shift-time", "5", "--around", "5"}, "--around goes with --scale only");
  ExpectRefused({"--shift-time", "5", "--thin", "1"}, "");
}

}  // namespace
