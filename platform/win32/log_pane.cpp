#include "platform/win32/log_pane.h"

// after windows.h
#include <richedit.h>

#include "platform/win32/text.h"

namespace win32 {

LRESULT LogPane::Send(UINT message, WPARAM first, LPARAM second) const {
  return SendMessageW(controls_.HandleOf(app::Control::LogPane), message, first, second);
}

void LogPane::Select(LONG begin, LONG end) {
  CHARRANGE range{begin, end};
  Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

bool LogPane::HasFocus() const {
  return GetFocus() == controls_.HandleOf(app::Control::LogPane);
}

void LogPane::Append(std::u16string_view text, app::LogColor color, std::size_t most) {
  auto length = static_cast<std::size_t>(Send(WM_GETTEXTLENGTH, 0, 0));
  if (length > most) {
    Clear();
    length = 0;
  }
  if (color == app::LogColor::Red) {
    color_ = RGB(255, 0, 0);
    ColorSelection(*color_);
  }
  // The control counts a line's end as one character here and as two in its length: a position taken from
  // the length lies behind the end and comes out at it.
  const auto end = static_cast<LONG>(length);
  Select(end, end);
  ReplaceSelection(text);
  Send(WM_VSCROLL, SB_BOTTOM, 0);
}

void LogPane::Clear() {
  Select(0, -1);
  // Not WM_CLEAR, which a read-only control does not obey.
  ReplaceSelection({});
}

void LogPane::ColorSelection(COLORREF color) {
  CHARFORMATW format{};
  format.cbSize = sizeof format;
  format.dwMask = CFM_COLOR;
  format.crTextColor = color;
  Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
}

void LogPane::ReplaceSelection(std::u16string_view text) {
  // The control forgets the colour of its empty selection with every move of the caret.
  if (color_) ColorSelection(*color_);
  Send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(WideText(text).c_str()));
}

}  // namespace win32
