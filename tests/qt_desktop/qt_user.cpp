#include "tests/qt_desktop/qt_user.h"

#include <gtest/gtest.h>
#include <qpa/qplatformdrag.h>
#include <qpa/qwindowsysteminterface.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QUrl>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <map>
#include <thread>

#include "app/window/numbers.h"
#include "common/files.h"
#include "tests/qt_desktop/bars.h"
#include "tests/qt_desktop/dialog_user.h"
#include "tests/qt_desktop/dialogs.h"
#include "tests/qt_desktop/gui_thread.h"
#include "tests/qt_desktop/input.h"
#include "tests/qt_desktop/menus.h"
#include "tests/qt_desktop/texts.h"
#include "tests/support/patience.h"

namespace qt_desktop {

namespace {

using app::Control;

constexpr int kWheelNotch = 120;

// Those of app::key that are no letters or digits.
const std::map<int, Qt::Key> kKeys = {
    {app::key::kBackspace, Qt::Key_Backspace},
    {app::key::kEnter, Qt::Key_Return},
    {app::key::kEscape, Qt::Key_Escape},
    {app::key::kPageUp, Qt::Key_PageUp},
    {app::key::kPageDown, Qt::Key_PageDown},
    {app::key::kEnd, Qt::Key_End},
    {app::key::kHome, Qt::Key_Home},
    {app::key::kLeft, Qt::Key_Left},
    {app::key::kUp, Qt::Key_Up},
    {app::key::kRight, Qt::Key_Right},
    {app::key::kDown, Qt::Key_Down},
    {app::key::kInsert, Qt::Key_Insert},
    {app::key::kDelete, Qt::Key_Delete},
    {app::key::kF1, Qt::Key_F1},
    {app::key::kF2, Qt::Key_F2},
};
const std::map<int, Qt::Key> kKeypad = {
    {app::key::kNumpadMultiply, Qt::Key_Asterisk},
    {app::key::kNumpadAdd, Qt::Key_Plus},
    {app::key::kNumpadSubtract, Qt::Key_Minus},
};

// What moves a slider or the scroll bar, by the code of the event.
const std::map<int, Qt::Key> kScrollKeys = {
    {app::scroll::kLineBack, Qt::Key_Left},   {app::scroll::kLineForward, Qt::Key_Right},
    {app::scroll::kPageBack, Qt::Key_PageUp}, {app::scroll::kPageForward, Qt::Key_PageDown},
    {app::scroll::kFirst, Qt::Key_Home},      {app::scroll::kLast, Qt::Key_End},
};

Qt::Key KeyOf(int key) {
  const auto found = kKeys.find(key);
  return found == kKeys.end() ? Qt::Key(key) : found->second;
}

QMainWindow* FindWindow() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->objectName() == "main-window") return qobject_cast<QMainWindow*>(window);
  }
  return nullptr;
}

bool WindowStands() {
  const QMainWindow* const window = FindWindow();
  return window != nullptr && window->isVisible();
}

}  // namespace

QtUser::~QtUser() {
  EXPECT_TRUE(answers_.empty()) << "a question that was expected did not come up";
  EXPECT_TRUE(picks_.empty()) << "a file dialog that was expected did not come up";
  EXPECT_TRUE(fills_.empty()) << "a dialog that was expected did not come up";
}

// The program's life

void QtUser::StartWith(std::vector<std::filesystem::path> files) {
  program_.reset();
  program_ = std::make_unique<ProgramUnderTest>(folders_, files);
  ASSERT_TRUE(WaitUntil([this] {
    Settle();
    return program_->HasStarted() || program_->HasEnded();
  })) << "the program does not start";
  ASSERT_FALSE(program_->HasEnded()) << "the program has ended";
  Settle();
}

bool QtUser::IsRunning() {
  if (program_ == nullptr || program_->HasEnded()) return false;
  if (FromGui(WindowStands)) return true;
  // Which may take a moment without its window.
  EXPECT_TRUE(WaitUntil([this] { return program_->HasEnded(); })) << "the program does not end";
  return !program_->HasEnded();
}

