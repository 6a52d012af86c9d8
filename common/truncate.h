#pragma once

// Makes a whole number of a curve's float, whatever float it is.

#include <cstdint>
#include <limits>

/// `value` truncated toward zero. What has no 32-bit integer (not a number, an infinity, a value out of
/// range) gives the lowest one, which is what the processor's own conversion answers on every machine the
/// program runs on; the language alone would leave it undefined.
constexpr std::int32_t TruncateToInt(float value) {
  // 2^31 is exact in a float, and so is -2^31. The comparison is false for not a number.
  return value >= -2147483648.0F && value < 2147483648.0F ? static_cast<std::int32_t>(value)
                                                          : std::numeric_limits<std::int32_t>::min();
}
