#pragma once

#include "dialogs/dialog.h"
#include "program/program.h"

namespace dialogs {

struct ModeNameParams {
  std::int32_t maxLength = 0;  // of the name, in UTF-16 units
  std::int32_t x = 0;          // in the main window's client area
  std::int32_t y = 0;
  std::u16string title;
  std::u16string nameLabel;
  std::u16string name;  // in, and out on OK
  std::u16string descriptionLabel;
  std::u16string description;  // in, and out on OK
  std::u16string copyLabel;
  /// Whose modes may be copied; null for a dialog without that choice.
  const TCBase::Program::ModeListView* copySource = nullptr;
  std::int32_t copyFrom = -1;  // out on OK: the mode's index, -1 for none; untouched without a source
  std::u16string okText;
  std::u16string cancelText;
};

/// Asks for a name and a description, of a mode, a channel or a device. An emptied field keeps what stood in
/// it before.
class DlgModeName final : public DlgBase {
 public:
  /// `params` outlives the dialog.
  DlgModeName(DialogsPort& port, ModeNameParams& params);

  void OnInit(DialogWindow& window) override;

 private:
  void FillCopySources(DialogWindow& window);
  void OnOk(DialogWindow& window) override;

  ModeNameParams& params_;
};

}  // namespace dialogs
