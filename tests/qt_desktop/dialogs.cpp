#include "tests/qt_desktop/dialogs.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "common/files.h"
#include "tests/qt_desktop/gui_thread.h"
#include "tests/qt_desktop/input.h"
#include "tests/qt_desktop/texts.h"

namespace qt_desktop::dialogs {

namespace {

// The list of names that fit opens as one types, and takes an Enter for itself.
constexpr int kMostEnters = 3;

QMessageBox::StandardButton ButtonOf(app::Answer answer) {
  switch (answer) {
    case app::Answer::Yes:
      return QMessageBox::Yes;
    case app::Answer::No:
      return QMessageBox::No;
    case app::Answer::Cancel:
      return QMessageBox::Cancel;
    case app::Answer::Ok:
      break;
  }
  return QMessageBox::Ok;
}

app::Icon IconOf(const QMessageBox& box) {
  switch (box.icon()) {
    case QMessageBox::Critical:
      return app::Icon::Error;
    case QMessageBox::Warning:
      return app::Icon::Warning;
    case QMessageBox::Information:
      return app::Icon::Information;
    default:
      return app::Icon::None;
  }
}

QString NamesOf(const std::vector<std::filesystem::path>& files) {
  if (files.size() == 1) return QString::fromStdString(Utf8FromPath(files.front()));
  QString names;
  for (const std::filesystem::path& file : files) {
    names += '"' + QString::fromStdString(Utf8FromPath(file)) + "\" ";
  }
  return names;
}

}  // namespace

QDialog* InFront() {
  auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  return dialog != nullptr && dialog->isVisible() ? dialog : nullptr;
}

bool IsFileDialog(const QDialog& dialog) {
  return qobject_cast<const QFileDialog*>(&dialog) != nullptr;
}

bool IsMessageBox(const QDialog& dialog) {
  return qobject_cast<const QMessageBox*>(&dialog) != nullptr;
}

QPoint MiddleOf(const QWidget& widget) {
  return widget.mapToGlobal(widget.rect().center());
}

app::Question ReadMessageBox(const QDialog& dialog) {
  return FromGui([&] {
    const auto& box = static_cast<const QMessageBox&>(dialog);
    app::Question question;
    question.title = Wide(box.windowTitle());
    question.text = Wide(box.text());
    if (box.button(QMessageBox::Yes) != nullptr) {
      question.buttons =
          box.button(QMessageBox::Cancel) != nullptr ? app::Buttons::YesNoCancel : app::Buttons::YesNo;
    }
    question.icon = IconOf(box);
    question.enterSaysNo =
        box.defaultButton() != nullptr && box.defaultButton() == box.button(QMessageBox::No);
    return question;
  });
}

void Answer(const QDialog& dialog, app::Answer answer) {
  const auto place = FromGui([&]() -> std::optional<QPoint> {
    const QAbstractButton* const button = static_cast<const QMessageBox&>(dialog).button(ButtonOf(answer));
    if (button == nullptr) return std::nullopt;
    return MiddleOf(*button);
  });
  ASSERT_TRUE(place) << "no such button";
  input::Click(*place);
}

void Pick(const QDialog& dialog, const std::vector<std::filesystem::path>& files) {
  const auto isOpen = [&] { return FromGui([&] { return InFront() == &dialog; }); };
  if (!files.empty()) {
    input::Click(FromGui([&] { return MiddleOf(*dialog.findChild<QLineEdit*>("fileNameEdit")); }));
    input::HoldKey(Qt::Key_Control);
    input::PressKey(Qt::Key_A);
    input::ReleaseKey(Qt::Key_Control);
    input::Type(NamesOf(files));
  }
  for (int i = 0; i < kMostEnters && isOpen(); ++i) {
    input::PressKey(files.empty() ? Qt::Key_Escape : Qt::Key_Return);
    AwaitGui();
  }
}

}  // namespace qt_desktop::dialogs
