#pragma once

// What a controller can be asked to do, whatever its model and transport.

#include <memory>
#include <string>
#include <vector>

#include "common/date_time.h"
#include "devices/packet_base.h"
#include "program/program.h"

namespace TCBase {

/// A controller, made by CreateDevice (operations.h) and not connected yet. Its owner calls Connect once,
/// uses it for one operation and destroys it, which closes the transport. Belongs to the thread that made it.
///
/// Failures are answers, never exceptions; what went wrong stands in the device log. What became of each
/// packet its transport tells the observer that it was made with.
///
/// The virtual operations stand in four groups, in the order of their slots: the transport, the public face
/// (traced, not overridden), what stands behind each of its operations, and a question behind Connect.
class DeviceBase {
 public:
  using Steps = std::vector<Program::ModeStep>;

  DeviceBase() = default;
  DeviceBase(const DeviceBase&) = delete;
  DeviceBase& operator=(const DeviceBase&) = delete;
  virtual ~DeviceBase() = default;

  // Transport.

  /// Opens the transport. False, with no line in any log, if there is nobody at the other end.
  virtual bool Connect() = 0;
  /// Sends one frame of kFrameSize bytes. False if it did not leave.
  virtual bool Write(const std::string& frame) = 0;
  /// Replaces `reply` with what the controller answers. True with an empty reply if it stays silent.
  virtual bool Read(std::string& reply) = 0;
  /// Sends a packet and waits for the reply to it; blocks for as long as the transport's wait takes.
  /// `expected` is the reply code that the caller wants to see, -1 for none in particular.
  virtual bool SendPacket(const PacketBase& packet, int expected) = 0;
  /// Whether `reply` will do for somebody who wants to see `expected`.
  virtual bool CheckReply(const std::string& reply, int expected);
  /// Traces and sends a packet; awaits no reply.
  virtual bool WritePacket(const PacketBase& packet);

  // The public face. Each operation writes its name to the device log and forwards.

  /// Forgets all stored modes. The controller is busy with it for some seconds after it has answered.
  virtual bool ClearAll();
  /// Sets the controller's clock.
  virtual bool TimeSync(const DateTime& time);
  virtual void UploadStart();
  /// Stores a mode in `bank`, which counts from 0. Refused, with nothing sent, if `bank` is kMaxBanks or
  /// more, if `name` is empty or if there are fewer than two steps. The answer tells of the first and the
  /// last frame of the mode only; the observer hears of the steps too.
  virtual bool UploadMode(int bank, const std::string& name, const Steps& steps);
  virtual void UploadFinish();
  /// Puts the controller under live control. Of failures in the three demo operations only the observer
  /// hears.
  virtual void DemoStart(const std::string& name);
  virtual void DemoSetChannels(const Program::ModeStep& step);
  virtual void DemoFinish();

 protected:
  virtual bool DoClearAll() = 0;
  virtual bool DoTimeSync(const DateTime& time) = 0;
  virtual void DoUploadStart() = 0;
  virtual bool DoUploadMode(int bank, const std::string& name, const Steps& steps) = 0;
  virtual void DoUploadFinish() = 0;
  virtual void DoDemoStart(const std::string& name) = 0;
  virtual void DoDemoSetChannels(const Program::ModeStep& step) = 0;
  virtual void DoDemoFinish() = 0;

 public:
  /// Behind a Connect that answered false: whether the controller is there, and this user may not open it.
  virtual bool IsForbidden() const { return false; }
};

/// Modes that a controller can store.
inline constexpr int kMaxBanks = 64;

/// Whether a controller takes such a mode at all.
bool IsUploadable(int bank, const std::string& name, const DeviceBase::Steps& steps);

}  // namespace TCBase
