#pragma once

// The program's file: new, load, save, the question before work is lost, and what is reset when. User
// interface thread.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "app/document/crash_recovery.h"
#include "app/document/recovery_copies.h"
#include "app/document/saved_baseline.h"
#include "app/document/undo_stack.h"
#include "app/window/ports.h"
#include "app/window/refresh.h"
#include "program/demo_state.h"
#include "program/program.h"

namespace app {

class ProgramDocument {
 public:
  /// All of these outlive the document.
  ProgramDocument(const Shell& shell, TCBase::Program::ModeListView& program, UndoStack& undoStack,
                  const TCBase::DemoState& demo, SavedBaseline& savedProgram, Refresh refresh);

  /// Asks whether to save, and saves, if the program is modified or a save of it failed and there is no copy.
  /// False if it must not be given up: the user cancelled, or saving failed.
  bool AskToSave();

  /// Starts over with the built-in modes, unless AskToSave says no. What was saved last stays the measure of
  /// what is modified: a new program after a loaded one is a change of it.
  void NewProgram();
  /// The same with this program. False if AskToSave said no.
  bool StartOver(TCBase::Program::ModeListView program);

  /// Carries the command out: asks to save, asks for a file, loads it.
  void Load();
  /// A file that the user brought, by the command line or by dropping it on the window: asks to save, loads
  /// it. A relative path counts from the working folder. Says so in the log, and does nothing more, if that
  /// cannot be now: while a demo runs or a dialog waits, as the command cannot be given then either. Of
  /// several files the first is opened, and the log says so. True if it was opened.
  bool Open(const std::vector<std::filesystem::path>& files);
  /// Offers what runs of the program left behind that did not end properly, and the copies of programs that
  /// could not be saved, until the user opens one. The first is then what it was, not saved yet; such a copy
  /// is a program without a file. True if one was opened. Asked once, at the start.
  bool OfferRecovered();
  /// Keeps what is not saved for the case that this run ends by force. To be called ten times a second, `now`
  /// in seconds of any clock.
  void KeepForCrash(double now);
  /// Waits until all that KeepForCrash has handed on is on disk.
  void SettleRecovery() { crashRecovery_.Settle(); }
  /// This run ends properly.
  void EndRecovery() { crashRecovery_.End(); }
  /// Carries the command out: saves to the current file, or as SaveFileAs() if there is none. Asks before it
  /// replaces what somebody else has written there since it was loaded or saved here.
  bool Save();
  /// Asks for a file and saves to it. False if the user cancelled or saving failed.
  bool SaveFileAs();

  /// Loads a file and makes it the current one. False, with everything as it was, if that fails.
  bool LoadFile(const std::filesystem::path& path);
  /// Saves to a file and makes it the current one. False if that fails: the user has been told then, and a
  /// copy is kept for the next start.
  bool SaveFile(const std::filesystem::path& path);

  /// Makes a file, or none if the path is empty, the current one: in the window's title and for the next
  /// start.
  void SetPath(const std::filesystem::path& path);
  /// The current file in the window's title, in the language in use.
  void ShowTitle();
  /// After the document was replaced: no history nor anything that waits to enter it, the first mode,
  /// controls and chart anew. A selection stays; its users check it.
  void AfterLoad();
  /// The live document counts as saved from now on.
  void SyncBaseline();

 private:
  /// Loads a file as the command does, once it is known. False if that fails.
  bool LoadAndShow(const std::filesystem::path& path);
  bool OfferLeftBehind();
  bool OfferCopies();
  bool IsSaved(const TCBase::Program::RecoveryFile& recovery) const;
  void Restore(CrashRecovery::LeftBehind left);
  bool OpenRecovered(const RecoveryCopies::Copy& copy);
  /// Something would be lost if the process ended now.
  bool IsUnsaved() const;
  /// The current file is not what was loaded or saved here last.
  bool HasChangedOnDisk() const;
  /// Keeps the program that could not be saved to `path`, and tells the user.
  void KeepUnsaved(const std::filesystem::path& path, const std::string& reason);
  /// A save has failed, and there is no copy, or it is gone.
  bool MayBeLost() const;

  const Shell& shell_;
  TCBase::Program::ModeListView& program_;
  UndoStack& undoStack_;
  const TCBase::DemoState& demo_;
  SavedBaseline& savedProgram_;
  const Refresh refresh_;
  RecoveryCopies recoveryCopies_;
  CrashRecovery crashRecovery_;
  std::filesystem::path path_;  // empty for a program without a file
  std::uint64_t mark_ = 0;      // of its content as it was loaded or saved here last; 0 if it was neither
  // Once a save has failed, where its copy is; an empty path if none could be kept.
  std::optional<std::filesystem::path> unsaved_;
};

}  // namespace app
