#include "app/window/ctrls.h"

#include <algorithm>
#include <string>
#include <utility>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "OvkLib/src/ovk_format.h"
#include "common/message.h"
#include "common/truncate.h"
#include "devices/device_list.h"
#include "devices/shown_name.h"
#include "program/view.h"

namespace app {

using namespace TCBase::Program;

namespace {

constexpr char kPlayText[] = "▶";
constexpr char kPauseText[] = " ▌ ▌";

std::u16string FirstText(const ControlRow& row) {
  return WideFromUtf8(row.translated ? Translate(row.text) : std::string(row.text));
}

// A control that gives a command can be used when the command may be given.
When WhenToUse(const ControlRow& row, std::span<const Command> commands) {
  const auto command = std::ranges::find(commands, row.id, &Command::number);
  return command == commands.end() ? row.when : command->when;
}

}  // namespace

Ctrls::Ctrls(const Shell& shell, std::span<const Command> commands, ModeListView& program,
             std::vector<TCBase::DeviceInfo>& devices, UX::ChartLayout& chartLayout)
    : shell_(shell),
      commands_(commands),
      program_(program),
      devices_(devices),
      chartLayout_(chartLayout),
      zoomSlider_(shell.controls, Control::ZoomSlider, kSliderFirstMaximum),
      powerSlider_(shell.controls, Control::PowerSlider, kSliderFirstMaximum) {}

void Ctrls::CreateControls() {
  const UX::Rect& client = chartLayout_.clientRect;
  for (const ControlRow& row : ControlTable()) {
    shell_.controls.Create(row, FirstText(row), row.place.In(client.width, client.height));
  }
  NameControls();
  powerSlider_.SetPosition(kPowerSliderFirstPosition);
  shell_.platform.Do(PlatformStep::SetDefaultFont);
}

void Ctrls::MoveControls() {
  const UX::Rect& client = chartLayout_.clientRect;
  for (const ControlRow& row : ControlTable()) {
    if (row.moves) shell_.controls.Move(row.control, row.place.In(client.width, client.height));
  }
}

void Ctrls::TranslateLabels() {
  for (const Control label : {Control::DevicesLabel, Control::PowerTitleLabel}) {
    shell_.controls.SetText(label, FirstText(RowOf(label)));
  }
  NameControls();
}

void Ctrls::NameControls() {
  for (const ControlRow& row : ControlTable()) {
    if (!row.name.empty()) shell_.controls.SetName(row.control, WideFromUtf8(Translate(row.name)));
  }
}

void Ctrls::FillModeList() {
  std::vector<ListRow> rows;
  rows.reserve(program_.modes.size());
  for (const Mode& mode : program_.modes) {
    const auto index = static_cast<std::int32_t>(rows.size());
    rows.push_back({WideFromUtf8(mode.name), index, index == program_.currentMode});
  }
  shell_.controls.SetRows(Control::ModeList, rows);
  ShowModeDescription();
}

void Ctrls::ShowModeDescription() {
  const Mode& mode = CurrentMode(program_);
  std::string text = Message("Mode {1} (Steps: {2})", mode.name, CountModeSteps(mode)).utf8();
  if (!mode.description.empty()) text += ": " + mode.description;
  shell_.controls.SetText(Control::ModeDescription, WideFromUtf8(text));
}

std::int32_t Ctrls::SelectedModeIndex() const {
  return shell_.controls.CurrentRow(Control::ModeList);
}

void Ctrls::SetDevices(std::vector<TCBase::DeviceInfo> found) {
  devices_ = TCBase::TakeOverDevices(devices_, std::move(found));
  FillDeviceList();
}

void Ctrls::FillDeviceList() {
  std::vector<ListRow> rows;
  rows.reserve(devices_.size());
  for (const TCBase::DeviceInfo& device : devices_) {
    const std::string text =
        shell_.settings.GetDeviceValue("device", device.name, TCBase::ShownName(device.name));
    rows.push_back({WideFromUtf8(text), static_cast<std::int32_t>(rows.size()), device.selected});
  }
  shell_.controls.SetRows(Control::DeviceList, rows);
}

void Ctrls::ReadDeviceSelection() {
  const std::vector<std::int32_t> selected = shell_.controls.SelectedRows(Control::DeviceList);
  if (selected.size() == 1 && devices_.size() == 1) {
    devices_.front().selected = true;
    return;
  }
  // Only so many rows as are selected, see the header.
  for (std::int32_t row = 0; row < static_cast<std::int32_t>(selected.size()); ++row) {
    const auto device = static_cast<std::size_t>(shell_.controls.RowData(Control::DeviceList, row));
    if (device >= devices_.size()) continue;
    devices_[device].selected = std::find(selected.begin(), selected.end(), row) != selected.end();
  }
}

std::int32_t Ctrls::SelectedDeviceIndex() const {
  return shell_.controls.RowData(Control::DeviceList, shell_.controls.CurrentRow(Control::DeviceList));
}

void Ctrls::UpdateScrollBar() {
  shell_.controls.SetScrollBar(GetViewScrollInfo(program_));
}

void Ctrls::UpdateZoomSlider() {
  zoomSlider_.SetRange(kLastZoomPosition, 1, 0);
  zoomSlider_.SetPosition(TruncateToInt(kMaxViewHours - ViewHours(program_)));
}

void Ctrls::ShowDemoStatus(const TCBase::DemoState& record) {
  const char* button = kPlayText;
  std::u16string status = Message("Ready ({1}s)", shell_.settings.DemoSpeed()).ToWide();
  const std::int32_t state = record.state;
  if (state == TCBase::StatePaused) {
    status = Message("Paused").ToWide();
  } else if (state == TCBase::StatePlaying) {
    button = kPauseText;
    status = Message("Playing").ToWide();
  }

  secondOfMode_.reset();
  ShowTimeAndPower(record.position, record.Step());

  shell_.controls.SetText(Control::PlayButton, WideFromUtf8(button));
  shell_.controls.SetText(Control::DemoStatusLabel, status);
  const bool demoRuns = state != TCBase::StateIdle;
  for (const ControlRow& row : ControlTable()) {
    const When when = WhenToUse(row, commands_);
    if (when != When::Always) shell_.controls.SetEnabled(row.control, Allows(when, demoRuns));
  }
}

void Ctrls::ShowModeAt(std::int32_t second) {
  secondOfMode_ = second;
  ShowTimeAndPower(second, StepAt(CurrentMode(program_), second));
}

void Ctrls::UpdateReadOuts() {
  if (secondOfMode_) ShowModeAt(*secondOfMode_);
}

void Ctrls::ShowTimeAndPower(std::int32_t second, const ModeStep& step) {
  shell_.controls.SetText(Control::TimeLabel, WideFromUtf8(TimeTextWithSeconds(second)));
  ovk::format power("{1} {2} {3} {4} {5}");
  for (const std::int32_t value : step.values) power.arg(value, 0);
  shell_.controls.SetText(Control::PowerLabel, WideFromUtf8(power.text().view()));
}

}  // namespace app
