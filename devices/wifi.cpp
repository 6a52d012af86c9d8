#include "devices/wifi.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "common/log.h"
#include "common/message.h"
#include "devices/shown_name.h"
#include "devices/tc421.h"

namespace TCBase {

namespace {

using platform::WifiAuthentication;
using platform::WifiCipher;
using platform::WifiQuery;

// The first byte of the text in a controller's reply.
constexpr int kSsidTaken = 0x70;
constexpr int kPasswordTaken = 0x72;
constexpr int kOpenTaken = 0x74;

template <class Value>
struct Word {
  Value value;
  const char* name;
};
constexpr Word<WifiSecurity> kSecurityWords[] = {
    {SecurityOpen, "Open"}, {SecurityWPA, "WPA"}, {SecurityWPA2, "WPA2"}};
constexpr Word<WifiEncryption> kEncryptionWords[] = {{EncryptionAES, "AES"}, {EncryptionTKIP, "TKIP"}};
constexpr char kInvalid[] = "Invalid";

template <class Value, std::size_t kCount>
const char* FindName(const Word<Value> (&words)[kCount], Value value) {
  const auto found = std::find_if(std::begin(words), std::end(words),
                                  [value](const auto& word) { return word.value == value; });
  return found != std::end(words) ? found->name : kInvalid;
}

template <class Value, std::size_t kCount>
Value FindValue(const Word<Value> (&words)[kCount], std::string_view name, Value otherwise) {
  const auto found = std::find_if(std::begin(words), std::end(words),
                                  [name](const auto& word) { return word.name == name; });
  return found != std::end(words) ? found->value : otherwise;
}

TextKey ProblemOf(WifiQuery query) {
  switch (query) {
    case WifiQuery::NoService:
      return TextKey("Can't connect Wi-Fi! Problem function: WlanOpenHandle.");
    case WifiQuery::NoAdapterList:
      return TextKey("Can't enumerate WLAN adapters! Problem function: WlanEnumInterfaces.");
    case WifiQuery::NoAdapter:
      return TextKey("No Wi-Fi adapter found.");
    case WifiQuery::NoNetworkList:
      return TextKey(
          "Can't get available networks! Probably your PC in Airplane mode, and /or Wifi turned "
          "out.Problem function : WlanGetAvailableNetworkList.");
    case WifiQuery::Answered:
      break;
  }
  return {};
}

bool Send(DeviceBase& device, const PacketBase& packet, int expected, TextKey problem) {
  if (device.SendPacket(packet, expected)) return true;
  LogStatus(Message(problem));
  return false;
}

bool SendConfig(DeviceBase& device, const DeviceInfo& info, const WifiNetworkConfig& config) {
  switch (config.security) {
    case SecurityOpen:
      return Send(device, TC421::Packet_SetWiFi_Open(info, config.ssid), kOpenTaken,
                  TextKey("Error setting open WiFi"));
    case SecurityWPA:
    case SecurityWPA2:
      return Send(device, TC421::Packet_SetWiFi_SSID(info, config.ssid, config.security, config.encryption),
                  kSsidTaken, TextKey("Error setting WiFi SSID")) &&
             Send(device, TC421::Packet_SetWiFi_Password(info, config.password), kPasswordTaken,
                  TextKey("Error setting WiFi password"));
    default:
      // This is no error: there is nothing that a controller could be told.
      LogWarning(
          Message("Nothing was sent to {1}: no security type is chosen for the network {2}. Choose one "
                  "and set it up again.",
                  ShownName(info.name), ShownName(config.ssid))
              .utf8());
      return true;
  }
}

}  // namespace

const char* NameOf(WifiSecurity security) {
  return FindName(kSecurityWords, security);
}

const char* NameOf(WifiEncryption encryption) {
  return FindName(kEncryptionWords, encryption);
}

WifiSecurity ParseWifiSecurity(std::string_view name) {
  return FindValue(kSecurityWords, name, SecurityInvalid);
}

WifiEncryption ParseWifiEncryption(std::string_view name) {
  return FindValue(kEncryptionWords, name, EncryptionInvalid);
}

WifiSecurity SecurityOf(const WifiNetwork& network) {
  switch (network.authentication) {
    case WifiAuthentication::Open:
      return SecurityOpen;
    case WifiAuthentication::Wpa:
    case WifiAuthentication::WpaPassword:
      return SecurityWPA;
    case WifiAuthentication::Wpa2:
    case WifiAuthentication::Wpa2Password:
      return SecurityWPA2;
    case WifiAuthentication::Other:
      break;
  }
  return SecurityInvalid;
}

WifiEncryption EncryptionOf(const WifiNetwork& network) {
  switch (network.cipher) {
    case WifiCipher::Tkip:
      return EncryptionTKIP;
    case WifiCipher::Ccmp:
      // Two names of one thing.
      return EncryptionAES;
    case WifiCipher::Other:
      break;
  }
  return EncryptionInvalid;
}

bool ListWifiNetworks(std::vector<WifiNetwork>& networks) {
  networks.clear();
  if (const TextKey problem = ProblemOf(platform::QueryWifiNetworks(networks)); !problem.empty()) {
    LogStatus(Message(problem));
    return false;
  }
  std::erase_if(networks, [](const WifiNetwork& network) { return network.ssid.empty(); });
  return true;
}

OperationReport SetupWifi(const DeviceInfo& info, const WifiNetworkConfig& config,
                          OperationObserver& observer) {
  const auto setUp = [&](DeviceBase& device, const ExchangeCount&) {
    LogStatus(Message("Setting up WiFi"));
    const bool done = SendConfig(device, info, config);
    return OperationReport(done ? OperationResult::Done : OperationResult::Failed);
  };
  return WithDevice(info, observer, setUp);
}

}  // namespace TCBase
