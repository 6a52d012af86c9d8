// Help, version, wrong usage, and what every command has in common.

#include <nlohmann/json.hpp>

#include "program/builtin_modes.h"
#include "tests/cli/command_fixture.h"
#include "tests/support/golden.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kCommands[] = {"info",   "curve",     "new",     "edit",       "convert",
                                     "render", "frames",    "devices", "scan",       "upload",
                                     "demo",   "sync-time", "clear",   "wifi-setup", "usb-setup",
                                     "doctor", "generate",  "places",  "figures"};

class CommandLineTest : public CommandTest {};

TEST_F(CommandLineTest, VersionIsOneLine) {
  const Outcome outcome = Run({"--version"});
  EXPECT_EQ(outcome.out, "Lumarine 4.7 build 496\n");
  EXPECT_THAT(outcome.err, IsEmpty());
  EXPECT_EQ(outcome.status, kSuccess);
}

TEST_F(CommandLineTest, HelpNamesEveryCommandAndTheExitCodes) {
  const Outcome outcome = Run({"--help"});
  EXPECT_EQ(outcome.status, kSuccess);
  for (const char* const command : kCommands)
    EXPECT_THAT(outcome.out, HasSubstr(std::string("\n  ") + command));
  EXPECT_THAT(outcome.out, AllOf(HasSubstr("Examples:"), HasSubstr("Exit status: 0 done, 1 ")));
}

TEST_F(CommandLineTest, EveryCommandTeachesByExample) {
  std::string help = Transcript("--help", Run({"--help"}));
  for (const std::string command : kCommands) {
    const Outcome outcome = Run({command, "--help"});
    EXPECT_EQ(outcome.status, kSuccess);
    EXPECT_THAT(outcome.out, testing::AnyOf(HasSubstr("\n  lumarinectl " + command),
                                            HasSubstr("\n  sudo lumarinectl " + command)));
    help += Transcript(command + " --help", outcome);
  }
  for (const std::string kind : {"sun", "moon", "ramp", "acclimation", "season"}) {
    const Outcome outcome = Run({"generate", kind, "--help"});
    EXPECT_THAT(outcome.out, HasSubstr("\n  lumarinectl generate " + kind));
    help += Transcript("generate " + kind + " --help", outcome);
  }
  golden::Expect("tests/cli/golden/help.txt", help);
}

TEST_F(CommandLineTest, NoCommandIsWrongUsage) {
  const Outcome outcome = Run({});
  EXPECT_EQ(outcome.status, kWrongUsage);
  EXPECT_THAT(outcome.err, HasSubstr("--help"));
  EXPECT_THAT(outcome.out, IsEmpty());
}

