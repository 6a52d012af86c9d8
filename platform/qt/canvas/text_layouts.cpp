#include "platform/qt/canvas/text_layouts.h"

#include <QFont>
#include <QPainter>
#include <QString>
#include <QTextOption>

#include <algorithm>

namespace qt {

namespace {

// Qt rounds the size of a font to whole pixels. So texts are set in one size that is larger than most, and
// scaled as they are drawn: they have the exact size, and the same line breaks at every scale.
constexpr int kDesignSize = 64;

/// More than a frame has of texts that are no labels.
constexpr std::size_t kMostSets = 32;

/// Names come from files and may be of any length; no screen shows more than this, and setting a text takes
/// time with its length.
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

/// What XML cannot hold, and so no SVG, becomes the sign for an unknown character.
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
  sets_.reserve(kMostSets);
}

void TextLayouts::SetFont(UX::TextFormat format, const UX::Font& font) {
  fonts_[static_cast<std::size_t>(format)] = font;
  std::erase_if(sets_, [format](const SetText& set) { return set.format == format; });
}

const SetText& TextLayouts::LayOut(UX::TextFormat format, std::string_view text, const UX::TextSize& limits) {
  const auto known = std::ranges::find_if(sets_, [&](const SetText& set) {
    return set.format == format && set.text == text && set.limits.width == limits.width &&
           set.limits.height == limits.height;
  });
  if (known != sets_.end()) {
    known->lastUse = ++uses_;
    return *known;
  }
  if (sets_.size() < kMostSets) sets_.emplace_back();
  SetText& set =
      sets_.back().layout == nullptr ? sets_.back() : *std::ranges::min_element(sets_, {}, &SetText::lastUse);
  set.format = format;
  set.text = text;
  set.limits = limits;
  set.lastUse = ++uses_;
  Set(set);
  return set;
}

void TextLayouts::Set(SetText& set) const {
  const UX::Font& font = fonts_[static_cast<std::size_t>(set.format)];
  set.scale = font.size / static_cast<float>(kDesignSize);
  set.layout = std::make_unique<QTextLayout>(DesignText(set.text), DesignFont(font.bold));
  set.layout->setTextOption(DesignOption());

  const qreal lineWidth = set.limits.width / set.scale;
  qreal width = 0.0;
  qreal height = 0.0;
  set.layout->beginLayout();
  for (QTextLine line = set.layout->createLine(); line.isValid(); line = set.layout->createLine()) {
    line.setLineWidth(lineWidth);
    line.setPosition({0.0, height});
    width = std::max(width, line.naturalTextWidth());
    height += line.height();
  }
  set.layout->endLayout();
  set.size = {static_cast<float>(width) * set.scale, static_cast<float>(height) * set.scale};
}

void DrawText(QPainter& painter, const SetText& set, const QColor& color) {
  const QTransform before = painter.transform();
  painter.scale(set.scale, set.scale);
  painter.setPen(color);
  set.layout->draw(&painter, {0.0, 0.0});
  painter.setTransform(before);
}

}  // namespace qt
