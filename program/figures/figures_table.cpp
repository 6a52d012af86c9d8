#include "program/figures/figures_table.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "common/message.h"
#include "program/figures/amount.h"

namespace TCBase::Program {

namespace {

constexpr char kNone[] = "-";

using Cell = std::function<std::string(const Figures&)>;  // empty for what is not there

std::string Minute(std::int32_t second) {
  return TimeText(TimeOfDayAt(second));
}

std::string Amount(const std::optional<double>& amount, double times, int digits) {
  return amount ? FixedText(*amount * times, digits) : std::string();
}

std::string Rise(const Figures& figures) {
  if (figures.steepestRise == 0.0) return {};
  return FixedText(figures.steepestRise, 1) + " " + TimeText(TimeOfDayAtMinute(figures.steepestMinute));
}

// The first code points of a text.
std::string Beginning(const std::string& text, std::size_t letters) {
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    const bool begins = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (begins && letters-- == 0) break;
  }
  return text.substr(0, end);
}

TableRow RowOf(const std::string& name, const ModeFigures& figures, const Cell& cell) {
  TableRow row{name};
  for (const Figures& channel : figures.channels) row.push_back(cell(channel));
  row.push_back(cell(figures.all));
  return row;
}

bool HasNothing(const TableRow& row) {
  return std::all_of(row.begin() + 1, row.end(), [](const std::string& text) { return text.empty(); });
}

}  // namespace

std::array<std::string, kChannelCount> ColumnNames(const ModeListView& document, std::size_t letters) {
  std::array<std::string, kChannelCount> names;
  for (std::size_t i = 0; i < names.size(); ++i) {
    std::string name = document.channelInfos[i].name;
    if (name.empty()) name = Message("Channel {1}", static_cast<std::int32_t>(i) + 1).utf8();
    const std::string cut = Beginning(name, letters - 1);
    names[i] = Beginning(name, letters) == name ? name : cut + "…";
  }
  return names;
}

std::vector<TableRow> FiguresTable(const std::array<std::string, kChannelCount>& names,
                                   const ModeFigures& figures, const LampFacts& facts) {
  const std::pair<std::string, Cell> kinds[] = {
      {Translate("First light"), [](const Figures& f) { return f.light ? Minute(f.light->begin) : ""; }},
      {Translate("Last light"), [](const Figures& f) { return f.light ? Minute(f.light->end) : ""; }},
      {Translate("Hours of light"), [](const Figures& f) { return FixedText(f.hoursOfLight, 2); }},
      {Message("Hours above {1} %", LevelText(facts.level)).utf8(),
       [](const Figures& f) { return FixedText(f.hoursAboveLevel, 2); }},
      {Translate("Percent-hours"), [](const Figures& f) { return FixedText(f.percentHours, 1); }},
      {Translate("Steepest minute, %"), Rise},
      {Translate("Energy a day, kWh"), [](const Figures& f) { return Amount(f.energy, 1.0, 3); }},
      {Translate("Energy a month, kWh"), [](const Figures& f) { return Amount(f.energy, kDaysPerMonth, 2); }},
      {Translate("Cost a day"), [](const Figures& f) { return Amount(f.cost, 1.0, 3); }},
      {Translate("Cost a month"), [](const Figures& f) { return Amount(f.cost, kDaysPerMonth, 2); }},
      {Translate("Light a day, mol/m²"), [](const Figures& f) { return Amount(f.dli, 1.0, 2); }},
  };
  TableRow heads{""};
  heads.insert(heads.end(), names.begin(), names.end());
  heads.push_back(Translate("All"));
  std::vector<TableRow> table{heads};
  for (const auto& [name, cell] : kinds) {
    TableRow row = RowOf(name, figures, cell);
    if (HasNothing(row)) continue;
    std::ranges::replace(row, std::string(), std::string(kNone));
    table.push_back(std::move(row));
  }
  return table;
}

std::string FiguresNote() {
  return Translate(
      "\"All\" adds up what is an amount; light is where any channel has some. A month is 30.44 days. Lamps "
      "are "
      "taken to draw power in proportion to their percent.");
}

}  // namespace TCBase::Program
