#pragma once

#include <QLabel>

namespace qt {

/// A label of one line in a sunken frame. What does not fit is cut off with dots, and comes up whole where
/// the mouse rests.
class SingleLineLabel final : public QLabel {
 public:
  explicit SingleLineLabel(QWidget* parent);

  /// text() is the whole text, too.
  void SetWholeText(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QString ShownText() const;
  void OfferWholeText();
};

}  // namespace qt
