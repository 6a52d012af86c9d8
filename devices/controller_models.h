#pragma once

// What tells the models of controllers apart, a row a model. Who must know whether a controller is on the
// network, or keeps half hours, asks its row and not its number.

#include <cstdint>

#include "devices/device_info.h"

namespace TCBase {

/// Whose packets a controller understands.
enum class Family { TC420, TC421 };

/// What leads to a controller.
enum class Link { Nothing, Cable, Network };

/// What a controller keeps of a mode: the rows of its merged step list, or a row for each half hour of the
/// day.
enum class Keeps { Steps, HalfHours };

struct ControllerModel {
  DeviceModel model;
  Family family;
  Link link;
  Keeps keeps;
  bool mayIgnoreManySteps;  // some of them play the first kManyModeSteps rows of a mode only
  const char* name;         // what lists show; null where each controller tells its own
};

/// The row of a number. One that no model has is the emulator's, which does no harm.
const ControllerModel& ControllerModelOf(std::int32_t model);
const ControllerModel& ControllerModelOf(const DeviceInfo& info);

bool IsOnNetwork(const DeviceInfo& info);
bool IsOnCable(const DeviceInfo& info);

}  // namespace TCBase
