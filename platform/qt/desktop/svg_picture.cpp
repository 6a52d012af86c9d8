#include "platform/qt/desktop/svg_picture.h"

#include <QByteArray>
#include <QPainter>

#include "common/platform.h"

namespace qt {

namespace {

QSize PixelsOf(QSize size, double ratio) {
  return (QSizeF(size) * ratio).toSize();
}

}  // namespace

std::optional<SvgPicture> SvgPicture::Load(int resource) {
  const auto bytes = platform::FindResourceBytes(resource, "SVG");
  if (!bytes) return std::nullopt;
  auto picture = std::make_unique<QSvgRenderer>(
      QByteArray::fromRawData(bytes->data(), static_cast<qsizetype>(bytes->size())));
  if (!picture->isValid()) return std::nullopt;
  return SvgPicture(std::move(picture));
}

void SvgPicture::Paint(QPainter& painter, const QRect& place) const {
  const double ratio = painter.device()->devicePixelRatioF();
  if (drawn_.devicePixelRatio() != ratio || drawn_.size() != PixelsOf(place.size(), ratio)) {
    drawn_ = AsPixmap(place.size(), ratio);
  }
  painter.drawPixmap(place.topLeft(), drawn_);
}

QPixmap SvgPicture::AsPixmap(QSize size, double ratio) const {
  QPixmap pixmap(PixelsOf(size, ratio));
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  picture_->render(&painter, QRectF(QPointF(), QSizeF(size)));
  return pixmap;
}

QIcon SvgPicture::AsIcon() const {
  QIcon icon;
  for (const int side : {16, 24, 32, 48, 64, 128, 256}) icon.addPixmap(AsPixmap({side, side}, 1.0));
  return icon;
}

}  // namespace qt
