#pragma once

// What a user can do to the program and see of it, whatever shell it runs in: a script over these words runs
// on the headless shell and on drivers of real windows. Texts are UTF-8.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "app/chart/held_keys.h"
#include "app/window/control_table.h"
#include "app/window/numbers.h"
#include "app/window/ports.h"
#include "tests/support/dialog_script.h"
#include "tests/support/improviser.h"

class User {
 public:
  virtual ~User() = default;

  // The program's life.

  /// Starts the program anew, as from the desktop, and waits until its window stands there.
  void Start() { StartWith({}); }
  /// The same, with files on its command line.
  virtual void StartWith(std::vector<std::filesystem::path> files) = 0;
  virtual bool IsRunning() = 0;
  /// Closes the window by its frame.
  virtual void Close() = 0;

  // Answers are told before the question comes up, those to questions of the start before that; a question
  // that nobody has an answer for is a failure.

  virtual void WillAnswer(app::Answer answer) = 0;
  /// No files: the dialog is cancelled.
  virtual void WillPick(std::vector<std::filesystem::path> files) = 0;
  /// All questions that came up since the last call, in order.
  virtual std::vector<app::Question> Questions() = 0;
  /// Leaves whatever comes up without having been told before, dialogs too, to somebody who outlives this
  /// user; null: nobody, as it is at first.
  virtual void WillImprovise(Improviser* improviser) = 0;

  // Dialogs. What is done in them is told before they come up too.

  /// What the user will do in the next dialog.
  virtual void WillFill(DialogScript script) = 0;
  /// What was seen of dialogs since the last call: each as it came up, and again at every Look().
  virtual std::vector<SeenDialog> Dialogs() = 0;

  // Doing. Each waits until the program has nothing more to do but for the worker's jobs.

  /// Chooses a menu item; false if it is greyed or absent.
  virtual bool Choose(int command) = 0;
  /// Presses and releases a key where the focus is; numbers of app::key, letters in capitals.
  virtual void PressKey(int key, bool ctrl = false) = 0;
  /// Holds a key until it has come that many times, and releases it.
  virtual void HoldKey(int key, int times) = 0;
  /// Presses a button.
  virtual void Press(app::Control button) = 0;
  /// Clicks on a row of a list, which takes the selection from all others.
  virtual void ClickRow(app::Control list, int row) = 0;
  /// The same with Ctrl held: the row's own selection turns round, if the list allows of several.
  virtual void CtrlClickRow(app::Control list, int row) = 0;
  virtual void DoubleClickRow(app::Control list, int row) = 0;
  /// Moves a scroll bar or slider, codes of app::scroll. A slider stands elsewhere already when it tells of
  /// that, and does nothing while it is disabled.
  virtual void Scroll(app::Control bar, int code, int position = 0) = 0;

  // The mouse on the chart, in the chart window's coordinates; points may lie beside it.

  virtual void MoveMouse(int x, int y) = 0;
  /// These keys are held, from now on, by whatever the mouse does on the chart.
  virtual void HoldModifiers(const app::HeldKeys& keys) = 0;
  /// The left button, where the mouse is.
  virtual void HoldButton() = 0;
  virtual void ReleaseButton() = 0;
  void ClickChart(int x, int y) {
    MoveMouse(x, y);
    HoldButton();
    ReleaseButton();
  }
  virtual void DoubleClickChart(int x, int y) = 0;
  void DragOnChart(int fromX, int fromY, int toX, int toY) {
    MoveMouse(fromX, fromY);
    HoldButton();
    MoveMouse((fromX + toX) / 2, (fromY + toY) / 2);
    MoveMouse(toX, toY);
    ReleaseButton();
  }
  /// Leaves the menu that comes up, if one does, with Escape.
  virtual void RightClickChart(int x, int y) = 0;
  /// Clicks with the right button and chooses from the menu that comes up; false if none does, or if the item
  /// is greyed or absent.
  virtual bool ChooseAtChart(int x, int y, int command) = 0;
  /// Positive notches turn away from the user.
  virtual void TurnWheel(int x, int y, int notches, bool ctrl = false, bool shift = false) = 0;

  /// Drops files on the main window, as from a folder's window.
  virtual void DropFiles(std::vector<std::filesystem::path> files) = 0;
  /// Clicks on the main window beside all controls.
  virtual void ClickBackground() = 0;
  virtual void Resize(int width, int height) = 0;
  virtual void Maximize() = 0;
  virtual void Minimize() = 0;
  virtual void Restore() = 0;
  /// Lets that much of the program's time pass.
  virtual void Wait(double seconds) = 0;
  /// Waits until the log holds a text; false if that does not happen for a long time.
  virtual bool WaitForLog(const std::string& text) = 0;

  // The step table, but for HasTable only while its window is there.

  virtual bool HasTable() = 0;
  /// Closes its window by the frame.
  virtual void CloseTable() = 0;
  virtual std::string TableTitle() = 0;
  /// What a sheet is called, and what stands above its columns: "As sent: 31 of 48: Time | White | ...".
  virtual std::string TableHeading(app::TableSheet sheet) = 0;
  /// Its rows, each as "08:00 | 40 | fade".
  virtual std::vector<std::string> TableRows(app::TableSheet sheet) = 0;
  virtual std::vector<int> SelectedTableRows() = 0;
  /// Clicks on a row of the steps.
  virtual void ClickTableRow(int row, bool ctrl = false, bool shift = false) = 0;
  /// Edits a cell of the steps: types `text` in place of what stands there, and then a key. While that cell
  /// is still edited it is typed into anew.
  virtual void TypeInTable(int row, int column, const std::string& text, int key = app::key::kEnter) = 0;
  /// Presses a key in the list that is seen, or in the cell that is edited.
  virtual void PressTableKey(int key, bool ctrl = false) = 0;
  /// What is wrong with what was typed or asked for, as the window says it.
  virtual std::string TableFault() = 0;
  /// The system's clipboard.
  virtual std::string Clipboard() = 0;
  virtual void SetClipboard(const std::string& text) = 0;

  // Seeing.

  struct Item {
    std::string text;
    bool exists = false;
    bool enabled = false;  // by itself and by the menus that it stands in
    bool checked = false;
  };
  /// A menu item, as it stands when its menu is opened.
  virtual Item MenuItem(int command) = 0;
  virtual std::vector<std::string> List(app::Control list) = 0;
  virtual std::vector<int> SelectedRows(app::Control list) = 0;
  /// What a label or button says.
  virtual std::string Text(app::Control control) = 0;
  virtual bool IsEnabled(app::Control control) = 0;
  virtual int SliderPosition(app::Control slider) = 0;
  virtual Rect Place(app::Control control) = 0;
  virtual app::Size ClientSize() = 0;
  virtual std::string Title() = 0;
  /// All that the log pane shows, lines ended by CR LF.
  virtual std::string Log() = 0;
  /// Writes what the screen shows as a PNG file. False, if there is no screen.
  virtual bool TakePicture(const std::filesystem::path& file) = 0;
};
