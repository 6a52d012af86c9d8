// The packets of the TC421.

#include "devices/packet_text.h"
#include "devices/tc421.h"

namespace TC421 {

namespace {

using TCBase::DeviceInfo;

constexpr std::uint8_t kHead[] = {0x55, 0xAA};

constexpr std::size_t kCommandOffset = sizeof kHead;
constexpr std::size_t kSubcodeOffset = kCommandOffset + 1;
constexpr std::size_t kZeroOffset = kSubcodeOffset + 1;
constexpr std::size_t kLengthOffset = kZeroOffset + 1;
constexpr std::size_t kPayloadOffset = kLengthOffset + 1;
constexpr std::size_t kMaxPayloadSize = 54;
constexpr std::size_t kNameOffset = 49;
constexpr std::size_t kMaxNameSize = 12;
constexpr std::size_t kSummedSize = kNameOffset;
constexpr std::size_t kChecksumOffset = kNameOffset + kMaxNameSize;
constexpr std::size_t kAlternateChecksumOffset = TCBase::kFrameSize - 1;
static_assert(kChecksumOffset == 61 && kPayloadOffset + kMaxPayloadSize <= kChecksumOffset);

struct Command {
  std::uint8_t code;
  std::uint8_t subcode;
};
constexpr Command kModeInit{0x01, 0x01};
constexpr Command kModeStep{0x01, 0x02};
constexpr Command kTimeSync{0x02, 0x00};
constexpr Command kModeStop{0x03, 0x08};
constexpr Command kModeStepsStop{0x04, 0x0A};
constexpr Command kClearAll{0x05, 0xFE};
constexpr Command kPlayInit{0x06, 0x01};
constexpr Command kPlaySetChannels{0x06, 0x02};

constexpr std::size_t kModeNameSize = 7;

bool IsOnUsb(const DeviceInfo& device) {
  return device.model == TCBase::ModelTC421USB;
}

}  // namespace

Packet::Packet(std::uint8_t commandCode, std::uint8_t secondCode, const DeviceInfo& device)
    : PacketBase(commandCode),
      subcode(secondCode),
      deviceName(device.name.substr(0, kMaxNameSize)),
      alternateChecksum(IsOnUsb(device)) {}

std::size_t Packet::MaxPayload() const {
  return kMaxPayloadSize;
}

void Packet::Serialize(std::string& out) const {
  out.assign(TCBase::kFrameSize, '\0');
  out[0] = static_cast<char>(kHead[0]);
  out[1] = static_cast<char>(kHead[1]);
  out[kCommandOffset] = static_cast<char>(code);
  out[kSubcodeOffset] = static_cast<char>(subcode);
  out[kLengthOffset] = static_cast<char>(LengthByte());
  TCBase::PlaceInFrame(out, kPayloadOffset, kMaxPayloadSize, data);
  TCBase::PlaceInFrame(out, kNameOffset, kMaxNameSize, deviceName);
  out[alternateChecksum ? kAlternateChecksumOffset : kChecksumOffset] =
      static_cast<char>(TCBase::FrameSum(out, kSummedSize));
}

Packet_TimeSync::Packet_TimeSync(const DeviceInfo& device, const DateTime& time)
    : Packet(kTimeSync.code, kTimeSync.subcode, device) {
  alternateChecksum = true;
  Append(time.year >> 8);
  for (const int field : {time.year, time.month, time.day, time.hour, time.minute, time.second}) {
    Append(field);
  }
  description = TCBase::DescribeTimeSync(time);
}

Packet_ModeInit::Packet_ModeInit(const DeviceInfo& device, int bank, std::size_t stepCount,
                                 std::string_view name)
    : Packet(kModeInit.code, kModeInit.subcode, device) {
  Append(bank);
  AppendPadded(name, kModeNameSize);
  Append(0);
  Append(static_cast<std::uint8_t>(stepCount));
  description = TCBase::DescribeModeInit(bank, stepCount, name);
}

Packet_ModeStep::Packet_ModeStep(const DeviceInfo& device, std::size_t index,
                                 const TCBase::Program::ModeStep& step)
    : Packet(kModeStep.code, kModeStep.subcode, device) {
  Append(static_cast<std::uint8_t>(index));
  Append(step.hour);
  Append(step.minute);
  for (const std::int32_t value : step.values) Append(TCBase::WirePercent(value));
  // No flags are sent, so none are shown; the line has always ended here.
  description = TCBase::DescribeModeStep(step);
}

Packet_ModeStepsStop::Packet_ModeStepsStop(const DeviceInfo& device)
    : Packet(kModeStepsStop.code, kModeStepsStop.subcode, device) {
  description = "Packet_ModeStepsStop()";
}

Packet_ModeStop::Packet_ModeStop(const DeviceInfo& device)
    : Packet(kModeStop.code, kModeStop.subcode, device) {
  description = "Packet_ModeStop()";
}

Packet_ClearAll::Packet_ClearAll(const DeviceInfo& device)
    : Packet(kClearAll.code, kClearAll.subcode, device) {
  description = "Packet_ClearAll()";
}

Packet_PlayInit::Packet_PlayInit(const DeviceInfo& device, std::string_view name)
    : Packet(kPlayInit.code, kPlayInit.subcode, device) {
  Append(IsOnUsb(device) ? 1 : 0);
  AppendPadded(name, kModeNameSize);
  Append(0);
  Append(0);
  description = TCBase::DescribePlayInit(name);
}

Packet_PlaySetChannels::Packet_PlaySetChannels(const DeviceInfo& device,
                                               const TCBase::Program::ModeStep& step)
    : Packet(kPlaySetChannels.code, kPlaySetChannels.subcode, device) {
  for (const std::int32_t value : step.values) Append(TCBase::WirePercent(value));
  description = TCBase::DescribePlaySetChannels(step);
}

}  // namespace TC421
