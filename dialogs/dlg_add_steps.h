#pragma once

#include "dialogs/dialog.h"

namespace dialogs {

struct AddStepsParams {
  std::int32_t x = 0;  // in the main window's client area
  std::int32_t y = 0;
  std::u16string title;
  std::u16string text;  // in, and out on OK
};

/// Asks for steps as text, one to a line, and counts them while the user types: what is counted is what OK
/// takes, so a count that stays low shows a wrong line, or a text that is too long. OK on an empty field
/// changes nothing.
class DlgAddSteps final : public DlgBase {
 public:
  /// `params` outlives the dialog.
  DlgAddSteps(DialogsPort& port, AddStepsParams& params);

  void OnInit(DialogWindow& window) override;

 private:
  void OnOk(DialogWindow& window) override;
  void OnControl(DialogWindow& window, int control, int code) override;
  void UpdateStepCount(DialogTexts& texts);

  AddStepsParams& params_;
};

}  // namespace dialogs
