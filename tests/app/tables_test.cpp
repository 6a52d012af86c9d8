// The tables of menus and accelerator keys against what the program is to look like.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/commands.h"
#include "app/window/numbers.h"

namespace {

using app::MenuEntry;

// "32784 32777 - [Demo speed: 32914]" and so on.
std::string ToText(std::span<const MenuEntry> entries) {
  std::string text;
  for (const MenuEntry& entry : entries) {
    if (!text.empty()) text += ' ';
    if (entry.kind == MenuEntry::Kind::Separator) text += '-';
    if (entry.kind == MenuEntry::Kind::Command) text += std::to_string(entry.command);
    if (entry.kind == MenuEntry::Kind::Submenu) {
      text.append("[").append(entry.text).append(": ").append(ToText(entry.entries)).append("]");
    }
  }
  return text;
}

TEST(MenuTable, HoldsTheMenusFromLeftToRight) {
  std::vector<std::string> menus;
  for (const app::MenuPopup& popup : app::MenuTable()) {
    menus.push_back(std::string(popup.text) + ": " + ToText(popup.entries));
  }
  EXPECT_THAT(menus,
              testing::ElementsAre(
                  "File: 32784 32777 32781 32782 - 32776 32938 - 32944 32945 - 32946 - 32773 - 105 - "
                  "[New from template: 33020 33021 33022 33023 33024]",
                  "Edit: 32785 32786 - 33010 - 33011",
                  "Device: 32790 32791 32792 - 32793 - 32794 32795 [Demo speed: 32914 32915 32916 - 32917] - "
                  "32910 - 32911 "
                  "- 32929",
                  "Channel: 32930 - 32904 - 32908 32909 - 32897 32898 32907 - 32918 32919 - 32896 32899 - "
                  "33012 - 33016",
                  "Mode: 32913 - [Add endpoint steps: 32940 32941] - [Align steps: 32932 32933 32934 32935 "
                  "32936 32937] - 33013 33014 33015 - 33017 - [New from ...: 33030 33031 33032 33033 33034]",
                  "Language: 32796", "Help: 32774 - 32939 - 32943 32942 - 104 - 33000 33001"));
}

TEST(MenuTable, OnlyHelpStandsAtTheRight) {
  for (const app::MenuPopup& popup : app::MenuTable()) EXPECT_EQ(popup.rightJustified, popup.text == "Help");
}

TEST(MenuTable, PutsTheSubmenusWhereTheyAreExpected) {
  EXPECT_EQ(app::MenuTable()[app::menu::kDevice].entries[8].text, "Demo speed");
  EXPECT_EQ(app::MenuTable()[app::menu::kMode].entries[2].text, "Add endpoint steps");
  EXPECT_EQ(app::MenuTable()[app::menu::kMode].entries[4].text, "Align steps");
}

struct ExpectedText {
  int command;
  const char* text;
  const char* suffix = "";
};

constexpr ExpectedText kTexts[] = {
    {32784, "New Program"},
    {32777, "Load Program"},
    {32781, "Save Program"},
    {32782, "Save Program As"},
    {32776, "Import TMF", " (PLED)"},
    {32938, "Export TMF", " (PLED)"},
    {32944, "Import LMF", " (LEDControl)"},
    {32945, "Export LMF", " (LEDControl)"},
    {32946, "Export RAW"},
    {32773, "Program info"},
    {105, "Exit"},
    {33020, "Reef"},
    {33021, "Planted tank"},
    {33022, "Seedlings"},
    {33023, "Refugium"},
    {33024, "Blackwater"},
    {32785, "Undo"},
    {32786, "Redo"},
    {33010, "Select all steps"},
    {33011, "Careful mouse"},
    {32790, "Sync time"},
    {32791, "Set time"},
    {32792, "Upload program"},
    {32793, "Clear all"},
    {32794, "Play demo"},
    {32795, "Stop demo"},
    {32914, "Fast (60 secs)"},
    {32915, "Normal (180 secs)"},
    {32916, "Slow (300 secs)"},
    {32917, "Custom..."},
    {32910, "Scan WiFi devices"},
    {32911, "Setup TC421 WiFi"},
    {32929, "Add emulator"},
    {32930, "Delete step"},
    {32904, "Toggle step jump type"},
    {32908, "Copy steps"},
    {32909, "Paste steps"},
    {32897, "Move all steps up"},
    {32898, "Move all steps down"},
    {32907, "Clear all steps"},
    {32918, "Manual steps add..."},
    {32919, "Manual steps edit..."},
    {32896, "Rename channel"},
    {32899, "Change channel color"},
    {33012, "Step table"},
    {33016, "Change steps..."},
    {32913, "Optimize mode for TC421"},
    {32940, "At the start (00:00)"},
    {32941, "At the end (23:59)"},
    {32932, "3 minute intervals"},
    {32933, "5 minute intervals"},
    {32934, "10 minute intervals"},
    {32935, "15 minute intervals"},
    {32936, "30 minute intervals"},
    {32937, "1 hour intervals"},
    {33013, "Compare with what was saved"},
    {33014, "Compare others with this mode"},
    {33015, "Show light strip"},
    {33017, "Figures..."},
    {33030, "Sun over a place"},
    {33031, "Moonlight"},
    {33032, "Ramp day"},
    {33033, "Acclimation"},
    {33034, "Season of 52 weeks"},
    {32796, "English"},
    {32774, "Logging"},
    {32939, "Known issues ..."},
    {32943, "Export localization XML"},
    {32942, "Test localization XML"},
    {104, "About ..."},
    {33000, "User guide"},
    {33001, "Check-up ..."},
};

void Collect(std::span<const MenuEntry> entries, std::vector<MenuEntry>& items) {
  for (const MenuEntry& entry : entries) {
    if (entry.kind == MenuEntry::Kind::Command) items.push_back(entry);
    Collect(entry.entries, items);
  }
}

TEST(MenuTable, HoldsEachText) {
  std::vector<MenuEntry> items;
  for (const app::MenuPopup& popup : app::MenuTable()) Collect(popup.entries, items);
  ASSERT_EQ(items.size(), std::size(kTexts));
  for (std::size_t i = 0; i < items.size(); ++i) {
    EXPECT_EQ(items[i].command, kTexts[i].command);
    EXPECT_EQ(items[i].text, kTexts[i].text);
    EXPECT_EQ(items[i].suffix, kTexts[i].suffix);
  }
}

TEST(AcceleratorTable, HoldsEachKey) {
  using Kind = app::KeyStroke::Kind;
  std::vector<std::string> keys;
  for (const app::Accelerator& row : app::AcceleratorTable()) {
    const char* kind = row.key.kind == Kind::AltCharacter ? "alt "
                       : row.key.kind == Kind::CtrlLetter ? "ctrl "
                                                          : "key ";
    keys.push_back(kind + std::to_string(row.key.key) + " " + std::to_string(row.command));
  }
  EXPECT_THAT(keys, testing::UnorderedElementsAre(
                        "alt 47 104", "alt 63 104", "ctrl 65 33010", "ctrl 84 33012", "ctrl 89 32786",
                        "ctrl 90 32785", "key 107 32921", "key 109 32922", "key 106 32923", "key 33 32924",
                        "key 34 32925", "key 36 32926", "key 35 32927", "key 46 32930", "key 8 32930"));
}

}  // namespace
