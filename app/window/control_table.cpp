#include "app/window/control_table.h"

#include <array>

namespace app {

namespace {

using Kind = dialogs::ControlKind;
namespace trait = dialogs::trait;

// The client area's width or height, less a distance.
constexpr dialogs::Extent Width(std::int32_t less) {
  return {-less, 1, 0};
}
constexpr dialogs::Extent Height(std::int32_t less) {
  return {-less, 0, 1};
}

constexpr bool kTranslated = true;
constexpr bool kStays = false;
constexpr bool kMoves = true;

// A mode's name may hold a "&".
constexpr unsigned kReadOut = trait::kSunken | trait::kAmpersands;

// A table, one row a control.
// clang-format off
constexpr std::array<ControlRow, kControlCount> kTable{{
    {{control_id::kModeList, Kind::ListBox, {10, 10, 110, 196}, "", trait::kVerticalScrollBar},
     Control::ModeList, false, kStays, When::Always, TextKey("Modes")},
    {{control_id::kAddMode, Kind::Button, {10, 208, 54, 20}, "➕"},
     Control::AddModeButton, false, kStays, When::Always, TextKey("Add new mode")},
    {{control_id::kDeleteMode, Kind::Button, {66, 208, 54, 20}, "➖"},
     Control::DeleteModeButton, false, kStays, When::Always, TextKey("Delete mode")},
    {{control_id::kDemoStatus, Kind::Label, {10, 252, 110, 20}, "Demo controls", kReadOut},
     Control::DemoStatusLabel, kTranslated},
    {{control_id::kPlay, Kind::Button, {10, 274, 54, 20}, "▶"},
     Control::PlayButton, false, kMoves, When::Always, TextKey("Play or pause demo")},
    {{control_id::kStop, Kind::Button, {66, 274, 54, 20}, "■"},
     Control::StopButton, false, kMoves, When::Always, TextKey("Stop demo")},
    {{control_id::kTime, Kind::Label, {10, 296, 110, 20}, "0:00", kReadOut},
     Control::TimeLabel},
    {{control_id::kPower, Kind::Label, {10, 318, 110, 20}, "[0 0 0 0 0]", kReadOut},
     Control::PowerLabel},
    {{0, Kind::Label, {10, 340, 110, 20}, "Channel power", kReadOut},
     Control::PowerTitleLabel, kTranslated},
    {{0, Kind::Slider, {10, 362, 110, 20}, "", trait::kTicks | trait::kDisabled},
     Control::PowerSlider, false, kMoves, When::WithoutDemo, TextKey("Channel power")},
    {{control_id::kDevicesLabel, Kind::Label, {10, Height(252), 110, 20}, "Devices", kReadOut},
     Control::DevicesLabel, kTranslated},
    {{control_id::kDeviceList, Kind::ListBox, {10, Height(230), 110, 64}, "",
      trait::kVerticalScrollBar | trait::kMultiSelection},
     Control::DeviceList, false, kMoves, When::Always, TextKey("Devices")},
    {{control_id::kZoomLabel, Kind::Label, {10, Height(164), 110, 20}, "Zoom", kReadOut},
     Control::ZoomLabel, kTranslated},
    {{0, Kind::Slider, {10, Height(142), 110, 20}, "", trait::kTicks},
     Control::ZoomSlider, false, kMoves, When::Always, TextKey("Zoom")},
    {{0, Kind::Label, {130, 10, Width(140), 20}, "mode description", kReadOut},
     Control::ModeDescription},
    {{0, Kind::Chart, {120, 30, Width(120), Height(166)}},
     Control::ChartWindow, false, kMoves, When::Always, TextKey("Chart")},
    {{0, Kind::ScrollBar, {130, Height(136), Width(140), 16}},
     Control::ScrollBar, false, kMoves, When::Always, TextKey("Shown part of the day")},
    {{0, Kind::RichText, {10, Height(110), Width(286), 100}, "",
      trait::kMultiLine | trait::kReadOnly | trait::kVerticalScrollBar},
     Control::LogPane, false, kMoves, When::Always, TextKey("Log")},
}};
// clang-format on

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kTable.size(); ++i) {
    if (kTable[i].control != static_cast<Control>(i)) return false;
  }
  return true;
}
static_assert(IsInOrder());

constexpr dialogs::PlaceFormula kLogo{Width(266), Height(110), 256, 100};

}  // namespace

std::span<const ControlRow> ControlTable() {
  return kTable;
}

const ControlRow& RowOf(Control control) {
  return kTable[static_cast<std::size_t>(control)];
}

Rect LogoRect(std::int32_t clientWidth, std::int32_t clientHeight) {
  return kLogo.In(clientWidth, clientHeight);
}

}  // namespace app
