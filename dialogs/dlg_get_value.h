#pragma once

#include "dialogs/dialog.h"

namespace dialogs {

struct GetValueParams {
  bool numbersOnly = false;    // refuses letters that are typed; pasted ones may come
  std::int32_t maxLength = 0;  // of what can be entered, in UTF-16 units
  std::int32_t x = 0;          // in the main window's client area
  std::int32_t y = 0;
  std::u16string title;
  std::u16string prompt;
  std::u16string value;  // in, and out on OK
  std::u16string okText;
  std::u16string cancelText;
};

/// Asks for one line of text. OK on an empty field changes nothing: the value stays as it came in.
class DlgGetValue final : public DlgBase {
 public:
  /// `params` outlives the dialog.
  DlgGetValue(DialogsPort& port, GetValueParams& params);

  void OnInit(DialogWindow& window) override;

 private:
  void OnOk(DialogWindow& window) override;

  GetValueParams& params_;
};

}  // namespace dialogs
