#pragma once

// What every packet of every controller model has in common. Frame layouts stand with the models (tc420.h,
// tc421.h) and as tables in docs/formats.md.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace TCBase {

/// Size of a frame, on every model and every transport.
inline constexpr std::size_t kFrameSize = 64;

/// One command on its way to a controller. Built on the stack of the operation that sends it, and sent once.
class PacketBase {
 public:
  explicit PacketBase(std::uint8_t commandCode) : code(commandCode) {}
  virtual ~PacketBase() = default;

  /// Most bytes that `data` may hold.
  virtual std::size_t MaxPayload() const = 0;
  /// Replaces `out` with the frame of kFrameSize bytes.
  virtual void Serialize(std::string& out) const = 0;
  /// Always true.
  virtual bool IsValid() const { return true; }

  std::string data;          // payload
  std::string description;   // the packet's line in the device log, never translated
  std::uint8_t code;         // command byte
  std::int32_t length = -1;  // for the frame's length byte; negative: the size of `data`

 protected:
  // A packet is handed on by reference and never copied as a base.
  PacketBase(const PacketBase&) = default;
  PacketBase& operator=(const PacketBase&) = default;

  /// Adds a byte (the lowest eight bits of `byte`) to the payload; what no longer fits is dropped.
  void Append(std::int32_t byte);
  /// Adds exactly `size` bytes: `text`, cut or filled up with zeros.
  void AppendPadded(std::string_view text, std::size_t size);

  /// The frame's length byte.
  std::uint8_t LengthByte() const;
};

/// An intensity as controllers take it: the absolute value, at most 100.
std::uint8_t WirePercent(std::int32_t intensity);

/// Writes `bytes`, but no more than `room` of them, into `frame` at `offset`.
void PlaceInFrame(std::string& frame, std::size_t offset, std::size_t room, std::string_view bytes);

/// The lowest eight bits of the sum of the first `count` bytes of `frame`.
std::uint8_t FrameSum(std::string_view frame, std::size_t count);

}  // namespace TCBase
