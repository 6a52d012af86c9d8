#include "platform/qt/canvas/text_layouts.h"

#include <QFont>
#include <QPainter>
#include <QString>
#include <QTextOption>

#include <algorithm>

namespace qt {

namespace {

// Qt rounds the size of a font to whole pixels. So texts are laid out in one size that is larger than most,
// and scaled as they are drawn: they have the exact size, and the same line breaks at every scale.
constexpr int kDesignSize = 64;

// More than a frame has of texts that are no labels.
constexpr std::size_t kMostTexts = 32;

// Names come from files and may be of any length; no screen shows more than this, and setting a text takes
// time with its length.
constexpr std::size_t kLongestText = 2000;

QFont DesignFont(bool bold) {
  QFont font(QStringLiteral("Tahoma"));
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(kDesignSize);
  font.setWeight(bold ? QFont::Bold : QFont::Normal);
  // Hints would bend the letters to the pixels of the design.
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setStyleStrategy(
      static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
  return font;
}

// What XML cannot hold, and so no SVG, becomes the sign for an unknown character.
QString DesignText(std::string_view text) {
  const std::string_view shown = text.substr(0, kLongestText);
  QString result = QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()));
  for (QChar& character : result) {
    if (character == u'\n') {
      character = QChar::LineSeparator;
    } else if (character < u' ' || character >= u'\uFFFE') {
      character = QChar::ReplacementCharacter;
    }
  }
  return result;
}

QTextOption DesignOption() {
  QTextOption option(Qt::AlignLeft);
  option.setTextDirection(Qt::LeftToRight);
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setUseDesignMetrics(true);
  return option;
}

}  // namespace

TextLayouts::TextLayouts() {
  layouts_.reserve(kMostTexts);
}

void TextLayouts::SetFont(UX::TextFormat format, const UX::Font& font) {
  fonts_[static_cast<std::size_t>(format)] = font;
  std::erase_if(layouts_, [format](const LaidOutText& laidOut) { return laidOut.format == format; });
}

const LaidOutText& TextLayouts::LayOut(UX::TextFormat format, std::string_view text,
                                       const UX::TextSize& limits) {
  const auto known = std::ranges::find_if(layouts_, [&](const LaidOutText& laidOut) {
    return laidOut.format == format && laidOut.text == text && laidOut.limits.width == limits.width &&
           laidOut.limits.height == limits.height;
  });
  if (known != layouts_.end()) {
    known->lastUse = ++uses_;
    return *known;
  }
  if (layouts_.size() < kMostTexts) layouts_.emplace_back();
  LaidOutText& laidOut = layouts_.back().layout == nullptr
                             ? layouts_.back()
                             : *std::ranges::min_element(layouts_, {}, &LaidOutText::lastUse);
  laidOut.format = format;
  laidOut.text = text;
  laidOut.limits = limits;
  laidOut.lastUse = ++uses_;
  LayOutAnew(laidOut);
  return laidOut;
}

void TextLayouts::LayOutAnew(LaidOutText& laidOut) const {
  const UX::Font& font = fonts_[static_cast<std::size_t>(laidOut.format)];
  laidOut.scale = font.size / static_cast<float>(kDesignSize);
  laidOut.layout = std::make_unique<QTextLayout>(DesignText(laidOut.text), DesignFont(font.bold));
  laidOut.layout->setTextOption(DesignOption());

  const qreal lineWidth = laidOut.limits.width / laidOut.scale;
  qreal width = 0.0;
  qreal height = 0.0;
  laidOut.layout->beginLayout();
  for (QTextLine line = laidOut.layout->createLine(); line.isValid(); line = laidOut.layout->createLine()) {
    line.setLineWidth(lineWidth);
    line.setPosition({0.0, height});
    width = std::max(width, line.naturalTextWidth());
    height += line.height();
  }
  laidOut.layout->endLayout();
  laidOut.size = {static_cast<float>(width) * laidOut.scale, static_cast<float>(height) * laidOut.scale};
}

void DrawLaidOutText(QPainter& painter, const LaidOutText& laidOut, const QColor& color) {
  const QTransform before = painter.transform();
  painter.scale(laidOut.scale, laidOut.scale);
  painter.setPen(color);
  laidOut.layout->draw(&painter, {0.0, 0.0});
  painter.setTransform(before);
}

}  // namespace qt
