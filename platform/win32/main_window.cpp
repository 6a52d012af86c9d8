#include "platform/win32/main_window.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

// after windows.h
#include <shellapi.h>

#include "app/window/control_table.h"
#include "app/window/numbers.h"
#include "platform/win32/scale.h"
#include "platform/win32/text.h"

namespace win32 {

namespace {

// The code of a WM_COMMAND that TranslateAccelerator sends. It names no control.
constexpr WORD kFromAccelerator = 1;

LRESULT Finish(app::Outcome outcome, const Event& event) {
  return outcome == app::Outcome::Done ? 0 : event.Default();
}

// The part of the window's screen that the taskbar leaves free.
SIZE WorkArea(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return {monitor.rcWork.right - monitor.rcWork.left, monitor.rcWork.bottom - monitor.rcWork.top};
}

// Turns a size in units into pixels. On a magnified screen there may be no room for so many units: then the
// size is cut to the room that there is, but not below as many pixels as units.
SIZE SizeOnScreen(HWND window, int width, int height) {
  const Scale scale(window);
  const SIZE free = WorkArea(window);
  return {std::clamp<LONG>(free.cx, width, std::max(width, scale.Pixels(width))),
          std::clamp<LONG>(free.cy, height, std::max(height, scale.Pixels(height)))};
}

// The files of a drop, in its order.
std::vector<std::filesystem::path> FilesIn(HDROP drop) {
  std::vector<std::filesystem::path> files;
  const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    std::wstring name(DragQueryFileW(drop, i, nullptr, 0), L'\0');
    DragQueryFileW(drop, i, name.data(), static_cast<UINT>(name.size()) + 1);
    files.emplace_back(std::move(name));
  }
  return files;
}

}  // namespace

bool MainWindow::Create(HINSTANCE instance, const wchar_t* className, const wchar_t* title) {
  CreateWindowExW(0, className, title, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, 0,
                  app::kWindowWidth, app::kWindowHeight, nullptr, nullptr, instance, this);
  if (handle_ == nullptr) return false;
  DragAcceptFiles(handle_, TRUE);
  TakeFirstSize();
  return true;
}

void MainWindow::Attach(HWND handle) {
  handle_ = handle;
}

