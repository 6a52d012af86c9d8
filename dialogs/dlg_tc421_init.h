#pragma once

#include "dialogs/dialog.h"

namespace dialogs {

/// First page of the way of a TC421 into a wireless network: what the user does at the controller and at the
/// computer before they can speak.
class DlgTC421_Init final : public DlgBase {
 public:
  explicit DlgTC421_Init(DialogsPort& port);

  void OnInit(DialogWindow& window) override;
};

}  // namespace dialogs
