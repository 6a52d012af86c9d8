#include "dialogs/dlg_get_value.h"

#include "dialogs/dialog_template.h"
#include "dialogs/read_text.h"

namespace dialogs {

namespace id = get_value_control;

DlgGetValue::DlgGetValue(DialogsPort& port, GetValueParams& params)
    : DlgBase(port, template_id::kGetValue), params_(params) {}

void DlgGetValue::OnInit(DialogWindow& window) {
  window.MoveTo(params_.x, params_.y);
  window.LimitText(id::kValue, params_.maxLength);
  window.SetTitle(params_.title);
  window.SetText(id::kPrompt, params_.prompt);
  window.SetText(id::kValue, params_.value);
  window.SetText(kOk, params_.okText);
  window.SetText(kCancel, params_.cancelText);
  if (params_.numbersOnly) window.AcceptDigitsOnly(id::kValue);
}

void DlgGetValue::OnOk(DialogWindow& window) {
  if (StoreText(window, id::kValue, params_.value) == Stored::Empty) return;
  DlgBase::OnOk(window);
}

}  // namespace dialogs
