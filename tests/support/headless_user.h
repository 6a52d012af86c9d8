#pragma once

// A user in front of the headless shell. Each Start is a process of its own, as far as one can see: the logs
// are empty, the translations have recorded nothing, and settings come from the file that the run before left
// at its end.

#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "localisation/translation_store.h"
#include "tests/support/empty_logs.h"
#include "tests/support/headless_shell.h"
#include "tests/support/user.h"

namespace headless {

class HeadlessUser final : public User {
 public:
  /// Settings and device log are kept in the folder `documents`.
  explicit HeadlessUser(std::filesystem::path documents);
  /// Ends the program, if it runs, without a question.
  ~HeadlessUser() override;

  void StartWith(std::vector<std::filesystem::path> files) override;
  bool IsRunning() override { return desktop_ != nullptr; }
  void Close() override;
  void WillAnswer(app::Answer answer) override;
  void WillPick(std::vector<std::filesystem::path> files) override;
  std::vector<app::Question> Questions() override;
  void WillImprovise(Improviser* improviser) override;
  void WillFill(DialogScript script) override { desktop_->dialogs.scripts.push_back(std::move(script)); }
  std::vector<SeenDialog> Dialogs() override { return std::exchange(desktop_->dialogs.seen, {}); }

  bool Choose(int command) override;
  void PressKey(int key, bool ctrl = false) override;
  void HoldKey(int key, int times) override;
  void Press(app::Control button) override;
  void ClickRow(app::Control list, int row) override;
  void CtrlClickRow(app::Control list, int row) override;
  void DoubleClickRow(app::Control list, int row) override;
  void Scroll(app::Control bar, int code, int position = 0) override;
  void MoveMouse(int x, int y) override;
  void HoldModifiers(const app::HeldKeys& keys) override { heldKeys_ = keys; }
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

  bool HasTable() override { return desktop_->stepTable.isOpen; }
  void CloseTable() override;
  std::string TableTitle() override;
  std::string TableHeading(app::TableSheet sheet) override;
  std::vector<std::string> TableRows(app::TableSheet sheet) override;
  std::vector<int> SelectedTableRows() override;
  void ClickTableRow(int row, bool ctrl = false, bool shift = false) override;
  void TypeInTable(int row, int column, const std::string& text, int key = app::key::kEnter) override;
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
  app::Size ClientSize() override { return desktop_->size; }
  std::string Title() override;
  std::string Log() override;
  bool TakePicture(const std::filesystem::path&) override { return false; }

  // Beyond what a user can do.

  /// The process ends by force, once what it has begun to write is written. Its settings are lost.
  void Crash();
  Desktop& GetDesktop() { return *desktop_; }
  app::AppState& State() { return desktop_->application->state; }
  // Of the run that goes on, or of the last one.
  Settings& GetSettings() { return *settings_; }
  TranslationStore& Translations() { return *store_; }
  /// A command event, greyed or not: commands without a menu item or key, notifications.
  void SendCommand(int id, int code = 0);
  /// Turns the main loop until nothing is queued.
  void Settle();
  /// One turn, and the end of the program if it was the last.
  void Turn();
  /// The translations documents of the next start. Without the first the program knows English alone.
  std::string translations;
  std::string moreTranslations;
  /// Those that the program is built with, from the folder of its resources. False if one cannot be read.
  bool ReadTranslations(const std::filesystem::path& resources);
  /// Of the next start; the plain one, if there is none.
  Desktop::MakeRenderer makeRenderer;
  /// The main window cannot be made at the next start.
  bool refuseWindow = false;
  /// Of the run that ended last.
  Journal lastJournal;

 private:
  /// Puts an event for one of the windows into the queue.
  void Push(std::function<void(app::Application&)> deliver);
  /// The same for the mouse, which is the chart's while it is over it or captured.
  void PushMouse(std::function<void(app::ChartWindow&, std::int32_t x, std::int32_t y)> deliver);
  void PushKey(int key, bool ctrl, int times);
  void SetSize(app::Size size, app::SizeKind kind);
  void Notify(app::Control control, int code);

  void End();

  const std::filesystem::path documents_;
  // Of one run, in the order of construction.
  std::optional<EmptyLogs> logs_;
  std::optional<TranslationStore> store_;
  std::optional<Settings> settings_;
  std::unique_ptr<Desktop> desktop_;  // null while the program does not run
  app::Size restored_;                // what Restore() goes back to
  int mouseX_ = 0;                    // in the chart window
  int mouseY_ = 0;
  bool buttonHeld_ = false;  // the left one
  app::HeldKeys heldKeys_;
  std::size_t questionsSeen_ = 0;
  std::deque<app::Answer> answersAtStart_;
  Improviser* improviser_ = nullptr;
};

}  // namespace headless
