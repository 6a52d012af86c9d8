#include <nlohmann/json.hpp>

#include <algorithm>
#include <regex>

#include "program/builtin_modes.h"
#include "program/templates.h"
#include "tests/cli/command_fixture.h"

namespace {

using TCBase::Program::ModeListView;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class EditTest : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    GivenProgram("tank.xml", GivenRamps({"One", "Two"}));
  }

  // Edits mode 2 of tank.xml into out.xml.
  Outcome Edit(const Words& change) {
    Words words = {"edit", "@tank.xml", "@out.xml", "--mode", "2"};
    words.insert(words.end(), change.begin(), change.end());
    return Run(words);
  }

  // The refusal of a change that makes no sense: the reason is told and nothing is written.
  void ExpectRefused(const Words& change, const std::string& reason, int status = kWrongUsage) {
    const Outcome outcome = Edit(change);
    EXPECT_EQ(outcome.status, status);
    EXPECT_THAT(outcome.err, HasSubstr(reason));
    EXPECT_FALSE(Exists("out.xml"));
  }

  TCBase::Program::Mode Result() const { return Load("out.xml").modes.at(1); }
};

TEST_F(EditTest, NewWritesTheBuiltInProgram) {
  const Outcome outcome = Run({"new", "@built_in.xml"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "Saved program built_in.xml\n");
  EXPECT_TRUE(Load("built_in.xml") == TCBase::Program::NewProgram());
}

TEST_F(EditTest, NewWritesATemplateAndSaysWhatItIsFor) {
  const Outcome outcome = Run({"new", "@reef.xml", "--template", "reef"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, testing::StartsWith("Saved program reef.xml\nFor corals: blue first and last, "));
  EXPECT_THAT(outcome.out, IsEmpty());
  EXPECT_TRUE(Load("reef.xml") == NewProgramFrom(TCBase::Program::kReefTemplate));
}

TEST_F(EditTest, NewRefusesATemplateThatIsNone) {
  const Outcome outcome = Run({"new", "@out.xml", "--template", "desert"});
  EXPECT_EQ(outcome.status, kWrongUsage);
  EXPECT_THAT(outcome.err, HasSubstr("desert"));
  EXPECT_FALSE(Exists("out.xml"));
}

TEST_F(EditTest, TemplatesAreListedWithTheirSentences) {
  const Outcome outcome = Run({"templates"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.out, testing::StartsWith("reef          For corals: "));
  EXPECT_THAT(outcome.out, HasSubstr("\nplanted-tank  For plants and fish: "));
  EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 5);

  const auto list = nlohmann::json::parse(Run({"templates", "--json"}).out);
  ASSERT_EQ(list.size(), 5U);
  EXPECT_EQ(list[4]["template"], "blackwater");
  EXPECT_EQ(list[4]["name"], "Blackwater");
  EXPECT_THAT(list[4]["sentence"].get<std::string>(), testing::StartsWith("For shy fish "));
}

// What the file is called is no part of the sentence around it.
TEST_F(EditTest, ABraceInAFilesNameStandsForItself) {
  const Outcome outcome = Run({"new", "@d{2}/x.xml"});
  EXPECT_EQ(outcome.status, kFileFailed);
  EXPECT_THAT(outcome.err, testing::StartsWith("Error creating file d{2}/x.xml"));
}

TEST_F(EditTest, ChangesOneModeAndLeavesTheOthers) {
  const ModeListView before = Load("tank.xml");
  const Outcome outcome = Edit({"--clear", "3"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "Saved program out.xml\n");
  EXPECT_THAT(outcome.out, IsEmpty());
  ModeListView expected = before;
  expected.modes[1].channels[2] = {{8, 0, 0.0F, false}, {22, 0, 0.0F, false}};
  EXPECT_TRUE(Load("out.xml") == expected);
  EXPECT_TRUE(Load("tank.xml") == before);
}

TEST_F(EditTest, InAndOutMayBeTheSameFile) {
  EXPECT_EQ(Run({"edit", "@tank.xml", "@tank.xml", "--mode", "1", "--rename", "Reef"}).status, kSuccess);
  EXPECT_EQ(Load("tank.xml").modes[0].name, "Reef");
  EXPECT_EQ(Load("tank.xml").modes[1].name, "Two");
}

TEST_F(EditTest, OptimizeBringsAModeWithinTheLimit) {
  ModeListView document = GivenRamps({"One", "Two"});
  document.modes[1] = GivenModeOfRows("Full", 60);
  GivenProgram("tank.xml", document);
  const Outcome outcome = Edit({"--optimize"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err,
            "Mode Full has more than 48 steps, optimizing...\n"
            "Mode Full steps count: 48\n"
            "Saved program out.xml\n");
  EXPECT_EQ(CountModeSteps(Result()), 48);
}

TEST_F(EditTest, OptimizeLeavesAModeWithinTheLimitAsItIs) {
  EXPECT_EQ(Edit({"--optimize"}).err, "Mode Two steps count: 2\nSaved program out.xml\n");
  EXPECT_TRUE(Load("out.xml") == Load("tank.xml"));
}

TEST_F(EditTest, OptimizeForTC421KeepsHalfHours) {
  ModeListView document = GivenRamps({"One", "Two"});
  document.modes[1].channels[0] = {{8, 10, 0.0F, false}, {9, 10, 60.0F, true}, {17, 5, 0.0F, false}};
  GivenProgram("tank.xml", document);
  const Outcome outcome = Edit({"--optimize-tc421"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, HasSubstr("All steps were aligned to 30 minute intervals. This is useful for "
                                     "configuring TC421 device.\n"));
  for (const auto& channel : Result().channels)
    for (const auto& step : channel) EXPECT_EQ(step.minute % 30, 0);
}

TEST_F(EditTest, AlignTakesAnyNumberOfMinutes) {
  ModeListView document = GivenRamps({"One", "Two"});
  for (auto& channel : document.modes[1].channels)
    channel = {{8, 10, 1.0F, false}, {8, 20, 2.0F, false}, {8, 50, 3.0F, false}};
  GivenProgram("tank.xml", document);
  EXPECT_EQ(Edit({"--align", "30"}).err,
            "All steps were aligned to 30 minute intervals. Current number of steps is 3.\n"
            "Saved program out.xml\n");
  EXPECT_EQ(StepsOf(Result().channels[0]), "08:00 1, 08:30 2, 09:00 3");
  EXPECT_EQ(Edit({"--align", "7"}).status, kSuccess);
  EXPECT_EQ(StepsOf(Result().channels[0]), "08:10 1, 08:17 2, 08:45 3");
  EXPECT_EQ(Edit({"--align", "2147483647"}).status, kSuccess) << "more than a day, and no trouble";
}

TEST_F(EditTest, EndpointAddsAStepToAllChannels) {
  EXPECT_EQ(Edit({"--endpoint", "start"}).err,
            "Added step at 00:00 to all channels. Current number of steps is 3.\n"
            "Saved program out.xml\n");
  EXPECT_EQ(StepsOf(Result().channels[4]), "00:00 66, 08:00 0, 20:00 100");
  EXPECT_THAT(Edit({"--endpoint", "end"}).err, HasSubstr("Added step at 23:59 to all channels."));
  EXPECT_EQ(Result().channels[0].back().minute, 59);
}

TEST_F(EditTest, EndpointOnAFullModeIsRefused) {
  ModeListView document = GivenRamps({"One", "Two"});
  document.modes[1] = GivenModeOfRows("Full", 48);
  GivenProgram("tank.xml", document);
  ExpectRefused({"--endpoint", "end"},
                "Unable to add new step. Maximum number of 48 steps for the current mode reached\n"
                "lumarinectl: nothing was written\n");
}

TEST_F(EditTest, StepsReplacesAChannelWhateverTheLineEnds) {
  for (const std::string end : {"\n", "\r", "\r\n"}) {
    GivenFile("blue.txt", std::regex_replace("08:00 0\n9:30 80 J\n\n18:00 5.9\n", std::regex("\n"), end));
    const Outcome outcome = Edit({"--steps", "2=@blue.txt"});
    EXPECT_EQ(outcome.status, kSuccess);
    EXPECT_EQ(outcome.err,
              "Added new step (Time: 08:00) (Strength: 0).\n"
              "Added new step (Time: 09:30) (Strength: 80, Jump).\n"
              "Added new step (Time: 18:00) (Strength: 5).\n"
              "Mode Two steps count: 4\n"
              "Saved program out.xml\n");
    EXPECT_EQ(StepsOf(Result().channels[1]), "08:00 0, 09:30 80J, 18:00 5");
    EXPECT_EQ(StepsOf(Result().channels[0]), "08:00 0, 20:00 100");
  }
}

// Windows editors put a byte order mark in front; read as part of the first hour it would make it 0.
TEST_F(EditTest, StepsOfAnEditorsFileBeginBehindItsMark) {
  GivenFile("blue.txt",
            "\xEF\xBB\xBF"
            "08:00 10\r\n20:00 20\r\n");
  EXPECT_EQ(Edit({"--steps", "1=@blue.txt"}).status, kSuccess);
  EXPECT_EQ(StepsOf(Result().channels[0]), "08:00 10, 20:00 20");
}

TEST_F(EditTest, LinesThatAreNoStepsArePassedOverAndCounted) {
  GivenFile("blue.txt", "# blue\n08:00 10\n\n20:00 20\nand so on for some time\n");
  const Outcome outcome = Edit({"--steps", "1=@blue.txt"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, HasSubstr("Lines that are no steps and were passed over: 2\n"));
}

TEST_F(EditTest, StepsBeyondTheLimitAreThinnedOut) {
  std::string text;
  for (int minute = 0; minute < 60; ++minute)
    text.append("10:")
        .append(std::to_string(minute))
        .append(" ")
        .append(std::to_string(minute * minute % 101))
        .append("\n");
  GivenFile("blue.txt", text);
  const Outcome outcome = Edit({"--steps", "1=@blue.txt"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, HasSubstr("Mode Two has more than 48 steps, optimizing...\n"));
  EXPECT_EQ(CountModeSteps(Result()), 48);
}

TEST_F(EditTest, StepsThatAreNoneAreRefused) {
  GivenFile("empty.txt", "");
  GivenFile("prose.txt", "Blue light in the morning.\n");
  GivenFile("long.txt", std::string(2'000'000, '1'));
  ExpectRefused({"--steps", "1=@empty.txt"}, "empty.txt holds no steps");
  ExpectRefused({"--steps", "1=@prose.txt"}, "prose.txt holds no steps");
  ExpectRefused({"--steps", "1=@long.txt"}, "long.txt is too long");
  ExpectRefused({"--steps", "1=@missing.txt"}, "missing.txt cannot be read", kFileFailed);
}

TEST_F(EditTest, PowerScalesAChannelToItsNewHighest) {
  EXPECT_EQ(Edit({"--power", "5=20"}).status, kSuccess);
  EXPECT_EQ(StepsOf(Result().channels[4]), "08:00 0, 20:00 20");
  EXPECT_EQ(Edit({"--power", "5=12.5"}).status, kSuccess);
  EXPECT_EQ(StepsOf(Result().channels[4]), "08:00 0, 20:00 12");
}

TEST_F(EditTest, PowerOfADarkChannelIsRefused) {
  ModeListView document = GivenRamps({"One", "Two"});
  for (auto& step : document.modes[1].channels[0]) step.value = 0.0F;
  document.modes[1].channels[1].clear();
  GivenProgram("tank.xml", document);
  ExpectRefused({"--power", "1=50"}, "channel 1 is dark all day, there is nothing to scale");
  ExpectRefused({"--power", "2=50"}, "channel 2 is dark all day, there is nothing to scale");
}

TEST_F(EditTest, MoveSwapsACurveWithItsNeighbour) {
  GivenFile("blue.txt", "01:00 1\n02:00 2\n");
  Edit({"--steps", "2=@blue.txt"});
  const auto move = [&](const std::string& how) {
    return Run({"edit", "@out.xml", "@moved.xml", "--mode", "2", "--move", how}).status;
  };
  EXPECT_EQ(move("2=up"), kSuccess);
  EXPECT_EQ(StepsOf(Load("moved.xml").modes[1].channels[0]), "01:00 1, 02:00 2");
  EXPECT_EQ(move("2=down"), kSuccess);
  EXPECT_EQ(StepsOf(Load("moved.xml").modes[1].channels[2]), "01:00 1, 02:00 2");
}

TEST_F(EditTest, MoveBeyondTheEdgeIsRefused) {
  ExpectRefused({"--move", "1=up"}, "channel 1 is the first one already");
  ExpectRefused({"--move", "5=down"}, "channel 5 is the last one already");
}

TEST_F(EditTest, RemoveTakesTheModeOut) {
  EXPECT_EQ(Edit({"--remove"}).err, "Deleted mode: Two\nSaved program out.xml\n");
  const ModeListView result = Load("out.xml");
  ASSERT_EQ(result.modes.size(), 1U);
  EXPECT_EQ(result.modes[0].name, "One");
}

TEST_F(EditTest, RemovingTheOnlyModeIsRefused) {
  GivenProgram("single.xml", GivenRamps({"One"}));
  const std::string before = ContentOf("single.xml");
  const Outcome outcome = Run({"edit", "@single.xml", "@single.xml", "--mode", "1", "--remove"});
  EXPECT_EQ(outcome.status, kWrongUsage);
  EXPECT_EQ(outcome.err, "lumarinectl: it is the only mode, and a program has at least one\n");
  EXPECT_EQ(ContentOf("single.xml"), before);
}

TEST_F(EditTest, RenameTakesFifteenCharactersOfAnyAlphabet) {
  EXPECT_EQ(Edit({"--rename", "ŽluťoučkýKůňPěl"}).status, kSuccess);
  EXPECT_EQ(Result().name, "ŽluťoučkýKůňPěl");
  EXPECT_EQ(Edit({"--rename", "<Reef & \"co\"'s>"}).status, kSuccess);
  EXPECT_EQ(Result().name, "<Reef & \"co\"'s>");
}

TEST_F(EditTest, AFileThatCannotBeWrittenIsItsOwnFailure) {
  for (const char* const out : {"@no_such_folder/out.xml", "@"}) {
    const Outcome outcome = Run({"edit", "@tank.xml", out, "--mode", "1", "--clear", "1"});
    EXPECT_EQ(outcome.status, kFileFailed);
    EXPECT_THAT(outcome.err, HasSubstr("Error saving program"));
    EXPECT_THAT(outcome.err, Not(HasSubstr("Saved")));
    EXPECT_EQ(Run({"new", out}).status, kFileFailed);
  }
}

}  // namespace
