#include "platform/qt/desktop/open_dialog.h"

#include <QDateTimeEdit>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QUrl>

#include <algorithm>

#include "platform/qt/desktop/control_widgets.h"
#include "platform/qt/desktop/date_times.h"
#include "platform/qt/desktop/dialog_units.h"
#include "platform/qt/desktop/message_box.h"
#include "platform/qt/desktop/resource_ids.h"
#include "platform/qt/desktop/rows.h"
#include "platform/qt/desktop/svg_picture.h"
#include "platform/qt/desktop/text.h"
#include "platform/qt/desktop/text_fields.h"

namespace qt {

namespace {

using dialogs::ControlKind;
namespace trait = dialogs::trait;

constexpr int kIconSide = 32;

void ShowIcon(QWidget& widget) {
  const std::optional<SvgPicture> icon = SvgPicture::Load(resource::kIcon);
  if (icon) {
    static_cast<QLabel&>(widget).setPixmap(
        icon->AsPixmap({kIconSide, kIconSide}, widget.devicePixelRatioF()));
  }
  widget.resize(kIconSide, kIconSide);
}

}  // namespace

// The window.
class OpenDialog::Frame final : public QDialog {
 public:
  Frame(OpenDialog& dialog, QWidget& owner) : QDialog(owner.window()), dialog_(dialog) {}

  // The Escape key, and the frame's own button.
  void reject() override { dialog_.Notify(dialogs::kCancel, dialogs::kClicked); }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      dialog_.PressEnter();
    } else {
      QDialog::keyPressEvent(event);
    }
  }

  void customEvent(QEvent* event) override {
    if (event->type() != PostedEvent::Kind() || dialog_.ended_) return;
    dialog_.dialog_.OnEvent(dialog_, static_cast<const PostedEvent&>(*event).event);
  }

 private:
  OpenDialog& dialog_;
};

OpenDialog::OpenDialog(const dialogs::DialogTemplate& row, dialogs::DlgBase& dialog, QWidget& owner)
    : template_(row),
      dialog_(dialog),
      owner_(owner),
      frame_(std::make_unique<Frame>(*this, owner)),
      target_(std::make_shared<Mailbox>(*frame_)) {
  frame_->setObjectName(QStringLiteral("dialog-%1").arg(row.number));
  frame_->setFont(ControlFont());
  MakeControls();
}

OpenDialog::~OpenDialog() {
  target_->Close();
}

void OpenDialog::MakeControls() {
  const DialogUnits units(frame_->fontMetrics());
  frame_->setWindowTitle(QtText(template_.title));
  frame_->setFixedSize(units.Pixels(template_.place).size());
  MoveTo(template_.place.x, template_.place.y);
  QWidget* before = nullptr;
  for (const dialogs::ControlTemplate& row : template_.controls) {
    QWidget* const widget = MakeControl(row, frame_.get());
    if (row.id != dialogs::kNoControl) widget->setObjectName(QStringLiteral("item-%1").arg(row.id));
    // A list that is let down finds its height by itself.
    widget->setGeometry(units.Pixels(row.place.In(0, 0), row.kind));
    SetControlText(*widget, row, QtText(row.text));
    if (row.kind == ControlKind::ProgramIcon) ShowIcon(*widget);
    if (Has(row, trait::kNoTabStop)) widget->setFocusPolicy(Qt::ClickFocus);
    if (before != nullptr) QWidget::setTabOrder(before, widget);
    before = widget;
    Connect(row, *widget);
  }
}

