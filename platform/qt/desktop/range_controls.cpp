#include "platform/qt/desktop/range_controls.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <algorithm>
#include <cstdlib>

#include "app/window/control_table.h"
#include "app/window/numbers.h"

namespace qt {

namespace {

namespace scroll = app::scroll;

int CodeOf(int action) {
  switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
      return scroll::kLineForward;
    case QAbstractSlider::SliderSingleStepSub:
      return scroll::kLineBack;
    case QAbstractSlider::SliderPageStepAdd:
      return scroll::kPageForward;
    case QAbstractSlider::SliderPageStepSub:
      return scroll::kPageBack;
    case QAbstractSlider::SliderToMinimum:
      return scroll::kFirst;
    case QAbstractSlider::SliderToMaximum:
      return scroll::kLast;
    default:
      return scroll::kThumbMoving;
  }
}

// What a key of a slider does; SliderNoAction for other keys. Up is back, as on a ruler that lies.
QAbstractSlider::SliderAction ActionOf(int key) {
  switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Up:
      return QAbstractSlider::SliderSingleStepSub;
    case Qt::Key_Right:
    case Qt::Key_Down:
      return QAbstractSlider::SliderSingleStepAdd;
    case Qt::Key_PageUp:
      return QAbstractSlider::SliderPageStepSub;
    case Qt::Key_PageDown:
      return QAbstractSlider::SliderPageStepAdd;
    case Qt::Key_Home:
      return QAbstractSlider::SliderToMinimum;
    case Qt::Key_End:
      return QAbstractSlider::SliderToMaximum;
    default:
      return QAbstractSlider::SliderNoAction;
  }
}

}  // namespace

// TellingBar

template <class Base>
void TellingBar<Base>::mouseReleaseEvent(QMouseEvent* event) {
  const bool wasDragged = this->isSliderDown();
  Base::mouseReleaseEvent(event);
  if (event->button() != Qt::LeftButton) return;
  if (wasDragged) Tell(scroll::kThumbReleased);
  Tell(scroll::kEnd);
}

template <class Base>
void TellingBar<Base>::wheelEvent(QWheelEvent* event) {
  event->accept();
  const int notches = wheel_.WholeNotches(event->angleDelta().y()) / WheelNotches::kNotch;
  if (notches == 0) return;
  const auto step = notches > 0 ? Base::SliderSingleStepSub : Base::SliderSingleStepAdd;
  for (int i = 0; i < std::abs(notches); ++i) this->triggerAction(step);
  Tell(scroll::kEnd);
}

template class TellingBar<QSlider>;
template class TellingBar<QScrollBar>;

// Slider

Slider::Slider(QWidget* parent) : TellingBar(parent) {
  setRange(0, app::kSliderFirstMaximum);
  connect(this, &QAbstractSlider::actionTriggered, this, [this](int action) { OnAction(action); });
}

void Slider::OnAction(int action) {
  if (action == SliderNoAction) return;
  const int code = CodeOf(action);
  Tell(code, code == scroll::kThumbMoving ? sliderPosition() : 0);
}

void Slider::keyPressEvent(QKeyEvent* event) {
  const SliderAction action = ActionOf(event->key());
  if (action == SliderNoAction) return QSlider::keyPressEvent(event);
  triggerAction(action);
}

void Slider::keyReleaseEvent(QKeyEvent* event) {
  const bool isEnd = ActionOf(event->key()) != SliderNoAction && !event->isAutoRepeat();
  if (isEnd) Tell(scroll::kEnd);
  QSlider::keyReleaseEvent(event);
}

void Slider::mousePressEvent(QMouseEvent* event) {
  // The whole height counts as the groove's, the marks below it too.
  QStyleOptionSlider option;
  initStyleOption(&option);
  const QRect groove = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
  QMouseEvent onGroove(event->type(), QPointF(event->position().x(), groove.center().y()),
                       event->globalPosition(), event->button(), event->buttons(), event->modifiers());
  QSlider::mousePressEvent(&onGroove);
  event->setAccepted(onGroove.isAccepted());
}

// ScrollBar

ScrollBar::ScrollBar(QWidget* parent) : TellingBar(parent) {
  setMaximum(0);
  setFocusPolicy(Qt::NoFocus);
  connect(this, &QAbstractSlider::actionTriggered, this, [this](int action) { OnAction(action); });
}

void ScrollBar::SetStretch(std::int32_t minimum, std::int32_t maximum, std::int32_t page,
                           std::int32_t position) {
  const int last = std::max(minimum, maximum - std::max(page - 1, 0));
  setRange(minimum, last);
  setPageStep(page);
  position_ = std::clamp(position, minimum, last);
  setValue(position_);
}

void ScrollBar::OnAction(int action) {
  if (action == SliderNoAction) return;
  const int code = CodeOf(action);
  const int moved = sliderPosition();
  // Before Qt makes the new place its value; the application's answer sets another.
  if (code != scroll::kThumbMoving) setSliderPosition(position_);
  Tell(code, code == scroll::kThumbMoving ? moved : 0);
}

// Its menu would go past the application.
void ScrollBar::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
}

}  // namespace qt
