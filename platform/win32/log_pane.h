#pragma once

#include <optional>

#include "app/window/ports.h"
#include "platform/win32/controls.h"

namespace win32 {

/// The rich text control Control::LogPane.
class LogPane final : public app::LogPanePort {
 public:
  explicit LogPane(const Controls& controls) : controls_(controls) {}

  void Append(std::u16string_view text, app::LogColor color, std::size_t most) override;
  bool HasFocus() const override;
  void SelectAll() override { Select(0, -1); }

 private:
  LRESULT Send(UINT message, WPARAM first, LPARAM second) const;
  void Select(LONG begin, LONG end);
  void Clear();
  void ColorSelection(COLORREF color);
  void ReplaceSelection(std::u16string_view text);

  const Controls& controls_;
  std::optional<COLORREF> color_;  // of what is put in, once that was told
};

}  // namespace win32
