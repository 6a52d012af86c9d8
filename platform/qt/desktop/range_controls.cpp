#include "platform/qt/desktop/range_controls.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <algorithm>

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

// Slider

Slider::Slider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
  setRange(0, app::kSliderFirstMaximum);
  connect(this, &QAbstractSlider::actionTriggered, this, [this](int action) { OnAction(action); });
}

void Slider::OnAction(int action) {
  if (!tell_ || action == SliderNoAction) return;
  const int code = CodeOf(action);
  tell_(code, code == scroll::kThumbMoving ? sliderPosition() : 0);
}

void Slider::keyPressEvent(QKeyEvent* event) {
  const SliderAction action = ActionOf(event->key());
  if (action == SliderNoAction) return QSlider::keyPressEvent(event);
  triggerAction(action);
}

void Slider::keyReleaseEvent(QKeyEvent* event) {
  const bool isEnd = ActionOf(event->key()) != SliderNoAction && !event->isAutoRepeat();
  if (isEnd && tell_) tell_(scroll::kEnd, 0);
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

void Slider::mouseReleaseEvent(QMouseEvent* event) {
  const bool wasDragged = isSliderDown();
  const bool wasHeld = event->button() == Qt::LeftButton;
  QSlider::mouseReleaseEvent(event);
  if (!wasHeld || !tell_) return;
  if (wasDragged) tell_(scroll::kThumbReleased, 0);
  tell_(scroll::kEnd, 0);
}

void Slider::wheelEvent(QWheelEvent* event) {
  event->accept();
  if (event->angleDelta().y() == 0) return;
  triggerAction(event->angleDelta().y() > 0 ? SliderSingleStepSub : SliderSingleStepAdd);
  if (tell_) tell_(scroll::kEnd, 0);
}

// ScrollBar

ScrollBar::ScrollBar(QWidget* parent) : QScrollBar(Qt::Horizontal, parent) {
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
  if (tell_) tell_(code, code == scroll::kThumbMoving ? moved : 0);
}

void ScrollBar::mouseReleaseEvent(QMouseEvent* event) {
  const bool wasDragged = isSliderDown();
  const bool wasHeld = event->button() == Qt::LeftButton;
  QScrollBar::mouseReleaseEvent(event);
  if (!wasHeld || !tell_) return;
  if (wasDragged) tell_(scroll::kThumbReleased, 0);
  tell_(scroll::kEnd, 0);
}

void ScrollBar::wheelEvent(QWheelEvent* event) {
  event->accept();
  if (event->angleDelta().y() == 0) return;
  triggerAction(event->angleDelta().y() > 0 ? SliderSingleStepSub : SliderSingleStepAdd);
  if (tell_) tell_(scroll::kEnd, 0);
}

// Its menu would go past the application.
void ScrollBar::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
}

}  // namespace qt
