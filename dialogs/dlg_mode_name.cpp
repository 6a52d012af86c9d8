#include "dialogs/dlg_mode_name.h"

#include <cstddef>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/message.h"
#include "dialogs/dialog_template.h"
#include "dialogs/read_text.h"

namespace dialogs {

namespace id = mode_name_control;

namespace {
constexpr std::size_t kNameUnits = 80;
}

DlgModeName::DlgModeName(DialogsPort& port, ModeNameParams& params)
    : DlgBase(port, template_id::kModeName), params_(params) {}

void DlgModeName::OnInit(DialogWindow& window) {
  window.MoveTo(params_.x, params_.y);
  window.LimitText(id::kName, params_.maxLength);
  window.SetTitle(params_.title);
  window.SetText(id::kNameLabel, params_.nameLabel);
  window.SetText(id::kName, params_.name);
  window.SetText(id::kDescriptionLabel, params_.descriptionLabel);
  window.SetText(id::kDescription, params_.description);
  window.SetText(kOk, params_.okText);
  window.SetText(kCancel, params_.cancelText);
  if (params_.copySource == nullptr) {
    window.Hide(id::kCopyLabel);
    window.Hide(id::kCopyFrom);
  } else {
    FillCopySources(window);
  }
}

void DlgModeName::FillCopySources(DialogWindow& window) {
  window.SetText(id::kCopyLabel, params_.copyLabel);
  std::int32_t number = 0;
  window.AddRow(id::kCopyFrom, Message("<empty>").ToWide(), number);
  for (const TCBase::Program::Mode& mode : params_.copySource->modes) {
    window.AddRow(id::kCopyFrom, WideFromUtf8(mode.name), ++number);
  }
  window.SelectRow(id::kCopyFrom, 0);
}

void DlgModeName::OnOk(DialogWindow& window) {
  StoreText(window, id::kDescription, params_.description);
  if (StoreText(window, id::kName, params_.name, kNameUnits) == Stored::Empty) return;
  if (params_.copySource != nullptr) params_.copyFrom = window.SelectedData(id::kCopyFrom) - 1;
  DlgBase::OnOk(window);
}

}  // namespace dialogs