void QtUser::Close() {
  InGui([this] {
    QWindowSystemInterface::handleCloseEvent<QWindowSystemInterface::AsynchronousDelivery>(
        Window().windowHandle());
  });
  Settle();
  if (!FromGui(WindowStands)) {
    EXPECT_TRUE(WaitUntil([this] { return program_->HasEnded(); })) << "the program does not end";
  }
}

void QtUser::Settle() {
  // Twice: what was worked off may have posted more.
  for (int round = 0; round < 2; ++round) {
    input::GiveKeysToAWindow();
    AwaitGui();
    if (QDialog* const dialog = FromGui(dialogs::InFront)) {
      const QPointer<QDialog> open = FromGui([&] { return QPointer<QDialog>(dialog); });
      AnswerDialog(*dialog);
      ASSERT_TRUE(WaitUntil([&] { return FromGui([&] { return open.isNull() || !open->isVisible(); }); }))
          << "the dialog stays";
      round = -1;
    }
  }
}

// Questions

void QtUser::AnswerDialog(QDialog& dialog) {
  if (dialogs::IsFileDialog(dialog)) {
    AnswerFileDialog(dialog);
  } else if (dialogs::IsMessageBox(dialog)) {
    AnswerMessageBox(dialog);
  } else {
    FillDialog(dialog);
  }
}

void QtUser::Improvise(QDialog& dialog) {
  const QPointer<QDialog> open = FromGui([&] { return QPointer<QDialog>(&dialog); });
  DialogUser user(dialog);
  while (FromGui([&] { return !open.isNull() && open->isVisible(); })) {
    if (QDialog* const front = FromGui(dialogs::InFront); front != nullptr && front != &dialog) {
      AnswerMessageBox(*front);
    } else if (const DialogStep step = improviser_->NextStep(user.See());
               step.kind == DialogStep::Kind::Await) {
      step.until(user.See());
    } else {
      user.Do(step);
    }
    AwaitGui();
  }
}

void QtUser::FillDialog(QDialog& dialog) {
  if (fills_.empty() && improviser_ != nullptr) return Improvise(dialog);
  DialogUser user(dialog);
  seenDialogs_.push_back(user.See());
  DialogScript script = {in_dialog::PressEscape()};
  if (fills_.empty()) {
    ADD_FAILURE() << "nobody fills \"" << seenDialogs_.back().title << '"';
  } else {
    script = std::move(fills_.front());
    fills_.pop_front();
  }
  const auto inFront = [] { return FromGui(dialogs::InFront); };
  for (const DialogStep& step : script) {
    QDialog* const front = inFront();
    ASSERT_NE(front, nullptr) << "closed before the script's end";
    if (step.kind == DialogStep::Kind::Look) {
      seenDialogs_.push_back(user.See());
    } else if (step.kind == DialogStep::Kind::Await) {
      EXPECT_TRUE(WaitUntil([&] {
        if (QDialog* const box = inFront(); box != &dialog && box != nullptr) AnswerMessageBox(*box);
        return step.until(user.See());
      })) << "what is waited for does not come";
    } else {
      user.Do(step);
    }
  }
}

void QtUser::AnswerMessageBox(QDialog& box) {
  asked_.push_back(dialogs::ReadMessageBox(box));
  if (onQuestion) InGui([&] { onQuestion(dynamic_cast<QMessageBox&>(box)); });
  if (answers_.empty() && improviser_ != nullptr)
    return dialogs::Answer(box, improviser_->Answer(asked_.back()));
  if (answers_.empty()) {
    ADD_FAILURE() << "nobody answers \"" << asked_.back().text.size() << "\"";
    dialogs::Answer(box, asked_.back().buttons == app::Buttons::Ok ? app::Answer::Ok : app::Answer::No);
    return;
  }
  dialogs::Answer(box, answers_.front());
  answers_.pop_front();
}

