// Takes pictures of lumarine for the documents, within its process: its own main runs, and the hands are a
// thread beside it.
//   qt_portraits LIST FOLDER [EXAMPLE]     tests/support/portraits.h tells the rest

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>
#include <type_traits>

#include "app/window/control_table.h"
#include "dialogs/dialog.h"
#include "tests/support/portraits.h"

// What platform/qt/desktop/main.cpp calls main; it is compiled so for this program.
int LumarineMain(int count, char** arguments);

namespace {

// Has the windows' thread do something, in whichever loop it turns, and waits until that is done.
template <class Act>
auto InGui(const Act& act) {
  using Seen = std::invoke_result_t<Act>;
  if constexpr (std::is_void_v<Seen>) {
    QMetaObject::invokeMethod(qApp, act, Qt::BlockingQueuedConnection);
  } else {
    Seen seen{};
    QMetaObject::invokeMethod(qApp, act, Qt::BlockingQueuedConnection, &seen);
    return seen;
  }
}

// What opens something holds its caller up.
template <class Act>
void PostToGui(const Act& act) {
  QMetaObject::invokeMethod(qApp, act, Qt::QueuedConnection);
}

QMainWindow* MainWindow() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->objectName() == "main-window") return qobject_cast<QMainWindow*>(window);
  }
  return nullptr;
}

QWidget* Front() {
  if (QWidget* const menu = QApplication::activePopupWidget()) return menu;
  if (QWidget* const dialog = QApplication::activeModalWidget()) return dialog;
  auto* const table = MainWindow()->findChild<QWidget*>("step-table");
  return table != nullptr && table->isVisible() ? table : MainWindow();
}

QWidget* Item(int control) {
  return Front()->findChild<QWidget*>("item-" + QString::number(control));
}

QWidget* Chart() {
  return MainWindow()->findChild<QWidget*>("control-" +
                                           QString::number(static_cast<int>(app::Control::ChartWindow)));
}

void SendMouse(QEvent::Type type, const QPoint& point, Qt::MouseButton button) {
  const bool isHeld = type == QEvent::MouseButtonPress;
  QMouseEvent event(type, point, Chart()->mapToGlobal(point), button, isHeld ? button : Qt::NoButton,
                    Qt::NoModifier);
  QApplication::sendEvent(Chart(), &event);
}

void Click(const QPoint& point, Qt::MouseButton button) {
  SendMouse(QEvent::MouseMove, point, Qt::NoButton);
  SendMouse(QEvent::MouseButtonPress, point, button);
  SendMouse(QEvent::MouseButtonRelease, point, button);
}

void PressEscape() {
  QKeyEvent event(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QApplication::sendEvent(Front(), &event);
}

class QtSitter final : public portraits::Sitter {
 public:
  void Choose(int command) override {
    PostToGui([command] {
      for (QAction* const item : MainWindow()->findChildren<QAction*>()) {
        if (item->data() == command) return item->trigger();
      }
      // Not in the menus, but a button's.
      for (const app::ControlRow& row : app::ControlTable()) {
        if (row.id != command) continue;
        MainWindow()
            ->findChild<QPushButton*>("control-" + QString::number(static_cast<int>(row.control)))
            ->click();
      }
    });
  }
  void AskToClose() override {
    PostToGui([] { MainWindow()->close(); });
  }
  void ClickChart(std::int32_t x, std::int32_t y) override {
    InGui([=] { Click({x, y}, Qt::LeftButton); });
  }
  void OpenChartMenu(std::int32_t x, std::int32_t y) override {
    PostToGui([=] { Click({x, y}, Qt::RightButton); });
  }
  app::Size ClientSize() override {
    return InGui([] {
      const QSize size = MainWindow()->centralWidget()->size();
      return app::Size{size.width(), size.height()};
    });
  }

  bool IsMainWindowInFront() override {
    return InGui([] { return Front() == MainWindow(); });
  }
  bool HasControl(int control) override {
    return InGui([=] { return Item(control) != nullptr && Item(control)->isEnabled(); });
  }
  void Type(int control, const std::string& text) override {
    InGui([&] {
      QWidget* const item = Item(control);
      if (auto* const line = qobject_cast<QLineEdit*>(item)) line->setText(QString::fromStdString(text));
      if (auto* const box = qobject_cast<QComboBox*>(item)) box->setEditText(QString::fromStdString(text));
      if (auto* const lines = qobject_cast<QPlainTextEdit*>(item)) {
        lines->setPlainText(QString::fromStdString(text));
      }
    });
  }
  void Pick(int control, int row) override {
    InGui([=] {
      auto* const box = qobject_cast<QComboBox*>(Item(control));
      box->setCurrentIndex(row);
      emit box->activated(row);
    });
  }
  void Press(int control) override {
    PostToGui([=] { qobject_cast<QPushButton*>(Item(control))->click(); });
  }
  void Leave() override { PostToGui(PressEscape); }
  Rect Frame() override {
    return InGui([] {
      const QRect place = Front()->frameGeometry();
      const double scale = Front()->devicePixelRatioF();
      const auto pixels = [scale](int units) {
        return static_cast<std::int32_t>(std::lround(units * scale));
      };
      return Rect{pixels(place.x()), pixels(place.y()), pixels(place.width()), pixels(place.height())};
    });
  }
  bool Photograph(const std::filesystem::path& file) override {
    return InGui([&] {
      return MainWindow()->screen()->grabWindow(0).save(QString::fromStdU16String(file.u16string()));
    });
  }
};

bool IsOpen() {
  return MainWindow() != nullptr && MainWindow()->isVisible();
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) return 2;
  std::thread hands([arguments] {
    do std::this_thread::sleep_for(std::chrono::seconds(1));
    while (qApp == nullptr || !InGui(IsOpen));
    QtSitter sitter;
    const bool isTaken = portraits::Take(sitter, arguments[1], arguments[2]);
    std::cout << std::flush;
    std::_Exit(isTaken ? 0 : 1);  // the program is ended as it stands
  });
  // Behind the last argument stands a null pointer.
  char* words[] = {arguments[0], arguments[3], nullptr};
  LumarineMain(count - 2, words);
  hands.join();
  return 1;  // it has closed by itself
}