void MainWindow::TakeFirstSize() {
  const SIZE size = SizeOnScreen(handle_, app::kWindowWidth, app::kWindowHeight);
  SetWindowPos(handle_, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The port

void MainWindow::SetTitle(std::u16string_view title) {
  SetWindowTextW(handle_, WideText(title).c_str());
}

app::Size MainWindow::ClientSize() const {
  RECT client{};
  GetClientRect(handle_, &client);
  const Scale scale(handle_);
  return {scale.Units(client.right), scale.Units(client.bottom)};
}

void MainWindow::Show() {
  ShowWindow(handle_, showCommand_);
  UpdateWindow(handle_);
}

void MainWindow::TakeFocus() {
  SetFocus(handle_);
}

bool MainWindow::TakesInput() const {
  // Modal windows disable their owner.
  return IsWindowEnabled(handle_) != 0;
}

void MainWindow::StartTimer(int id, int milliseconds) {
  SetTimer(handle_, static_cast<UINT_PTR>(id), static_cast<UINT>(milliseconds), nullptr);
}

void MainWindow::StopTimer(int id) {
  KillTimer(handle_, static_cast<UINT_PTR>(id));
}

bool MainWindow::OpenFile(const std::filesystem::path& file) {
  // The answer is no handle: what is up to 32 is an error.
  constexpr INT_PTR kLastError = 32;
  const HINSTANCE opened = ShellExecuteW(handle_, L"open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  return reinterpret_cast<INT_PTR>(opened) > kLastError;
}

void MainWindow::PaintLogo(const Rect& area) {
  logo_.Paint(paint_, Scale(handle_).Pixels(area));
}

void MainWindow::Destroy() {
  DestroyWindow(handle_);
}

void MainWindow::PostQuit(int exitCode) {
  PostQuitMessage(exitCode);
}

void MainWindow::Post(std::uint32_t event, std::uintptr_t first, std::intptr_t second) {
  PostMessageW(handle_, event, first, second);
}

// Events

std::span<const Handler<MainWindow>> MainWindow::Handlers() {
  static constexpr auto kHandlers = std::to_array<Handler<MainWindow>>({
      {WM_DESTROY, &MainWindow::OnDestroy},
      {WM_SIZE, &MainWindow::OnSize},
      {WM_PAINT, &MainWindow::OnPaint},
      {WM_CLOSE, &MainWindow::OnClose},
      {WM_DROPFILES, &MainWindow::OnDropFiles},
      {WM_GETMINMAXINFO, &MainWindow::OnGetMinMaxInfo},
      {WM_COMMAND, &MainWindow::OnCommand},
      {WM_TIMER, &MainWindow::OnTimer},
      {WM_HSCROLL, &MainWindow::OnHorizontalScroll},
      {WM_INITMENUPOPUP, &MainWindow::OnInitMenuPopup},
      {WM_LBUTTONDOWN, &MainWindow::OnLeftButtonDown},
      {WM_KEYDOWN, &MainWindow::OnKeyDown},
      {WM_KEYUP, &MainWindow::OnKeyUp},
      {WM_SIZING, &MainWindow::OnSizing},
      {WM_EXITSIZEMOVE, &MainWindow::OnExitSizeMove},
      {WM_DPICHANGED, &MainWindow::OnDpiChanged},
      {app::WM_LOG_PENDING, &MainWindow::OnPosted},
      {app::WM_SCAN_FINISHED, &MainWindow::OnPosted},
      {app::WM_DEVICES_CHANGED, &MainWindow::OnPosted},
      {app::WM_DEMO_STATE, &MainWindow::OnPosted},
  });
  return kHandlers;
}

LRESULT MainWindow::OnDestroy(const Event& event) {
  return Finish(logic_->OnDestroy(), event);
}

LRESULT MainWindow::OnSize(const Event& event) {
  app::SizeKind kind = app::SizeKind::Other;
  if (event.first == SIZE_RESTORED) kind = app::SizeKind::Restored;
  if (event.first == SIZE_MINIMIZED) kind = app::SizeKind::Minimized;
  if (event.first == SIZE_MAXIMIZED) kind = app::SizeKind::Maximized;
  return Finish(logic_->OnSize(kind), event);
}

LRESULT MainWindow::OnPaint(const Event& event) {
  PAINTSTRUCT paint{};
  paint_ = BeginPaint(handle_, &paint);
  const app::Outcome outcome = logic_->OnPaint();
  EndPaint(handle_, &paint);
  paint_ = nullptr;
  return Finish(outcome, event);
}

LRESULT MainWindow::OnClose(const Event& event) {
  return Finish(logic_->OnClose(), event);
}

LRESULT MainWindow::OnDropFiles(const Event& event) {
  const auto drop = reinterpret_cast<HDROP>(event.first);
  const std::vector<std::filesystem::path> files = FilesIn(drop);
  DragFinish(drop);
  logic_->OnDrop(files);
  return 0;
}

LRESULT MainWindow::OnGetMinMaxInfo(const Event& event) {
  const SIZE least = SizeOnScreen(handle_, app::kLeastWindowWidth, app::kLeastWindowHeight);
  reinterpret_cast<MINMAXINFO*>(event.second)->ptMinTrackSize = {least.cx, least.cy};
  return 0;
}

LRESULT MainWindow::OnCommand(const Event& event) {
  if (const bool fromNoControl = event.second == 0;
      fromNoControl && HIWORD(event.first) == kFromAccelerator) {
    logic_->OnAccelerator(LOWORD(event.first));
    return 0;
  }
  return Finish(logic_->OnCommand(LOWORD(event.first), HIWORD(event.first)), event);
}

LRESULT MainWindow::OnTimer(const Event& event) {
  return Finish(logic_->OnTimer(static_cast<int>(event.first)), event);
}

LRESULT MainWindow::OnHorizontalScroll(const Event& event) {
  const std::optional<app::Control> sender = controls_.Find(reinterpret_cast<HWND>(event.second));
  if (!sender) return 0;
  return Finish(logic_->OnHorizontalScroll(*sender, LOWORD(event.first), HIWORD(event.first)), event);
}

LRESULT MainWindow::OnInitMenuPopup(const Event& event) {
  return Finish(logic_->OnInitMenuPopup(), event);
}

LRESULT MainWindow::OnLeftButtonDown(const Event& event) {
  return Finish(logic_->OnLeftButtonDown(), event);
}

LRESULT MainWindow::OnKeyDown(const Event& event) {
  return Finish(logic_->OnKeyDown(static_cast<int>(event.first)), event);
}

LRESULT MainWindow::OnKeyUp(const Event& event) {
  return Finish(logic_->OnKeyUp(static_cast<int>(event.first)), event);
}

LRESULT MainWindow::OnSizing(const Event&) {
  logic_->OnSizing();
  return TRUE;
}

LRESULT MainWindow::OnExitSizeMove(const Event& event) {
  return Finish(logic_->OnExitSizeMove(), event);
}

LRESULT MainWindow::OnDpiChanged(const Event& event) {
  controls_.TakeScale();
  // The place that Windows proposes keeps the window under the mouse that drags it to the other screen.
  const RECT& place = *reinterpret_cast<const RECT*>(event.second);
  SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
  return 0;
}

LRESULT MainWindow::OnPosted(const Event& event) {
  return Finish(logic_->OnEvent(event.message, event.first, event.second), event);
}

}  // namespace win32
