#pragma once

#include <optional>

#include "app/window/ports.h"
#include "platform/win32/controls.h"

namespace win32 {

/// The rich text control Control::LogPane.
class LogPane final : public app::LogPanePort {
 public:
  explicit LogPane(const Controls& controls) : controls_(controls) {}

  std::size_t Length() const override;
  void Clear() override;
  void SetSelectionColor(std::uint32_t color) override;
  void MoveCaret(std::size_t position) override;
  void ReplaceSelection(std::u16string_view text) override;
  void ScrollToBottom() override;

 private:
  LRESULT Send(UINT message, WPARAM first, LPARAM second) const;
  void ColorSelection(std::uint32_t color);
  void Select(std::int32_t begin, std::int32_t end);

  const Controls& controls_;
  std::optional<std::uint32_t> color_;  // of what is put in, once that was told
};

}  // namespace win32
