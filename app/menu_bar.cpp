#include "app/menu_bar.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/menu_table.h"
#include "app/numbers.h"
#include "common/message.h"
#include "program/channel_edit.h"

namespace app {

namespace {

// What a demo must not have changed under it, or what cannot be done while the worker plays it.
constexpr int kIdleCommands[] = {
    command::kNewProgram, command::kLoadProgram, command::kUndo,          command::kRedo,
    command::kSyncTime,   command::kSetTime,     command::kUploadProgram, command::kClearAll,
    command::kSpeedFast,  command::kSpeedNormal, command::kSpeedSlow,     command::kSpeedCustom,
    command::kPlayDemo,   command::kScanWifi,    command::kSetupWifi,
};
// What there must be a selected step for.
constexpr int kStepCommands[] = {command::kToggleJump, command::kDeleteStep};
constexpr int kIdlePopups[] = {menu::kChannel, menu::kMode};

bool Contains(std::span<const int> commands, int command) {
  return std::find(commands.begin(), commands.end(), command) != commands.end();
}

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

MenuBar::MenuBar(const Shell& shell, const TCBase::Program::StepSelection& selection)
    : menu_(shell.menu),
      settings_(shell.settings),
      selection_(selection),
      translations_(shell.translations) {}

void MenuBar::ApplyTexts() {
  int position = 0;
  for (const MenuPopup& popup : MenuTable()) {
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
  const bool idle = demoPosition < 0;
  for (const int number : kIdleCommands) menu_.SetEnabled(number, idle);
  for (const int position : kIdlePopups) menu_.SetPopupEnabled(position, idle);
  menu_.SetEnabled(command::kStopDemo, !idle);

  const bool hasStep = SelectedStep(selection_) != nullptr;
  for (const int number : kStepCommands) menu_.SetEnabled(number, hasStep);

  MarkLogging(loggingOn);
  MarkDemoSpeed();
  MarkLanguageMenu();
}

bool MenuBar::TakesKey(int command, std::int32_t demoPosition) const {
  if (Contains(kStepCommands, command)) return SelectedStep(selection_) != nullptr;
  return demoPosition < 0 || !Contains(kIdleCommands, command);
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
  const int marked = speed == 60    ? command::kSpeedFast
                     : speed == 180 ? command::kSpeedNormal
                     : speed == 300 ? command::kSpeedSlow
                                    : command::kSpeedCustom;
  for (const int number :
       {command::kSpeedFast, command::kSpeedNormal, command::kSpeedSlow, command::kSpeedCustom}) {
    menu_.SetChecked(number, number == marked);
  }
}

}  // namespace app
