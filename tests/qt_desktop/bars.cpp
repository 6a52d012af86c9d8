#include "tests/qt_desktop/bars.h"

#include <QScrollBar>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>

namespace qt_desktop::bars {

namespace {

// What the control tells its style of itself is protected; this says the same.
QStyleOptionSlider OptionOf(const QAbstractSlider& bar) {
  QStyleOptionSlider option;
  option.initFrom(&bar);
  option.state.setFlag(QStyle::State_Horizontal);
  option.orientation = Qt::Horizontal;
  option.minimum = bar.minimum();
  option.maximum = bar.maximum();
  option.sliderPosition = bar.sliderPosition();
  option.sliderValue = bar.value();
  option.singleStep = bar.singleStep();
  option.pageStep = bar.pageStep();
  option.upsideDown = bar.invertedAppearance();
  if (const auto* const slider = qobject_cast<const QSlider*>(&bar)) {
    option.tickPosition = slider->tickPosition();
    option.tickInterval = slider->tickInterval();
  }
  return option;
}

QRect PartOf(const QAbstractSlider& bar, QStyle::SubControl ofSlider, QStyle::SubControl ofScrollBar) {
  const QStyleOptionSlider option = OptionOf(bar);
  return qobject_cast<const QSlider*>(&bar) != nullptr
             ? bar.style()->subControlRect(QStyle::CC_Slider, &option, ofSlider, &bar)
             : bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, ofScrollBar, &bar);
}

}  // namespace

QRect ThumbOf(const QAbstractSlider& bar) {
  return PartOf(bar, QStyle::SC_SliderHandle, QStyle::SC_ScrollBarSlider);
}

QRect GrooveOf(const QAbstractSlider& bar) {
  return PartOf(bar, QStyle::SC_SliderGroove, QStyle::SC_ScrollBarGroove);
}

QRect ArrowOf(const QAbstractSlider& bar, bool forward) {
  return PartOf(bar, QStyle::SC_None, forward ? QStyle::SC_ScrollBarAddLine : QStyle::SC_ScrollBarSubLine);
}

QPoint ThumbPointAt(const QAbstractSlider& bar, int position) {
  const QRect thumb = ThumbOf(bar);
  const QRect groove = GrooveOf(bar);
  const int room = groove.width() - thumb.width();
  const int left = QStyle::sliderPositionFromValue(bar.minimum(), bar.maximum(), position, room);
  return {groove.left() + left + thumb.width() / 2, thumb.center().y()};
}

}  // namespace qt_desktop::bars
