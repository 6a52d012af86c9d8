// Modes to and from the files of other tools.

#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>

#include "app/commands.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "program/lmf.h"
#include "program/random_mode.h"
#include "program/raw.h"
#include "program/tmf.h"

namespace app {

using namespace TCBase::Program;

namespace {

struct ExchangeFormat {
  FileFilter filter;
  bool (*read)(std::string_view data, Mode& mode);  // null: written only
  bool (*write)(const Mode& mode, std::string& data);
};

// In the order of Commands::Exchange.
constexpr ExchangeFormat kFormats[] = {
    {{u"TMF PLed File", u"*.TMF"}, &ReadTmf, &WriteTmf},
    {{u"LMF LEDControl File", u"*.LMF"}, &ReadLmf, &WriteLmf},
    {{u"RAW Channel File", u"*.RAW"}, nullptr, &WriteRaw},
};

/// A file that cannot be read or is none of the format adds nothing, and the log says so.
void ImportFile(const ExchangeFormat& format, const std::filesystem::path& path, ModeListView& program) {
  LogStatus(Message("Loading {1}", path));
  std::string data;
  if (!ReadFileBytes(path, data)) {
    LogStatus(Message("Error opening file"));
    return;
  }
  Mode mode;
  if (!format.read(data, mode)) return;
  mode.name = Utf8FromPath(path.stem());
  program.modes.push_back(std::move(mode));
}

}  // namespace

// The entry in the history is made before the dialog, and stays when the user cancels.
void Commands::ImportModes(int format) {
  const ExchangeFormat& kind = kFormats[format];
  const auto files = shell_.questions.AskOpenFiles(kind.filter, true);
  if (files.empty()) return;
  for (const std::filesystem::path& file : files) ImportFile(kind, file, state_.program);
  ShowLastMode();
}

void Commands::ExportMode(int format) {
  const ExchangeFormat& kind = kFormats[format];
  std::string data;
  kind.write(state_.CurrentMode(), data);
  std::filesystem::path path = PathFromUtf8(state_.CurrentMode().name);
  if (shell_.questions.AskSaveFile(kind.filter, path)) WriteFileBytes(path, data);
}

// No menu item: for trying controllers and the other tools out. The file goes into the working folder.
void Commands::AddRandomMode(int) {
  Mode mode;
  mode.name = "Rand_" + std::to_string(state_.program.modes.size());
  FillRandomMode(mode);
  std::string data;
  WriteTmf(mode, data);
  const std::filesystem::path path = PathFromUtf8(mode.name + ".tmf");
  state_.program.modes.push_back(std::move(mode));
  ShowLastMode();
  WriteFileBytes(path, data);
}

void Commands::ShowLastMode() {
  state_.program.currentMode = static_cast<std::int32_t>(state_.program.modes.size()) - 1;
  state_.selection.channel = state_.selection.step = -1;
  state_.ctrls->FillModeList();
  state_.chartInput.InvalidateChart();
}

}  // namespace app
