#pragma once

// What all dialogs share. A dialog's rules are written against the window that shows it; a shell opens that
// window, from a template with the same number, and hands its events on. User interface thread.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "common/date_time.h"
#include "common/event_target.h"
#include "dialogs/control.h"

namespace dialogs {

// The answers of DlgBase::DoModal.
inline constexpr int kOk = 1;
inline constexpr int kCancel = 2;

// Notifications of a control, as DlgBase::OnCommand is told of them.
inline constexpr int kClicked = 0;
inline constexpr int kSelectionChanged = 1;
inline constexpr int kTextChanged = 768;

/// A dialog that stands open. Controls go by the ids of the template; texts are UTF-16, finished and
/// translated.
class DialogWindow {
 public:
  virtual ~DialogWindow() = default;

  /// Left top of the dialog, in the client area of the main window.
  virtual void MoveTo(std::int32_t x, std::int32_t y) = 0;
  virtual void SetTitle(std::u16string_view title) = 0;
  virtual void SetText(int control, std::u16string_view text) = 0;
  /// What stands in the control, cut to `units` UTF-16 units, less one for the end of the text.
  virtual std::u16string Text(int control, std::size_t units) const = 0;
  virtual void SetEnabled(int control, bool enabled) = 0;
  virtual void Hide(int control) = 0;
  /// Puts the keyboard's focus there. Called as the dialog opens, it takes the place of the first control
  /// that the Tab key gets to.
  virtual void GiveFocus(int control) = 0;

  // Edit fields.
  /// The user can enter this many UTF-16 units.
  virtual void LimitText(int control, std::int32_t units) = 0;
  virtual void AcceptDigitsOnly(int control) = 0;

  // Lists, plain and drop-down. Rows go by their text and by a number of the dialog's own.
  virtual void ClearRows(int control) = 0;
  virtual void AddRow(int control, std::u16string_view text, std::int32_t data) = 0;
  virtual int RowCount(int control) const = 0;
  /// The row at a place of the list; one past its end is no choice.
  virtual void SelectRow(int control, int row) = 0;
  /// The row with exactly this text; without one, nothing happens.
  virtual void SelectText(int control, std::u16string_view text) = 0;
  /// The number of the selected row, -1 without one.
  virtual std::int32_t SelectedData(int control) const = 0;

  // Date and time picker. `format` is in the letters of the platform's pickers: "yyyy-MMM-dd HH:mm:ss".
  virtual void SetDateTime(int control, const DateTime& time, std::u16string_view format) = 0;
  virtual DateTime GetDateTime(int control) const = 0;

  /// A message over the dialog, up to its OK.
  virtual void Tell(std::u16string_view title, std::u16string_view text, Icon icon) = 0;
  /// Opens a web or mail address with whatever the user opens such with.
  virtual void OpenLink(std::u16string_view target) = 0;
  /// For whoever posts events to the dialog, on any thread: they arrive at DlgBase::OnEvent. The target may
  /// outlive the dialog; what is posted then is lost.
  virtual std::shared_ptr<EventTarget> Target() = 0;
  /// Closes the dialog; DoModal answers `result`. No more events follow.
  virtual void End(int result) = 0;
};

class DlgBase;

/// Who opens dialogs.
class DialogsPort {
 public:
  virtual ~DialogsPort() = default;

  /// Opens the dialog's window over the main window and holds everything else up until it is closed. Answers
  /// what End was given.
  virtual int Run(DlgBase& dialog) = 0;
};

class DlgBase {
 public:
  /// `number` is that of the template that tells the window's controls.
  DlgBase(DialogsPort& port, int number) : templateId(number), port_(port) {}
  virtual ~DlgBase() = default;
  DlgBase(const DlgBase&) = delete;
  DlgBase& operator=(const DlgBase&) = delete;

  int DoModal() { return port_.Run(*this); }

  // For the shell.

  /// The window stands, not shown yet.
  virtual void OnInit(DialogWindow& window) = 0;
  /// A control's notification; kOk and kCancel come from keys and from the window's frame too. True if the
  /// dialog made use of it.
  virtual bool OnCommand(DialogWindow& window, int control, int code);
  /// What was posted to the window.
  virtual void OnEvent(DialogWindow&, std::uint32_t /*event*/) {}

  const int templateId;

 protected:
  /// OK, also by the Enter key while that button is disabled. Closes the dialog, or says false where it is to
  /// stay open.
  virtual bool OnOk(DialogWindow& window);
  /// A notification of any control but OK and Cancel. True if the dialog made use of it.
  virtual bool OnControl(DialogWindow&, int /*control*/, int /*code*/) { return false; }

 private:
  DialogsPort& port_;
};

}  // namespace dialogs
