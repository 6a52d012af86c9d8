#include "platform/qt/desktop/step_sheet.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/qt/desktop/keys.h"
#include "platform/qt/desktop/text.h"

namespace qt {

namespace {

// Above and below a row's text.
constexpr int kRowSpace = 6;

QStringList QtCells(const app::TableRow& row) {
  QStringList cells;
  for (const std::u16string& cell : row) cells.append(QtText(cell));
  return cells;
}

}  // namespace

QColor FaultColor(const QPalette& palette) {
  constexpr int kMiddle = 128;
  const bool isDark = palette.color(QPalette::Base).lightness() < kMiddle;
  return isDark ? QColor(255, 128, 128) : QColor(192, 0, 0);
}

void SheetCells::SetColumns(QStringList columns) {
  if (columns == columns_) return;
  const bool isAnew = columns.size() != columns_.size();
  if (isAnew) beginResetModel();
  columns_ = std::move(columns);
  if (isAnew) endResetModel();
  emit headerDataChanged(Qt::Horizontal, 0, static_cast<int>(columns_.size()) - 1);
}

void SheetCells::SetRows(std::vector<QStringList> rows) {
  const auto first = std::ranges::mismatch(rows_, rows);
  const auto begin = static_cast<int>(first.in1 - rows_.begin());
  const auto common = static_cast<int>(std::mismatch(rows_.rbegin(), std::make_reverse_iterator(first.in1),
                                                     rows.rbegin(), std::make_reverse_iterator(first.in2))
                                           .first -
                                       rows_.rbegin());
  // Where the old and the new rows differ, from `begin` on.
  const int old = static_cast<int>(rows_.size()) - begin - common;
  const int fresh = static_cast<int>(rows.size()) - begin - common;
  if (fresh > old) {
    beginInsertRows({}, begin + old, begin + fresh - 1);
    rows_ = std::move(rows);
    endInsertRows();
  } else if (fresh < old) {
    beginRemoveRows({}, begin + fresh, begin + old - 1);
    rows_ = std::move(rows);
    endRemoveRows();
  } else {
    rows_ = std::move(rows);
  }
  const int changed = std::min(old, fresh);
  if (changed > 0) emit dataChanged(index(begin, 0), index(begin + changed - 1, columnCount() - 1));
}

int SheetCells::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int SheetCells::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

Qt::Alignment SheetCells::AlignmentOf(int column) const {
  if (isEdited_ && column == app::table_column::kJump) return Qt::AlignVCenter | Qt::AlignHCenter;
  return Qt::AlignVCenter | (column > 0 ? Qt::AlignRight : Qt::AlignLeft);
}

QVariant SheetCells::data(const QModelIndex& index, int role) const {
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return rows_.at(static_cast<std::size_t>(index.row())).value(index.column());
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(AlignmentOf(index.column()));
    default:
      return {};
  }
}

QVariant SheetCells::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole) return columns_.value(section);
  return role == Qt::TextAlignmentRole ? QVariant::fromValue(AlignmentOf(section)) : QVariant();
}

Qt::ItemFlags SheetCells::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  return isEdited_ ? flags | Qt::ItemIsEditable : flags;
}

