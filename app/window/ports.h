#pragma once

// The pieces of the desktop that the application speaks to. A shell implements them over real windows, the
// headless shell of the tests in memory. Texts are UTF-16, finished and translated. All operations but Post
// are called on the user interface thread, and none fails.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/window/control_table.h"
#include "chart/chart_window.h"
#include "chart/renderer_base.h"
#include "common/event_target.h"
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

/// The main window. Events posted to it arrive at MainWindow::OnEvent.
class MainWindowPort : public EventTarget {
 public:
  virtual void SetTitle(std::u16string_view title) = 0;
  virtual Size ClientSize() const = 0;
  /// Shows the window as the process was asked to, and has it painted at once.
  virtual void Show() = 0;
  virtual void TakeFocus() = 0;
  /// False while a dialog or a question over the window waits for the user.
  virtual bool TakesInput() const = 0;
  /// The timer event comes every `milliseconds` from now on.
  virtual void StartTimer(int id, int milliseconds) = 0;
  virtual void StopTimer(int id) = 0;
  /// Paints the logo; only within MainWindow::OnPaint. Nothing, if there is no logo.
  virtual void PaintLogo(const Rect& area) = 0;
  /// MainWindow::OnDestroy comes before this returns.
  virtual void Destroy() = 0;
  /// Puts the quit event into the queue.
  virtual void PostQuit(int exitCode) = 0;
};

struct ListRow {
  std::u16string text;
  std::int32_t data = 0;  // the application's own number, see RowData
  bool selected = false;
};

/// The child controls.
class ControlsPort {
 public:
  virtual ~ControlsPort() = default;

  /// Makes the control. Once for each row of the table, in its order.
  virtual void Create(const ControlRow& row, std::u16string_view text, const Rect& place) = 0;
  virtual void Move(Control control, const Rect& place) = 0;
  virtual void SetText(Control control, std::u16string_view text) = 0;
  virtual void SetEnabled(Control control, bool enabled) = 0;

  // Lists. No call makes a list emit anything.
  virtual void SetRows(Control list, const std::vector<ListRow>& rows) = 0;
  /// The selected rows in a list of several, ascending.
  virtual std::vector<std::int32_t> SelectedRows(Control list) const = 0;
  /// The current row, which is the selected one in a list of one; -1 if there is none.
  virtual std::int32_t CurrentRow(Control list) const = 0;
  /// `data` of a row; -1 if there is no such row.
  virtual std::int32_t RowData(Control list, std::int32_t row) const = 0;

  // Scroll bar and sliders. Nor do these.
  virtual void SetScrollBar(const TCBase::Program::ViewScrollInfo& info) = 0;
  /// `tick` 0 leaves the ticks as they are.
  virtual void SetSliderRange(Control slider, std::int32_t maximum, std::int32_t page, std::int32_t tick) = 0;
  /// `position` is within the range.
  virtual void SetSliderPosition(Control slider, std::int32_t position) = 0;
};

/// The text of the log pane. The user can put the caret anywhere in it and select parts of it.
class LogPanePort {
 public:
  virtual ~LogPanePort() = default;

  virtual std::size_t Length() const = 0;
  /// Selects everything and removes it.
  virtual void Clear() = 0;
  /// Colours the selection, and all that is put in from now on, wherever the caret goes. 0x00BBGGRR.
  virtual void SetSelectionColor(std::uint32_t color) = 0;
  virtual void MoveCaret(std::size_t position) = 0;
  /// Puts the text in the place of the selection; the caret stands behind it.
  virtual void ReplaceSelection(std::u16string_view text) = 0;
  virtual void ScrollToBottom() = 0;
};

/// The menu bar. Built by the shell from MenuTable(), before any of this is called.
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
  virtual void Redraw() = 0;
  /// Opens a menu of the bar as a context menu, at a point of the chart window.
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

/// "XML Program", "*.XML"; "All Files" comes second everywhere.
struct FileFilter {
  std::u16string_view name;
  std::u16string_view pattern;
};
inline constexpr FileFilter kAllFilesFilter{u"All Files", u"*.*"};

/// What a save dialog adds to a name without one, whatever is saved.
inline constexpr std::u16string_view kDefaultExtension = u"xml";

/// Questions that hold everything else up until they are answered.
class QuestionsPort {
 public:
  virtual ~QuestionsPort() = default;

  virtual Answer Ask(const Question& question) = 0;
  /// Existing files; none if the user cancelled.
  virtual std::vector<std::filesystem::path> AskOpenFiles(const FileFilter& filter, bool multiple) = 0;
  /// `path` is the name to start from, and the chosen one on return. False, if the user cancelled.
  virtual bool AskSaveFile(const FileFilter& filter, std::filesystem::path& path) = 0;
};

/// The queue of the user interface thread, as the main loop sees it.
class EventSource {
 public:
  virtual ~EventSource() = default;

  /// Takes the next event, without waiting. False if there is none.
  virtual bool Take() = 0;
  /// Offers the event last taken to the accelerator keys. True if one of them took it: it has then been sent
  /// on as a command, whatever its menu item looks like, unless the mouse is captured.
  virtual bool OfferToAccelerators() = 0;
  /// Sends the event last taken on to its window.
  virtual void Dispatch() = 0;
  /// The event last taken is the quit event. Turns without an event do not change the answer.
  virtual bool IsQuit() const = 0;
  /// What came with it.
  virtual int ExitCode() const = 0;
};

/// What the platform must do on the way up and down, by name. The application tells the order.
enum class PlatformStep {
  // On the way up.
  InitCommonControls,  // list view and date controls
  StartGraphics,       // GDI+
  StartNetwork,        // sockets, version 1.1; nobody asks how it went, nor of the one above
  LoadNames,           // the title and the name of the main window's class
  RegisterMainClass,
  RegisterChartClass,
  CreateMainWindow,  // not shown yet; false ends the program
  SetDefaultFont,    // on all child controls
  LoadLogo,          // the picture 134, "PNG"
  TakeMenu,          // of the main window: MenuPort works from here on
  TakeAccelerators,
  // On the way down.
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
  EventSource& events;
  std::function<std::unique_ptr<UX::RendererBase>(const UX::ChartScene&)> makeRenderer;

  // What lasts from one run to the next. The one of the process unless told otherwise.
  Settings& settings = Settings::Instance();
  std::filesystem::path deviceLogFile = DocumentPath(u"LumarineLog.txt");
  /// Where copies of programs that could not be saved are kept: that of the settings.
  std::filesystem::path recoveryFolder = DocumentPath({});

  // What the process was told to open; empty if nothing.
  std::vector<std::filesystem::path> filesToOpen = {};

  // The one that messages ask.
  TranslationStore& translations = TranslationStore::Instance();
};

}  // namespace app
