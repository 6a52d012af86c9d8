#include "cli/generate_options.h"

#include <cmath>
#include <cstdio>

#include "cli/program_argument.h"
#include "common/files.h"
#include "common/message.h"
#include "common/platform.h"
#include "program/generate/clock_rule.h"
#include "program/generate/typed.h"
#include "program/program_file.h"

namespace cli {

using namespace TCBase::Program::Generate;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;

namespace {

std::optional<const Place*> ParsePlace(const std::string& text) {
  const Place* const place = FindPlace(text);
  return place ? std::optional(place) : std::nullopt;
}

std::optional<Twilight> ParseTwilight(const std::string& text) {
  if (text == "none") return Twilight::None;
  if (text == "civil") return Twilight::Civil;
  return text == "nautical" ? std::optional(Twilight::Nautical) : std::nullopt;
}

}  // namespace

Date Today() {
  return DateOf(platform::LocalTime());
}

void DeclareDate(CLI::App& app, Date& date) {
  date = Today();
  AddTyped(app, "--date", "YYYY-MM-DD", "The day; today by default", date, ParseDate,
           "a date from 1950 to 2099, like 2026-11-23,");
}

Position WhereOptions::position() const {
  return at ? *at : clock().position;
}

const Place& WhereOptions::clock() const {
  return place ? *place : NearestPlace(at.value_or(Position{}));
}

int WhereOptions::UtcOffsetOn(const Date& date) const {
  return utcOffset ? *utcOffset : UtcOffsetOf(clock(), date);
}

void DeclareWhere(CLI::App& app, WhereOptions& where) {
  CLI::App* const group = app.add_option_group("Where", "One of them, or both");
  AddTyped(*group, "--place", "NAME", "A place that \"lumarinectl places\" lists", where.place, ParsePlace,
           "a place that \"lumarinectl places\" lists");
  AddTyped(
      *group, "--at", "LATITUDE,LONGITUDE",
      "A position in degrees, north and east positive; the clocks are those of the place that is told, or "
      "else of the nearest",
      where.at, ParsePosition,
      "a latitude from -90 to 90 and a longitude from -180 to 180, like 48.14,11.58,");
  group->require_option(1, 2);
  AddTyped(app, "--utc-offset", "HH:MM", "How far the clocks are before UTC, in place of what the place has",
           where.utcOffset, ParseUtcOffset, "an offset of at most 15 hours, like +01:00,");
}

std::string WhereText(const WhereOptions& where) {
  const Position position = where.position();
  char degrees[64];
  std::snprintf(degrees, sizeof degrees, ", %.2f,%.2f", position.latitude, position.longitude);
  return (where.place ? where.place->name : std::string("near ") + where.clock().name) + degrees;
}

void DeclareMoonlight(CLI::App& app, std::optional<Moonlight>& moonlight) {
  AddTyped(app, "--moon", "CHANNEL=PERCENT",
           "Moonlight in the dark: a channel, and its percent at a full moon", moonlight, ParseMoonlight,
           "a channel from 1 to 5, \"=\" and a percent");
}

void DeclareSunLight(CLI::App& app, SunLight& light) {
  AddTyped(app, "--levels", "PERCENTS",
           "The most light of channels 1 to 5, as in 80,80,100,60,0, or one for all", light.levels,
           ParseLevels, "one percent, or five with commas between them,");
  AddTyped(app, "--twilight", "none|civil|nautical", "How much of dawn and dusk there is; civil by default",
           light.twilight, ParseTwilight, "none, civil or nautical");
  auto* const hours = AddTyped(app, "--hours", "HH:MM-HH:MM", "Squeeze or stretch the light into these hours",
                               light.hours, ParseHours, "two times, like 10:00-22:00,");
  AddTyped(app, "--begin", "HH:MM", "Move the day so that its first light is then; it stays as long as it is",
           light.begin, ParseMinute, "a time from 00:00 to 23:59")
      ->excludes(hours);
  DeclareMoonlight(app, light.moonlight);
}

void DeclareOut(CLI::App& app, IntoOptions& into) {
  app.add_option("OUT", into.out, "The program file to write; without it the day is only told of")
      ->check(TakesFile(".xml"))
      ->type_name("");
}

void DeclareProgram(CLI::App& app, IntoOptions& into) {
  CLI::Option* const program = app.add_option("--program", into.program, "A program that the day is put into")
                                   ->check(TakesFile(".xml"))
                                   ->type_name("FILE");
  app.add_option("--mode", into.mode,
                 "In the place of this mode of it, which keeps its name; else behind all")
      ->check(CLI::Validator(CheckModeNumber, ""))
      ->needs(program)
      ->type_name("N");
}

void DeclareOutcome(CLI::App& app, IntoOptions& into) {
  app.add_option("--rows", into.rows, "The most rows that the mode may have")
      ->check(Unnamed(CLI::Range(kFewestRows, TCBase::Program::kMaxModeSteps)))
      ->capture_default_str()
      ->type_name("N");
  app.add_flag("--force", into.force, "Replace what is there already");
  app.add_flag("--json", into.json, "Tell of it for other programs");
}

ExitStatus LoadInto(const Session& session, const IntoOptions& into, ModeListView& document) {
  document = EmptyProgram();
  return into.program.empty() ? ExitStatus::Success
                              : LoadArgument(session, {into.program, into.mode.value_or(1)}, document);
}

void Put(ModeListView& document, Mode mode, const IntoOptions& into, const std::string& name) {
  mode.name = name;
  PutMode(document, std::move(mode), into.mode.value_or(0) - 1);
}

ExitStatus SaveNew(const Session& session, const IntoOptions& into, const ModeListView& document) {
  if (!into.force && into.out != into.program && MayBeThere(PathFromUtf8(into.out)))
    return session.Fail(ExitStatus::WrongUsage, into.out + " is there already; --force replaces it");
  return SaveProgram(document, PathFromUtf8(into.out)) ? ExitStatus::Success : ExitStatus::FileFailed;
}

ExitStatus SaveDay(const Session& session, const IntoOptions& into, const Generated& day,
                   const std::string& name) {
  if (into.out.empty()) return ExitStatus::Success;
  ModeListView document;
  const ExitStatus loaded = LoadInto(session, into, document);
  if (loaded != ExitStatus::Success) return loaded;
  Put(document, day.mode, into, name);
  return SaveNew(session, into, document);
}

ExitStatus SaveFolder(const Session& session, const IntoOptions& into, const std::vector<SeriesFile>& files) {
  const SeriesSaved saved = SaveSeries(PathFromUtf8(into.out), files, into.force);
  const std::string path = Utf8FromPath(saved.path);
  if (saved.outcome == SeriesSaved::Exists)
    return session.Fail(ExitStatus::WrongUsage, path + " is there already; --force replaces all of them");
  if (saved.outcome == SeriesSaved::Failed) return ExitStatus::FileFailed;
  session.status.Print(
      Message("Saved {2} programs in {1}", into.out, static_cast<std::int32_t>(files.size())).utf8());
  return ExitStatus::Success;
}

void PrintFigure(const Session& session, const char* name, const std::string& value) {
  char start[32];
  std::snprintf(start, sizeof start, "%-12s", name);
  session.out << start << value << '\n';
}

void AddFit(Json& json, const Generated& day) {
  json["rows"] = CountModeSteps(day.mode);
  // Two places behind the point, up, so that what is told is never less than what is.
  json["error"] = std::ceil(static_cast<double>(day.error) * 100) / 100;
}

std::string FitText(const Generated& day) {
  char text[64];
  std::snprintf(text, sizeof text, "%d of %d, at most %.1f %% off", CountModeSteps(day.mode),
                TCBase::Program::kMaxModeSteps, std::ceil(static_cast<double>(day.error) * 10) / 10);
  return text;
}

}  // namespace cli
