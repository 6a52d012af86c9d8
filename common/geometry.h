#pragma once

// Places in a window, in units: pixels on a screen of 96 dots per inch, which a shell magnifies for a finer
// one. x grows to the right, y downwards.

#include <cstdint>

struct Position {
  std::int32_t x = 0;
  std::int32_t y = 0;

  friend bool operator==(const Position&, const Position&) = default;
};

/// Never left, top, right, bottom.
struct Rect {
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;

  friend bool operator==(const Rect&, const Rect&) = default;
};
