#include "cli/network_listener.h"

#include "cli/device_word.h"

namespace cli {

void NetworkListener::Begin(const TCBase::DeviceInfo& device) {
  *this = {};
  device_ = WordOf(device);
  if (device.model == TCBase::ModelTC421UDP) address_ = AddressOf(device);
}

void NetworkListener::Listen(const std::string& text) {
  if (TellsOfTakenPort(text)) portTaken_ = true;
  if (address_.empty()) return;
  if (text.find("sendto_core " + address_ + ':') != std::string::npos) sent_ = true;
  if (text.find("recvfrom " + address_ + ':') != std::string::npos) answered_ = true;
}

bool NetworkListener::Explain(const Session& session) const {
  if (portTaken_) {
    ExplainPort(session);
    return true;
  }
  if (!sent_ || answered_) return false;
  session.status.Print("No answer from " + device_ +
                       ". Is it on, is this computer in its network, are name and address as \"lumarinectl "
                       "scan\" lists them, and does the firewall let UDP port 5000 in?");
  return true;
}

void ExplainPort(const Session& session) {
  session.status.Print(
      "UDP port 5000 cannot be had: another program holds it, a second Lumarine perhaps. Close it and try "
      "again.");
}

bool TellsOfTakenPort(const std::string& text) {
  return text.find("bind error: ") != std::string::npos;
}

}  // namespace cli
