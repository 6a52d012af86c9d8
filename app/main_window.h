#pragma once

// What the logic does when the platform tells of an event at one of the two windows. A shell calls these from
// its window procedures and decides nothing itself; events that have no method here get the platform's
// default handling. User interface thread.

#include <cstdint>
#include <filesystem>
#include <vector>

#include "app/window/control_table.h"

namespace app {

struct AppState;
class Commands;
struct Shell;

/// What is left for the shell to do with an event.
enum class Outcome {
  Default,  // the platform's default handling follows
  Done,     // nothing; a window procedure returns 0
};

enum class SizeKind { Restored = 0, Minimized = 1, Maximized = 2, Other = 3 };

class MainWindow {
 public:
  /// All of these outlive the window.
  MainWindow(AppState& state, Commands& commands, const Shell& shell)
      : state_(state), commands_(commands), shell_(shell) {}

  Outcome OnDestroy();
  Outcome OnSize(SizeKind kind);
  /// Between the platform's beginning and end of painting; MainWindowPort::PaintLogo is called from here.
  Outcome OnPaint();
  Outcome OnClose();
  /// Files were dropped on the window or one of its children.
  void OnDrop(const std::vector<std::filesystem::path>& files);
  /// A menu item (code 0), or a control with its notification.
  Outcome OnCommand(int id, int code);
  /// One of the keys of AcceleratorTable(). The shell tells of every press, a repeated one of a held key too,
  /// and whatever the menu item looks like: which ones act is decided here.
  void OnAccelerator(int command);
  Outcome OnTimer(int id);
  /// From a scroll bar or slider. `position` is that of the event, of use only for scroll::kThumbMoving.
  Outcome OnHorizontalScroll(Control sender, int code, int position);
  Outcome OnInitMenuPopup();
  Outcome OnLeftButtonDown();
  /// Keys that no control has the focus for. The chart's own keys go on to it while a step is selected.
  Outcome OnKeyDown(int key);
  Outcome OnKeyUp(int key);
  /// While the platform's own loop sizes the window. A window procedure returns 1.
  Outcome OnSizing();
  Outcome OnExitSizeMove();
  /// What was posted to the main window: an AppEvent. Others get the default handling.
  Outcome OnEvent(std::uint32_t event, std::uintptr_t first, std::intptr_t second);

 private:
  void Touch();
  void UpdateLayout();
  void ShowDemoAtRest();
  /// The key is one of the chart's, and there is a step for it.
  bool IsForChart(int key) const;
  /// While a menu or a dialog stands open the main loop does not turn.
  void MoveChartOn();

  AppState& state_;
  Commands& commands_;
  const Shell& shell_;
};

/// The chart's window. Default handling follows on every event. Points are in its own coordinates.
class ChartWindow {
 public:
  explicit ChartWindow(AppState& state) : state_(state) {}

  void OnPaint();
  void OnKeyDown(int key);
  void OnKeyUp(int key);
  /// `leftButton`: it is down. Where it is up although something is held, its release went elsewhere and is
  /// made up for first.
  void OnMouseMove(std::int32_t x, std::int32_t y, bool leftButton);
  void OnLeftDown(std::int32_t x, std::int32_t y);
  void OnLeftUp(std::int32_t x, std::int32_t y);
  /// Another window has the mouse's capture now, or nobody; that may be the chart's own doing. A release.
  void OnCaptureLost();
  void OnRightDown(std::int32_t x, std::int32_t y);
  void OnRightUp(std::int32_t x, std::int32_t y);
  /// `delta` is 120 for a notch away from the user. The shell brings the point from the screen.
  void OnWheel(std::int32_t x, std::int32_t y, int delta, bool shift, bool ctrl, bool otherButtons);

 private:
  /// The user touches the chart: it is drawn for a while.
  void Touch();
  void ShowChange();

  AppState& state_;
};

}  // namespace app
