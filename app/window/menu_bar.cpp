#include "app/window/menu_bar.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/numbers.h"
#include "common/message.h"

namespace app {

namespace {

std::u16string MenuText(std::string_view key, std::string_view suffix = {}) {
  return WideFromUtf8(Translate(key).append(suffix));
}

void ApplyEntries(MenuPort& port, std::span<const MenuEntry> entries, int bar) {
  int position = 0;
  for (const MenuEntry& entry : entries) {
    if (entry.kind == MenuEntry::Kind::Command) {
      port.SetItemText(entry.command, MenuText(entry.text, entry.suffix));
    } else if (entry.kind == MenuEntry::Kind::Submenu) {
      port.SetPopupText(position, MenuText(entry.text), bar);
      ApplyEntries(port, entry.entries, bar);
    }
    ++position;
  }
}

}  // namespace

MenuBar::MenuBar(const Shell& shell, std::span<const Command> commands,
                 const TCBase::Program::StepSelection& selection)
    : commands_(commands),
      menus_(BuildMenus(commands)),
      menu_(shell.menu),
      settings_(shell.settings),
      selection_(selection),
      translations_(shell.translations) {}

void MenuBar::ApplyTexts() {
  int position = 0;
  for (const MenuPopup& popup : menus_) {
    menu_.SetPopupText(position, MenuText(popup.text), -1);
    ApplyEntries(menu_, popup.entries, position);
    ++position;
  }
  FillLanguageMenu();
  MarkLanguageMenu();
  menu_.Redraw();
}

template <class Action>
void MenuBar::ForEachLanguage(const Action& action) const {
  int number = command::kFirstLanguage;
  for (const auto& language : translations_.GetLanguages().children) {
    if (number > command::kLastLanguage) return;  // there are commands for so many
    action(number++, *language);
  }
}

// "English" itself is an item of the table.
void MenuBar::FillLanguageMenu() {
  ForEachLanguage([this](int number, ovk::xml::element& language) {
    // A language without a name has an empty one from then on.
    const std::u16string name = WideFromUtf8(language.attribute("name").value.view());
    if (menu_.HasItem(number)) {
      menu_.SetItemText(number, name);
    } else {
      menu_.InsertItemBefore(command::kEnglish, number, name);
    }
  });
}

void MenuBar::MarkLanguageMenu() {
  const std::string active = translations_.GetLanguageId();
  menu_.SetChecked(command::kEnglish, active == TranslationStore::kEnglish);
  ForEachLanguage([&](int number, const ovk::xml::element& language) {
    // One that was merged in has no item before the next change of language.
    if (!menu_.HasItem(number)) return;
    menu_.SetChecked(number, language.attribute_or_empty("id") == std::string_view(active));
  });
}

void MenuBar::Refresh(std::int32_t demoPosition, bool loggingOn) {
  const bool demoRuns = demoPosition >= 0;
  for (const Command& command : commands_) {
    if (command.menu == menu::kNone) continue;
    menu_.SetEnabled(command.number, IsEnabled(command, demoRuns, selection_));
    if (!command.setting.empty()) menu_.SetChecked(command.number, settings_.IsOn(command.setting));
  }
  for (int position = 0; position < static_cast<int>(menus_.size()); ++position) {
    menu_.SetPopupEnabled(position, IsMenuEnabled(position, demoRuns));
  }
  MarkLogging(loggingOn);
  MarkDemoSpeed();
  MarkLanguageMenu();
}

void MenuBar::RefreshNow(std::int32_t demoPosition, bool loggingOn) {
  Refresh(demoPosition, loggingOn);
  menu_.Redraw();
}

void MenuBar::MarkLogging(bool on) {
  menu_.SetChecked(command::kLogging, on);
}

void MenuBar::MarkDemoSpeed() {
  const std::int32_t speed = settings_.DemoSpeed();
  menu_.SetItemText(command::kSpeedCustom, Message("Custom...", speed).ToWide());
  const DemoSpeed* const marked = std::ranges::find(kDemoSpeeds, speed, &DemoSpeed::seconds);
  for (const DemoSpeed& choice : kDemoSpeeds) menu_.SetChecked(choice.command, &choice == marked);
  menu_.SetChecked(command::kSpeedCustom, marked == std::end(kDemoSpeeds));
}

}  // namespace app
