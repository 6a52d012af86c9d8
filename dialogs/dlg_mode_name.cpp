#include "dialogs/dlg_mode_name.h"

#include <cstddef>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/message.h"
#include "dialogs/dialog_template.h"
#include "dialogs/read_text.h"

namespace dialogs {

namespace {
constexpr std::size_t kNameUnits = 80;
}

DlgModeName::DlgModeName(DialogsPort& port, ModeNameParams& params)
    : DlgBase(port, template_id::kModeName), params_(params) {}

void DlgModeName::OnInit(DialogWindow& window) {
  window.MoveTo(params_.x, params_.y);
  window.LimitText(mode_name_control::kName, params_.maxLength);
  window.SetTitle(params_.title);
  window.SetText(mode_name_control::kNameLabel, params_.nameLabel);
  window.SetText(mode_name_control::kName, params_.name);
  window.SetText(mode_name_control::kDescriptionLabel, params_.descriptionLabel);
  window.SetText(mode_name_control::kDescription, params_.description);
  window.SetText(kOk, params_.okText);
  window.SetText(kCancel, params_.cancelText);
  if (params_.copySource == nullptr) {
    window.Hide(mode_name_control::kCopyLabel);
    window.Hide(mode_name_control::kCopyFrom);
  } else {
    FillCopySources(window);
  }
}

void DlgModeName::FillCopySources(DialogWindow& window) {
  window.SetText(mode_name_control::kCopyLabel, params_.copyLabel);
  std::int32_t number = 0;
  window.AddRow(mode_name_control::kCopyFrom, Message("<empty>").ToWide(), number);
  for (const TCBase::Program::Mode& mode : params_.copySource->modes) {
    window.AddRow(mode_name_control::kCopyFrom, WideFromUtf8(mode.name), ++number);
  }
  window.SelectRow(mode_name_control::kCopyFrom, 0);
}

void DlgModeName::OnOk(DialogWindow& window) {
  StoreText(window, mode_name_control::kDescription, params_.description);
  if (StoreText(window, mode_name_control::kName, params_.name, kNameUnits) == Stored::Empty) return;
  if (params_.copySource != nullptr) params_.copyFrom = window.SelectedData(mode_name_control::kCopyFrom) - 1;
  DlgBase::OnOk(window);
}

}  // namespace dialogs