TEST_F(CommandLineTest, WrongUsageSaysWhatIsWrongAndHowToLearnMore) {
  GivenBuiltIn("tank.xml");
  struct Row {
    Words words;
    const char* said;
  };
  const Row rows[] = {
      {{"polish"}, "there is no command polish"},
      {{"info"}, "FILE is required"},
      {{"info", "@tank.xml", "@other.xml"}, "not expected"},
      {{"info", "@tank.xml", "--frobnicate"}, "--frobnicate"},
      {{"curve", "@tank.xml"}, "--mode is required"},
      {{"curve", "@tank.xml", "--mode", "0"}, "--mode"},
      {{"curve", "@tank.xml", "--mode", "one"}, "--mode"},
      {{"curve", "@tank.xml", "--mode", "3"}, "there is no mode 3 in tank.xml, it holds 2"},
      {{"curve", "@tank.xml", "--mode", "99999999999"}, "--mode"},
      {{"curve", "@tank.xml", "--mode", "1", "--every", "0"}, "--every"},
      {{"curve", "@tank.xml", "--mode", "1", "--every", "86401"}, "--every"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1"}, "Exactly 1 option"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--optimize", "--remove"}, "Exactly 1 option"},
      {{"edit", "@tank.xml", "--mode", "1", "--optimize"}, "OUT is required"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--align", "0"}, "--align"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--align", "-5"}, "--align"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--endpoint", "noon"}, "--endpoint"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--clear", "6"}, "there is no channel 6"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--clear", "1", "--clear", "2"}, "--clear"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--steps", "@steps.txt"}, "--steps"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--power", "1=0"}, "--power"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--power", "1=101"}, "--power"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--power", "1=nan"}, "--power"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--power", "1=50%"}, "--power"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--move", "1=left"}, "--move"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--rename", ""}, "--rename"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--rename", "sixteen letters!"}, "15 characters"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--rename", "two\nlines"}, "plain text"},
      {{"edit", "@tank.xml", "@out.xml", "--mode", "1", "--rename", "\xFF"}, "plain text"},
      {{"frames", "@tank.xml", "--model", "tc400"}, "--model"},
      {{"devices", "--wait", "-1"}, "--wait"},
      {{"upload", "@tank.xml"}, "--device is required"},
      {{"upload", "@tank.xml", "--device", "toaster"}, "--device"},
      {{"demo", "@tank.xml", "--device", "emulator", "--seconds", "0"}, "--seconds"},
      {{"demo", "@tank.xml", "--device", "emulator", "--mode", "3"}, "there is no mode 3"},
      {{"sync-time", "--device", "emulator", "--time", "2026-02-30 10:00:00"}, "2026-02-30 10:00:00"},
      {{"clear"}, "--device is required"},
      {{"generate"}, "A subcommand is required"},
      {{"generate", "mars"}, "A subcommand is required"},
      {{"generate", "sun"}, "--place"},
      {{"generate", "sun", "--place", "Atlantis"}, "lumarinectl places"},
      {{"generate", "sun", "--at", "91,0"}, "a latitude from -90 to 90"},
      {{"generate", "sun", "--at", "nan,0"}, "a latitude from -90 to 90"},
      {{"generate", "sun", "--at", "0,0", "--date", "2026-02-30"}, "a date from 1950 to 2099"},
      {{"generate", "sun", "--at", "0,0", "--date", "1800-01-01"}, "a date from 1950 to 2099"},
      {{"generate", "sun", "--at", "0,0", "--levels", "1,2,3"}, "one percent, or five"},
      {{"generate", "sun", "--at", "0,0", "--levels", "nan"}, "one percent, or five"},
      {{"generate", "sun", "--at", "0,0", "--moon", "6=20"}, "a channel from 1 to 5"},
      {{"generate", "sun", "--at", "0,0", "--hours", "10-22"}, "two times"},
      {{"generate", "sun", "--at", "0,0", "--hours", "10:00-22:00", "--begin", "10:00"}, "excludes"},
      {{"generate", "sun", "--at", "0,0", "--twilight", "dim"}, "none, civil or nautical"},
      {{"generate", "sun", "--at", "0,0", "--utc-offset", "16:00"}, "an offset of at most 15 hours"},
      {{"generate", "sun", "--at", "0,0", "--rows", "49"}, "--rows"},
      {{"generate", "sun", "--at", "0,0", "@out.xml", "--mode", "1"}, "requires --program"},
      {{"generate", "ramp", "--stagger", "121"}, "--stagger"},
      {{"generate", "ramp", "--break-level", "40"}, "requires --break"},
      {{"generate", "acclimation", "@tank.xml"}, "OUT is required"},
      {{"generate", "acclimation", "@tank.xml", "@out.xml", "--days", "0"}, "--days"},
      {{"generate", "acclimation", "@tank.xml", "@out.xml", "--mode", "3"}, "there is no mode 3"},
      {{"generate", "season"}, "FOLDER is required"},
      {{"generate", "season", "@out.xml", "--at", "0,0", "--year", "1900"}, "--year"},
      {{"places", "Atlantis"}, "there is no place or country"},
  };
  for (const Row& row : rows) {
    const Outcome outcome = Run(row.words);
    EXPECT_EQ(outcome.status, kWrongUsage) << row.said;
    EXPECT_THAT(outcome.err, AllOf(StartsWith("lumarinectl: "), HasSubstr(row.said)));
    EXPECT_THAT(outcome.out, IsEmpty());
  }
  EXPECT_FALSE(Exists("out.xml"));
}

