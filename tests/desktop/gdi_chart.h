#pragma once

// A chart drawn over GDI+ into a window of its own, for tests.

#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>

#include "chart/chart_layout.h"
#include "platform/win32/chart_window.h"
#include "platform/win32/renderer_gdi.h"
#include "platform/win32/windows_headers.h"
#include "program/program.h"
#include "tests/desktop/window_picture.h"

namespace desktop {

/// Keeps GDI+ running.
class GdiplusSession {
 public:
  GdiplusSession();
  ~GdiplusSession();
  GdiplusSession(const GdiplusSession&) = delete;
  GdiplusSession& operator=(const GdiplusSession&) = delete;

 private:
  ULONG_PTR token_ = 0;
};

/// "08:30", as a step without an id.
TCBase::Program::Step StepAt(std::string_view time, float value, bool jump = false);

inline constexpr bool kJump = true;

/// Five dark lanes without steps or selection; nothing is drawn yet.
class GdiChart : public testing::Test {
 protected:
  GdiChart();
  ~GdiChart() override;

  /// The size of the main window's client area; the lanes stand still in it.
  void GivenSize(int width, int height);
  void GivenSteps(int lane, TCBase::Program::Channel steps);
  void GivenView(std::string_view from, std::string_view to);
  void Select(int lane, int step);
  /// Lets the lanes glide to where they are going.
  void LetLanesSettle();

  /// Has the whole window painted anew and looks at it.
  const WindowPicture& Draw();

  UX::Rect Lane(int lane) { return layout.LaneRect(lane); }
  /// Of a moment and a percentage in a lane, in the window.
  int X(int lane, std::string_view time);
  int Y(int lane, float percent) { return UX::PercentToY(Lane(lane), percent); }
  std::uint32_t At(int x, int y) const { return picture.At(x, y); }
  /// What is seen on a lane's curve or beside it.
  std::uint32_t At(int lane, std::string_view time, float percent) {
    return picture.At(X(lane, time), Y(lane, percent));
  }
  /// Pixels of a colour in the whole window.
  int Count(std::uint32_t color) const {
    return picture.Count(color, {0, 0, picture.width(), picture.height()});
  }

  TCBase::Program::ModeListView program;
  TCBase::Program::StepSelection selection{program};
  TCBase::Program::StepSelection hoverStep{program};
  TCBase::DemoState demoState;
  double now = 0.0;
  UX::ChartLayout layout{now};
  WindowPicture picture;  // the last one drawn
  HWND window = nullptr;

  GdiplusSession gdiplus;
  win32::ChartWindow chart;
  UX::RendererGDI renderer{{program, selection, hoverStep, layout, demoState, now}, chart};
};

}  // namespace desktop
