#pragma once

// The USB HID transport: carries frames, knows nothing of what is in them. Also the probe by which a
// plugged-in controller is noticed (usb_poll.h).

#include <hidapi/hidapi.h>

#include <cstdint>
#include <string>
#include <vector>

#include "devices/device_base.h"
#include "devices/operation_observer.h"

namespace TCBase {

/// What a family of controllers is recognised by.
struct UsbIds {
  std::uint16_t vendor;
  std::uint16_t product;
};
inline constexpr UsbIds kTC420Ids{0x0888, 0x4000};
inline constexpr UsbIds kTC421Ids{0x0483, 0x5750};

/// The paths of all controllers of a family, as the system lists them; the first is the one that is reached.
/// Any thread.
std::vector<std::string> FindUsbPaths(const UsbIds& ids);

/// The first controller of a family that the system's enumeration lists: a second one of the same family on
/// the same computer cannot be reached. There is no retry and no reconnect.
class USBDevice : public DeviceBase {
 public:
  /// `observer` outlives the device.
  explicit USBDevice(const UsbIds& ids, OperationObserver& observer)
      : vendorId(ids.vendor), productId(ids.product), observer_(observer) {}
  ~USBDevice() override;

  bool Connect() override;
  /// False at once, without a trace, unless `frame` has kFrameSize bytes.
  bool Write(const std::string& frame) override;
  /// Waits up to 800 ms for the first report, then takes all that have come. A reply of several reports is
  /// handed over as one text; one without end is cut at 64 reports.
  bool Read(std::string& reply) override;
  bool SendPacket(const PacketBase& packet, int expected) override;
  /// Looks at the rights anew each time: they come a moment after the controller.
  bool IsForbidden() const override;

 protected:
  OperationObserver& Observer() const { return observer_; }

 private:
  PacketOutcome Exchange(const PacketBase& packet, int expected);
  void LogError(const char* where) const;

  std::uint16_t vendorId;
  std::uint16_t productId;
  hid_device* handle = nullptr;  // owned; null when not connected
  OperationObserver& observer_;
  std::string path_;  // what Connect found; empty if there is no controller
};

}  // namespace TCBase
