// The tables of controls, menus and accelerator keys against what the program is to look like.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "app/commands.h"
#include "app/window/control_table.h"
#include "app/window/numbers.h"

namespace {

using app::Control;
using app::MenuEntry;
using UX::Rect;

struct ExpectedControl {
  Control control;
  const char* className;
  int id;
  const char* text;
  Rect place;  // for a client area of 1024 by 768
  bool moves;
};

constexpr ExpectedControl kControls[] = {
    {Control::ModeList, "listbox", 200, "", {10, 10, 110, 196}, false},
    {Control::AddModeButton, "button", 201, "➕", {10, 208, 54, 20}, false},
    {Control::DeleteModeButton, "button", 202, "➖", {66, 208, 54, 20}, false},
    {Control::DemoStatusLabel, "static", 1034, "Demo controls", {10, 252, 110, 20}, true},
    {Control::PlayButton, "button", 1035, "▶", {10, 274, 54, 20}, true},
    {Control::StopButton, "button", 1036, "■", {66, 274, 54, 20}, true},
    {Control::TimeLabel, "static", 1037, "0:00", {10, 296, 110, 20}, true},
    {Control::PowerLabel, "static", 1038, "[0 0 0 0 0]", {10, 318, 110, 20}, true},
    {Control::PowerTitleLabel, "static", 0, "Channel power", {10, 340, 110, 20}, true},
    {Control::PowerSlider, "msctls_trackbar32", 0, "", {10, 362, 110, 20}, true},
    {Control::DevicesLabel, "static", 1027, "Devices", {10, 516, 110, 20}, true},
    {Control::DeviceList, "listbox", 203, "", {10, 538, 110, 64}, true},
    {Control::ZoomLabel, "static", 1033, "Zoom", {10, 604, 110, 20}, true},
    {Control::ZoomSlider, "msctls_trackbar32", 0, "", {10, 626, 110, 20}, true},
    {Control::ModeDescription, "static", 0, "mode description", {130, 10, 884, 20}, true},
    {Control::ChartWindow, "LumarineRenderWnd", 0, "", {120, 30, 904, 602}, true},
    {Control::ScrollBar, "SCROLLBAR", 0, "", {130, 632, 884, 16}, true},
    {Control::LogPane, "RICHEDIT50W", 0, "", {10, 658, 738, 100}, true},
};

TEST(ControlTable, HoldsEachControl) {
  const auto table = app::ControlTable();
  ASSERT_EQ(table.size(), std::size(kControls));
  for (std::size_t i = 0; i < table.size(); ++i) {
    const ExpectedControl& expected = kControls[i];
    SCOPED_TRACE(expected.className + std::string(" ") + expected.text);
    EXPECT_EQ(table[i].control, expected.control);
    EXPECT_EQ(table[i].className, expected.className);
    EXPECT_EQ(table[i].id, expected.id);
    EXPECT_EQ(table[i].text, expected.text);
    EXPECT_EQ(table[i].moves, expected.moves);
    EXPECT_EQ(table[i].rect.At(1024, 768), expected.place);
  }
}

TEST(ControlTable, PlacesFollowTheClientArea) {
  EXPECT_EQ(app::RowOf(Control::ChartWindow).rect.At(1920, 1000), (Rect{120, 30, 1800, 834}));
  EXPECT_EQ(app::RowOf(Control::LogPane).rect.At(1920, 1000), (Rect{10, 890, 1634, 100}));
  EXPECT_EQ(app::LogoRect(1920, 1000), (Rect{1654, 890, 256, 100}));
}

TEST(ControlTable, TranslatesFourTexts) {
  std::vector<std::string> translated;
  for (const app::ControlRow& row : app::ControlTable()) {
    if (row.translated) translated.emplace_back(row.text);
  }
  EXPECT_THAT(translated, testing::ElementsAre("Demo controls", "Channel power", "Devices", "Zoom"));
}

TEST(ControlTable, GivesEachTraitToTheControlsThatHaveIt) {
  using List = std::vector<Control>;
  const List labels = {Control::DemoStatusLabel, Control::TimeLabel,    Control::PowerLabel,
                       Control::PowerTitleLabel, Control::DevicesLabel, Control::ZoomLabel,
                       Control::ModeDescription};
  const std::pair<unsigned, List> rows[] = {
      {app::style::kNotifies, {Control::ModeList, Control::DeviceList}},
      {app::style::kMultiSelection, {Control::DeviceList}},
      {app::style::kVerticalScroll, {Control::ModeList, Control::DeviceList, Control::LogPane}},
      {app::style::kBorder, {Control::ModeList, Control::DeviceList, Control::LogPane}},
      {app::style::kSunken, labels},
      {app::style::kDisabledAtFirst, {Control::PowerSlider}},
      {app::style::kAutoTicks, {Control::PowerSlider, Control::ZoomSlider}},
      {app::style::kMultiLine, {Control::LogPane}},
      {app::style::kReadOnly, {Control::LogPane}},
  };
  for (const auto& [trait, expected] : rows) {
    List found;
    for (const app::ControlRow& row : app::ControlTable()) {
      if ((row.style & trait) != 0) found.push_back(row.control);
    }
    EXPECT_EQ(found, expected) << "trait " << trait;
  }
}

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
                  "File: 32784 32777 32781 32782 - 32776 32938 - 32944 32945 - 32946 - 32773 - 105",
                  "Edit: 32785 32786",
                  "Device: 32790 32791 32792 - 32793 - 32794 32795 [Demo speed: 32914 32915 32916 - 32917] - "
                  "32910 - 32911 "
                  "- 32929",
                  "Channel: 32930 - 32904 - 32908 32909 - 32897 32898 32907 - 32918 32919 - 32896 32899",
                  "Mode: 32913 - [Add endpoint steps: 32940 32941] - [Align steps: 32932 32933 32934 32935 "
                  "32936 32937]",
                  "Language: 32796", "Help: 32774 - 32939 - 32943 32942 - 104"));
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
    {32785, "Undo"},
    {32786, "Redo"},
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
    {32913, "Optimize mode for TC421"},
    {32940, "At the start (00:00)"},
    {32941, "At the end (23:59)"},
    {32932, "3 minute intervals"},
    {32933, "5 minute intervals"},
    {32934, "10 minute intervals"},
    {32935, "15 minute intervals"},
    {32936, "30 minute intervals"},
    {32937, "1 hour intervals"},
    {32796, "English"},
    {32774, "Logging"},
    {32939, "Known issues ..."},
    {32943, "Export localization XML"},
    {32942, "Test localization XML"},
    {104, "About ..."},
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
                        "alt 47 104", "alt 63 104", "ctrl 89 32786", "ctrl 90 32785", "key 107 32921",
                        "key 109 32922", "key 106 32923", "key 33 32924", "key 34 32925", "key 36 32926",
                        "key 35 32927", "key 46 32930", "key 8 32930"));
}

TEST(Events, HaveTheirNumbers) {
  EXPECT_EQ(app::WM_LOG_PENDING, 1024U);
  EXPECT_EQ(app::WM_SCAN_FINISHED, 1025U);
  EXPECT_EQ(app::WM_DEVICES_CHANGED, 1026U);
  EXPECT_EQ(app::WM_DEMO_STATE, 1027U);
  EXPECT_EQ(app::kDemoTimer, 300);
  EXPECT_EQ(app::kDemoTimerMilliseconds, 100);
}

}  // namespace
