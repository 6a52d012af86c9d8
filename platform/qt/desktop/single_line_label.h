#pragma once

#include <QLabel>

namespace qt {

/// A label of one line in a sunken frame. A text that is a little too long is set in narrower letters. What
/// does not fit then is cut off with dots, and comes up whole where the mouse rests.
class SingleLineLabel final : public QLabel {
 public:
  explicit SingleLineLabel(QWidget* parent);

  /// text() is the whole text, too.
  void SetWholeText(const QString& text);
  /// Whether all of it is seen.
  bool IsWhole() const { return ShownText() == text(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  int Room() const { return contentsRect().width() - 2 * indent(); }
  QFont ShownFont() const;
  QString ShownText() const;
  void OfferWholeText();
};

}  // namespace qt
