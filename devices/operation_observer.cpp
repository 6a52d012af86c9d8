#include "devices/operation_observer.h"

namespace TCBase {

bool IsConfirmed(PacketOutcome outcome) {
  return outcome == PacketOutcome::Unanswered || outcome == PacketOutcome::Answered;
}

OperationObserver& NoObserver() {
  static OperationObserver observer;
  return observer;
}

void ExchangeCount::WorkBegins(int frames) {
  next_.WorkBegins(frames);
}

void ExchangeCount::WorkEnds() {
  next_.WorkEnds();
}

void ExchangeCount::FrameSent() {
  next_.FrameSent();
}

void ExchangeCount::PacketEnded(PacketOutcome outcome) {
  ++exchange_.packets;
  if (!IsConfirmed(outcome)) ++exchange_.unconfirmed;
  if (outcome == PacketOutcome::Answered || outcome == PacketOutcome::Refused) {
    ++exchange_.replies;
    exchange_.lastReply = sinceBegin_.Now();
  }
  next_.PacketEnded(outcome);
}

void ExchangeCount::PortTaken() {
  exchange_.portTaken = true;
  next_.PortTaken();
}

void ExchangeCount::DemoAt(std::int32_t second) {
  next_.DemoAt(second);
}

void ExchangeCount::DemoEnded() {
  next_.DemoEnded();
}

}  // namespace TCBase
