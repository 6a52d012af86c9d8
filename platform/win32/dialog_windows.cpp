#include "platform/win32/dialog_windows.h"

#include <optional>

#include "platform/win32/open_dialog.h"

namespace win32 {

namespace {

// A dialog between its call and its end.
class RunningDialog {
 public:
  RunningDialog(dialogs::DlgBase& dialog, HWND owner) : dialog_(dialog), owner_(owner) {}
  RunningDialog(const RunningDialog&) = delete;
  RunningDialog& operator=(const RunningDialog&) = delete;

  INT_PTR DlgProc(HWND window, UINT message, WPARAM first, LPARAM second);

 private:
  void Open(HWND window);

  dialogs::DlgBase& dialog_;
  const HWND owner_;
  std::optional<OpenDialog> window_;  // from WM_INITDIALOG on
};

INT_PTR RunningDialog::DlgProc(HWND window, UINT message, WPARAM first, LPARAM) {
  switch (message) {
    case WM_INITDIALOG:
      Open(window);
      // TRUE leaves it to the system to find the first control for the focus.
      return window_->HasGivenFocus() ? FALSE : TRUE;
    case WM_COMMAND:
      dialog_.OnCommand(*window_, LOWORD(first), HIWORD(first));
      return TRUE;
    case DialogTarget::kMessage:
      dialog_.OnEvent(*window_, static_cast<std::uint32_t>(first));
      return TRUE;
    default:
      return FALSE;
  }
}

void RunningDialog::Open(HWND window) {
  window_.emplace(window, owner_);
  dialog_.OnInit(*window_);
  window_->KeepOnScreen();
}

// The procedure of all dialogs. The dialog's own slot of the window holds the object.
INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, second);
  auto* const running = reinterpret_cast<RunningDialog*>(GetWindowLongPtrW(window, DWLP_USER));
  // The very first messages come before that.
  return running == nullptr ? FALSE : running->DlgProc(window, message, first, second);
}

}  // namespace

int DialogWindows::Run(dialogs::DlgBase& dialog) {
  RunningDialog running(dialog, owner_.Handle());
  const INT_PTR result = DialogBoxParamW(instance_, MAKEINTRESOURCEW(dialog.templateId), owner_.Handle(),
                                         &DialogProcedure, reinterpret_cast<LPARAM>(&running));
  // 0 and -1 are no answers: the dialog could not be opened, or went with its owner.
  return result > 0 ? static_cast<int>(result) : dialogs::kCancel;
}

}  // namespace win32
