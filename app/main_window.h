#pragma once

// What the logic does when the platform tells of an event at one of the two windows. A shell calls these as
// the events come and decides nothing itself; events that have no method here get the platform's default
// handling. User interface thread. What arrives while a question stands open, ports.h tells.

#include <cstdint>
#include <filesystem>
#include <vector>

#include "app/chart/held_keys.h"
#include "app/window/control_table.h"
#include "app/window/ports.h"

namespace app {

struct AppState;
class Commands;

/// What is left for the shell to do with an event.
enum class Outcome {
  Default,  // the platform's default handling follows
  Done,     // nothing: the event ends here
};

enum class SizeKind { Restored = 0, Minimized = 1, Maximized = 2, Other = 3 };

class MainWindow {
 public:
  /// All of these outlive the window.
  MainWindow(AppState& state, Commands& commands, const Shell& shell)
      : state_(state), commands_(commands), shell_(shell) {}

  /// Within MainWindowPort::Destroy, or when the platform takes the window away.
  Outcome OnDestroy();
  /// The inside has another size, which MainWindowPort::ClientSize answers already. The first one may come
  /// while the window is being made, and one comes within MainWindowPort::Show.
  Outcome OnSize(SizeKind kind);
  /// Comes between the platform's beginning and end of painting; MainWindowPort::PaintLogo is called from
  /// here.
  Outcome OnPaint();
  /// The user wants the window closed. It stays, unless MainWindowPort::Destroy is called from here.
  Outcome OnClose();
  /// Files were dropped on the window or one of its children.
  void OnDrop(const std::vector<std::filesystem::path>& files);
  /// A menu item (code 0), or a control with its notification.
  Outcome OnCommand(int id, int code);
  /// One of the keys of AcceleratorTable(), except while the chart holds the mouse. The shell tells of every
  /// press, a repeated one of a held key too, and whatever the menu item looks like: which ones act is
  /// decided here.
  void OnAccelerator(int command);
  Outcome OnTimer(int id);
  /// A scroll bar or slider was moved; the codes are those of numbers.h. `position` is where the thumb is
  /// with scroll::kThumbMoving, and anything otherwise.
  Outcome OnHorizontalScroll(Control sender, int code, int position);
  /// A menu of the bar or the chart's context menu is about to open: texts, marks and grey items are set from
  /// here.
  Outcome OnInitMenuPopup();
  /// The button was pressed on the window's background, beside all controls.
  Outcome OnLeftButtonDown();
  /// Keys while the window itself has the focus, but for those that an accelerator took. A held key is many
  /// presses and one release. The chart's own keys go on to it while a step is selected.
  Outcome OnKeyDown(int key);
  Outcome OnKeyUp(int key);
  /// The user drags the window's edge, in a loop of the platform's own. Where the main loop goes on turning
  /// meanwhile, neither this nor OnExitSizeMove need be called.
  Outcome OnSizing();
  /// The user has let go of the edge, or of a window that was moved.
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
  /// Has the system show what the worker does, if that has changed.
  void ShowWork();

  AppState& state_;
  Commands& commands_;
  const Shell& shell_;
  WorkSign shownWork_;
};

/// The chart's window. Default handling follows on every event. Points are in its own coordinates, and may
/// lie outside while it holds the mouse.
class ChartWindow {
 public:
  explicit ChartWindow(AppState& state) : state_(state) {}

  /// Renders a frame, and says in words what it shows.
  void OnPaint();
  /// Keys while this window has the focus, but for those that an accelerator took: their release comes all
  /// the same. A held key is many presses and one release.
  void OnKeyDown(int key);
  void OnKeyUp(int key);
  /// `leftButton`: it is down. Where it is up although something is held, its release went elsewhere and is
  /// made up for first.
  void OnMouseMove(std::int32_t x, std::int32_t y, bool leftButton, const HeldKeys& keys = {});
  void OnLeftDown(std::int32_t x, std::int32_t y, const HeldKeys& keys = {});
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
