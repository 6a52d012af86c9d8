// The menu bar is that of the rows.

#include "platform/qt/desktop/menu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMenuBar>

#include "app/commands.h"
#include "app/window/numbers.h"

namespace {

namespace command = app::command;

void ExpectEntries(const QList<QAction*>& items, const std::vector<app::MenuEntry>& entries) {
  ASSERT_EQ(items.size(), static_cast<qsizetype>(entries.size()));
  for (qsizetype i = 0; i < items.size(); ++i) {
    const app::MenuEntry& entry = entries[static_cast<std::size_t>(i)];
    using Kind = app::MenuEntry::Kind;
    EXPECT_EQ(items[i]->isSeparator(), entry.kind == Kind::Separator);
    EXPECT_EQ(items[i]->menu() != nullptr, entry.kind == Kind::Submenu);
    if (entry.kind == Kind::Separator) continue;
    EXPECT_EQ(items[i]->text().toStdString(), std::string(entry.text).append(entry.suffix));
    if (entry.kind == Kind::Command) {
      EXPECT_EQ(items[i]->data().toInt(), entry.command);
    }
    if (entry.kind == Kind::Submenu) ExpectEntries(items[i]->menu()->actions(), entry.entries);
  }
}

class QtMenu : public testing::Test {
 protected:
  QtMenu() {
    window_.Create(QStringLiteral("Test"));
    menu.Build(app::MenuTable());
  }

  QList<QAction*> Bar() { return window_.Window().menuBar()->actions(); }
  QAction* Item(int number) {
    for (QAction* item : window_.Window().findChildren<QAction*>()) {
      if (item->data().toInt() == number) return item;
    }
    return nullptr;
  }

  qt::ChartWindow chart_;
  qt::MainWindow window_;
  qt::Menu menu{window_, chart_};
};

TEST_F(QtMenu, HasTheItemsOfTheTableInTheirOrder) {
  const std::vector<app::MenuPopup> menus = app::MenuTable();
  ASSERT_EQ(Bar().size(), static_cast<qsizetype>(menus.size()));
  for (std::size_t i = 0; i < menus.size(); ++i) {
    EXPECT_EQ(Bar()[static_cast<qsizetype>(i)]->text().toStdString(), std::string(menus[i].text));
    ExpectEntries(Bar()[static_cast<qsizetype>(i)]->menu()->actions(), menus[i].entries);
  }
}

TEST_F(QtMenu, TakesTextsOfItemsMenusAndSubmenus) {
  menu.SetItemText(command::kUndo, u"Zurück");
  EXPECT_EQ(Item(command::kUndo)->text(), QString::fromUtf8("Zurück"));
  menu.SetPopupText(app::menu::kEdit, u"Bearbeiten", -1);
  EXPECT_EQ(Bar()[app::menu::kEdit]->text(), "Bearbeiten");
  menu.SetPopupText(2, u"Anfang und Ende", app::menu::kMode);
  EXPECT_EQ(Bar()[app::menu::kMode]->menu()->actions()[2]->text(), "Anfang und Ende");
}

TEST_F(QtMenu, TakesFurtherLanguagesInBeforeEnglish) {
  EXPECT_FALSE(menu.HasItem(command::kFirstLanguage));
  menu.InsertItemBefore(command::kEnglish, command::kFirstLanguage, u"Deutsch");
  EXPECT_TRUE(menu.HasItem(command::kFirstLanguage));
  const QList<QAction*> items = Bar()[app::menu::kLanguage]->menu()->actions();
  ASSERT_EQ(items.size(), 2);
  EXPECT_EQ(items[0]->text(), "Deutsch");
  EXPECT_EQ(items[1]->data().toInt(), command::kEnglish);
}

TEST_F(QtMenu, TheMarkIsTheApplicationsAlone) {
  menu.SetChecked(command::kLogging, false);
  EXPECT_FALSE(Item(command::kLogging)->isCheckable()) << "no place for a mark before the first";
  menu.SetChecked(command::kLogging, true);
  EXPECT_TRUE(Item(command::kLogging)->isChecked());
  Item(command::kLogging)->trigger();
  EXPECT_TRUE(Item(command::kLogging)->isChecked()) << "choosing it does not turn the mark round";
  menu.SetChecked(command::kLogging, false);
  EXPECT_FALSE(Item(command::kLogging)->isChecked());
}

TEST_F(QtMenu, GreysItemsAndMenus) {
  menu.SetEnabled(command::kUndo, false);
  EXPECT_FALSE(Item(command::kUndo)->isEnabled());
  menu.SetPopupEnabled(app::menu::kChannel, false);
  EXPECT_FALSE(Bar()[app::menu::kChannel]->isEnabled());
  menu.SetPopupEnabled(app::menu::kChannel, true);
  EXPECT_TRUE(Bar()[app::menu::kChannel]->isEnabled());
}

}  // namespace
