#include "platform/win32/event_queue.h"

#include <algorithm>
#include <vector>

#include "common/platform.h"

namespace win32 {

namespace {

using Kind = app::KeyStroke::Kind;

std::vector<ACCEL> RowsOf(HACCEL table) {
  std::vector<ACCEL> rows(static_cast<std::size_t>(CopyAcceleratorTableW(table, nullptr, 0)));
  CopyAcceleratorTableW(table, rows.data(), static_cast<int>(rows.size()));
  return rows;
}

// The table among the resources has Ctrl and a letter as the character that they give.
bool IsAmong(const std::vector<ACCEL>& rows, const app::Accelerator& accelerator) {
  const auto& [stroke, command] = accelerator;
  const int key = stroke.kind == Kind::CtrlLetter ? stroke.key - 'A' + 1 : stroke.key;
  return std::ranges::any_of(rows, [&, number = command](const ACCEL& row) {
    return row.cmd == number && row.key == key && ((row.fVirt & FVIRTKEY) != 0) == (stroke.kind == Kind::Key);
  });
}

// Ctrl and a letter as keys: their character may be that of another key, as Ctrl+M is Enter.
ACCEL RowOf(const app::Accelerator& accelerator) {
  const auto& [stroke, command] = accelerator;
  const int flags = stroke.kind == Kind::Key          ? FVIRTKEY
                    : stroke.kind == Kind::CtrlLetter ? FVIRTKEY | FCONTROL
                                                      : FALT;
  return {static_cast<BYTE>(flags), static_cast<WORD>(stroke.key), static_cast<WORD>(command)};
}

}  // namespace

EventQueue::~EventQueue() {
  if (further_ != nullptr) DestroyAcceleratorTable(further_);
}

void EventQueue::UseAccelerators(HWND window, HACCEL accelerators, std::span<const app::Accelerator> keys) {
  target_ = window;
  accelerators_ = accelerators;
  const std::vector<ACCEL> there = RowsOf(accelerators);
  std::vector<ACCEL> rows;
  for (const app::Accelerator& key : keys) {
    if (!IsAmong(there, key)) rows.push_back(RowOf(key));
  }
  if (!rows.empty()) further_ = CreateAcceleratorTableW(rows.data(), static_cast<int>(rows.size()));
}

bool EventQueue::Take() {
  return PeekMessageW(&event_, nullptr, 0, 0, PM_REMOVE) != 0;
}

bool EventQueue::OfferToAccelerators() {
  // They are the main window's; one beside it has keys of its own.
  if (GetAncestor(event_.hwnd, GA_ROOT) != GetAncestor(target_, GA_ROOT)) return false;
  return TranslateAcceleratorW(target_, accelerators_, &event_) != 0 ||
         (further_ != nullptr && TranslateAcceleratorW(target_, further_, &event_) != 0);
}

void EventQueue::Dispatch() {
  TranslateMessage(&event_);
  DispatchMessageW(&event_);
}

void EventQueue::AwaitEvent(int milliseconds) {
  platform::SleepMilliseconds(milliseconds);
}

bool EventQueue::IsQuit() const {
  return event_.message == WM_QUIT;
}

int EventQueue::ExitCode() const {
  return static_cast<int>(event_.wParam);
}

}  // namespace win32
