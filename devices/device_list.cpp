#include "devices/device_list.h"

#include <algorithm>
#include <utility>

#include "devices/controller_models.h"

namespace TCBase {

void ReplaceDevices(std::vector<DeviceInfo>& devices, std::int32_t model, const std::string& name,
                    bool connected) {
  std::erase_if(devices, [model](const DeviceInfo& device) { return device.model == model; });
  if (!connected) return;
  DeviceInfo device;
  device.model = model;
  device.name = name;
  devices.push_back(std::move(device));
  SortDevices(devices);
}

void ReplaceNetworkDevices(std::vector<DeviceInfo>& devices, const std::vector<DeviceInfo>& found) {
  std::erase_if(devices, IsOnNetwork);
  devices.insert(devices.end(), found.begin(), found.end());
  SortDevices(devices);
}

std::vector<DeviceInfo> TakeOverDevices(const std::vector<DeviceInfo>& shown, std::vector<DeviceInfo> found) {
  for (const DeviceInfo& old : shown) {
    const auto same = std::find_if(found.begin(), found.end(),
                                   [&old](const DeviceInfo& device) { return IsSameDevice(device, old); });
    if (same != found.end()) same->selected = old.selected;
  }
  SortDevices(found);
  if (found.size() == 1) found.front().selected = true;
  return found;
}

bool AddEmulator(std::vector<DeviceInfo>& shown) {
  DeviceInfo emulator;
  emulator.model = ModelEmulator;
  emulator.name = ControllerModelOf(emulator).name;
  const bool isShown = std::any_of(shown.begin(), shown.end(), [&emulator](const DeviceInfo& device) {
    return IsSameDevice(device, emulator);
  });
  if (isShown) return false;
  shown = TakeOverDevices(shown, {emulator});
  return true;
}

}  // namespace TCBase
