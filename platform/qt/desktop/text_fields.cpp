#include "platform/qt/desktop/text_fields.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>

namespace qt {

namespace {

// Of a field that nobody has set a limit to.
constexpr int kUsualLimit = 32767;

bool IsReturn(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool IsText(const QKeyEvent& event) {
  return !event.text().isEmpty() && event.text().front().isPrint();
}

int Units(const QString& text) {
  return static_cast<int>(text.size() + std::ranges::count_if(text, [](QChar unit) {
                            return unit == u'\n' || unit == QChar::ParagraphSeparator;
                          }));
}

}  // namespace

QString CutToUnits(const QString& text, int units) {
  QString cut = text;
  while (Units(cut) > units) {
    cut.chop(std::max<qsizetype>(1, (Units(cut) - units) / 2));
    if (!cut.isEmpty() && cut.back().isHighSurrogate()) cut.chop(1);
  }
  return cut;
}

// LineField

LineField::LineField(QWidget* parent) : QLineEdit(parent), limit_(kUsualLimit) {
  setMaxLength(limit_);
}

void LineField::SetWholeText(const QString& text) {
  setMaxLength(std::max(limit_, static_cast<int>(text.size())));
  const bool stands = this->text() == text;
  setText(text);
  // Qt keeps silent about what stands there already.
  if (stands) emit textChanged(text);
}

void LineField::LimitText(int units) {
  limit_ = units;
  setMaxLength(std::max(limit_, static_cast<int>(text().size())));
}

void LineField::keyPressEvent(QKeyEvent* event) {
  const bool isOther = IsText(*event) && !event->text().front().isDigit() &&
                       (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
  if (!digitsOnly_ || !isOther) QLineEdit::keyPressEvent(event);
}

// LinesField

LinesField::LinesField(bool wantsReturn, QWidget* parent)
    : QPlainTextEdit(parent), wantsReturn_(wantsReturn), limit_(kUsualLimit) {
  setTabChangesFocus(true);
}

void LinesField::SetTabStops(int first, int step) {
  constexpr int kStops = 20;
  QList<QTextOption::Tab> stops;
  for (int stop = 0; stop < kStops; ++stop)
    stops.append(QTextOption::Tab(first + stop * step, QTextOption::LeftTab));
  QTextOption option = document()->defaultTextOption();
  option.setTabs(stops);
  document()->setDefaultTextOption(option);
}

int LinesField::Room() const {
  const int there = Units(toPlainText()) - Units(textCursor().selectedText());
  return std::max(0, limit_ - there);
}

void LinesField::keyPressEvent(QKeyEvent* event) {
  if (IsReturn(*event)) {
    const bool isForDialog = !wantsReturn_ && (event->modifiers() & Qt::ControlModifier) == 0;
    if (isForDialog || isReadOnly()) {
      event->ignore();
    } else if (Room() >= 2) {
      textCursor().insertBlock();
      ensureCursorVisible();
    }
    return;
  }
  const bool isTooMuch = IsText(*event) && Units(event->text()) > Room();
  if (!isTooMuch) QPlainTextEdit::keyPressEvent(event);
}

void LinesField::insertFromMimeData(const QMimeData* source) {
  if (!source->hasText()) return;
  textCursor().insertText(CutToUnits(source->text(), Room()));
  ensureCursorVisible();
}

void LinesField::inputMethodEvent(QInputMethodEvent* event) {
  if (Units(event->commitString()) <= Room()) {
    QPlainTextEdit::inputMethodEvent(event);
    return;
  }
  QInputMethodEvent cut(event->preeditString(), event->attributes());
  cut.setCommitString(CutToUnits(event->commitString(), Room()));
  QPlainTextEdit::inputMethodEvent(&cut);
}

}  // namespace qt
