// The table of the main window's controls against what the window is to look like.

#include "app/window/control_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/control_columns.h"

namespace {

using app::Control;
namespace trait = dialogs::trait;

const ControlColumns kColumns = {
    {200, 201, 202, 1034, 1035, 1036, 1037, 1038, 0, 0, 1027, 203, 1033, 0, 0, 0, 0, 0},
    {"list", "button", "button", "label", "button", "button", "label", "label", "label", "slider", "label",
     "list", "label", "slider", "label", "chart", "scroll bar", "rich text"},
    // places in a client area of 1024 by 768
    {10, 10, 66, 10, 10, 66, 10, 10, 10, 10, 10, 10, 10, 10, 130, 120, 130, 10},
    {10, 208, 208, 252, 274, 274, 296, 318, 340, 362, 516, 538, 604, 626, 10, 30, 632, 658},
    {110, 54, 54, 110, 54, 54, 110, 110, 110, 110, 110, 110, 110, 110, 884, 904, 884, 738},
    {196, 20, 20, 20, 20, 20, 20, 20, 20, 20, 20, 64, 20, 20, 20, 602, 16, 100},
    {"", "➕", "➖", "Demo controls", "▶", "■", "0:00", "[0 0 0 0 0]", "Channel power", "", "Devices", "",
     "Zoom", "", "mode description", "", "", ""},
};

TEST(ControlTable, HasTheseColumns) {
  ExpectColumns(ColumnsOf(app::ControlTable(), 1024, 768), kColumns);
}

TEST(ControlTable, PlacesFollowTheClientArea) {
  EXPECT_EQ(app::RowOf(Control::ChartWindow).place.In(1920, 1000), (Rect{120, 30, 1800, 834}));
  EXPECT_EQ(app::RowOf(Control::LogPane).place.In(1920, 1000), (Rect{10, 890, 1634, 100}));
  EXPECT_EQ(app::LogoRect(1920, 1000), (Rect{1654, 890, 256, 100}));
}

TEST(ControlTable, ThreeControlsStayWhenTheWindowChangesSize) {
  std::vector<Control> staying;
  for (const app::ControlRow& row : app::ControlTable()) {
    if (!row.moves) staying.push_back(row.control);
  }
  EXPECT_THAT(staying,
              testing::ElementsAre(Control::ModeList, Control::AddModeButton, Control::DeleteModeButton));
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
      {trait::kMultiSelection, {Control::DeviceList}},
      {trait::kVerticalScrollBar, {Control::ModeList, Control::DeviceList, Control::LogPane}},
      {trait::kSunken, labels},
      {trait::kAmpersands, labels},
      {trait::kDisabled, {Control::PowerSlider}},
      {trait::kTicks, {Control::PowerSlider, Control::ZoomSlider}},
      {trait::kMultiLine, {Control::LogPane}},
      {trait::kReadOnly, {Control::LogPane}},
  };
  unsigned known = 0;
  for (const auto& [trait, expected] : rows) {
    known |= trait;
    List found;
    for (const app::ControlRow& row : app::ControlTable()) {
      if ((row.traits & trait) != 0) found.push_back(row.control);
    }
    EXPECT_EQ(found, expected) << "trait " << trait;
  }
  for (const app::ControlRow& row : app::ControlTable()) EXPECT_EQ(row.traits & ~known, 0U) << row.text;
}

}  // namespace
