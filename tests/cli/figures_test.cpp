// figures.

#include <nlohmann/json.hpp>

#include "tests/cli/command_fixture.h"
#include "tests/support/golden.h"

namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class FiguresTest : public CommandTest {
 protected:
  // The second of two modes shines by steps that are told easily.
  void GivenBlocks() {
    auto document = GivenRamps({"Ramp", "Blocks"});
    document.channelInfos[0].name = "Königsblau";
    document.channelInfos[1].name = "A\x1B[2JB";
    document.modes[1].channels = {};
    document.modes[1].channels[0] = {{8, 0, 50.0F, true}, {20, 0, 0.0F, true}};
    document.modes[1].channels[1] = {{2, 30, 0.0F, true}, {18, 0, 100.0F, true}};
    GivenProgram("tank.xml", document);
  }
};

TEST_F(FiguresTest, AreATable) {
  GivenBlocks();
  const Outcome outcome = Run({"figures", "@tank.xml", "--mode", "2", "--watts", "40,,0", "--price", "0,25",
                               "--par", "100", "--level", "80"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, IsEmpty());
  golden::Expect("tests/cli/golden/figures_of_two_channels.txt", outcome.out);
}

TEST_F(FiguresTest, AreOfTheFirstModeUnlessAnotherIsNamed) {
  GivenBlocks();
  EXPECT_THAT(Run({"figures", "@tank.xml", "--level", "0"}).out,
              AllOf(HasSubstr("\nPercent-hours           1200.0 "), HasSubstr("\nHours above 0 %"),
                    Not(HasSubstr("Cost"))));
}

TEST_F(FiguresTest, AsJsonHaveEachChannelAndNullForWhatIsNotTold) {
  GivenBlocks();
  const Outcome outcome = Run({"figures", "@tank.xml", "--mode", "2", "--watts", "40", "--json", "--level",
                               "50", "--par", "0", "--price", "0"});
  EXPECT_EQ(outcome.status, kSuccess);
  const json figures = json::parse(outcome.out);
  EXPECT_EQ(figures["mode"], "Blocks");
  EXPECT_EQ(figures["number"], 2);
  EXPECT_EQ(figures["level"], 50.0);
  EXPECT_EQ(figures["days_per_month"], 30.4375);
  ASSERT_EQ(figures["channels"].size(), 5U);
  const json channel = {{"number", 1},
                        {"name", "Königsblau"},
                        {"first_light", "08:00"},
                        {"last_light", "20:00"},
                        {"hours_of_light", 12.0},
                        {"hours_above_level", 0.0},
                        {"percent_hours", 600.0},
                        {"steepest_minute", {{"percent", 50.0}, {"time", "08:00"}}},
                        {"kwh_day", 0.24},
                        {"kwh_month", 7.305},
                        {"cost_day", nullptr},
                        {"cost_month", nullptr},
                        {"dli", nullptr}};
  EXPECT_EQ(figures["channels"][0], channel);
  EXPECT_EQ(figures["channels"][4]["first_light"], nullptr);
  EXPECT_EQ(figures["channels"][4]["steepest_minute"], json({{"percent", 0.0}, {"time", nullptr}}));
  EXPECT_EQ(figures["all"]["first_light"], "08:00");
  EXPECT_EQ(figures["all"]["last_light"], "02:30");
  EXPECT_EQ(figures["all"]["percent_hours"], 600.0 + 850.0);
}

TEST_F(FiguresTest, OfAnyFileAreFinite) {
  GivenFile(
      "tank.xml",
      "<modelist><mode name='x'><channel><step hour='9' value='5'/><step hour='9' value='90'/></channel>"
      "<channel><step hour='30' value='900'/><step hour='-3' "
      "value='-1'/></channel><channel/><channel/><channel/>"
      "</mode></modelist>");
  const Outcome outcome = Run({"figures", "@tank.xml", "--json", "--watts", "1000000,1000000"});
  EXPECT_EQ(outcome.status, kSuccess);
  const json all = json::parse(outcome.out)["all"];
  EXPECT_GE(all["percent_hours"].get<double>(), 0.0);
  EXPECT_LE(all["percent_hours"].get<double>(), 4800.0);
  EXPECT_TRUE(all["kwh_day"].is_number());
}

TEST_F(FiguresTest, TakeNoNonsense) {
  GivenBlocks();
  const std::pair<Words, const char*> rows[] = {
      {{"--watts", "1,x"}, "up to five numbers with commas between them are expected, not 1,x"},
      {{"--watts", "1,2,3,4,5,6"}, "up to five numbers"},
      {{"--par", "1e3"}, "up to five numbers"},
      {{"--price=-1"}, "a price such as 0.32 is expected, not -1"},
      {{"--level", "101"}, "0 to 100 percent are expected, not 101"},
      {{"--mode", "3"}, "there is no mode 3"}};
  for (const auto& [options, said] : rows) {
    Words words = {"figures", "@tank.xml"};
    words.insert(words.end(), options.begin(), options.end());
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.status, kWrongUsage) << said;
    EXPECT_THAT(outcome.err, HasSubstr(said));
    EXPECT_THAT(outcome.out, IsEmpty());
  }
  EXPECT_EQ(Run({"figures", "@missing.xml"}).status, kFileFailed);
}

}  // namespace
