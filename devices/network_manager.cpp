#include "devices/network_manager.h"

#include <algorithm>
#include <string>
#include <utility>

namespace TCBase {

namespace {

using platform::WifiAuthentication;
using platform::WifiCipher;
using platform::WifiNetwork;
using Fields = std::vector<std::string>;

constexpr std::size_t kFieldCount = 4;
constexpr std::size_t kMaxSsidSize = 32;

// Takes the first line off `text`.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

// Colons part the fields; a colon or backslash inside one stands behind a backslash, and nothing else does.
std::optional<Fields> SplitFields(std::string_view line) {
  Fields fields(1);
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == ':') {
      fields.emplace_back();
      continue;
    }
    if (line[i] == '\\') {
      ++i;
      if (i == line.size() || (line[i] != ':' && line[i] != '\\')) return std::nullopt;
    }
    fields.back() += line[i];
  }
  return fields;
}

std::optional<int> HexDigit(char c) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const std::size_t digit = kDigits.find(c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c);
  if (digit == std::string_view::npos) return std::nullopt;
  return static_cast<int>(digit);
}

std::optional<std::string> ReadHex(std::string_view hex) {
  if (hex.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    const std::optional<int> high = HexDigit(hex[i]);
    const std::optional<int> low = HexDigit(hex[i + 1]);
    if (!high || !low) return std::nullopt;
    bytes += static_cast<char>(*high * 16 + *low);
  }
  return bytes;
}

// Whether a list of words, parted by blanks, has `word`.
bool HasWord(std::string_view list, std::string_view word) {
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(' '), list.size());
    if (list.substr(0, end) == word) return true;
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return false;
}

// `password` where a password lets somebody in, `server` where a server of the owner's does.
WifiAuthentication AuthenticationOf(std::string_view flags, WifiAuthentication password,
                                    WifiAuthentication server) {
  if (HasWord(flags, "psk")) return password;
  if (HasWord(flags, "802.1X")) return server;
  return WifiAuthentication::Other;
}

WifiCipher CipherOf(std::string_view flags) {
  if (HasWord(flags, "pair_ccmp")) return WifiCipher::Ccmp;
  if (HasWord(flags, "pair_tkip")) return WifiCipher::Tkip;
  return WifiCipher::Other;
}

bool HasFlags(std::string_view flags) {
  return !flags.empty() && flags != "(none)" && flags != "--";
}

// The better of the ways that a network offers.
void ReadSecurity(const Fields& fields, WifiNetwork& network) {
  const std::string& security = fields[1];
  const std::string& wpa = fields[2];
  const std::string& rsn = fields[3];
  if (HasFlags(rsn)) {
    network.authentication =
        AuthenticationOf(rsn, WifiAuthentication::Wpa2Password, WifiAuthentication::Wpa2);
    network.cipher = CipherOf(rsn);
  } else if (HasFlags(wpa)) {
    network.authentication = AuthenticationOf(wpa, WifiAuthentication::WpaPassword, WifiAuthentication::Wpa);
    network.cipher = CipherOf(wpa);
  } else if (security.empty() || security == "--") {
    network.authentication = WifiAuthentication::Open;
  }
}

std::optional<WifiNetwork> ReadNetwork(std::string_view line) {
  const std::optional<Fields> fields = SplitFields(line);
  if (!fields || fields->size() != kFieldCount) return std::nullopt;
  const std::string& hex = fields->front();
  std::optional<std::string> ssid = ReadHex(hex == "--" ? std::string_view() : hex);
  if (!ssid || ssid->size() > kMaxSsidSize) return std::nullopt;
  WifiNetwork network;
  network.ssid = std::move(*ssid);
  ReadSecurity(*fields, network);
  return network;
}

}  // namespace

bool HasWifiAdapter(std::string_view types) {
  while (!types.empty())
    if (TakeLine(types) == "wifi") return true;
  return false;
}

std::optional<std::vector<WifiNetwork>> ReadNetworkManagerList(std::string_view list) {
  std::vector<WifiNetwork> networks;
  while (!list.empty()) {
    std::optional<WifiNetwork> network = ReadNetwork(TakeLine(list));
    if (!network) return std::nullopt;
    networks.push_back(std::move(*network));
  }
  return networks;
}

}  // namespace TCBase
