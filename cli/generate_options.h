#pragma once

// What the kinds of "generate" share: where and when the day is, and what becomes of it.

#include <functional>
#include <optional>
#include <string>

#include "cli/json.h"
#include "cli/options.h"
#include "cli/session.h"
#include "program/generate/place.h"
#include "program/generate/series.h"
#include "program/generate/sun_light.h"

namespace cli {

/// An option that takes one text. `parse` answers a std::optional, and `target` gets what it holds; what it
/// knows nothing of is wrong usage, with `expected` as the reason: "a date like 2026-11-23".
template <class Target, class Parse>
CLI::Option* AddTyped(CLI::App& app, const char* option, const char* value, const char* what, Target& target,
                      Parse parse, const char* expected) {
  const auto check = [parse, expected](std::string& text) {
    return parse(text) ? "" : std::string(expected) + " is expected, not " + text;
  };
  return app
      .add_option_function<std::string>(
          option, [&target, parse](const std::string& text) { target = *parse(text); }, what)
      ->check(CLI::Validator(check, ""))
      ->type_name(value);
}

/// The computer's day.
TCBase::Program::Generate::Date Today();
/// The day; today unless told.
void DeclareDate(CLI::App& app, TCBase::Program::Generate::Date& date);

/// Where a day of sun is.
struct WhereOptions {
  const TCBase::Program::Generate::Place* place = nullptr;
  std::optional<TCBase::Program::Generate::Position> at;
  std::optional<int> utcOffset;

  TCBase::Program::Generate::Position position() const;
  /// The place by whose clocks the day goes.
  const TCBase::Program::Generate::Place& clock() const;
  int UtcOffsetOn(const TCBase::Program::Generate::Date& date) const;
};
void DeclareWhere(CLI::App& app, WhereOptions& where);
/// "Europe/Berlin, 52.50,13.37".
std::string WhereText(const WhereOptions& where);

/// The light of a day of sun, all but place and date.
void DeclareSunLight(CLI::App& app, TCBase::Program::Generate::SunLight& light);
void DeclareMoonlight(CLI::App& app, std::optional<TCBase::Program::Generate::Moonlight>& moonlight);

/// The program that the day goes into. Without one it stands alone.
struct IntoOptions {
  std::string out;  // a file, or a folder; UTF-8
  std::string program;
  std::optional<int> mode;  // from 1
  std::string name;
  int rows = TCBase::Program::kMaxModeSteps;
  bool force = false;
  bool json = false;
};
/// The file to write, which need not be told.
void DeclareOut(CLI::App& app, IntoOptions& into);
void DeclareProgram(CLI::App& app, IntoOptions& into);
void DeclareOutcome(CLI::App& app, IntoOptions& into);

/// The document that the day is put into.
ExitStatus LoadInto(const Session& session, const IntoOptions& into, TCBase::Program::ModeListView& document);
/// Puts a mode into a document as the options tell: in the place of a mode, or behind all others as `name`.
void Put(TCBase::Program::ModeListView& document, TCBase::Program::Mode mode, const IntoOptions& into,
         const std::string& name);
/// Writes the document to `out`, unless something is there that may not be replaced.
ExitStatus SaveNew(const Session& session, const IntoOptions& into,
                   const TCBase::Program::ModeListView& document);
/// Writes the day, if a file is told.
ExitStatus SaveDay(const Session& session, const IntoOptions& into,
                   const TCBase::Program::Generate::Generated& day, const std::string& name);
/// Writes the files into the folder `out`.
ExitStatus SaveFolder(const Session& session, const IntoOptions& into,
                      const std::vector<TCBase::Program::Generate::SeriesFile>& files);

/// A line of what is told of a day.
void PrintFigure(const Session& session, const char* name, const std::string& value);
/// "rows" and "error", and the text of both.
void AddFit(Json& json, const TCBase::Program::Generate::Generated& day);
std::string FitText(const TCBase::Program::Generate::Generated& day);

}  // namespace cli