void QtUser::AnswerFileDialog(QDialog& dialog) {
  if (picks_.empty() && improviser_ != nullptr) return dialogs::Pick(dialog, improviser_->Pick());
  if (picks_.empty()) {
    ADD_FAILURE() << "nobody picks a file";
    dialogs::Pick(dialog, {});
    return;
  }
  dialogs::Pick(dialog, picks_.front());
  picks_.pop_front();
}

// The windows

QMainWindow& QtUser::Window() const {
  return *FindWindow();
}

QWidget& QtUser::Widget(Control control) const {
  return *Window().findChild<QWidget*>("control-" + QString::number(static_cast<int>(control)));
}

QPlainTextEdit& QtUser::LogPane() const {
  return dynamic_cast<QPlainTextEdit&>(Widget(Control::LogPane));
}

QListWidget& QtUser::ListWidget(Control list) const {
  return dynamic_cast<QListWidget&>(Widget(list));
}

QAbstractSlider& QtUser::Bar(Control bar) const {
  return dynamic_cast<QAbstractSlider&>(Widget(bar));
}

QPoint QtUser::OnScreen(Control control, int x, int y) const {
  return FromGui([&] { return Widget(control).mapToGlobal(QPoint(x, y)); });
}

QPoint QtUser::MiddleOf(Control control) const {
  return FromGui([&] { return dialogs::MiddleOf(Widget(control)); });
}

QPoint QtUser::RowPoint(Control list, int row) const {
  return FromGui([&] {
    const QListWidget& widget = ListWidget(list);
    return widget.viewport()->mapToGlobal(widget.visualItemRect(widget.item(row)).center());
  });
}

// Doing

bool QtUser::Choose(int command) {
  MenuPath path(command, [this] { return Window().menuBar(); });
  if (path.Open() && path.Look().enabled) {
    path.Click();
    Settle();
    return true;
  }
  LeaveMenu();
  return false;
}

User::Item QtUser::MenuItem(int command) {
  MenuPath path(command, [this] { return Window().menuBar(); });
  path.Open();
  const Item item = path.Look();
  LeaveMenu();
  return item;
}

void QtUser::LeaveMenu() {
  EXPECT_TRUE(menus::Leave());
  Settle();
}

void QtUser::PressKey(int key, bool ctrl) {
  if (ctrl) input::HoldKey(Qt::Key_Control);
  if (const auto found = kKeypad.find(key); found != kKeypad.end()) {
    input::PressKeypad(found->second);
  } else {
    input::PressKey(KeyOf(key));
  }
  if (ctrl) input::ReleaseKey(Qt::Key_Control);
  Settle();
}

void QtUser::HoldKey(int key, int times) {
  input::RepeatKey(KeyOf(key), times);
  Settle();
}

void QtUser::Press(Control button) {
  input::Click(MiddleOf(button));
  Settle();
}

void QtUser::ClickRow(Control list, int row) {
  input::Click(RowPoint(list, row));
  Settle();
}

void QtUser::CtrlClickRow(Control list, int row) {
  input::HoldKey(Qt::Key_Control);
  input::Click(RowPoint(list, row));
  input::ReleaseKey(Qt::Key_Control);
  Settle();
}

void QtUser::DoubleClickRow(Control list, int row) {
  input::DoubleClick(RowPoint(list, row));
  Settle();
}

void QtUser::Scroll(Control bar, int code, int position) {
  if (!IsEnabled(bar)) return;
  if (bar == Control::ScrollBar && (code == app::scroll::kLineBack || code == app::scroll::kLineForward)) {
    const QPoint arrow =
        FromGui([&] { return bars::ArrowOf(Bar(bar), code == app::scroll::kLineForward).center(); });
    input::Click(OnScreen(bar, arrow.x(), arrow.y()));
  } else if (const auto key = kScrollKeys.find(code); key != kScrollKeys.end()) {
    // Not through the application, whose keys take most of these.
    InGui([&, key = key->second] {
      for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        static_cast<QObject&>(Bar(bar)).event(&event);
      }
    });
  } else if (code == app::scroll::kThumbMoving) {
    HoldThumb(bar);
    const QPoint place = FromGui([&] { return bars::ThumbPointAt(Bar(bar), position); });
    input::MoveMouse(OnScreen(bar, place.x(), place.y()));
  } else if (std::exchange(holdsThumb_, false)) {
    input::ReleaseButton(Qt::LeftButton);
  }
  Settle();
}

