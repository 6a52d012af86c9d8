#include "tests/qt_desktop/dialog_user.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <cstdlib>

#include "tests/qt_desktop/gui_thread.h"
#include "tests/qt_desktop/input.h"
#include "tests/qt_desktop/texts.h"

namespace qt_desktop {

namespace {

// More than any dialog has controls, the parts of its pickers among them.
constexpr int kMostTabs = 30;
// And than any list has rows.
constexpr int kMostRows = 100;

constexpr char kItemPrefix[] = "item-";

struct PickerPart {
  QDateTimeEdit::Section section;
  int DateTime::*part;
};
constexpr PickerPart kPickerParts[] = {
    {QDateTimeEdit::YearSection, &DateTime::year},     {QDateTimeEdit::MonthSection, &DateTime::month},
    {QDateTimeEdit::DaySection, &DateTime::day},       {QDateTimeEdit::HourSection, &DateTime::hour},
    {QDateTimeEdit::MinuteSection, &DateTime::minute}, {QDateTimeEdit::SecondSection, &DateTime::second},
};

DateTime TimeOf(const QDateTimeEdit& picker) {
  const QDate date = picker.date();
  const QTime time = picker.time();
  return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second(), time.msec()};
}

int SelectedRow(const QWidget& list) {
  if (const auto* const combo = qobject_cast<const QComboBox*>(&list)) return combo->currentIndex();
  return dynamic_cast<const QListWidget&>(list).currentRow();
}

void SeeText(const QWidget& widget, SeenControl& seen) {
  if (const auto* const label = qobject_cast<const QLabel*>(&widget)) seen.text = Utf8(label->text());
  if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
    seen.text = Utf8(button->text());
  if (const auto* const group = qobject_cast<const QGroupBox*>(&widget)) seen.text = Utf8(group->title());
  if (const auto* const field = qobject_cast<const QLineEdit*>(&widget)) seen.text = Utf8(field->text());
  if (const auto* const field = qobject_cast<const QPlainTextEdit*>(&widget)) {
    seen.text = Utf8(field->toPlainText());
  }
  if (const auto* const picker = qobject_cast<const QDateTimeEdit*>(&widget)) {
    seen.text = Utf8(picker->text());
    seen.time = TimeOf(*picker);
  }
}

void SeeRows(const QWidget& widget, SeenControl& seen) {
  if (const auto* const combo = qobject_cast<const QComboBox*>(&widget)) {
    seen.text = Utf8(combo->currentText());
    for (int row = 0; row < combo->count(); ++row) seen.rows.push_back(Utf8(combo->itemText(row)));
    seen.row = SelectedRow(*combo);
  }
  if (const auto* const list = qobject_cast<const QListWidget*>(&widget)) {
    for (int row = 0; row < list->count(); ++row) seen.rows.push_back(Utf8(list->item(row)->text()));
    seen.row = list->selectedItems().isEmpty() ? -1 : SelectedRow(*list);
  }
}

void PressWithCtrl(Qt::Key key) {
  input::HoldKey(Qt::Key_Control);
  input::PressKey(key);
  input::ReleaseKey(Qt::Key_Control);
}

}  // namespace

SeenDialog DialogUser::See() const {
  return FromGui([this] {
    SeenDialog seen;
    seen.title = Utf8(dialog_.windowTitle());
    const QWidget& inside =
        *dialog_.parentWidget()->window()->findChild<QWidget*>("control-0")->parentWidget();
    const QPoint corner = inside.mapFromGlobal(dialog_.pos());
    seen.x = corner.x();
    seen.y = corner.y();
    for (const QWidget* const widget : dialog_.findChildren<QWidget*>()) {
      if (!widget->objectName().startsWith(kItemPrefix)) continue;
      SeenControl& control = seen.controls[widget->objectName().mid(sizeof kItemPrefix - 1).toInt()];
      control.visible = widget->isVisible();
      control.enabled = widget->isEnabled();
      SeeText(*widget, control);
      SeeRows(*widget, control);
    }
    return seen;
  });
}

