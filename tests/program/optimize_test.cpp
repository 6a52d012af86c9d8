// Thinning out: which steps go, and in what order.

#include "program/optimize.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t kNoNumber = std::numeric_limits<std::int32_t>::min();

TEST(RemovalErrorTest, IsTheChangeAtTheStepsOwnTime) {
  const Channel channel = GivenChannel("08:00 0, 10:00 80, 12:00 100");
  EXPECT_EQ(RemovalError(channel, 1), 30);  // 80 instead of 50
  EXPECT_EQ(RemovalError(channel, 0), 81);  // 0 instead of 81.8 on the way from 12:00 round to 10:00
  EXPECT_EQ(RemovalError(channel, 2), 27);  // 100 instead of 72.7 on the way from 10:00 round to 08:00
}

TEST(RemovalErrorTest, BelowOnePercentIsNone) {
  EXPECT_EQ(RemovalError(GivenChannel("08:00 0, 10:00 50.9, 12:00 100"), 1), 0);
  EXPECT_EQ(RemovalError(GivenChannel("08:00 0, 10:00 51.1, 12:00 100"), 1), 1);
}

TEST(RemovalErrorTest, LooksAtNothingButTheStepsTime) {
  // Without the step the light stays at 80 for four hours; at 10:00 itself nothing changes.
  EXPECT_EQ(RemovalError(GivenChannel("08:00 80 J, 10:00 80, 12:00 0"), 1), 0);
}

TEST(RemovalErrorTest, OfTheLastStepButOneLeavesAFlatCurve) {
  EXPECT_EQ(RemovalError(GivenChannel("08:00 20, 20:00 90"), 1), 70);
  EXPECT_EQ(RemovalError(GivenChannel("08:00 20"), 0), 20);
}

TEST(RemovalErrorTest, OfStepsOnOneMinuteAloneIsTheLowestNumber) {
  EXPECT_EQ(RemovalError(GivenChannel("08:00 1, 08:00 2, 08:00 3"), 1), kNoNumber);
}

TEST(CheapestStep, OfShortChannelsIsNone) {
  EXPECT_EQ(FindCheapestStep(GivenMode({"08:00 0, 09:00 0", "", "08:00 5"})), (StepRemoval{-1, -1, -1}));
}

TEST(CheapestStep, OfATieIsInTheLowerChannel) {
  const char* ramp = "08:00 0, 10:00 60, 12:00 100";
  EXPECT_EQ(FindCheapestStep(GivenMode({"08:00 0, 09:00 0", ramp, ramp})), (StepRemoval{1, 1, 10}));
}

TEST(CheapestStep, OfATieInOneChannelHasTheLowerIndex) {
  EXPECT_EQ(FindCheapestStep(GivenMode({"08:00 0, 09:00 40, 10:00 60, 12:00 80, 13:00 99 J"})).step, 2);
  EXPECT_EQ(FindCheapestStep(GivenMode({"08:00 50, 09:00 50, 10:00 50, 12:00 50"})), (StepRemoval{0, 0, 0}));
}

TEST(CheapestStep, OfAHigherChannelHasToBeStrictlyCheaper) {
  EXPECT_EQ(FindCheapestStep(GivenMode({"08:00 0, 10:00 80, 12:00 100", "08:00 0, 10:00 70, 12:00 100"})),
            (StepRemoval{1, 1, 20}));
}

TEST(ExactSteps, MiddleOfAStraightRampGoesAndTheTwoThatAreLeftStay) {
  Mode mode = GivenMode({"08:00 0, 10:00 50, 12:00 100"});
  RemoveExactSteps(mode);
  EXPECT_EQ(Told(mode.channels[0]), "08:00 0, 12:00 100");
}

TEST(ExactSteps, OfAFlatChannelGoFromTheFront) {
  Mode mode = GivenMode({"08:00 30, 09:00 30, 10:00 30, 11:00 30", "08:00 0, 10:00 80, 12:00 0"});
  RemoveExactSteps(mode);
  EXPECT_EQ(Told(mode.channels[0]), "10:00 30, 11:00 30");
  EXPECT_EQ(Told(mode.channels[1]), "08:00 0, 10:00 80, 12:00 0");
}

