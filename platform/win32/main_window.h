#pragma once

// The main window: its events go to app::MainWindow, which tells what is done with them.

#include <span>

#include "app/main_window.h"
#include "app/window/ports.h"
#include "platform/win32/controls.h"
#include "platform/win32/logo.h"
#include "platform/win32/taskbar_button.h"
#include "platform/win32/window_events.h"

namespace win32 {

class MainWindow final : public app::MainWindowPort {
 public:
  /// `showCommand` is what the process was started with. The others outlive the window.
  MainWindow(int showCommand, Controls& controls, const Logo& logo)
      : showCommand_(showCommand), controls_(controls), logo_(logo) {}
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  /// Before the window is made.
  void Connect(app::MainWindow& logic) { logic_ = &logic; }
  /// Makes the window, not shown yet. Its class is registered.
  bool Create(HINSTANCE instance, const wchar_t* className, const wchar_t* title);
  /// Null before.
  HWND Handle() const { return handle_; }

  void SetTitle(std::u16string_view title) override;
  app::Size ClientSize() const override;
  void Show() override;
  void TakeFocus() override;
  bool TakesInput() const override;
  void StartTimer(int id, int milliseconds) override;
  void StopTimer(int id) override;
  void ShowWork(const app::WorkSign& sign) override { taskbarButton_.Show(handle_, sign); }
  bool OpenFile(const std::filesystem::path& file) override;
  void PaintLogo(const Rect& area) override;
  void Destroy() override;
  void PostQuit(int exitCode) override;
  void Post(std::uint32_t event, std::uintptr_t first, std::intptr_t second) override;

  // For the window procedure.
  void Attach(HWND handle);
  static std::span<const Handler<MainWindow>> Handlers();

 private:
  LRESULT OnDestroy(const Event& event);
  LRESULT OnSize(const Event& event);
  LRESULT OnPaint(const Event& event);
  LRESULT OnClose(const Event& event);
  LRESULT OnDropFiles(const Event& event);
  LRESULT OnGetMinMaxInfo(const Event& event);
  LRESULT OnCommand(const Event& event);
  LRESULT OnTimer(const Event& event);
  LRESULT OnHorizontalScroll(const Event& event);
  LRESULT OnInitMenuPopup(const Event& event);
  LRESULT OnLeftButtonDown(const Event& event);
  LRESULT OnKeyDown(const Event& event);
  LRESULT OnKeyUp(const Event& event);
  LRESULT OnSizing(const Event& event);
  LRESULT OnExitSizeMove(const Event& event);
  LRESULT OnDpiChanged(const Event& event);
  LRESULT OnPosted(const Event& event);

  /// Size on the screen that the window is on.
  void TakeFirstSize();

  const int showCommand_;
  Controls& controls_;
  const Logo& logo_;
  app::MainWindow* logic_ = nullptr;
  HWND handle_ = nullptr;  // set once, before any other thread knows the window
  TaskbarButton taskbarButton_;
  HDC paint_ = nullptr;  // while a paint event is handled
};

}  // namespace win32
