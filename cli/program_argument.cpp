#include "cli/program_argument.h"

#include <charconv>
#include <filesystem>
#include <system_error>

#include "cli/options.h"
#include "common/files.h"
#include "common/message.h"
#include "common/platform.h"
#include "program/generate/season.h"
#include "program/program_file.h"

namespace cli {

namespace {

// What `generate season` has written into a folder for this week, or else the path itself.
std::filesystem::path ThisWeeksFile(const std::filesystem::path& path) {
  using namespace TCBase::Program::Generate;
  const std::filesystem::path file = path / WeekFileName(WeekOfYear(DateOf(platform::LocalTime())));
  std::error_code error;
  return std::filesystem::is_regular_file(file, error) ? file : path;
}

}  // namespace

void DeclareFile(CLI::App& app, ProgramArgument& argument) {
  app.add_option("FILE", argument.file, "The program file")
      ->required()
      ->check(TakesFile(".xml"))
      ->type_name("");
}

std::string CheckModeNumber(const std::string& text) {
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool good = result.ec == std::errc() && result.ptr == text.data() + text.size() && number > 0;
  return good ? "" : "the number of a mode is expected, from 1 on, not " + text;
}

void DeclareMode(CLI::App& app, ProgramArgument& argument, bool required) {
  app.add_option("--mode", argument.mode, "The mode, counted from 1")
      ->required(required)
      ->check(CLI::Validator(CheckModeNumber, ""))
      ->type_name("N");
}

ExitStatus LoadArgument(const Session& session, const ProgramArgument& argument,
                        TCBase::Program::ModeListView& document) {
  if (!LoadProgram(ThisWeeksFile(PathFromUtf8(argument.file)), document))
    return session.Fail(ExitStatus::FileFailed,
                        Message("{1} cannot be read, or is no light program", argument.file).utf8());
  const std::size_t count = document.modes.size();
  if (static_cast<std::size_t>(argument.mode) > count)
    return session.Fail(ExitStatus::WrongUsage, "there is no mode " + std::to_string(argument.mode) + " in " +
                                                    argument.file + ", it holds " + std::to_string(count));
  document.currentMode = argument.mode - 1;
  return ExitStatus::Success;
}

}  // namespace cli
