#include "platform/qt/desktop/chart_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/qt/desktop/accessible_role.h"
#include "platform/qt/desktop/keys.h"

namespace qt {

namespace {

struct Point {
  std::int32_t x;
  std::int32_t y;
};

Point UnitAt(QPointF position) {
  const QPoint point = QPointF(std::floor(position.x()), std::floor(position.y())).toPoint();
  return {point.x(), point.y()};
}

app::HeldKeys KeysHeldAt(const QInputEvent& event) {
  return {(event.modifiers() & Qt::ControlModifier) != 0, (event.modifiers() & Qt::ShiftModifier) != 0};
}

}  // namespace

class ChartWindow::Area final : public QWidget {
 public:
  Area(ChartWindow& window, QWidget* parent) : QWidget(parent), window_(window) {
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
  }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  // The second click of two quick ones is a click.
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void wheelEvent(QWheelEvent* event) override;

 private:
  ChartWindow& window_;
};

bool ChartWindow::Area::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::WindowDeactivate:
    case QEvent::WindowBlocked:
    case QEvent::Hide:
    case QEvent::UngrabMouse:
      window_.LoseCapture();
      break;
    default:
      break;
  }
  return QWidget::event(event);
}

void ChartWindow::Area::paintEvent(QPaintEvent*) {
  window_.Paint();
}

// Keys end here: what the chart does not know is for nobody behind it either.

void ChartWindow::Area::keyPressEvent(QKeyEvent* event) {
  if (const int key = KeyNumber(*event); key != 0) window_.logic_->OnKeyDown(key);
}

void ChartWindow::Area::keyReleaseEvent(QKeyEvent* event) {
  if (event->isAutoRepeat()) return;
  if (const int key = KeyNumber(*event); key != 0) window_.logic_->OnKeyUp(key);
}

void ChartWindow::Area::mouseMoveEvent(QMouseEvent* event) {
  // While any button is down Qt sends moves from everywhere.
  if (!window_.captured_ && !rect().contains(event->position().toPoint())) return;
  const Point point = UnitAt(event->position());
  window_.logic_->OnMouseMove(point.x, point.y, (event->buttons() & Qt::LeftButton) != 0, KeysHeldAt(*event));
}

void ChartWindow::Area::mousePressEvent(QMouseEvent* event) {
  const Point point = UnitAt(event->position());
  if (event->button() == Qt::LeftButton) window_.logic_->OnLeftDown(point.x, point.y, KeysHeldAt(*event));
  if (event->button() == Qt::RightButton) window_.logic_->OnRightDown(point.x, point.y);
}

void ChartWindow::Area::mouseReleaseEvent(QMouseEvent* event) {
  const bool isHere = window_.captured_ || rect().contains(event->position().toPoint());
  if (!isHere) return;
  const Point point = UnitAt(event->position());
  if (event->button() == Qt::LeftButton) window_.logic_->OnLeftUp(point.x, point.y);
  if (event->button() == Qt::RightButton) window_.logic_->OnRightUp(point.x, point.y);
}

void ChartWindow::Area::wheelEvent(QWheelEvent* event) {
  const bool shift = (event->modifiers() & Qt::ShiftModifier) != 0;
  const bool ctrl = (event->modifiers() & Qt::ControlModifier) != 0;
  const int turned = event->angleDelta().y();
  event->accept();
  const Point point = UnitAt(event->position());
  const auto turn = [&](int delta) {
    window_.logic_->OnWheel(point.x, point.y, delta, shift, ctrl, event->buttons() != Qt::NoButton);
  };
  // Without a key the view moves as far as the wheel was turned; with one its notches count.
  if (!shift && !ctrl) {
    if (turned != 0) turn(turned);
    return;
  }
  const int notches = window_.wheel_.WholeNotches(turned) / WheelNotches::kNotch;
  for (int i = 0; i < std::abs(notches); ++i)
    turn(notches < 0 ? -WheelNotches::kNotch : WheelNotches::kNotch);
}

ChartWindow::ChartWindow() {
  frameTimer_.setSingleShot(true);
  frameTimer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&frameTimer_, &QTimer::timeout, &frameTimer_, [this] {
    // A window that nobody sees gets no paint event, and is asked no sooner again for that.
    sinceFrame_.start();
    if (widget_) widget_->update();
  });
}

ChartWindow::~ChartWindow() = default;

QWidget* ChartWindow::Create(QWidget* parent) {
  widget_ = new Area(*this, parent);
  SetAccessibleRole(*widget_, QAccessible::Chart);
  return widget_;
}

void ChartWindow::Paint() {
  sinceFrame_.start();
  frameTimer_.stop();
  QPainter painter(widget_);
  painter_ = &painter;
  logic_->OnPaint();
  painter_ = nullptr;
}

void ChartWindow::RequestFrame(int milliseconds) {
  if (!widget_) return;
  const qint64 passed = sinceFrame_.isValid() ? sinceFrame_.elapsed() : milliseconds;
  const int wait = static_cast<int>(std::max<qint64>(0, milliseconds - passed));
  if (!frameTimer_.isActive() || frameTimer_.remainingTime() > wait) frameTimer_.start(wait);
}

void ChartWindow::Invalidate(const Rect&) {
  RequestFrame(kFrameMilliseconds);
}

void ChartWindow::TakeFocus() {
  if (widget_) widget_->setFocus(Qt::OtherFocusReason);
}

bool ChartWindow::HasFocus() const {
  return widget_ && widget_->hasFocus();
}

// Qt sends the mouse here for as long as a button that went down here is held. What is left is to know who
// asked for it.
void ChartWindow::Capture() {
  captured_ = true;
}

double ChartWindow::DoubleClickSeconds() const {
  return QApplication::doubleClickInterval() / 1000.0;
}

void ChartWindow::ReleaseCapture() {
  LoseCapture();
}

void ChartWindow::LoseCapture() {
  if (!captured_) return;
  captured_ = false;
  logic_->OnCaptureLost();
}

}  // namespace qt
