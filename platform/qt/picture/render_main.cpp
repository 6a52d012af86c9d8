// lumarine-render: draws one picture for lumarinectl, which stays free of Qt.
//
//   lumarine-render FILE MODE OUT png|svg|pdf WIDTH HEIGHT SCALE MINUTE strip|- COMPARED MODE
//
// MODE counts from 1, MINUTE of the day is - for no demo, as is the next for no strip of mixed light.
// COMPARED is the file of the mode that stands behind, empty for none. Nothing is optional: lumarinectl has
// checked what its user typed. Exit status as lumarinectl's own: 0 done, 2 wrong usage, 4 a file.

#include <QGuiApplication>

#include <charconv>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string_view>
#include <system_error>

#include "common/files.h"
#include "common/log.h"
#include "platform/qt/picture/picture.h"
#include "program/program_file.h"

namespace {

constexpr int kSuccess = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;
constexpr int kFileFailed = 4;

struct Arguments {
  std::string_view file;
  std::int32_t mode = 1;
  std::string_view out;
  std::string_view compared;  // empty for none
  std::int32_t comparedMode = 1;
  qt::PictureRequest request;
};

template <class Number>
bool Parse(std::string_view text, Number least, Number most, Number& number) {
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc() && result.ptr == text.data() + text.size() && number >= least &&
         number <= most;
}

bool ParseFormat(std::string_view text, qt::PictureFormat& format) {
  format = text == "png"   ? qt::PictureFormat::Png
           : text == "svg" ? qt::PictureFormat::Svg
                           : qt::PictureFormat::Pdf;
  return text == "png" || text == "svg" || text == "pdf";
}

bool ParseMinute(std::string_view text, std::optional<std::int32_t>& minute) {
  if (text == "-") return true;
  return Parse(text, 0, TCBase::Program::kMinutesPerDay - 1, minute.emplace());
}

bool ParseStrip(std::string_view text, bool& strip) {
  strip = text == "strip";
  return strip || text == "-";
}

std::optional<Arguments> ParseArguments(int count, char** texts) {
  constexpr int kCount = 12;
  constexpr std::int32_t kMost = 1'000'000;
  if (count != kCount) return std::nullopt;
  Arguments arguments;
  qt::PictureRequest& request = arguments.request;
  arguments.file = texts[1];
  arguments.out = texts[3];
  arguments.compared = texts[10];
  const bool good = Parse(texts[2], 1, kMost, arguments.mode) && ParseFormat(texts[4], request.format) &&
                    Parse(texts[5], 1, kMost, request.width) && Parse(texts[6], 1, kMost, request.height) &&
                    Parse(texts[7], 0.01, 100.0, request.scale) &&
                    ParseMinute(texts[8], request.minuteOfDay) && ParseStrip(texts[9], request.strip) &&
                    Parse(texts[11], 1, kMost, arguments.comparedMode);
  return good ? std::optional(arguments) : std::nullopt;
}

// Before Qt looks: no display is needed, and neither the user's language nor the scale of his screen changes
// the picture.
void SettleEnvironment() {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  setenv("LC_ALL", "C.UTF-8", 1);
  for (const char* const name : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI"}) unsetenv(name);
}

// Qt remarks on folders of the user's session, which matter to nothing here.
void ShowFaults(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtCriticalMsg || type == QtFatalMsg) std::cerr << message.toStdString() << '\n';
}

int Fail(int status, std::string_view reason) {
  std::cerr << "lumarinectl: " << reason << '\n';
  return status;
}

// The file's mode becomes the current one.
int Load(std::string_view file, std::int32_t mode, TCBase::Program::ModeListView& document) {
  if (!LoadProgram(PathFromUtf8(file), document)) return kFileFailed;
  if (static_cast<std::size_t>(mode) > document.modes.size())
    return Fail(kWrongUsage, "there is no such mode");
  document.currentMode = mode - 1;
  return kSuccess;
}

int Render(Arguments arguments) {
  TCBase::Program::ModeListView document;
  if (!arguments.compared.empty()) {
    const int loaded = Load(arguments.compared, arguments.comparedMode, document);
    if (loaded != kSuccess) return loaded;
    arguments.request.compared = CurrentMode(document);
  }
  const int loaded = Load(arguments.file, arguments.mode, document);
  if (loaded != kSuccess) return loaded;
  const std::optional<std::string> picture = DrawPicture(document, arguments.request);
  if (!picture) return Fail(kFailed, "there is not enough memory for a picture of this size");
  return WriteFileBytes(PathFromUtf8(arguments.out), *picture) ? kSuccess : kFileFailed;
}

}  // namespace

int main(int argc, char** argv) {
  const auto arguments = ParseArguments(argc, argv);
  if (!arguments) return Fail(kWrongUsage, "lumarine-render is there for \"lumarinectl render\", start that");
  SettleEnvironment();
  qInstallMessageHandler(ShowFaults);
  // Qt keeps both for as long as it lives; the arguments are not for it.
  int qtArgumentCount = 1;
  QGuiApplication application(qtArgumentCount, argv);
  statusLog.textHandler = [](const std::string& text) { std::cerr << text; };
  statusLog.wakeHandler = [] { statusLog.Drain(); };
  try {
    return Render(*arguments);
  } catch (const std::bad_alloc&) {
    return Fail(kFailed, "there is not enough memory for a picture of this size");
  }
}
