#include "dialogs/dlg_get_value.h"

#include "dialogs/dialog_template.h"
#include "dialogs/read_text.h"

namespace dialogs {

DlgGetValue::DlgGetValue(DialogsPort& port, GetValueParams& params)
    : DlgBase(port, template_id::kGetValue), params_(params) {}

void DlgGetValue::OnInit(DialogWindow& window) {
  window.MoveTo(params_.x, params_.y);
  window.LimitText(get_value_control::kValue, params_.maxLength);
  window.SetTitle(params_.title);
  window.SetText(get_value_control::kPrompt, params_.prompt);
  window.SetText(get_value_control::kValue, params_.value);
  window.SetText(kOk, params_.okText);
  window.SetText(kCancel, params_.cancelText);
  if (params_.numbersOnly) window.AcceptDigitsOnly(get_value_control::kValue);
}

void DlgGetValue::OnOk(DialogWindow& window) {
  if (StoreText(window, get_value_control::kValue, params_.value) == Stored::Empty) return;
  DlgBase::OnOk(window);
}

}  // namespace dialogs
