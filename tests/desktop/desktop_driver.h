#pragma once

// A user in front of the real program: Lumarine.exe in a process of its own, driven by input events and
// window messages. Dialogs are answered while a step waits for the program. The icon of a question is not
// seen.

#include <chrono>
#include <deque>
#include <filesystem>
#include <functional>
#include <future>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/desktop/program_under_test.h"
#include "tests/desktop/screen_picture.h"
#include "tests/support/window_user.h"

namespace desktop {

class DesktopUser final : public WindowUser {
 public:
  DesktopUser() = default;
  /// Fails the test if a question that was expected did not come up.
  ~DesktopUser() override;

  void StartWith(std::vector<std::filesystem::path> files) override;
  bool IsRunning() override;
  void Close() override;

  void WillAnswer(app::Answer answer) override { answers_.push_back(answer); }
  void WillPick(std::vector<std::filesystem::path> files) override { picks_.push_back(std::move(files)); }
  std::vector<app::Question> Questions() override;
  void WillImprovise(Improviser* improviser) override { improviser_ = improviser; }
  void WillFill(DialogScript script) override { fills_.push_back(std::move(script)); }
  std::vector<SeenDialog> Dialogs() override { return std::exchange(seenDialogs_, {}); }

  bool Choose(int command) override;
  void PressKey(int key, bool ctrl) override;
  void HoldKey(int key, int times) override;
  void Press(app::Control button) override;
  void ClickRow(app::Control list, int row) override;
  void CtrlClickRow(app::Control list, int row) override;
  void DoubleClickRow(app::Control list, int row) override;
  void Scroll(app::Control bar, int code, int position) override;
  void MoveMouse(int x, int y) override;
  void HoldModifiers(const app::HeldKeys& keys) override;
  void HoldButton() override;
  void ReleaseButton() override;
  void DoubleClickChart(int x, int y) override;
  void RightClickChart(int x, int y) override;
  bool ChooseAtChart(int x, int y, int command) override;
  void TurnWheel(int x, int y, int notches, bool ctrl, bool shift) override;
  void DropFiles(std::vector<std::filesystem::path> files) override;
  void ClickBackground() override;
  void Resize(int width, int height) override;
  void Maximize() override;
  void Minimize() override;
  void Restore() override;
  void Wait(double seconds) override;
  bool WaitForLog(const std::string& text) override;

  bool HasTable() override;
  void CloseTable() override;
  std::string TableTitle() override;
  std::string TableHeading(app::TableSheet sheet) override;
  std::vector<std::string> TableRows(app::TableSheet sheet) override;
  std::vector<int> SelectedTableRows() override;
  void ClickTableRow(int row, bool ctrl = false, bool shift = false) override;
  void TypeInTable(int row, int column, const std::string& text, int key) override;
  void PressTableKey(int key, bool ctrl = false) override;
  std::string TableFault() override;
  std::string Clipboard() override;
  void SetClipboard(const std::string& text) override;

  Item MenuItem(int command) override;
  std::vector<std::string> List(app::Control list) override;
  std::vector<int> SelectedRows(app::Control list) override;
  std::string Text(app::Control control) override;
  bool IsEnabled(app::Control control) override;
  int SliderPosition(app::Control slider) override;
  Rect Place(app::Control control) override;
  app::Size ClientSize() override;
  std::string Title() override;
  std::string Log() override;
  bool TakePicture(const std::filesystem::path& file) override;

  /// What somebody who has lost patience closes.
  enum class Closed { Program, Dialog };
  /// Asks the main window or the dialog over it to close, as the system does, as soon as the program has
  /// taken the next Space key, with which a script presses a button, and is busy with what that does; goes on
  /// beside the script. False if the key never comes.
  std::future<bool> CloseBehindNextSpace(Closed closed);

  // WindowUser

  void ClickBesideThumb(app::Control bar, Side side) override;
  void DragThumb(app::Control bar, int toX) override;
  std::pair<int, int> ScrollBar() override;
  void ClickLog() override;
  UX::Color LogColor(const std::string& line) override;
  bool OpenChartMenu(int x, int y) override;
  void LeaveMenu() override;
  void EnterMenuBar() override;
  void PressAltSlash(bool shift) override;
  void TakeCapture() override;
  PixelPicture ChartPicture() override;

  /// Style bits of a control's window.
  DWORD StyleOf(app::Control control);

 private:
  HWND Handle(app::Control control);
  /// The window of the step table; null while it is closed.
  HWND Table();
  /// Its list of steps.
  HWND TableSteps();
  void GiveKeysToTheTable();
  /// The middle of a row, in the list's coordinates.
  POINT RowPoint(app::Control list, int row);
  /// Presses what HoldModifiers holds once more: Wine lets go of keys that its display knows nothing of.
  void PressHeldKeys();
  /// A menu has been opened over the chart and waits.
  bool HasOpenMenu();
  /// Waits until the program has taken the input.
  void WaitForInput();
  /// The same, and until it has done what came of it.
  void SettleInput();
  /// Waits until the program has worked off its queue, and answers what it asks meanwhile.
  void Settle();
  /// The dialog that waits for the user; null if there is none.
  HWND DialogInFront();
  void AnswerDialog(HWND dialog);
  void FillDialog(HWND dialog);
  /// Leaves all that is done in the dialog to the improviser.
  void Improvise(HWND dialog);
  /// A message of the dialog itself, if there is one.
  void AnswerBoxOver(HWND dialog);
  void AnswerMessageBox(HWND box);
  void AnswerFileDialog(HWND dialog);

  std::optional<ProgramUnderTest> program_;
  std::deque<app::Answer> answers_;
  std::deque<std::vector<std::filesystem::path>> picks_;
  std::vector<app::Question> asked_;
  std::deque<DialogScript> fills_;
  std::vector<SeenDialog> seenDialogs_;
  Improviser* improviser_ = nullptr;
  std::pair<int, int> editedCell_{-1, -1};  // of the step table, the one that was edited last
  app::HeldKeys heldKeys_;
};

}  // namespace desktop
