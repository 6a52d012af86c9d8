#pragma once

// The UDP transport: carries frames as single datagrams to one controller on the local network.

#include <cstdint>
#include <string>

#include "devices/datagrams.h"
#include "devices/device_base.h"
#include "devices/device_info.h"
#include "devices/operation_observer.h"

namespace TCBase {

/// The port at both ends.
inline constexpr std::uint16_t kUdpPort = 5000;

/// A socket on port 5000, for one thread. What goes through it stands in the device log.
class UDPSocket {
 public:
  UDPSocket() = default;
  UDPSocket(const UDPSocket&) = delete;
  UDPSocket& operator=(const UDPSocket&) = delete;
  ~UDPSocket();

  /// Opens a socket that may broadcast and does not wait. False, with a line, if it may not or would. Once.
  bool Open();
  /// Takes port 5000 on all of the computer's addresses. It can be held once on a computer: false, with a
  /// line, while another socket has it.
  bool Bind();
  /// Sends one datagram to port 5000 of `ipv4Address`. False, with a line, if it did not leave.
  bool SendTo(const std::string& bytes, const std::array<std::uint8_t, 4>& ipv4Address);
  /// Takes a datagram that has come: 64 bytes and their sender. Does not wait. False, without a line, if none
  /// has; with one if it is of any other size, and then it is gone.
  bool Receive(std::string& bytes, Ipv4Address& from);

 private:
  Ipv4Address remote;  // of the last send
  Ipv4Address local;
  platform::DatagramSocket socket = platform::kNoSocket;  // owned
};

/// A controller on the network. Holds port 5000 from Connect to its destruction.
class UDPDevice : public DeviceBase {
 public:
  /// `observer` outlives the device.
  explicit UDPDevice(const DeviceInfo& controller, OperationObserver& observer = NoObserver())
      : info(controller), observer_(observer) {}

  /// False, with a line in the device log, while somebody else has the port. Nothing is sent: whether the
  /// controller is there only its replies tell.
  bool Connect() override;
  bool Write(const std::string& frame) override;
  /// Waits up to two seconds for a datagram from the controller's address; others pass unheard, and do not
  /// lengthen the wait.
  bool Read(std::string& reply) override;
  /// Sends up to three times, until a reply has come. What stands in that reply decides for good.
  bool SendPacket(const PacketBase& packet, int expected) override;

 protected:
  /// Sends a packet once and awaits no reply.
  void SendUnanswered(const PacketBase& packet);
  const DeviceInfo& Info() const { return info; }

 private:
  PacketOutcome Exchange(const PacketBase& packet, int expected);

  DeviceInfo info;
  UDPSocket udp;
  OperationObserver& observer_;
};

}  // namespace TCBase
