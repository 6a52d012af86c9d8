#include "dialogs/dlg_get_date_time.h"

#include "dialogs/dialog_template.h"

namespace dialogs {

DlgGetDateTime::DlgGetDateTime(DialogsPort& port, DateTimeParams& params)
    : DlgBase(port, template_id::kGetDateTime), params_(params) {}

void DlgGetDateTime::OnInit(DialogWindow& window) {
  window.MoveTo(params_.x, params_.y);
  window.SetTitle(params_.title);
  window.SetText(date_time_control::kPrompt, params_.prompt);
  window.SetText(kOk, params_.okText);
  window.SetText(kCancel, params_.cancelText);
  window.SetDateTime(date_time_control::kDateTime, params_.dateTime, u"yyyy-MMM-dd HH:mm:ss");
}

void DlgGetDateTime::OnOk(DialogWindow& window) {
  params_.dateTime = window.GetDateTime(date_time_control::kDateTime);
  DlgBase::OnOk(window);
}

}  // namespace dialogs
