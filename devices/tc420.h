#pragma once

// The TC420: its packets, the controller itself and its emulation. The frame layout is tabled in
// docs/formats.md.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/date_time.h"
#include "devices/packet_base.h"
#include "devices/usb_device.h"
#include "program/program.h"

namespace TC420 {

class Packet : public TCBase::PacketBase {
 public:
  using PacketBase::PacketBase;
  std::size_t MaxPayload() const override;
  void Serialize(std::string& out) const override;
};

/// Sets the clock. The day of the week and the milliseconds are not sent.
class Packet_TimeSync : public Packet {
 public:
  explicit Packet_TimeSync(const DateTime& time);
};

/// Begins a mode. Of the step count the low 8 bits are sent, of the name the first 8 bytes.
class Packet_ModeInit : public Packet {
 public:
  Packet_ModeInit(int bank, std::size_t stepCount, std::string_view name);
};

/// One step of the mode that was begun.
class Packet_ModeStep : public Packet {
 public:
  explicit Packet_ModeStep(const TCBase::Program::ModeStep& step);
};

/// Ends a mode.
class Packet_ModeStepsStop : public Packet {
 public:
  Packet_ModeStepsStop();
};

/// Ends an upload or a demo.
class Packet_ModeStop : public Packet {
 public:
  Packet_ModeStop();
};

/// Forgets all modes.
class Packet_ClearAll : public Packet {
 public:
  Packet_ClearAll();
};

/// Begins a demo. Of the name the first 6 bytes are sent.
class Packet_PlayInit : public Packet {
 public:
  explicit Packet_PlayInit(std::string_view name);
};

/// The channel values of a running demo; time and jumps of the step are not sent.
class Packet_PlaySetChannels : public Packet {
 public:
  explicit Packet_PlaySetChannels(const TCBase::Program::ModeStep& step);
};

/// A TC420 on USB. What it replies is traced, and decides nothing: a send fails only if the transport does.
class Device : public TCBase::USBDevice {
 public:
  /// `observer` outlives the device.
  explicit Device(TCBase::OperationObserver& observer = TCBase::NoObserver())
      : USBDevice(TCBase::kTC420Ids, observer) {}

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

/// The emulator: a TC420 that takes every frame and never answers. Nothing leaves the program, and no dump is
/// written; the trace is otherwise that of a real one.
class Mock : public Device {
 public:
  using Device::Device;

  bool Connect() override;
  bool Write(const std::string& frame) override;
  bool Read(std::string& reply) override;

  /// Every frame written, in order.
  const std::vector<std::string>& Frames() const { return frames_; }

 private:
  std::vector<std::string> frames_;
};

}  // namespace TC420
