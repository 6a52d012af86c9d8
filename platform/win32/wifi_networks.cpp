// devices/wifi_networks.h on Windows.

#include "devices/wifi_networks.h"

#include <algorithm>
#include <iterator>

#include "platform/win32/wifi_algorithms.h"

namespace platform {

namespace {

constexpr DWORD kClientVersion = 2;

// The library is not part of every Windows: the program is to start without it.
template <class Function>
Function* Find(HMODULE library, const char* name) {
  return library != nullptr
             ? reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(GetProcAddress(library, name)))
             : nullptr;
}

struct WlanLibrary {
  const HMODULE library = LoadLibraryExW(L"wlanapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  decltype(&WlanOpenHandle) openHandle = Find<decltype(WlanOpenHandle)>(library, "WlanOpenHandle");
  decltype(&WlanEnumInterfaces) enumInterfaces =
      Find<decltype(WlanEnumInterfaces)>(library, "WlanEnumInterfaces");
  decltype(&WlanGetAvailableNetworkList) getAvailableNetworkList =
      Find<decltype(WlanGetAvailableNetworkList)>(library, "WlanGetAvailableNetworkList");
  decltype(&WlanFreeMemory) freeMemory = Find<decltype(WlanFreeMemory)>(library, "WlanFreeMemory");

  bool IsWhole() const {
    return openHandle != nullptr && enumInterfaces != nullptr && getAvailableNetworkList != nullptr &&
           freeMemory != nullptr;
  }
};

WifiNetwork FromSystem(const WLAN_AVAILABLE_NETWORK& network) {
  const auto& ssid = network.dot11Ssid;
  return {std::string(reinterpret_cast<const char*>(ssid.ucSSID),
                      std::min<std::size_t>(ssid.uSSIDLength, DOT11_SSID_MAX_LENGTH)),
          AuthenticationOf(network.dot11DefaultAuthAlgorithm), CipherOf(network.dot11DefaultCipherAlgorithm)};
}

}  // namespace

WifiAuthentication AuthenticationOf(DOT11_AUTH_ALGORITHM algorithm) {
  switch (algorithm) {
    case DOT11_AUTH_ALGO_80211_OPEN:
      return WifiAuthentication::Open;
    case DOT11_AUTH_ALGO_WPA:
      return WifiAuthentication::Wpa;
    case DOT11_AUTH_ALGO_WPA_PSK:
      return WifiAuthentication::WpaPassword;
    case DOT11_AUTH_ALGO_RSNA:
      return WifiAuthentication::Wpa2;
    case DOT11_AUTH_ALGO_RSNA_PSK:
      return WifiAuthentication::Wpa2Password;
    default:
      return WifiAuthentication::Other;
  }
}

WifiCipher CipherOf(DOT11_CIPHER_ALGORITHM algorithm) {
  switch (algorithm) {
    case DOT11_CIPHER_ALGO_TKIP:
      return WifiCipher::Tkip;
    case DOT11_CIPHER_ALGO_CCMP:
      return WifiCipher::Ccmp;
    default:
      return WifiCipher::Other;
  }
}

WifiQuery QueryWifiNetworks(std::vector<WifiNetwork>& networks) {
  static const WlanLibrary wlan;
  if (!wlan.IsWhole()) return WifiQuery::NoService;
  DWORD version = 0;
  // The handle is never closed: this runs once in a wizard, and the process's end closes it.
  HANDLE client = nullptr;
  if (wlan.openHandle(kClientVersion, nullptr, &version, &client) != 0) return WifiQuery::NoService;
  WLAN_INTERFACE_INFO_LIST* adapters = nullptr;
  if (wlan.enumInterfaces(client, nullptr, &adapters) != 0) return WifiQuery::NoAdapterList;
  if (adapters->dwNumberOfItems == 0) return WifiQuery::NoAdapter;
  WLAN_AVAILABLE_NETWORK_LIST* list = nullptr;
  // dwIndex is that of the first adapter.
  const DWORD error = wlan.getAvailableNetworkList(
      client, &adapters->InterfaceInfo[adapters->dwIndex].InterfaceGuid, 0, nullptr, &list);
  if (error != 0) return WifiQuery::NoNetworkList;
  std::transform(list->Network, list->Network + list->dwNumberOfItems, std::back_inserter(networks),
                 &FromSystem);
  wlan.freeMemory(list);
  wlan.freeMemory(adapters);
  return WifiQuery::Answered;
}

}  // namespace platform
