// Steps as text.

#include "program/steps_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

using testing::ElementsAre;

std::string Parsed(std::string_view text) {
  std::vector<Step> steps(2);  // what was in there goes
  ParseStepsText(text, steps);
  return Told(steps);
}

TEST(ParsingSteps, ReadsTheExampleOfThePrompt) {
  EXPECT_EQ(Parsed("08:00 0\r\n10:00 80 J\r\n12:00 0\r\n13:40 50\r\n15:00 0\r\n"),
            "08:00 0, 10:00 80 J, 12:00 0, 13:40 50, 15:00 0");
}

TEST(ParsingSteps, GivesNoSerials) {
  std::vector<Step> steps;
  ParseStepsText("08:00 0\r09:00 1", steps);
  EXPECT_THAT(Serials(steps), ElementsAre(0U, 0U));
}

struct StepsText {
  const char* name;
  const char* text;
  const char* expected;
};

class ParsingSteps_ : public testing::TestWithParam<StepsText> {};

TEST_P(ParsingSteps_, TakesALineAsItIs) {
  EXPECT_EQ(Parsed(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ParsingSteps_,
    testing::Values(
        StepsText{"ThreeWordsAreMidnightAtNothing", "one two three", "00:00 0"},
        StepsText{"SeventyFiveMinutesAreAnHourAndAQuarter", "00:75 10", "01:15 10"},
        StepsText{"TwentyFourHoursAreTheLastMinute", "24:00 10", "23:59 10"},
        StepsText{"BeforeMidnightIsMidnight", "-1:00 10", "00:00 10"},
        StepsText{"ValuesAreClamped", "08:00 120\r09:00 -5", "08:00 100, 09:00 0"},
        StepsText{"FractionsAreCutOff", "08:00 12.5\r09:00 99.9 J", "08:00 12, 09:00 99 J"},
        StepsText{"ASmallJIsAJump", "08:00 10 j", "08:00 10 J"},
        StepsText{"AnyOtherFourthWordIsNothing", "08:00 10 JJ\r09:00 10 x", "08:00 10, 09:00 10"},
        StepsText{"TwoWordsOrFiveArePassedOver", "08:00\r09:00 1 J J\r10:00 5\r\r", "10:00 5"},
        StepsText{"OneKindOfLineEndIsKnown", "08:00 1\n09:00 2", ""},
        StepsText{"ALineFeedAtTheFrontIsPassedOver", "\n08:00 1", "08:00 1"},
        // The line feed is then a word of its own: no number, and the others move up.
        StepsText{"ALineFeedBeforeABlankIsAWord", "\n 08:15 10", "00:08 15"},
        StepsText{"BlanksAndColonsAreAllOne", "08 00 1\r  09::00: 2  J\r10:00:3",
                  "08:00 1, 09:00 2 J, 10:00 3"},
        StepsText{"ATabIsNoBlank", "08:00\t1", ""},
        StepsText{"NumbersEndAtTheFirstOtherCharacter", "8h:5m 40%", "08:05 40"},
        StepsText{"SignsCount", "+8:+5 +40\r9:0 - 5", "08:05 40, 09:00 0"},
        StepsText{"TooLargeNumbersAreTheLargest", "99999999999999999999:0 4294967297", "23:59 100"},
        StepsText{"TooSmallNumbersAreTheSmallest", "-99999999999999999999:0 -4294967297", "00:00 0"},
        StepsText{"TheLowestNumberIsOne", "-2147483648:-2147483648 1", "00:00 1"},
        StepsText{"OrderAndDoublesStay", "09:00 1\r08:00 2\r08:00 3", "09:00 1, 08:00 2, 08:00 3"},
        StepsText{"NothingIsNothing", "", ""}),
    [](const auto& test) { return test.param.name; });

TEST(ParsingSteps, PassesOverBytesOfAnyKind) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Parsed("08:00 1\0 J\r\xFF\xFE:\x80 \xC3"sv), "08:00 1 J, 00:00 0");
}

