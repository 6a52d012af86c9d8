// Commands that the resources do not know, in the menu and among the keys.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "platform/win32/event_queue.h"
#include "platform/win32/menu.h"
#include "tests/desktop/program_resources.h"

namespace {

using app::MenuEntry;
using testing::ElementsAre;
using testing::IsEmpty;

// "1 New, -, [More: 2 Old]" and so on.
std::string Told(HMENU menu) {
  std::string told;
  for (int position = 0; position < GetMenuItemCount(menu); ++position) {
    std::array<wchar_t, 100> text{};
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING;
    info.dwTypeData = text.data();
    info.cch = static_cast<UINT>(text.size());
    GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info);
    if (position > 0) told += ", ";
    if (info.fType == MFT_SEPARATOR) {
      told += "-";
    } else if (info.hSubMenu != nullptr) {
      told += "[" + desktop::Ascii(text.data()) + ": " + Told(info.hSubMenu) + "]";
    } else {
      told += std::to_string(info.wID) + " " + desktop::Ascii(text.data());
    }
  }
  return told;
}

MenuEntry Item(int command, TextKey text) {
  return {MenuEntry::Kind::Command, command, text};
}

TEST(AppendedMenus, StandBehindWhatIsThere) {
  const HMENU bar = CreateMenu();
  const HMENU file = CreatePopupMenu();
  const HMENU more = CreatePopupMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"File");
  AppendMenuW(file, MF_STRING, 1, L"New");
  AppendMenuW(file, MF_POPUP, reinterpret_cast<UINT_PTR>(more), L"More");
  AppendMenuW(more, MF_STRING, 2, L"Old");
  const MenuEntry known{MenuEntry::Kind::Submenu,
                        0,
                        TextKey("More"),
                        {},
                        {Item(2, TextKey("Old")), {}, Item(3, TextKey("Older"))}};
  const MenuEntry added{MenuEntry::Kind::Submenu, 0, TextKey("Most"), {}, {Item(4, TextKey("Oldest"))}};
  const std::array<app::MenuPopup, 1> menus{
      {{TextKey("File"), {Item(1, TextKey("New")), known, {}, added, Item(5, TextKey("Last"))}}}};
  win32::AppendMissing(bar, menus);
  EXPECT_EQ(Told(bar), "[File: 1 New, [More: 2 Old, -, 3 Older], -, [Most: 4 Oldest], 5 Last]");
  win32::AppendMissing(bar, menus);
  EXPECT_EQ(Told(bar), "[File: 1 New, [More: 2 Old, -, 3 Older], -, [Most: 4 Oldest], 5 Last]");
  DestroyMenu(bar);
}

// A window that notes the commands that it gets.
class Accelerators : public testing::Test {
 protected:
  Accelerators()
      : window_(
            CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&commands_));
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Accelerators::Note));
  }
  ~Accelerators() override {
    Hold(VK_CONTROL, false);
    DestroyWindow(window_);
    DestroyAcceleratorTable(told_);
  }

  static void Hold(int key, bool down) {
    std::array<BYTE, 256> keys{};
    GetKeyboardState(keys.data());
    keys[static_cast<std::size_t>(key)] = down ? 0x80 : 0;
    SetKeyboardState(keys.data());
  }
  bool Press(int key) {
    MSG left{};
    while (PeekMessageW(&left, nullptr, 0, 0, PM_REMOVE)) {
    }
    PostMessageW(window_, WM_KEYDOWN, static_cast<WPARAM>(key), 0);
    return queue_.Take() && queue_.OfferToAccelerators();
  }

  static LRESULT CALLBACK Note(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* const commands = reinterpret_cast<std::vector<int>*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_COMMAND) commands->push_back(LOWORD(first));
    return DefWindowProcW(window, message, first, second);
  }

  std::vector<int> commands_;
  HWND window_;
  ACCEL row_{FVIRTKEY, VK_DELETE, 7};
  HACCEL told_ = CreateAcceleratorTableW(&row_, 1);
  win32::EventQueue queue_;
};

TEST_F(Accelerators, KeysThatTheResourcesLackWorkToo) {
  const std::array<app::Accelerator, 3> keys{
      {{app::Key(VK_DELETE), 7}, {app::Key(VK_INSERT), 8}, {app::Ctrl('M'), 9}}};
  queue_.UseAccelerators(window_, told_, keys);
  EXPECT_TRUE(Press(VK_DELETE));
  EXPECT_TRUE(Press(VK_INSERT));
  EXPECT_FALSE(Press('M')) << "without Ctrl";
  EXPECT_FALSE(Press(VK_RETURN)) << "which gives the same character as Ctrl and M";
  Hold(VK_CONTROL, true);
  EXPECT_TRUE(Press('M'));
  EXPECT_THAT(commands_, ElementsAre(7, 8, 9));
}

TEST_F(Accelerators, WithoutFurtherKeysThoseOfTheResourcesAreAll) {
  queue_.UseAccelerators(window_, told_, {});
  EXPECT_FALSE(Press(VK_INSERT));
  EXPECT_THAT(commands_, IsEmpty());
  EXPECT_TRUE(Press(VK_DELETE));
}

}  // namespace
