#pragma once

// How large a text is to a canvas of the tests: a rule that is the same on every machine.

#include <algorithm>
#include <string_view>

#include "chart/canvas.h"

namespace chart_test {

/// Each character (byte) is 0.5 of the font's size wide, 0.625 in bold, each line 1.25 of it high. A line
/// that is wider than the limit goes on below, at least one character a line.
inline UX::TextSize MeasureText(const UX::Font& font, std::string_view text, const UX::TextSize& limits) {
  const float character = font.size * (font.bold ? 0.625F : 0.5F);
  float widest = 0.0F;
  float width = 0.0F;
  int lines = 1;
  for (const char c : text) {
    if (c == '\n' || (width > 0.0F && width + character > limits.width)) {
      ++lines;
      width = 0.0F;
    }
    if (c != '\n') width += character;
    widest = std::max(widest, width);
  }
  return {widest, static_cast<float>(lines) * 1.25F * font.size};
}

}  // namespace chart_test
