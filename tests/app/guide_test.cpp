// The guide (docs/guide) tells of every menu item and of every key, and of no others.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "app/commands.h"
#include "tests/app/chart_test.h"
#include "tests/support/files.h"

namespace {

namespace key = app::key;

// Of each section that has a table, what its rows begin with, in their order.
using Tables = std::map<std::string, std::vector<std::string>>;

Tables TablesOf(const char* chapter) {
  Tables tables;
  std::istringstream text(BytesOf(std::filesystem::path(LUMARINE_SOURCE_DIR) / "docs/guide" / chapter));
  std::string line;
  std::string section;
  for (bool isInTable = false; std::getline(text, line);) {
    if (line.starts_with("## ")) section = line.substr(3);
    const bool isRow = line.starts_with("| ");
    if (isRow && isInTable) tables[section].push_back(line.substr(2, line.find(" |", 2) - 2));
    isInTable = isRow || line.starts_with("|---");
    if (line.starts_with("|---")) tables[section].clear();  // of the heading
  }
  return tables;
}

void AddItems(std::vector<std::string>& items, const std::string& before,
              std::span<const app::MenuEntry> entries) {
  for (const app::MenuEntry& entry : entries) {
    const std::string text = before + std::string(entry.text);
    if (entry.kind == app::MenuEntry::Kind::Command) {
      items.push_back("**" + text + std::string(entry.suffix) + "**");
    }
    AddItems(items, text + " / ", entry.entries);
  }
}

TEST(GuideToMenus, TellsEachItemWhereItStands) {
  Tables menus;
  for (const app::MenuPopup& popup : app::MenuTable())
    AddItems(menus[std::string(popup.text)], "", popup.entries);
  EXPECT_EQ(TablesOf("menus.md"), menus);
}

std::string NameOf(int number) {
  const std::map<int, std::string> names{{key::kBackspace, "Backspace"},
                                         {key::kSpace, "Space"},
                                         {key::kPageUp, "Page Up"},
                                         {key::kPageDown, "Page Down"},
                                         {key::kEnd, "End"},
                                         {key::kHome, "Home"},
                                         {key::kLeft, "Left"},
                                         {key::kUp, "Up"},
                                         {key::kRight, "Right"},
                                         {key::kDown, "Down"},
                                         {key::kDelete, "Delete"},
                                         {key::kJ, "J"},
                                         {key::kNumpadMultiply, "Num *"},
                                         {key::kNumpadAdd, "Num +"},
                                         {key::kNumpadSubtract, "Num -"},
                                         {key::kF1, "F1"}};
  const auto name = names.find(number);
  return name != names.end() ? name->second : "key " + std::to_string(number);
}

std::string NameOf(const app::KeyStroke& stroke) {
  switch (stroke.kind) {
    case app::KeyStroke::Kind::CtrlLetter:
      return std::string("Ctrl+") + static_cast<char>(stroke.key);
    case app::KeyStroke::Kind::AltCharacter:
      return std::string("Alt+") + static_cast<char>(stroke.key);
    default:
      return NameOf(stroke.key);
  }
}

std::vector<std::string> KeysOfCommands() {
  std::vector<std::string> keys;
  for (const app::Accelerator& accelerator : app::AcceleratorTable()) keys.push_back(NameOf(accelerator.key));
  return keys;
}

TEST(GuideToWindowKeys, TellsEach) {
  EXPECT_THAT(TablesOf("keys.md")["Everywhere in the window"],
              testing::UnorderedElementsAreArray(KeysOfCommands()));
}

class GuideToChartKeys : public ChartTest {
 protected:
  // Whether the key does something with a step selected, at rest or during a demo.
  bool DoesSomething(int number) {
    bool does = false;
    for (const int second : {-1, 3600}) {
      GivenStepsInLane0("08:00 10, 12:00 50, 18:00 0");
      GivenSelection(0, 1);
      GivenDemoAt(second);
      NewLog();
      const std::string before = Told(0);
      Chart().OnKeyDown(number);
      Chart().OnKeyUp(number);
      user.Wait(0.1);
      does = does || Told(0) != before || !NewLog().empty();
    }
    GivenDemoAt(-1);
    return does;
  }
};

TEST_F(GuideToChartKeys, TellsEach) {
  std::vector<std::string> keys;
  const std::vector<std::string> ofCommands = KeysOfCommands();
  for (int number = 0; number < 256; ++number) {
    if (DoesSomething(number) && std::ranges::find(ofCommands, NameOf(number)) == ofCommands.end()) {
      keys.push_back(NameOf(number));
    }
  }
  EXPECT_THAT(TablesOf("keys.md")["On the chart"], testing::UnorderedElementsAreArray(keys));
}

}  // namespace
