// The doctor on the command line: what it prints, asks and writes. What it finds is in tests/doctor.

#include <nlohmann/json.hpp>

#include "tests/cli/command_fixture.h"
#include "tests/support/scripted_computer.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class DoctorTest : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    virtual_clock::SetLocalTime({2026, 3, 14, 9, 26, 53, 0});
    sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
  }
  void TearDown() override {
    scripted_computer::Set({});
    CommandTest::TearDown();
  }

  static constexpr char kBundle[] = "question.zip";
};

TEST_F(DoctorTest, PrintsEachFindingAndASum) {
  const Outcome outcome = Run({"doctor"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, StartsWith("[good]   Controllers on USB: TC420 is plugged in and can be opened.\n"
                                      "[good]   UDP port 5000: It is free.\n"
                                      "[good]   Network adapters: In use: eth0 (192.168.4.2)\n"
                                      "[good]   Way of a scan: A scan leaves by eth0.\n"
                                      "[good]   Firewall: There is none.\n"));
  EXPECT_THAT(outcome.out, HasSubstr("\n[look]   Clocks of controllers: A controller can be told the time"));
  EXPECT_THAT(outcome.out, EndsWith("\n\nNothing is broken. To look at: 1\n"));
}

TEST_F(DoctorTest, WhatIsBrokenIsTheExitStatus) {
  sim_network::HoldPort(true);
  const Outcome outcome = Run({"doctor"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.out,
              HasSubstr("[broken] UDP port 5000: Another program has it; this user is not told which "
                        "one.\n           Close that program and try again.\n"));
  EXPECT_EQ(Run({"doctor", "--json"}).status, kOperationFailed);
}

TEST_F(DoctorTest, ColoursAreForTerminalsThatShowThem) {
  console.colours = true;
  EXPECT_THAT(Run({"doctor"}).out, StartsWith("\x1B[32m\xE2\x9C\x94\x1B[0m Controllers on USB: "));
}

TEST_F(DoctorTest, ForOtherProgramsItIsOneObjectInEnglish) {
  GivenTranslations(
      "<localisation><languages><language id='de' name='Deutsch'/></languages><strings>"
      "<string id='It is free.'><de>Er ist frei.</de></string></strings></localisation>");
  language = "de";
  EXPECT_THAT(Run({"doctor"}).out, HasSubstr("Er ist frei."));
  const Outcome outcome = Run({"doctor", "--json"});
  EXPECT_EQ(outcome.err, "");
  const auto report = nlohmann::json::parse(outcome.out);
  EXPECT_EQ(report.at("version"), "4.7 build 496");
  EXPECT_EQ(report.at("worst"), "look");
  EXPECT_EQ(report.at("findings").size(), 10U);
  EXPECT_EQ(report.at("findings").at(1).dump(),
            R"({"advice":"","found":"It is free.","id":"udp-port","sign":"good","what":"UDP port 5000"})");
}

TEST_F(DoctorTest, ABundleIsShownAndWrittenWhenTheUserSaysYes) {
  console.terminal = true;
  console.answer = "yes";
  const Outcome outcome = Run({"doctor", "--bundle", std::string("@") + kBundle});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, HasSubstr("What question.zip is to hold, in bytes:\n  report.txt "));
  EXPECT_THAT(outcome.err, HasSubstr("lumarinectl doctor --show "));
  EXPECT_THAT(outcome.err, EndsWith("question.zip is written.\n"));
  EXPECT_THAT(console.prompts, EndsWith("question.zip type yes: "));
  EXPECT_THAT(ContentOf(kBundle), StartsWith("PK"));
}

TEST_F(DoctorTest, AnyOtherAnswerWritesNothing) {
  console.terminal = true;
  for (const std::optional<std::string>& answer :
       {std::optional<std::string>(), std::optional<std::string>(""), std::optional<std::string>("no")}) {
    console.answer = answer;
    const Outcome outcome = Run({"doctor", "--bundle", std::string("@") + kBundle});
    EXPECT_EQ(outcome.status, kOperationFailed);
    EXPECT_THAT(outcome.err, EndsWith("Nothing was written.\n"));
    EXPECT_FALSE(Exists(kBundle));
  }
}

TEST_F(DoctorTest, AFileThatIsThereIsReplacedOnlyWhenTheUserSaysSo) {
  GivenFile(kBundle, "somebody's own");
  const Outcome refused = Run({"doctor", "--bundle", std::string("@") + kBundle});
  EXPECT_EQ(refused.status, kWrongUsage);
  EXPECT_THAT(refused.err, EndsWith("give --yes to have it written\n"));
  console.terminal = true;
  console.answer = "no";
  Run({"doctor", "--bundle", std::string("@") + kBundle});
  EXPECT_THAT(console.prompts, HasSubstr("question.zip is there already. To replace it type yes: "));
  EXPECT_EQ(ContentOf(kBundle), "somebody's own");
  console.answer = "yes";
  EXPECT_EQ(Run({"doctor", "--bundle", std::string("@") + kBundle}).status, kSuccess);
  EXPECT_THAT(ContentOf(kBundle), StartsWith("PK"));
}

TEST_F(DoctorTest, AScriptSaysYesBeforehand) {
  GivenFile(kBundle, "of yesterday");
  const Outcome outcome = Run({"doctor", "--json", "--bundle", std::string("@") + kBundle, "--yes"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_TRUE(nlohmann::json::accept(outcome.out)) << "all else is on standard error";
  EXPECT_THAT(ContentOf(kBundle), StartsWith("PK"));
}

TEST_F(DoctorTest, ABundleThatCannotBeWrittenIsAFailure) {
  const Outcome outcome = Run({"doctor", "--bundle", "@none/question.zip", "--yes"});
  EXPECT_EQ(outcome.status, kFileFailed);
  EXPECT_THAT(outcome.err, HasSubstr("Error creating file none/question.zip, error: "));
}

TEST_F(DoctorTest, WhatIsBrokenIsTheExitStatusOfABundleToo) {
  sim_network::HoldPort(true);
  EXPECT_EQ(Run({"doctor", "--bundle", std::string("@") + kBundle, "--yes"}).status, kOperationFailed);
  EXPECT_TRUE(Exists(kBundle));
}

TEST_F(DoctorTest, AFileOfTheBundleIsShownByItself) {
  const Outcome outcome = Run({"doctor", "--show", "versions.txt"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out,
              StartsWith("Lumarine: 4.7 build 496\nProgram: lumarinectl\nSystem: Scripted 1.0\n"));
  const Outcome unknown = Run({"doctor", "--show", "secrets.txt"});
  EXPECT_EQ(unknown.status, kWrongUsage);
  EXPECT_EQ(unknown.out, "");
  EXPECT_THAT(unknown.err,
              StartsWith("lumarinectl: there is no secrets.txt in a bundle here, but report.txt, "));
}

TEST_F(DoctorTest, OptionsThatMakeNoSenseAreRefused) {
  EXPECT_EQ(Run({"doctor", "--yes"}).status, kWrongUsage);
  EXPECT_EQ(Run({"doctor", "--show", "report.txt", "--bundle", "@q.zip"}).status, kWrongUsage);
  EXPECT_EQ(Run({"doctor", "tc420"}).status, kWrongUsage);
  EXPECT_FALSE(Exists("q.zip"));
}

}  // namespace
