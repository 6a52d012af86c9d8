// What a shell is told when somebody presses Tab.

#include <sstream>

#include "tests/cli/command_fixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;

class CompletionTest : public CommandTest {
 protected:
  // The answer's lines.
  Words Lines(const Words& typed) {
    Words words{"complete", "--"};
    words.insert(words.end(), typed.begin(), typed.end());
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.status, kSuccess);
    EXPECT_EQ(outcome.err, "");
    std::istringstream text(outcome.out);
    Words lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }

  // Without what they are.
  Words Offered(const Words& typed) {
    Words words;
    for (const std::string& line : Lines(typed)) words.push_back(line.substr(0, line.find('\t')));
    return words;
  }
};

TEST_F(CompletionTest, TheFirstWordIsACommand) {
  EXPECT_THAT(Lines({"usb"}),
              ElementsAre("usb-setup\tLet users of this computer open controllers on USB (Linux)"));
  EXPECT_THAT(Offered({"c"}), ElementsAre("curve", "convert", "clear"));
  EXPECT_THAT(Offered({""}), IsSupersetOf({"info", "upload", "usb-setup"}));
  EXPECT_THAT(Offered({""}), Not(Contains("complete")));
  EXPECT_THAT(Offered({"--language", "de", "sc"}), ElementsAre("scan"));
  EXPECT_THAT(Offered({"polish"}), IsEmpty());
}

TEST_F(CompletionTest, FilesHaveTheEndingsThatTheCommandTakes) {
  EXPECT_THAT(Lines({"info", ""}), ElementsAre("/\t.xml"));
  EXPECT_THAT(Lines({"new", "ta"}), ElementsAre("/\t.xml"));
  EXPECT_THAT(Lines({"edit", "tank.xml", ""}), ElementsAre("/\t.xml"));
  EXPECT_THAT(Lines({"render", "tank.xml", ""}), ElementsAre("/\t.png .svg .pdf"));
  EXPECT_THAT(Lines({"convert", "a.tmf", "b.tmf", "c.tmf", ""}), ElementsAre("/\t.xml .tmf .lmf .raw"));
  EXPECT_THAT(Lines({"info", "--", "-t"}), ElementsAre("/\t.xml"));
  EXPECT_THAT(Lines({"wifi-setup", "--password-file", ""}), ElementsAre("/\t"));
  EXPECT_THAT(Lines({"edit", "--steps", "2="}), ElementsAre("/\t"));
}

TEST_F(CompletionTest, WhereNoMoreFilesAreTakenOptionsAreOffered) {
  EXPECT_THAT(Offered({"info", "tank.xml", ""}), ElementsAre("--help", "--json", "--language"));
  EXPECT_THAT(Offered({"clear", ""}), ElementsAre("--help", "--device", "--trace", "--language"));
  EXPECT_THAT(Offered({"info", "--", "tank.xml", ""}), IsEmpty());
}

TEST_F(CompletionTest, OptionsAreThoseOfTheCommandAndItsGroups) {
  EXPECT_THAT(Lines({"info", "--js"}), ElementsAre("--json\tEverything the file holds, for other programs"));
  EXPECT_THAT(Offered({"edit", "--op"}), ElementsAre("--optimize", "--optimize-tc421"));
  EXPECT_THAT(Offered({"-"}), ElementsAre("--help", "--version", "--language"));
  EXPECT_THAT(Offered({"scan", "--v"}), IsEmpty()) << "the version is asked for in front of commands";
}

TEST_F(CompletionTest, WhatIsThereIsNotOfferedAgainUnlessItMayBe) {
  EXPECT_THAT(Offered({"upload", "--trace", "--t"}), IsEmpty());
  EXPECT_THAT(Offered({"demo", "--mode=2", "--m"}), IsEmpty());
  EXPECT_THAT(Offered({"upload", "--device", "tc420", "--d"}), ElementsAre("--device"));
}

TEST_F(CompletionTest, ValuesAreTheWordsOfTheHelp) {
  EXPECT_THAT(Offered({"upload", "--device", ""}), ElementsAre("emulator", "tc420", "tc421", "udp:"));
  EXPECT_THAT(Offered({"upload", "tank.xml", "--device=tc"}),
              ElementsAre("--device=tc420", "--device=tc421"));
  EXPECT_THAT(Offered({"wifi-setup", "--device", ""}), ElementsAre("udp:"));
  EXPECT_THAT(Offered({"wifi-setup", "--security", "w"}), ElementsAre("wpa", "wpa2"));
  EXPECT_THAT(Offered({"frames", "--model", ""}), ElementsAre("tc420", "tc421-usb", "tc421-udp"));
  for (const Words& typed :
       {Words{"demo", "--from", ""}, {"sync-time", "--time", ""}, {"demo", "--mode", ""}})
    EXPECT_THAT(Offered(typed), IsEmpty()) << "nobody knows";
}

