#include "platform/win32/platform_steps.h"

#include <commctrl.h>
#include <objidl.h>
// after objidl.h
#include <gdiplus.h>
#include <hidapi/hidapi.h>

#include <array>

#include "app/commands.h"
#include "devices/datagrams.h"
#include "platform/win32/resource_ids.h"
#include "platform/win32/window_classes.h"

namespace win32 {

namespace {

constexpr int kLongestName = 100;

std::wstring StringOf(HINSTANCE instance, int id) {
  std::array<wchar_t, kLongestName + 1> buffer{};
  const int length =
      LoadStringW(instance, static_cast<UINT>(id), buffer.data(), static_cast<int>(buffer.size()));
  return {buffer.data(), static_cast<std::size_t>(length)};
}

void StartCommonControls() {
  INITCOMMONCONTROLSEX classes{};
  classes.dwSize = sizeof classes;
  classes.dwICC = ICC_LISTVIEW_CLASSES | ICC_DATE_CLASSES;
  InitCommonControlsEx(&classes);
}

}  // namespace

bool PlatformSteps::Do(app::PlatformStep step) {
  using enum app::PlatformStep;
  switch (step) {
    case PrepareControls:
      StartCommonControls();
      break;
    case StartGraphics:
      StartGdiPlus();
      break;
    case StartNetwork:
      platform::StartNetwork();
      break;
    case LoadNames:
      title_ = StringOf(instance_, resource::kTitle);
      windowClass_ = StringOf(instance_, resource::kWindowClass);
      break;
    case PrepareMainWindow:
      win32::RegisterMainClass(instance_, windowClass_.c_str());
      break;
    case PrepareChartWindow:
      win32::RegisterChartClass(instance_);
      break;
    case CreateMainWindow:
      return MakeMainWindow();
    case SetDefaultFont:
      pieces_.controls.SetDefaultFont();
      break;
    case ShowControls:
      break;  // it comes up when it is complete
    case LoadLogo:
      pieces_.logo.Load();
      break;
    case TakeMenu:
      pieces_.menu.Take(pieces_.mainWindow.Handle(), pieces_.controls.HandleOf(app::Control::ChartWindow));
      AppendMissing(GetMenu(pieces_.mainWindow.Handle()), app::MenuTable());
      break;
    case TakeAccelerators:
      pieces_.events.UseAccelerators(pieces_.controls.HandleOf(app::Control::ChartWindow),
                                     LoadAcceleratorsW(instance_, MAKEINTRESOURCEW(resource::kAccelerators)),
                                     app::AcceleratorTable());
      break;
    case DeleteLogo:
      pieces_.logo.Delete();
      break;
    case StopGraphics:
      if (graphics_ != 0) Gdiplus::GdiplusShutdown(graphics_);
      break;
    case StopHid:
      hid_exit();
      break;
    case StopNetwork:
      platform::StopNetwork();
      break;
  }
  return true;
}

void PlatformSteps::StartGdiPlus() {
  const Gdiplus::GdiplusStartupInput version1;
  Gdiplus::GdiplusStartup(&graphics_, &version1, nullptr);
}

bool PlatformSteps::MakeMainWindow() {
  if (!pieces_.mainWindow.Create(instance_, windowClass_.c_str(), title_.c_str())) return false;
  pieces_.controls.SetParent(pieces_.mainWindow.Handle());
  return true;
}

}  // namespace win32
