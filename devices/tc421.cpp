#include "devices/tc421.h"

#include "common/platform.h"

namespace TC421 {

namespace {

constexpr int kAnyReply = -1;
constexpr std::size_t kReplySize = TCBase::kFrameSize;
constexpr std::size_t kReplyTextOffset = 4;
constexpr std::size_t kShownNameSize = 8;
constexpr int kStepPauseMilliseconds = 20;

}  // namespace

bool IsGoodReply(const std::string& reply, int expected) {
  if (reply.size() < kReplySize) return false;
  // The text ends at the first zero, so that an empty text reads as 0 by itself.
  return expected < 0 || static_cast<signed char>(reply[kReplyTextOffset]) == expected;
}

bool SendMode(TCBase::DeviceBase& device, const TCBase::DeviceInfo& info, int bank, const std::string& name,
              const TCBase::DeviceBase::Steps& steps) {
  if (!TCBase::IsUploadable(bank, name, steps)) return false;
  const Packet_ModeInit init(info, bank, steps.size(), std::string_view(name).substr(0, kShownNameSize));
  if (!device.SendPacket(init, kAnyReply)) return false;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    platform::SleepMilliseconds(kStepPauseMilliseconds);
    // A lost step does not end the mode: the controller waits for the closing frame.
    device.SendPacket(Packet_ModeStep(info, i, steps[i]), kAnyReply);
  }
  platform::SleepMilliseconds(kStepPauseMilliseconds);
  return device.SendPacket(Packet_ModeStepsStop(info), kAnyReply);
}

USBDevice::USBDevice() : TCBase::USBDevice(TCBase::kTC421Ids) {
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

}  // namespace TC421
