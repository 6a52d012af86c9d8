#pragma once

// The menu bar, made from app::MenuTable().

#include <QAction>
#include <QMenu>

#include <map>
#include <span>
#include <vector>

#include "app/window/command.h"
#include "app/window/ports.h"
#include "platform/qt/desktop/chart_window.h"
#include "platform/qt/desktop/main_window.h"

namespace qt {

class Menu final : public app::MenuPort {
 public:
  /// Context menus open over `chart`. Both outlive the menu.
  Menu(MainWindow& window, ChartWindow& chart) : window_(window), chart_(chart) {}

  /// Once, when the window stands. The texts are the English ones.
  void Build(std::span<const app::MenuPopup> menus);

  bool HasItem(int command) const override { return items_.contains(command); }
  void SetItemText(int command, std::u16string_view text) override;
  void InsertItemBefore(int before, int command, std::u16string_view text) override;
  void SetPopupText(int position, std::u16string_view text, int submenu) override;
  void SetEnabled(int command, bool enabled) override;
  void SetChecked(int command, bool checked) override;
  void SetPopupEnabled(int position, bool enabled) override;
  /// The bar shows at once what it is told.
  void Redraw() override {}
  void OpenAtChart(int position, std::int32_t x, std::int32_t y) override;

 private:
  QMenu* AddMenu(QMenu* menu);
  void AddEntries(QMenu& menu, std::span<const app::MenuEntry> entries);
  QAction* MakeItem(int command, const QString& text, QMenu& menu);
  /// Null if there is no such item.
  QAction* Item(int command) const;

  MainWindow& window_;
  ChartWindow& chart_;
  std::vector<QMenu*> bar_;
  std::map<int, QAction*> items_;
};

}  // namespace qt
