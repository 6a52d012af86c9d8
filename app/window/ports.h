#pragma once

// The pieces of the desktop that the application speaks to. A shell implements them over real windows, the
// headless shell of the tests in memory. Events of the windows go to the classes of app/main_window.h and
// app/step_table_window.h.
//
// All operations but Post are called on the user interface thread, and none fails. Texts are UTF-16, finished
// and translated; lengths of texts are in UTF-16 units, and a line ends with CR LF. In texts of menus,
// buttons and labels a "&" means what dialogs/control.h says; in titles, lists, the log and questions it is a
// "&". Places and sizes are in the units of common/geometry.h.
//
// While a question, a dialog or a menu stands open, the call that opened it has not returned and the main
// loop does not turn. Posted events, timer events and paint events of both windows go on arriving. Keys,
// mouse events and commands of the main window do not; the command that was chosen in a menu comes after the
// menu has gone. Files may still be dropped: MainWindow::OnDrop opens none while MainWindowPort::TakesInput
// is false, and says so in the log.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/window/control_table.h"
#include "app/window/step_table_port.h"
#include "chart/chart_window.h"
#include "chart/renderer_base.h"
#include "common/event_target.h"
#include "common/platform.h"
#include "dialogs/dialog.h"
#include "localisation/translation_store.h"
#include "program/settings.h"
#include "program/view.h"

namespace app {

struct Size {
  std::int32_t width = 0;
  std::int32_t height = 0;

  friend bool operator==(const Size&, const Size&) = default;
};

/// How far the work is that the user waits for, which may be done while they look at other windows.
struct WorkSign {
  enum Kind {
    None,        // no work
    Unmeasured,  // somebody works, and cannot tell how far it is
    Running,     // `percent` of it is done
    Paused,      // the same, and it stands still
  };

  Kind kind = None;
  int percent = 0;

  friend bool operator==(const WorkSign&, const WorkSign&) = default;
};

/// The main window, from PlatformStep::CreateMainWindow on. Events posted to it arrive at
/// MainWindow::OnEvent, in the order of posting; they may be posted before the window stands or after it has
/// gone, and are then lost.
class MainWindowPort : public EventTarget {
 public:
  virtual void SetTitle(std::u16string_view title) = 0;
  /// The inside: without frame, title and menu. Before the window is shown it is the size that it will be
  /// shown with, unless it comes up maximised: the controls are placed by it.
  virtual Size ClientSize() const = 0;
  /// Shows the window as the process was asked to: in its own size, maximised, minimised, whether it came up
  /// with PlatformStep::ShowControls already or not. MainWindow::OnSize, and the paint events of both windows
  /// unless they are hidden, come before this returns.
  virtual void Show() = 0;
  /// Keys go to MainWindow::OnKeyDown and OnKeyUp from now on.
  virtual void TakeFocus() = 0;
  /// False while a dialog or a question over the window waits for the user.
  virtual bool TakesInput() const = 0;
  /// MainWindow::OnTimer comes every `milliseconds` from now on, where no other event waits; one that is late
  /// is not made up for. A second call for the same id takes the place of the first.
  virtual void StartTimer(int id, int milliseconds) = 0;
  virtual void StopTimer(int id) = 0;
  /// Shows it where the system has a place for it outside the window: on its button in the task bar, on the
  /// program's icon in a launcher. Nothing is shown before the first call.
  virtual void ShowWork(const WorkSign& sign) = 0;
  /// Opens the file with whatever the user opens such files with, outside of this program. False if there is
  /// no such program, as far as the system tells.
  virtual bool OpenFile(const std::filesystem::path& file) = 0;
  /// Paints the logo; only within MainWindow::OnPaint. Nothing happens if there is no logo.
  virtual void PaintLogo(const Rect& area) = 0;
  /// Takes the window and its controls away. MainWindow::OnDestroy comes before this returns, and no event of
  /// either window behind it. All operations of the shell may still be called and do nothing then, but for
  /// the queue's.
  virtual void Destroy() = 0;
  /// Puts the quit event into the queue, behind what waits there already.
  virtual void PostQuit(int exitCode) = 0;
};

struct ListRow {
  std::u16string text;
  std::int32_t data = 0;  // the application's own number, see RowData
  bool selected = false;
};

/// The child controls, which send their events to the main window: buttons, lists and sliders as numbers.h
/// tells, after the control shows what the user has done. Nothing that is called here makes a control send
/// anything.
class ControlsPort {
 public:
  virtual ~ControlsPort() = default;

  /// Makes the control, to be seen with its window. Called once for each row of the table, in its order,
  /// between CreateMainWindow and Show.
  virtual void Create(const ControlRow& row, std::u16string_view text, const Rect& place) = 0;
  virtual void Move(Control control, const Rect& place) = 0;
  virtual void SetText(Control control, std::u16string_view text) = 0;
  virtual void SetEnabled(Control control, bool enabled) = 0;