void DialogUser::Do(const DialogStep& step) {
  using Kind = DialogStep::Kind;
  switch (step.kind) {
    case Kind::Type:
      Type(step);
      break;
    case Kind::Paste:
      Paste(step);
      break;
    case Kind::Pick:
      Pick(step);
      break;
    case Kind::SetDateTime:
      SetDateTime(step);
      break;
    case Kind::GoTo:
      GoTo(step.control);
      break;
    case Kind::Press:
      if (GoTo(step.control)) input::PressKey(Qt::Key_Space);
      break;
    case Kind::PressEnter:
      input::PressKey(Qt::Key_Return);
      break;
    case Kind::PressEscape:
      input::PressKey(Qt::Key_Escape);
      break;
    case Kind::Await:
    case Kind::Look:
      break;
  }
  AwaitGui();
}

QWidget* DialogUser::Find(int control) const {
  return dialog_.findChild<QWidget*>(kItemPrefix + QString::number(control));
}

bool DialogUser::GoTo(int control) {
  const auto hasFocus = [&] {
    const QWidget* const wanted = Find(control);
    const QWidget* const focus = QApplication::focusWidget();
    return wanted != nullptr && focus != nullptr && (focus == wanted || wanted->isAncestorOf(focus));
  };
  for (int tabs = 0; tabs < kMostTabs; ++tabs) {
    if (FromGui(hasFocus)) return true;
    input::PressKey(Qt::Key_Tab);
    AwaitGui();
  }
  ADD_FAILURE() << "the Tab key does not get to control " << control;
  return false;
}

void DialogUser::Type(const DialogStep& step) {
  if (!GoTo(step.control)) return;
  PressWithCtrl(Qt::Key_A);
  input::PressKey(Qt::Key_Delete);
  input::Type(QString::fromStdString(step.text));
}

void DialogUser::Paste(const DialogStep& step) {
  if (!GoTo(step.control)) return;
  InGui([&] { QApplication::clipboard()->setText(QString::fromStdString(step.text)); });
  PressWithCtrl(Qt::Key_A);
  PressWithCtrl(Qt::Key_V);
}

void DialogUser::Pick(const DialogStep& step) {
  if (!GoTo(step.control)) return;
  const auto row = [&] { return FromGui([&] { return SelectedRow(*Find(step.control)); }); };
  for (int keys = 0; keys < kMostRows && row() != step.row; ++keys) {
    input::PressKey(row() < step.row ? Qt::Key_Down : Qt::Key_Up);
    AwaitGui();
  }
  EXPECT_EQ(row(), step.row) << "the keys do not get to that row of " << step.control;
}

void DialogUser::SetDateTime(const DialogStep& step) {
  if (!GoTo(step.control)) return;
  const auto picker = [&]() -> QDateTimeEdit& { return dynamic_cast<QDateTimeEdit&>(*Find(step.control)); };
  const auto section = [&] { return FromGui([&] { return picker().currentSectionIndex(); }); };
  for (const PickerPart& wanted : kPickerParts) {
    const int place = FromGui([&] {
      int index = 0;
      while (index < picker().sectionCount() && picker().sectionAt(index) != wanted.section) ++index;
      return index;
    });
    for (int keys = 0; keys < kMostTabs && section() != place; ++keys) {
      input::PressKey(section() < place ? Qt::Key_Right : Qt::Key_Left);
      AwaitGui();
    }
    ASSERT_EQ(section(), place) << "the keys do not get to that part";
    const int distance = step.time.*wanted.part - FromGui([&] { return TimeOf(picker()); }).*wanted.part;
    for (int i = 0; i < std::abs(distance); ++i) input::PressKey(distance > 0 ? Qt::Key_Up : Qt::Key_Down);
    AwaitGui();
  }
}

}  // namespace qt_desktop
