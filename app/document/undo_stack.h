#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "app/document/program_snapshot.h"
#include "program/program.h"

namespace app {

/// The editor's history: the program as it was before each change, oldest first, without limit. A command
/// that will change the program takes a snapshot first. A gesture that lasts (a drag, a held key) keeps a
/// copy when it begins, and enters that copy in the history when it ends. User interface thread only.
class UndoStack {
 public:
  /// `program`, the live one, must outlive the stack.
  explicit UndoStack(TCBase::Program::ModeListView& program) : program_(program) {}

  /// Enters the live program in the history. What could be redone is dropped.
  void Snapshot();

  /// Keeps a copy of the live program for CommitPending(). If a copy from an earlier gesture is still kept,
  /// that one stays and no new one is made.
  void BeginPending();
  /// Enters the kept copy in the history if the live program differs from it, as Snapshot() would have done
  /// when the copy was made. If the two are the same, nothing happens, and the copy stays.
  void CommitPending();
  /// Forgets the kept copy.
  void DropPending() { pending_.reset(); }

  /// Goes one entry back. False, and nothing happens, if there is none.
  bool Undo();
  /// Goes one entry forward. False if there is none; at the last entry the program becomes that entry anyway.
  bool Redo();

  /// Empties the history. A kept copy stays.
  void Clear();

  /// Position in the history, 0 to size(). At size() there is nothing to redo.
  std::int32_t index() const { return index_; }
  std::int32_t size() const { return static_cast<std::int32_t>(snapshots_.size()); }

 private:
  ProgramSnapshot Capture();
  void Enter(ProgramSnapshot snapshot);
  void Restore(std::int32_t position);
  bool IsLive(const ProgramSnapshot& snapshot) const;

  std::int32_t index_ = 0;
  TCBase::Program::ModeListView& program_;
  std::vector<ProgramSnapshot> snapshots_;
  std::optional<ProgramSnapshot> pending_;
  /// The snapshot that was taken or put back last. It is most like the live program, so the next snapshot
  /// shares with it what did not change.
  ProgramSnapshot nearest_;
};

}  // namespace app