  // For assistive technology, such as screen readers. Nothing of it is seen.

  /// What a control without a text of its own is called.
  virtual void SetName(Control control, std::u16string_view name) = 0;
  /// What it shows now, in words.
  virtual void SetDescription(Control control, std::u16string_view text) = 0;

  // Lists.

  /// These rows take the place of all that stood there, in this order.
  virtual void SetRows(Control list, const std::vector<ListRow>& rows) = 0;
  /// The selected rows in a list of several, ascending.
  virtual std::vector<std::int32_t> SelectedRows(Control list) const = 0;
  /// The row that the keyboard stands on: the selected one where one can be selected, and otherwise the one
  /// that the user touched last, selected or not. -1 if there is none.
  virtual std::int32_t CurrentRow(Control list) const = 0;
  /// `data` of a row; -1 if there is no such row.
  virtual std::int32_t RowData(Control list, std::int32_t row) const = 0;

  // Scroll bar and sliders.

  /// The thumb covers `page` of the stretch from `minimum` to `maximum` and begins at `position`, cut to
  /// where it can stand. All are minutes of the day.
  virtual void SetScrollBar(const TCBase::Program::ViewScrollInfo& info) = 0;
  /// The slider goes from 0 to `maximum`, with a mark every `tick`; 0 leaves the marks as they are. `page` is
  /// how far a click beside the thumb moves it. Nobody sees that distance, since the application sets a
  /// position of its own when the slider tells of the click.
  virtual void SetSliderRange(Control slider, std::int32_t maximum, std::int32_t page, std::int32_t tick) = 0;
  /// `position` is within the range.
  virtual void SetSliderPosition(Control slider, std::int32_t position) = 0;
};

/// What a text in the log pane is written in.
enum class LogColor {
  AsBefore,  // as the last text that had a colour; before the first, as the system's texts
  Red,       // 255, 0, 0
};

/// The text of the log pane. The user can put the caret anywhere in it, select parts of it and copy them.
class LogPanePort {
 public:
  virtual ~LogPanePort() = default;

  /// Writes the text behind the last one, wherever the caret stands, and scrolls to its end. The caret stands
  /// there afterwards and nothing is selected; what was selected has taken the colour, unless it is AsBefore.
  /// A pane that holds more than `most` units is emptied first; the colour stays. Apart from `most`, a pane
  /// can hold kLogPaneLimit units, a limit that the shell sets when it makes the control.
  virtual void Append(std::u16string_view text, LogColor color, std::size_t most) = 0;
  /// Whether keys go to the pane, as they do once the user has clicked on it.
  virtual bool HasFocus() const = 0;
  /// Selects all its text, to be copied.
  virtual void SelectAll() = 0;
};

/// The menu bar. Built by the shell from MenuTable(), before any of this is called. A command has one item;
/// items that are named here stand in the bar.
class MenuPort {
 public:
  virtual ~MenuPort() = default;

  virtual bool HasItem(int command) const = 0;
  virtual void SetItemText(int command, std::u16string_view text) = 0;
  virtual void InsertItemBefore(int before, int command, std::u16string_view text) = 0;
  /// `submenu` -1 names the menu of the bar at `position`; otherwise the submenu at `position` within the
  /// menu `submenu` of the bar.
  virtual void SetPopupText(int position, std::u16string_view text, int submenu) = 0;
  virtual void SetEnabled(int command, bool enabled) = 0;
  virtual void SetChecked(int command, bool checked) = 0;
  /// A menu of the bar.
  virtual void SetPopupEnabled(int position, bool enabled) = 0;
  /// Shows what has changed in the bar itself.
  virtual void Redraw() = 0;
  /// Opens a menu of the bar as a context menu, at a point of the chart window. MainWindow::OnInitMenuPopup
  /// comes first. Returns when the menu has closed; what was chosen comes as a command afterwards.
  virtual void OpenAtChart(int position, std::int32_t x, std::int32_t y) = 0;
};

enum class Buttons { Ok, YesNo, YesNoCancel };
using dialogs::Icon;
enum class Answer { Ok, Yes, No, Cancel };

struct Question {
  std::u16string title;
  std::u16string text;
  Buttons buttons = Buttons::Ok;
  Icon icon = Icon::None;
  /// The Enter key presses No at first, where there is one, and otherwise the first button: for what an
  /// answer given in haste would destroy.
  bool enterSaysNo = false;
};

/// Files that a dialog shows: a name and a pattern, such as "XML Program" and "*.XML". "*" stands for any
/// letters, capitals and small letters are the same, and "*.*" means all files, those without a dot among
/// them.
struct FileFilter {
  std::u16string_view name;
  std::u16string_view pattern;
};
/// This one comes second in every dialog.
inline constexpr FileFilter kAllFilesFilter{u"All Files", u"*.*"};

/// What a save dialog adds, after a dot, to a name that has no extension, whatever is saved.
inline constexpr std::u16string_view kDefaultExtension = u"xml";

/// Questions that hold everything else up until they are answered. MainWindowPort::TakesInput is false
/// meanwhile.
class QuestionsPort {
 public:
  virtual ~QuestionsPort() = default;

