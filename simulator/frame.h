#pragma once

// Reading of frames, shared by the protocols.

#include <cstdint>
#include <string>
#include <string_view>

#include "program/program.h"

namespace sim {

inline std::uint8_t At(const std::string& frame, std::size_t offset) {
  return static_cast<std::uint8_t>(frame[offset]);
}

/// The sum of the first `count` bytes, its low 8 bits.
inline std::uint8_t Sum(const std::string& frame, std::size_t count) {
  unsigned sum = 0;
  for (std::size_t i = 0; i < count; ++i) sum += At(frame, i);
  return static_cast<std::uint8_t>(sum & 0xFF);
}

inline void ReadValues(const std::string& frame, std::size_t offset, TCBase::Program::ModeStep& step) {
  for (int& value : step.values) value = At(frame, offset++);
}

inline std::string_view View(const std::string& frame, std::size_t offset, std::size_t size) {
  return std::string_view(frame).substr(offset, size);
}

}  // namespace sim
