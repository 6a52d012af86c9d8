#include "devices/tc421.h"

#include <utility>

#include "common/platform.h"

namespace TC421 {

namespace {

constexpr int kAnyReply = -1;
constexpr std::size_t kReplySize = TCBase::kFrameSize;
constexpr std::size_t kReplyCodeOffset = 2;
constexpr std::size_t kReplyTextOffset = 4;
constexpr std::size_t kShownNameSize = 8;
constexpr int kStepPauseMilliseconds = 20;

}  // namespace

Reply ReadReply(std::string_view block) {
  if (block.size() < kReplySize) return {};
  const std::string_view text = block.substr(kReplyTextOffset, kReplySize - kReplyTextOffset);
  return {static_cast<std::uint8_t>(block[kReplyCodeOffset]), std::string(text.substr(0, text.find('\0')))};
}

bool IsGoodReply(const std::string& reply, int expected) {
  if (reply.size() < kReplySize) return false;
  // The text ends at the first zero, so that an empty text reads as 0 by itself.
  return expected < 0 || static_cast<signed char>(reply[kReplyTextOffset]) == expected;
}

bool ForEachModePacket(const TCBase::DeviceInfo& info, int bank, const std::string& name,
                       const TCBase::DeviceBase::Steps& steps,
                       const std::function<bool(const Packet&)>& send) {
  if (!TCBase::IsUploadable(bank, name, steps)) return false;
  const std::string_view shownName = std::string_view(name).substr(0, kShownNameSize);
  if (!send(Packet_ModeInit(info, bank, steps.size(), shownName))) return false;
  // A lost step does not end the mode: the controller waits for the closing frame.
  for (std::size_t i = 0; i < steps.size(); ++i) send(Packet_ModeStep(info, i, steps[i]));
  return send(Packet_ModeStepsStop(info));
}

bool SendMode(TCBase::DeviceBase& device, const TCBase::DeviceInfo& info, int bank, const std::string& name,
              const TCBase::DeviceBase::Steps& steps) {
  bool first = true;
  return ForEachModePacket(info, bank, name, steps, [&](const Packet& packet) {
    if (!std::exchange(first, false)) platform::SleepMilliseconds(kStepPauseMilliseconds);
    return device.SendPacket(packet, kAnyReply);
  });
}

USBDevice::USBDevice(TCBase::OperationObserver& observer) : TCBase::USBDevice(TCBase::kTC421Ids, observer) {
  info_.model = TCBase::ModelTC421USB;
}

bool USBDevice::CheckReply(const std::string& reply, int expected) {
  return IsGoodReply(reply, expected);
}

bool USBDevice::DoClearAll() {
  return SendPacket(Packet_ClearAll(info_), kAnyReply);
}

bool USBDevice::DoTimeSync(const DateTime& time) {
  return SendPacket(Packet_TimeSync(info_, time), kAnyReply);
}

void USBDevice::DoUploadStart() {}

bool USBDevice::DoUploadMode(int bank, const std::string& name, const Steps& steps) {
  return SendMode(*this, info_, bank, name, steps);
}

void USBDevice::DoUploadFinish() {}

void USBDevice::DoDemoStart(const std::string& name) {
  SendPacket(Packet_PlayInit(info_, name), kAnyReply);
}

void USBDevice::DoDemoSetChannels(const TCBase::Program::ModeStep& step) {
  SendPacket(Packet_PlaySetChannels(info_, step), kAnyReply);
}

void USBDevice::DoDemoFinish() {
  SendPacket(Packet_ModeStop(info_), kAnyReply);
}

bool UDPDevice::CheckReply(const std::string& reply, int expected) {
  return IsGoodReply(reply, expected);
}

bool UDPDevice::DoClearAll() {
  return SendPacket(Packet_ClearAll(Info()), kAnyReply);
}

bool UDPDevice::DoTimeSync(const DateTime& time) {
  return SendPacket(Packet_TimeSync(Info(), time), kAnyReply);
}

void UDPDevice::DoUploadStart() {}

bool UDPDevice::DoUploadMode(int bank, const std::string& name, const Steps& steps) {
  return SendMode(*this, Info(), bank, name, steps);
}

void UDPDevice::DoUploadFinish() {}

void UDPDevice::DoDemoStart(const std::string& name) {
  SendUnanswered(Packet_PlayInit(Info(), name));
}

void UDPDevice::DoDemoSetChannels(const TCBase::Program::ModeStep& step) {
  // A lost frame is out of date before it could be sent again.
  SendUnanswered(Packet_PlaySetChannels(Info(), step));
}

void UDPDevice::DoDemoFinish() {
  SendPacket(Packet_ModeStop(Info()), kAnyReply);
}

}  // namespace TC421
