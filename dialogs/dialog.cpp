#include "dialogs/dialog.h"

namespace dialogs {

bool DlgBase::OnCommand(DialogWindow& window, int control, int code) {
  if (control == kOk) return OnOk(window);
  if (control != kCancel) return OnControl(window, control, code);
  window.End(kCancel);
  return true;
}

bool DlgBase::OnOk(DialogWindow& window) {
  window.End(kOk);
  return true;
}

}  // namespace dialogs
