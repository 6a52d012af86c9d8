#include "dialogs/dialog.h"

namespace dialogs {

void DlgBase::OnCommand(DialogWindow& window, int control, int code) {
  switch (control) {
    case kOk:
      return OnOk(window);
    case kCancel:
      return window.End(kCancel);
    default:
      return OnControl(window, control, code);
  }
}

void DlgBase::OnOk(DialogWindow& window) {
  window.End(kOk);
}

}  // namespace dialogs
