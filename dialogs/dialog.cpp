#include "dialogs/dialog.h"

#include <algorithm>

namespace dialogs {

Position PlaceBeside(const Rect& area, std::int32_t width, std::int32_t height, const Rect& screen) {
  const std::int32_t lastX = screen.x + screen.width - width;
  const std::int32_t lastY = screen.y + screen.height - height;
  // As near to the area's left top as the screen lets it be.
  const std::int32_t x = std::max(screen.x, std::min(area.x, lastX));
  const std::int32_t y = std::max(screen.y, std::min(area.y, lastY));
  if (area.x + area.width <= lastX) return {area.x + area.width, y};
  if (area.y + area.height <= lastY) return {x, area.y + area.height};
  if (area.x - width >= screen.x) return {area.x - width, y};
  if (area.y - height >= screen.y) return {x, area.y - height};
  return {std::max(screen.x, lastX), std::max(screen.y, lastY)};
}

void DlgBase::OnCommand(DialogWindow& window, int control, int code) {
  switch (control) {
    case kOk:
      return OnOk(window);
    case kCancel:
      return window.End(kCancel);
    default:
      return OnControl(window, control, code);
  }
}

void DlgBase::OnOk(DialogWindow& window) {
  window.End(kOk);
}

}  // namespace dialogs
