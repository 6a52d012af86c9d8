#include "platform/win32/window_classes.h"

#include "platform/win32/chart_window.h"
#include "platform/win32/control_classes.h"
#include "platform/win32/main_window.h"
#include "platform/win32/resource_ids.h"
#include "platform/win32/window_events.h"

namespace win32 {

namespace {

// What both classes have in common: painted anew when their size changes.
WNDCLASSEXW Described(HINSTANCE instance, const wchar_t* name, WNDPROC procedure) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.style = CS_HREDRAW | CS_VREDRAW;
  description.lpfnWndProc = procedure;
  description.hInstance = instance;
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.lpszClassName = name;
  return description;
}

// An icon in the size that the system shows it in; its resource holds several.
HICON IconOf(HINSTANCE instance, int id, int widthMetric, int heightMetric) {
  return static_cast<HICON>(LoadImageW(instance, MAKEINTRESOURCEW(id), IMAGE_ICON,
                                       GetSystemMetrics(widthMetric), GetSystemMetrics(heightMetric),
                                       LR_SHARED));
}

}  // namespace

void RegisterMainClass(HINSTANCE instance, const wchar_t* name) {
  WNDCLASSEXW description = Described(instance, name, &WindowProcedure<MainWindow>);
  description.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  description.lpszMenuName = MAKEINTRESOURCEW(resource::kMenu);
  description.hIcon = IconOf(instance, resource::kLargeIcon, SM_CXICON, SM_CYICON);
  description.hIconSm = IconOf(instance, resource::kSmallIcon, SM_CXSMICON, SM_CYSMICON);
  RegisterClassExW(&description);
}

void RegisterChartClass(HINSTANCE instance) {
  const WNDCLASSEXW description =
      Described(instance, ClassOf(dialogs::ControlKind::Chart), &WindowProcedure<ChartWindow>);
  RegisterClassExW(&description);
}

}  // namespace win32
