#pragma once

// What all dialogs share. A dialog's rules are written against the window that shows it; a shell opens that
// window, from a template with the same number, and hands its events on. User interface thread.
//
// Controls go by the ids of the template. Texts are UTF-16, finished and translated; lengths are in UTF-16
// units, lines end with CR LF, and "&" means what control.h says.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "common/date_time.h"
#include "common/event_target.h"
#include "common/geometry.h"
#include "dialogs/control.h"

namespace dialogs {

// The answers of DlgBase::DoModal.
inline constexpr int kOk = 1;
inline constexpr int kCancel = 2;

// Notifications of a control, as DlgBase::OnCommand is told of them. Others may come and mean nothing.
/// A button was pressed.
inline constexpr int kClicked = 0;
/// The user has selected a row. A drop-down list still shows the old one.
inline constexpr int kSelectionChanged = 1;
/// An edit field has another text, with each key.
inline constexpr int kTextChanged = 768;

/// The controls of an open dialog, whatever kind they are. What the rules do to a control does not come back
/// as its notification, but for SetText.
class DialogControls {
 public:
  virtual ~DialogControls() = default;

  virtual void SetEnabled(int control, bool enabled) = 0;
  virtual void Hide(int control) = 0;
  /// Puts the keyboard's focus there. Called as the dialog opens, it takes the place of the first control
  /// that the Tab key gets to.
  virtual void GiveFocus(int control) = 0;
};

/// Labels, buttons and fields to write into.
class DialogTexts {
 public:
  virtual ~DialogTexts() = default;

  /// An edit field of one line sends kTextChanged before this returns, as if the user had typed the text.
  /// Other controls send nothing.
  virtual void SetText(int control, std::u16string_view text) = 0;
  /// What stands in the control, cut to one unit less than `units`.
  virtual std::u16string Text(int control, std::size_t units) const = 0;
  /// The user can type and paste into an edit field until this many units stand there. Without this call the
  /// limit is tens of thousands.
  virtual void LimitText(int control, std::int32_t units) = 0;
  /// The edit field takes nothing but digits from the keyboard. What is pasted into it is not looked at.
  virtual void AcceptDigitsOnly(int control) = 0;
  /// Where tabs lead in an edit field of several lines, in dialog units from the left of its text: to
  /// `first`, and from there to each further `step`.
  virtual void SetTabStops(int control, std::int32_t first, std::int32_t step) = 0;
};

/// Lists, plain and drop-down. Rows go by their place, from 0 in the order in which they are shown, by their
/// text, and by a number of the dialog's own.
class DialogLists {
 public:
  virtual ~DialogLists() = default;

  virtual void ClearRows(int control) = 0;
  /// The row comes last, or at its place in a sorted list.
  virtual void AddRow(int control, std::u16string_view text, std::int32_t data) = 0;
  virtual int RowCount(int control) const = 0;
  /// Selects the row at a place, or none if it is past the last one.
  virtual void SelectRow(int control, int row) = 0;
  /// Selects the row with exactly this text; without one, nothing happens.
  virtual void SelectText(int control, std::u16string_view text) = 0;
  /// The number of the selected row, -1 without one.
  virtual std::int32_t SelectedData(int control) const = 0;
};

/// Date and time picker.
class DialogTimes {
 public:
  virtual ~DialogTimes() = default;

  /// `format` is what the field shows: yyyy, MMM (the month's short name in the system's language), dd, HH,
  /// mm and ss are the time's parts, all else stands for itself.
  virtual void SetDateTime(int control, const DateTime& time, std::u16string_view format) = 0;
  /// The user moves each part within its range, and cannot leave one empty.
  virtual DateTime GetDateTime(int control) const = 0;
};

/// A dialog that stands open.
class DialogWindow : public DialogControls, public DialogTexts, public DialogLists, public DialogTimes {
 public:
  /// Left top of the dialog's frame, in the client area of the main window and its units. All of the dialog
  /// stays on the screen, even where that puts it elsewhere.
  virtual void MoveTo(std::int32_t x, std::int32_t y) = 0;
  /// Beside an area of the main window's client area, in its units, that is to be seen while the dialog
  /// stands open: see PlaceBeside.
  virtual void MoveBeside(const Rect& area) = 0;
  virtual void SetTitle(std::u16string_view title) = 0;
  /// A message over the dialog. Returns when its OK is pressed; until then the dialog takes no input, but
  /// posted events go on arriving at DlgBase::OnEvent.
  virtual void Tell(std::u16string_view title, std::u16string_view text, Icon icon) = 0;
  /// Opens a web or mail address with whatever the user opens such with. Nobody is told if there is no such
  /// program.
  virtual void OpenLink(std::u16string_view target) = 0;
  /// Events that are posted to the target, on any thread, arrive at DlgBase::OnEvent. The target may outlive
  /// the dialog; what is posted then is lost.
  virtual std::shared_ptr<EventTarget> Target() = 0;
  /// Closes the dialog; DoModal answers `result`, which is positive. Nothing of DlgBase is called any more.
  virtual void End(int result) = 0;
};

/// Where a dialog of this size leaves the area free: right of it, below, left or above, the first of these
/// that is all on the screen; without one the right bottom of the screen. All in the same units.
Position PlaceBeside(const Rect& area, std::int32_t width, std::int32_t height, const Rect& screen);

class DlgBase;

/// Who opens dialogs.
class DialogsPort {
 public:
  virtual ~DialogsPort() = default;

  /// Opens the dialog's window over the main window, which takes no input until it is closed. Answers what
  /// End was given; kCancel if the window could not be opened or went with the main window.
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

  // The shell calls these.

  /// The window stands as its template tells, not shown yet. Comes once, before anything else.
  virtual void OnInit(DialogWindow& window) = 0;
  /// A control's notification. The Enter key presses the button that has the focus, or else the default one
  /// unless that is disabled; where the template has no default button, it means kOk with kClicked, whatever
  /// that button looks like. A field that wants Enter keeps it. The Escape key and the frame's own button
  /// mean kCancel with kClicked, with such a button or without.
  virtual void OnCommand(DialogWindow& window, int control, int code);
  /// What was posted to the window, in the order of posting; after OnInit.
  virtual void OnEvent(DialogWindow&, std::uint32_t /*event*/) {}

  const int templateId;

 protected:
  /// The user has pressed OK, or Enter, even while the OK button is disabled. The base class closes the
  /// dialog; a dialog that is to stay open does not call it.
  virtual void OnOk(DialogWindow& window);
  /// A notification of any control but OK and Cancel.
  virtual void OnControl(DialogWindow&, int /*control*/, int /*code*/) {}

 private:
  DialogsPort& port_;
};

}  // namespace dialogs
