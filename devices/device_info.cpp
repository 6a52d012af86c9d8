#include "devices/device_info.h"

#include <algorithm>

namespace TCBase {

bool IsSameDevice(const DeviceInfo& a, const DeviceInfo& b) {
  return a.model == b.model && a.name == b.name;
}

void SortDevices(std::vector<DeviceInfo>& devices) {
  std::stable_sort(devices.begin(), devices.end(),
                   [](const DeviceInfo& a, const DeviceInfo& b) { return a.name < b.name; });
}

}  // namespace TCBase
