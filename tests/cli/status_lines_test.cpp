#include "cli/status_lines.h"

#include <gtest/gtest.h>

#include <sstream>

#include "common/log.h"

namespace {

using cli::StatusLines;

constexpr bool kOnTerminal = true;
constexpr bool kPiped = false;

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
  const StatusLines lines(stream_, kPiped, 80);
  LogPlain("one");
  EXPECT_EQ(Take(), "one\n");
  LogWarning("two");
  EXPECT_EQ(Take(), "two\n");
}

TEST_F(StatusLinesTest, TheDeviceLogComesOutIfItIsTraced) {
  StatusLines lines(stream_, kPiped, 80);
  LogDevice("quiet");
  EXPECT_EQ(Take(), "");
  lines.Trace();
  LogDeviceDump("AB", 2);
  EXPECT_EQ(Take().substr(0, 12), "0000  41 42 ");
}

TEST_F(StatusLinesTest, TheDeviceLogDoesNotGrowUnread) {
  {
    const StatusLines lines(stream_, kPiped, 80);
    LogDevice("quiet");
  }
  std::string kept;
  deviceLog.textHandler = [&](const std::string& text) { kept += text; };
  deviceLog.Drain();
  deviceLog.textHandler = nullptr;
  EXPECT_EQ(kept, "");
}

TEST_F(StatusLinesTest, NothingIsWrittenBehindItsEnd) {
  { const StatusLines lines(stream_, kPiped, 80); }
  LogPlain("late");
  statusLog.Drain();
  EXPECT_EQ(Take(), "");
}

TEST_F(StatusLinesTest, ProgressIsDrawnOverAndKeepsBelowTheLines) {
  {
    StatusLines lines(stream_, kOnTerminal, 80);
    lines.ShowProgress("10 %");
    EXPECT_EQ(Take(), "10 %");
    lines.ShowProgress("10 %");
    EXPECT_EQ(Take(), "") << "nothing new";
    lines.ShowProgress("20 %");
    EXPECT_EQ(Take(), "\r    \r20 %");
    LogPlain("a line");
    EXPECT_EQ(Take(), "\r    \ra line\n20 %");
  }
  EXPECT_EQ(Take(), "\r    \r") << "gone at the end";
}

TEST_F(StatusLinesTest, ProgressStaysWithinTheTerminal) {
  StatusLines lines(stream_, kOnTerminal, 10);
  lines.ShowProgress("[##########]");
  EXPECT_EQ(Take(), "[########");
}

TEST_F(StatusLinesTest, PipedThereIsNoProgress) {
  StatusLines lines(stream_, kPiped, 80);
  lines.ShowProgress("10 %");
  LogPlain("a line");
  EXPECT_EQ(Take(), "a line\n");
}

TEST_F(StatusLinesTest, ATerminalIsGivenNoControlCharacters) {
  {
    StatusLines lines(stream_, kOnTerminal, 80);
    lines.Print("a\x1B[2J\nb");
    EXPECT_EQ(Take(), "a\uFFFD[2J\uFFFDb\n");
  }
  StatusLines lines(stream_, kPiped, 80);
  lines.Print("a\x1B[2Jb");
  EXPECT_EQ(Take(), "a\x1B[2Jb\n");
}

}  // namespace