TEST_F(CompletionTest, ChannelsAreCounted) {
  EXPECT_THAT(Offered({"edit", "--clear", ""}), ElementsAre("1", "2", "3", "4", "5"));
  EXPECT_THAT(Offered({"edit", "--move", ""}), ElementsAre("1=", "2=", "3=", "4=", "5="));
  EXPECT_THAT(Offered({"edit", "--move", "2="}), ElementsAre("2=up", "2=down"));
  EXPECT_THAT(Offered({"edit", "--move=2=u"}), ElementsAre("--move=2=up"));
  EXPECT_THAT(Offered({"edit", "--power", "5="}), IsEmpty());
  EXPECT_THAT(Offered({"edit", "--channels", ""}), ElementsAre("1", "2", "3", "4", "5"));
  EXPECT_THAT(
      Offered({"edit", "--copy-to=3,"}),
      ElementsAre("--copy-to=3,1", "--copy-to=3,2", "--copy-to=3,3", "--copy-to=3,4", "--copy-to=3,5"));
  EXPECT_THAT(Offered({"edit", "--copy-to", "3=5"}), IsEmpty());
}

TEST_F(CompletionTest, ACommandMayHaveCommands) {
  EXPECT_THAT(Offered({"generate", ""}), ElementsAre("sun", "moon", "ramp", "acclimation", "season"));
  EXPECT_THAT(Offered({"generate", "se"}), ElementsAre("season"));
  EXPECT_THAT(Lines({"generate", "acclimation", ""}), ElementsAre("/\t.xml"));
  EXPECT_THAT(Offered({"generate", "sun", "--tw"}), ElementsAre("--twilight"));
  EXPECT_THAT(Offered({"generate", "sun", "--twilight", ""}), ElementsAre("none", "civil", "nautical"));
  EXPECT_THAT(Offered({"generate", "moon", "--moon", ""}), ElementsAre("1=", "2=", "3=", "4=", "5="));
  EXPECT_THAT(Offered({"generate", "moon", "sun", "--fo"}), ElementsAre("--force"))
      << "a file may be called so";
}

TEST_F(CompletionTest, PlacesAreThoseThatThereAre) {
  EXPECT_THAT(Lines({"generate", "sun", "--place", "Europe/Berl"}), ElementsAre("Europe/Berlin\tGermany"));
  EXPECT_THAT(Offered({"generate", "season", "--place=Europe/Berl"}), ElementsAre("--place=Europe/Berlin"));
}

TEST_F(CompletionTest, LanguagesAreThoseThatThereAre) {
  GivenTranslations(
      "<localisation><languages><language id='de'/><language id='fr01'/><language id='fr'/></languages>"
      "</localisation>");
  EXPECT_THAT(Offered({"--language", ""}), ElementsAre("en", "de", "fr01", "fr"));
  EXPECT_THAT(Offered({"scan", "--language=f"}), ElementsAre("--language=fr01", "--language=fr"));
}

TEST_F(CompletionTest, AValueIsNoCommandAndNoFile) {
  EXPECT_THAT(Offered({"--language", "info", "ne"}), ElementsAre("new"));
  EXPECT_THAT(Lines({"render", "--time", "12:00", "tank.xml", ""}), ElementsAre("/\t.png .svg .pdf"));
}

TEST_F(CompletionTest, AnUnknownOptionIsPassedOver) {
  EXPECT_THAT(Lines({"info", "--frobnicate", ""}), ElementsAre("/\t.xml"));
  EXPECT_THAT(Lines({"info", "--frobnicate="}), IsEmpty());
}

TEST_F(CompletionTest, OnlyAShellAsks) {
  EXPECT_EQ(Run({"complete"}).status, kWrongUsage);
  EXPECT_EQ(Run({"complete", "--"}).status, kWrongUsage);
  EXPECT_THAT(Run({"complete", "info"}).err, StartsWith("lumarinectl: there is no command complete"));
  EXPECT_THAT(Run({"--help"}).out, Not(HasSubstr("complete")));
}

}  // namespace
