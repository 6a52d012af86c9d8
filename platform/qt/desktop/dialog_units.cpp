#include "platform/qt/desktop/dialog_units.h"

#include <QString>

namespace qt {

namespace {

constexpr int kFieldHeight = 14;  // units, as other fields have it

// Rounded to the nearest.
int Scaled(int units, int letter, int parts) {
  return (units * letter + parts / 2) / parts;
}

}  // namespace

DialogUnits::DialogUnits(const QFontMetrics& font) : letterHeight_(font.height()) {
  const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  letterWidth_ = Scaled(1, font.horizontalAdvance(letters), static_cast<int>(letters.size()));
}

int DialogUnits::X(int units) const {
  return Scaled(units, letterWidth_, 4);
}

int DialogUnits::Y(int units) const {
  return Scaled(units, letterHeight_, 8);
}

QRect DialogUnits::Pixels(const Rect& place) const {
  const int left = X(place.x);
  const int top = Y(place.y);
  return {left, top, X(place.x + place.width) - left, Y(place.y + place.height) - top};
}

QRect DialogUnits::Pixels(const Rect& place, dialogs::ControlKind kind) const {
  QRect pixels = Pixels(place);
  const bool dropsDown = kind == dialogs::ControlKind::DropDownList || kind == dialogs::ControlKind::ComboBox;
  if (dropsDown) pixels.setHeight(Y(kFieldHeight));
  return pixels;
}

}  // namespace qt
