#include "platform/qt/desktop/menu.h"

#include <QMenuBar>

#include "platform/qt/desktop/text.h"

namespace qt {

namespace {

QString English(std::string_view text, std::string_view suffix = {}) {
  return QtText(text) + QtText(suffix);
}

}  // namespace

void Menu::Build(std::span<const app::MenuPopup> menus) {
  for (const app::MenuPopup& popup : menus) {
    QMenu* const menu = AddMenu(window_.Window().menuBar()->addMenu(English(popup.text)));
    AddEntries(*menu, popup.entries);
    bar_.push_back(menu);
  }
}

QMenu* Menu::AddMenu(QMenu* menu) {
  QObject::connect(menu, &QMenu::aboutToShow, menu, [this] { window_.MenuOpens(); });
  return menu;
}

void Menu::AddEntries(QMenu& menu, std::span<const app::MenuEntry> entries) {
  for (const app::MenuEntry& entry : entries) {
    switch (entry.kind) {
      case app::MenuEntry::Kind::Separator:
        menu.addSeparator();
        break;
      case app::MenuEntry::Kind::Submenu:
        AddEntries(*AddMenu(menu.addMenu(English(entry.text))), entry.entries);
        break;
      case app::MenuEntry::Kind::Command:
        menu.addAction(MakeItem(entry.command, English(entry.text, entry.suffix), menu));
        break;
    }
  }
}

QAction* Menu::MakeItem(int command, const QString& text, QMenu& menu) {
  auto* const item = new QAction(text, &menu);
  item->setMenuRole(QAction::NoRole);
  item->setData(command);
  QObject::connect(item, &QAction::triggered, item, [this, command, item] {
    // Qt turns the mark of an item round that is chosen; here the application sets it.
    if (item->isCheckable()) item->toggle();
    window_.PostCommand(command);
  });
  items_[command] = item;
  return item;
}

QAction* Menu::Item(int command) const {
  const auto item = items_.find(command);
  return item == items_.end() ? nullptr : item->second;
}

void Menu::SetItemText(int command, std::u16string_view text) {
  if (QAction* const item = Item(command)) item->setText(QtText(text));
}

void Menu::InsertItemBefore(int before, int command, std::u16string_view text) {
  QAction* const behind = Item(before);
  if (behind == nullptr) return;
  auto* const menu = static_cast<QMenu*>(behind->parent());
  menu->insertAction(behind, MakeItem(command, QtText(text), *menu));
}

void Menu::SetPopupText(int position, std::u16string_view text, int submenu) {
  const QList<QAction*> entries = submenu < 0 ? window_.Window().menuBar()->actions()
                                              : bar_.at(static_cast<std::size_t>(submenu))->actions();
  entries.at(position)->setText(QtText(text));
}

void Menu::SetEnabled(int command, bool enabled) {
  if (QAction* const item = Item(command)) item->setEnabled(enabled);
}

void Menu::SetChecked(int command, bool checked) {
  QAction* const item = Item(command);
  if (item == nullptr) return;
  // Only those that ever have a mark get a place for one.
  if (checked) item->setCheckable(true);
  if (item->isCheckable()) item->setChecked(checked);
}

void Menu::SetPopupEnabled(int position, bool enabled) {
  bar_.at(static_cast<std::size_t>(position))->menuAction()->setEnabled(enabled);
}

void Menu::OpenAtChart(int position, std::int32_t x, std::int32_t y) {
  QMenu* const menu = bar_.at(static_cast<std::size_t>(position));
  if (chart_.Widget() != nullptr) menu->exec(chart_.Widget()->mapToGlobal(QPoint(x, y)));
}

}  // namespace qt
