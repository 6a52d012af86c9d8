#include "platform/win32/message_box.h"

#include "platform/win32/text.h"

namespace win32 {

namespace {

UINT BitsOf(dialogs::Icon icon) {
  switch (icon) {
    case dialogs::Icon::Information:
      return MB_ICONINFORMATION;
    case dialogs::Icon::Warning:
      return MB_ICONWARNING;
    case dialogs::Icon::Error:
      return MB_ICONERROR;
    case dialogs::Icon::None:
      break;
  }
  return 0;
}

}  // namespace

int ShowMessage(HWND owner, std::u16string_view title, std::u16string_view text, dialogs::Icon icon,
                UINT buttons) {
  return MessageBoxW(owner, WideText(text).c_str(), WideText(title).c_str(), buttons | BitsOf(icon));
}

}  // namespace win32
