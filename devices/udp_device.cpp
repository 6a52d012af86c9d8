#include "devices/udp_device.h"

#include <string_view>

#include "common/log.h"
#include "common/platform.h"
#include "common/timer.h"

namespace TCBase {

namespace {

constexpr double kReplySeconds = 2.0;
constexpr int kReplyPollMilliseconds = 20;
// A pause between two looks that is as long was none: the computer has slept.
constexpr double kSleptSeconds = 1.0;
constexpr int kMaxTries = 3;

bool LogError(std::string_view what) {
  // First of all: logging makes system calls of its own.
  const std::string text = platform::NetworkErrorText();
  LogDevice(std::string(what) + " error: " + text);
  return false;
}

}  // namespace

UDPSocket::~UDPSocket() {
  if (socket != platform::kNoSocket) platform::CloseDatagrams(socket);
}

bool UDPSocket::Open() {
  // One that could not be opened fails at the next call, which tells of it.
  socket = platform::OpenDatagrams();
  if (!platform::AllowBroadcasts(socket)) return LogError("setsockopt");
  if (!platform::DontWaitForDatagrams(socket)) return LogError("ioctlsocket");
  return true;
}

bool UDPSocket::Bind() {
  // No address is shared: two programs on one port would take each other's replies.
  local = MakeIpv4Address(kAnyAddress, kUdpPort);
  return platform::BindDatagrams(socket, local) || LogError("bind");
}

bool UDPSocket::SendTo(const std::string& bytes, const std::array<std::uint8_t, 4>& ipv4Address) {
  remote = MakeIpv4Address(ipv4Address, kUdpPort);
  LogDevice("sendto_core " + platform::AddressText(remote));
  LogDeviceDump(bytes.data(), bytes.size());
  return platform::SendDatagram(socket, bytes, remote) >= 0 || LogError("sendto");
}

bool UDPSocket::Receive(std::string& bytes, Ipv4Address& from) {
  bytes.assign(kFrameSize, '\0');
  const std::ptrdiff_t received = platform::ReceiveDatagram(socket, bytes.data(), bytes.size(), from);
  if (received < 0) return false;
  if (received != static_cast<std::ptrdiff_t>(kFrameSize)) {
    LogDevice("Received invalid packet size");
    return false;
  }
  LogDevice("recvfrom " + platform::AddressText(from));
  LogDeviceDump(bytes.data(), bytes.size());
  return true;
}

bool UDPDevice::Connect() {
  if (!udp.Open()) return false;
  if (udp.Bind()) return true;
  observer_.PortTaken();
  return false;
}

bool UDPDevice::Write(const std::string& frame) {
  if (!udp.SendTo(frame, info.address.address)) return false;
  observer_.FrameSent();
  return true;
}

bool UDPDevice::Read(std::string& reply) {
  timer_base::TimerFeatures<TimerCore_Counter> waited;
  bool hasSlept = false;
  do {
    Ipv4Address from;
    // The port does not matter: controllers answer from any.
    if (udp.Receive(reply, from) && from.address == info.address.address) return true;
    const double before = waited.Now();
    platform::SleepMilliseconds(kReplyPollMilliseconds);
    // The wait then begins anew, once: the reply may be here by now, and a frame that is sent again would
    // bring a second one, which would be taken for the reply to the next frame.
    if (!hasSlept && waited.Now() - before > kSleptSeconds) {
      hasSlept = true;
      waited.Reset();
    }
  } while (waited.Now() < kReplySeconds);
  return false;
}

bool UDPDevice::SendPacket(const PacketBase& packet, int expected) {
  const PacketOutcome outcome = Exchange(packet, expected);
  observer_.PacketEnded(outcome);
  return IsConfirmed(outcome);
}

void UDPDevice::SendUnanswered(const PacketBase& packet) {
  observer_.PacketEnded(WritePacket(packet) ? PacketOutcome::Unanswered : PacketOutcome::NotSent);
}

PacketOutcome UDPDevice::Exchange(const PacketBase& packet, int expected) {
  for (int tries = 0; tries < kMaxTries; ++tries) {
    if (!WritePacket(packet)) return PacketOutcome::NotSent;
    std::string reply;
    if (Read(reply)) return CheckReply(reply, expected) ? PacketOutcome::Answered : PacketOutcome::Refused;
  }
  return PacketOutcome::NoAnswer;
}

}  // namespace TCBase
