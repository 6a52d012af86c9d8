#include "platform/qt/desktop/rows.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include "platform/qt/desktop/text.h"

namespace qt {

Rows::Rows(QWidget& list)
    : box_(qobject_cast<QListWidget*>(&list)), combo_(qobject_cast<QComboBox*>(&list)) {}

void Rows::Clear() {
  if (box_ != nullptr) {
    const QSignalBlocker silent(box_);
    box_->clear();
  } else if (combo_ != nullptr) {
    combo_->clear();
  }
}

void Rows::Add(const QString& text, std::int32_t data, bool sorted) {
  int place = Count();
  while (sorted && place > 0 && QString::localeAwareCompare(text, TextOf(place - 1)) < 0) --place;
  if (box_ != nullptr) {
    auto* const item = new QListWidgetItem(text);
    item->setData(Qt::UserRole, data);
    box_->insertItem(place, item);
  } else if (combo_ != nullptr) {
    // Qt selects the first row that comes, and writes it over what was typed.
    const int chosen = combo_->currentIndex();
    const QString typed = combo_->currentText();
    combo_->insertItem(place, text, data);
    if (chosen < 0) combo_->setCurrentIndex(-1);
    if (combo_->isEditable()) combo_->setEditText(typed);
  }
}

int Rows::Count() const {
  if (box_ != nullptr) return box_->count();
  return combo_ != nullptr ? combo_->count() : 0;
}

void Rows::Select(int row) {
  const int found = row < Count() ? row : -1;
  if (box_ != nullptr) {
    const QSignalBlocker silent(box_);
    box_->setCurrentRow(found);
    if (found < 0) box_->clearSelection();
  } else if (combo_ != nullptr) {
    combo_->setCurrentIndex(found);
  }
}

QString Rows::TextOf(int row) const {
  return box_ != nullptr ? box_->item(row)->text() : combo_->itemText(row);
}

int Rows::Find(const QString& text) const {
  for (int row = 0; row < Count(); ++row) {
    if (TextOf(row) == text) return row;
  }
  return -1;
}

std::int32_t Rows::SelectedData() const {
  if (box_ != nullptr) {
    const QList<QListWidgetItem*> selected = box_->selectedItems();
    return selected.isEmpty() ? -1 : selected.front()->data(Qt::UserRole).toInt();
  }
  if (combo_ == nullptr || combo_->currentIndex() < 0) return -1;
  const bool isTyped = combo_->currentText() != combo_->itemText(combo_->currentIndex());
  return isTyped ? -1 : combo_->currentData().toInt();
}

void ConnectSelection(QWidget& list, const std::function<void()>& tell) {
  if (auto* const box = qobject_cast<QListWidget*>(&list)) {
    QObject::connect(box, &QListWidget::itemSelectionChanged, box, tell);
  } else if (auto* const combo = qobject_cast<QComboBox*>(&list)) {
    QObject::connect(combo, &QComboBox::activated, combo, tell);
  }
}

std::u16string ControlText(const QWidget* control) {
  if (const auto* const line = qobject_cast<const QLineEdit*>(control)) return line->text().toStdU16String();
  if (const auto* const lines = qobject_cast<const QPlainTextEdit*>(control)) {
    return WideLines(lines->toPlainText());
  }
  if (const auto* const combo = qobject_cast<const QComboBox*>(control)) {
    return combo->currentText().toStdU16String();
  }
  if (const auto* const label = qobject_cast<const QLabel*>(control)) return WideLines(label->text());
  if (const auto* const button = qobject_cast<const QPushButton*>(control)) {
    return button->text().toStdU16String();
  }
  if (const auto* const group = qobject_cast<const QGroupBox*>(control)) {
    return group->title().toStdU16String();
  }
  return {};
}

}  // namespace qt
