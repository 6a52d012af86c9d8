#include "cli/explain.h"

#include <string>

#include "cli/device_word.h"
#include "common/message.h"
#include "devices/controller_models.h"

namespace cli {

namespace {

using TCBase::DeviceInfo;
using TCBase::OperationReport;
using TCBase::OperationResult;

ExitStatus ExitStatusOf(OperationResult result) {
  switch (result) {
    case OperationResult::Done:
      return ExitStatus::Success;
    case OperationResult::NotConnected:
    case OperationResult::PortTaken:
    case OperationResult::NoAnswer:
      return ExitStatus::NoDevice;
    case OperationResult::Forbidden:
    case OperationResult::Failed:
    case OperationResult::Cancelled:
      break;
  }
  return ExitStatus::OperationFailed;
}

// What may be wrong where a controller on a cable cannot be connected.
void ExplainConnectError(const Session& session, const DeviceInfo& info) {
  session.status.Print(
      Message(
          "No connection to {1}. Does \"lumarinectl devices\" list it, and does no other program hold it?",
          WordOf(info))
          .utf8());
}

std::string InQuotes(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "\"" : ", \"") + name + '"';
  return list;
}

void TellUnconfirmed(const Session& session, const DeviceInfo& info, const OperationReport& report) {
  const std::string word = WordOf(info);
  if (!report.unconfirmedModes.empty())
    session.status.Print(
        Message("Modes that {1} did not confirm: {2}", word, InQuotes(report.unconfirmedModes)).utf8());
  if (report.endUnconfirmed)
    session.status.Print(Message("The end of the upload was not confirmed by {1}.", word).utf8());
  if (report.exchange.unconfirmed > 0)
    session.status.Print(Message("Frames that {1} did not confirm: {2} of {3}", word,
                                 report.exchange.unconfirmed, std::to_string(report.exchange.packets))
                             .utf8());
}

}  // namespace

ExitStatus Explain(const Session& session, const DeviceInfo& info, const OperationReport& report) {
  if (ExplainNetwork(session, info, report.result)) return ExitStatus::NoDevice;
  if (report.result == OperationResult::NotConnected && IsOnCable(info)) ExplainConnectError(session, info);
  TellUnconfirmed(session, info, report);
  return ExitStatusOf(report.result);
}

bool ExplainNetwork(const Session& session, const DeviceInfo& info, OperationResult result) {
  if (result == OperationResult::PortTaken) {
    ExplainPort(session);
    return true;
  }
  if (result != OperationResult::NoAnswer) return false;
  session.status.Print(
      Message("No answer from {1}. Is it on, is this computer in its network, are name and address as "
              "\"lumarinectl scan\" lists them, and does the firewall let UDP port 5000 in?",
              WordOf(info))
          .utf8());
  return true;
}

void ExplainPort(const Session& session) {
  session.status.Print(Message("UDP port 5000 cannot be had: another program holds it, a second Lumarine "
                               "perhaps. Close it and try again.")
                           .utf8());
}

}  // namespace cli