TEST(ParsingSteps, CountsTheLinesThatAreNoStepsButNoBlankOnes) {
  std::vector<Step> steps;
  EXPECT_EQ(ParseStepsText("", steps), 0);
  EXPECT_EQ(ParseStepsText("08:00 1\r\n\r\n  \t\r\n09:00 2\r\n", steps), 0);
  EXPECT_EQ(ParseStepsText("08:00\r\n09:00 1 2 3 4\r\n:\r\n10:00 3\r\nx", steps), 4);
}

TEST(AddingStepsFromText, LogsEachAndSortsThemIn) {
  StatusLines lines;
  Channel channel = GivenChannel("08:00 0, 12:00 50");
  EXPECT_EQ(AddStepsFromText(channel, "13:00 5 J\r\n10:00 80\r\nnonsense\r\n"), 1);
  EXPECT_EQ(Told(channel), "08:00 0, 10:00 80, 12:00 50, 13:00 5 J");
  EXPECT_THAT(lines.Take(), ElementsAre("Added new step (Time: 13:00) (Strength: 5, Jump).",
                                        "Added new step (Time: 10:00) (Strength: 80)."));
}

TEST(AddingStepsFromText, PutsTheLaterOfOneTimeInFront) {
  StatusLines lines;
  Channel channel = GivenChannel("08:00 0, 12:00 50");
  AddStepsFromText(channel, "12:00 1\r12:00 2");
  EXPECT_EQ(Told(channel), "08:00 0, 12:00 2, 12:00 1, 12:00 50");
}

TEST(AddingStepsFromText, GivesSerialsInTheOrderOfTheText) {
  StatusLines lines;
  Channel channel;
  AddStepsFromText(channel, "12:00 1\r08:00 2");
  EXPECT_EQ(Serial(channel, 0), Serial(channel, 1) + 1);
}

TEST(ReplacingStepsFromText, LeavesNoneOfThoseThatWereThere) {
  StatusLines lines;
  Channel channel = GivenChannel("08:00 1, 09:00 2");
  EXPECT_EQ(ReplaceStepsFromText(channel, "12:00 7\rnonsense\r10:00 5"), 1);
  EXPECT_EQ(Told(channel), "10:00 5, 12:00 7");
  EXPECT_THAT(lines.Take(), ElementsAre("Added new step (Time: 12:00) (Strength: 7).",
                                        "Added new step (Time: 10:00) (Strength: 5)."));
}

TEST(StepsAsText, HasALineForEachStep) {
  EXPECT_EQ(StepsToText(GivenChannel("08:05 0, 10:00 80.9 J")), u"08:05 0\r\n10:00 80 J\r\n");
  EXPECT_EQ(StepsToText({}), u"");
}

TEST(StepsAsText, ReadsBackToTheSameStepsButForFractions) {
  const Channel channel = GivenChannel("00:00 0, 08:05 7, 10:00 80 J, 12:30 99.9, 23:59 100");
  EXPECT_EQ(Parsed(Utf8FromWide(StepsToText(channel))), "00:00 0, 08:05 7, 10:00 80 J, 12:30 99, 23:59 100");
}

TEST(LinesOfModes, AreTheMergedTableOfEachAndWhatTheLogIsGiven) {
  ModeListView document =
      GivenDocument(GivenMode({"10:00 80 J, 12:00 0", "10:00 80, 11:00 80", "10:00 80.5, 12:00 0",
                               "10:00 80, 12:00 0", "10:00 0, 12:00 0"}));
  document.modes[0].name = "Reef";
  document.modes.emplace_back().name = "Night";
  const auto isTheTable =
      ElementsAre("Steps for mode: Reef", "10:00 [80J, 80, 80, 80, 0]", "11:00 [80, 80, 40, 40, 0]",
                  "12:00 [0, 80, 0, 0, 0]", "Steps for mode: Night");
  EXPECT_THAT(ModeStepLines(document), isTheTable);
  StatusLines lines;
  LogModeSteps(document);
  EXPECT_THAT(lines.Take(), isTheTable);
}

}  // namespace
}  // namespace program_test
