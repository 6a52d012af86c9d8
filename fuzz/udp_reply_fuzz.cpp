// A network on which anybody answers anything: datagrams of any size, sender and contents at every receive,
// sends that fail, a port that is taken. A scan and an operation on what it found must end in the time that
// they have, with all sockets closed, no frame sent to anybody who was not found, and only harmless text for
// the user. NetworkManager's list is read from the same bytes.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/log.h"
#include "devices/jobs.h"
#include "devices/network_manager.h"
#include "devices/scan.h"
#include "devices/wifi.h"
#include "program/builtin_modes.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/sim_network.h"
#include "tests/support/virtual_clock.h"

namespace {

// A day's upload to ten controllers that stay silent.
constexpr double kMostSeconds = 10 * 4 * 51 * 7.0;

void Require(bool good) {
  if (!good) std::abort();
}

// The input as a stream of choices; zeros when it has run out.
class Choices {
 public:
  Choices(const std::uint8_t* data, std::size_t size) : data_(data, data + size) {}

  bool AreLeft() const { return next_ < data_.size(); }
  std::uint8_t Next() { return AreLeft() ? data_[next_++] : 0; }

 private:
  std::vector<std::uint8_t> data_;
  std::size_t next_ = 0;
};

// Two neighbours of no name: what each says at which receive is for the input to choose.
std::optional<sim_network::Datagram> NextDatagram(Choices& choices) {
  const int kind = choices.Next();
  if (!choices.AreLeft() || kind % 4 == 0) return std::nullopt;
  sim_network::Datagram datagram;
  datagram.from = TCBase::MakeIpv4Address({10, 0, 0, static_cast<std::uint8_t>(kind % 2)},
                                          static_cast<std::uint16_t>(kind % 8 == 7 ? 0 : 5000));
  datagram.bytes.resize(kind % 4 == 1 ? choices.Next() : 64);
  if (datagram.bytes.size() > 2) datagram.bytes[2] = kind % 3 == 0 ? '\x17' : '\x18';
  for (std::size_t i = 4; i < datagram.bytes.size() && i < 20; ++i) {
    datagram.bytes[i] = static_cast<char>(choices.Next());
  }
  return datagram;
}

std::string DrainStatus() {
  std::string text;
  statusLog.textHandler = [&text](const std::string& item) { text += item == "\r\n" ? "" : item; };
  statusLog.Drain();
  statusLog.textHandler = nullptr;
  return text;
}

void ReadAsNetworkManagers(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  if (const auto networks = TCBase::ReadNetworkManagerList(text))
    for (const platform::WifiNetwork& network : *networks) Require(network.ssid.size() <= 32);
  TCBase::HasWifiAdapter(text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ReadAsNetworkManagers(data, size);
  Choices choices(data, size);
  virtual_clock::Reset();
  const virtual_clock::Alone alone;
  sim_hidapi::Reset();
  sim_network::Reset();
  const int what = choices.Next();
  sim_network::HoldPort(what % 16 == 15);
  if (what % 8 == 7) sim_network::Inject(sim_network::Call::Send, choices.Next(), choices.Next());
  sim_network::SetFlood([&choices] { return NextDatagram(choices); });

  std::vector<TCBase::DeviceInfo> found = TCBase::FindNetworkDevices();
  Require(virtual_clock::Seconds() <= 3.1 && found.size() <= 10);
  std::string status = DrainStatus();
  for (TCBase::DeviceInfo& device : found) device.selected = true;
  const TCBase::Program::ModeListView program = TCBase::Program::NewProgram();
  TCBase::DemoState demo;
  const TCBase::OperationContext context{demo};
  if (what % 3 == 0) {
    TCBase::UploadJob(found, program, context)();
  } else if (what % 3 == 1) {
    TCBase::DemoJob(found, program, 1, context)();
  } else if (!found.empty()) {
    TCBase::SetupWifi(found.front(), {"Reef", std::string(choices.Next(), 'k'), TCBase::EncryptionAES,
                                      static_cast<TCBase::WifiSecurity>(choices.Next() % 4)});
  }
  status += DrainStatus();

  Require(virtual_clock::Seconds() <= kMostSeconds);
  Require(sim_network::OpenSockets() == 0 && sim_network::Violations().empty());
  Require(Utf8FromWide(WideFromUtf8(status)) == status);
  Require(std::none_of(status.begin(), status.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }));
  for (const sim_network::Sent& sent : sim_network::Traffic()) {
    const bool isFound = std::any_of(found.begin(), found.end(), [&sent](const TCBase::DeviceInfo& device) {
      return device.address.address == sent.to.address;
    });
    Require(sent.bytes.size() == 64 && (isFound || sent.to.address == TCBase::kLimitedBroadcast));
  }
  deviceLog.Drain();
  return 0;
}