void QtUser::HoldThumb(Control bar) {
  if (std::exchange(holdsThumb_, true)) return;
  const QPoint thumb = FromGui([&] { return bars::ThumbOf(Bar(bar)).center(); });
  input::MoveMouse(OnScreen(bar, thumb.x(), thumb.y()));
  input::HoldButton(Qt::LeftButton);
  Settle();
}

void QtUser::ClickBesideThumb(Control bar, Side side) {
  const QPoint place = FromGui([&] {
    const QRect thumb = bars::ThumbOf(Bar(bar));
    const QRect groove = bars::GrooveOf(Bar(bar));
    return QPoint(
        side == Side::Before ? (groove.left() + thumb.left()) / 2 : (thumb.right() + groove.right()) / 2,
        thumb.center().y());
  });
  input::Click(OnScreen(bar, place.x(), place.y()));
  Settle();
}

void QtUser::DragThumb(Control bar, int toX) {
  const QPoint from = FromGui([&] { return bars::ThumbOf(Bar(bar)).center(); });
  HoldThumb(bar);
  for (const int part : {1, 2, 3}) {
    input::MoveMouse(OnScreen(bar, from.x() + (toX - from.x()) * part / 3, from.y()));
    Settle();
  }
  holdsThumb_ = false;
  input::ReleaseButton(Qt::LeftButton);
  Settle();
}

std::pair<int, int> QtUser::ScrollBar() {
  return FromGui([this] {
    const QAbstractSlider& bar = Bar(Control::ScrollBar);
    return std::pair(bar.pageStep(), bar.sliderPosition());
  });
}

void QtUser::MoveMouse(int x, int y) {
  input::MoveMouse(OnScreen(Control::ChartWindow, x, y));
  Settle();
}

void QtUser::HoldModifiers(const app::HeldKeys& keys) {
  const auto hold = [](Qt::Key key, bool was, bool is) {
    if (is && !was) input::HoldKey(key);
    if (was && !is) input::ReleaseKey(key);
  };
  hold(Qt::Key_Control, heldKeys_.ctrl, keys.ctrl);
  hold(Qt::Key_Shift, heldKeys_.shift, keys.shift);
  heldKeys_ = keys;
  Settle();
}

void QtUser::HoldButton() {
  input::HoldButton(Qt::LeftButton);
  Settle();
}

void QtUser::ReleaseButton() {
  input::ReleaseButton(Qt::LeftButton);
  Settle();
}

void QtUser::DoubleClickChart(int x, int y) {
  input::DoubleClick(OnScreen(Control::ChartWindow, x, y));
  Settle();
}

bool QtUser::OpenChartMenu(int x, int y) {
  input::Click(OnScreen(Control::ChartWindow, x, y), Qt::RightButton);
  Settle();
  return FromGui([] { return QApplication::activePopupWidget() != nullptr; });
}

void QtUser::EnterMenuBar() {
  input::PressKey(Qt::Key_Alt);
  Settle();
}

void QtUser::PressAltSlash(bool shift) {
  input::HoldKey(Qt::Key_Alt);
  if (shift) input::HoldKey(Qt::Key_Shift);
  input::PressKey(shift ? Qt::Key_Question : Qt::Key_Slash);
  if (shift) input::ReleaseKey(Qt::Key_Shift);
  input::ReleaseKey(Qt::Key_Alt);
  Settle();
}

