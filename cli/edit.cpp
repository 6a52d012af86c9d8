// Making and changing programs: new, templates and edit.

#include <charconv>
#include <memory>
#include <optional>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "cli/changes.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/options.h"
#include "cli/program_argument.h"
#include "cli/step_changes.h"
#include "cli/text.h"
#include "common/files.h"
#include "common/message.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "program/templates.h"

namespace cli {

namespace {

using TCBase::Program::kChannelCount;
using TCBase::Program::ModeListView;
using TCBase::Program::ProgramTemplate;

// What the options may say: checks that answer the text of a fault, or nothing.

std::string CheckChannel(const std::string& text) {
  const bool good = text.size() == 1 && text[0] >= '1' && text[0] <= '0' + kChannelCount;
  return good ? "" : "there is no channel " + text + ", they are 1 to 5";
}

std::string CheckChannelValue(const std::string& text) {
  return ParseChannelValue(text) ? "" : "a channel from 1 to 5, \"=\" and a value are expected, not " + text;
}

std::string CheckMove(const std::string& text) {
  const auto argument = ParseChannelValue(text);
  const bool good = argument && (argument->value == "up" || argument->value == "down");
  return good ? "" : "a channel from 1 to 5 and =up or =down are expected, not " + text;
}

std::optional<float> ParsePercent(const std::string& text) {
  float percent = 0.0F;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, percent);
  // A channel is not scaled to less than a tenth of a percent.
  const bool good = result.ec == std::errc() && result.ptr == end && percent >= 0.1F && percent <= 100.0F;
  return good ? std::optional(percent) : std::nullopt;
}

std::string CheckPower(const std::string& text) {
  const auto argument = ParseChannelValue(text);
  return argument && ParsePercent(argument->value)
             ? ""
             : "a channel from 1 to 5, \"=\" and 0.1 to 100 percent are expected, not " + text;
}

std::string CheckName(const std::string& name) {
  constexpr std::size_t kLongestName = 15;
  const std::u16string wide = WideFromUtf8(name);
  if (wide.empty()) return "a mode needs a name";
  if (wide.size() > kLongestName) return "a name has at most 15 characters; a controller shows the first 7";
  if (Utf8FromWide(wide) != name || ForTerminal(name, LineEnds::Replace) != name)
    return "a name is plain text on one line";
  return "";
}

// The commands.

struct EditArguments {
  ProgramArgument in;
  std::string out;  // UTF-8
  Change change;
  StepChangeOptions steps;
};

ExitStatus Save(const ModeListView& document, const std::string& file) {
  return SaveProgram(document, PathFromUtf8(file)) ? ExitStatus::Success : ExitStatus::FileFailed;
}

ExitStatus Edit(const Session& session, const EditArguments& arguments) {
  const std::string fault = CheckStepChange(arguments.steps);
  if (!fault.empty()) return session.Fail(ExitStatus::WrongUsage, fault);
  ModeListView document;
  const ExitStatus loaded = LoadArgument(session, arguments.in, document);
  if (loaded != ExitStatus::Success) return loaded;
  const ExitStatus changed = arguments.change(session, document);
  return changed == ExitStatus::Success ? Save(document, arguments.out) : changed;
}

// One of the changes that takes a value. `check` is one of those above, `make` turns the text into the
// change.
template <class Make>
void AddChange(CLI::App& group, Change& change, const char* option, const char* value, const char* what,
               std::string (*check)(const std::string&), Make make) {
  group
      .add_option_function<std::string>(
          option, [&change, make](const std::string& text) { change = make(text); }, what)
      ->check(CLI::Validator(check, ""))
      ->type_name(value);
}

void DeclareChanges(CLI::App& group, Change& change) {
  group.add_flag_callback(
      "--optimize", [&] { change = Optimize; },
      "Remove the steps that matter least until no more than 48 are left");
  group.add_flag_callback(
      "--optimize-tc421", [&] { change = OptimizeTC421; },
      "Resample to half hours, which is all that a TC421 knows");
  group
      .add_option_function<int>(
          "--align", [&](const int& minutes) { change = Align(minutes); },
          "Move the steps to multiples of this many minutes")
      ->check(Unnamed(CLI::PositiveNumber))
      ->type_name("MINUTES");
  group
      .add_option_function<std::string>(
          "--endpoint", [&](const std::string& end) { change = AddEndpoint(end); },
          "Add a step to all channels at 00:00 (start) or 23:59 (end)")
      ->check(Unnamed(CLI::IsMember({"start", "end"})))
      ->type_name("start|end");
  AddChange(group, change, "--steps", "CHANNEL=TEXTFILE", "Replace a channel's steps by those of a text",
            CheckChannelValue,
            [](const std::string& text) { return ReplaceSteps(*ParseChannelValue(text)); });
  AddChange(group, change, "--power", "CHANNEL=PERCENT", "Scale a channel so that its highest value is this",
            CheckPower, [](const std::string& text) {
              const auto argument = ParseChannelValue(text);
              return Scale(argument->channel, *ParsePercent(argument->value));
            });
  AddChange(group, change, "--clear", "CHANNEL", "Make a channel dark all day", CheckChannel,
            [](const std::string& text) { return Clear(text[0] - '1'); });
  AddChange(group, change, "--move", "CHANNEL=up|down", "Swap a channel's curve with its neighbour's",
            CheckMove, [](const std::string& text) { return Move(*ParseChannelValue(text)); });
  group.add_flag_callback(
      "--remove", [&] { change = Remove; }, "Remove the mode");
  AddChange(group, change, "--rename", "NAME", "Give the mode another name, of at most 15 characters",
            CheckName, Rename);
}

Run DeclareEdit(CLI::App& app) {
  const auto arguments = std::make_shared<EditArguments>();
  app.add_option("IN", arguments->in.file, "The program file to read")
      ->required()
      ->check(TakesFile(".xml"))
      ->type_name("");
  app.add_option("OUT", arguments->out, "The program file to write, which may be the same")
      ->required()
      ->check(TakesFile(".xml"))
      ->type_name("");
  DeclareMode(app, arguments->in, true);
  CLI::App* const group = app.add_option_group("Change", "What to do with the mode");
  group->require_option(1);
  DeclareChanges(*group, arguments->change);
  DeclareStepChanges(app, *group, arguments->steps, arguments->change);
  return [arguments](Session& session) { return Edit(session, *arguments); };
}

struct NewArguments {
  std::string out;   // UTF-8
  std::string from;  // the id of a template; empty for the built-in program
};

std::vector<std::string> TemplateIds() {
  std::vector<std::string> ids;
  for (const ProgramTemplate* const each : TCBase::Program::ProgramTemplates()) ids.emplace_back(each->id);
  return ids;
}

ExitStatus New(const Session& session, const NewArguments& arguments) {
  if (arguments.from.empty()) return Save(TCBase::Program::NewProgram(), arguments.out);
  const ModeListView program = NewProgramFrom(*TCBase::Program::FindTemplate(arguments.from));
  const ExitStatus saved = Save(program, arguments.out);
  if (saved == ExitStatus::Success) session.status.Print(program.modes.front().description);
  return saved;
}

Run DeclareNew(CLI::App& app) {
  const auto arguments = std::make_shared<NewArguments>();
  app.add_option("OUT", arguments->out, "The program file to write")
      ->required()
      ->check(TakesFile(".xml"))
      ->type_name("");
  app.add_option("--template", arguments->from,
                 "Start from this one; \"lumarinectl templates\" tells of them")
      ->check(Unnamed(CLI::IsMember(TemplateIds())))
      ->type_name("reef|planted-tank|seedlings|refugium|blackwater");
  return [arguments](Session& session) { return New(session, *arguments); };
}

// The sentence behind the id, each at its column.
void PrintTemplates(const Session& session) {
  constexpr std::size_t kColumn = 14;
  for (const ProgramTemplate* const each : TCBase::Program::ProgramTemplates()) {
    std::string id(each->id);
    id.resize(kColumn, ' ');
    session.out << id << Translate(each->sentence) << '\n';
  }
}

void PrintTemplatesAsJson(const Session& session) {
  Json list = Json::array();
  for (const ProgramTemplate* const each : TCBase::Program::ProgramTemplates()) {
    list.push_back({{"template", each->id},
                    {"name", std::string_view(each->name)},
                    {"sentence", std::string_view(each->sentence)}});
  }
  PrintJson(session.out, list);
}

Run DeclareTemplates(CLI::App& app) {
  const auto json = std::make_shared<bool>(false);
  app.add_flag("--json", *json, "The same for other programs");
  return [json](const Session& session) {
    (*json ? PrintTemplatesAsJson : PrintTemplates)(session);
    return ExitStatus::Success;
  };
}

}  // namespace

