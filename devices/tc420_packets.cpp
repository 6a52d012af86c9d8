// The packets of the TC420.

#include "devices/packet_text.h"
#include "devices/tc420.h"

namespace TC420 {

namespace {

constexpr std::uint8_t kHead[] = {0x55, 0xAA};
constexpr std::uint8_t kTail[] = {0x0D, 0x0A};

constexpr std::size_t kCommandOffset = sizeof kHead;
constexpr std::size_t kZeroOffset = kCommandOffset + 1;
constexpr std::size_t kLengthOffset = kZeroOffset + 1;
constexpr std::size_t kPayloadOffset = kLengthOffset + 1;
constexpr std::size_t kMaxPayloadSize = 56;
constexpr std::size_t kChecksumOffset = kPayloadOffset + kMaxPayloadSize;
constexpr std::size_t kTailOffset = kChecksumOffset + 1;
static_assert(kTailOffset + sizeof kTail == TCBase::kFrameSize);

enum Command : std::uint8_t {
  kModeStepsStop = 0x01,
  kModeStop = 0x02,
  kClearAll = 0x03,
  kTimeSync = 0x11,
  kModeInit = 0x12,
  kModeStep = 0x13,
  kPlayInit = 0x15,
  kPlaySetChannels = 0x16,
};

constexpr std::size_t kModeNameSize = 8;
constexpr std::size_t kPlayNameSize = 6;
// Nobody knows what these say to the controller; it wants them.
constexpr std::uint8_t kPlayInitTrailer[] = {0x00, 0xFD};
constexpr std::uint8_t kPlaySetChannelsHead = 0xF5;
constexpr std::uint8_t kPlaySetChannelsTail = 0x00;

std::uint8_t JumpFlags(const TCBase::Program::ModeStep& step) {
  unsigned flags = 0;
  for (std::size_t channel = 0; channel < step.jumps.size(); ++channel) {
    if (step.jumps[channel]) flags |= 1U << channel;
  }
  return static_cast<std::uint8_t>(flags);
}

}  // namespace

std::size_t Packet::MaxPayload() const {
  return kMaxPayloadSize;
}

void Packet::Serialize(std::string& out) const {
  out.assign(TCBase::kFrameSize, '\0');
  out[0] = static_cast<char>(kHead[0]);
  out[1] = static_cast<char>(kHead[1]);
  out[kCommandOffset] = static_cast<char>(code);
  out[kLengthOffset] = static_cast<char>(LengthByte());
  TCBase::PlaceInFrame(out, kPayloadOffset, kMaxPayloadSize, data);
  out[kChecksumOffset] = static_cast<char>(TCBase::FrameSum(out, kChecksumOffset));
  out[kTailOffset] = static_cast<char>(kTail[0]);
  out[kTailOffset + 1] = static_cast<char>(kTail[1]);
}

Packet_TimeSync::Packet_TimeSync(const DateTime& time) : Packet(kTimeSync) {
  Append(time.year >> 8);
  for (const int field : {time.year, time.month, time.day, time.hour, time.minute, time.second}) {
    Append(field);
  }
  description = TCBase::DescribeTimeSync(time);
}

Packet_ModeInit::Packet_ModeInit(int bank, std::size_t stepCount, std::string_view name) : Packet(kModeInit) {
  Append(bank);
  Append(static_cast<std::uint8_t>(stepCount));
  AppendPadded(name, kModeNameSize);
  description = TCBase::DescribeModeInit(bank, stepCount, name.substr(0, kModeNameSize));
}

Packet_ModeStep::Packet_ModeStep(const TCBase::Program::ModeStep& step) : Packet(kModeStep) {
  const std::uint8_t flags = JumpFlags(step);
  Append(step.hour);
  Append(step.minute);
  for (const std::int32_t value : step.values) Append(TCBase::WirePercent(value));
  Append(flags);
  description = TCBase::DescribeModeStep(step) + "), JumpsFlags=" + std::to_string(flags) + ")";
}

Packet_ModeStepsStop::Packet_ModeStepsStop() : Packet(kModeStepsStop) {
  description = "Packet_ModeStepsStop()";
}

Packet_ModeStop::Packet_ModeStop() : Packet(kModeStop) {
  description = "Packet_ModeStop()";
}

Packet_ClearAll::Packet_ClearAll() : Packet(kClearAll) {
  description = "Packet_ClearAll()";
}

Packet_PlayInit::Packet_PlayInit(std::string_view name) : Packet(kPlayInit) {
  AppendPadded(name, kPlayNameSize);
  for (const std::uint8_t byte : kPlayInitTrailer) Append(byte);
  description = TCBase::DescribePlayInit(name);
}

Packet_PlaySetChannels::Packet_PlaySetChannels(const TCBase::Program::ModeStep& step)
    : Packet(kPlaySetChannels) {
  Append(kPlaySetChannelsHead);
  for (const std::int32_t value : step.values) Append(TCBase::WirePercent(value));
  Append(kPlaySetChannelsTail);
  description = TCBase::DescribePlaySetChannels(step);
}

}  // namespace TC420
