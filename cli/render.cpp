// The chart of a mode as a picture: render. The drawing itself is a helper's, which has Qt; here is what the
// user may ask for.

#include <algorithm>
#include <charconv>
#include <memory>
#include <optional>

#include "cli/commands.h"
#include "cli/options.h"
#include "cli/program_argument.h"
#include "cli/text.h"
#include "common/helper_program.h"

namespace cli {

namespace {

constexpr int kLeastPixels = 100;
constexpr int kMostPixels = 10'000;
constexpr double kLeastScale = 0.25;
constexpr double kMostScale = 8.0;
// A quarter of a gigabyte in memory.
constexpr double kMostPngPixels = 64e6;

struct RenderArguments {
  ProgramArgument program;
  std::string out;  // UTF-8
  int width = 900;
  int height = 600;
  std::string scale = "1";
  std::string time;
  bool strip = false;
  ProgramArgument compared{.mode = 0};  // no file: none; no mode: that of the program
};

template <class Number>
std::optional<Number> ParseNumber(const std::string& text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

// "png", "svg" or "pdf" by the end of a file's name; nothing for any other.
std::optional<std::string> FormatOf(const std::string& file) {
  constexpr std::size_t kEndLength = 4;
  if (file.size() <= kEndLength) return std::nullopt;
  std::string end = file.substr(file.size() - kEndLength);
  for (char& letter : end)
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  if (end != ".png" && end != ".svg" && end != ".pdf") return std::nullopt;
  return end.substr(1);
}

// What the options may say: checks that answer the text of a fault, or nothing.

std::string CheckPictureFile(const std::string& text) {
  return FormatOf(text) ? "" : "a file name that ends in .png, .svg or .pdf is expected, not " + text;
}

std::string CheckSize(const std::string& text) {
  const auto pixels = ParseNumber<int>(text);
  return pixels && *pixels >= kLeastPixels && *pixels <= kMostPixels
             ? ""
             : "100 to 10000 pixels are expected, not " + text;
}

std::string CheckScale(const std::string& text) {
  const auto scale = ParseNumber<double>(text);
  return scale && *scale >= kLeastScale && *scale <= kMostScale
             ? ""
             : "a number from 0.25 to 8 is expected, not " + text;
}

ExitStatus Explain(const Session& session, const platform::HelperResult& result) {
  switch (result.outcome) {
    case platform::HelperResult::Ended:
      // It has said why, if it failed.
      return static_cast<ExitStatus>(result.status);
    case platform::HelperResult::Stopped:
      return session.Fail(ExitStatus::OperationFailed, "lumarine-render was stopped, there is no picture");
    case platform::HelperResult::Missing:
      return session.Fail(
          ExitStatus::OperationFailed,
          "lumarine-render, which draws the pictures, cannot be started; it is built with the "
          "option LUMARINE_PICTURES, over Qt, and stands beside lumarinectl");
    case platform::HelperResult::Unsupported:
      break;
  }
  return session.Fail(ExitStatus::WrongUsage, "pictures are made by lumarinectl on Linux only");
}

ExitStatus Render(const Session& session, const RenderArguments& arguments) {
  const std::string format = *FormatOf(arguments.out);
  const double scale = *ParseNumber<double>(arguments.scale);
  if (format == "png" && arguments.width * scale * arguments.height * scale > kMostPngPixels)
    return session.Fail(ExitStatus::WrongUsage,
                        "a PNG has at most 64 million pixels; take a smaller --scale or size, or an SVG");
  // The helper would find these faults too, but knows nothing of the command line.
  TCBase::Program::ModeListView document;
  const ExitStatus loaded = LoadArgument(session, arguments.program, document);
  if (loaded != ExitStatus::Success) return loaded;

  ProgramArgument compared = arguments.compared;
  if (compared.mode == 0) compared.mode = arguments.program.mode;
  if (!compared.file.empty()) {
    const ExitStatus found = LoadArgument(session, compared, document);
    if (found != ExitStatus::Success) return found;
  }

  const auto minute = ParseTimeOfDay(arguments.time);
  return Explain(
      session,
      platform::RunHelper("lumarine-render",
                          {arguments.program.file, std::to_string(arguments.program.mode), arguments.out,
                           format, std::to_string(arguments.width), std::to_string(arguments.height),
                           arguments.scale, minute ? std::to_string(*minute) : "-",
                           arguments.strip ? "strip" : "-", compared.file, std::to_string(compared.mode)}));
}

void DeclareSize(CLI::App& app, const char* option, int& size, const char* what) {
  app.add_option(option, size, what)->check(CLI::Validator(CheckSize, ""))->type_name("PIXELS");
}

Run DeclareRender(CLI::App& app) {
  const auto arguments = std::make_shared<RenderArguments>();
  DeclareFile(app, arguments->program);
  app.add_option("OUT", arguments->out, "The picture to write: .png, .svg or .pdf")
      ->required()
      ->check(CLI::Validator(CheckPictureFile, ""))
      ->check(TakesFile(".png .svg .pdf"))
      ->type_name("");
  DeclareMode(app, arguments->program, false);
  DeclareSize(app, "--width", arguments->width, "Width of the chart, 900 by default");
  DeclareSize(app, "--height", arguments->height, "Height of the chart, 600 by default");
  app.add_option("--scale", arguments->scale, "Pixels of a PNG for each of these, 0.25 to 8")
      ->check(CLI::Validator(CheckScale, ""))
      ->type_name("FACTOR");
  app.add_option("--time", arguments->time, "Show what shines at this time")
      ->check(CLI::Validator(CheckTimeOfDay, ""))
      ->type_name("HH:MM");
  app.add_flag("--strip", arguments->strip, "Show the light of all channels together above them");
  CLI::Option* const compare =
      app.add_option("--compare", arguments->compared.file, "Show a mode of this file as thin lines behind")
          ->check(TakesFile(".xml"))
          ->type_name("FILE");
  app.add_option("--compare-mode", arguments->compared.mode, "Which mode of it, the one of --mode by default")
      ->needs(compare)
      ->check(CLI::Validator(CheckModeNumber, ""))
      ->type_name("N");
  return [arguments](Session& session) { return Render(session, *arguments); };
}

}  // namespace

const Command kRender = {
    "render",
    "Draw a mode's day into a picture",
    R"(The picture is the chart of the desktop program. The modes of a file count from 1, the first is drawn by default.
In a PDF a pixel is a point. The size goes from 100 to 10000; a PNG has at most 64 million pixels.
Examples:
  lumarinectl render tank.xml tank.png
  lumarinectl render tank.xml sunday.svg --mode 2 --width 1200
  lumarinectl render tank.xml noon.png --time 12:00 --scale 2
  lumarinectl render tank.xml both.png --compare tank.xml --compare-mode 2)",
    &DeclareRender,
};

}  // namespace cli
