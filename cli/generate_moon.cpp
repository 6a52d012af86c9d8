// Nights with moonlight.

#include <cmath>
#include <memory>

#include "cli/generate.h"
#include "cli/generate_options.h"
#include "program/generate/moon.h"
#include "program/generate/typed.h"

namespace cli {

namespace {

using namespace TCBase::Program::Generate;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;

struct MoonArguments {
  MoonNight night;
  IntoOptions into;
};

std::string MomentText(double julianDay) {
  const DateTime moment = DateTimeOf(julianDay);
  return DateText(DateOf(moment)) + " " + MinuteText(moment.hour * 60 + moment.minute);
}

void PrintMoon(const Session& session, const MoonArguments& arguments, const Generated& day) {
  const MoonNight& night = arguments.night;
  const double begin = JulianDayOf(night.date);
  const double lit = 100 * MoonIlluminated(begin + 1 - night.utcOffset / 1440.0);
  const float level = MoonLevel(night.moonlight, night.date, night.utcOffset);
  if (arguments.into.json) {
    Json json = {{"date", DateText(night.date)},
                 {"illuminated", std::round(lit * 10) / 10},
                 {"channel", night.moonlight.channel + 1},
                 {"level", static_cast<int>(level + 0.5F)},
                 {"nextNewMoon", MomentText(NextNewMoon(begin))},
                 {"nextFullMoon", MomentText(NextFullMoon(begin))}};
    AddFit(json, day);
    return PrintJson(session.out, json);
  }
  PrintFigure(session, "date", DateText(night.date));
  PrintFigure(session, "moon", std::to_string(static_cast<int>(lit + 0.5)) + " % lit");
  PrintFigure(session, "level",
              std::to_string(static_cast<int>(level + 0.5F)) + " % in channel " +
                  std::to_string(night.moonlight.channel + 1));
  PrintFigure(session, "new moon", MomentText(NextNewMoon(begin)) + " UTC");
  PrintFigure(session, "full moon", MomentText(NextFullMoon(begin)) + " UTC");
  PrintFigure(session, "rows", FitText(day));
}

// What shines beside the moon: the mode that is replaced, or nothing.
ExitStatus LoadOthers(const Session& session, const MoonArguments& arguments, Mode& others) {
  const IntoOptions& into = arguments.into;
  for (auto& channel : others.channels) channel = MoonlitChannel(0.0F, arguments.night.night);
  if (!into.mode) return ExitStatus::Success;
  ModeListView document;
  const ExitStatus loaded = LoadInto(session, into, document);
  if (loaded == ExitStatus::Success) others = CurrentMode(document);
  return loaded;
}

ExitStatus GenerateMoon(const Session& session, const MoonArguments& arguments) {
  Mode others;
  const ExitStatus loaded = LoadOthers(session, arguments, others);
  if (loaded != ExitStatus::Success) return loaded;
  const Generated day = MakeMoonMode(arguments.night, others, arguments.into.rows);
  const ExitStatus saved =
      SaveDay(session, arguments.into, day, "Moon " + DateText(arguments.night.date).substr(5));
  if (saved == ExitStatus::Success) PrintMoon(session, arguments, day);
  return saved;
}

Run DeclareMoon(CLI::App& app) {
  const auto arguments = std::make_shared<MoonArguments>();
  DeclareOut(app, arguments->into);
  DeclareDate(app, arguments->night.date);
  AddTyped(app, "--utc-offset", "HH:MM", "How far the clocks are before UTC; 0 by default",
           arguments->night.utcOffset, ParseUtcOffset, "an offset of at most 15 hours, like +01:00,");
  AddTyped(app, "--moon", "CHANNEL=PERCENT", "A channel, and its percent at a full moon; 5=20 by default",
           arguments->night.moonlight, ParseMoonlight, "a channel from 1 to 5, \"=\" and a percent");
  AddTyped(app, "--night", "HH:MM-HH:MM", "When it shines; 21:00-06:00 by default", arguments->night.night,
           ParseHours, "two times, like 21:00-06:00,");
  DeclareProgram(app, arguments->into);
  DeclareOutcome(app, arguments->into);
  return [arguments](Session& session) { return GenerateMoon(session, *arguments); };
}

}  // namespace

const Command kGenerateMoon = {
    "moon",
    "A night with the moon as bright as it is",
    R"(The channel shines through the night that follows the day, as bright as the lit part of the moon. With --program and
--mode it is put into that mode, whose other channels stay.
Examples:
  lumarinectl generate moon                                           tonight's moon, written nowhere
  lumarinectl generate moon tank.xml --program tank.xml --mode 1 --moon 5=15 --night 21:30-07:00)",
    &DeclareMoon,
};

}  // namespace cli
