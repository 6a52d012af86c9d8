#pragma once

// Who hears what operations meet on controllers, as it happens. The lines of the logs are for people; whoever
// has to know listens here.

#include <cstdint>

#include "common/timer.h"

namespace TCBase {

/// What became of a packet, however often it was sent.
enum class PacketOutcome {
  Unanswered,  // it left, and no reply is awaited, or none came where none is needed
  Answered,    // with a reply that will do
  NoAnswer,    // none came
  Refused,     // with a reply that will not do
  NotSent,     // the transport did not take it
};

/// Whether nothing speaks against it that the controller has the packet.
bool IsConfirmed(PacketOutcome outcome);

/// All calls come on the thread that runs the operation, which waits for them to return. By default nothing
/// is made of them.
class OperationObserver {
 public:
  OperationObserver() = default;
  OperationObserver(const OperationObserver&) = delete;
  OperationObserver& operator=(const OperationObserver&) = delete;
  virtual ~OperationObserver() = default;

  /// Work on controllers begins. As many frames leave until it ends, where none is lost; 0 if nobody can
  /// tell.
  virtual void WorkBegins(int /*frames*/) {}
  /// It has ended, whatever came of it.
  virtual void WorkEnds() {}
  /// A frame has left for the controller; one that is sent again comes again.
  virtual void FrameSent() {}
  /// A packet is done with.
  virtual void PacketEnded(PacketOutcome) {}
  /// Another program has the network port: nothing can be sent.
  virtual void PortTaken() {}
  /// A demo runs, and is at this second of the day. Comes several times for one second.
  virtual void DemoAt(std::int32_t /*second*/) {}
  /// The demo has ended.
  virtual void DemoEnded() {}
};

/// An observer that makes nothing of what it hears. Any thread.
OperationObserver& NoObserver();

/// What became of all packets.
struct Exchange {
  bool portTaken = false;  // another program has the network port: nothing could be sent
  int packets = 0;
  int unconfirmed = 0;     // of them: did not leave, or got no reply that will do where one is awaited
  int replies = 0;         // that came from the controller, whatever stands in them
  double lastReply = 0.0;  // when the last of them came, in seconds since the count began
};

/// Counts from its construction on, and hands everything on.
class ExchangeCount final : public OperationObserver {
 public:
  /// `next` outlives it.
  explicit ExchangeCount(OperationObserver& next) : next_(next) {}

  void WorkBegins(int frames) override;
  void WorkEnds() override;
  void FrameSent() override;
  void PacketEnded(PacketOutcome outcome) override;
  void PortTaken() override;
  void DemoAt(std::int32_t second) override;
  void DemoEnded() override;

  const Exchange& Counted() const { return exchange_; }

 private:
  OperationObserver& next_;
  const timer_base::TimerFeatures<TimerCore_Counter> sinceBegin_;
  Exchange exchange_;
};

}  // namespace TCBase
