#pragma once

#include "app/window/ports.h"
#include "platform/qt/desktop/controls.h"

namespace qt {

/// The log pane's text. The control is one of `controls`, which outlives the pane.
class LogPane final : public app::LogPanePort {
 public:
  explicit LogPane(Controls& controls) : controls_(controls) {}

  void Append(std::u16string_view text, app::LogColor color, std::size_t most) override;
  bool HasFocus() const override;
  void SelectAll() override;

 private:
  Controls& controls_;
  bool red_ = false;  // the last text that had a colour
};

}  // namespace qt
