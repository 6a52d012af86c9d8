#include "platform/qt/desktop/control_widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QFontDatabase>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>

#include "platform/qt/desktop/range_controls.h"
#include "platform/qt/desktop/single_line_label.h"
#include "platform/qt/desktop/text.h"
#include "platform/qt/desktop/text_fields.h"

namespace qt {

namespace {

using Kind = dialogs::ControlKind;
namespace trait = dialogs::trait;

// Eight points at 96 to the inch, in which the places are told.
constexpr int kFontPixels = 11;

QWidget* MakeLabel(const dialogs::ControlTemplate& control, QWidget* parent) {
  if (Has(control, trait::kSunken)) return new SingleLineLabel(parent);
  auto* const label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  return label;
}

// A field that nobody can write into looks like the window around it.
void LookReadOnly(QWidget& field) {
  QPalette palette = field.palette();
  palette.setBrush(QPalette::Base, palette.brush(QPalette::Window));
  field.setPalette(palette);
}

QWidget* MakeEdit(const dialogs::ControlTemplate& control, QWidget* parent) {
  if (!Has(control, trait::kMultiLine)) {
    auto* const line = new LineField(parent);
    line->setReadOnly(Has(control, trait::kReadOnly));
    if (line->isReadOnly()) LookReadOnly(*line);
    return line;
  }
  auto* const lines = new LinesField(Has(control, trait::kWantsReturn), parent);
  lines->setReadOnly(Has(control, trait::kReadOnly));
  if (lines->isReadOnly()) LookReadOnly(*lines);
  if (!Has(control, trait::kVerticalScrollBar)) lines->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  return lines;
}

QWidget* MakeButton(const dialogs::ControlTemplate& control, QWidget* parent) {
  auto* const button = new QPushButton(parent);
  // Qt would mark the first button of a dialog that has no default one.
  button->setAutoDefault(false);
  button->setDefault(Has(control, trait::kDefault));
  if (Has(control, trait::kLink)) button->setCursor(Qt::PointingHandCursor);
  return button;
}

QWidget* MakeList(const dialogs::ControlTemplate& control, QWidget* parent) {
  auto* const list = new QListWidget(parent);
  list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list->setUniformItemSizes(true);
  list->setSelectionMode(Has(control, trait::kMultiSelection) ? QAbstractItemView::ExtendedSelection
                                                              : QAbstractItemView::SingleSelection);
  return list;
}

QWidget* MakeComboBox(const dialogs::ControlTemplate& control, QWidget* parent) {
  auto* const box = new QComboBox(parent);
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  if (control.kind == Kind::DropDownList) return box;
  box->setEditable(true);
  box->setInsertPolicy(QComboBox::NoInsert);
  box->setCompleter(nullptr);
  return box;
}

QWidget* MakeSlider(const dialogs::ControlTemplate& control, QWidget* parent) {
  auto* const slider = new Slider(parent);
  if (Has(control, trait::kTicks)) slider->setTickPosition(QSlider::TicksBelow);
  return slider;
}

QWidget* MakeLog(QWidget* parent) {
  auto* const log = new QPlainTextEdit(parent);
  log->setReadOnly(true);
  log->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  log->setUndoRedoEnabled(false);
  return log;
}

QWidget* Make(const dialogs::ControlTemplate& control, QWidget* parent) {
  switch (control.kind) {
    case Kind::Edit:
      return MakeEdit(control, parent);
    case Kind::Button:
      return MakeButton(control, parent);
    case Kind::GroupBox:
      return new QGroupBox(parent);
    case Kind::ListBox:
      return MakeList(control, parent);
    case Kind::DropDownList:
    case Kind::ComboBox:
      return MakeComboBox(control, parent);
    case Kind::DateTimePicker:
      return new QDateTimeEdit(parent);
    case Kind::Slider:
      return MakeSlider(control, parent);
    case Kind::ScrollBar:
      return new ScrollBar(parent);
    case Kind::RichText:
      return MakeLog(parent);
    case Kind::Label:
    case Kind::ProgramIcon:
    case Kind::Chart:
      break;
  }
  return MakeLabel(control, parent);
}

}  // namespace

QWidget* MakeControl(const dialogs::ControlTemplate& control, QWidget* parent) {
  QWidget* const widget = Make(control, parent);
  widget->setEnabled(!Has(control, trait::kDisabled));
  widget->setHidden(Has(control, trait::kHidden));
  return widget;
}

void SetControlText(QWidget& control, const dialogs::ControlTemplate& row, const QString& text) {
  if (auto* const label = qobject_cast<QLabel*>(&control)) {
    const QString shown = Has(row, trait::kAmpersands) ? text : WithoutMnemonics(text);
    if (auto* const line = dynamic_cast<SingleLineLabel*>(label)) {
      line->SetWholeText(shown);
    } else {
      label->setText(shown);
    }
  } else if (auto* const button = qobject_cast<QPushButton*>(&control)) {
    button->setText(text);
  } else if (auto* const group = qobject_cast<QGroupBox*>(&control)) {
    group->setTitle(text);
  } else if (auto* const line = dynamic_cast<LineField*>(&control)) {
    line->SetWholeText(text);
  } else if (auto* const lines = dynamic_cast<LinesField*>(&control)) {
    const QSignalBlocker silent(lines);
    lines->setPlainText(text);
  } else if (auto* const box = qobject_cast<QComboBox*>(&control); box != nullptr && box->isEditable()) {
    const QSignalBlocker silent(box);
    box->setEditText(text);
  }
}

QFont ControlFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  font.setPixelSize(kFontPixels);
  return font;
}

}  // namespace qt
