#include "cli/status_lines.h"

#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "common/log.h"
#include "tests/cli/command_fixture.h"

namespace {

using cli::ProgressLine;
using cli::StatusLines;

FakeConsole Terminal(int width) {
  FakeConsole console;
  console.terminal = true;
  console.width = width;
  return console;
}

const FakeConsole kOnTerminal = Terminal(80);
const FakeConsole kPiped;

class StatusLinesTest : public testing::Test {
 protected:
  std::string Take() {
    std::string text = stream_.str();
    stream_.str("");
    return text;
  }

  std::ostringstream stream_;
};

TEST_F(StatusLinesTest, LinesOfTheLogComeOutAsTheyAreLogged) {
  const StatusLines lines(stream_, kPiped);
  LogPlain("one");
  EXPECT_EQ(Take(), "one\n");
  LogWarning("two");
  EXPECT_EQ(Take(), "two\n");
}

TEST_F(StatusLinesTest, TheDeviceLogComesOutIfItIsTraced) {
  StatusLines lines(stream_, kPiped);
  LogDevice("quiet");
  EXPECT_EQ(Take(), "");
  lines.Trace();
  LogDeviceDump("AB", 2);
  EXPECT_EQ(Take().substr(0, 12), "0000  41 42 ");
}

TEST_F(StatusLinesTest, TheDeviceLogDoesNotGrowUnread) {
  {
    const StatusLines lines(stream_, kPiped);
    LogDevice("quiet");
  }
  std::string kept;
  deviceLog.textHandler = [&](const std::string& text) { kept += text; };
  deviceLog.Drain();
  deviceLog.textHandler = nullptr;
  EXPECT_EQ(kept, "");
}

TEST_F(StatusLinesTest, NothingIsWrittenBehindItsEnd) {
  { const StatusLines lines(stream_, kPiped); }
  LogPlain("late");
  statusLog.Drain();
  EXPECT_EQ(Take(), "");
}

TEST_F(StatusLinesTest, ProgressIsDrawnOverAndKeepsBelowTheLines) {
  {
    StatusLines lines(stream_, kOnTerminal);
    lines.ShowProgress({"10 %", 10});
    EXPECT_EQ(Take(), "10 %");
    lines.ShowProgress({"10 %", 10});
    EXPECT_EQ(Take(), "") << "nothing new";
    lines.ShowProgress({"20 %", 10});
    EXPECT_EQ(Take(), "\r    \r20 %");
    LogPlain("a line");
    EXPECT_EQ(Take(), "\r    \ra line\n20 %");
  }
  EXPECT_EQ(Take(), "\r    \r") << "gone at the end";
}

TEST_F(StatusLinesTest, ProgressStaysWithinTheTerminal) {
  StatusLines lines(stream_, Terminal(10));
  lines.ShowProgress({"[##########]", 10});
  EXPECT_EQ(Take(), "[########");
}

TEST_F(StatusLinesTest, PipedThereIsNoProgress) {
  StatusLines lines(stream_, kPiped);
  lines.ShowProgress({"10 %", 10});
  LogPlain("a line");
  EXPECT_EQ(Take(), "a line\n");
}

TEST_F(StatusLinesTest, ATerminalIsGivenNoControlCharacters) {
  {
    StatusLines lines(stream_, kOnTerminal);
    lines.Print("a\x1B[2J\nb");
    EXPECT_EQ(Take(), "a\uFFFD[2J\uFFFDb\n");
  }
  StatusLines lines(stream_, kPiped);
  lines.Print("a\x1B[2Jb");
  EXPECT_EQ(Take(), "a\x1B[2Jb\n");
}

// The sign of the terminal itself

class TerminalSign : public testing::Test {
 protected:
  std::string Shown(const std::vector<ProgressLine>& lines) const {
    std::ostringstream stream;
    {
      StatusLines status(stream, console_);
      for (const ProgressLine& line : lines) status.ShowProgress(line);
    }
    return stream.str();
  }

  FakeConsole console_;
};

TEST_F(TerminalSign, FollowsTheProgressAndGoesAtItsEnd) {
  console_.terminal = true;
  console_.terminalShowsProgress = true;
  EXPECT_EQ(Shown({{"a", 7}, {"b", 7}, {"c", std::nullopt}, {}}),
            "\x1b]9;4;1;7\aa"
            "\r \rb"
            "\x1b]9;4;3;0\a\r \rc"
            "\x1b]9;4;0;0\a\r \r");
  EXPECT_EQ(Shown({{"a", 7}}), "\x1b]9;4;1;7\aa\x1b]9;4;0;0\a\r \r") << "whatever ends the program";
  EXPECT_EQ(Shown({{}, {}}), "") << "where nothing was shown nothing is taken back";
}

TEST_F(TerminalSign, IsNotSentToATerminalThatHasNone) {
  console_.terminal = true;
  EXPECT_EQ(Shown({{"a", 7}}), "a\r \r");
  console_.terminal = false;
  console_.terminalShowsProgress = true;
  EXPECT_EQ(Shown({{"a", 7}}), "") << "nor to a file";
}

}  // namespace
