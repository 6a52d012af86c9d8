#include "app/document/undo_stack.h"

#include <algorithm>
#include <utility>

namespace app {

void UndoStack::Snapshot() {
  Enter(Capture());
}

void UndoStack::BeginPending() {
  // A copy that is there stays: while a key repeats, and after a press that moved nothing, the older one
  // counts.
  if (!pending_) pending_ = Capture();
}

void UndoStack::CommitPending() {
  // A gesture that changed nothing leaves its copy to the next one, even if a command comes between them; the
  // undo then goes back behind that command as well.
  if (!pending_ || IsLive(*pending_)) return;
  Enter(std::move(*pending_));
  pending_.reset();
}

bool UndoStack::Undo() {
  // The present state is kept for Redo(), unless it is the last entry already.
  if (index_ == size() && !snapshots_.empty() && !IsLive(snapshots_.back())) snapshots_.push_back(Capture());
  if (index_ < 1) return false;
  --index_;
  Restore(index_);
  return true;
}

bool UndoStack::Redo() {
  if (index_ == size()) return false;
  const std::int32_t before = index_;
  index_ = std::min(size() - 1, index_ + 1);
  // The last entry is restored too: that undoes what was changed since without a snapshot.
  Restore(index_);
  return index_ != before;
}

void UndoStack::Clear() {
  snapshots_.clear();
  index_ = 0;
  nearest_ = {};
}

ProgramSnapshot UndoStack::Capture() {
  nearest_ = ProgramSnapshot(program_, nearest_);
  return nearest_;
}

void UndoStack::Enter(ProgramSnapshot snapshot) {
  snapshots_.resize(static_cast<std::size_t>(index_));
  snapshots_.push_back(std::move(snapshot));
  index_ = size();
}

void UndoStack::Restore(std::int32_t position) {
  nearest_ = snapshots_[static_cast<std::size_t>(position)];
  nearest_.CopyTo(program_);
}

bool UndoStack::IsLive(const ProgramSnapshot& snapshot) const {
  TCBase::Program::ModeListView copy;
  snapshot.CopyTo(copy);
  return SameProgram(copy, program_);
}

}  // namespace app
