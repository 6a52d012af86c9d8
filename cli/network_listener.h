#pragma once

// What the network does while an operation runs on it, heard from the device log, so that a failure can be
// explained.

#include <string>

#include "cli/session.h"
#include "devices/device_info.h"

namespace cli {

/// Takes the texts of the device log on the thread that logs them.
class NetworkListener {
 public:
  /// Forgets what was heard, and listens for an answer of `device`.
  void Begin(const TCBase::DeviceInfo& device);
  void Listen(const std::string& text);

  /// Tells the user what to do about a network controller that did not answer, or a port that is taken. False
  /// if there was neither.
  bool Explain(const Session& session) const;

 private:
  std::string device_;   // the word for it
  std::string address_;  // empty for a controller on no network
  bool portTaken_ = false;
  bool sent_ = false;
  bool answered_ = false;
};

/// The line for a port that is taken.
void ExplainPort(const Session& session);

/// Whether a text of the device log says that the port is taken.
bool TellsOfTakenPort(const std::string& text);

}  // namespace cli
