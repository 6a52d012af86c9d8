#pragma once

// A user in front of one of the program's own dialogs, with nothing but the keyboard.

#include <functional>

#include "platform/win32/windows_headers.h"
#include "tests/support/dialog_script.h"

namespace desktop {

class ProgramUnderTest;

class DialogUser {
 public:
  /// `takeInput` waits until the program has taken the keys pressed so far.
  DialogUser(ProgramUnderTest& program, HWND dialog, std::function<void()> takeInput)
      : program_(program), dialog_(dialog), takeInput_(std::move(takeInput)) {}

  /// What the dialog shows now.
  SeenDialog See() const;
  /// Does one thing in it, but for looking and waiting. The test fails, if the keyboard does not get there.
  void Do(const DialogStep& step);

 private:
  /// Goes to a control with the Tab key. False, if that never comes there.
  bool GoTo(int control);
  bool HasFocus(int control) const;
  void SelectAll();
  void PressKey(int key);
  void Type(const DialogStep& step);
  void Paste(const DialogStep& step);
  void Pick(const DialogStep& step);
  void SetDateTime(const DialogStep& step);
  void GoToYear(HWND picker);

  ProgramUnderTest& program_;
  const HWND dialog_;
  const std::function<void()> takeInput_;
};

}  // namespace desktop
