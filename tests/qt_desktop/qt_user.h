#pragma once

// A user in front of the real Qt window, in a thread beside the one that the program runs in. His input goes
// the way of the window system's. Dialogs are answered while a step waits for the program.

#include <QAbstractSlider>
#include <QDialog>
#include <QListWidget>
#include <QMainWindow>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/qt_desktop/program_under_test.h"
#include "tests/support/window_user.h"

namespace qt_desktop {

class QtUser final : public WindowUser {
 public:
  explicit QtUser(ProgramUnderTest::Folders folders) : folders_(std::move(folders)) {}
  /// Fails the test if a question that was expected did not come up.
  ~QtUser() override;

  void StartWith(std::vector<std::filesystem::path> files) override;
  bool IsRunning() override;
  void Close() override;

  void WillAnswer(app::Answer answer) override { answers_.push_back(answer); }
  void WillPick(std::vector<std::filesystem::path> files) override { picks_.push_back(std::move(files)); }
  std::vector<app::Question> Questions() override { return std::exchange(asked_, {}); }
  void WillImprovise(Improviser* improviser) override { improviser_ = improviser; }
  void WillFill(DialogScript script) override { fills_.push_back(std::move(script)); }
  std::vector<SeenDialog> Dialogs() override { return std::exchange(seenDialogs_, {}); }

  bool Choose(int command) override;
  void PressKey(int key, bool ctrl = false) override;
  void HoldKey(int key, int times) override;
  void Press(app::Control button) override;
  void ClickRow(app::Control list, int row) override;
  void CtrlClickRow(app::Control list, int row) override;
  void DoubleClickRow(app::Control list, int row) override;
  void Scroll(app::Control bar, int code, int position = 0) override;
  void MoveMouse(int x, int y) override;
  void HoldModifiers(const app::HeldKeys& keys) override;
  void HoldButton() override;
  void ReleaseButton() override;
  void DoubleClickChart(int x, int y) override;
  void RightClickChart(int x, int y) override;
  bool ChooseAtChart(int x, int y, int command) override;
  void TurnWheel(int x, int y, int notches, bool ctrl = false, bool shift = false) override;
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

  /// Looks at each question that comes up, in the windows' thread, before it is answered.
  std::function<void(QMessageBox&)> onQuestion;
  /// Turns the wheel, or strokes a touchpad, by eighths of a degree: 120 make a notch.
  void TurnWheelBy(int x, int y, const std::vector<int>& eighths, bool ctrl);
  /// Waits until the program has worked off its queue, and answers what it asks meanwhile.
  void Settle();

 private:
  // Windows' thread.

  QMainWindow& Window() const;
  QPlainTextEdit& LogPane() const;
  QWidget& Widget(app::Control control) const;
  QAbstractSlider& Bar(app::Control bar) const;
  QListWidget& ListWidget(app::Control list) const;
  QPoint OnScreen(app::Control control, int x, int y) const;

  // User's thread.

  QPoint MiddleOf(app::Control control) const;
  QPoint RowPoint(app::Control list, int row) const;
  /// Takes the thumb with the mouse, if that has not been done.
  void HoldThumb(app::Control bar);
  void AnswerDialog(QDialog& dialog);
  void FillDialog(QDialog& dialog);
  /// Leaves all that is done in the dialog to the improviser.
  void Improvise(QDialog& dialog);
  void AnswerMessageBox(QDialog& box);
  void AnswerFileDialog(QDialog& dialog);

  const ProgramUnderTest::Folders folders_;
  std::unique_ptr<ProgramUnderTest> program_;
  std::deque<app::Answer> answers_;
  std::deque<std::vector<std::filesystem::path>> picks_;
  std::vector<app::Question> asked_;
  std::deque<DialogScript> fills_;
  std::vector<SeenDialog> seenDialogs_;
  Improviser* improviser_ = nullptr;
  bool holdsThumb_ = false;
  app::HeldKeys heldKeys_;
};

}  // namespace qt_desktop
