#pragma once

// What happens to lists of known controllers. Plain changes of plain lists: locks, windows and threads are
// the callers' business.

#include <cstdint>
#include <string>
#include <vector>

#include "devices/device_info.h"

namespace TCBase {

/// A controller of a family came or went: takes all entries of `model` out of `devices`, and if `connected`
/// puts one with `name` in, sorted.
void ReplaceDevices(std::vector<DeviceInfo>& devices, std::int32_t model, const std::string& name,
                    bool connected);

/// A scan of the network found `found`: takes all network controllers out of `devices` and puts those in,
/// sorted.
void ReplaceNetworkDevices(std::vector<DeviceInfo>& devices, const std::vector<DeviceInfo>& found);

/// The list to show after `found` was found while `shown` was shown: sorted, with the ticks of `shown`. A
/// lone controller is always ticked.
std::vector<DeviceInfo> TakeOverDevices(const std::vector<DeviceInfo>& shown, std::vector<DeviceInfo> found);

/// Puts the emulator in the place of all shown controllers, ticked; the next list that is found brings them
/// back. False, with nothing changed, if it is shown already.
bool AddEmulator(std::vector<DeviceInfo>& shown);

}  // namespace TCBase
