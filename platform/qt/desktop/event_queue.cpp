#include "platform/qt/desktop/event_queue.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <utility>

#include "platform/qt/desktop/keys.h"

namespace qt {

EventQueue::EventQueue(const MainWindow& window, const ChartWindow& chart) : window_(window), chart_(chart) {}

void EventQueue::UseAccelerators(std::vector<app::Accelerator> accelerators) {
  accelerators_ = std::move(accelerators);
  QCoreApplication::instance()->installEventFilter(this);
}

bool EventQueue::Take() {
  if (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) return true;
  // Qt would keep these for its own loop, which never runs here.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  return false;
}

void EventQueue::AwaitEvent(int) {
  // The demo's timer ends the wait if nothing else does.
  QAbstractEventDispatcher::instance()->processEvents(QEventLoop::WaitForMoreEvents);
}

int EventQueue::CommandFor(const QObject& watched, const QEvent& event) const {
  if (event.type() != QEvent::ShortcutOverride && event.type() != QEvent::KeyPress) return 0;
  const auto* const widget = qobject_cast<const QWidget*>(&watched);
  if (widget == nullptr || !window_.Owns(*widget)) return 0;
  if (QApplication::activePopupWidget() != nullptr || QApplication::activeModalWidget() != nullptr) return 0;
  return CommandOf(static_cast<const QKeyEvent&>(event), accelerators_);
}

bool EventQueue::eventFilter(QObject* watched, QEvent* event) {
  const int command = CommandFor(*watched, *event);
  if (command == 0) return false;
  // Accepted, this one tells that the key is ours, before any letter of the menu bar: the press follows.
  event->accept();
  if (event->type() == QEvent::KeyPress && !chart_.IsCaptured()) logic_->OnAccelerator(command);
  return true;
}

}  // namespace qt
