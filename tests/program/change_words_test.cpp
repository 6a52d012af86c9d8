#include "program/change/change_words.h"

#include <gtest/gtest.h>

namespace TCBase::Program {
namespace {

TEST(ChangeWords, AResultTellsWhatItDid) {
  EXPECT_EQ(TellResult({.steps = 48, .removed = 12, .rows = 36}),
            "12 of 48 steps go. Rows of the mode: 36 of 48.");
  EXPECT_EQ(TellResult({.steps = 4, .altered = 3, .rows = 9}),
            "Steps changed: 3 of 4. Rows of the mode: 9 of 48.");
  EXPECT_EQ(TellResult({.steps = 4, .altered = 3, .removed = 1, .added = 2, .rows = 9}),
            "Steps changed: 3 of 4. Added: 2. Removed: 1. Rows of the mode: 9 of 48.");
}

TEST(ChangeWords, ARefusalTellsWhy) {
  EXPECT_EQ(TellResult({}), "Nothing changes.");
  EXPECT_EQ(TellResult({.refusal = ChangeRefusal::NumberOutOfRange}), "A number is out of range.");
  EXPECT_EQ(TellResult({.refusal = ChangeRefusal::NoSteps}), "There are no such steps.");
  EXPECT_EQ(TellResult({.refusal = ChangeRefusal::SeveralChannels}),
            "Only the steps of one channel can be copied to others.");
  EXPECT_EQ(TellResult({.refusal = ChangeRefusal::NoOtherChannel}), "Tell another channel to copy to.");
  EXPECT_EQ(TellResult({.refusal = ChangeRefusal::TooFewSteps}),
            "Not possible: a channel needs at least 2 steps.");
  EXPECT_EQ(TellResult({.refusal = ChangeRefusal::TooManyRows, .removed = 1, .rows = 51}),
            "Not possible: the mode would have 51 rows, and a controller takes 48.");
}

}  // namespace
}  // namespace TCBase::Program
