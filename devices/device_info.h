#pragma once

// One known controller, as lists and jobs pass it around.

#include <cstdint>
#include <string>
#include <vector>

#include "devices/ipv4_address.h"

namespace TCBase {

/// What a controller is and how it is reached.
enum DeviceModel : std::int32_t {
  ModelTC420 = 1,     // over USB
  ModelEmulator = 2,  // a TC420 that is not there
  ModelTC421USB = 3,
  ModelTC421UDP = 4,
};

/// The names that USB controllers and the emulator are listed under; never translated.
inline constexpr char kTC420Name[] = "TC420";
inline constexpr char kTC421Name[] = "TC421";
inline constexpr char kEmulatorName[] = "TC420_Emulator";

/// A plain value, copied freely between threads.
struct DeviceInfo {
  std::int32_t model = 0;  // a DeviceModel; 0 never stands in a list
  std::string name;        // UTF-8, what the list shows
  Ipv4Address address;     // all zero except for network controllers
  bool selected = false;   // the user's tick: only ticked controllers take part in an operation
};

/// Whether both tell of the same controller: model and name are equal.
bool IsSameDevice(const DeviceInfo& a, const DeviceInfo& b);

/// Ascending by the bytes of the name, "A" before "AB" before "B". Equal names keep their order.
void SortDevices(std::vector<DeviceInfo>& devices);

}  // namespace TCBase
