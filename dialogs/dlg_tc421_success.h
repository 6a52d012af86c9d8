#pragma once

#include "devices/device_info.h"
#include "devices/wifi.h"
#include "dialogs/dialog.h"

namespace dialogs {

/// Last page: what the controller does now, and what the user does with it from here on.
class DlgTC421_Success final : public DlgBase {
 public:
  DlgTC421_Success(DialogsPort& port, const TCBase::DeviceInfo& device,
                   const TCBase::WifiNetworkConfig& config);

  void OnInit(DialogWindow& window) override;

 private:
  const TCBase::DeviceInfo device_;
  const TCBase::WifiNetworkConfig config_;
};

}  // namespace dialogs
