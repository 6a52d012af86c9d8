#include "devices/tc420.h"

namespace TC420 {

namespace {
constexpr int kAnyReply = -1;
}  // namespace

bool Device::DoClearAll() {
  return SendPacket(Packet_ClearAll(), kAnyReply);
}

bool Device::DoTimeSync(const DateTime& time) {
  return SendPacket(Packet_TimeSync(time), kAnyReply);
}

void Device::DoUploadStart() {}

bool Device::DoUploadMode(int bank, const std::string& name, const Steps& steps) {
  if (!TCBase::IsUploadable(bank, name, steps)) return false;
  if (!SendPacket(Packet_ModeInit(bank, steps.size(), name), kAnyReply)) return false;
  // A lost step does not end the mode: the controller waits for the closing frame.
  for (const TCBase::Program::ModeStep& step : steps) SendPacket(Packet_ModeStep(step), kAnyReply);
  return SendPacket(Packet_ModeStepsStop(), kAnyReply);
}

void Device::DoUploadFinish() {
  SendPacket(Packet_ModeStop(), kAnyReply);
}

void Device::DoDemoStart(const std::string& name) {
  SendPacket(Packet_PlayInit(name), kAnyReply);
}

void Device::DoDemoSetChannels(const TCBase::Program::ModeStep& step) {
  SendPacket(Packet_PlaySetChannels(step), kAnyReply);
}

void Device::DoDemoFinish() {
  SendPacket(Packet_ModeStop(), kAnyReply);
}

bool Mock::Connect() {
  return true;
}

bool Mock::Write(const std::string& frame) {
  frames_.push_back(frame);
  Observer().FrameSent();
  return true;
}

bool Mock::Read(std::string& reply) {
  reply.clear();
  return true;
}

}  // namespace TC420