void OpenDialog::Connect(const dialogs::ControlTemplate& row, QWidget& widget) {
  const auto notify = [this, id = row.id](int code) { return [this, id, code] { Notify(id, code); }; };
  if (auto* const button = qobject_cast<QPushButton*>(&widget)) {
    QObject::connect(button, &QPushButton::clicked, button, notify(dialogs::kClicked));
  } else if (auto* const line = qobject_cast<QLineEdit*>(&widget)) {
    QObject::connect(line, &QLineEdit::textChanged, line, notify(dialogs::kTextChanged));
  } else if (auto* const lines = qobject_cast<QPlainTextEdit*>(&widget)) {
    QObject::connect(lines, &QPlainTextEdit::textChanged, lines, notify(dialogs::kTextChanged));
  } else {
    ConnectSelection(widget, notify(dialogs::kSelectionChanged));
  }
}

void OpenDialog::Notify(int control, int code) {
  if (!ended_) dialog_.OnCommand(*this, control, code);
}

void OpenDialog::PressEnter() {
  if (auto* const focused = qobject_cast<QPushButton*>(frame_->focusWidget())) return focused->click();
  const auto standard = std::ranges::find_if(
      template_.controls, [](const dialogs::ControlTemplate& row) { return Has(row, trait::kDefault); });
  if (standard == template_.controls.end()) return Notify(dialogs::kOk, dialogs::kClicked);
  As<QPushButton>(standard->id)->click();  // nothing if it is disabled
}

int OpenDialog::Run() {
  dialog_.OnInit(*this);
  if (ended_) return frame_->result();
  NameFields();
  if (!focusGiven_) FocusFirst();
  KeepOnScreen();
  return frame_->exec();
}

// A field has no words of its own: the label or heading before it names it to screen readers, or else the
// title.
void OpenDialog::NameFields() {
  QString words = frame_->windowTitle();
  for (const dialogs::ControlTemplate& row : template_.controls) {
    QWidget* const widget = Item(row.id);
    if (widget == nullptr || row.kind == ControlKind::Button || row.kind == ControlKind::ProgramIcon)
      continue;
    if (row.kind == ControlKind::Label || row.kind == ControlKind::GroupBox) {
      const QString shown = QtText(ControlText(widget));
      words = row.kind == ControlKind::GroupBox ? WithoutMnemonics(shown) : shown;
    } else {
      widget->setAccessibleName(words);
    }
  }
}

void OpenDialog::FocusFirst() {
  for (const dialogs::ControlTemplate& row : template_.controls) {
    QWidget* const widget = Item(row.id);
    const bool isStop = widget != nullptr && (widget->focusPolicy() & Qt::TabFocus) != 0;
    if (!isStop || !widget->isEnabled() || widget->isHidden()) continue;
    widget->setFocus(Qt::TabFocusReason);
    return;
  }
}

void OpenDialog::KeepOnScreen() {
  const QRect screen = owner_.screen()->availableGeometry();
  const QRect place = frame_->frameGeometry();
  frame_->move(std::max(screen.left(), std::min(place.left(), screen.right() + 1 - place.width())),
               std::max(screen.top(), std::min(place.top(), screen.bottom() + 1 - place.height())));
}

QWidget* OpenDialog::Item(int control) const {
  return frame_->findChild<QWidget*>(QStringLiteral("item-%1").arg(control), Qt::FindDirectChildrenOnly);
}

template <class Widget>
Widget* OpenDialog::As(int control) const {
  return dynamic_cast<Widget*>(Item(control));
}

const dialogs::ControlTemplate& OpenDialog::RowOf(int control) const {
  return *std::ranges::find(template_.controls, control, &dialogs::ControlTemplate::id);
}

// The port

void OpenDialog::MoveTo(std::int32_t x, std::int32_t y) {
  frame_->move(owner_.mapToGlobal(QPoint(x, y)));
}

void OpenDialog::MoveBeside(const Rect& area) {
  const QRect screen = owner_.screen()->availableGeometry();
  const QPoint corner = owner_.mapToGlobal(QPoint(area.x, area.y));
  // The frame that the window manager will put round it is not known yet; it has that of the main window.
  const QSize edges = owner_.window()->frameGeometry().size() - owner_.window()->size();
  const Position place = dialogs::PlaceBeside(
      {corner.x(), corner.y(), area.width, area.height}, frame_->width() + edges.width(),
      frame_->height() + edges.height(), {screen.x(), screen.y(), screen.width(), screen.height()});
  frame_->move(place.x, place.y);
}

