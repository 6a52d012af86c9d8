#include "devices/packet_base.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace TCBase {

void PacketBase::Append(std::int32_t byte) {
  if (data.size() < MaxPayload()) data.push_back(static_cast<char>(byte & 0xFF));
}

void PacketBase::AppendPadded(std::string_view text, std::size_t size) {
  for (std::size_t i = 0; i < size; ++i) Append(i < text.size() ? text[i] : 0);
}

std::uint8_t PacketBase::LengthByte() const {
  return static_cast<std::uint8_t>(length >= 0 ? static_cast<std::size_t>(length) : data.size());
}

std::uint8_t WirePercent(std::int32_t intensity) {
  // 64 bits hold the absolute value of the lowest 32-bit number, too.
  return static_cast<std::uint8_t>(std::min<std::int64_t>(std::llabs(intensity), 100));
}

void PlaceInFrame(std::string& frame, std::size_t offset, std::size_t room, std::string_view bytes) {
  const std::string_view placed = bytes.substr(0, room);
  std::copy(placed.begin(), placed.end(), frame.begin() + static_cast<std::ptrdiff_t>(offset));
}

std::uint8_t FrameSum(std::string_view frame, std::size_t count) {
  const std::string_view summed = frame.substr(0, count);
  return std::accumulate(summed.begin(), summed.end(), std::uint8_t{0}, [](std::uint8_t sum, char byte) {
    return static_cast<std::uint8_t>(sum + static_cast<std::uint8_t>(byte));
  });
}

}  // namespace TCBase