// The editor of a cell, and when it ends.
class SheetView::Editing final : public QStyledItemDelegate {
 public:
  explicit Editing(SheetView& view) : QStyledItemDelegate(&view), view_(view) {
    connect(this, &QAbstractItemDelegate::closeEditor, this, [this](QWidget*, EndEditHint hint) {
      if (hint == RevertModelCache) view_.onEditGivenUp();
    });
  }

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex& index) const override {
    if (!view_.onEdit()) return nullptr;
    auto* const field = new QLineEdit(parent);
    field->setFrame(false);
    field->setAutoFillBackground(true);
    field->setAlignment(index.data(Qt::TextAlignmentRole).value<Qt::Alignment>());
    field->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    connect(field, &QLineEdit::textEdited, field, [field] { field->setPalette({}); });
    return field;
  }

  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    // What is being typed stays when the rows change behind it.
    auto& field = static_cast<QLineEdit&>(*editor);
    if (!field.isModified()) field.setText(index.data().toString());
  }

  // The cell is left by another way than a key.
  void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const override {
    Offer(static_cast<QLineEdit&>(*editor), index, false);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* const field = qobject_cast<QLineEdit*>(watched);
    if (field == nullptr || event->type() != QEvent::KeyPress) {
      return QStyledItemDelegate::eventFilter(watched, event);
    }
    switch (static_cast<const QKeyEvent&>(*event).key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
        return Finish(*field, true, NoHint), true;
      case Qt::Key_Tab:
        return Finish(*field, false, EditNextItem), true;
      case Qt::Key_Backtab:
        return Finish(*field, false, EditPreviousItem), true;
      default:
        return QStyledItemDelegate::eventFilter(watched, event);
    }
  }

 private:
  bool Offer(const QLineEdit& field, const QModelIndex& index, bool goesOn) const {
    // The view offers the text once more when the next row becomes the current one.
    if (offers_) return true;
    const QScopedValueRollback offering(offers_, true);
    return view_.onTyped(index.row(), index.column(), field.text(), goesOn);
  }

  // Ends the editing, unless what was typed is wrong: that stays, in red.
  void Finish(QLineEdit& field, bool goesOn, EndEditHint hint) {
    const QPointer<QLineEdit> still(&field);
    if (Offer(field, view_.currentIndex(), goesOn)) {
      // The view has closed it already if another row has become the current one.
      if (still && view_.state() == EditingState) emit closeEditor(still, hint);
      return;
    }
    QPalette palette = field.palette();
    palette.setColor(QPalette::Text, FaultColor(palette));
    field.setPalette(palette);
    field.selectAll();
  }

  SheetView& view_;
  mutable bool offers_ = false;
};

SheetView::SheetView(bool isEdited, QWidget* parent)
    : QTableView(parent), cells_(new SheetCells(isEdited, this)), editing_(new Editing(*this)) {
  setModel(cells_);
  setItemDelegate(editing_);
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(isEdited ? DoubleClicked | EditKeyPressed | AnyKeyPressed : NoEditTriggers);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowSpace);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(false);
}

void SheetView::SetRows(const std::vector<app::TableRow>& rows) {
  const QScopedValueRollback quietly(quiet_, true);
  std::vector<QStringList> cells;
  for (const app::TableRow& row : rows) cells.push_back(QtCells(row));
  cells_->SetRows(std::move(cells));
}

void SheetView::SetColumns(const app::TableRow& columns) {
  const QScopedValueRollback quietly(quiet_, true);
  cells_->SetColumns(QtCells(columns));
}

void SheetView::SetSelection(const app::TableSelection& selection) {
  const QScopedValueRollback quietly(quiet_, true);
  QItemSelection rows;
  for (const int row : selection.rows) rows.select(cells_->index(row, 0), cells_->index(row, 0));
  const QModelIndex before = currentIndex();
  const QModelIndex current = cells_->index(selection.current, std::max(before.column(), 0));
  selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  if (!current.isValid()) return;
  selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  if (current != before) scrollTo(current);
}

void SheetView::DropEditor() {
  if (auto* const field = viewport()->findChild<QLineEdit*>()) {
    emit editing_->closeEditor(field, QAbstractItemDelegate::NoHint);
  }
}

void SheetView::keyPressEvent(QKeyEvent* event) {
  const auto held = event->modifiers() & ~Qt::KeypadModifier;
  const int key = KeyNumber(*event);
  const bool isOurs = key != 0 && (held == Qt::NoModifier || held == Qt::ControlModifier);
  if (isOurs && onKey(key, held == Qt::ControlModifier)) return;
  QTableView::keyPressEvent(event);
}

void SheetView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  TellSelection();
}

void SheetView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (current.row() != previous.row()) TellSelection();
}

void SheetView::TellSelection() {
  if (quiet_ || !onSelect) return;
  app::TableSelection selection;
  for (const QModelIndex& index : selectionModel()->selectedRows()) selection.rows.push_back(index.row());
  std::ranges::sort(selection.rows);
  const bool isAmong = std::ranges::binary_search(selection.rows, currentIndex().row());
  selection.current = isAmong ? currentIndex().row() : selection.rows.empty() ? -1 : selection.rows.back();
  onSelect(selection);
}

}  // namespace qt
