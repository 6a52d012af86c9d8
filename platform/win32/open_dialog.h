#pragma once

// A dialog's window, as the dialog's rules see it.

#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "dialogs/dialog.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

/// Posts to a dialog's window for as long as it stands. Any thread.
class DialogTarget final : public EventTarget {
 public:
  /// What an event arrives as, its number being the first parameter: the numbers of the events themselves
  /// mean other things to a dialog's window (1025 is DM_SETDEFID).
  static constexpr UINT kMessage = WM_APP;

  explicit DialogTarget(HWND window) : window_(window) {}
  DialogTarget(const DialogTarget&) = delete;
  DialogTarget& operator=(const DialogTarget&) = delete;

  void Post(std::uint32_t event, std::uintptr_t first, std::intptr_t second) override;
  /// The window goes; from here on nothing is posted to its handle, which may become another window's.
  void Forget();

 private:
  std::mutex mutex_;
  HWND window_;  // guarded by mutex_; null once it has gone
};

class OpenDialog final : public dialogs::DialogWindow {
 public:
  /// Places are told in the client area of `owner`. Both windows stand for as long as this is spoken to.
  OpenDialog(HWND window, HWND owner);
  ~OpenDialog() override;
  OpenDialog(const OpenDialog&) = delete;
  OpenDialog& operator=(const OpenDialog&) = delete;

  void MoveTo(std::int32_t x, std::int32_t y) override;
  void MoveBeside(const Rect& area) override;
  void SetTitle(std::u16string_view title) override;
  void SetText(int control, std::u16string_view text) override;
  std::u16string Text(int control, std::size_t units) const override;
  void SetEnabled(int control, bool enabled) override;
  void Hide(int control) override;
  void GiveFocus(int control) override;
  void LimitText(int control, std::int32_t units) override;
  void AcceptDigitsOnly(int control) override;
  void SetTabStops(int control, std::int32_t first, std::int32_t step) override;
  void ClearRows(int control) override;
  void AddRow(int control, std::u16string_view text, std::int32_t data) override;
  int RowCount(int control) const override;
  void SelectRow(int control, int row) override;
  void SelectText(int control, std::u16string_view text) override;
  std::int32_t SelectedData(int control) const override;
  void SetDateTime(int control, const DateTime& time, std::u16string_view format) override;
  DateTime GetDateTime(int control) const override;
  void Tell(std::u16string_view title, std::u16string_view text, dialogs::Icon icon) override;
  void OpenLink(std::u16string_view target) override;
  std::shared_ptr<EventTarget> Target() override { return target_; }
  void End(int result) override;

  /// The dialog's rules have chosen what has the focus.
  bool HasGivenFocus() const { return focusGiven_; }

  /// Moves the window as far as it takes to have all of it on the screen.
  void KeepOnScreen();

 private:
  HWND Item(int control) const { return GetDlgItem(window_, control); }
  LRESULT Send(int control, UINT message, WPARAM first = 0, LPARAM second = 0) const;

  const HWND window_;
  const HWND owner_;
  const std::shared_ptr<DialogTarget> target_;
  bool focusGiven_ = false;
};

/// `place`, moved as far as it takes to lie within `area`; by its left top where it is larger.
RECT Within(const RECT& area, const RECT& place);

}  // namespace win32
