#pragma once

// The TC421: its packets, and the controller on USB and on the network. It shares the shape of the TC420's
// protocol and differs in nearly every byte; the frame layout is tabled in docs/formats.md.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "common/date_time.h"
#include "devices/device_info.h"
#include "devices/packet_base.h"
#include "devices/udp_device.h"
#include "devices/usb_device.h"
#include "program/program.h"

namespace TC421 {

class Packet : public TCBase::PacketBase {
 public:
  /// `device` is the controller that the packet goes to: its name goes along, and its model decides where the
  /// checksum stands.
  Packet(std::uint8_t commandCode, std::uint8_t secondCode, const TCBase::DeviceInfo& device);

  std::size_t MaxPayload() const override;
  void Serialize(std::string& out) const override;

  std::uint8_t subcode;    // second command byte
  std::string deviceName;  // at most 12 bytes; written over what payload reaches there
  bool alternateChecksum;  // at the very end of the frame, as USB has it
};

/// Sets the clock. The one packet whose checksum stands at the end on every transport.
class Packet_TimeSync : public Packet {
 public:
  Packet_TimeSync(const TCBase::DeviceInfo& device, const DateTime& time);
};

/// Begins a mode. Of the step count the low 8 bits are sent, of the name the first 7 bytes; the description
/// shows the name as given.
class Packet_ModeInit : public Packet {
 public:
  Packet_ModeInit(const TCBase::DeviceInfo& device, int bank, std::size_t stepCount, std::string_view name);
};

/// One step of the mode that was begun; `index` counts from 0. Jumps are not sent.
class Packet_ModeStep : public Packet {
 public:
  Packet_ModeStep(const TCBase::DeviceInfo& device, std::size_t index, const TCBase::Program::ModeStep& step);
};

/// Ends a mode.
class Packet_ModeStepsStop : public Packet {
 public:
  explicit Packet_ModeStepsStop(const TCBase::DeviceInfo& device);
};

/// Ends a demo.
class Packet_ModeStop : public Packet {
 public:
  explicit Packet_ModeStop(const TCBase::DeviceInfo& device);
};

/// Forgets all modes.
class Packet_ClearAll : public Packet {
 public:
  explicit Packet_ClearAll(const TCBase::DeviceInfo& device);
};

/// Begins a demo. Of the name the first 7 bytes are sent.
class Packet_PlayInit : public Packet {
 public:
  Packet_PlayInit(const TCBase::DeviceInfo& device, std::string_view name);
};

/// The channel values of a running demo; time and jumps of the step are not sent.
class Packet_PlaySetChannels : public Packet {
 public:
  Packet_PlaySetChannels(const TCBase::DeviceInfo& device, const TCBase::Program::ModeStep& step);
};

/// Asks who is there; goes to everybody, and so carries no name.
class Packet_Find : public Packet {
 public:
  Packet_Find();
};

/// The network that a controller is to join, and how it is secured: a WifiSecurity and a WifiEncryption
/// (wifi.h). Of the name the first 32 bytes are sent; the length byte tells of all of it.
class Packet_SetWiFi_SSID : public Packet {
 public:
  Packet_SetWiFi_SSID(const TCBase::DeviceInfo& device, std::string_view ssid, std::int32_t security,
                      std::int32_t encryption);
};

/// The password for that network, in clear on the wire and in the device log. What is longer than 42 bytes
/// runs into the controller's own name, which is written over it; the length byte tells of all of it.
class Packet_SetWiFi_Password : public Packet {
 public:
  Packet_SetWiFi_Password(const TCBase::DeviceInfo& device, std::string_view password);
};

/// An open network that a controller is to join. Cut as a password is.
class Packet_SetWiFi_Open : public Packet {
 public:
  Packet_SetWiFi_Open(const TCBase::DeviceInfo& device, std::string_view ssid);
};

/// Command code of the answers to Packet_Find.
inline constexpr std::uint8_t kFindCode = 0x17;

/// What stands in a reply.
struct Reply {
  std::uint8_t code = 0;  // command code
  std::string text;       // at most 60 bytes, whatever the controller put there
};
/// Reads a block of kFrameSize bytes; a shorter one reads as no code and no text.
Reply ReadReply(std::string_view block);

/// Whether a reply will do: a whole block, and in it the acknowledgement `expected` unless that is negative.
bool IsGoodReply(const std::string& reply, int expected);

/// Hands `send` the packets that store a mode in a controller, in order. False if the mode cannot be stored,
/// or if `send` answers so for the first, behind which nothing comes then, or for the last.
bool ForEachModePacket(const TCBase::DeviceInfo& info, int bank, const std::string& name,
                       const TCBase::DeviceBase::Steps& steps,
                       const std::function<bool(const Packet&)>& send);

/// Sends a mode to `device`, of which `info` tells, at the pace that a TC421 needs. See
/// DeviceBase::UploadMode.
bool SendMode(TCBase::DeviceBase& device, const TCBase::DeviceInfo& info, int bank, const std::string& name,
              const TCBase::DeviceBase::Steps& steps);

/// A TC421 on USB. It wants a reply of a whole block to everything.
class USBDevice : public TCBase::USBDevice {
 public:
  /// `observer` outlives the device.
  explicit USBDevice(TCBase::OperationObserver& observer = TCBase::NoObserver());

  bool CheckReply(const std::string& reply, int expected) override;

 protected:
  bool DoClearAll() override;
  bool DoTimeSync(const DateTime& time) override;
  void DoUploadStart() override;
  bool DoUploadMode(int bank, const std::string& name, const Steps& steps) override;
  void DoUploadFinish() override;
  void DoDemoStart(const std::string& name) override;
  void DoDemoSetChannels(const TCBase::Program::ModeStep& step) override;
  void DoDemoFinish() override;

 private:
  TCBase::DeviceInfo info_;  // nameless: a controller on a cable is addressed by the cable
};

/// A TC421 on the network. The frames of a running demo are sent without waiting for replies.
class UDPDevice : public TCBase::UDPDevice {
 public:
  using TCBase::UDPDevice::UDPDevice;

  bool CheckReply(const std::string& reply, int expected) override;

 protected:
  bool DoClearAll() override;
  bool DoTimeSync(const DateTime& time) override;
  void DoUploadStart() override;
  bool DoUploadMode(int bank, const std::string& name, const Steps& steps) override;
  void DoUploadFinish() override;
  void DoDemoStart(const std::string& name) override;
  void DoDemoSetChannels(const TCBase::Program::ModeStep& step) override;
  void DoDemoFinish() override;
};

}  // namespace TC421
