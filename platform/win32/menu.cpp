#include "platform/win32/menu.h"

#include <string>
#include <string_view>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "platform/win32/scale.h"
#include "platform/win32/text.h"

namespace win32 {

namespace {

constexpr UINT kDisabled = MFS_DISABLED;  // which greys it, too

// What names an item: its command number, in whichever menu it stands, or its position in this one.
enum class By : BOOL { Command = FALSE, Position = TRUE };

MENUITEMINFOW ItemInfo(UINT mask) {
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = mask;
  return info;
}

void SetText(HMENU menu, int item, By by, std::u16string_view text) {
  std::wstring wide = WideText(text);
  MENUITEMINFOW info = ItemInfo(MIIM_STRING);
  info.dwTypeData = wide.data();
  SetMenuItemInfoW(menu, static_cast<UINT>(item), static_cast<BOOL>(by), &info);
}

// Turns bits of an item's state on or off; the others stay.
void SetState(HMENU menu, int item, By by, UINT bits, bool on) {
  MENUITEMINFOW info = ItemInfo(MIIM_STATE);
  if (!GetMenuItemInfoW(menu, static_cast<UINT>(item), static_cast<BOOL>(by), &info)) return;
  info.fState = on ? info.fState | bits : info.fState & ~bits;
  SetMenuItemInfoW(menu, static_cast<UINT>(item), static_cast<BOOL>(by), &info);
}

void AppendMissing(HMENU menu, std::span<const app::MenuEntry> entries);

void Append(HMENU menu, const app::MenuEntry& entry) {
  using Kind = app::MenuEntry::Kind;
  std::wstring text = WideText(WideFromUtf8(entry.text));
  MENUITEMINFOW info = ItemInfo(MIIM_FTYPE);
  if (entry.kind == Kind::Separator) {
    info.fType = MFT_SEPARATOR;
  } else {
    info.fMask = MIIM_STRING | (entry.kind == Kind::Command ? MIIM_ID : MIIM_SUBMENU);
    info.wID = static_cast<UINT>(entry.command);
    info.dwTypeData = text.data();
    if (entry.kind == Kind::Submenu) info.hSubMenu = CreatePopupMenu();
  }
  InsertMenuItemW(menu, static_cast<UINT>(GetMenuItemCount(menu)), TRUE, &info);
  if (info.hSubMenu != nullptr) AppendMissing(info.hSubMenu, entry.entries);
}

void AppendMissing(HMENU menu, std::span<const app::MenuEntry> entries) {
  for (int position = 0; position < static_cast<int>(entries.size()); ++position) {
    const app::MenuEntry& entry = entries[static_cast<std::size_t>(position)];
    if (position >= GetMenuItemCount(menu)) {
      Append(menu, entry);
    } else if (entry.kind == app::MenuEntry::Kind::Submenu) {
      AppendMissing(GetSubMenu(menu, position), entry.entries);
    }
  }
}

}  // namespace

void AppendMissing(HMENU bar, std::span<const app::MenuPopup> menus) {
  for (int position = 0; const app::MenuPopup& popup : menus) {
    AppendMissing(GetSubMenu(bar, position++), popup.entries);
  }
}

void Menu::Take(HWND mainWindow, HWND chart) {
  mainWindow_ = mainWindow;
  chart_ = chart;
  menu_ = GetMenu(mainWindow);
}

bool Menu::HasItem(int command) const {
  MENUITEMINFOW info = ItemInfo(MIIM_ID);
  return GetMenuItemInfoW(menu_, static_cast<UINT>(command), FALSE, &info) != 0;
}

void Menu::SetItemText(int command, std::u16string_view text) {
  SetText(menu_, command, By::Command, text);
}

void Menu::InsertItemBefore(int before, int command, std::u16string_view text) {
  std::wstring wide = WideText(text);
  MENUITEMINFOW info = ItemInfo(MIIM_ID | MIIM_STRING);
  info.wID = static_cast<UINT>(command);
  info.dwTypeData = wide.data();
  InsertMenuItemW(menu_, static_cast<UINT>(before), FALSE, &info);
}

void Menu::SetPopupText(int position, std::u16string_view text, int submenu) {
  SetText(submenu < 0 ? menu_ : GetSubMenu(menu_, submenu), position, By::Position, text);
}

void Menu::SetEnabled(int command, bool enabled) {
  SetState(menu_, command, By::Command, kDisabled, !enabled);
}

void Menu::SetChecked(int command, bool checked) {
  SetState(menu_, command, By::Command, MFS_CHECKED, checked);
}

void Menu::SetPopupEnabled(int position, bool enabled) {
  SetState(menu_, position, By::Position, kDisabled, !enabled);
}

void Menu::Redraw() {
  DrawMenuBar(mainWindow_);
}

void Menu::OpenAtChart(int position, std::int32_t x, std::int32_t y) {
  const Scale scale(chart_);
  POINT point{scale.Pixels(x), scale.Pixels(y)};
  ClientToScreen(chart_, &point);
  TrackPopupMenu(GetSubMenu(menu_, position), TPM_LEFTALIGN | TPM_RIGHTBUTTON, point.x, point.y, 0,
                 mainWindow_, nullptr);
}

}  // namespace win32
