#pragma once

#include "common/date_time.h"
#include "dialogs/dialog.h"

namespace dialogs {

struct DateTimeParams {
  std::int32_t x = 0;  // in the main window's client area
  std::int32_t y = 0;
  std::u16string title;
  std::u16string prompt;
  DateTime dateTime;  // in, and out on OK
  std::u16string okText;
  std::u16string cancelText;
};

/// Asks for a date and a time of day.
class DlgGetDateTime final : public DlgBase {
 public:
  /// `params` outlives the dialog.
  DlgGetDateTime(DialogsPort& port, DateTimeParams& params);

  void OnInit(DialogWindow& window) override;

 private:
  void OnOk(DialogWindow& window) override;

  DateTimeParams& params_;
};

}  // namespace dialogs
