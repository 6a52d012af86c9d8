#pragma once

#include <span>

#include "app/window/command.h"
#include "app/window/ports.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

/// Appends what `menus` have behind the entries of `bar`, which is what the menu resource brought: the first
/// of theirs. The texts are the English ones.
void AppendMissing(HMENU bar, std::span<const app::MenuPopup> menus);

/// The main window's menu.
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
