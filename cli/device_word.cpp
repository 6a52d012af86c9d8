#include "cli/device_word.h"

#include "devices/controller_models.h"
#include "devices/datagrams.h"
#include "devices/shown_name.h"

namespace cli {

namespace {

using TCBase::DeviceInfo;

// A controller that there is one of.
struct KnownDevice {
  const char* word;
  TCBase::DeviceModel model;
};
constexpr KnownDevice kKnownDevices[] = {
    {"emulator", TCBase::ModelEmulator},
    {"tc420", TCBase::ModelTC420},
    {"tc421", TCBase::ModelTC421USB},
};

constexpr std::string_view kNetwork = "udp:";

std::optional<DeviceInfo> ParseNetworkDevice(const std::string& word) {
  // An address holds no "@", a name may.
  const std::size_t at = word.rfind('@');
  if (!word.starts_with(kNetwork) || at == std::string::npos) return std::nullopt;
  const auto address = platform::ParseAddress(word.substr(at + 1));
  if (!address) return std::nullopt;
  const std::string name = word.substr(kNetwork.size(), at - kNetwork.size());
  return DeviceInfo{TCBase::ModelTC421UDP, name, *address, true};
}

}  // namespace

std::optional<DeviceInfo> ParseDevice(const std::string& word) {
  for (const KnownDevice& known : kKnownDevices)
    if (word == known.word)
      return DeviceInfo{known.model, TCBase::ControllerModelOf(known.model).name, {}, true};
  return ParseNetworkDevice(word);
}

std::string CheckDevice(const std::string& word) {
  if (ParseDevice(word)) return {};
  if (word.starts_with(kNetwork))
    return word +
           " is no udp:NAME@ADDRESS, as in udp:Smart-123456@192.168.4.1; \"lumarinectl scan\" lists them";
  return word + " is no controller, there are emulator, tc420, tc421 and udp:NAME@ADDRESS";
}

std::string WordOf(const DeviceInfo& device) {
  for (const KnownDevice& known : kKnownDevices)
    if (known.model == device.model) return known.word;
  return std::string(kNetwork) + TCBase::ShownName(device.name) + '@' + AddressOf(device);
}

std::string AddressOf(const DeviceInfo& device) {
  return platform::AddressText(TCBase::MakeIpv4Address(device.address.address, 0));
}

}  // namespace cli
