#pragma once

#include <QFontMetrics>
#include <QRect>

#include "common/geometry.h"
#include "dialogs/control.h"

namespace qt {

/// The units in which dialogs are told: a quarter of the average width of the font's letters to the right, an
/// eighth of their height downwards. So the texts have room in every font.
class DialogUnits {
 public:
  explicit DialogUnits(const QFontMetrics& font);

  QRect Pixels(const Rect& place) const;
  /// The same for a control: those that let a list down are as high as their field.
  QRect Pixels(const Rect& place, dialogs::ControlKind kind) const;

 private:
  int X(int units) const;
  int Y(int units) const;

  int letterWidth_;
  int letterHeight_;
};

}  // namespace qt
