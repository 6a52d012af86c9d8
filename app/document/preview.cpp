#include "app/document/preview.h"

#include <utility>

#include "app/document/program_snapshot.h"
#include "program/channel_edit.h"
#include "program/step_group.h"

namespace app {

Preview::Preview(TCBase::Program::StepSelection& selection, UndoStack& undoStack, Refresh refresh,
                 Parts parts)
    : selection_(selection),
      undoStack_(undoStack),
      refresh_(std::move(refresh)),
      parts_(parts),
      before_(selection.document),
      channelBefore_(selection.channel),
      stepBefore_(selection.step) {}

void Preview::Show(const Change& change) {
  PutBack();
  const TCBase::Program::Step* const step = SelectedStep(selection_);
  const std::uint32_t selected = step != nullptr ? step->id : 0;
  isShown_ = true;
  change(selection_.document);
  if (selected != 0) Select(selected);
  refresh_(parts_);
}

void Preview::TakeBack() {
  if (!isShown_) return;
  PutBack();
  refresh_(parts_);
}

bool Preview::Keep() {
  if (!isShown_ || SameProgram(before_, selection_.document)) {
    TakeBack();
    return false;
  }
  TCBase::Program::ModeListView after = std::exchange(selection_.document, before_);
  undoStack_.Snapshot();
  selection_.document = std::move(after);
  isShown_ = false;
  return true;
}

void Preview::PutBack() {
  if (!isShown_) return;
  selection_.document = before_;
  selection_.channel = channelBefore_;
  selection_.step = stepBefore_;
  isShown_ = false;
}

void Preview::Select(std::uint32_t id) {
  const TCBase::Program::StepPlace found = FindStep(selection_.document, id);
  // A step that has gone leaves its channel selected.
  if (found.channel >= 0) selection_.channel = found.channel;
  selection_.step = found.step;
}

}  // namespace app
