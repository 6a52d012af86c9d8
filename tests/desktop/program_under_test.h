#pragma once

// The process of the program, its windows, and what the probe in it finds.

#include <filesystem>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "app/window/control_table.h"
#include "common/date_time.h"
#include "tests/desktop/probe.h"

namespace desktop {

struct CloseHandles {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseHandles>;

struct Unhook {
  void operator()(HHOOK hook) const { UnhookWindowsHookEx(hook); }
};
using Hook = std::unique_ptr<std::remove_pointer_t<HHOOK>, Unhook>;

class ProgramUnderTest {
 public:
  /// Starts Lumarine.exe, which stands beside this program, with files on its command line, and waits until
  /// its window is complete. The test fails if that does not happen.
  explicit ProgramUnderTest(const std::vector<std::filesystem::path>& files = {});
  /// Ends the program, if it still runs.
  ~ProgramUnderTest();
  ProgramUnderTest(const ProgramUnderTest&) = delete;
  ProgramUnderTest& operator=(const ProgramUnderTest&) = delete;

  HWND mainWindow() const { return mainWindow_; }
  HWND Child(app::Control control) const;
  /// A visible window over the main window that waits for an answer; null if there is none.
  HWND Dialog() const;
  bool HasEnded() const;
  /// Waits for the end; the test fails if it does not come or the exit code is not 0.
  void ExpectEnd();

  /// Puts a mark behind what is queued for the program.
  void PostMark();
  /// The program has come to the last mark.
  bool HasMetMark() const { return findings_->mark == mark_; }
  /// When it came there, it had input to take yet.
  bool InputWaits() const { return findings_->inputWaits != 0; }
  /// Presses the key that marks the end of input.
  void PressInputMark();
  bool HasMetInputMark() const { return findings_->inputMarks == inputMarks_; }
  /// How often the program has taken the release of the Space key.
  LONG SpacesTaken() const { return findings_->spaces; }

  /// The menu item as it is now.
  const probe::Findings& LookAtMenu(int command) const;
  /// Drops files on the main window.
  void Drop(const std::vector<std::filesystem::path>& files);
  /// The time in a date and time picker.
  DateTime LookAtPicker(HWND picker) const;
  /// The thumb of a slider or the scroll bar.
  const probe::Findings& LookAtThumb(app::Control control) const;
  /// The colour of a character of the log pane.
  COLORREF LookAtColor(LONG character) const;

 private:
  void FindMainWindow();
  void InstallProbe();

  Handle memory_;
  probe::Findings* findings_ = nullptr;
  Handle process_;
  DWORD processId_ = 0;
  HWND mainWindow_ = nullptr;
  LONG mark_ = 0;
  LONG inputMarks_ = 0;
  Hook sentHook_;
  Hook takenHook_;
};

}  // namespace desktop
