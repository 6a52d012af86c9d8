#include "app/program_document.h"

#include <string>
#include <utility>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"

namespace app {

namespace {
constexpr FileFilter kProgramFilter{u"XML Program", u"*.XML"};
constexpr char kProgramName[] = "Lumarine";
}  // namespace

ProgramDocument::ProgramDocument(const Shell& shell, TCBase::Program::ModeListView& program,
                                 UndoStack& undoStack, Ctrls& ctrls, ChartInput& chartInput,
                                 SavedBaseline& savedProgram)
    : shell_(shell),
      program_(program),
      undoStack_(undoStack),
      ctrls_(ctrls),
      chartInput_(chartInput),
      savedProgram_(savedProgram) {}

bool ProgramDocument::AskToSave() {
  if (SameProgram(program_, savedProgram_.copy)) return true;
  const Question question{Message("Program modified").ToWide(), Message("Save changes?").ToWide(),
                          Buttons::YesNoCancel};
  switch (shell_.questions.Ask(question)) {
    case Answer::Yes:
      return Save();
    case Answer::No:
      return true;
    default:
      return false;
  }
}

void ProgramDocument::NewProgram() {
  if (!AskToSave()) return;
  program_ = TCBase::Program::NewProgram();
  SetPath({});
  AfterLoad();
}

void ProgramDocument::Load() {
  if (!AskToSave()) return;
  const std::vector<std::filesystem::path> files = shell_.questions.AskOpenFiles(kProgramFilter, false);
  if (files.empty() || !LoadFile(files.front())) return;
  AfterLoad();
  SyncBaseline();
}

bool ProgramDocument::Save() {
  if (path_.empty()) return SaveFileAs();
  // Before the write: a program whose save failed counts as saved all the same, and the next question for it
  // comes with the next change.
  SyncBaseline();
  return SaveFile(std::filesystem::path(path_));
}

bool ProgramDocument::SaveFileAs() {
  std::filesystem::path path;
  if (!shell_.questions.AskSaveFile(kProgramFilter, path)) return false;
  SetPath(path);
  SyncBaseline();
  return SaveFile(path);
}

bool ProgramDocument::LoadFile(const std::filesystem::path& path) {
  TCBase::Program::ModeListView loaded = TCBase::Program::NewProgram();
  if (!TCBase::Program::LoadProgram(path, loaded)) return false;
  LogStatus(Message("Loaded program file {1}", path));
  std::swap(program_, loaded);
  SetPath(path);
  return true;
}

bool ProgramDocument::SaveFile(const std::filesystem::path& path) {
  if (!TCBase::Program::SaveProgram(program_, path)) return false;
  SetPath(path);
  return true;
}

void ProgramDocument::SetPath(const std::filesystem::path& path) {
  path_ = path;
  const std::string utf8 = Utf8FromPath(path);
  const std::string shown = path.empty() ? Translate("New program") : utf8;
  shell_.mainWindow.SetTitle(WideFromUtf8(std::string(kProgramName) + " - " + shown));
  shell_.settings.SetValue("last_open_file", utf8);
}

void ProgramDocument::AfterLoad() {
  undoStack_.Clear();
  program_.currentMode = 0;
  ctrls_.FillModeList();
  chartInput_.InvalidateChart();
}

void ProgramDocument::SyncBaseline() {
  savedProgram_.copy.channelInfos = program_.channelInfos;
  savedProgram_.copy.modes = program_.modes;
}

}  // namespace app
