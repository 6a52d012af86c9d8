#include "platform/qt/desktop/controls.h"

#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>

#include "app/window/numbers.h"
#include "platform/qt/desktop/control_widgets.h"
#include "platform/qt/desktop/range_controls.h"
#include "platform/qt/desktop/text.h"

namespace qt {

namespace {

using Kind = dialogs::ControlKind;

// What a button says of itself when it is pressed, as menu items do.
constexpr int kPressed = 0;

QRect PlaceOf(const Rect& place) {
  return {place.x, place.y, place.width, place.height};
}

}  // namespace

template <class Widget>
Widget* Controls::As(app::Control control) const {
  return dynamic_cast<Widget*>(At(control));
}

QPlainTextEdit* Controls::Log() const {
  return As<QPlainTextEdit>(app::Control::LogPane);
}

void Controls::Create(const app::ControlRow& row, std::u16string_view text, const Rect& place) {
  QWidget& inside = window_.Inside();
  QWidget* const widget = row.kind == Kind::Chart ? chart_.Create(&inside) : MakeControl(row, &inside);
  widgets_[static_cast<std::size_t>(row.control)] = widget;
  widget->setObjectName(QStringLiteral("control-%1").arg(static_cast<int>(row.control)));
  widget->setGeometry(PlaceOf(place));
  // The keys are the chart's, and those of commands.
  if (widget->focusPolicy() != Qt::NoFocus) widget->setFocusPolicy(Qt::ClickFocus);
  SetControlText(*widget, row, QtLines(text));
  Connect(row, *widget);
}

void Controls::Connect(const app::ControlRow& row, QWidget& widget) {
  if (auto* const button = qobject_cast<QPushButton*>(&widget)) {
    QObject::connect(button, &QPushButton::clicked, button,
                     [this, id = row.id] { window_.Notify(id, kPressed); });
  } else if (auto* const list = qobject_cast<QListWidget*>(&widget)) {
    ConnectList(row.id, *list);
  } else if (auto* const slider = dynamic_cast<Slider*>(&widget)) {
    slider->Connect(
        [this, control = row.control](int code, int position) { window_.Scrolled(control, code, position); });
  } else if (auto* const bar = dynamic_cast<ScrollBar*>(&widget)) {
    bar->Connect(
        [this, control = row.control](int code, int position) { window_.Scrolled(control, code, position); });
  }
}

void Controls::ConnectList(int id, QListWidget& list) {
  QObject::connect(&list, &QListWidget::itemSelectionChanged, &list,
                   [this, id] { window_.Notify(id, app::kListSelectionChanged); });
  QObject::connect(&list, &QListWidget::itemDoubleClicked, &list,
                   [this, id] { window_.Notify(id, app::kListDoubleClick); });
}

void Controls::Move(app::Control control, const Rect& place) {
  if (QWidget* const widget = At(control)) widget->setGeometry(PlaceOf(place));
}

void Controls::SetText(app::Control control, std::u16string_view text) {
  if (QWidget* const widget = At(control)) SetControlText(*widget, app::RowOf(control), QtLines(text));
}

void Controls::SetEnabled(app::Control control, bool enabled) {
  if (QWidget* const widget = At(control)) widget->setEnabled(enabled);
}

void Controls::SetName(app::Control control, std::u16string_view name) {
  if (QWidget* const widget = At(control)) widget->setAccessibleName(QtText(name));
}

void Controls::SetDescription(app::Control control, std::u16string_view text) {
  if (QWidget* const widget = At(control)) widget->setAccessibleDescription(QtLines(text));
}

// Lists

void Controls::SetRows(app::Control list, const std::vector<app::ListRow>& rows) {
  auto* const widget = As<QListWidget>(list);
  if (widget == nullptr) return;
  const QSignalBlocker silent(widget);
  const bool several = widget->selectionMode() == QAbstractItemView::ExtendedSelection;
  widget->clear();
  for (const app::ListRow& row : rows) {
    auto* const item = new QListWidgetItem(QtText(row.text), widget);
    item->setData(Qt::UserRole, row.data);
    if (!row.selected) continue;
    if (several) {
      item->setSelected(true);
    } else {
      widget->setCurrentItem(item);
    }
  }
}

std::vector<std::int32_t> Controls::SelectedRows(app::Control list) const {
  std::vector<std::int32_t> rows;
  const auto* const widget = As<QListWidget>(list);
  if (widget == nullptr) return rows;
  for (const QListWidgetItem* item : widget->selectedItems()) rows.push_back(widget->row(item));
  std::ranges::sort(rows);
  return rows;
}

std::int32_t Controls::CurrentRow(app::Control list) const {
  const auto* const widget = As<QListWidget>(list);
  return widget == nullptr ? -1 : widget->currentRow();
}

std::int32_t Controls::RowData(app::Control list, std::int32_t row) const {
  const auto* const widget = As<QListWidget>(list);
  const QListWidgetItem* const item = widget == nullptr ? nullptr : widget->item(row);
  return item == nullptr ? -1 : item->data(Qt::UserRole).toInt();
}

// Scroll bar and sliders

void Controls::SetScrollBar(const TCBase::Program::ViewScrollInfo& info) {
  if (auto* const bar = As<ScrollBar>(app::Control::ScrollBar)) {
    bar->SetStretch(info.minimum, info.maximum, info.page, info.position);
  }
}

void Controls::SetSliderRange(app::Control slider, std::int32_t maximum, std::int32_t page,
                              std::int32_t tick) {
  auto* const widget = As<Slider>(slider);
  if (widget == nullptr) return;
  widget->setRange(0, maximum);
  widget->setPageStep(page);
  if (tick != 0) widget->setTickInterval(tick);
}

void Controls::SetSliderPosition(app::Control slider, std::int32_t position) {
  if (auto* const widget = As<Slider>(slider)) widget->setValue(position);
}

}  // namespace qt
