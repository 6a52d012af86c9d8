#pragma once

// Controllers as the command line calls them: "emulator", "tc420", "tc421", "udp:NAME@ADDRESS".

#include <optional>
#include <string>

#include "devices/device_info.h"

namespace cli {

/// All of them, for help texts.
inline constexpr char kDeviceWords[] = "emulator|tc420|tc421|udp:NAME@ADDRESS";

/// The controller, selected; nothing for any other word. A NAME may hold anything, "@" too.
std::optional<TCBase::DeviceInfo> ParseDevice(const std::string& word);

/// What is wrong with a word, and what to write; empty if nothing is.
std::string CheckDevice(const std::string& word);

/// The word for a controller, with the name of a network controller fit to be shown.
std::string WordOf(const TCBase::DeviceInfo& device);

/// The address of a network controller: "192.168.4.1".
std::string AddressOf(const TCBase::DeviceInfo& device);

}  // namespace cli
