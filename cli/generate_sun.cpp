// Days of sun: one, and those of a whole year.

#include <array>
#include <memory>
#include <string_view>

#include "cli/generate.h"
#include "cli/generate_options.h"
#include "program/generate/season.h"
#include "program/generate/typed.h"

namespace cli {

namespace {

using namespace TCBase::Program::Generate;
using TCBase::Program::ModeListView;

struct SunTime {
  const char* key;
  const char* name;
  std::optional<double> minute;
};
using SunTimes = std::array<SunTime, 7>;
SunTimes TimesOf(const SunDay& sun) {
  return {{{"nauticalDawn", "nautical", sun.Rise(kNauticalAltitude)},
           {"dawn", "dawn", sun.Rise(kCivilAltitude)},
           {"sunrise", "sunrise", sun.Rise(kSunriseAltitude)},
           {"noon", "noon", sun.Noon()},
           {"sunset", "sunset", sun.Set(kSunriseAltitude)},
           {"dusk", "dusk", sun.Set(kCivilAltitude)},
           {"nauticalDusk", "nautical", sun.Set(kNauticalAltitude)}}};
}

// sun

struct SunArguments {
  WhereOptions where;
  SunLight light;
  IntoOptions into;
};

void PrintSun(const Session& session, const SunArguments& arguments, const Generated& day) {
  const SunLight& light = arguments.light;
  const SunTimes times = TimesOf(SunDay(light.position, light.date, light.utcOffset));
  if (!arguments.into.json) {
    PrintFigure(session, "place", WhereText(arguments.where));
    PrintFigure(session, "date", DateText(light.date) + ", UTC" + UtcOffsetText(light.utcOffset));
    for (const SunTime& time : times)
      PrintFigure(session, time.name, time.minute ? NearestMinuteText(*time.minute) : "-");
    return PrintFigure(session, "rows", FitText(day));
  }
  Json json = {{"date", DateText(light.date)},
               {"latitude", light.position.latitude},
               {"longitude", light.position.longitude},
               {"utcOffset", light.utcOffset}};
  for (const SunTime& time : times)
    json[time.key] = time.minute ? Json(NearestMinuteText(*time.minute)) : Json(nullptr);
  AddFit(json, day);
  PrintJson(session.out, json);
}

ExitStatus GenerateSun(const Session& session, const SunArguments& told) {
  SunArguments arguments = told;
  arguments.light.position = arguments.where.position();
  arguments.light.utcOffset = arguments.where.UtcOffsetOn(arguments.light.date);
  const Generated day = MakeSunMode(arguments.light, arguments.into.rows);
  const ExitStatus saved =
      SaveDay(session, arguments.into, day, "Sun " + DateText(arguments.light.date).substr(5));
  if (saved == ExitStatus::Success) PrintSun(session, arguments, day);
  return saved;
}

Run DeclareSun(CLI::App& app) {
  const auto arguments = std::make_shared<SunArguments>();
  DeclareOut(app, arguments->into);
  DeclareWhere(app, arguments->where);
  DeclareDate(app, arguments->light.date);
  DeclareSunLight(app, arguments->light);
  DeclareProgram(app, arguments->into);
  DeclareOutcome(app, arguments->into);
  return [arguments](Session& session) { return GenerateSun(session, *arguments); };
}

// season

struct SeasonArguments {
  SunArguments sun;
  std::optional<int> year;
};

std::vector<SeriesFile> FilesOf(const ModeListView& base, const IntoOptions& into,
                                const std::vector<Generated>& season) {
  std::vector<SeriesFile> files;
  for (const Generated& day : season) {
    ModeListView& document =
        files.emplace_back(SeriesFile{WeekFileName(static_cast<int>(files.size()) + 1), base}).document;
    Put(document, day.mode, into, day.mode.name);
  }
  return files;
}

void PrintSeason(const Session& session, const SunArguments& arguments, std::chrono::year year,
                 const std::vector<Generated>& season) {
  Json weeks = Json::array();
  for (int week = 1; week <= kWeeks; ++week) {
    const Generated& day = season[static_cast<std::size_t>(week - 1)];
    const std::string date = DateText(MiddleOfWeek(year, week));
    Json json = {{"week", week}, {"file", WeekFileName(week)}, {"date", date}};
    AddFit(json, day);
    if (!arguments.into.json)
      session.out << WeekFileName(week) << "  " << date << "  " << FitText(day) << '\n';
    weeks.push_back(std::move(json));
  }
  if (arguments.into.json) PrintJson(session.out, {{"weeks", std::move(weeks)}});
}

ExitStatus GenerateSeason(const Session& session, const SeasonArguments& told) {
  const SunArguments& arguments = told.sun;
  SunLight light = arguments.light;
  light.position = arguments.where.position();
  const std::chrono::year year = told.year ? std::chrono::year{*told.year} : light.date.year();
  light.date = year / std::chrono::January / 1;
  std::vector<int> utcOffsets;
  for (int week = 1; week <= kWeeks; ++week)
    utcOffsets.push_back(arguments.where.UtcOffsetOn(MiddleOfWeek(year, week)));
  ModeListView base;
  const ExitStatus loaded = LoadInto(session, arguments.into, base);
  if (loaded != ExitStatus::Success) return loaded;
  const std::vector<Generated> season = MakeSeason(light, utcOffsets, arguments.into.rows);
  const ExitStatus saved = SaveFolder(session, arguments.into, FilesOf(base, arguments.into, season));
  if (saved == ExitStatus::Success) PrintSeason(session, arguments, year, season);
  return saved;
}

Run DeclareSeason(CLI::App& app) {
  const auto arguments = std::make_shared<SeasonArguments>();
  SunArguments& sun = arguments->sun;
  app.add_option("FOLDER", sun.into.out,
                 "The folder for week-01.xml to week-52.xml; it is made if there is none")
      ->required()
      ->type_name("");
  DeclareWhere(app, sun.where);
  sun.light.date = Today();
  app.add_option("--year", arguments->year, "The year; this one by default")
      ->check(Unnamed(CLI::Range(kFirstYear, kLastYear)))
      ->type_name("YYYY");
  DeclareSunLight(app, sun.light);
  DeclareProgram(app, sun.into);
  DeclareOutcome(app, sun.into);
  return [arguments](Session& session) { return GenerateSeason(session, *arguments); };
}

}  // namespace

const Command kGenerateSun = {
    "sun",
    "A day of sun over a place on earth",
    R"(The light follows the sun's altitude. A noon sun at 30 degrees or higher gives the levels that are told, a lower
one less. Times are those of the place's clocks on that day, summer time included.
Examples:
  lumarinectl generate sun --place Europe/Berlin                      today's sun, written nowhere
  lumarinectl generate sun reef.xml --at -18.3,147.7 --hours 10:00-22:00
  lumarinectl generate sun today.xml --place Manaus --begin 09:00 --moon 5=15 --force)",
    &DeclareSun,
};

const Command kGenerateSeason = {
    "season",
    "A year of sun, a program for each week",
    R"(Writes 52 files. Week 1 begins on the first of January, the last one goes to the end of the year; each has the sun
of its fourth day. "lumarinectl upload FOLDER" hands over the program of this week.
Examples:
  lumarinectl generate season amazon --place Manaus --hours 10:00-22:00
  lumarinectl generate season reef --at -18.3,147.7 --program tank.xml --mode 1 --force)",
    &DeclareSeason,
};

}  // namespace cli