TEST(ExactSteps, AreNotLookedForBehindACurveThatIsNoNumber) {
  // Its error is below every other, and not exactly 0: the search ends there.
  Mode mode = GivenMode({"08:00 0, 10:00 50, 12:00 100", "08:00 1, 08:00 1, 08:00 1"});
  RemoveExactSteps(mode);
  EXPECT_EQ(mode.channels[0].size(), 3U);
}

TEST(Optimizing, AModeWithinTheLimitDoesAndSaysNothing) {
  StatusLines lines;
  Mode mode = GivenModeOfMergedSteps(48);
  const auto before = mode.channels;
  EXPECT_TRUE(OptimizeMode(mode));
  EXPECT_EQ(mode.channels, before);
  EXPECT_THAT(lines.Take(), IsEmpty());
}

TEST(Optimizing, FortyNineStepsOnMinutesOfTheirOwnTakesOneRemoval) {
  StatusLines lines;
  Mode mode = GivenModeOfMergedSteps(49, 20);
  mode.name = "Reef";
  const StepRemoval cheapest = FindCheapestStep(mode);
  Mode expected = mode;
  Channel& channel = expected.channels[static_cast<std::size_t>(cheapest.channel)];
  channel.erase(channel.begin() + cheapest.step);

  EXPECT_TRUE(OptimizeMode(mode));
  EXPECT_EQ(CountModeSteps(mode), 48);
  EXPECT_EQ(mode.channels, expected.channels);
  EXPECT_THAT(lines.Take(), ElementsAre("Mode Reef has more than 48 steps, optimizing..."));
}

TEST(Optimizing, GoesOnWhereAStepOfAnotherChannelHoldsTheMinute) {
  // 49 flat steps in two channels: every minute has two, and both have to go.
  Mode mode = GivenModeOfMergedSteps(0);
  for (int i = 0; i < 49; ++i) {
    mode.channels[0].push_back({i / 2, i % 2 * 30, 50});
    mode.channels[1].push_back({i / 2, i % 2 * 30, 50});
  }
  mode.channels[0].back() = mode.channels[1].back() = {23, 59, 50};
  mode.channels[0][48] = mode.channels[1][48] = {23, 45, 50};
  EXPECT_TRUE(OptimizeMode(mode));
  EXPECT_EQ(CountModeSteps(mode), 48);
  // Channel 1 goes first, down to its two; only then does channel 2 give up a minute of its own.
  EXPECT_EQ(mode.channels[0].size(), 2U);
  EXPECT_EQ(mode.channels[1].size(), 48U);
}

TEST(Optimizing, FailsWhereEveryChannelIsDownToTwoStepsAndKeepsWhatItRemoved) {
  // Not within reach of 48: five channels of two steps have ten minutes at most.
  StatusLines lines;
  Mode mode = GivenMode({"00:01 1, 00:02 1, 00:03 1", "01:01 1, 01:02 1", "02:01 1, 02:02 1", "", ""});
  mode.name = "Reef";
  EXPECT_FALSE(OptimizeModeTo(mode, 5));
  EXPECT_EQ(Told(mode.channels[0]), "00:02 1, 00:03 1");
  EXPECT_THAT(lines.Take(), ElementsAre("Mode Reef has more than 5 steps, optimizing...",
                                        "Unable to optimize mode Reef, please remove some steps."));
}

TEST(Optimizing, TakesAStepOnEveryMinuteOfFiveChannels) {
  StatusLines lines;
  Mode mode;
  for (std::size_t c = 0; c < mode.channels.size(); ++c) {
    for (int minute = 0; minute < kMinutesPerDay; ++minute) {
      const int wave = (minute * static_cast<int>(c + 3)) % 1440;
      mode.channels[c].push_back({minute / 60, minute % 60, static_cast<float>(wave % 720) / 7.2F});
    }
  }
  EXPECT_TRUE(OptimizeMode(mode));
  EXPECT_EQ(CountModeSteps(mode), 48);
}

}  // namespace
}  // namespace program_test
