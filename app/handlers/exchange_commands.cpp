#include "app/handlers/exchange_commands.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>

#include "app/document/save_question.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "program/mode_commands.h"
#include "program/tmf.h"

namespace app {

using namespace TCBase::Program;

const ExchangeFormat kTmf{{u"TMF PLed File", u"*.TMF"}, kTmfFile};
const ExchangeFormat kLmf{{u"LMF LEDControl File", u"*.LMF"}, kLmfFile};
const ExchangeFormat kRaw{{u"RAW Channel File", u"*.RAW"}, kRawFile};

Changed ImportModes(CommandContext& context, const ExchangeFormat* format) {
  AppState& state = context.state;
  const auto files = context.shell.questions.AskOpenFiles(format->filter, true);
  if (files.empty()) return Changed::No;
  for (const std::filesystem::path& file : files) {
    // A file that cannot be read or is none of the kind adds nothing, and the log says so.
    Mode mode;
    if (LoadModeFile(format->kind, file, mode)) state.program.modes.push_back(std::move(mode));
  }
  state.program.currentMode = static_cast<std::int32_t>(state.program.modes.size()) - 1;
  ForgetSelection(state.selection);
  return Changed::Yes;
}

Changed ExportMode(CommandContext& context, const ExchangeFormat* format) {
  const Mode& mode = context.state.CurrentMode();
  std::string data;
  format->kind.write(mode, data);
  std::filesystem::path path = PathFromUtf8(mode.name);
  if (!AskWhereToSave(context.shell.questions, format->filter, path)) return Changed::No;
  if (WriteFileBytes(path, data)) LogStatus(Message("Exported {1}", path));
  return Changed::No;
}

Changed AddRandomMode(CommandContext& context) {
  AppState& state = context.state;
  AppendRandomMode(state.program);
  ForgetSelection(state.selection);
  const Mode& mode = state.CurrentMode();
  std::string data;
  WriteTmf(mode, data);
  WriteFileBytes(PathFromUtf8(mode.name + std::string(kTmfFile.extension)), data);
  return Changed::Yes;
}

}  // namespace app
