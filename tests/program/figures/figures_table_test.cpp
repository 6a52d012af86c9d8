#include "program/figures/figures_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/program_fixture.h"

namespace {

using namespace program_test;
using testing::ElementsAre;
using testing::SizeIs;

using Names = std::array<std::string, kChannelCount>;
const Names kNames = {"a", "b", "c", "d", "e"};

std::vector<TableRow> TableOf(const Mode& mode, const LampFacts& facts = {}) {
  return FiguresTable(kNames, FiguresOf(mode, facts), facts);
}

std::vector<std::string> RowNames(const std::vector<TableRow>& table) {
  std::vector<std::string> names;
  for (const TableRow& row : table) names.push_back(row[0]);
  return names;
}

TEST(FiguresTable, HasARowForEachFigureAndAColumnForEachChannel) {
  LampFacts facts;
  facts.watts = {40, 40};
  facts.price = 0.25;
  facts.par = {100};
  facts.level = 12.5;
  const auto table = TableOf(GivenMode({"08:00 50 J, 20:00 0 J", "12:00 100"}), facts);
  EXPECT_THAT(
      table, ElementsAre(ElementsAre("", "a", "b", "c", "d", "e", "All"),
                         ElementsAre("First light", "08:00", "-", "-", "-", "-", "-"),
                         ElementsAre("Last light", "20:00", "-", "-", "-", "-", "-"),
                         ElementsAre("Hours of light", "12.00", "24.00", "0.00", "0.00", "0.00", "24.00"),
                         ElementsAre("Hours above 12.5 %", "12.00", "24.00", "0.00", "0.00", "0.00", "24.00"),
                         ElementsAre("Percent-hours", "600.0", "2400.0", "0.0", "0.0", "0.0", "3000.0"),
                         ElementsAre("Steepest minute, %", "50.0 08:00", "-", "-", "-", "-", "50.0 08:00"),
                         ElementsAre("Energy a day, kWh", "0.240", "0.960", "-", "-", "-", "1.200"),
                         ElementsAre("Energy a month, kWh", "7.30", "29.22", "-", "-", "-", "36.52"),
                         ElementsAre("Cost a day", "0.060", "0.240", "-", "-", "-", "0.300"),
                         ElementsAre("Cost a month", "1.83", "7.30", "-", "-", "-", "9.13"),
                         ElementsAre("Light a day, mol/m²", "2.16", "-", "-", "-", "-", "2.16")));
}

TEST(FiguresTable, LeavesOutWhatNobodyTold) {
  EXPECT_THAT(RowNames(TableOf(GivenMode({"08:00 50 J, 20:00 0 J"}))),
              ElementsAre("", "First light", "Last light", "Hours of light", "Hours above 50 %",
                          "Percent-hours", "Steepest minute, %"));
  EXPECT_THAT(RowNames(TableOf(Mode{})),
              ElementsAre("", "Hours of light", "Hours above 50 %", "Percent-hours"));
}

TEST(FiguresTable, HeadsAreTheNamesCutToTheirLetters) {
  ModeListView document;
  document.channelInfos[0].name = "Royal blue";
  document.channelInfos[1].name = "Königsblau";
  document.channelInfos[2].name = "blå";
  document.channelInfos[3].name = "\xFF\xBF\xBF";
  EXPECT_EQ(ColumnNames(document, 10),
            (Names{"Royal blue", "Königsblau", "blå", "\xFF\xBF\xBF", "Channel 5"}));
  EXPECT_EQ(ColumnNames(document, 5), (Names{"Roya…", "Köni…", "blå", "\xFF\xBF\xBF", "Chan…"}));
  EXPECT_EQ(ColumnNames(document, 1)[0], "…");
}

}  // namespace
