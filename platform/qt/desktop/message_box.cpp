#include "platform/qt/desktop/message_box.h"

#include <QCloseEvent>
#include <QKeyEvent>

#include "platform/qt/desktop/text.h"

namespace qt {

namespace {

QMessageBox::Icon IconOf(dialogs::Icon icon) {
  switch (icon) {
    case dialogs::Icon::Information:
      return QMessageBox::Information;
    case dialogs::Icon::Warning:
      return QMessageBox::Warning;
    case dialogs::Icon::Error:
      return QMessageBox::Critical;
    case dialogs::Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

class Box final : public QMessageBox {
 public:
  explicit Box(QWidget* owner) : QMessageBox(owner) { setTextFormat(Qt::PlainText); }

 protected:
  // Qt takes No for the way out of a box of Yes and No.

  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() != Qt::Key_Escape || MayLeave()) QMessageBox::keyPressEvent(event);
  }

  void closeEvent(QCloseEvent* event) override {
    if (MayLeave()) {
      QMessageBox::closeEvent(event);
    } else {
      event->ignore();
    }
  }

 private:
  bool MayLeave() const { return buttons().size() == 1 || button(Cancel) != nullptr; }
};

}  // namespace

QMessageBox::StandardButton ShowMessage(QWidget* owner, std::u16string_view title, std::u16string_view text,
                                        dialogs::Icon icon, QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton enter) {
  Box box(owner);
  box.setWindowTitle(QtText(title));
  box.setText(QtLines(text));
  box.setIcon(IconOf(icon));
  box.setStandardButtons(buttons);
  if (enter != QMessageBox::NoButton) box.setDefaultButton(enter);
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace qt
