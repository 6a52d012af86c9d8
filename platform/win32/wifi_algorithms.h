#pragma once

// What Windows numbers of wireless networks mean in devices/wifi_networks.h.

#include "devices/wifi_networks.h"
#include "platform/win32/windows_headers.h"
// after windows.h
#include <wlanapi.h>

namespace platform {

WifiAuthentication AuthenticationOf(DOT11_AUTH_ALGORITHM algorithm);
WifiCipher CipherOf(DOT11_CIPHER_ALGORITHM algorithm);

}  // namespace platform
