#include "tests/desktop/gdi_chart.h"

// after windows.h
#include <objidl.h>
// after objidl.h
#include <gdiplus.h>

#include <array>
#include <charconv>
#include <cstddef>
#include <utility>

#include "chart/bumper.h"
#include "program/demo_state.h"

namespace desktop {

using namespace TCBase::Program;

namespace {

constexpr const wchar_t* kClass = L"chart over GDI+";

HWND MakeWindow() {
  static const ATOM registered = [] {
    WNDCLASSW description{};
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = kClass;
    return RegisterClassW(&description);
  }();
  // Above all else, so that all of it is seen.
  return CreateWindowExW(WS_EX_TOPMOST, MAKEINTATOM(registered), L"", WS_POPUP, 0, 0, 100, 100, nullptr,
                         nullptr, GetModuleHandleW(nullptr), nullptr);
}

std::int32_t Number(std::string_view digits) {
  std::int32_t number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

}  // namespace

GdiplusSession::GdiplusSession() {
  const Gdiplus::GdiplusStartupInput version1;
  Gdiplus::GdiplusStartup(&token_, &version1, nullptr);
}

GdiplusSession::~GdiplusSession() {
  Gdiplus::GdiplusShutdown(token_);
}

Step StepAt(std::string_view time, float value, bool jump) {
  return {Number(time.substr(0, 2)), Number(time.substr(3)), value, jump, 0};
}

GdiChart::GdiChart() : window(MakeWindow()) {
  chart.Attach(window);
  program.modes.resize(1);
  constexpr std::array<std::uint32_t, kChannelCount> kColors = {0xFF400000, 0xFF004000, 0xFF000040,
                                                                0xFF404000, 0xFF004040};
  for (std::size_t i = 0; i < kColors.size(); ++i) program.channelInfos[i].color = kColors[i];
  GivenSize(1024, 768);
  ShowWindow(window, SW_SHOWNOACTIVATE);
}

GdiChart::~GdiChart() {
  renderer.Rebuild();
  DestroyWindow(window);
}

void GdiChart::GivenSize(int width, int height) {
  layout.Update(width, height);
  LetLanesSettle();
  const UX::Rect place = layout.ChartWindowRect();
  SetWindowPos(window, nullptr, 0, 0, place.width, place.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void GdiChart::GivenSteps(int lane, Channel steps) {
  program.modes[0].channels[static_cast<std::size_t>(lane)] = std::move(steps);
}

void GdiChart::GivenView(std::string_view from, std::string_view to) {
  program.viewStart = static_cast<std::int32_t>(SecondOfDay(StepAt(from, 0.0F)));
  program.viewEnd = static_cast<std::int32_t>(SecondOfDay(StepAt(to, 0.0F)));
}

void GdiChart::Select(int lane, int step) {
  selection.channel = lane;
  selection.step = step;
}

void GdiChart::LetLanesSettle() {
  now += 1.0;
}

const WindowPicture& GdiChart::Draw() {
  InvalidateRect(window, nullptr, FALSE);
  renderer.Render();
  return picture = WindowPicture(window);
}

int GdiChart::X(int lane, std::string_view time) {
  return UX::TimeToX(Lane(lane), program, StepAt(time, 0.0F));
}

}  // namespace desktop
