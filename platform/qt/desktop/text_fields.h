#pragma once

// Fields to write into, with the limits that dialogs set.

#include <QLineEdit>
#include <QPlainTextEdit>

namespace qt {

/// A field of one line.
class LineField final : public QLineEdit {
 public:
  explicit LineField(QWidget* parent);

  /// A longer text than the limit stays whole, and nothing can be added to it. Sends textChanged, whatever
  /// stood there.
  void SetWholeText(const QString& text);
  /// The user can write until so many units stand there.
  void LimitText(int units);
  /// The keyboard gives nothing but digits here.
  void AcceptDigitsOnly() { digitsOnly_ = true; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int limit_;
  bool digitsOnly_ = false;
};

/// A field of several lines. Tab leaves it.
class LinesField final : public QPlainTextEdit {
 public:
  /// Without `wantsReturn` Enter is left to the dialog, and Ctrl and Enter begin a new line.
  LinesField(bool wantsReturn, QWidget* parent);

  /// The user can write until so many units stand there; a line's end is two.
  void LimitText(int units) { limit_ = units; }
  /// Where tabs lead, in pixels from the left of the text.
  void SetTabStops(int first, int step);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
  void inputMethodEvent(QInputMethodEvent* event) override;

 private:
  /// Units that can be written in place of what is selected.
  int Room() const;

  const bool wantsReturn_;
  int limit_;
};

/// `text`, cut to at most so many units; a line's end, LF here, is two.
QString CutToUnits(const QString& text, int units);

}  // namespace qt
