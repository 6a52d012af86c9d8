#pragma once

// What stands in the controls of dialogs, whatever widget it is.

#include <QString>

#include <cstdint>
#include <functional>
#include <string>

class QComboBox;
class QListWidget;
class QWidget;

namespace qt {

/// The rows of a list box or a drop-down list; of another widget there are none. Nothing here makes the list
/// tell of a choice.
class Rows {
 public:
  explicit Rows(QWidget& list);

  void Clear();
  /// The row comes last, or at its place by the texts.
  void Add(const QString& text, std::int32_t data, bool sorted);
  int Count() const;
  /// None for a row that is not there.
  void Select(int row);
  /// The row with exactly this text, -1 without one.
  int Find(const QString& text) const;
  /// -1 if nothing is selected, or something else has been typed.
  std::int32_t SelectedData() const;

 private:
  QString TextOf(int row) const;

  QListWidget* box_;
  QComboBox* combo_;
};

/// Has `tell` called when the user chooses a row; nothing for a widget that is no list.
void ConnectSelection(QWidget& list, const std::function<void()>& tell);

/// What a label, a button, a heading or a field says. Empty for others, and for null.
std::u16string ControlText(const QWidget* control);

}  // namespace qt
