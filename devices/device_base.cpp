#include "devices/device_base.h"

#include "common/log.h"

namespace TCBase {

bool DeviceBase::CheckReply(const std::string& /*reply*/, int /*expected*/) {
  return true;
}

bool DeviceBase::WritePacket(const PacketBase& packet) {
  deviceLog.Append("WritePacket: " + packet.description);
  deviceLog.EndLine();
  std::string frame;
  packet.Serialize(frame);
  return Write(frame);
}

bool DeviceBase::ClearAll() {
  LogDevice("ClearAll");
  return DoClearAll();
}

bool DeviceBase::TimeSync(const DateTime& time) {
  LogDevice("TimeSync");
  return DoTimeSync(time);
}

void DeviceBase::UploadStart() {
  LogDevice("UploadStart");
  DoUploadStart();
}

bool DeviceBase::UploadMode(int bank, const std::string& name, const Steps& steps) {
  LogDevice("UploadMode");
  return DoUploadMode(bank, name, steps);
}

void DeviceBase::UploadFinish() {
  LogDevice("UploadFinish");
  DoUploadFinish();
}

void DeviceBase::DemoStart(const std::string& name) {
  LogDevice("DemoStart");
  DoDemoStart(name);
}

void DeviceBase::DemoSetChannels(const Program::ModeStep& step) {
  LogDevice("DemoSetChannels");
  DoDemoSetChannels(step);
}

void DeviceBase::DemoFinish() {
  LogDevice("DemoFinish");
  DoDemoFinish();
}

bool IsUploadable(int bank, const std::string& name, const DeviceBase::Steps& steps) {
  constexpr std::size_t kFewestSteps = 2;
  return bank < kMaxBanks && !name.empty() && steps.size() >= kFewestSteps;
}

}  // namespace TCBase
