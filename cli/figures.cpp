// What a mode's day comes to: figures.

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/options.h"
#include "cli/program_argument.h"
#include "cli/text.h"
#include "program/figures/amount.h"
#include "program/figures/figures_table.h"

namespace cli {

namespace {

using TCBase::Program::Figures;
using TCBase::Program::kChannelCount;
using TCBase::Program::LampFacts;
using TCBase::Program::ModeFigures;
using TCBase::Program::ModeListView;
using TCBase::Program::ParseAmount;
using TCBase::Program::TableRow;

using Amounts = std::array<double, kChannelCount>;

struct FiguresArguments {
  ProgramArgument program;
  // What was typed; what was not is as the settings have it.
  std::optional<Amounts> watts;
  std::optional<Amounts> par;
  std::optional<double> price;
  std::optional<double> level;
  bool json = false;
};

// "24,24,12.5" of the first channels; the others have 0.
std::optional<Amounts> ParseAmounts(std::string_view text) {
  Amounts amounts{};
  for (double& amount : amounts) {
    const std::size_t end = std::min(text.find(','), text.size());
    const auto parsed = ParseAmount(text.substr(0, end));
    if (!parsed) return std::nullopt;
    amount = *parsed;
    if (end == text.size()) return amounts;
    text.remove_prefix(end + 1);
  }
  return std::nullopt;
}

std::string CheckAmounts(const std::string& text) {
  return ParseAmounts(text) ? "" : "up to five numbers with commas between them are expected, not " + text;
}

std::string CheckPrice(const std::string& text) {
  return ParseAmount(text) ? "" : "a price such as 0.32 is expected, not " + text;
}

std::string CheckLevel(const std::string& text) {
  return TCBase::Program::ParseLevel(text) ? "" : "0 to 100 percent are expected, not " + text;
}

// As the desktop program keeps them, and what was typed instead.
LampFacts FactsOf(const FiguresArguments& arguments) {
  Settings settings(DocumentPath(Settings::fileName));
  LampFacts facts = TCBase::Program::ReadLampFacts(settings);
  facts.watts = arguments.watts.value_or(facts.watts);
  facts.par = arguments.par.value_or(facts.par);
  facts.price = arguments.price.value_or(facts.price);
  facts.level = arguments.level.value_or(facts.level);
  return facts;
}

// As people see it

// Columns that a terminal takes for a text: one for a code point is right for the languages that there are.
std::size_t WidthOf(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

std::vector<std::size_t> ColumnWidths(const std::vector<TableRow>& table) {
  std::vector<std::size_t> widths(table.front().size());
  for (const TableRow& row : table)
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], WidthOf(row[i]));
  return widths;
}

// The names stand at the left of their column, all else at the right.
std::string LineOf(const TableRow& row, const std::vector<std::size_t>& widths) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string blanks(widths[i] - WidthOf(row[i]), ' ');
    line += i == 0 ? row[i] + blanks : "  " + blanks + row[i];
  }
  return line;
}

void PrintFigures(const Session& session, const ModeListView& document, const ModeFigures& figures,
                  const LampFacts& facts) {
  constexpr std::size_t kLetters = 12;
  std::array<std::string, kChannelCount> names = ColumnNames(document, kLetters);
  for (std::string& name : names) name = ForTerminal(name, LineEnds::Replace);
  const std::vector<TableRow> table = FiguresTable(names, figures, facts);
  const std::vector<std::size_t> widths = ColumnWidths(table);
  for (const TableRow& row : table) session.out << LineOf(row, widths) << '\n';
}

// As other programs see it

// Without the digits that 32-bit curves leave behind the sixth.
double Rounded(double figure) {
  constexpr double kParts = 1e6;
  return std::round(figure * kParts) / kParts;
}

Json JsonOf(const std::optional<double>& amount) {
  return amount ? Json(Rounded(*amount)) : Json();
}

Json JsonOfMinute(const std::optional<std::int32_t>& second) {
  return second ? Json(TimeText(TCBase::Program::TimeOfDayAt(*second))) : Json();
}

std::optional<double> AMonth(const std::optional<double>& aDay) {
  return aDay ? std::optional(*aDay * TCBase::Program::kDaysPerMonth) : std::nullopt;
}

