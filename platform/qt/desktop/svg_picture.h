#pragma once

// The program's own pictures, sharp at any scale.

#include <QIcon>
#include <QPixmap>
#include <QRect>
#include <QSvgRenderer>

#include <memory>
#include <optional>

class QPainter;

namespace qt {

class SvgPicture {
 public:
  /// A picture that is built into the program; nothing if there is none of that number, or no good one.
  static std::optional<SvgPicture> Load(int resource);

  void Paint(QPainter& painter, const QRect& place) const;
  /// In the device's pixels: `size` times `ratio`.
  QPixmap AsPixmap(QSize size, double ratio) const;
  /// In all sizes that desktops ask for.
  QIcon AsIcon() const;

 private:
  explicit SvgPicture(std::unique_ptr<QSvgRenderer> picture) : picture_(std::move(picture)) {}

  std::unique_ptr<QSvgRenderer> picture_;
  mutable QPixmap drawn_;  // as it was painted last
};

}  // namespace qt
