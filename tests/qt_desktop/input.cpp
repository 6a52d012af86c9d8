#include "tests/qt_desktop/input.h"

#include <qpa/qwindowsysteminterface.h>

#include <QGuiApplication>
#include <QPointer>
#include <QStyleHints>
#include <QWindow>

#include <map>

#include "tests/qt_desktop/gui_thread.h"

namespace qt_desktop::input {

namespace {

using Async = QWindowSystemInterface::AsynchronousDelivery;

// What a window system keeps of its devices. Of the windows' thread.
struct Devices {
  QPoint mouse;
  QPointer<QWindow> under;    // the mouse
  QPointer<QWindow> grabber;  // while a button is held, the window that it was pressed over
  Qt::MouseButtons buttons;
  Qt::KeyboardModifiers modifiers;
  ulong time = 0;  // in milliseconds
};
Devices devices;

Qt::KeyboardModifier ModifierOf(Qt::Key key) {
  static const std::map<Qt::Key, Qt::KeyboardModifier> kModifiers = {{Qt::Key_Control, Qt::ControlModifier},
                                                                     {Qt::Key_Shift, Qt::ShiftModifier},
                                                                     {Qt::Key_Alt, Qt::AltModifier}};
  const auto found = kModifiers.find(key);
  return found == kModifiers.end() ? Qt::NoModifier : found->second;
}

// What the key writes, as X11 tells it.
QString TextOf(Qt::Key key) {
  static const std::map<Qt::Key, QString> kTexts = {{Qt::Key_Return, "\r"},
                                                    {Qt::Key_Escape, "\x1b"},
                                                    {Qt::Key_Tab, "\t"},
                                                    {Qt::Key_Backspace, "\b"},
                                                    {Qt::Key_Delete, "\x7f"}};
  if (const auto found = kTexts.find(key); found != kTexts.end()) return found->second;
  if (key > Qt::Key_AsciiTilde) return {};
  const QChar letter(static_cast<char16_t>(key));
  if (devices.modifiers.testFlag(Qt::ControlModifier)) return QChar(static_cast<char16_t>(key & 0x1F));
  return devices.modifiers.testFlag(Qt::ShiftModifier) ? letter : letter.toLower();
}

// Where keys go. A window manager gives them to another window when the one that had them has gone.
QWindow* KeyWindow() {
  if (QWindow* const window = QGuiApplication::focusWindow(); window != nullptr && window->isVisible())
    return window;
  QWindow* top = QGuiApplication::modalWindow();
  for (QWindow* const window : QGuiApplication::topLevelWindows()) {
    if (top == nullptr && window->isVisible() && window->type() == Qt::Window) top = window;
  }
  if (top != nullptr) QWindowSystemInterface::handleWindowActivated<Async>(top);
  return top;
}

void SendKey(QEvent::Type type, Qt::Key key, const QString& text, bool isRepeat = false,
             Qt::KeyboardModifiers more = {}) {
  QWindow* const window = KeyWindow();
  if (window == nullptr) return;
  QWindowSystemInterface::handleKeyEvent<Async>(window, type, key, devices.modifiers | more, text, isRepeat);
}

void SendBoth(Qt::Key key, const QString& text, Qt::KeyboardModifiers more = {}) {
  SendKey(QEvent::KeyPress, key, text, false, more);
  SendKey(QEvent::KeyRelease, key, text, false, more);
}

void Hold(Qt::Key key) {
  SendKey(QEvent::KeyPress, key, TextOf(key));
  devices.modifiers |= ModifierOf(key);
}

void Release(Qt::Key key) {
  devices.modifiers &= ~Qt::KeyboardModifiers(ModifierOf(key));
  SendKey(QEvent::KeyRelease, key, TextOf(key));
}

QWindow* MouseWindow() {
  return devices.grabber != nullptr ? devices.grabber.data() : devices.under.data();
}

void SendMouse(QEvent::Type type, Qt::MouseButton button = Qt::NoButton) {
  QWindow* const window = MouseWindow();
  if (window == nullptr) return;
  QWindowSystemInterface::handleMouseEvent<Async>(window, ++devices.time,
                                                  window->mapFromGlobal(devices.mouse), devices.mouse,
                                                  devices.buttons, button, type, devices.modifiers);
}

void LookUnderMouse() {
  QWindow* const window = QGuiApplication::topLevelAt(devices.mouse);
  if (window == devices.under) return;
  QWindowSystemInterface::handleEnterLeaveEvent(
      window, devices.under, window ? window->mapFromGlobal(devices.mouse) : QPoint(), devices.mouse);
  devices.under = window;
}

void Move(const QPoint& point) {
  devices.mouse = point;
  if (devices.buttons == Qt::NoButton) LookUnderMouse();
  SendMouse(QEvent::MouseMove);
}

// A window manager gives the keys to a window that is pressed, unless another waits for an answer.
void GiveKeysTo(QWindow* window) {
  if (window == nullptr || window->type() != Qt::Window || QGuiApplication::modalWindow() != nullptr) return;
  if (window != QGuiApplication::focusWindow()) QWindowSystemInterface::handleWindowActivated<Async>(window);
}

void HoldOne(Qt::MouseButton button) {
  // A window may have come up under the mouse.
  if (devices.buttons == Qt::NoButton) {
    LookUnderMouse();
    devices.grabber = devices.under;
    GiveKeysTo(devices.under);
  }
  devices.buttons |= button;
  SendMouse(QEvent::MouseButtonPress, button);
}

void ReleaseOne(Qt::MouseButton button) {
  devices.buttons &= ~Qt::MouseButtons(button);
  SendMouse(QEvent::MouseButtonRelease, button);
  if (devices.buttons == Qt::NoButton) devices.grabber = nullptr;
}

// The next press is no second click of this one.
void LetTimePass() {
  devices.time += static_cast<ulong>(QGuiApplication::styleHints()->mouseDoubleClickInterval()) + 1;
}

}  // namespace

void GiveKeysToAWindow() {
  InGui([] { KeyWindow(); });
}

void HoldKey(Qt::Key key) {
  InGui([=] { Hold(key); });
}

void ReleaseKey(Qt::Key key) {
  InGui([=] { Release(key); });
}

void PressKey(Qt::Key key) {
  InGui([=] { SendBoth(key, TextOf(key)); });
}

void PressKeypad(Qt::Key key) {
  InGui([=] { SendBoth(key, TextOf(key), Qt::KeypadModifier); });
}

void RepeatKey(Qt::Key key, int times) {
  InGui([=] {
    SendKey(QEvent::KeyPress, key, TextOf(key));
    for (int i = 1; i < times; ++i) {
      SendKey(QEvent::KeyRelease, key, TextOf(key), true);
      SendKey(QEvent::KeyPress, key, TextOf(key), true);
    }
    SendKey(QEvent::KeyRelease, key, TextOf(key));
  });
}

void Type(const QString& text) {
  InGui([&] {
    for (const char32_t letter : text.toUcs4()) {
      if (letter == U'\n') {
        SendBoth(Qt::Key_Return, TextOf(Qt::Key_Return));
      } else {
        SendBoth(letter < 0x80 ? Qt::Key(QChar(letter).toUpper().unicode()) : Qt::Key_unknown,
                 QString::fromUcs4(&letter, 1));
      }
    }
  });
}

void MoveMouse(const QPoint& point) {
  InGui([=] { Move(point); });
}

void HoldButton(Qt::MouseButton button) {
  InGui([=] { HoldOne(button); });
}

void ReleaseButton(Qt::MouseButton button) {
  InGui([=] {
    ReleaseOne(button);
    LetTimePass();
  });
}

void Click(const QPoint& point, Qt::MouseButton button) {
  InGui([=] {
    Move(point);
    HoldOne(button);
    ReleaseOne(button);
    LetTimePass();
  });
}

void DoubleClick(const QPoint& point) {
  InGui([=] {
    Move(point);
    for (int click = 0; click < 2; ++click) {
      HoldOne(Qt::LeftButton);
      ReleaseOne(Qt::LeftButton);
    }
    LetTimePass();
  });
}

void TurnWheel(int eighths) {
  InGui([=] {
    LookUnderMouse();
    QWindow* const window = MouseWindow();
    if (window == nullptr) return;
    QWindowSystemInterface::handleWheelEvent(window, ++devices.time, window->mapFromGlobal(devices.mouse),
                                             devices.mouse, QPoint(), QPoint(0, eighths), devices.modifiers);
  });
}

}  // namespace qt_desktop::input