const Command kNew = {
    "new",
    "Write the built-in program or a template, to start from",
    R"(A file that is there is replaced.
Examples:
  lumarinectl new tank.xml
  lumarinectl new reef.xml --template reef)",
    &DeclareNew,
};

const Command kTemplates = {
    "templates",
    "List the programs that \"new\" can start from",
    R"(Each with what it is for, and where its levels come from.
Example:
  lumarinectl templates)",
    &DeclareTemplates,
};

const Command kEdit = {
    "edit",
    "Change one mode of a program",
    R"(A text of steps has one step on a line: hh:mm, the percent, and J to hold it up to the next step.
  08:00 0
  09:30 80 J
  18:00 0
Examples:
  lumarinectl edit tank.xml tank.xml --mode 1 --steps 2=blue.txt
  lumarinectl edit tank.xml weak.xml --mode 1 --power 5=20
  lumarinectl edit tank.xml tank.xml --mode 1 --rename Sunday
  lumarinectl edit tank.xml tank.xml --mode 1 --shift-time -1:30
  lumarinectl edit tank.xml tank.xml --mode 1 --scale 50 --channels 1,2 --from 18:00 --to 06:00
  lumarinectl edit tank.xml tank.xml --mode 1 --copy-to 3=60 --channels 2
  lumarinectl edit tank.xml tank.xml --mode 1 --thin 1
If a change cannot be made, nothing is written and the exit status is 2.)",
    &DeclareEdit,
};

}  // namespace cli
