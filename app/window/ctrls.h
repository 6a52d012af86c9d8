#pragma once

// The main window's child controls: makes them, moves them, and turns document, devices and demo into what
// they show. User interface thread, but for WakeLog.

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "app/window/command.h"
#include "app/window/ports.h"
#include "app/window/slider.h"
#include "chart/chart_layout.h"
#include "devices/device_info.h"
#include "program/demo_state.h"
#include "program/program.h"

namespace app {

class Ctrls {
 public:
  /// All of these outlive the controls.
  Ctrls(const Shell& shell, std::span<const Command> commands, TCBase::Program::ModeListView& program,
        std::vector<TCBase::DeviceInfo>& devices, UX::ChartLayout& chartLayout);

  /// Makes all controls, placed by the layout's present client area.
  void CreateControls();
  /// Places all that move when the window changes size.
  void MoveControls();
  /// After a change of language. "Zoom" stays as it was at the start, but for what assistive technology is
  /// told.
  void TranslateLabels();

  // Modes.
  void FillModeList();
  void ShowModeDescription();
  /// The row that the user has chosen, -1 for none.
  std::int32_t SelectedModeIndex() const;

  // Devices.

  /// Takes a list that was found over into the list shown, which keeps its ticks.
  void SetDevices(std::vector<TCBase::DeviceInfo> found);
  void FillDeviceList();
  /// After a change of selection in the list. Looks at as many rows from the top as are selected, and at none
  /// if none is: a device below them keeps its tick, and so do all when the user clears the list.
  void ReadDeviceSelection();
  /// The index of the device in the list's current row; -1 if no row is current.
  std::int32_t SelectedDeviceIndex() const;

  // View.
  void UpdateScrollBar();
  void UpdateZoomSlider();

  Slider& ZoomSlider() { return zoomSlider_; }
  Slider& PowerSlider() { return powerSlider_; }

  // Demo.

  /// Play button, status, time and power from a record of a demo. Greys the controls whose commands may not
  /// be given while it runs.
  void ShowDemoStatus(const TCBase::DemoState& record);
  void ShowTimeAndPower(std::int32_t second, const TCBase::Program::ModeStep& step);

  /// The read-outs show a second of the day and what the current mode gives then.
  void ShowModeAt(std::int32_t second);
  /// The same second again, after a change of the mode; not while they show a demo.
  void UpdateReadOuts();

  // Log.

  /// Sends statusLog and warningLog to the log pane from now on, until DisconnectLogs().
  void ConnectLogs();
  void DisconnectLogs();
  /// Appends UTF-8 text to the log pane.
  void AppendLog(std::string_view text, LogColor color);

 private:
  void NameControls();
  void LogStatus(std::string_view text);
  void LogWarning(std::string_view text);
  void WakeLog();

  const Shell& shell_;
  const std::span<const Command> commands_;
  TCBase::Program::ModeListView& program_;
  std::vector<TCBase::DeviceInfo>& devices_;
  UX::ChartLayout& chartLayout_;

  std::optional<std::int32_t> secondOfMode_;  // while the read-outs show the mode, and not a demo
  Slider zoomSlider_;
  Slider powerSlider_;
};

}  // namespace app
