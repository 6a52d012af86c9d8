#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "app/document/program_snapshot.h"
#include "program/program.h"

namespace app {

/// The editor's history: the program as it was before each change, oldest first, without limit. A command
/// that will change the program takes a snapshot first. A gesture that lasts (a drag, a held key) begins a
/// pending one at its start and commits it at its end. User interface thread only.
class UndoStack {
 public:
  /// `program`, the live one, must outlive the stack.
  explicit UndoStack(TCBase::Program::ModeListView& program) : program_(program) {}

  /// Enters the live program in the history. What could be redone is dropped.
  void Snapshot();

  /// Keeps a copy of the live program for CommitPending(). A copy that is still kept from an earlier gesture
  /// stays instead.
  void BeginPending();
  /// Enters the kept copy in the history, as Snapshot() would have done then, if the live program differs
  /// from it. If not, nothing happens, and the copy stays.
  void CommitPending();
  /// Forgets the kept copy.
  void DropPending() { pending_.reset(); }

  /// Puts the last entry before the present one back. False, and nothing happens, if there is none.
  bool Undo();
  /// Goes an entry forward. False if there is none; at the last entry the program becomes that entry anyway.
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
  /// The last one taken or put back, which is most like the live program: what the next one shares with.
  ProgramSnapshot nearest_;
};

}  // namespace app
