// The command that makes one kind of file of another: convert.

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "cli/commands.h"
#include "cli/options.h"
#include "cli/program_argument.h"
#include "common/files.h"
#include "common/message.h"
#include "program/builtin_modes.h"
#include "program/mode_file.h"
#include "program/program_file.h"

namespace cli {

namespace {

using TCBase::Program::kTmfFile;
using TCBase::Program::Mode;
using TCBase::Program::ModeFileKind;
using TCBase::Program::ModeListView;

struct ConvertArguments {
  std::vector<std::string> in;  // UTF-8
  std::string out;              // UTF-8
  std::optional<int> mode;      // from 1, among those of all files
};

bool IsProgram(const std::string& file) {
  return TCBase::Program::HasExtension(PathFromUtf8(file), ".xml");
}

// Null for a file of no such kind.
const ModeFileKind* KindOf(const std::string& file) {
  return TCBase::Program::ModeFileKindOf(PathFromUtf8(file));
}

// What the files may be called: the text of a fault, or nothing.

std::string CheckIn(const std::string& file) {
  const ModeFileKind* const kind = KindOf(file);
  if (kind && !kind->read) return file + ": RAW files can be written only, not read";
  return kind || IsProgram(file) ? ""
                                 : "a file name that ends in .xml, .tmf or .lmf is expected, not " + file;
}

std::string CheckOut(const std::string& file) {
  return KindOf(file) || IsProgram(file)
             ? ""
             : "a file name that ends in .xml, .tmf, .lmf or .raw is expected, not " + file;
}

// Reads a file of any kind as a program.
ExitStatus ReadFile(const Session& session, const std::string& file, ModeListView& document) {
  document = TCBase::Program::NewProgram();
  const ModeFileKind* const kind = KindOf(file);
  if (!kind) return LoadArgument(session, {file}, document);
  document.modes = {Mode{}};
  return LoadModeFile(*kind, PathFromUtf8(file), document.modes.front())
             ? ExitStatus::Success
             : session.Fail(ExitStatus::FileFailed,
                            Message("{1} cannot be read, or is no {2} file", file, kind->name).utf8());
}

// All modes of all files, in their order; the channels are those of the first program among them.
ExitStatus ReadAll(const Session& session, const std::vector<std::string>& files, ModeListView& document) {
  document = TCBase::Program::NewProgram();
  document.modes.clear();
  const auto firstProgram = std::ranges::find_if(files, IsProgram);
  for (auto file = files.begin(); file != files.end(); ++file) {
    ModeListView read;
    const ExitStatus status = ReadFile(session, *file, read);
    if (status != ExitStatus::Success) return status;
    if (file == firstProgram) document.channelInfos = read.channelInfos;
    std::ranges::move(read.modes, std::back_inserter(document.modes));
  }
  return ExitStatus::Success;
}

// Leaves the mode that was asked for alone, and all if none was.
ExitStatus ChooseMode(const Session& session, const ConvertArguments& arguments, ModeListView& document) {
  const std::size_t count = document.modes.size();
  const std::string held = (arguments.in.size() == 1 ? arguments.in.front() + " holds " : "the files hold ") +
                           std::to_string(count);
  if (!arguments.mode) {
    if (count == 1 || IsProgram(arguments.out)) return ExitStatus::Success;
    return session.Fail(ExitStatus::WrongUsage,
                        held + " modes, and such a file takes one: choose it with --mode");
  }
  if (static_cast<std::size_t>(*arguments.mode) > count)
    return session.Fail(ExitStatus::WrongUsage,
                        "there is no mode " + std::to_string(*arguments.mode) + ", " + held);
  document.modes = {document.modes[static_cast<std::size_t>(*arguments.mode) - 1]};
  return ExitStatus::Success;
}

// What is written all the same, but will not be read as it was meant.
void TellOfRows(const Session& session, const std::string& file, const Mode& mode) {
  const int rows = CountModeSteps(mode);
  if (rows == 0) session.status.Print(Message("{1} has no row and cannot be read back.", file).utf8());
  if (rows > TCBase::Program::kMaxModeSteps)
    session.status.Print(Message("{1} has {2} rows, of which the first 48 are read; \"lumarinectl edit "
                                 "--optimize\" leaves 48.",
                                 file, rows)
                             .utf8());
}

ExitStatus Write(const Session& session, const std::string& file, const ModeListView& document) {
  const ModeFileKind* const kind = KindOf(file);
  if (!kind) return SaveProgram(document, PathFromUtf8(file)) ? ExitStatus::Success : ExitStatus::FileFailed;
  std::string data;
  kind->write(document.modes.front(), data);
  if (!WriteFileBytes(PathFromUtf8(file), data)) return ExitStatus::FileFailed;
  if (kind == &kTmfFile) TellOfRows(session, file, document.modes.front());
  return ExitStatus::Success;
}

// What is wrong with the files' names; empty if nothing is.
std::string CheckFiles(const ConvertArguments& arguments) {
  for (const std::string& in : arguments.in) {
    if (std::string fault = CheckIn(in); !fault.empty()) return fault;
    std::error_code error;
    if (std::filesystem::equivalent(PathFromUtf8(in), PathFromUtf8(arguments.out), error))
      return in + " is to be read, give the file to write another name";
  }
  return CheckOut(arguments.out);
}

ExitStatus Convert(const Session& session, const ConvertArguments& arguments) {
  const std::string fault = CheckFiles(arguments);
  if (!fault.empty()) return session.Fail(ExitStatus::WrongUsage, fault);
  ModeListView document;
  ExitStatus status = ReadAll(session, arguments.in, document);
  if (status == ExitStatus::Success) status = ChooseMode(session, arguments, document);
  return status == ExitStatus::Success ? Write(session, arguments.out, document) : status;
}

Run DeclareConvert(CLI::App& app) {
  const auto arguments = std::make_shared<ConvertArguments>();
  // One option for both: one of any number of files would take the last one, too.
  app.add_option_function<std::vector<std::string>>(
         "FILE",
         [arguments](const std::vector<std::string>& files) {
           arguments->in.assign(files.begin(), files.end() - 1);
           arguments->out = files.back();
         },
         "The files to read, .xml, .tmf or .lmf, and last the one to write, which may be .raw")
      ->required()
      ->check(TakesFile(".xml .tmf .lmf .raw"))
      ->expected(2, CLI::detail::expected_max_vector_size)
      ->type_name("");
  app.add_option("--mode", arguments->mode, "Write this mode alone, counted from 1 through all files")
      ->check(CLI::Validator(CheckModeNumber, ""))
      ->type_name("N");
  return [arguments](Session& session) { return Convert(session, *arguments); };
}

}  // namespace

const Command kConvert = {
    "convert",
    "Turn programs and mode files of other tools into one another",
    R"(The end of a name tells what a file is: .xml a light program, .tmf a mode of PLED, .lmf one of LEDControl,
.raw five bytes a second, the percent of channels 1 to 5. Modes read from .tmf and .lmf are named after the file.
A program takes the modes of all files. The others take one: --mode tells which if there are more.
No file that is read is written; if one cannot be read, nothing is.
Examples:
  lumarinectl convert summer.tmf winter.tmf tank.xml         two modes in one program
  lumarinectl convert tank.xml tank.tmf --mode 2             its second mode
  lumarinectl convert tank.xml sunday.xml --mode 2           the same as a program
  lumarinectl convert tank.xml day.raw --mode 1              every second of its day)",
    &DeclareConvert,
};

}  // namespace cli
