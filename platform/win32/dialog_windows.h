#pragma once

#include "dialogs/dialog.h"
#include "platform/win32/main_window.h"

namespace win32 {

/// Opens dialogs over the main window, from the templates of resources/dialogs.rc.
class DialogWindows final : public dialogs::DialogsPort {
 public:
  /// `instance` is the module that holds the templates.
  DialogWindows(HINSTANCE instance, const MainWindow& owner) : instance_(instance), owner_(owner) {}

  int Run(dialogs::DlgBase& dialog) override;

 private:
  const HINSTANCE instance_;
  const MainWindow& owner_;
};

}  // namespace win32
