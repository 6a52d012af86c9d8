#pragma once

// The menu bar and the accelerator keys as data. A shell builds its menu from this; the texts are put in by
// MenuBar, translated.

#include <span>
#include <string_view>

namespace app {

/// One line of a menu. Separators count as positions.
struct MenuEntry {
  enum class Kind { Command, Separator, Submenu };

  Kind kind = Kind::Separator;
  int command = 0;                          // of a Command
  std::string_view text;                    // English, the key of the translation
  std::string_view suffix;                  // follows the text, not translated
  std::span<const MenuEntry> entries = {};  // of a Submenu
};

/// One menu of the bar.
struct MenuPopup {
  std::string_view text;
  std::span<const MenuEntry> entries;
  bool rightJustified = false;
};

/// The menus from left to right. The Language menu holds only "English" here: MenuBar inserts the others.
std::span<const MenuPopup> MenuTable();

/// Positions in the bar.
namespace menu {
inline constexpr int kFile = 0;
inline constexpr int kEdit = 1;
inline constexpr int kDevice = 2;
inline constexpr int kChannel = 3;  // also the chart's context menu
inline constexpr int kMode = 4;
inline constexpr int kLanguage = 5;
inline constexpr int kHelp = 6;
}  // namespace menu

struct Accelerator {
  enum class Kind {
    AltCharacter,  // the character, with Alt held
    Character,     // the character that the keys give: 26 for Ctrl+Z
    VirtualKey,    // a key number, without modifiers
  };

  Kind kind;
  int key;
  int command;
};

/// In the order in which they are tried. They work from every control of the main window; an event that one
/// of them takes goes no further.
std::span<const Accelerator> AcceleratorTable();

}  // namespace app