TEST_F(CommandLineTest, APathThatBeginsWithASlashIsNoOptionOnAnyPlatform) {
  const Outcome outcome = Run({"info", "/no/such/tank.xml"});
  EXPECT_EQ(outcome.status, kFileFailed);
}

TEST_F(CommandLineTest, AFileThatCannotBeReadIsItsOwnFailure) {
  GivenFile("empty.xml", "");
  GivenFile("cut.xml", "<modelist><mode name='A'><channel><step ho");
  GivenFile("binary.xml", std::string("\x7F"
                                      "ELF\0\0\xFF\xFE",
                                      8));
  GivenFile("no_modes.xml", "<modelist></modelist>");
  for (const char* const file :
       {"@missing.xml", "@empty.xml", "@cut.xml", "@binary.xml", "@no_modes.xml", "@"}) {
    const Words commands[] = {
        {"info", file},
        {"curve", file, "--mode", "1"},
        {"edit", file, "@out.xml", "--mode", "1", "--clear", "1"},
        {"frames", file},
        {"upload", file, "--device", "emulator"},
        {"demo", file, "--device", "emulator"},
    };
    for (const auto& command : commands) {
      const Outcome outcome = Run(command);
      EXPECT_EQ(outcome.status, kFileFailed) << command.front() << " " << file;
      EXPECT_THAT(outcome.err, HasSubstr("cannot be read, or is no light program"));
      EXPECT_THAT(outcome.out, IsEmpty());
    }
  }
  EXPECT_FALSE(Exists("out.xml"));
}

TEST_F(CommandLineTest, AFullDiskIsAFailureOfEveryCommandThatPrints) {
  GivenBuiltIn("tank.xml");
  const Words commands[] = {
      {"--help"},
      {"--version"},
      {"edit", "--help"},
      {"info", "@tank.xml"},
      {"info", "@tank.xml", "--json"},
      {"curve", "@tank.xml", "--mode", "1"},
      {"curve", "@tank.xml", "--mode", "1", "--json"},
      {"frames", "@tank.xml"},
      {"devices", "--json"},
  };
  for (const auto& command : commands) {
    const Outcome outcome = RunIntoFullDisk(command, 2);
    EXPECT_EQ(outcome.status, kFileFailed) << command.front();
    EXPECT_THAT(outcome.err, HasSubstr("lumarinectl: standard output cannot be written"));
  }
}

// Found with a disk that had room for the whole text but its last byte.
TEST_F(CommandLineTest, TheLastByteCountsToo) {
  const std::string text = "Lumarine 4.7 build 496\n";
  EXPECT_EQ(RunIntoFullDisk({"--version"}, text.size() - 1).status, kFileFailed);
  EXPECT_EQ(RunIntoFullDisk({"--version"}, text.size()).status, kSuccess);
}

TEST_F(CommandLineTest, CommandsWithoutADeviceTouchNone) {
  GivenBuiltIn("tank.xml");
  sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
  sim_hidapi::Inject({sim_hidapi::Call::Enumerate, 1, sim_hidapi::kForever});
  EXPECT_EQ(Run({"info", "@tank.xml"}).status, kSuccess);
  EXPECT_EQ(Run({"frames", "@tank.xml"}).status, kSuccess);
  EXPECT_EQ(virtual_clock::Seconds(), 0.0) << "nobody slept";
  EXPECT_THAT(sim_hidapi::Frames(sim_hidapi::Family::TC420), IsEmpty());
}

TEST_F(CommandLineTest, NamesBeyondAsciiSurvive) {
  Run({"new", "@Žluté moře.xml"});
  ASSERT_TRUE(Exists("Žluté moře.xml"));
  const Outcome renamed =
      Run({"edit", "@Žluté moře.xml", "@Žluté moře.xml", "--mode", "1", "--rename", "Večer"});
  EXPECT_EQ(renamed.status, kSuccess);
  EXPECT_THAT(Run({"info", "@Žluté moře.xml"}).out, StartsWith("Steps for mode: Večer\n"));
}

}  // namespace
