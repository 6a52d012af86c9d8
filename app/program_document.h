#pragma once

// The program's file: new, load, save, the question before work is lost, and what is reset when. User
// interface thread.

#include <filesystem>

#include "app/chart_input.h"
#include "app/ctrls.h"
#include "app/ports.h"
#include "app/saved_baseline.h"
#include "app/undo_stack.h"
#include "program/program.h"

namespace app {

class ProgramDocument {
 public:
  /// All of these outlive the document.
  ProgramDocument(const Shell& shell, TCBase::Program::ModeListView& program, UndoStack& undoStack,
                  Ctrls& ctrls, ChartInput& chartInput, SavedBaseline& savedProgram);

  /// Asks whether to save, and saves, if the program is modified. False if it must not be given up: the user
  /// cancelled, or saving failed.
  bool AskToSave();

  /// Starts over with the built-in modes, unless AskToSave says no. What was saved last stays the measure of
  /// what is modified: a new program after a loaded one is a change of it.
  void NewProgram();

  /// The command: asks to save, asks for a file, loads it.
  void Load();
  /// The command: to the current file, or as SaveFileAs() if there is none.
  bool Save();
  /// Asks for a file and saves to it. False if the user cancelled or saving failed.
  bool SaveFileAs();

  /// Loads a file and makes it the current one. False, with everything as it was, if that fails.
  bool LoadFile(const std::filesystem::path& path);
  /// Saves to a file and makes it the current one. False if that fails.
  bool SaveFile(const std::filesystem::path& path);

  /// Makes a file, or none if the path is empty, the current one: in the window's title and for the next
  /// start.
  void SetPath(const std::filesystem::path& path);
  /// After the document was replaced: no history, the first mode, lists and chart anew. A selection stays;
  /// its users check it.
  void AfterLoad();
  /// The live document counts as saved from now on.
  void SyncBaseline();

 private:
  const Shell& shell_;
  TCBase::Program::ModeListView& program_;
  UndoStack& undoStack_;
  Ctrls& ctrls_;
  ChartInput& chartInput_;
  SavedBaseline& savedProgram_;
  std::filesystem::path path_;  // empty for a program without a file
};

}  // namespace app
