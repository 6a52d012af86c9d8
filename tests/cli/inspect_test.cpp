#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>

#include "program/builtin_modes.h"
#include "tests/cli/command_fixture.h"
#include "tests/support/golden.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class InspectTest : public CommandTest {
 protected:
  static std::ptrdiff_t Lines(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }
};

TEST_F(InspectTest, InfoPrintsTheTableOfEachMode) {
  GivenBuiltIn("tank.xml");
  const Outcome outcome = Run({"info", "@tank.xml"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, IsEmpty());
  golden::Expect("tests/cli/golden/info_of_the_built_in_program.txt", outcome.out);
}

TEST_F(InspectTest, InfoMarksJumps) {
  auto document = GivenRamps({"Jumps"});
  document.modes[0].channels[1][0].jump = true;
  GivenProgram("tank.xml", document);
  EXPECT_EQ(Run({"info", "@tank.xml"}).out,
            "Steps for mode: Jumps\n"
            "08:00 [0, 0J, 0, 0, 0]\n"
            "20:00 [100, 100, 100, 100, 100]\n");
}

TEST_F(InspectTest, InfoAsJsonHoldsEverythingOfTheFile) {
  auto document = GivenRamps({"One", "Two"});
  document.modes[1].description = "the \"second\"";
  document.modes[1].channels[4] = {{30, -5, 40.0F, true}};
  document.channelInfos[0] = {"Red", "deep", 0xFFFF8000};
  GivenProgram("tank.xml", document);
  const Outcome outcome = Run({"info", "@tank.xml", "--json"});
  EXPECT_EQ(outcome.status, kSuccess);
  const json info = json::parse(outcome.out);
  EXPECT_EQ(info["channels"].size(), 5U);
  EXPECT_EQ(info["channels"][0],
            json({{"number", 1}, {"name", "Red"}, {"description", "deep"}, {"color", "#FF8000"}}));
  ASSERT_EQ(info["modes"].size(), 2U);
  EXPECT_EQ(info["modes"][1]["number"], 2);
  EXPECT_EQ(info["modes"][1]["name"], "Two");
  EXPECT_EQ(info["modes"][1]["description"], "the \"second\"");
  EXPECT_EQ(info["modes"][1]["channels"][4],
            json::array({{{"hour", 30}, {"minute", -5}, {"value", 40.0}, {"jump", true}}}));
  EXPECT_EQ(info["modes"][0]["rows"][1]["hour"], 20);
  EXPECT_EQ(info["modes"][0]["rows"][1]["values"], json::array({100, 100, 100, 100, 100}));
  EXPECT_EQ(info["modes"][0]["rows"][1]["jumps"], json::array({false, false, false, false, false}));
}

TEST_F(InspectTest, ANameThatIsNoUtf8IsStillJson) {
  GivenFile(
      "tank.xml",
      "<modelist><mode name='\xFF\xFE'><channel/><channel/><channel/><channel/><channel/></mode></modelist>");
  const Outcome outcome = Run({"info", "@tank.xml", "--json"});
  EXPECT_EQ(json::parse(outcome.out)["modes"].size(), 1U);
}

// On a terminal they could clear the screen or worse; to a file or another program they go as they are.
TEST_F(InspectTest, ControlCharactersInNamesAreShownOnATerminalAndKeptInAPipe) {
  auto document = GivenRamps({"A\x1B[2JB"});
  GivenProgram("tank.xml", document);
  EXPECT_THAT(Run({"info", "@tank.xml"}).out, StartsWith("Steps for mode: A\x1B[2JB\n"));
  console.terminal = true;
  EXPECT_THAT(Run({"info", "@tank.xml"}).out, StartsWith("Steps for mode: A\uFFFD[2JB\n08:00 "));
}

TEST_F(InspectTest, CurveHasALineForEachMinute) {
  GivenProgram("tank.xml", GivenRamps({"Ramp"}));
  const Outcome outcome = Run({"curve", "@tank.xml", "--mode", "1"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.out, StartsWith("second,c1,c2,c3,c4,c5\n0,"));
  EXPECT_EQ(Lines(outcome.out), 1 + 1440);
  EXPECT_THAT(outcome.out, HasSubstr("\n50400,50,50,50,50,50\n"));
  EXPECT_THAT(outcome.out, HasSubstr("\n86340,"));
}

TEST_F(InspectTest, CurveTakesAnyStretchUpToADay) {
  GivenProgram("tank.xml", GivenRamps({"Ramp"}));
  EXPECT_EQ(Lines(Run({"curve", "@tank.xml", "--mode", "1", "--every", "1"}).out), 1 + 86400);
  EXPECT_EQ(Lines(Run({"curve", "@tank.xml", "--mode", "1", "--every", "7"}).out), 1 + 12343);
  EXPECT_EQ(Lines(Run({"curve", "@tank.xml", "--mode", "1", "--every", "86400"}).out), 1 + 1);
}

TEST_F(InspectTest, CurveIsTheValueOfEachChannelToNineDigits) {
  auto document = GivenRamps({"One", "Odd"});
  document.modes[1].channels[0] = {{20, 0, 3.0F, false}, {8, 0, 97.0F, true}, {8, 0, 20.0F, false}};
  document.modes[1].channels[1] = {{9, 0, 50.0F, false}, {9, 0, 50.0F, false}};
  document.modes[1].channels[2].clear();
  GivenProgram("tank.xml", document);
  golden::Expect("tests/cli/golden/curve_of_odd_channels.txt",
                 Run({"curve", "@tank.xml", "--mode", "2", "--every", "5000"}).out);

  const Outcome outcome = Run({"curve", "@tank.xml", "--mode", "2", "--every", "5000", "--json"});
  const json curve = json::parse(outcome.out);
  EXPECT_EQ(curve["mode"], "Odd");
  ASSERT_EQ(curve["points"].size(), 18U);
  EXPECT_EQ(curve["points"][17]["second"], 85000);
  const auto loaded = Load("tank.xml");
  for (const json& point : curve["points"])
    EXPECT_EQ(point["values"][3].get<float>(),
              ChannelValueAt(loaded.modes[1].channels[3], point["second"].get<int>()));
}

}  // namespace
