#include "platform/qt/desktop/single_line_label.h"

#include <QPainter>
#include <QStyle>

namespace qt {

namespace {

// Percent of the letters' usual width.
constexpr int kUsual = 100;
constexpr int kNarrowest = 76;
constexpr int kStep = 4;

}  // namespace

SingleLineLabel::SingleLineLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setFrameStyle(QFrame::Panel | QFrame::Sunken);
  setIndent(1);
}

void SingleLineLabel::SetWholeText(const QString& text) {
  setText(text);
  OfferWholeText();
}

QFont SingleLineLabel::ShownFont() const {
  QFont shown = font();
  // Letters may be rounded to whole pixels, so it is tried which width will do.
  for (int width = kUsual; width > kNarrowest && QFontMetrics(shown).horizontalAdvance(text()) > Room();) {
    shown.setStretch(width -= kStep);
  }
  return shown;
}

QString SingleLineLabel::ShownText() const {
  return QFontMetrics(ShownFont()).elidedText(text(), Qt::ElideRight, Room());
}

void SingleLineLabel::OfferWholeText() {
  // Marked up, since Qt guesses from a tip's text whether it is.
  setToolTip(IsWhole() ? QString() : QStringLiteral("<span>%1</span>").arg(text().toHtmlEscaped()));
}

void SingleLineLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  OfferWholeText();
}

void SingleLineLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  drawFrame(&painter);
  painter.setFont(ShownFont());
  const QRect place = contentsRect().adjusted(indent(), 0, -indent(), 0);
  style()->drawItemText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                        ShownText(), foregroundRole());
}

}  // namespace qt
