// What a program holds: info and curve.

#include <array>
#include <memory>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/options.h"
#include "cli/program_argument.h"
#include "cli/text.h"
#include "program/curve.h"
#include "program/steps_text.h"

namespace cli {

namespace {

using TCBase::Program::Channel;
using TCBase::Program::ChannelInfo;
using TCBase::Program::CurveCursor;
using TCBase::Program::kChannelCount;
using TCBase::Program::kSecondsPerDay;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;
using TCBase::Program::ModeStep;
using TCBase::Program::Step;

struct InspectArguments {
  ProgramArgument program;
  int every = 60;  // seconds
  bool json = false;
};

// info

void PrintTables(const Session& session, const ModeListView& document) {
  const bool onTerminal = session.console.OutputIsTerminal();
  for (const std::string& line : ModeStepLines(document))
    session.out << (onTerminal ? ForTerminal(line, LineEnds::Replace) : line) << '\n';
}

Json JsonOf(const ChannelInfo& info, int number) {
  const std::uint32_t rgb = info.color & 0xFFFFFF;
  const std::array<char, 3> bytes = {static_cast<char>(rgb >> 16), static_cast<char>(rgb >> 8 & 0xFF),
                                     static_cast<char>(rgb & 0xFF)};
  return {{"number", number},
          {"name", info.name},
          {"description", info.description},
          {"color", "#" + HexText({bytes.data(), bytes.size()})}};
}

Json JsonOf(const Step& step) {
  return {{"hour", step.hour}, {"minute", step.minute}, {"value", step.value}, {"jump", step.jump}};
}

Json JsonOf(const ModeStep& row) {
  return {{"hour", row.hour}, {"minute", row.minute}, {"values", row.values}, {"jumps", row.jumps}};
}

Json JsonOf(const Mode& mode, int number) {
  Json channels = Json::array();
  for (const Channel& channel : mode.channels) {
    Json steps = Json::array();
    for (const Step& step : channel) steps.push_back(JsonOf(step));
    channels.push_back(std::move(steps));
  }
  Json rows = Json::array();
  std::vector<ModeStep> modeSteps;
  CollectModeSteps(mode, modeSteps);
  for (const ModeStep& row : modeSteps) rows.push_back(JsonOf(row));
  return {{"number", number},
          {"name", mode.name},
          {"description", mode.description},
          {"channels", std::move(channels)},
          {"rows", std::move(rows)}};
}

Json JsonOf(const ModeListView& document) {
  Json channels = Json::array();
  for (const ChannelInfo& info : document.channelInfos)
    channels.push_back(JsonOf(info, static_cast<int>(channels.size()) + 1));
  Json modes = Json::array();
  for (const Mode& mode : document.modes) modes.push_back(JsonOf(mode, static_cast<int>(modes.size()) + 1));
  return {{"channels", std::move(channels)}, {"modes", std::move(modes)}};
}

ExitStatus Info(const Session& session, const InspectArguments& arguments) {
  ModeListView document;
  const ExitStatus loaded = LoadArgument(session, arguments.program, document);
  if (loaded != ExitStatus::Success) return loaded;
  if (arguments.json) {
    PrintJson(session.out, JsonOf(document));
  } else {
    PrintTables(session, document);
  }
  return ExitStatus::Success;
}

Run DeclareInfo(CLI::App& app) {
  const auto arguments = std::make_shared<InspectArguments>();
  DeclareFile(app, arguments->program);
  app.add_flag("--json", arguments->json, "Everything the file holds, for other programs");
  return [arguments](Session& session) { return Info(session, *arguments); };
}

// curve

using Values = std::array<float, kChannelCount>;

// Calls `action(second, values)` for each second asked for, until it answers false.
template <class Action>
void WalkDay(const Mode& mode, int every, const Action& action) {
  std::vector<CurveCursor> cursors(mode.channels.begin(), mode.channels.end());
  for (int second = 0; second < kSecondsPerDay; second += every) {
    Values values{};
    for (std::size_t c = 0; c < values.size(); ++c) values[c] = cursors[c].At(second);
    if (!action(second, values)) return;
  }
}

void PrintCurveTable(std::ostream& out, const Mode& mode, int every) {
  out << "second,c1,c2,c3,c4,c5\n";
  WalkDay(mode, every, [&](int second, const Values& values) {
    std::string line = std::to_string(second);
    for (const float value : values) line += ',' + NumberText(value);
    // A reader who has gone away wants no more lines.
    return static_cast<bool>(out << line + '\n');
  });
}

void PrintCurveJson(std::ostream& out, const Mode& mode, int every) {
  Json points = Json::array();
  WalkDay(mode, every, [&](int second, const Values& values) {
    points.push_back({{"second", second}, {"values", values}});
    return true;
  });
  PrintJson(out, {{"mode", mode.name}, {"points", std::move(points)}});
}

ExitStatus Curve(const Session& session, const InspectArguments& arguments) {
  ModeListView document;
  const ExitStatus loaded = LoadArgument(session, arguments.program, document);
  if (loaded != ExitStatus::Success) return loaded;
  const Mode& mode = CurrentMode(document);
  (arguments.json ? PrintCurveJson : PrintCurveTable)(session.out, mode, arguments.every);
  return ExitStatus::Success;
}

Run DeclareCurve(CLI::App& app) {
  const auto arguments = std::make_shared<InspectArguments>();
  DeclareFile(app, arguments->program);
  DeclareMode(app, arguments->program, true);
  app.add_option("--every", arguments->every, "Seconds from one line to the next")
      ->check(Unnamed(CLI::Range(1, kSecondsPerDay)))
      ->capture_default_str()
      ->type_name("SECONDS");
  app.add_flag("--json", arguments->json, "The same for other programs");
  return [arguments](Session& session) { return Curve(session, *arguments); };
}

}  // namespace

const Command kInfo = {
    "info",
    "Show each mode's steps as a controller is given them",
    R"(A row is a time of day and the percent of channels 1 to 5; J holds the value up to the next row.
Example:
  lumarinectl info tank.xml)",
    &DeclareInfo,
};

const Command kCurve = {
    "curve",
    "Print a mode's five curves over the day, as CSV",
    R"(Examples:
  lumarinectl curve tank.xml --mode 1 > day.csv              a line a minute, for a spreadsheet
  lumarinectl curve tank.xml --mode 2 --every 1800           a line each half hour)",
    &DeclareCurve,
};

}  // namespace cli