void AppendFigures(Json& json, const Figures& figures) {
  const auto& light = figures.light;
  const bool rises = figures.steepestRise > 0.0;
  json["first_light"] = JsonOfMinute(light ? std::optional(light->begin) : std::nullopt);
  json["last_light"] = JsonOfMinute(light ? std::optional(light->end) : std::nullopt);
  json["hours_of_light"] = Rounded(figures.hoursOfLight);
  json["hours_above_level"] = Rounded(figures.hoursAboveLevel);
  json["percent_hours"] = Rounded(figures.percentHours);
  json["steepest_minute"] = {
      {"percent", Rounded(figures.steepestRise)},
      {"time", JsonOfMinute(rises ? std::optional(figures.steepestMinute * TCBase::Program::kSecondsPerMinute)
                                  : std::nullopt)}};
  json["kwh_day"] = JsonOf(figures.energy);
  json["kwh_month"] = JsonOf(AMonth(figures.energy));
  json["cost_day"] = JsonOf(figures.cost);
  json["cost_month"] = JsonOf(AMonth(figures.cost));
  json["dli"] = JsonOf(figures.dli);
}

Json JsonOf(const ModeListView& document, int mode, const ModeFigures& figures, const LampFacts& facts) {
  Json channels = Json::array();
  for (std::size_t i = 0; i < figures.channels.size(); ++i) {
    Json channel = {{"number", i + 1}, {"name", document.channelInfos[i].name}};
    AppendFigures(channel, figures.channels[i]);
    channels.push_back(std::move(channel));
  }
  Json all = Json::object();
  AppendFigures(all, figures.all);
  return {{"mode", CurrentMode(document).name},
          {"number", mode},
          {"level", facts.level},
          {"days_per_month", TCBase::Program::kDaysPerMonth},
          {"channels", std::move(channels)},
          {"all", std::move(all)}};
}

ExitStatus ShowFigures(const Session& session, const FiguresArguments& arguments) {
  ModeListView document;
  const ExitStatus loaded = LoadArgument(session, arguments.program, document);
  if (loaded != ExitStatus::Success) return loaded;
  const LampFacts facts = FactsOf(arguments);
  const ModeFigures figures = FiguresOf(CurrentMode(document), facts);
  if (arguments.json) {
    PrintJson(session.out, JsonOf(document, arguments.program.mode, figures, facts));
  } else {
    PrintFigures(session, document, figures, facts);
  }
  return ExitStatus::Success;
}

// An option whose text `check` has let pass, and `parse` reads.
template <class Value, class Parse>
void AddFact(CLI::App& app, const char* option, const char* type, const char* what,
             std::optional<Value>& value, std::string (*check)(const std::string&), Parse parse) {
  app.add_option_function<std::string>(
         option, [&value, parse](const std::string& text) { value = parse(text); }, what)
      ->check(CLI::Validator(check, ""))
      ->type_name(type);
}

Run DeclareFigures(CLI::App& app) {
  const auto arguments = std::make_shared<FiguresArguments>();
  DeclareFile(app, arguments->program);
  DeclareMode(app, arguments->program, false);
  AddFact(app, "--level", "PERCENT", "Tell how long a channel is above this, 50 by default", arguments->level,
          CheckLevel, TCBase::Program::ParseLevel);
  AddFact(app, "--watts", "W1,W2,...", "What the lamps of channels 1 to 5 draw at 100 %", arguments->watts,
          CheckAmounts, ParseAmounts);
  AddFact(app, "--price", "PRICE", "Of a kilowatt hour", arguments->price, CheckPrice, ParseAmount);
  AddFact(app, "--par", "P1,P2,...", "Light of channels 1 to 5 at 100 %, in umol/m2/s", arguments->par,
          CheckAmounts, ParseAmounts);
  app.add_flag("--json", arguments->json, "The same for other programs");
  return [arguments](Session& session) { return ShowFigures(session, *arguments); };
}

}  // namespace

const Command kFigures = {
    "figures",
    "Tell hours, energy, cost and light of a mode's day",
    R"(What is not told with an option is as the desktop program keeps it: "Figures..." in its menu "Mode" asks for it.
A month is a twelfth of 365.25 days. Power is taken to follow the percent.
Light a day is the daily light integral: umol/m2/s at 100 %, times percent-hours / 100 * 3600 / 1000000.
Examples:
  lumarinectl figures tank.xml
  lumarinectl figures tank.xml --mode 2 --watts 24,24,12,12,6 --price 0.32
  lumarinectl figures tank.xml --par 180,150,60 --level 80 --json)",
    &DeclareFigures,
};

}  // namespace cli
