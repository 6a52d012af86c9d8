#pragma once

#include <vector>

#include "devices/device_info.h"
#include "devices/worker.h"
#include "dialogs/dialog.h"

namespace dialogs {

/// Second page: looks for controllers on the network, as often as the user likes, and has him choose one.
class DlgTC421_Search final : public DlgBase {
 public:
  /// What is posted to the dialog at the end of a scan.
  static constexpr std::uint32_t kScanFinished = 1025;

  /// Scans are jobs of `worker`, which outlives the dialog; the dialog may be gone when they end.
  DlgTC421_Search(DialogsPort& port, TCBase::Worker& worker);

  void OnInit(DialogWindow& window) override;
  void OnEvent(DialogWindow& window, std::uint32_t event) override;

  /// The chosen controller, once DoModal has answered kOk.
  const TCBase::DeviceInfo& Device() const { return device_; }

 private:
  void OnOk(DialogWindow& window) override;
  void OnControl(DialogWindow& window, int control, int code) override;
  void ShowFound(DialogWindow& window);

  TCBase::Worker& worker_;
  std::vector<TCBase::DeviceInfo> devices_;  // all of the worker's; rows go by their place in it
  TCBase::DeviceInfo device_;
};

}  // namespace dialogs
