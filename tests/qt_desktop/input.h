#pragma once

// Keys and mouse, as the window system tells of them: it finds the window, and the events go through its
// queue. What has the focus, or lies under the point, gets them.

#include <QPoint>
#include <QString>
#include <Qt>

namespace qt_desktop::input {

/// Does what a window manager does when the window that had the keys has gone: another one gets them.
void GiveKeysToAWindow();

/// Presses the key, and holds it: modifier keys come with all that follows until they are released.
void HoldKey(Qt::Key key);
void ReleaseKey(Qt::Key key);
void PressKey(Qt::Key key);
/// Holds a key until it has come that many times, and releases it.
void RepeatKey(Qt::Key key, int times);
/// The same as PressKey, for the key of the number pad.
void PressKeypad(Qt::Key key);
/// Types a text, whatever keys the keyboard has. "\n" is the Enter key.
void Type(const QString& text);

/// To a point of the screen.
void MoveMouse(const QPoint& point);
void HoldButton(Qt::MouseButton button);
void ReleaseButton(Qt::MouseButton button);
void Click(const QPoint& point, Qt::MouseButton button = Qt::LeftButton);
/// With the left button.
void DoubleClick(const QPoint& point);
/// By eighths of a degree where the mouse is: 120 for a notch of a wheel away from the user, any part of it
/// from a touchpad.
void TurnWheel(int eighths);

}  // namespace qt_desktop::input
