#include "app/window/command.h"

#include <algorithm>

#include "program/channel_edit.h"

namespace app {

namespace {

struct MenuRow {
  TextKey text;
  When when = When::Always;
  bool rightJustified = false;
};

// The menus of the bar, indexed by position.
constexpr MenuRow kMenus[] = {
    {TextKey("File")},
    {TextKey("Edit")},
    {TextKey("Device")},
    {TextKey("Channel"), When::WithoutDemo},
    {TextKey("Mode"), When::WithoutDemo},
    {TextKey("Language")},
    {TextKey("Help"), When::Always, true},
};

void Append(std::vector<MenuEntry>& menu, const Command& command) {
  const bool isInNewSubmenu =
      !command.submenu.empty() && (menu.empty() || menu.back().text != command.submenu);
  const bool isAtTop = command.submenu.empty() || isInNewSubmenu;
  std::vector<MenuEntry>& level = isAtTop ? menu : menu.back().entries;
  if (command.beginsGroup) level.push_back({});
  if (isInNewSubmenu) menu.push_back({MenuEntry::Kind::Submenu, 0, command.submenu});
  (isInNewSubmenu ? menu.back().entries : level)
      .push_back({MenuEntry::Kind::Command, command.number, command.text, command.suffix});
}

}  // namespace

bool IsEnabled(const Command& command, bool demoRuns, const TCBase::Program::StepSelection& selection) {
  return Allows(command.when, demoRuns) &&
         (!command.needsStep || TCBase::Program::SelectedStep(selection) != nullptr);
}

const Command* FindCommand(std::span<const Command> commands, int number, int code) {
  const auto found = std::ranges::find_if(commands, [&](const Command& command) {
    const bool isIt = number == command.number || (number > command.number && number <= command.lastNumber);
    return isIt && (command.code == kAnyCode || command.code == code);
  });
  return found == commands.end() ? nullptr : &*found;
}

std::vector<MenuPopup> BuildMenus(std::span<const Command> commands) {
  std::vector<MenuPopup> menus;
  for (const MenuRow& row : kMenus) menus.push_back({row.text, {}, row.rightJustified});
  for (const Command& command : commands) {
    if (command.menu != menu::kNone) Append(menus[static_cast<std::size_t>(command.menu)].entries, command);
  }
  return menus;
}

bool IsMenuEnabled(int position, bool demoRuns) {
  return Allows(kMenus[position].when, demoRuns);
}

std::vector<Accelerator> BuildAccelerators(std::span<const Command> commands) {
  std::vector<Accelerator> keys;
  for (const Command& command : commands) {
    for (const KeyStroke& key : command.keys) {
      if (key.kind != KeyStroke::Kind::None) keys.push_back({key, command.number});
    }
  }
  return keys;
}

}  // namespace app
