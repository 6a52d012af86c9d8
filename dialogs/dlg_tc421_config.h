#pragma once

#include <vector>

#include "devices/device_info.h"
#include "devices/wifi.h"
#include "dialogs/dialog.h"

namespace dialogs {

/// Third page: asks which network a controller is to join, out of those that the computer sees or by name,
/// and tells the controller.
class DlgTC421_Config final : public DlgBase {
 public:
  DlgTC421_Config(DialogsPort& port, const TCBase::DeviceInfo& device);

  void OnInit(DialogWindow& window) override;

  /// What the controller was told, once DoModal has answered kOk.
  const TCBase::WifiNetworkConfig& Config() const { return config_; }

 private:
  void OnOk(DialogWindow& window) override;
  void OnControl(DialogWindow& window, int control, int code) override;
  void FillNetworks(DialogLists& lists);
  void TakeOverNetwork(DialogLists& lists) const;
  void ReadConfig(const DialogTexts& texts);
  void SetUp(DialogWindow& window);

  const TCBase::DeviceInfo device_;
  std::vector<TCBase::WifiNetwork> networks_;  // rows go by their place in it
  TCBase::WifiNetworkConfig config_;
  bool isSetUp_ = false;
};

}  // namespace dialogs
