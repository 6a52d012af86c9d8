#pragma once

// A user in front of one of the program's own dialogs, with nothing but the keyboard.

#include <QDialog>

#include "tests/support/dialog_script.h"

namespace qt_desktop {

class DialogUser {
 public:
  /// The dialog stands over the main window.
  explicit DialogUser(QDialog& dialog) : dialog_(dialog) {}

  /// What the dialog shows now.
  SeenDialog See() const;
  /// Does one thing in it, but for looking and waiting. The test fails, if the keyboard does not get there.
  void Do(const DialogStep& step);

 private:
  /// Goes to a control with the Tab key. False, if that never comes there.
  bool GoTo(int control);
  void Type(const DialogStep& step);
  void Paste(const DialogStep& step);
  void Pick(const DialogStep& step);
  void SetDateTime(const DialogStep& step);
  /// Windows' thread.
  QWidget* Find(int control) const;

  QDialog& dialog_;
};

}  // namespace qt_desktop
