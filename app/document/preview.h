#pragma once

#include <cstdint>
#include <functional>

#include "app/document/undo_stack.h"
#include "app/window/refresh.h"
#include "program/program.h"

namespace app {

/// A change of the live program that the user sees before it is made: while a dialog asks how it is to be,
/// each answer is shown in place of the one before. The selection goes with its step. User interface thread
/// only; nothing else changes the program meanwhile.
class Preview {
 public:
  /// What is shown: changes the program, which is as it was before the first. Called once for each Show.
  using Change = std::function<void(TCBase::Program::ModeListView&)>;

  /// The stack and `selection`, and the program that this selects in, outlive the preview. `parts` of the
  /// window are brought up to date behind each change.
  Preview(TCBase::Program::StepSelection& selection, UndoStack& undoStack, Refresh refresh, Parts parts);
  /// Takes back what is shown, unless it is kept.
  ~Preview() { TakeBack(); }
  Preview(const Preview&) = delete;
  Preview& operator=(const Preview&) = delete;

  void Show(const Change& change);
  /// The program and the selection are as they were.
  void TakeBack();
  /// What is shown stays, as one entry of the history; false, without one, if that is the program as it was.
  bool Keep();

  /// The program as it was.
  const TCBase::Program::ModeListView& Before() const { return before_; }

 private:
  void PutBack();
  void Select(std::uint32_t id);

  TCBase::Program::StepSelection& selection_;
  UndoStack& undoStack_;
  const Refresh refresh_;
  const Parts parts_;
  const TCBase::Program::ModeListView before_;
  const std::int32_t channelBefore_;
  const std::int32_t stepBefore_;
  bool isShown_ = false;
};

}  // namespace app
