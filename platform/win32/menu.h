#pragma once

#include "app/window/ports.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

/// The main window's menu, which the menu resource brought.
class Menu final : public app::MenuPort {
 public:
  Menu() = default;
  Menu(const Menu&) = delete;
  Menu& operator=(const Menu&) = delete;

  /// Takes the menu of the main window. Context menus open over `chart`.
  void Take(HWND mainWindow, HWND chart);

  bool HasItem(int command) const override;
  void SetItemText(int command, std::u16string_view text) override;
  void InsertItemBefore(int before, int command, std::u16string_view text) override;
  void SetPopupText(int position, std::u16string_view text, int submenu) override;
  void SetEnabled(int command, bool enabled) override;
  void SetChecked(int command, bool checked) override;
  void SetPopupEnabled(int position, bool enabled) override;
  void Redraw() override;
  void OpenAtChart(int position, std::int32_t x, std::int32_t y) override;

 private:
  HMENU menu_ = nullptr;
  HWND mainWindow_ = nullptr;
  HWND chart_ = nullptr;
};

}  // namespace win32
