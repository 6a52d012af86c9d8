#pragma once

// What a command is: one row for each, with all that is known of it. The rows stand in app/commands.cpp; menu
// bar, keys, enabling and the dispatcher are made from them.

#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "app/window/refresh.h"
#include "app/window/when.h"
#include "common/message.h"
#include "program/program.h"

namespace app {

/// Positions of the menus in the bar.
namespace menu {
inline constexpr int kNone = -1;
inline constexpr int kFile = 0;
inline constexpr int kEdit = 1;
inline constexpr int kDevice = 2;
inline constexpr int kChannel = 3;  // also the chart's context menu
inline constexpr int kMode = 4;
inline constexpr int kLanguage = 5;
inline constexpr int kHelp = 6;
}  // namespace menu

/// A key that gives a command.
struct KeyStroke {
  enum class Kind {
    None,
    Key,           // the key of this number (namespace key), without Ctrl and Alt
    CtrlLetter,    // Ctrl and a letter, 'A' to 'Z', wherever the keyboard has it
    AltCharacter,  // Alt and whatever gives this character
  };

  Kind kind = Kind::None;
  int key = 0;
};

constexpr KeyStroke Key(int number) {
  return {KeyStroke::Kind::Key, number};
}
constexpr KeyStroke Ctrl(char letter) {
  return {KeyStroke::Kind::CtrlLetter, letter};
}
constexpr KeyStroke Alt(char character) {
  return {KeyStroke::Kind::AltCharacter, character};
}

/// The entry of the history that a command makes.
enum class Undo {
  None,
  Snapshot,   // made before the handler acts, whether something changes or not
  ByHandler,  // made by the handler, in most cases only if something changes
};

/// Whether a handler has changed what its row names.
enum class Changed { No, Yes };

struct CommandContext;
using CommandHandler = Changed (*)(CommandContext& context);

inline constexpr int kAnyCode = -1;

struct Command {
  int number;
  int lastNumber = 0;   // of a range of commands that share the row; 0 for one command
  int code = kAnyCode;  // what a control must have said of itself; commands have any

  // In the menu. A row without a text has no item.
  TextKey text = {};             // an item has one
  std::string_view suffix = {};  // follows the text, not translated
  int menu = menu::kNone;        // items of a menu stand in the order of their rows
  TextKey submenu = {};          // the submenu that the item is in
  bool beginsGroup = false;  // a separator stands before the item, or before its submenu if it is the first
  std::array<KeyStroke, 2> keys = {};

  // When it may be given: by its item and its keys alike. A menu may be greyed as a whole besides.
  When when = When::Always;
  bool needsStep = false;  // there must be a selected step

  std::string_view setting =
      {};  // that the command turns on and off (Settings::IsOn); its item has a mark while it is on

  Undo undo = Undo::None;
  CommandHandler handler;
  Parts refreshes = part::kNothing;  // after a handler that has changed something
  Parts always = part::kNothing;     // after any
};

/// Whether a command may be given now.
bool IsEnabled(const Command& command, bool demoRuns, const TCBase::Program::StepSelection& selection);

/// The row of a command, or of what a control says of itself; null if there is none.
const Command* FindCommand(std::span<const Command> commands, int number, int code);

// The menu bar

/// One line of a menu. Separators count as positions.
struct MenuEntry {
  enum class Kind { Command, Separator, Submenu };

  Kind kind = Kind::Separator;
  int command = 0;  // of a Command
  TextKey text = {};
  std::string_view suffix = {};         // follows the text, not translated
  std::vector<MenuEntry> entries = {};  // of a Submenu
};

/// One menu of the bar.
struct MenuPopup {
  TextKey text;
  std::vector<MenuEntry> entries;
  bool rightJustified = false;
};

/// The menus from left to right, made from the rows. The Language menu holds only "English" here: MenuBar
/// inserts the others.
std::vector<MenuPopup> BuildMenus(std::span<const Command> commands);

/// Whether a menu of the bar opens, there and as the chart's context menu.
bool IsMenuEnabled(int position, bool demoRuns);

/// A key and its command. The keys work from every control of the main window; an event that one of them
/// takes goes no further.
struct Accelerator {
  KeyStroke key;
  int command;
};

/// All keys of the rows. No key stands twice.
std::vector<Accelerator> BuildAccelerators(std::span<const Command> commands);

}  // namespace app
