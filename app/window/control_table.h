#pragma once

// The main window's child controls as data, in the words of dialogs/control.h. A shell makes widgets of it.

#include <cstdint>
#include <span>

#include "app/window/when.h"
#include "common/message.h"
#include "dialogs/control.h"

namespace app {

enum class Control : std::int32_t {
  ModeList,
  AddModeButton,
  DeleteModeButton,
  DemoStatusLabel,
  PlayButton,
  StopButton,
  TimeLabel,
  PowerLabel,
  PowerTitleLabel,
  PowerSlider,
  DevicesLabel,
  DeviceList,
  ZoomLabel,
  ZoomSlider,
  ModeDescription,
  ChartWindow,
  ScrollBar,
  LogPane,
};
inline constexpr int kControlCount = 18;

/// Command numbers of those controls that have one.
namespace control_id {
inline constexpr int kModeList = 200;
inline constexpr int kAddMode = 201;
inline constexpr int kDeleteMode = 202;
inline constexpr int kDeviceList = 203;
inline constexpr int kDevicesLabel = 1027;
inline constexpr int kZoomLabel = 1033;
inline constexpr int kDemoStatus = 1034;
inline constexpr int kPlay = 1035;
inline constexpr int kStop = 1036;
inline constexpr int kTime = 1037;
inline constexpr int kPower = 1038;
}  // namespace control_id

struct ControlRow : dialogs::ControlTemplate {
  Control control;
  bool translated = false;  // the text goes through Translate
  bool moves = true;        // the control is placed anew when the window changes size
  // When a control without a command is enabled; of the others the command's row tells.
  When when = When::Always;
  // What assistive technology calls it where its text does not say so.
  TextKey name = {};
};

/// Rows in the order in which the controls are made, which is that of `Control`.
std::span<const ControlRow> ControlTable();
const ControlRow& RowOf(Control control);

/// The most UTF-16 units that the log pane can hold. A line's end counts as two.
inline constexpr int kLogPaneLimit = 500000;
/// Where the power slider stands at first. ChannelPowerControl enables or disables it only when it moves it.
inline constexpr int kPowerSliderFirstPosition = 1;

/// The last position of a slider whose range has not been set.
inline constexpr std::int32_t kSliderFirstMaximum = 100;

/// The zoom slider's last position. Position 0 shows the whole day, this one two hours.
inline constexpr std::int32_t kLastZoomPosition = 22;

// The main window itself.
inline constexpr std::int32_t kWindowWidth = 1024;  // at first, with its frame
inline constexpr std::int32_t kWindowHeight = 768;
inline constexpr std::int32_t kLeastWindowWidth = 800;  // that the user can size it to
inline constexpr std::int32_t kLeastWindowHeight = 700;

/// Where the logo is painted: right of the log pane.
Rect LogoRect(std::int32_t clientWidth, std::int32_t clientHeight);

}  // namespace app
