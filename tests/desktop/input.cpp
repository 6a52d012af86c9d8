#include "tests/desktop/input.h"

namespace input {

namespace {

void SendKey(WORD key, DWORD flags, WORD unit = 0) {
  INPUT event{};
  event.type = INPUT_KEYBOARD;
  event.ki.wVk = key;
  event.ki.wScan = unit;
  event.ki.dwFlags = flags;
  SendInput(1, &event, sizeof event);
}

/// A pixel of the screen in the units of the mouse, which divide the screen into 65536.
LONG MouseUnits(LONG pixel, int size) {
  return (pixel * 65536 + size - 1) / size;
}

POINT mouse{};

/// Every event tells again where the mouse was moved to: the display has a pointer of its own, which rests
/// elsewhere, and may report it at any moment.
void SendMouse(DWORD flags, DWORD data = 0, DWORD time = 0) {
  INPUT event{};
  event.type = INPUT_MOUSE;
  event.mi.dx = MouseUnits(mouse.x, GetSystemMetrics(SM_CXSCREEN));
  event.mi.dy = MouseUnits(mouse.y, GetSystemMetrics(SM_CYSCREEN));
  event.mi.mouseData = data;
  event.mi.time = time;
  event.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | flags;
  SendInput(1, &event, sizeof event);
}

}  // namespace

void HoldKey(WORD key) {
  SendKey(key, 0);
}

void ReleaseKey(WORD key) {
  SendKey(key, KEYEVENTF_KEYUP);
}

void PressKey(WORD key) {
  HoldKey(key);
  ReleaseKey(key);
}

void TypeUnit(char16_t unit) {
  SendKey(0, KEYEVENTF_UNICODE, unit);
  SendKey(0, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP, unit);
}

void MoveMouse(POINT point) {
  mouse = point;
  SendMouse(0);
}

void HoldButton(Button button) {
  SendMouse(button == Button::Left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN);
}

void ReleaseButton(Button button) {
  SendMouse(button == Button::Left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP);
}

void Click(POINT point, Button button) {
  MoveMouse(point);
  HoldButton(button);
  ReleaseButton(button);
}

void DoubleClick(POINT point) {
  MoveMouse(point);
  // On a slow machine the second click may come too late, unless both are of one moment.
  const DWORD time = GetTickCount();
  for (int click = 0; click < 2; ++click) {
    SendMouse(MOUSEEVENTF_LEFTDOWN, 0, time);
    SendMouse(MOUSEEVENTF_LEFTUP, 0, time);
  }
}

void TurnWheel(int delta) {
  SendMouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(delta));
}

}  // namespace input
