// The packets of the TC421.

#include "devices/controller_models.h"
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
constexpr Command kFind{kFindCode, 0x00};
constexpr Command kSetWiFi{0x18, 0x00};

// First payload byte of kSetWiFi.
constexpr std::uint8_t kWiFiSsid = 0x01;
constexpr std::uint8_t kWiFiPassword = 0x02;
constexpr std::uint8_t kWiFiOpen = 0x03;

constexpr std::size_t kModeNameSize = 7;
constexpr std::size_t kSsidSize = 32;

// Only its lowest byte is sent.
std::int32_t LengthOf(std::string_view text) {
  return static_cast<std::uint8_t>(text.size());
}

}  // namespace

Packet::Packet(std::uint8_t commandCode, std::uint8_t secondCode, const DeviceInfo& device)
    : PacketBase(commandCode),
      subcode(secondCode),
      deviceName(device.name.substr(0, kMaxNameSize)),
      alternateChecksum(IsOnCable(device)) {}

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
  Append(IsOnCable(device) ? 1 : 0);
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

Packet_Find::Packet_Find() : Packet(kFind.code, kFind.subcode, {}) {
  for (const int byte : {0xDD, 0xEE, 0xFF}) Append(byte);
}

Packet_SetWiFi_SSID::Packet_SetWiFi_SSID(const DeviceInfo& device, std::string_view ssid,
                                         std::int32_t security, std::int32_t encryption)
    : Packet(kSetWiFi.code, kSetWiFi.subcode, device) {
  alternateChecksum = false;
  length = LengthOf(ssid);
  Append(kWiFiSsid);
  AppendPadded(ssid, kSsidSize);
  Append(security);
  Append(encryption);
  description = TCBase::DescribeSetWiFi_SSID(ssid, security, encryption);
}

Packet_SetWiFi_Password::Packet_SetWiFi_Password(const DeviceInfo& device, std::string_view password)
    : Packet(kSetWiFi.code, kSetWiFi.subcode, device) {
  alternateChecksum = false;
  length = LengthOf(password);
  Append(kWiFiPassword);
  AppendPadded(password, password.size());
  description = TCBase::DescribeSetWiFi_Password(password);
}

Packet_SetWiFi_Open::Packet_SetWiFi_Open(const DeviceInfo& device, std::string_view ssid)
    : Packet(kSetWiFi.code, kSetWiFi.subcode, device) {
  alternateChecksum = false;
  length = LengthOf(ssid);
  Append(kWiFiOpen);
  AppendPadded(ssid, ssid.size());
  description = TCBase::DescribeSetWiFi_Open(ssid);
}

}  // namespace TC421
