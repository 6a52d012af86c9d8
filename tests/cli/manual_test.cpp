// The manual page of lumarinectl against its help: what it tells, and that it tells nothing else.

#include <algorithm>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <vector>

#include "tests/cli/command_fixture.h"
#include "tests/support/files.h"

namespace {

using Names = std::set<std::string>;

// What a command takes: its options with two hyphens, and its files in their order.
struct Told {
  Names options;
  std::string files;
  bool operator==(const Told&) const = default;
};
using Commands = std::map<std::string, Told>;

void PrintTo(const Told& told, std::ostream* out) {
  *out << told.files << " " << testing::PrintToString(told.options);
}

// By the lines that begin sections, commands and options in the page's source.
Commands ReadManual() {
  const std::filesystem::path page = std::filesystem::path(LUMARINE_SOURCE_DIR) / "docs/man/lumarinectl.1.in";
  std::istringstream lines(std::regex_replace(BytesOf(page), std::regex(R"(\\-)"), "-"));
  Commands commands;
  std::string section;
  std::string command;
  for (std::string line; std::getline(lines, line);) {
    std::smatch match;
    if (std::regex_match(line, match, std::regex(R"(\.SH (.*))"))) {
      section = match[1];
      command.clear();
    } else if (std::regex_match(line, match, std::regex(R"(\.SS ([a-z-]+(?: [a-z]+)?) ?(.*))"))) {
      EXPECT_EQ(section, "COMMANDS");
      command = match[1];
      commands[command].files = match[2];
    } else if ((section == "COMMANDS" || section == "OPTIONS") &&
               std::regex_search(line, match, std::regex(R"(^\.(B|BI|BR) .*?(--[a-z0-9-]+))"))) {
      EXPECT_TRUE(commands[command].options.insert(match[2]).second) << line << " is told twice";
    }
  }
  return commands;
}

class ManualTest : public CommandTest {
 protected:
  // By the lines of a help.
  Told ReadHelp(const Words& words) {
    std::istringstream lines(Run(words).out);
    Told told;
    for (std::string line; std::getline(lines, line);) {
      std::smatch match;
      if (std::regex_match(line, match, std::regex(R"(Usage: lumarinectl.* \[OPTIONS\] ?([A-Z. ]*)(\[.*)?)")))
        told.files = match[1];
      if (std::regex_search(line, match, std::regex(R"(^ +(-h,)?(--[a-z0-9-]+))")))
        told.options.insert(match[2]);
    }
    return told;
  }

  // Below one command, or all. One that has commands of its own is not listed itself.
  std::vector<Words> ListedCommands(const Words& above = {}) {
    Words words = above;
    words.emplace_back("--help");
    const std::string help = Run(words).out;
    const std::size_t begin = help.find("Subcommands:\n");
    if (begin == std::string::npos) return {above};
    std::istringstream lines(help.substr(begin, help.find("\n\n", begin) - begin));
    std::vector<Words> commands;
    std::string line;
    for (std::getline(lines, line); std::getline(lines, line);) {
      words.back().clear();
      std::istringstream(line) >> words.back();
      std::ranges::copy(ListedCommands(words), std::back_inserter(commands));
    }
    return commands;
  }
};

TEST_F(ManualTest, TellsEveryCommandAndOptionAndNoOther) {
  Commands wanted;
  for (Words command : ListedCommands()) {
    const std::string name = command.size() == 1 ? command[0] : command[0] + " " + command[1];
    command.emplace_back("--help");
    wanted[name] = ReadHelp(command);
    EXPECT_EQ(wanted[name].options.erase("--help"), 1U) << "it is told once for all";
  }
  wanted[""] = ReadHelp({"--help"});
  ASSERT_GE(wanted.size(), 15U);
  EXPECT_EQ(ReadManual(), wanted);
}

TEST_F(ManualTest, TellsEveryExitStatus) {
  const std::filesystem::path page = std::filesystem::path(LUMARINE_SOURCE_DIR) / "docs/man/lumarinectl.1.in";
  const std::string text = BytesOf(page);
  const std::size_t begin = text.find(".SH EXIT STATUS");
  const std::string section = text.substr(begin, text.find(".SH ", begin + 1) - begin);
  for (const int status : {kSuccess, kOperationFailed, kWrongUsage, kNoDevice, kFileFailed})
    EXPECT_THAT(section, testing::HasSubstr("\n.TP\n.B " + std::to_string(status) + "\n"));
}

}  // namespace
