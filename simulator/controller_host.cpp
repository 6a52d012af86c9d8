#include "simulator/controller_host.h"

#include <utility>

namespace sim {

namespace {

// A program that asks faster than the answers leave gets no more than these.
constexpr std::size_t kMostWaiting = 1000;

}  // namespace

ControllerHost::ControllerHost(std::unique_ptr<Controller> controller, const FaultOptions& faults,
                               bool showFrames, std::ostream& report)
    : controller_(std::move(controller)),
      faults_(faults),
      delaySeconds_(faults.delayMilliseconds / 1000.0),
      showFrames_(showFrames),
      report_(report) {}

void ControllerHost::Take(const std::string& datagram, const TCBase::Ipv4Address& from,
                          std::string_view fromText, double seconds) {
  if (showFrames_) Report(fromText, ToHex(datagram));
  if (faults_.IsOff()) {
    Report(fromText, "not heard, it is off");
    return;
  }
  if (faults_.LosesRequest()) {
    Report(fromText, "lost on the way here");
    return;
  }
  const std::size_t known = controller_->Violations().size();
  const std::string reply = controller_->Receive(datagram, seconds);
  if (!controller_->Heard().empty()) Report(fromText, controller_->Heard());
  const auto& violations = controller_->Violations();
  for (std::size_t i = known; i < violations.size(); ++i) Report(fromText, "OBJECTION, " + violations[i]);
  if (reply.empty()) return;

  const std::vector<std::string> arriving = faults_.ArrivalsOf(reply);
  if (arriving.empty()) Report(fromText, "answer lost on the way back");
  for (const std::string& bytes : arriving) {
    if (bytes != reply) Report(fromText, "answer damaged: " + ToHex(bytes));
    if (waiting_.size() < kMostWaiting) waiting_.push_back({seconds + delaySeconds_, from, bytes});
  }
  if (arriving.size() > 1) Report(fromText, "answer sent twice");
}

std::optional<Outgoing> ControllerHost::TakeDue(double seconds) {
  if (waiting_.empty() || waiting_.front().due > seconds) return std::nullopt;
  Outgoing outgoing = std::move(waiting_.front());
  waiting_.pop_front();
  return outgoing;
}

void ControllerHost::Report(std::string_view from, std::string_view text) const {
  report_ << from << "  " << text << '\n' << std::flush;
}

}  // namespace sim
