#include "platform/qt/desktop/dialog_windows.h"

#include "dialogs/dialog_template.h"
#include "platform/qt/desktop/open_dialog.h"

namespace qt {

int DialogWindows::Run(dialogs::DlgBase& dialog) {
  const dialogs::DialogTemplate* const row = dialogs::FindTemplate(dialog.templateId);
  if (row == nullptr) return dialogs::kCancel;
  const MainWindow::Blocked blocked(owner_);
  OpenDialog window(*row, dialog, owner_.Inside());
  const int result = window.Run();
  // Qt's own answers for a dialog that has gone with its owner are below.
  return result > 0 ? result : dialogs::kCancel;
}

}  // namespace qt
