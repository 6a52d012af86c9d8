// The command table, and the way from arguments to a command.

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "cli/completion.h"
#include "cli/language.h"
#include "cli/lumarinectl.h"
#include "cli/options.h"
#include "cli/session.h"

namespace cli {

namespace {

constexpr char kVersion[] = "Lumarine " LUMARINE_VERSION;

constexpr char kAbout[] =
    "Looks at, changes and uploads light programs for five-channel LED controllers.\n"
    "A program holds modes; a mode is one day of light, repeated. Modes and channels count from 1.";

constexpr char kEpilogue[] = R"(Examples:
  lumarinectl new tank.xml                                   start from the built-in program
  lumarinectl info tank.xml                                  what a controller would be given
  lumarinectl edit tank.xml tank.xml --mode 1 --power 5=20   moonlight down to 20 %
  lumarinectl convert summer.tmf winter.tmf tank.xml         modes of another tool
  lumarinectl render tank.xml tank.png --mode 1              a picture of its day
  lumarinectl devices                                        which controllers are there
  lumarinectl demo tank.xml --device tc420                   the whole day in a minute
  lumarinectl upload tank.xml --device tc420                 hand the program over
  lumarinectl scan                                           which are on the network
  lumarinectl doctor                                         what is wrong where something fails

"lumarinectl COMMAND --help" tells more. Data goes to standard output, messages to standard error.
Exit status: 0 done, 1 the device operation failed or was stopped, 2 wrong usage, 3 no such device,
4 a file that cannot be read or written.)";

const Command* const kCommands[] = {
    &kInfo,     &kCurve,  &kNew,      &kEdit,   &kConvert,  &kRender,    &kFrames,
    &kDevices,  &kScan,   &kUpload,   &kDemo,   &kSyncTime, &kClear,     &kWifiSetup,
    &kUsbSetup, &kDoctor, &kGenerate, &kPlaces, &kFigures,  &kTemplates,
};

bool IsCommand(const std::string& word) {
  return std::ranges::any_of(kCommands, [&](const Command* command) { return command->name == word; });
}

// Help and version go to `out` and are a success, anything else is wrong usage.
ExitStatus Explain(const Session& session, const CLI::App& app, const CLI::ParseError& error) {
  if (error.get_exit_code() != 0) {
    session.Fail(ExitStatus::WrongUsage, error.what());
    session.status.Print("Run with --help for more.");
    return ExitStatus::WrongUsage;
  }
  app.exit(error, session.out);
  return ExitStatus::Success;
}

ExitStatus ParseAndRun(const std::vector<std::string>& arguments, MessageLanguage language,
                       Session& session) {
  CLI::App app(kAbout, "lumarinectl");
  // On every platform /tank.xml is a file and --help is an option.
  app.allow_windows_style_options(false);
  app.footer(kEpilogue);
  app.set_version_flag("--version", kVersion, "Print the version and exit");
  app.require_subcommand(0, 1);
  app.add_option(
         "--language", language.id,
         "The language of messages: en, de, sk, it, cz, fr01, fr, pl or es; the environment's by default")
      ->check(CLI::Validator(
          [&](const std::string& id) {
            return CheckLanguage({id, language.translations});
          },
          ""))
      ->type_name("ID");

  Run chosen;
  for (const Command* const command : kCommands) AddCommand(app, *command, chosen);

  if (IsCompletion(arguments)) {
    const std::vector<std::string> typed(arguments.begin() + 2, arguments.end());
    session.out << CompletionsOf(app, typed, [&] { return LanguageIds(language); });
    return ExitStatus::Success;
  }

  // The parser would list all words behind it as unexpected too.
  const bool named = !arguments.empty() && !arguments[0].starts_with('-');
  if (named && !IsCommand(arguments[0]))
    return session.Fail(ExitStatus::WrongUsage, "there is no command " + arguments[0]);

  try {
    // The parser takes them from the back.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ParseError& error) {
    return Explain(session, app, error);
  }
  if (!chosen)
    return session.Fail(ExitStatus::WrongUsage, "a command is needed, \"lumarinectl --help\" lists them");
  const SpokenLanguage spoken(language);
  return chosen(session);
}

}  // namespace

ExitStatus Session::Fail(ExitStatus exitStatus, std::string_view reason) const {
  status.Print("lumarinectl: " + std::string(reason));
  return exitStatus;
}

void Session::PrintNow(std::string_view data) {
  if (!out) return;
  errno = 0;
  out << data << std::flush;
  if (!out) outError = errno;
}

int RunLumarinectl(const std::vector<std::string>& arguments, MessageLanguage language, std::ostream& out,
                   std::ostream& err, Console& console) {
  StatusLines status(err, console);
  Session session{out, status, console};
  errno = 0;
  ExitStatus exitStatus = ParseAndRun(arguments, std::move(language), session);
  out.flush();
  if (!out) {
    // Nothing is written behind a failed write, so errno still tells of it, unless the command has gone on.
    const int error = session.outError != 0 ? session.outError : errno;
    const std::string reason = error != 0 ? ": " + std::generic_category().message(error) : "";
    exitStatus = session.Fail(ExitStatus::FileFailed, "standard output cannot be written" + reason);
  }
  return static_cast<int>(exitStatus);
}

}  // namespace cli
