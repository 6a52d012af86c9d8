#pragma once

#include "dialogs/dialog.h"
#include "platform/qt/desktop/main_window.h"

namespace qt {

/// Opens dialogs over the main window.
class DialogWindows final : public dialogs::DialogsPort {
 public:
  /// The owner outlives the dialogs.
  explicit DialogWindows(MainWindow& owner) : owner_(owner) {}

  int Run(dialogs::DlgBase& dialog) override;

 private:
  MainWindow& owner_;
};

}  // namespace qt
