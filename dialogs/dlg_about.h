#pragma once

#include "dialogs/dialog.h"

namespace dialogs {

/// Tells what the program is, whose, on which terms, and where to turn to. The texts come from the build.
class DlgAbout final : public DlgBase {
 public:
  explicit DlgAbout(DialogsPort& port);

  void OnInit(DialogWindow& window) override;

 private:
  void OnControl(DialogWindow& window, int control, int code) override;
};

}  // namespace dialogs
