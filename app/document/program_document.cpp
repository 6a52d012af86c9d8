#include "app/document/program_document.h"

#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/document/save_question.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"

namespace app {

namespace {

namespace fs = std::filesystem;
constexpr FileFilter kProgramFilter{u"XML Program", u"*.XML"};
constexpr char kProgramName[] = "Lumarine";
}  // namespace

ProgramDocument::ProgramDocument(const Shell& shell, TCBase::Program::ModeListView& program,
                                 UndoStack& undoStack, const TCBase::DemoState& demo,
                                 SavedBaseline& savedProgram, Refresh refresh)
    : shell_(shell),
      program_(program),
      undoStack_(undoStack),
      demo_(demo),
      savedProgram_(savedProgram),
      refresh_(std::move(refresh)),
      recoveryCopies_(shell.recoveryFolder),
      crashRecovery_(shell.stateFolder) {}

bool ProgramDocument::AskToSave() {
  // A program whose save failed counts as saved; the question is all that is left where no copy is.
  if (SameProgram(program_, savedProgram_.copy) && !MayBeLost()) return true;
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
  StartOver(TCBase::Program::NewProgram());
}

bool ProgramDocument::StartOver(TCBase::Program::ModeListView program) {
  if (!AskToSave()) return false;
  program_ = std::move(program);
  SetPath({});
  AfterLoad();
  return true;
}

void ProgramDocument::Load() {
  if (!AskToSave()) return;
  const std::vector<std::filesystem::path> files = shell_.questions.AskOpenFiles(kProgramFilter, false);
  if (!files.empty()) LoadAndShow(files.front());
}

bool ProgramDocument::LoadAndShow(const std::filesystem::path& path) {
  if (!LoadFile(path)) return false;
  AfterLoad();
  SyncBaseline();
  return true;
}

bool ProgramDocument::Open(const std::vector<std::filesystem::path>& files) {
  if (files.empty()) return false;
  // The path outlives the run as that of the last program, and the working folder does not.
  std::error_code error;
  std::filesystem::path path = std::filesystem::absolute(files.front(), error);
  if (error) path = files.front();
  if (demo_.IsRunning() || !shell_.mainWindow.TakesInput()) {
    LogStatus(Message("{1} is not opened while a demo runs or a dialog is open", path));
    return false;
  }
  if (files.size() > 1) LogStatus(Message("Only one file can be open: {1}", path));
  return AskToSave() && LoadAndShow(path);
}

bool ProgramDocument::OfferRecovered() {
  return OfferLeftBehind() || OfferCopies();
}

bool ProgramDocument::OfferLeftBehind() {
  for (CrashRecovery::LeftBehind& left : crashRecovery_.Find()) {
    const TCBase::Program::RecoveryFile& content = left.content;
    if (IsSaved(content)) {
      CrashRecovery::Discard(std::move(left));
      continue;
    }
    const Question question{
        Message("Recovered program").ToWide(),
        Message(
            "The program did not end properly. What was not saved of {1} was kept: {2} modes, as they were "
            "at {3}. Restore them?\r\n\"No\" discards them, \"Cancel\" keeps them for the next start.",
            content.file.empty() ? Translate("New program") : content.file,
            static_cast<std::int32_t>(content.document.modes.size()), ToMinuteText(content.changed))
            .ToWide(),
        Buttons::YesNoCancel, Icon::Warning};
    const Answer answer = shell_.questions.Ask(question);
    if (answer == Answer::No) CrashRecovery::Discard(std::move(left));
    if (answer != Answer::Yes) continue;
    Restore(std::move(left));
    return true;
  }
  return false;
}

// The run ended after it had saved, and before it had cleared up.
bool ProgramDocument::IsSaved(const TCBase::Program::RecoveryFile& recovery) const {
  const fs::path path = PathFromUtf8(recovery.file);
  std::error_code ignored;
  TCBase::Program::ModeListView saved = TCBase::Program::NewProgram();
  return !path.empty() && fs::is_regular_file(path, ignored) && TCBase::Program::LoadProgram(path, saved) &&
         SameProgram(saved, recovery.document);
}

void ProgramDocument::Restore(CrashRecovery::LeftBehind left) {
  const fs::path path = PathFromUtf8(left.content.file);
  // What is saved is what stands in the file now. A program without one counts from the built-in one.
  savedProgram_.copy = TCBase::Program::NewProgram();
  std::error_code ignored;
  if (!path.empty() && fs::is_regular_file(path, ignored))
    TCBase::Program::LoadProgram(path, savedProgram_.copy);
  program_ = std::move(left.content.document);
  const std::int32_t current = program_.currentMode;
  SetPath(path);
  mark_ = left.content.mark;
  AfterLoad();
  program_.currentMode = current;
  refresh_(part::kModeList | part::kChart);
  crashRecovery_.Adopt(std::move(left));
  LogStatus(Message("Restored what was not saved. Save it to keep it."));
}

bool ProgramDocument::IsUnsaved() const {
  if (MayBeLost()) return true;
  if (SameProgram(program_, savedProgram_.copy)) return false;
  // A new program counts as a change of what was loaded before it, but nothing of it can be lost.
  return !path_.empty() || !SameProgram(program_, TCBase::Program::NewProgram());
}

void ProgramDocument::KeepForCrash(double now) {
  if (crashRecovery_.IsTimeToLook(now)) crashRecovery_.Follow({program_, IsUnsaved(), path_, mark_}, now);
}

bool ProgramDocument::OfferCopies() {
  for (const RecoveryCopies::Copy& copy : recoveryCopies_.Find()) {
    // It may have been loaded by hand, and "No" must not delete the file that is open.
    if (std::error_code ignored; fs::equivalent(copy.path, path_, ignored)) continue;
    const Question question{Message("Recovered program").ToWide(),
                            Message("{1} could not be saved, but a copy of it was kept. Open the copy?\r\n"
                                    "\"No\" deletes it, \"Cancel\" keeps it for the next start.",
                                    copy.file)
                                .ToWide(),
                            Buttons::YesNoCancel, Icon::Warning};
    const Answer answer = shell_.questions.Ask(question);
    if (answer == Answer::Yes && OpenRecovered(copy)) return true;
    if (answer == Answer::No) RecoveryCopies::Discard(copy);
  }
  return false;
}

bool ProgramDocument::OpenRecovered(const RecoveryCopies::Copy& copy) {
  TCBase::Program::ModeListView loaded = TCBase::Program::NewProgram();
  if (!TCBase::Program::LoadProgram(copy.path, loaded)) return false;
  LogStatus(Message("Opened the copy of {1}. Save it under a name of your choice.", copy.file));
  std::swap(program_, loaded);
  // The program has no file now, so that nothing is replaced unasked that was saved under the old name since.
  SetPath({});
  AfterLoad();
  recoveryCopies_.Adopt(copy);
  return true;
}

bool ProgramDocument::Save() {
  if (path_.empty()) return SaveFileAs();
  if (HasChangedOnDisk()) {
    Question question{Message("File has changed").ToWide(),
                      Message("{1} was changed by another program since it was opened here. Replace it?\r\n"
                              "\"No\" asks for another name.",
                              path_)
                          .ToWide(),
                      Buttons::YesNoCancel, Icon::Warning};
    question.enterSaysNo = true;
    const Answer answer = shell_.questions.Ask(question);
    if (answer == Answer::No) return SaveFileAs();
    if (answer != Answer::Yes) return false;
  }
  // Before the write: a program whose save failed counts as saved all the same, and the next question for it
  // comes with the next change.
  SyncBaseline();
  return SaveFile(std::filesystem::path(path_));
}

bool ProgramDocument::SaveFileAs() {
  std::filesystem::path path;
  // Choosing the current file again is asked about only where somebody else has written there.
  const fs::path own = HasChangedOnDisk() ? fs::path() : path_;
  if (!AskWhereToSave(shell_.questions, kProgramFilter, path, own)) return false;
  SetPath(path);
  SyncBaseline();
  return SaveFile(path);
}

bool ProgramDocument::HasChangedOnDisk() const {
  std::string bytes;
  return mark_ != 0 && ReadFileBytes(path_, bytes) && ContentMark(bytes) != mark_;
}

bool ProgramDocument::LoadFile(const std::filesystem::path& path) {
  TCBase::Program::ModeListView loaded = TCBase::Program::NewProgram();
  std::uint64_t mark = 0;
  if (!TCBase::Program::LoadProgram(path, loaded, &mark)) return false;
  LogStatus(Message("Loaded program file {1}", path));
  std::swap(program_, loaded);
  SetPath(path);
  mark_ = mark;
  return true;
}

bool ProgramDocument::SaveFile(const std::filesystem::path& path) {
  std::string reason;
  std::uint64_t mark = 0;
  if (!TCBase::Program::SaveProgram(program_, path, &reason, &mark)) {
    KeepUnsaved(path, reason);
    return false;
  }
  recoveryCopies_.OnSaved(path);
  unsaved_.reset();
  SetPath(path);
  mark_ = mark;
  return true;
}

void ProgramDocument::KeepUnsaved(const std::filesystem::path& path, const std::string& reason) {
  unsaved_ = recoveryCopies_.Keep(program_, path);
  Message what("{1} could not be saved: {2}", path, reason);
  Message then = MayBeLost() ? Message(
                                   "No copy could be kept either. Save the program at another place "
                                   "before you close it.")
                             : Message("A copy is kept in {1}. The next start offers to open it.", *unsaved_);
  shell_.questions.Ask({Message("Program not saved").ToWide(), what.ToWide() + u"\r\n\r\n" + then.ToWide(),
                        Buttons::Ok, Icon::Error});
}

bool ProgramDocument::MayBeLost() const {
  // Another Lumarine may have offered the copy, and its user may have deleted it.
  std::error_code ignored;
  return unsaved_ && !fs::is_regular_file(*unsaved_, ignored);
}

void ProgramDocument::SetPath(const std::filesystem::path& path) {
  path_ = path;
  mark_ = 0;
  refresh_(part::kTitle);
  shell_.settings.SetValue("last_open_file", Utf8FromPath(path));
}

void ProgramDocument::ShowTitle() {
  const std::string shown = path_.empty() ? Translate("New program") : Utf8FromPath(path_);
  shell_.mainWindow.SetTitle(WideFromUtf8(std::string(kProgramName) + " - " + shown));
}

void ProgramDocument::AfterLoad() {
  undoStack_.Clear();
  // A gesture that changed nothing has left its copy: that of the program that is gone.
  undoStack_.DropPending();
  recoveryCopies_.OnReplaced();
  unsaved_.reset();
  program_.currentMode = 0;
  refresh_(part::kModeList | part::kScrollBar | part::kZoomSlider | part::kReadOuts | part::kPower |
           part::kChart);
}

void ProgramDocument::SyncBaseline() {
  savedProgram_.copy.channelInfos = program_.channelInfos;
  savedProgram_.copy.modes = program_.modes;
  // Its curves may stand behind the program's own.
  refresh_(part::kChart);
}

}  // namespace app
