#include "platform/qt/desktop/single_line_label.h"

#include <QPainter>
#include <QStyle>

namespace qt {

SingleLineLabel::SingleLineLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setFrameStyle(QFrame::Panel | QFrame::Sunken);
  setIndent(1);
}

void SingleLineLabel::SetWholeText(const QString& text) {
  setText(text);
  OfferWholeText();
}

QString SingleLineLabel::ShownText() const {
  return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width() - 2 * indent());
}

void SingleLineLabel::OfferWholeText() {
  // Marked up, since Qt guesses from a tip's text whether it is.
  setToolTip(ShownText() == text() ? QString()
                                   : QStringLiteral("<span>%1</span>").arg(text().toHtmlEscaped()));
}

void SingleLineLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  OfferWholeText();
}

void SingleLineLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  drawFrame(&painter);
  const QRect place = contentsRect().adjusted(indent(), 0, -indent(), 0);
  style()->drawItemText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                        ShownText(), foregroundRole());
}

}  // namespace qt