void OpenDialog::SetTitle(std::u16string_view title) {
  frame_->setWindowTitle(QtText(title));
}

void OpenDialog::SetText(int control, std::u16string_view text) {
  if (QWidget* const widget = Item(control)) SetControlText(*widget, RowOf(control), QtLines(text));
}

std::u16string OpenDialog::Text(int control, std::size_t units) const {
  std::u16string text = ControlText(Item(control));
  text.resize(std::min(text.size(), units == 0 ? 0 : units - 1));
  return text;
}

void OpenDialog::SetEnabled(int control, bool enabled) {
  if (QWidget* const widget = Item(control)) widget->setEnabled(enabled);
}

void OpenDialog::Hide(int control) {
  if (QWidget* const widget = Item(control)) widget->hide();
}

void OpenDialog::GiveFocus(int control) {
  focusGiven_ = true;
  if (QWidget* const widget = Item(control)) widget->setFocus(Qt::TabFocusReason);
}

void OpenDialog::LimitText(int control, std::int32_t units) {
  if (auto* const line = As<LineField>(control)) line->LimitText(units);
  if (auto* const lines = As<LinesField>(control)) lines->LimitText(units);
}

void OpenDialog::AcceptDigitsOnly(int control) {
  if (auto* const line = As<LineField>(control)) line->AcceptDigitsOnly();
}

void OpenDialog::SetTabStops(int control, std::int32_t first, std::int32_t step) {
  auto* const lines = As<LinesField>(control);
  if (lines == nullptr) return;
  const DialogUnits units(frame_->fontMetrics());
  const auto pixels = [&](std::int32_t place) { return units.Pixels(Rect{0, 0, place, 0}).width(); };
  lines->SetTabStops(pixels(first), pixels(step));
}

void OpenDialog::ClearRows(int control) {
  if (Item(control) != nullptr) Rows(*Item(control)).Clear();
}

void OpenDialog::AddRow(int control, std::u16string_view text, std::int32_t data) {
  if (Item(control) == nullptr) return;
  Rows(*Item(control)).Add(QtText(text), data, Has(RowOf(control), trait::kSorted));
}

int OpenDialog::RowCount(int control) const {
  return Item(control) == nullptr ? 0 : Rows(*Item(control)).Count();
}

void OpenDialog::SelectRow(int control, int row) {
  if (Item(control) != nullptr) Rows(*Item(control)).Select(row);
}

void OpenDialog::SelectText(int control, std::u16string_view text) {
  if (Item(control) == nullptr) return;
  const int row = Rows(*Item(control)).Find(QtText(text));
  if (row >= 0) SelectRow(control, row);
}

std::int32_t OpenDialog::SelectedData(int control) const {
  return Item(control) == nullptr ? -1 : Rows(*Item(control)).SelectedData();
}

void OpenDialog::SetDateTime(int control, const DateTime& time, std::u16string_view format) {
  if (auto* const picker = As<QDateTimeEdit>(control)) ShowDateTime(*picker, time, QtText(format));
}

DateTime OpenDialog::GetDateTime(int control) const {
  const auto* const picker = As<QDateTimeEdit>(control);
  return picker == nullptr ? DateTime{} : ReadDateTime(*picker);
}

void OpenDialog::Tell(std::u16string_view title, std::u16string_view text, dialogs::Icon icon) {
  ShowMessage(frame_.get(), title, text, icon, QMessageBox::Ok);
}

void OpenDialog::OpenLink(std::u16string_view target) {
  QDesktopServices::openUrl(QUrl(QtText(target), QUrl::TolerantMode));
}

void OpenDialog::End(int result) {
  ended_ = true;
  target_->Close();
  frame_->done(result);
}

}  // namespace qt
