// Which terminals show by themselves how far a program is, and what is written to them.

#include "common/terminal_progress.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

using Environment = std::map<std::string, std::string>;

bool Shows(const Environment& environment) {
  return TerminalShowsProgress([&](const char* name) {
    const auto found = environment.find(name);
    return found != environment.end() ? found->second : std::string();
  });
}

TEST(TerminalProgressTest, IsForTerminalsThatAreKnownToShowIt) {
  EXPECT_TRUE(Shows({{"WT_SESSION", "4c2b"}}));
  EXPECT_TRUE(Shows({{"ConEmuANSI", "ON"}}));
  EXPECT_TRUE(Shows({{"TERM_PROGRAM", "WezTerm"}}));
  EXPECT_TRUE(Shows({{"TERM_PROGRAM", "ghostty"}}));
  EXPECT_TRUE(Shows({{"VTE_VERSION", "7900"}}));
}

TEST(TerminalProgressTest, IsNotForOthersWhichMayTakeItForANotification) {
  EXPECT_FALSE(Shows({}));
  EXPECT_FALSE(Shows({{"TERM", "xterm-256color"}}));
  EXPECT_FALSE(Shows({{"TERM_PROGRAM", "iTerm.app"}}));
  EXPECT_FALSE(Shows({{"ConEmuANSI", "OFF"}}));
  EXPECT_FALSE(Shows({{"VTE_VERSION", "7899"}}));
  EXPECT_FALSE(Shows({{"VTE_VERSION", "new"}}));
}

TEST(TerminalProgressTest, IsNotForOneBehindAMultiplexer) {
  EXPECT_FALSE(Shows({{"VTE_VERSION", "8000"}, {"TMUX", "/tmp/tmux-0/default,1,0"}}));
  EXPECT_FALSE(Shows({{"WT_SESSION", "4c2b"}, {"STY", "12.pts-0"}}));
}

TEST(TerminalProgressTest, NamesAPercentageWhereThereIsOne) {
  EXPECT_EQ(TerminalProgress(42), "\x1b]9;4;1;42\a");
  EXPECT_EQ(TerminalProgress({}), "\x1b]9;4;3;0\a");
  EXPECT_EQ(TerminalProgressEnd(), "\x1b]9;4;0;0\a");
}

}  // namespace