  /// The button that was pressed. The Escape key and the frame's own button mean Cancel where there is one,
  /// OK where that is all there is, and nothing otherwise.
  virtual Answer Ask(const Question& question) = 0;
  /// Existing files, as absolute paths; none if the user cancelled. The first filter is chosen at first.
  virtual std::vector<std::filesystem::path> AskOpenFiles(const FileFilter& filter, bool multiple) = 0;
  /// `path` is the name to start from, without a folder or with one, and the chosen one on return, absolute.
  /// Its folder exists. A file of that name is not asked about: it is replaced. False if the user cancelled.
  virtual bool AskSaveFile(const FileFilter& filter, std::filesystem::path& path) = 0;
};

/// The queue of the user interface thread, as the main loop sees it. Where a toolkit takes events and sends
/// them on in one go, Take does both and the two operations behind it do nothing.
class EventSource {
 public:
  virtual ~EventSource() = default;

  /// Takes the next event, without waiting. False if there is none.
  virtual bool Take() = 0;
  /// Offers the event last taken to the keys of AcceleratorTable(), from whichever control of the main window
  /// it comes. True if one of them took it: then it goes no further, and MainWindow::OnAccelerator has been
  /// called unless the chart holds the mouse (ChartWindowPort::Capture). A held key is many presses and one
  /// release.
  virtual bool OfferToAccelerators() = 0;
  /// Sends the event last taken on to its window.
  virtual void Dispatch() = 0;
  /// Nothing moves: comes back when an event waits, or when the time is over. It may come back earlier, and a
  /// shell whose events end the wait by themselves may let the time pass. What is taken and sent on in one go
  /// may be so within this call.
  virtual void AwaitEvent(int milliseconds) = 0;
  /// The event last taken is the quit event. Turns without an event do not change the answer.
  virtual bool IsQuit() const = 0;
  /// What came with it.
  virtual int ExitCode() const = 0;
};

/// What the platform must do on the way up and down, by name. The application tells the order; a shell that
/// has nothing to do at a step does nothing.
enum class PlatformStep {
  // On the way up.
  PrepareControls,  // what lists and date fields need
  StartGraphics,    // what the logo and the plain renderer need
  StartNetwork,     // what sockets need; nobody asks how it went, nor of the one above
  LoadNames,        // the title, and the name by which the system knows the main window
  PrepareMainWindow,
  PrepareChartWindow,
  CreateMainWindow,  // with its menu, not shown yet; false ends the program
  SetDefaultFont,    // on all child controls, which stand by now
  ShowControls,      // the window may come up now, with nothing in its lists and on its chart yet
  LoadLogo,
  TakeMenu,          // MenuPort works from here on; the window is shown by now
  TakeAccelerators,  // the keys of AcceleratorTable() work from here on
  // On the way down. The windows have gone.
  DeleteLogo,
  StopGraphics,
  StopHid,
  StopNetwork,
};

class PlatformPort {
 public:
  virtual ~PlatformPort() = default;

  /// Does the step. Only the answer to CreateMainWindow is looked at.
  virtual bool Do(PlatformStep step) = 0;
};

/// All of a shell; it outlives the application.
struct Shell {
  PlatformPort& platform;
  MainWindowPort& mainWindow;
  UX::ChartWindowPort& chartWindow;
  ControlsPort& controls;
  LogPanePort& logPane;
  MenuPort& menu;
  QuestionsPort& questions;
  dialogs::DialogsPort& dialogs;
  StepTablePort& stepTable;
  EventSource& events;
  std::function<std::unique_ptr<UX::RendererBase>(const UX::ChartScene&)> makeRenderer;

  // What lasts from one run to the next. The one of the process unless told otherwise.
  Settings& settings = Settings::Instance();
  std::filesystem::path deviceLogFile = DocumentPath(kDeviceLogName);
  /// Where copies of programs that could not be saved are kept: that of the settings.
  std::filesystem::path recoveryFolder = DocumentPath({});
  /// Where the document is kept for the case of a crash; nothing if that is not to be.
  std::optional<std::filesystem::path> stateFolder = platform::StateFolder();

  // What the process was told to open; empty if nothing.
  std::vector<std::filesystem::path> filesToOpen = {};

  // The one that messages ask.
  TranslationStore& translations = TranslationStore::Instance();

  /// The page of the guide; nothing if this copy of the program came without it.
  std::optional<std::filesystem::path> guide = platform::FindCompanionFile("guide.html");
  /// What the shell is built on, by name and version.
  std::vector<std::pair<std::string, std::string>> versions = {};
};

}  // namespace app
