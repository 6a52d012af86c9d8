// The step table's window under the user's hands and eyes.

#include <gtest/gtest.h>
#include <qpa/qwindowsysteminterface.h>

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>
#include <QWindow>
#include <algorithm>
#include <functional>

#include "tests/qt_desktop/gui_thread.h"
#include "tests/qt_desktop/input.h"
#include "tests/qt_desktop/qt_user.h"
#include "tests/qt_desktop/texts.h"

namespace qt_desktop {

using app::TableSheet;

namespace {

// All of these in the windows' thread.

QWidget* TableWindow() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->objectName() == "step-table" && window->isVisible()) return window;
  }
  return nullptr;
}

QTabWidget& Tabs() {
  return *TableWindow()->findChild<QTabWidget*>();
}

QTableView& View(TableSheet sheet) {
  return dynamic_cast<QTableView&>(*Tabs().widget(static_cast<int>(sheet)));
}

std::string Joined(int columns, const std::function<QString(int)>& cell) {
  QStringList cells;
  for (int column = 0; column < columns; ++column) cells.append(cell(column));
  return Utf8(cells.join(QStringLiteral(" | ")));
}

QLineEdit* EditedCell() {
  return View(TableSheet::Steps).viewport()->findChild<QLineEdit*>();
}

// A click or a key that was caught by a window manager would have come to the window's front.
void GiveKeysToTheTable() {
  InGui([] {
    QWindow* const window = TableWindow()->windowHandle();
    if (QGuiApplication::focusWindow() != window) {
      QWindowSystemInterface::handleWindowActivated<QWindowSystemInterface::AsynchronousDelivery>(window);
    }
  });
  AwaitGui();
}

QPoint CellPoint(int row, int column) {
  return FromGui([&] {
    QTableView& view = View(TableSheet::Steps);
    const QModelIndex cell = view.model()->index(row, column);
    view.scrollTo(cell);
    return view.viewport()->mapToGlobal(view.visualRect(cell).center());
  });
}

}  // namespace

bool QtUser::HasTable() {
  return FromGui([] { return TableWindow() != nullptr; });
}

void QtUser::CloseTable() {
  InGui([] {
    QWindowSystemInterface::handleCloseEvent<QWindowSystemInterface::AsynchronousDelivery>(
        TableWindow()->windowHandle());
  });
  Settle();
}

std::string QtUser::TableTitle() {
  return FromGui([] { return Utf8(TableWindow()->windowHandle()->title()); });
}

std::string QtUser::TableHeading(TableSheet sheet) {
  return FromGui([&] {
    const QAbstractItemModel& cells = *View(sheet).model();
    return Utf8(Tabs().tabText(static_cast<int>(sheet)).replace(QLatin1String("&&"), QLatin1String("&"))) +
           ": " + Joined(cells.columnCount(), [&](int column) {
             return cells.headerData(column, Qt::Horizontal).toString();
           });
  });
}

std::vector<std::string> QtUser::TableRows(TableSheet sheet) {
  return FromGui([&] {
    std::vector<std::string> rows;
    const QAbstractItemModel& cells = *View(sheet).model();
    for (int row = 0; row < cells.rowCount(); ++row) {
      rows.push_back(Joined(cells.columnCount(),
                            [&](int column) { return cells.index(row, column).data().toString(); }));
    }
    return rows;
  });
}

std::vector<int> QtUser::SelectedTableRows() {
  return FromGui([] {
    std::vector<int> rows;
    for (const QModelIndex& row : View(TableSheet::Steps).selectionModel()->selectedRows())
      rows.push_back(row.row());
    std::ranges::sort(rows);
    return rows;
  });
}

void QtUser::ClickTableRow(int row, bool ctrl, bool shift) {
  GiveKeysToTheTable();
  if (ctrl) input::HoldKey(Qt::Key_Control);
  if (shift) input::HoldKey(Qt::Key_Shift);
  input::Click(CellPoint(row, 0));
  if (shift) input::ReleaseKey(Qt::Key_Shift);
  if (ctrl) input::ReleaseKey(Qt::Key_Control);
  Settle();
}

void QtUser::TypeInTable(int row, int column, const std::string& text, int key) {
  GiveKeysToTheTable();
  const bool isEdited = FromGui([&] {
    const QModelIndex current = View(TableSheet::Steps).currentIndex();
    return EditedCell() != nullptr && current.row() == row && current.column() == column;
  });
  if (!isEdited) {
    input::Click(CellPoint(row, column));
    input::PressKey(Qt::Key_F2);
    AwaitGui();
  }
  if (FromGui([] { return EditedCell() != nullptr; })) {
    input::HoldKey(Qt::Key_Control);
    input::PressKey(Qt::Key_A);
    input::ReleaseKey(Qt::Key_Control);
    input::Type(QString::fromStdString(text));
    PressKey(key);
  }
  Settle();
}

void QtUser::PressTableKey(int key, bool ctrl) {
  GiveKeysToTheTable();
  PressKey(key, ctrl);
}

std::string QtUser::TableFault() {
  return FromGui([] {
    const auto* const fault = TableWindow()->findChild<QLabel*>("step-table-fault");
    return fault->isVisible() ? Utf8(fault->text()) : std::string();
  });
}

std::string QtUser::Clipboard() {
  return FromGui([] { return Utf8(QGuiApplication::clipboard()->text()); });
}

void QtUser::SetClipboard(const std::string& text) {
  InGui([&] { QGuiApplication::clipboard()->setText(QString::fromStdString(text)); });
}

}  // namespace qt_desktop
