#pragma once

// A sheet of the step table: rows of cells that are texts, and their editing in place.

#include <QAbstractTableModel>
#include <QStringList>
#include <QTableView>

#include <functional>
#include <vector>

#include "app/window/step_table_port.h"

namespace qt {

/// Red, as it can be read on the palette's background.
QColor FaultColor(const QPalette& palette);

/// The cells. What views know of them stays as it is where the rows are the same as before.
class SheetCells final : public QAbstractTableModel {
 public:
  explicit SheetCells(bool isEdited, QObject* parent) : QAbstractTableModel(parent), isEdited_(isEdited) {}

  void SetColumns(QStringList columns);
  void SetRows(std::vector<QStringList> rows);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  Qt::Alignment AlignmentOf(int column) const;

  const bool isEdited_;
  QStringList columns_;
  std::vector<QStringList> rows_;
};

/// The list. Its callbacks are set before it is shown.
class SheetView final : public QTableView {
 public:
  /// `isEdited`: its cells are edited in place; otherwise they are only read.
  SheetView(bool isEdited, QWidget* parent);

  SheetCells& Cells() { return *cells_; }
  void SetRows(const std::vector<app::TableRow>& rows);
  void SetColumns(const app::TableRow& columns);
  void SetSelection(const app::TableSelection& selection);
  /// Ends the editing of a cell without a word.
  void DropEditor();

  // What the user does.

  /// True: the key goes no further.
  std::function<bool(int key, bool ctrl)> onKey;
  std::function<void(const app::TableSelection&)> onSelect;
  /// Whether a cell may be edited.
  std::function<bool()> onEdit;
  /// Whether the text was taken; see app::StepTableWindow::OnTyped.
  std::function<bool(int row, int column, const QString& text, bool goesOn)> onTyped;
  std::function<void()> onEditGivenUp;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  class Editing;

  void TellSelection();

  SheetCells* const cells_;
  Editing* const editing_;
  bool quiet_ = false;  // changes of the selection are not the user's
};

}  // namespace qt
