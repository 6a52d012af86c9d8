#pragma once

#include <QEvent>

#include <cstdint>
#include <mutex>

#include "common/event_target.h"

class QObject;

namespace qt {

/// An event of the application's on its way to a window.
class PostedEvent final : public QEvent {
 public:
  static Type Kind();

  PostedEvent(std::uint32_t number, std::uintptr_t firstValue, std::intptr_t secondValue)
      : QEvent(Kind()), event(number), first(firstValue), second(secondValue) {}

  const std::uint32_t event;
  const std::uintptr_t first;
  const std::intptr_t second;
};

/// Posts to a window for as long as it stands: the window's event() or customEvent() gets a PostedEvent. Any
/// thread.
class Mailbox final : public EventTarget {
 public:
  Mailbox() = default;
  explicit Mailbox(QObject& receiver) : receiver_(&receiver) {}
  Mailbox(const Mailbox&) = delete;
  Mailbox& operator=(const Mailbox&) = delete;

  void Open(QObject& receiver);
  /// The window goes; what is posted from here on is lost.
  void Close();

  void Post(std::uint32_t event, std::uintptr_t first, std::intptr_t second) override;

 private:
  std::mutex mutex_;
  QObject* receiver_ = nullptr;  // guarded by mutex_; null where nobody receives
};

}  // namespace qt
