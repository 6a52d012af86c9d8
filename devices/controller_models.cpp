#include "devices/controller_models.h"

#include <algorithm>
#include <iterator>

namespace TCBase {

namespace {

constexpr ControllerModel kModels[] = {
    {ModelTC420, Family::TC420, Link::Cable, Keeps::Steps, true, kTC420Name},
    {ModelEmulator, Family::TC420, Link::Nothing, Keeps::Steps, true, kEmulatorName},
    {ModelTC421USB, Family::TC421, Link::Cable, Keeps::HalfHours, false, kTC421Name},
    {ModelTC421UDP, Family::TC421, Link::Network, Keeps::HalfHours, false, nullptr},
};

}  // namespace

const ControllerModel& ControllerModelOf(std::int32_t model) {
  const auto find = [](std::int32_t wanted) {
    return std::find_if(std::begin(kModels), std::end(kModels),
                        [wanted](const ControllerModel& row) { return row.model == wanted; });
  };
  const auto* const row = find(model);
  return row != std::end(kModels) ? *row : *find(ModelEmulator);
}

const ControllerModel& ControllerModelOf(const DeviceInfo& info) {
  return ControllerModelOf(info.model);
}

bool IsOnNetwork(const DeviceInfo& info) {
  return ControllerModelOf(info).link == Link::Network;
}

bool IsOnCable(const DeviceInfo& info) {
  return ControllerModelOf(info).link == Link::Cable;
}

}  // namespace TCBase
