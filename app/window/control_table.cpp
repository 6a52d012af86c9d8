#include "app/window/control_table.h"

#include <array>

namespace app {

namespace {

// Of the client area's width and height.
constexpr Extent Width(std::int32_t less) {
  return {-less, 1, 0};
}
constexpr Extent Height(std::int32_t less) {
  return {-less, 0, 1};
}

constexpr unsigned kList = style::kNotifies | style::kVerticalScroll | style::kBorder;

// A table, one row a control.
// clang-format off
constexpr std::array<ControlRow, kControlCount> kTable{{
    {Control::ModeList, "listbox", control_id::kModeList, "", false,
     {{10}, {10}, {110}, {196}}, false, kList},
    {Control::AddModeButton, "button", control_id::kAddMode, "➕", false,
     {{10}, {208}, {54}, {20}}, false, style::kNone},
    {Control::DeleteModeButton, "button", control_id::kDeleteMode, "➖", false,
     {{66}, {208}, {54}, {20}}, false, style::kNone},
    {Control::DemoStatusLabel, "static", control_id::kDemoStatus, "Demo controls", true,
     {{10}, {252}, {110}, {20}}, true, style::kSunken},
    {Control::PlayButton, "button", control_id::kPlay, "▶", false,
     {{10}, {274}, {54}, {20}}, true, style::kNone},
    {Control::StopButton, "button", control_id::kStop, "■", false,
     {{66}, {274}, {54}, {20}}, true, style::kNone},
    {Control::TimeLabel, "static", control_id::kTime, "0:00", false,
     {{10}, {296}, {110}, {20}}, true, style::kSunken},
    {Control::PowerLabel, "static", control_id::kPower, "[0 0 0 0 0]", false,
     {{10}, {318}, {110}, {20}}, true, style::kSunken},
    {Control::PowerTitleLabel, "static", 0, "Channel power", true,
     {{10}, {340}, {110}, {20}}, true, style::kSunken},
    {Control::PowerSlider, "msctls_trackbar32", 0, "", false,
     {{10}, {362}, {110}, {20}}, true, style::kDisabledAtFirst | style::kAutoTicks},
    {Control::DevicesLabel, "static", control_id::kDevicesLabel, "Devices", true,
     {{10}, Height(252), {110}, {20}}, true, style::kSunken},
    {Control::DeviceList, "listbox", control_id::kDeviceList, "", false,
     {{10}, Height(230), {110}, {64}}, true, kList | style::kMultiSelection},
    {Control::ZoomLabel, "static", control_id::kZoomLabel, "Zoom", true,
     {{10}, Height(164), {110}, {20}}, true, style::kSunken},
    {Control::ZoomSlider, "msctls_trackbar32", 0, "", false,
     {{10}, Height(142), {110}, {20}}, true, style::kAutoTicks},
    {Control::ModeDescription, "static", 0, "mode description", false,
     {{130}, {10}, Width(140), {20}}, true, style::kSunken},
    {Control::ChartWindow, "LumarineRenderWnd", 0, "", false,
     {{120}, {30}, Width(120), Height(166)}, true, style::kNone},
    {Control::ScrollBar, "SCROLLBAR", 0, "", false,
     {{130}, Height(136), Width(140), {16}}, true, style::kNone},
    {Control::LogPane, "RICHEDIT50W", 0, "", false,
     {{10}, Height(110), Width(286), {100}}, true,
     style::kMultiLine | style::kReadOnly | style::kVerticalScroll | style::kBorder},
}};
// clang-format on

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kTable.size(); ++i) {
    if (kTable[i].control != static_cast<Control>(i)) return false;
  }
  return true;
}
static_assert(IsInOrder());

constexpr std::int32_t Resolve(const Extent& extent, std::int32_t width, std::int32_t height) {
  return extent.fixed + extent.perWidth * width + extent.perHeight * height;
}

constexpr RectFormula kLogo{Width(266), Height(110), {256}, {100}};

}  // namespace

UX::Rect RectFormula::At(std::int32_t clientWidth, std::int32_t clientHeight) const {
  const auto at = [=](const Extent& extent) { return Resolve(extent, clientWidth, clientHeight); };
  return {at(x), at(y), at(width), at(height)};
}

std::span<const ControlRow> ControlTable() {
  return kTable;
}

const ControlRow& RowOf(Control control) {
  return kTable[static_cast<std::size_t>(control)];
}

UX::Rect LogoRect(std::int32_t clientWidth, std::int32_t clientHeight) {
  return kLogo.At(clientWidth, clientHeight);
}

}  // namespace app
