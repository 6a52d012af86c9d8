// Days that nature makes: generate, a command with a command for each kind, and the places for it.

#include <cstdio>
#include <memory>

#include "cli/commands.h"
#include "cli/generate.h"
#include "cli/json.h"
#include "cli/options.h"
#include "program/generate/place.h"

namespace cli {

namespace {

using TCBase::Program::Generate::FindPlaces;
using TCBase::Program::Generate::Place;

const Command* const kKinds[] = {&kGenerateSun, &kGenerateMoon, &kGenerateRamp, &kGenerateAcclimation,
                                 &kGenerateSeason};

Run DeclareGenerate(CLI::App& app) {
  app.require_subcommand(1);
  const auto chosen = std::make_shared<Run>();
  for (const Command* const kind : kKinds) AddCommand(app, *kind, *chosen);
  return [chosen](Session& session) { return (*chosen)(session); };
}

// places

struct PlacesArguments {
  std::string word;
  bool json = false;
};

ExitStatus ListPlaces(const Session& session, const PlacesArguments& arguments) {
  Json list = Json::array();
  for (const Place* const place : FindPlaces(arguments.word)) {
    const auto& [latitude, longitude] = place->position;
    char line[96];
    std::snprintf(line, sizeof line, "%-32s%8.2f %8.2f  ", place->name, latitude, longitude);
    if (!arguments.json) session.out << line << place->country << '\n';
    list.push_back({{"name", place->name},
                    {"country", place->country},
                    {"latitude", latitude},
                    {"longitude", longitude},
                    {"clock", place->clockRule}});
  }
  if (arguments.json) PrintJson(session.out, list);
  if (!list.empty()) return ExitStatus::Success;
  return session.Fail(ExitStatus::WrongUsage, "there is no place or country with \"" + arguments.word + "\"");
}

Run DeclarePlaces(CLI::App& app) {
  const auto arguments = std::make_shared<PlacesArguments>();
  app.add_option("WORD", arguments->word, "A part of the name of a place or a country")->type_name("");
  app.add_flag("--json", arguments->json, "The same for other programs, with the rule of the clocks");
  return [arguments](Session& session) { return ListPlaces(session, *arguments); };
}

}  // namespace

const Command kGenerate = {
    "generate",
    "Make a day of light: sun, moon, ramps, a slow start, a season",
    R"("lumarinectl generate KIND --help" tells what each takes. A result is an ordinary mode of at most 48 rows, and what is
printed tells how far it is off.
Examples:
  lumarinectl generate sun amazon.xml --place Manaus --hours 10:00-22:00
  lumarinectl generate acclimation tank.xml today.xml --first 2026-11-23 --days 28)",
    &DeclareGenerate,
};

const Command kPlaces = {
    "places",
    "List the places that a day of sun can be made for",
    R"(They are those of the time zone database, with latitude and longitude in degrees.
Examples:
  lumarinectl places brazil
  lumarinectl places berlin)",
    &DeclarePlaces,
};

}  // namespace cli
