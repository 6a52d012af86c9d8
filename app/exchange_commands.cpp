// Modes to and from the files of other tools.

#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>

#include "app/commands.h"
#include "app/save_question.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "program/mode_commands.h"
#include "program/mode_file.h"
#include "program/tmf.h"

namespace app {

using namespace TCBase::Program;

namespace {

struct ExchangeFormat {
  FileFilter filter;
  const ModeFileKind& kind;
};

// In the order of Commands::Exchange.
const ExchangeFormat kFormats[] = {
    {{u"TMF PLed File", u"*.TMF"}, kTmfFile},
    {{u"LMF LEDControl File", u"*.LMF"}, kLmfFile},
    {{u"RAW Channel File", u"*.RAW"}, kRawFile},
};

}  // namespace

// The entry in the history is made before the dialog, and stays when the user cancels.
void Commands::ImportModes(int format) {
  const auto& [filter, kind] = kFormats[format];
  const auto files = shell_.questions.AskOpenFiles(filter, true);
  if (files.empty()) return;
  for (const std::filesystem::path& file : files) {
    // A file that cannot be read or is none of the kind adds nothing, and the log says so.
    Mode mode;
    if (LoadModeFile(kind, file, mode)) state_.program.modes.push_back(std::move(mode));
  }
  ShowLastMode();
}

void Commands::ExportMode(int format) {
  const auto& [filter, kind] = kFormats[format];
  std::string data;
  kind.write(state_.CurrentMode(), data);
  std::filesystem::path path = PathFromUtf8(state_.CurrentMode().name);
  if (!AskWhereToSave(shell_.questions, filter, path)) return;
  if (WriteFileBytes(path, data)) LogStatus(Message("Exported {1}", path));
}

// No menu item: for trying controllers and the other tools out. The file goes into the working folder.
void Commands::AddRandomMode(int) {
  AppendRandomMode(state_.program);
  const Mode& mode = state_.CurrentMode();
  std::string data;
  WriteTmf(mode, data);
  const std::filesystem::path path = PathFromUtf8(mode.name + std::string(kTmfFile.extension));
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
