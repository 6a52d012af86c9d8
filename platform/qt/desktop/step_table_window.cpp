#include "platform/qt/desktop/step_table_window.h"

#include <QAccessible>
#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

#include "platform/qt/desktop/control_widgets.h"
#include "platform/qt/desktop/text.h"

namespace qt {

namespace {

constexpr QSize kTableSize(440, 480);
constexpr int kMargin = 6;

}  // namespace

// The window with its frame.
class StepTableWindow::Frame final : public QWidget {
 public:
  Frame(StepTableWindow& table, QWidget* owner) : QWidget(owner, Qt::Window), table_(table) {}

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    table_.logic_->OnClose();
  }

 private:
  StepTableWindow& table_;
};

void StepTableWindow::Create() {
  frame_ = new Frame(*this, &owner_.Window());
  frame_->setObjectName(QStringLiteral("step-table"));
  frame_->setFont(ControlFont());
  frame_->resize(kTableSize);
  tabs_ = new QTabWidget(frame_);
  tabs_->setDocumentMode(true);
  for (const app::TableSheet sheet : {app::TableSheet::Steps, app::TableSheet::Merged}) {
    SheetView* const view = sheets_.at(static_cast<std::size_t>(sheet)) = MakeSheet(sheet);
    tabs_->addTab(view, {});
  }
  ConnectSteps(Sheet(app::TableSheet::Steps));
  // The keys are the lists'.
  QObject::connect(tabs_, &QTabWidget::currentChanged, tabs_, [this] { tabs_->currentWidget()->setFocus(); });
  fault_ = new QLabel(frame_);
  fault_->setObjectName(QStringLiteral("step-table-fault"));
  fault_->setTextFormat(Qt::PlainText);
  fault_->setWordWrap(true);
  fault_->hide();
  QPalette palette = fault_->palette();
  palette.setColor(QPalette::WindowText, FaultColor(palette));
  fault_->setPalette(palette);
  auto* const layout = new QVBoxLayout(frame_);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->addWidget(tabs_);
  layout->addWidget(fault_);
}

SheetView* StepTableWindow::MakeSheet(app::TableSheet sheet) {
  auto* const view = new SheetView(sheet == app::TableSheet::Steps, frame_);
  view->onKey = [this, sheet](int key, bool ctrl) { return logic_->OnKey(sheet, key, ctrl); };
  return view;
}

void StepTableWindow::ConnectSteps(SheetView& steps) {
  steps.onSelect = [this](const app::TableSelection& selection) { logic_->OnSelect(selection); };
  steps.onEdit = [this] { return logic_->OnEdit(); };
  steps.onTyped = [this](int row, int column, const QString& text, bool goesOn) {
    return logic_->OnTyped(row, column, text.toStdU16String(), goesOn);
  };
  steps.onEditGivenUp = [this] { logic_->OnEditGivenUp(); };
}

void StepTableWindow::PlaceBesideOwner() {
  const QRect main = owner_.Window().frameGeometry();
  const QRect screen = owner_.Window().screen()->availableGeometry();
  const int width = frame_->width();
  const bool hasRoomRight = main.x() + main.width() + width <= screen.x() + screen.width();
  const bool hasRoomLeft = main.x() - width >= screen.x();
  const int right = std::min(main.x() + main.width(), screen.x() + screen.width() - width);
  frame_->move(hasRoomRight || !hasRoomLeft ? right : main.x() - width, std::max(main.y(), screen.y()));
}

bool StepTableWindow::IsOpen() const {
  return frame_ != nullptr && frame_->isVisible();
}

// The port

void StepTableWindow::Open() {
  if (frame_ == nullptr) Create();
  if (!IsOpen()) {
    for (SheetView* const sheet : sheets_) sheet->SetRows({});
    tabs_->setCurrentIndex(0);
    PlaceBesideOwner();
  }
  frame_->show();
  frame_->raise();
  frame_->activateWindow();
  tabs_->currentWidget()->setFocus();
}

void StepTableWindow::Close() {
  if (!IsOpen()) return;
  Sheet(app::TableSheet::Steps).DropEditor();
  frame_->hide();
}

void StepTableWindow::SetTitle(std::u16string_view title) {
  if (!IsOpen()) return;
  // Else Qt takes it for the place of its mark of a changed document.
  QString shown = QtText(title);
  frame_->setWindowTitle(shown.replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

void StepTableWindow::SetHeadings(app::TableSheet sheet, std::u16string_view name,
                                  const app::TableRow& columns) {
  if (!IsOpen()) return;
  QString label = QtText(name);
  Sheet(sheet).setAccessibleName(label);
  // A lone "&" would mark a letter as a key.
  tabs_->setTabText(static_cast<int>(sheet), label.replace(QLatin1Char('&'), QLatin1String("&&")));
  Sheet(sheet).SetColumns(columns);
}

void StepTableWindow::SetRows(app::TableSheet sheet, const std::vector<app::TableRow>& rows) {
  if (IsOpen()) Sheet(sheet).SetRows(rows);
}

void StepTableWindow::SetSelection(const app::TableSelection& selection) {
  if (IsOpen()) Sheet(app::TableSheet::Steps).SetSelection(selection);
}

void StepTableWindow::SetFault(std::u16string_view text) {
  if (!IsOpen() || QtText(text) == fault_->text()) return;
  fault_->setText(QtText(text));
  fault_->setVisible(!text.empty());
  if (text.empty()) return;
  QAccessibleEvent alert(fault_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void StepTableWindow::SetClipboard(std::u16string_view text) {
  QGuiApplication::clipboard()->setText(QtText(text));
}

std::u16string StepTableWindow::Clipboard() const {
  return QGuiApplication::clipboard()->text().toStdU16String();
}

}  // namespace qt
