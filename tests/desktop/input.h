#pragma once

// Keys and mouse, as if from the devices. What has the focus, or lies under the point, gets them.

#include "platform/win32/windows_headers.h"

namespace input {

void HoldKey(WORD key);
void ReleaseKey(WORD key);
void PressKey(WORD key);
/// Types a unit of UTF-16, whatever keys the keyboard has.
void TypeUnit(char16_t unit);

enum class Button { Left, Right };

/// To a point of the screen.
void MoveMouse(POINT point);
void HoldButton(Button button);
void ReleaseButton(Button button);
void Click(POINT point, Button button = Button::Left);
/// With the left button.
void DoubleClick(POINT point);
/// 120 for a notch away from the user.
void TurnWheel(int delta);

}  // namespace input
