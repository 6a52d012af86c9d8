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

void SendMouse(DWORD flags, LONG x = 0, LONG y = 0, DWORD data = 0, DWORD time = 0) {
  INPUT event{};
  event.type = INPUT_MOUSE;
  event.mi.time = time;
  event.mi.dx = x;
  event.mi.dy = y;
  event.mi.mouseData = data;
  event.mi.dwFlags = flags;
  SendInput(1, &event, sizeof event);
}

// A pixel of the screen in the units of the mouse, which divide the screen into 65536.
LONG MouseUnits(LONG pixel, int size) {
  return (pixel * 65536 + size - 1) / size;
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
  SendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, MouseUnits(point.x, GetSystemMetrics(SM_CXSCREEN)),
            MouseUnits(point.y, GetSystemMetrics(SM_CYSCREEN)));
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
    SendMouse(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, time);
    SendMouse(MOUSEEVENTF_LEFTUP, 0, 0, 0, time);
  }
}

void TurnWheel(int delta) {
  SendMouse(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(delta));
}

}  // namespace input
