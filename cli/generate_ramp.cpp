// Days that are plain arithmetic: one that ramps up and down, and a slow start.

#include <memory>

#include "cli/generate.h"
#include "cli/generate_options.h"
#include "cli/program_argument.h"
#include "program/generate/acclimation.h"
#include "program/generate/ramp_day.h"
#include "program/generate/typed.h"

namespace cli {

namespace {

using namespace TCBase::Program::Generate;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;

struct RampArguments {
  RampDay day;
  std::optional<Hours> breakHours;
  float breakPercent = MiddayBreak{}.percent;
  IntoOptions into;
};

void PrintRamp(const Session& session, const RampArguments& arguments, const Generated& day) {
  const Hours& hours = arguments.day.day;
  if (arguments.into.json) {
    Json json = {{"date", DateText(arguments.day.date)},
                 {"sunrise", MinuteText(hours.begin)},
                 {"sunset", MinuteText(hours.end)}};
    AddFit(json, day);
    return PrintJson(session.out, json);
  }
  PrintFigure(session, "light", MinuteText(hours.begin) + " to " + MinuteText(hours.end));
  PrintFigure(session, "rows", FitText(day));
}

ExitStatus GenerateRamp(const Session& session, const RampArguments& told) {
  RampArguments arguments = told;
  if (arguments.breakHours) arguments.day.middayBreak = {*arguments.breakHours, arguments.breakPercent};
  const Generated day = MakeRampDay(arguments.day, arguments.into.rows);
  const ExitStatus saved = SaveDay(session, arguments.into, day, "Ramp day");
  if (saved == ExitStatus::Success) PrintRamp(session, arguments, day);
  return saved;
}

void DeclareRampDay(CLI::App& app, RampArguments& arguments) {
  RampDay& day = arguments.day;
  AddTyped(app, "--sunrise", "HH:MM", "First light; 10:00 by default", day.day.begin, ParseMinute,
           "a time from 00:00 to 23:59");
  AddTyped(app, "--sunset", "HH:MM", "Last light; 21:00 by default", day.day.end, ParseMinute,
           "a time from 00:00 to 23:59");
  app.add_option("--ramp", day.ramp, "Minutes up, and minutes down")
      ->check(Unnamed(CLI::Range(1, TCBase::Program::kMinutesPerDay / 2)))
      ->capture_default_str()
      ->type_name("MINUTES");
  AddTyped(app, "--levels", "PERCENTS", "The light of channels 1 to 5, as in 80,80,100,60,0, or one for all",
           day.levels, ParseLevels, "one percent, or five with commas between them,");
  CLI::Option* const hours = AddTyped(app, "--break", "HH:MM-HH:MM", "A break in the middle of the day",
                                      arguments.breakHours, ParseHours, "two times, like 13:00-15:00,");
  AddTyped(app, "--break-level", "PERCENT", "How much of the light is left in it; 40 by default",
           arguments.breakPercent, ParsePercent, "a percent")
      ->needs(hours);
  app.add_option(
         "--stagger", day.stagger,
         "Minutes by which each channel comes later than the one before it and goes earlier; negative for "
         "the other way round")
      ->check(Unnamed(CLI::Range(-120, 120)))
      ->capture_default_str()
      ->type_name("MINUTES");
  DeclareMoonlight(app, day.moonlight);
  DeclareDate(app, day.date);
}

Run DeclareRamp(CLI::App& app) {
  const auto arguments = std::make_shared<RampArguments>();
  DeclareOut(app, arguments->into);
  DeclareRampDay(app, *arguments);
  DeclareProgram(app, arguments->into);
  DeclareOutcome(app, arguments->into);
  return [arguments](Session& session) { return GenerateRamp(session, *arguments); };
}

// acclimation

struct AcclimationArguments {
  ProgramArgument in;
  Acclimation acclimation;
  Date first;
  Date date;
  std::optional<int> day;
  bool each = false;
  IntoOptions into;
};

// The program with the mode as it is on that day.
Generated MakeDay(const AcclimationArguments& arguments, ModeListView& document, int day) {
  Generated made = MakeAcclimationDay(CurrentMode(document), arguments.acclimation, day, arguments.into.rows);
  CurrentMode(document) = made.mode;
  return made;
}

Json JsonOf(const AcclimationArguments& arguments, int day, const Generated& made) {
  Json json = {{"day", day},
               {"days", arguments.acclimation.days},
               {"percent", PercentOfDay(arguments.acclimation, day)}};
  AddFit(json, made);
  return json;
}

void PrintDay(const Session& session, const AcclimationArguments& arguments, int day, const Generated& made) {
  char percent[48];
  std::snprintf(percent, sizeof percent, "%d of %d: %.1f %% of the light, ", day, arguments.acclimation.days,
                static_cast<double>(PercentOfDay(arguments.acclimation, day)));
  PrintFigure(session, "day", percent + ("rows " + FitText(made)));
}

ExitStatus GenerateEachDay(const Session& session, const AcclimationArguments& arguments,
                           const ModeListView& full) {
  std::vector<SeriesFile> files;
  std::vector<Generated> days;
  for (int day = 1; day <= arguments.acclimation.days; ++day) {
    files.push_back({DayFileName(day), full});
    days.push_back(MakeDay(arguments, files.back().document, day));
  }
  const ExitStatus saved = SaveFolder(session, arguments.into, files);
  if (saved != ExitStatus::Success) return saved;
  Json json = Json::array();
  for (const Generated& made : days) {
    const int day = static_cast<int>(json.size()) + 1;
    if (!arguments.into.json) PrintDay(session, arguments, day, made);
    json.push_back(JsonOf(arguments, day, made));
  }
  if (arguments.into.json) PrintJson(session.out, {{"days", std::move(json)}});
  return saved;
}

ExitStatus GenerateOneDay(const Session& session, const AcclimationArguments& arguments,
                          ModeListView document) {
  const int day = arguments.day.value_or(DayOfAcclimation(arguments.first, arguments.date));
  const Generated made = MakeDay(arguments, document, day);
  const ExitStatus saved = SaveNew(session, arguments.into, document);
  if (saved != ExitStatus::Success) return saved;
  if (arguments.into.json)
    PrintJson(session.out, JsonOf(arguments, day, made));
  else
    PrintDay(session, arguments, day, made);
  return saved;
}

ExitStatus GenerateAcclimation(const Session& session, const AcclimationArguments& arguments) {
  ModeListView document;
  const ExitStatus loaded = LoadArgument(session, arguments.in, document);
  if (loaded != ExitStatus::Success) return loaded;
  return arguments.each ? GenerateEachDay(session, arguments, document)
                        : GenerateOneDay(session, arguments, std::move(document));
}

Run DeclareAcclimation(CLI::App& app) {
  const auto arguments = std::make_shared<AcclimationArguments>();
  app.add_option("IN", arguments->in.file, "The program with the whole light")
      ->required()
      ->check(TakesFile(".xml"))
      ->type_name("");
  app.add_option("OUT", arguments->into.out, "The program file to write; with --each a folder")
      ->required()
      ->check(TakesFile(".xml"))
      ->type_name("");
  DeclareMode(app, arguments->in, false);
  AddTyped(app, "--percent", "PERCENT", "How much of the light there is on day 1; 40 by default",
           arguments->acclimation.percent, ParsePercent, "a percent");
  app.add_option("--days", arguments->acclimation.days, "On which day the light is whole")
      ->check(Unnamed(CLI::Range(1, kMostAcclimationDays)))
      ->capture_default_str()
      ->type_name("N");
  arguments->first = Today();
  AddTyped(app, "--first", "YYYY-MM-DD", "Day 1; today by default", arguments->first, ParseDate,
           "a date from 1950 to 2099, like 2026-11-23,");
  DeclareDate(app, arguments->date);
  CLI::Option* const day = app.add_option("--day", arguments->day, "The number of the day, in place of dates")
                               ->check(Unnamed(CLI::Range(1, kMostAcclimationDays)))
                               ->type_name("N");
  app.add_flag("--each", arguments->each, "Write all days, as day-001.xml and so on")->excludes(day);
  DeclareOutcome(app, arguments->into);
  return [arguments](Session& session) { return GenerateAcclimation(session, *arguments); };
}

}  // namespace

const Command kGenerateRamp = {
    "ramp",
    "A plain day that ramps up and down",
    R"(Steps are exactly those that are told. A day may go over midnight.
Examples:
  lumarinectl generate ramp plants.xml --sunrise 12:00 --sunset 22:00 --ramp 45 --break 15:00-17:00
  lumarinectl generate ramp reef.xml --levels 60,100,100,80,0 --stagger 20 --moon 5=10)",
    &DeclareRamp,
};

const Command kGenerateAcclimation = {
    "acclimation",
    "A slow start: a mode that grows to its whole light",
    R"(Takes a mode of a program, the first one by default, and writes the program with that mode as it is on a day: weak on
day 1, whole on the last and from then on.
Examples:
  lumarinectl generate acclimation tank.xml today.xml --first 2026-11-23 --percent 40 --days 28 --force
  lumarinectl generate acclimation tank.xml slow-start --each --days 14)",
    &DeclareAcclimation,
};

}  // namespace cli
