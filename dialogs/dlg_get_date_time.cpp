#include "dialogs/dlg_get_date_time.h"

#include "dialogs/dialog_template.h"

namespace dialogs {

namespace id = date_time_control;

DlgGetDateTime::DlgGetDateTime(DialogsPort& port, DateTimeParams& params)
    : DlgBase(port, template_id::kGetDateTime), params_(params) {}

void DlgGetDateTime::OnInit(DialogWindow& window) {
  window.MoveTo(params_.x, params_.y);
  window.SetTitle(params_.title);
  window.SetText(id::kPrompt, params_.prompt);
  window.SetText(kOk, params_.okText);
  window.SetText(kCancel, params_.cancelText);
  window.SetDateTime(id::kDateTime, params_.dateTime, u"yyyy-MMM-dd HH:mm:ss");
}

void DlgGetDateTime::OnOk(DialogWindow& window) {
  params_.dateTime = window.GetDateTime(id::kDateTime);
  DlgBase::OnOk(window);
}

}  // namespace dialogs
