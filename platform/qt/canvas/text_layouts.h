#pragma once

// Texts as Qt sets them, at any fraction of a pixel. User interface thread.

#include <QTextLayout>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "chart/canvas.h"

class QColor;
class QPainter;

namespace qt {

/// A text that has been laidOut.
struct LaidOutText {
  UX::TextFormat format;
  std::string text;  // UTF-8
  UX::TextSize limits;
  std::unique_ptr<QTextLayout> layout;  // in the units of the design
  float scale = 1.0F;                   // pixels of one of them
  UX::TextSize size;                    // pixels
  std::uint64_t lastUse = 0;
};

/// Lays texts out, and knows those that were laid out lately: most come again in the next frame, and laying
/// one out takes as long as drawing ten.
class TextLayouts {
 public:
  TextLayouts();

  void SetFont(UX::TextFormat format, const UX::Font& font);
  /// Lays a text out as UX::Canvas::LayOutText tells. The result is valid until the next call.
  const LaidOutText& LayOut(UX::TextFormat format, std::string_view text, const UX::TextSize& limits);

 private:
  void LayOutAnew(LaidOutText& laidOut) const;

  std::array<UX::Font, UX::kTextFormatCount> fonts_;
  std::vector<LaidOutText> layouts_;
  std::uint64_t uses_ = 0;
};

/// Draws a text with its left top at the painter's origin.
void DrawLaidOutText(QPainter& painter, const LaidOutText& laidOut, const QColor& color);

}  // namespace qt
