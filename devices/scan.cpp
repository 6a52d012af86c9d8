#include "devices/scan.h"

#include <future>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include "common/log.h"
#include "common/message.h"
#include "common/platform.h"
#include "common/timer.h"
#include "devices/shown_name.h"
#include "devices/tc421.h"
#include "devices/udp_device.h"

namespace TCBase {

namespace {

constexpr int kMaxRounds = 3;
constexpr float kRoundSeconds = 1.0F;
constexpr int kAnswerPollMilliseconds = 100;

// Takes one datagram, if one has come, and lists its sender if it is an answer.
void TakeAnswer(UDPSocket& socket, const std::string& probe, std::vector<DeviceInfo>& found) {
  std::string bytes;
  Ipv4Address from;
  if (!socket.Receive(bytes, from)) return;
  // A broadcast comes back to the computer that sent it.
  if (bytes == probe) return;
  TC421::Reply reply = TC421::ReadReply(bytes);
  if (reply.code != TC421::kFindCode) return;
  DeviceInfo device;
  device.model = ModelTC421UDP;
  device.name = std::move(reply.text);
  device.address = from;
  found.push_back(std::move(device));
}

// Name services may take long to say that they know nothing, and anybody can have them asked by answering the
// search from port zero. So each is given `patience`, and an answer that comes later is lost.
std::optional<std::string> LookUp(const Ipv4Address& address, std::chrono::milliseconds patience) {
  std::packaged_task<std::optional<std::string>()> ask([address] { return platform::HostNameOf(address); });
  std::future<std::optional<std::string>> answer = ask.get_future();
  std::thread(std::move(ask)).detach();
  if (answer.wait_for(patience) != std::future_status::ready) return std::nullopt;
  return answer.get();
}

// Names a controller after its host if the network knows one. But the address text ends with the port, unless
// that is zero, and ParseAddress takes none with a port, so nothing is looked up. That must stay so: a
// controller wants to see in its frames the name by which it reported. Do not take the port out of the text.
void FindHostName(DeviceInfo& device, std::chrono::milliseconds patience) {
  const std::string addressText = platform::AddressText(device.address);
  LogStatus(Message("Trying to find hostname for {1}...", addressText));
  const std::optional<Ipv4Address> address = platform::ParseAddress(addressText);
  std::optional<std::string> host;
  if (address) host = LookUp(*address, patience);
  if (host) {
    LogStatus(Message("Found hostname {1}", ShownName(*host)));
    device.name = std::move(*host);
  } else {
    LogStatus(Message("Hostname not found, using {1}", ShownName(device.name)));
  }
}

}  // namespace

void ScanDevices(std::vector<DeviceInfo>& found, float seconds, OperationObserver& observer) {
  LogDevice("ScanDevices");
  UDPSocket socket;
  if (!socket.Open()) return;
  if (!socket.Bind()) return observer.PortTaken();
  found.clear();
  std::string probe;
  TC421::Packet_Find().Serialize(probe);
  for (int round = 0; round < kMaxRounds && found.empty(); ++round) {
    socket.SendTo(probe, kLimitedBroadcast);
    const timer_base::TimerFeatures<TimerCore_Counter> listened;
    while (listened.Now() < static_cast<double>(seconds)) {
      TakeAnswer(socket, probe, found);
      platform::SleepMilliseconds(kAnswerPollMilliseconds);
    }
  }
}

std::vector<DeviceInfo> FindNetworkDevices(std::chrono::milliseconds lookupPatience,
                                           OperationObserver& observer) {
  LogStatus(Message("Searching for network devices..."));
  std::vector<DeviceInfo> found;
  ScanDevices(found, kRoundSeconds, observer);
  LogStatus(Message("Found {1} device(s)", static_cast<std::int32_t>(found.size())));
  for (DeviceInfo& device : found) FindHostName(device, lookupPatience);
  return found;
}

void Scan(Worker& worker, EventTarget& window, std::uint32_t message) {
  worker.ReplaceNetworkDevices(FindNetworkDevices());
  window.Post(message, 0, 0);
}

}  // namespace TCBase
