#include "platform/qt/desktop/mailbox.h"

#include <QCoreApplication>

#include <memory>

namespace qt {

QEvent::Type PostedEvent::Kind() {
  static const auto kind = static_cast<Type>(registerEventType());
  return kind;
}

void Mailbox::Open(QObject& receiver) {
  const std::scoped_lock lock(mutex_);
  receiver_ = &receiver;
}

void Mailbox::Close() {
  const std::scoped_lock lock(mutex_);
  receiver_ = nullptr;
}

void Mailbox::Post(std::uint32_t event, std::uintptr_t first, std::intptr_t second) {
  const std::scoped_lock lock(mutex_);
  if (receiver_ == nullptr) return;
  // Qt's queue owns the event.
  QCoreApplication::postEvent(receiver_, std::make_unique<PostedEvent>(event, first, second).release());
}

}  // namespace qt
