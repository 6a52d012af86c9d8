#pragma once

// The main window's child controls as data: what each is, where it stands in a window of a given size, what
// it says at first. A shell makes widgets of it.

#include <cstdint>
#include <span>
#include <string_view>

#include "chart/chart_layout.h"

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

/// Traits of a control, to be combined.
namespace style {
inline constexpr unsigned kNone = 0;
inline constexpr unsigned kNotifies = 1U << 0;        // a list that sends its codes
inline constexpr unsigned kMultiSelection = 1U << 1;  // extended: with Shift and Ctrl
inline constexpr unsigned kVerticalScroll = 1U << 2;
inline constexpr unsigned kBorder = 1U << 3;
inline constexpr unsigned kSunken = 1U << 4;
inline constexpr unsigned kDisabledAtFirst = 1U << 5;
inline constexpr unsigned kAutoTicks = 1U << 6;
inline constexpr unsigned kMultiLine = 1U << 7;
inline constexpr unsigned kReadOnly = 1U << 8;
}  // namespace style

/// fixed + perWidth * W + perHeight * H, of a client area W by H. The factors are 0 or 1.
struct Extent {
  std::int32_t fixed = 0;
  std::int32_t perWidth = 0;
  std::int32_t perHeight = 0;
};

struct RectFormula {
  Extent x, y, width, height;

  UX::Rect At(std::int32_t clientWidth, std::int32_t clientHeight) const;
};

struct ControlRow {
  Control control;
  std::string_view className;  // the window class of the Windows shell
  int id;                      // command number, 0 for none
  std::string_view text;       // UTF-8, at first
  bool translated;             // the text goes through Translate
  RectFormula rect;
  bool moves;  // when the window changes size; the others stand in the top left corner
  unsigned style;
};

/// Rows in the order in which the controls are made, which is that of `Control`.
std::span<const ControlRow> ControlTable();
const ControlRow& RowOf(Control control);

/// Characters that the log pane takes at most.
inline constexpr int kLogPaneLimit = 500000;
/// Where the power slider stands at first; nothing but a change of position ever enables it.
inline constexpr int kPowerSliderFirstPosition = 1;

/// Where a slider ends before it is told.
inline constexpr std::int32_t kSliderFirstMaximum = 100;

/// The zoom slider's places: from the whole day to two hours.
inline constexpr std::int32_t kLastZoomPosition = 22;

// The main window itself.
inline constexpr std::int32_t kWindowWidth = 1024;  // at first, with its frame
inline constexpr std::int32_t kWindowHeight = 768;
inline constexpr std::int32_t kLeastWindowWidth = 800;  // that the user can size it to
inline constexpr std::int32_t kLeastWindowHeight = 700;

/// Where the logo is painted: right of the log pane.
UX::Rect LogoRect(std::int32_t clientWidth, std::int32_t clientHeight);

}  // namespace app