void QtUser::TakeCapture() {
  InGui([this] {
    for (QWindow* const window : {static_cast<QWindow*>(nullptr), Window().windowHandle()}) {
      QWindowSystemInterface::handleWindowActivated<QWindowSystemInterface::AsynchronousDelivery>(window);
    }
  });
  Settle();
}

void QtUser::RightClickChart(int x, int y) {
  if (OpenChartMenu(x, y)) LeaveMenu();
}

bool QtUser::ChooseAtChart(int x, int y, int command) {
  if (!OpenChartMenu(x, y)) return false;
  MenuPath path(command, [] { return QApplication::activePopupWidget(); });
  if (path.Open() && path.Look().enabled) {
    path.Click();
    Settle();
    return true;
  }
  LeaveMenu();
  return false;
}

void QtUser::TurnWheel(int x, int y, int notches, bool ctrl, bool shift) {
  if (shift) input::HoldKey(Qt::Key_Shift);
  const auto count = static_cast<std::size_t>(std::abs(notches));
  TurnWheelBy(x, y, std::vector<int>(count, notches > 0 ? kWheelNotch : -kWheelNotch), ctrl);
  if (shift) input::ReleaseKey(Qt::Key_Shift);
  Settle();
}

void QtUser::TurnWheelBy(int x, int y, const std::vector<int>& eighths, bool ctrl) {
  if (ctrl) input::HoldKey(Qt::Key_Control);
  input::MoveMouse(OnScreen(Control::ChartWindow, x, y));
  for (const int angle : eighths) input::TurnWheel(angle);
  if (ctrl) input::ReleaseKey(Qt::Key_Control);
  Settle();
}

void QtUser::DropFiles(std::vector<std::filesystem::path> files) {
  PostToGui([this, files = std::move(files)] {
    QMimeData data;
    QList<QUrl> urls;
    for (const std::filesystem::path& file : files) {
      urls.push_back(QUrl::fromLocalFile(QString::fromStdString(Utf8FromPath(file))));
    }
    data.setUrls(urls);
    QWindow* const window = Window().windowHandle();
    const QPoint place = Widget(Control::ChartWindow).mapTo(&Window(), QPoint(20, 20));
    if (QWindowSystemInterface::handleDrag(window, &data, place, Qt::CopyAction, Qt::LeftButton, {})
            .isAccepted()) {
      QWindowSystemInterface::handleDrop(window, &data, place, Qt::CopyAction, {}, {});
    }
  });
  Settle();
}

void QtUser::ClickBackground() {
  input::Click(FromGui([this] { return Window().centralWidget()->mapToGlobal(QPoint(4, 4)); }));
  Settle();
}

void QtUser::Resize(int width, int height) {
  InGui([&] {
    // As a window manager does, which knows the least size.
    const QSize inside = Window().centralWidget()->size();
    const QSize frame = Window().size() - inside;
    QWindow* const window = Window().windowHandle();
    window->resize((QSize(width, height) + frame).expandedTo(window->minimumSize()));
  });
  Settle();
}

void QtUser::Maximize() {
  InGui([this] { Window().windowHandle()->setWindowStates(Qt::WindowMaximized); });
  Settle();
}

void QtUser::Minimize() {
  InGui([this] {
    QWindow* const window = Window().windowHandle();
    window->setWindowStates(window->windowStates() | Qt::WindowMinimized);
  });
  Settle();
}

void QtUser::Restore() {
  InGui([this] {
    QWindow* const window = Window().windowHandle();
    const Qt::WindowStates states = window->windowStates();
    const bool isMinimized = states.testFlag(Qt::WindowMinimized);
    window->setWindowStates(isMinimized ? states & ~Qt::WindowMinimized : Qt::WindowStates());
  });
  Settle();
}

void QtUser::Wait(double seconds) {
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  Settle();
}

bool QtUser::WaitForLog(const std::string& text) {
  return WaitUntil([&] { return Log().find(text) != std::string::npos; });
}

}  // namespace qt_desktop
