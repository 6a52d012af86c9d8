#pragma once

// A controller at its place in a network: what arrives is handed to it, reported, and answered as well as the
// network lets it. Sends nothing itself.

#include <deque>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "devices/ipv4_address.h"
#include "simulator/controller.h"
#include "simulator/faults.h"

namespace sim {

/// A datagram on its way out.
struct Outgoing {
  double due;  // seconds of the clock
  TCBase::Ipv4Address to;
  std::string bytes;
};

/// One thread. `report` outlives it.
class ControllerHost {
 public:
  /// With `showFrames` every frame is reported byte for byte too.
  ControllerHost(std::unique_ptr<Controller> controller, const FaultOptions& faults, bool showFrames,
                 std::ostream& report);

  /// Takes a datagram. A line of the report tells what it asked for, and one each what was wrong with it;
  /// `fromText` is the sender as these call it.
  void Take(const std::string& datagram, const TCBase::Ipv4Address& from, std::string_view fromText,
            double seconds);

  /// The next answer that is due, which is then gone from here.
  std::optional<Outgoing> TakeDue(double seconds);

  const Controller& GetController() const { return *controller_; }

 private:
  void Report(std::string_view from, std::string_view text) const;

  const std::unique_ptr<Controller> controller_;
  Faults faults_;
  const double delaySeconds_;
  const bool showFrames_;
  std::ostream& report_;
  std::deque<Outgoing> waiting_;  // in the order in which they are due
};

}  // namespace sim
