// Programs as children of this one: what they are given, and what comes back.

#include "platform/posix/child_process.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::AwaitChild;
using platform::StartChild;
using testing::Optional;

// What a child that runs a line of shell answers.
std::optional<int> AnswerOfShell(const std::string& line) {
  const auto child = StartChild("/bin/sh", {"-c", line});
  return child ? AwaitChild(*child) : std::nullopt;
}

// What one prints, whose output is caught.
std::string OutputOfShell(const std::string& line, bool inEnglish) {
  const TemporaryFolder folder;
  const std::string file = (folder / "output").native();
  const int output = open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  const auto child = StartChild("sh", {"-c", line}, {output, inEnglish});
  close(output);
  EXPECT_THAT(child ? AwaitChild(*child) : std::nullopt, Optional(0));
  return BytesOf(file);
}

TEST(ChildProcess, AnswersWhatItEndsWith) {
  EXPECT_THAT(AnswerOfShell("exit 0"), Optional(0));
  EXPECT_THAT(AnswerOfShell("exit 7"), Optional(7));
}

TEST(ChildProcess, EndedByASignalHasNoAnswer) {
  EXPECT_EQ(AnswerOfShell("kill -9 $$"), std::nullopt);
}

TEST(ChildProcess, OfAMissingProgramIsNone) {
  EXPECT_EQ(StartChild("/nowhere/at/all", {}), std::nullopt);
  EXPECT_EQ(StartChild("no-program-has-such-a-name", {}), std::nullopt);
}

TEST(ChildProcess, IsGivenItsArgumentsAsTheyAre) {
  EXPECT_EQ(OutputOfShell("printf '%s|' \"$0\" 'a b' '$HOME' '*'", false), "sh|a b|$HOME|*|");
}

TEST(ChildProcess, WhoseOutputIsCaughtHasNoInputAndItsComplaintsAreLost) {
  EXPECT_EQ(OutputOfShell("cat; echo lost >&2; echo found", false), "found\n");
}

TEST(ChildProcess, SpeaksEnglishWhenAskedTo) {
  setenv("LC_ALL", "de_DE.UTF-8", 1);
  setenv("LUMARINE_TEST", "kept", 1);
  EXPECT_EQ(OutputOfShell("echo $LC_ALL $LUMARINE_TEST", true), "C kept\n");
  EXPECT_EQ(OutputOfShell("echo $LC_ALL $LUMARINE_TEST", false), "de_DE.UTF-8 kept\n");
  unsetenv("LC_ALL");
  EXPECT_EQ(OutputOfShell("echo $LC_ALL $LUMARINE_TEST", true), "C kept\n");
  unsetenv("LUMARINE_TEST");
}

}  // namespace
